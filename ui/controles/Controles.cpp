#include "ui/controles/Controles.h"

Champ_Texte::Champ_Texte(Cadre& Lieu, int Numero, Position Place, Conception Depart, Lignes Combien)
    : Controle(Lieu, Numero, Place, std::move(Depart)), Combien_(Combien) {}

void Champ_Texte::Texte(std::string Nouveau) {
  if (Nouveau == Texte()) return;
  Poser_Texte(std::move(Nouveau));
  Declencher(Changement);
}

void Champ_Texte::Ajouter(std::string_view Suite) {
  Texte(Texte() + std::string(Suite));
}

void Bouton::Cliquer() {
  if (Accessible()) Declencher(Clic);
}

Option::Option(Cadre& Lieu, int Numero, Position Place, Conception Depart, bool Choisie)
    : Controle(Lieu, Numero, Place, std::move(Depart)), Valeur_(Choisie), Valeur_Depart_(Choisie) {}

void Option::Choisir() {
  if (!Accessible() || Valeur_) return;
  for (Controle* Autre : Parent()->Contenu()) {
    if (auto* Voisine = dynamic_cast<Option*>(Autre)) Voisine->Poser(Voisine == this);
  }
  Declencher(Clic);
}

void Option::Poser(bool Nouvelle) {
  Valeur_ = Nouvelle;
  Signaler(Propriete::Valeur);
}

void Option::Reinitialiser() {
  Controle::Reinitialiser();
  Valeur_ = Valeur_Depart_;
}

void Image::Cliquer() {
  if (Accessible()) Declencher(Clic);
}

void Barre_Progression::Valeur(float Nouvelle) {
  Valeur_ = Nouvelle;
  Signaler(Propriete::Valeur);
}

void Barre_Progression::Reinitialiser() {
  Controle::Reinitialiser();
  Valeur_ = 0;
}
