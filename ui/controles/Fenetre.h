#pragma once
// A window as a model: its controls and menus register with it as they are declared. It lives as
// long as the program; unloading it destroys its native window and brings every control back to its
// design state, so that the next opening starts afresh.

#include <string>
#include <vector>

#include "platform/Fenetrage.h"
#include "ui/controles/Controle.h"

/// The native side of a window.
class Pair_Fenetre : public Pair_Controle {
 public:
  virtual void Montrer() = 0;
  virtual void Premier_Plan() = 0;
  /// Destroys the native window; the peers of its controls are detached before it returns.
  virtual void Detruire() = 0;
};

struct Conception_Fenetre {
  std::string Titre;
  int Largeur;  ///< client area, twips, menus left out
  int Hauteur;
  std::optional<Couleur> Fond = {};  ///< absent: the system's
  bool Fermable = true;              ///< has a close box
  /// Stays in front of this window, which is out of the operator's reach while this one is open.
  Fenetre* Devant = nullptr;
};

/// A menu, an entry, or a separator (whose text is "-"). "&" precedes the access key.
class Entree_Menu {
 public:
  Entree_Menu(Fenetre& Barre, int Numero, std::string Texte);
  Entree_Menu(Entree_Menu& Menu, int Numero, std::string Texte);
  Entree_Menu(const Entree_Menu&) = delete;
  Entree_Menu& operator=(const Entree_Menu&) = delete;

  /// The operator's choice; ignored unless the window is within reach.
  void Cliquer();

  int Numero() const { return Numero_; }
  const std::string& Texte() const { return Texte_; }
  const std::vector<Entree_Menu*>& Sous_Menu() const { return Sous_Menu_; }

  Evenement Clic;

 private:
  Fenetre& Maison_;
  int Numero_;
  std::string Texte_;
  std::vector<Entree_Menu*> Sous_Menu_;
};

class Fenetre : public Lieu_Controles {
 public:
  Fenetre(Fenetrage& Ecran, Conception_Fenetre Depart);
  Fenetre(const Fenetre&) = delete;
  Fenetre& operator=(const Fenetre&) = delete;

  /// Loads the window if it is not (Chargement runs), shows it and brings it to the front. Whatever
  /// fails on the way is raised, and the window is closed: no other stays out of reach for it.
  void Montrer();
  /// Back to the design state, off the screen; Dechargement runs last. Nothing on a closed window.
  void Decharger();
  bool Ouverte() const { return Ouverte_; }

  /// The operator can act on it: open, enabled, and no open window stands in front of it.
  bool A_Portee() const override { return Ouverte_ && Active_ && Devant_Elle_ == 0; }

  bool Active() const { return Active_; }
  void Active(bool Oui);
  Pointeur Souris() const override { return Souris_; }
  void Souris(Pointeur Nouveau) override;
  void Repeindre();
  void Premier_Plan();

  /// The operator closes it by its frame, or with Esc: Fermeture runs, or the window is unloaded
  /// when it has no such handler. Ignored when it is out of reach or has no close box.
  void Fermer_Par_Cadre();

  const Conception_Fenetre& Depart() const { return Depart_; }
  const std::vector<Entree_Menu*>& Menus() const { return Menus_; }
  Pair_Fenetre* Pair() const { return Pair_; }

  /// Button pressed by Enter where no other has the focus, and by Esc; null for none. Without an
  /// Esc button, Esc closes like the frame does, but for a window that has menus.
  Controle* Bouton_Entree = nullptr;
  Controle* Bouton_Echap = nullptr;

  Evenement Chargement;
  Evenement Fermeture;
  Evenement Dechargement;

 private:
  friend class Entree_Menu;

  void Charger();
  /// Off the screen and back to the design state, without any event.
  void Effacer();
  /// An open window more, or less, stands in front of this one.
  void Couvrir(int Fenetres_De_Plus);

  Fenetrage& Ecran_;
  Conception_Fenetre Depart_;
  std::vector<Entree_Menu*> Menus_;
  Pair_Fenetre* Pair_ = nullptr;
  bool Ouverte_ = false;
  bool Active_ = true;
  int Devant_Elle_ = 0;  // open windows that stand in front of it
  Pointeur Souris_ = Pointeur::Defaut;
};
