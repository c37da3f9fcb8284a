#include "logiciel/Fichier_Logiciel.h"

#include "platform/Texte.h"

namespace {

constexpr std::string_view Extension = ".ing";

std::string_view Debut(Genre Quoi) {
  return Quoi == Genre::Appli ? "E" : "Fexa";
}

// Characters from one position from the end down to another; those that the name lacks are left
// out.
std::string Depuis_Fin(std::string_view Nom, std::size_t Premiere, std::size_t Derniere) {
  const std::string Fin = Fin_De(Nom, Premiere);
  const std::size_t Total = Nombre_Caracteres(Fin);
  return Total < Derniere ? std::string() : Extraire(Fin, 1, Total - Derniere + 1);
}

}  // namespace

bool Est_Fichier(std::string_view Texte_Liste) {
  return !Texte_Liste.empty() && Texte_Liste != Pas_De_Mise_A_Jour;
}

std::string_view Motif(Genre Quoi) {
  return Quoi == Genre::Appli ? "E*.ing" : "Fexa*.ing";
}

bool Est_Du_Genre(std::string_view Nom, Genre Quoi) {
  const std::string_view Initiales = Debut(Quoi);
  return Nom.size() >= Initiales.size() + Extension.size() &&
         Egal_Sans_Casse(Nom.substr(0, Initiales.size()), Initiales) &&
         Egal_Sans_Casse(Nom.substr(Nom.size() - Extension.size()), Extension);
}

std::string Version_Fichier(std::string_view Nom, Genre Quoi) {
  return Quoi == Genre::Appli ? Depuis_Fin(Nom, 8, 5) : Depuis_Fin(Nom, 8, 7);
}

std::string Afficher_Version(std::string_view Version, Genre Quoi) {
  if (Quoi == Genre::Noyau) return std::string(Version) + ".00";
  return Extraire(Version, 1, 2) + "." + Extraire(Version, 3, 2);
}

bool Est_Version_Test(std::string_view Nom) {
  const std::string Marque = Depuis_Fin(Nom, 9, 9);
  return Marque == "T" || Marque == "t";
}
