#include "download/Chargement.h"

#include "download/Trames.h"
#include "galss/Fonction_API.h"
#include "galss/Gestion_Erreur.h"
#include "platform/Texte.h"

namespace {

enum class Etape { Demande, Bloc };

// Final states by which the reader accepts: "Accord de mise à jour" of a request, "Fin de dialogue
// lecteur" or "OK" of a block.
bool Est_Accord(Etape Quoi, std::int16_t Code) {
  return Quoi == Etape::Demande ? Code == 2 : Code == 0 || Code == 1;
}

std::int16_t Decoder(Vue_Octets Reponse, Etape Quoi, std::string& Message) {
  constexpr std::uint8_t Nature_Etat_Final = 0;
  constexpr std::uint8_t Nature_Erreur_Technique = 1;
  switch (Reponse[0]) {
    case Nature_Etat_Final:
      return Est_Accord(Quoi, Etat_Final(Reponse, Message)) ? std::int16_t{0} : Statut::Etat_Refuse;
    case Nature_Erreur_Technique:
      Erreur_Technique(Reponse, Message);
      return Statut::Panne_Technique;
    default:
      Message = "Erreur nature du message " + Hexadecimal(Reponse[0]) +
                (Quoi == Etape::Demande ? "Incorrect" : "incorrect");
      return Statut::Nature_Inconnue;
  }
}

std::int16_t Conclure(Liaison_Galss& Liaison, std::int16_t Code, Etape Quoi, std::string& Message) {
  if (Code == 0) return Liaison.Rendre(Decoder(Liaison.Reponse(), Quoi, Message));
  Erreur_Galss(Operation_Chargement, Code, Message);
  return Code;
}

}  // namespace

std::int16_t Demande_Chargement(Liaison_Galss& Liaison, std::string_view Version,
                                std::int64_t Longueur, std::int32_t& Taille_Bloc,
                                std::string& Message) {
  const std::int16_t Code = Liaison.Echanger(
      Entete_Demande_Chargement, Corps_Demande(Version, Longueur), Capacite_Reponse_Demande);
  const std::int16_t Etat = Conclure(Liaison, Code, Etape::Demande, Message);
  if (Etat == 0) Taille_Bloc = Taille_Accordee(Liaison);
  return Etat;
}

std::int16_t Bloc_Chargement(Liaison_Galss& Liaison, Rang_Bloc Rang, Vue_Octets Donnees,
                             std::string& Message) {
  const std::int16_t Code =
      Liaison.Echanger(Avec_Type(Entete_Bloc_Chargement, Rang), Donnees, Capacite_Reponse_Bloc);
  return Conclure(Liaison, Code, Etape::Bloc, Message);
}
