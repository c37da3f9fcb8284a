#include "download/Trame_Telechargement.h"

#include "download/Trames.h"
#include "galss/Fonction_API.h"

namespace {

constexpr std::int32_t Longueur_Accord = 3;
constexpr std::int32_t Longueur_Refus = 2;
constexpr std::uint8_t Bloc_Refuse = 0x01;

// The length is judged before the result of the exchange.
std::int16_t Verifier(Liaison_Galss& Liaison, std::int16_t Code, bool Longueur_Permise,
                      std::string& Message) {
  const std::int16_t Etat = Longueur_Permise ? Code : Statut::Longueur_Incorrecte;
  if (Etat != 0) Erreur_Galss(Operation_Chargement, Etat, Message);
  return Liaison.Rendre(Etat);
}

std::int16_t Refuser(Liaison_Galss& Liaison, std::string& Message) {
  const std::int16_t Etat = Liaison.Rendre(Liaison.Reponse()[1]);
  Erreur_Telechargement(Operation_Chargement, Etat, Message);
  return Etat;
}

}  // namespace

std::int16_t Demande_Telechargement(Liaison_Galss& Liaison, std::string_view Version,
                                    std::int64_t Longueur, std::int32_t& Taille_Bloc,
                                    std::string& Message) {
  const std::int16_t Code = Liaison.Echanger(
      Entete_Demande_Telechargement, Corps_Demande(Version, Longueur), Capacite_Reponse_Demande);
  const std::int32_t Recus = Liaison.Longueur_Reponse();
  const bool Longueur_Permise = Recus == Longueur_Accord || Recus == Longueur_Refus;
  const std::int16_t Etat = Verifier(Liaison, Code, Longueur_Permise, Message);
  if (Etat != 0) return Etat;
  if (Recus == Longueur_Refus) return Refuser(Liaison, Message);
  Taille_Bloc = Taille_Accordee(Liaison);
  return 0;
}

std::int16_t Bloc_Telechargement(Liaison_Galss& Liaison, Rang_Bloc Rang, Vue_Octets Donnees,
                                 std::string& Message) {
  const std::int16_t Code =
      Liaison.Echanger(Avec_Type(Entete_Bloc_Telechargement, Rang), Donnees, Capacite_Reponse_Bloc);
  const std::int32_t Recus = Liaison.Longueur_Reponse();
  const std::int16_t Etat = Verifier(Liaison, Code, Recus == 1 || Recus == 2, Message);
  if (Etat != 0) return Etat;
  return Liaison.Reponse()[0] == Bloc_Refuse ? Refuser(Liaison, Message) : std::int16_t{0};
}
