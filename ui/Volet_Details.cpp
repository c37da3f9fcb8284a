#include "ui/Volet_Details.h"

#include "platform/Texte.h"

void Volet_Details::Ligne(std::string_view Texte) {
  TxtDetails_.Ajouter(std::string(Texte).append(Retour_Ligne));
}

void Volet_Details::Ligne_Horodatee(std::string_view Texte) {
  Ligne(std::string(Texte) + '\t' + Temps_.Heure_Du_Jour());
}
