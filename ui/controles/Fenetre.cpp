#include "ui/controles/Fenetre.h"

#include <utility>

Entree_Menu::Entree_Menu(Fenetre& Barre, int Numero, std::string Texte)
    : Maison_(Barre), Numero_(Numero), Texte_(std::move(Texte)) {
  Barre.Menus_.push_back(this);
}

Entree_Menu::Entree_Menu(Entree_Menu& Menu, int Numero, std::string Texte)
    : Maison_(Menu.Maison_), Numero_(Numero), Texte_(std::move(Texte)) {
  Menu.Sous_Menu_.push_back(this);
}

void Entree_Menu::Cliquer() {
  if (Maison_.A_Portee()) Declencher(Clic);
}

Fenetre::Fenetre(Fenetrage& Ecran, Conception_Fenetre Depart)
    : Ecran_(Ecran), Depart_(std::move(Depart)) {}

void Fenetre::Montrer() {
  if (!Ouverte_) Charger();
  if (Pair_ != nullptr) Pair_->Montrer();
}

void Fenetre::Charger() {
  Ouverte_ = true;
  if (Depart_.Devant != nullptr) Depart_.Devant->Couvrir(1);
  try {
    Pair_ = Ecran_.Creer(*this);
    Declencher(Chargement);
  } catch (...) {
    Effacer();
    throw;
  }
}

void Fenetre::Decharger() {
  if (!Ouverte_) return;
  Effacer();
  Declencher(Dechargement);
}

// The window behind is within reach again before the native one goes: the focus returns to it.
void Fenetre::Effacer() {
  Ouverte_ = false;
  if (Depart_.Devant != nullptr) Depart_.Devant->Couvrir(-1);
  if (Pair_ != nullptr) std::exchange(Pair_, nullptr)->Detruire();
  for (Controle* Un : Controles()) {
    Un->Attacher(nullptr);
    Un->Reinitialiser();
  }
  Active_ = true;
  Souris_ = Pointeur::Defaut;
}

void Fenetre::Couvrir(int Fenetres_De_Plus) {
  Devant_Elle_ += Fenetres_De_Plus;
  if (Pair_ != nullptr) Pair_->Actualiser(Propriete::Active);
}

void Fenetre::Active(bool Oui) {
  Active_ = Oui;
  if (Pair_ != nullptr) Pair_->Actualiser(Propriete::Active);
}

void Fenetre::Souris(Pointeur Nouveau) {
  Souris_ = Nouveau;
  if (Pair_ != nullptr) Pair_->Actualiser(Propriete::Pointeur);
}

void Fenetre::Repeindre() {
  if (Pair_ != nullptr) Pair_->Repeindre();
}

void Fenetre::Premier_Plan() {
  if (Pair_ != nullptr) Pair_->Premier_Plan();
}

void Fenetre::Fermer_Par_Cadre() {
  if (!A_Portee() || !Depart_.Fermable) return;
  if (Fermeture) {
    Declencher(Fermeture);
  } else {
    Decharger();
  }
}
