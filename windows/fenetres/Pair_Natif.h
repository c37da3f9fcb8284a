#pragma once
// What all native controls share: what their window lends them, their place and font at the
// monitor's DPI, and how they follow their model. A peer may outlive its native control: a model
// that is unloaded from within its own event finds its peers still there until the event is over
// (Poignee_ is null then).

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/controles/Controles.h"
#include "windows/fenetres/Foyer.h"
#include "windows/fenetres/Outils_Dessin.h"

class Pair_Fenetre;
class Pair_Natif;

/// What a native window and the peers of its controls ask of the windowing that holds them. It
/// stands below both: they know nothing else of it.
class Hote {
 public:
  virtual ~Hote() = default;
  /// The exception being handled stops here. Only inside a catch block.
  virtual void Signaler_Exception() noexcept = 0;
  /// A message box is up.
  virtual bool Boite_Ouverte() const = 0;
  /// A foreign library is being called: nothing of the operator's counts.
  virtual bool Operateur_Ignore() const = 0;
  /// The PC is kept awake: it is not to be shut down either.
  virtual bool Eveille() const = 0;
  /// Gives a control its name for screen readers, where neither its text nor a label before it
  /// does.
  virtual void Donner_Nom_Accessible(HWND Controle, const std::wstring& Nom) const = 0;
  /// The window is about to go: if it is the active one, another window of ours takes over.
  virtual void Activer_Une_Autre(HWND Partante) const = 0;
  /// The window is gone; its peers stay until no event of theirs can be running any more.
  virtual void Retirer(const Pair_Fenetre& Partie) = 0;
};

/// What a window lends to the peers of its controls.
struct Surface {
  Hote& Ecran;
  Polices& Fontes;
  HWND Fenetre = nullptr;
  Echelle Mesure = {};
  COLORREF Fond = 0;
  HBRUSH Pinceau_Fond = nullptr;
  bool Contraste_Eleve = false;
  Foyer Clavier = {};
  /// In declaration order.
  std::vector<std::unique_ptr<Pair_Natif>> Pairs = {};
  Dc_Fenetre Vif = {};

  /// On which what changes fast paints over its control, in the window's coordinates. Kept once
  /// taken: to take one and give it back for every painting is a request to the window server.
  HDC Dc_Vif() {
    if (!Vif) Vif.reset(GetDCEx(Fenetre, nullptr, DCX_CACHE));
    return Vif.get();
  }

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

  /// Takes place, font and pictures again: the monitor's DPI changed.
  void Disposer();
  /// Shows now what a control that changes too fast has kept for later; its next change is shown at
  /// once too.
  virtual void Rattraper() {}
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
  /// Makes the native control, whole: what is changed once it is there is asked of the window
  /// server again. To be called last by the constructor of each kind.
  void Creer(const wchar_t* Classe, DWORD Style, DWORD Style_Etendu = 0);

  /// Messages of the native control itself; the base hands them to the system.
  virtual LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L);
  /// Where the native control stands; Place, unless it needs other room.
  virtual RECT Place_Native() const { return Place(); }
  /// Font and pictures at the monitor's DPI, and what follows from them.
  virtual void Habiller();
  /// What the native control has for a text; the model's unless it stands for something else.
  virtual std::wstring Texte_Natif() const;
  /// Shows it, in a font with which it fits.
  virtual void Actualiser_Texte();
  /// Hands the native control another text than the one shown.
  virtual void Poser_Texte(const std::wstring& Texte);
  const std::wstring& Texte_Montre() const { return Texte_; }
  HFONT Police() const { return Police_; }
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
  void Choisir_Police(const std::wstring& Texte);
  bool A_Montrer() const;
  void Actualiser_Active();
  void Nommer();

  Controle& Controle_;
  HWND Poignee_ = nullptr;
  WNDPROC Procedure_ = nullptr;  // the native control's own
  HFONT Police_ = nullptr;
  std::wstring Texte_;    // as shown
  std::wstring Gabarit_;  // for which the font was chosen
  bool Nomme_ = false;
  bool A_Peindre_ = true;  // changed since it was last painted at once
};
