#pragma once
// What all native controls share: their window, their place and font at the monitor's DPI, and how
// they follow their model. A peer may outlive its native control: a model that is unloaded from
// within its own event finds its peers still there until the event is over.

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/windows/Echelle.h"
#include "platform/windows/Foyer.h"
#include "platform/windows/Objets_Gdi.h"
#include "platform/windows/Polices.h"
#include "ui/controles/Controles.h"

class Fenetrage_Windows;
class Pair_Natif;

/// What a window lends to the peers of its controls.
struct Surface {
  Fenetrage_Windows& Ecran;
  Polices& Fontes;
  HWND Fenetre = nullptr;
  Echelle Mesure = {};
  COLORREF Fond = 0;
  HBRUSH Pinceau_Fond = nullptr;
  bool Contraste_Eleve = false;
  Foyer Clavier = {};
  /// In declaration order.
  std::vector<std::unique_ptr<Pair_Natif>> Pairs = {};

  /// The layout's colour; where it gives none, and everywhere in high contrast, the system's
  /// (COLOR_BTNTEXT, ...).
  COLORREF Teinte(const std::optional<Couleur>& Voulue, int Systeme) const {
    return Voulue && !Contraste_Eleve ? En_Colorref(*Voulue) : GetSysColor(Systeme);
  }
};

class Pair_Natif : public Pair_Controle {
 public:
  Pair_Natif(Surface& Lieu, Controle& Sien) : Lieu_(Lieu), Controle_(Sien) {}
  ~Pair_Natif() override;
  Pair_Natif(const Pair_Natif&) = delete;
  Pair_Natif& operator=(const Pair_Natif&) = delete;

  void Actualiser(Propriete Quoi) override;
  void Repeindre() override;

  /// Takes place and font again: the monitor's DPI changed.
  virtual void Disposer();
  /// Shown when the model is, and its frame too.
  void Actualiser_Visible();

  /// A notification of the native control (BN_CLICKED, ...).
  virtual void Commander(WORD) {}
  /// An owner-drawn control asks to be painted.
  virtual void Dessiner_Article(const DRAWITEMSTRUCT&) {}
  /// Sets the colours of the text; the brush for the background, or null for the system's choice.
  virtual HBRUSH Colorer(HDC Dc);

  /// In the same frame, and over a part of the other's surface.
  bool Touche(const Pair_Natif& Autre) const;
  /// Below another control, or below all with HWND_BOTTOM.
  void Passer_Dessous(HWND Autre) const;

  HWND Poignee() const { return Poignee_; }
  Controle& Modele() const { return Controle_; }

 protected:
  /// Makes the native control. To be called last by the constructor of each kind.
  void Creer(const wchar_t* Classe, DWORD Style, DWORD Style_Etendu = 0);

  /// Messages of the native control itself; the base hands them to the system.
  virtual LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L);
  /// Shows the model's text, in a font with which it fits.
  virtual void Actualiser_Texte();
  /// Room for the text inside the control; empty when any length will do.
  virtual SIZE Place_Texte() const { return {}; }

  LRESULT Envoyer(UINT Message, WPARAM W = 0, LPARAM L = 0) const;
  /// From the window's client area, pixels.
  RECT Place() const;
  int Pixels_96(int Longueur) const { return Lieu_.Mesure.Depuis_96(Longueur); }
  const Conception& Look() const { return Controle_.Depart(); }
  void Invalider();

  Surface& Lieu_;

 private:
  static LRESULT CALLBACK Aiguiller(HWND, UINT, WPARAM, LPARAM);
  void Prendre_Procedure();
  void Rendre_Procedure();
  void Actualiser_Active();
  void Nommer();

  Controle& Controle_;
  HWND Poignee_ = nullptr;
  WNDPROC Procedure_ = nullptr;  // the native control's own
  HFONT Police_ = nullptr;
  std::wstring Texte_;  // as shown
  bool Nomme_ = false;
  bool A_Peindre_ = true;  // changed since it was last painted at once
};
