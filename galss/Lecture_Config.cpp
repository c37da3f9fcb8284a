#include "galss/Lecture_Config.h"

#include "galss/Config_Lecteur.h"
#include "galss/Fonction_API.h"

namespace {

constexpr std::size_t Capacite_Reponse = 2048;
constexpr std::int32_t Longueur_Refus = 2;
constexpr const char* Operation = "LECTURE CONFIGURATION LECTEUR";

}  // namespace

std::int16_t Lecture_Config_Lecteur(Liaison_Galss& Liaison, Octets& Reponse, std::string& Message) {
  const std::int16_t Code = Liaison.Echanger(Commande_Configuration, {}, Capacite_Reponse);
  Reponse.assign(Liaison.Reponse().begin(), Liaison.Reponse().end());
  if (Code != 0) {
    Erreur_Galss(Operation, Code, Message);
    return Code;
  }
  if (Liaison.Longueur_Reponse() == Longueur_Refus) {
    Erreur_Telechargement(Operation, Liaison.Rendre(Reponse[1]), Message);
    return Reponse[1];
  }
  return 0;
}
