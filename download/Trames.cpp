#include "download/Trames.h"

#include <algorithm>
#include <string>

#include "platform/Erreur.h"

void Exiger_Annoncable(std::int64_t Longueur) {
  if (Longueur < 0 || Longueur > Longueur_Maximale) {
    throw Erreur(Numero_Erreur::Appel_Incorrect,
                 "La taille du fichier ne peut pas être annoncée au lecteur");
  }
}

Corps Corps_Demande(std::string_view Version, std::int64_t Longueur) {
  Exiger_Annoncable(Longueur);
  Corps Donnees;
  Donnees.fill(' ');
  std::copy_n(Version.begin(), std::min(Version.size(), Taille_Version), Donnees.begin());
  const std::string Chiffres = std::to_string(Longueur);
  std::fill(Donnees.begin() + Taille_Version, Donnees.end(), std::uint8_t{'0'});
  std::copy_backward(Chiffres.begin(), Chiffres.end(), Donnees.end());
  return Donnees;
}
