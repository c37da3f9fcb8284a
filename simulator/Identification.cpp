#include "simulator/Identification.h"

Identification::Identification() {
  for (std::size_t i = 0; i < Valeurs_.size(); ++i) {
    const auto Valeur = Champs_Identification[i].Valeur;
    Valeurs_[i].assign(Valeur.begin(), Valeur.end());
  }
}

void Identification::Changer(const Changements& Nouveaux) {
  for (std::size_t i = 0; i < Valeurs_.size(); ++i) {
    Valeurs_[i] = Nouveaux[i].value_or(Valeurs_[i]);
  }
}

Octets Identification::Enregistrement() const {
  Octets Resultat;
  for (std::size_t i = 0; i < Valeurs_.size(); ++i) {
    Octets Valeur = Valeurs_[i];
    Valeur.resize(Champs_Identification[i].Longueur, ' ');
    Resultat.insert(Resultat.end(), Valeur.begin(), Valeur.end());
  }
  return Resultat;
}
