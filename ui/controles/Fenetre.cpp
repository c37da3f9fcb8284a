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
  if (Maison_.Ouverte() && Maison_.Active()) Declencher(Clic);
}

Fenetre::Fenetre(Fenetrage& Ecran, Conception_Fenetre Depart)
    : Ecran_(Ecran), Depart_(std::move(Depart)) {}

void Fenetre::Montrer() {
  if (!Ouverte_) {
    Ouverte_ = true;
    Pair_ = Ecran_.Creer(*this);
    Declencher(Chargement);
  }
  if (Pair_ != nullptr) Pair_->Montrer();
}

void Fenetre::Decharger() {
  if (!Ouverte_) return;
  Ouverte_ = false;
  if (Pair_ != nullptr) std::exchange(Pair_, nullptr)->Detruire();
  for (Controle* Un : Controles_) {
    Un->Attacher(nullptr);
    Un->Reinitialiser();
  }
  Active_ = true;
  Souris_ = Pointeur::Defaut;
  Declencher(Dechargement);
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
  if (!Ouverte_ || !Active_ || !Depart_.Fermable) return;
  if (Fermeture) {
    Declencher(Fermeture);
  } else {
    Decharger();
  }
}
