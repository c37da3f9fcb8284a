#include "ui/Journal.h"

#include "platform/Texte.h"

void Journal::Ligne(std::string_view Texte) {
  TxtDetails_.Ajouter(std::string(Texte).append(Retour_Ligne));
}

void Journal::Ligne_Horodatee(std::string_view Texte) {
  Ligne(std::string(Texte) + '\t' + Temps_.Heure_Du_Jour());
}
