#pragma once
// The native side of a window: its frame, place and menus, and the messages that Windows sends it,
// handed to the model and to the peers of its controls.

#include <optional>

#include "ui/controles/Fenetre.h"
#include "windows/fenetres/Pair_Natif.h"

class Fenetre_Native : public Pair_Fenetre {
 public:
  /// Still hidden. Proprietaire: window in front of which it stays, or null. Voisine: a window on
  /// the monitor where it is to appear, or null for the first monitor.
  Fenetre_Native(Hote& Ecran, Polices& Fontes, Fenetre& Modele, HWND Proprietaire, HWND Voisine);
  ~Fenetre_Native() override;
  Fenetre_Native(const Fenetre_Native&) = delete;
  Fenetre_Native& operator=(const Fenetre_Native&) = delete;

  static void Enregistrer_Classes();
  /// The one whose native window this is; null for a window that is not ours.
  static const Fenetre_Native* De(HWND Poignee_Fenetre);

  void Actualiser(Propriete Quoi) override;
  void Repeindre() override;
  void Montrer() override;
  void Premier_Plan() override;
  void Detruire() override;

  /// Every control shows its model's last state.
  void Rattraper() const;

  /// Enabled while the operator can act on its model, and no message box is up.
  void Actualiser_Active();

  HWND Poignee() const { return Lieu_.Fenetre; }
  Fenetre& Modele() const { return Modele_; }
  const Hote& Ecran() const { return Lieu_.Ecran; }

 private:
  static LRESULT CALLBACK Aiguiller(HWND, UINT, WPARAM, LPARAM);
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L);
  LRESULT Recevoir_De_Controle(UINT Message, WPARAM W, LPARAM L);
  LRESULT Par_Defaut(UINT Message, WPARAM W, LPARAM L) const;

  void Creer(HWND Proprietaire, HWND Voisine);
  /// Everything inside the window, once it is there.
  void Meubler();
  /// Destroys the native window and detaches the peers of its controls.
  void Effacer();
  /// The system's and the layout's, at the creation and whenever the operator changes them.
  void Prendre_Couleurs();
  void Poser_Icones();
  /// Gives the client area its size; centred in the monitor's work area, or from Coin.
  void Dimensionner(std::optional<POINT> Coin);
  POINT Centre(SIZE Taille) const;
  void Changer_Echelle(int Dpi, const RECT& Proposee);

  Pair_Natif* Pair_De(HWND Poignee_Controle) const;
  void Commander(WPARAM W, HWND Poignee_Controle);
  void Echapper();
  void Fermer();
  /// No message box is up, the model is within reach, and no foreign library is running.
  bool Ecoute() const;
  bool Poser_Pointeur(WORD Endroit) const;
  LRESULT Bouton_Par_Defaut() const;

  Fenetre& Modele_;
  Surface Lieu_;
  Objet_Gdi<HBRUSH> Pinceau_;
  Icone_Systeme Grande_, Petite_;
};
