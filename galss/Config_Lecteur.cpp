#include "galss/Config_Lecteur.h"

#include <algorithm>
#include <charconv>
#include <numeric>

#include "platform/Cp1252.h"
#include "platform/Erreur.h"
#include "platform/Horloge.h"
#include "platform/Texte.h"

namespace {

static_assert(std::accumulate(Longueurs_Champs.begin(), Longueurs_Champs.end(), std::size_t{0}) ==
              Taille_Config_Lecteur);

int Numero_Mois(const std::string& Chiffres) {
  const std::string Texte = Rogner(Chiffres);
  int Mois = 0;
  const auto [Fin, Etat] = std::from_chars(Texte.data(), Texte.data() + Texte.size(), Mois);
  if (Etat != std::errc() || Fin != Texte.data() + Texte.size()) {
    throw Erreur(Numero_Erreur::Type_Incompatible, "Mois incorrect : " + Chiffres);
  }
  if (Mois < 1 || Mois > 12) {
    throw Erreur(Numero_Erreur::Appel_Incorrect, "Mois incorrect : " + Chiffres);
  }
  return Mois;
}

// "20050315" is shown "15 mars 2005".
std::string Afficher_Date(const std::string& Date, Horloge& Temps) {
  const int Mois = Numero_Mois(Extraire(Date, 5, 2));
  return Extraire(Date, 7, 2) + " " + Temps.Nom_Mois(Mois) + " " + Extraire(Date, 1, 4);
}

}  // namespace

std::string Lire_Champ(Vue_Octets Reponse, std::size_t Avant, Champ_Config Lequel) {
  const auto Rang = static_cast<std::size_t>(Lequel);
  const std::size_t Debut =
      std::accumulate(Longueurs_Champs.begin(),
                      Longueurs_Champs.begin() + static_cast<std::ptrdiff_t>(Rang), Avant);
  const Vue_Octets Suite = Reponse.subspan(std::min(Debut, Reponse.size()));
  return Texte_De_Cp1252(Suite.first(std::min(Longueurs_Champs[Rang], Suite.size())));
}

std::string Afficher_Champ(Vue_Octets Reponse, std::size_t Avant, Champ_Config Lequel,
                           Horloge& Temps) {
  std::string Brut = Lire_Champ(Reponse, Avant, Lequel);
  switch (Lequel) {
    case Champ_Config::TypeLecteur:
      return Rogner(Extraire(Brut, 1, Type_Significatif));
    case Champ_Config::NumVersion:  // its first character is not shown: "0127" is 1.27
      return Rogner(Extraire(Brut, 2, 1)) + "." + Extraire(Brut, 3, 2);
    case Champ_Config::Date:
      return Afficher_Date(Brut, Temps);
    case Champ_Config::Heure:
      return Extraire(Brut, 1, 2) + ":" + Extraire(Brut, 3, 2);
    case Champ_Config::NumCRC:
      return Brut;
    default:
      return Rogner(Brut);
  }
}
