#include "galss/Connect_Deconnect.h"

#include "galss/Fonction_API.h"
#include "platform/Cp1252.h"
#include "platform/Texte.h"

namespace {

// The answer to an unknown LAD name: installations differ in its spelling.
constexpr std::int16_t LAD_Inconnue = 8192;

}  // namespace

std::int16_t Connect_Deconnect::Connexion(std::string& Message) {
  for (const char* Nom_LAD : {"Log_SV", "LOG_SV", "log_SV"}) {
    if (Ouvrir(Nom_LAD) != LAD_Inconnue) break;
  }
  if (Session_.Code_Retour != 0) {
    Erreur_Galss("OUVERTURE SESSION GALSS", Session_.Code_Retour, Message);
  } else if (Prendre_Exclusivite() != 0) {
    Erreur_Galss("POSE D'UNE EXCLUSIVITE", Session_.Code_Retour, Message);
  } else {
    Message = "Connexion Réussie.";
  }
  TxtDetails_.Ajouter(Message + std::string(Retour_Ligne));
  return Session_.Code_Retour;
}

// The library may rewrite the names it is lent: what it leaves is what the session goes on with.
std::int16_t Connect_Deconnect::Ouvrir(const char* Nom_LAD) {
  Octets Application = Cp1252_De_Texte("Téléchargement");
  Octets LAD = Cp1252_De_Texte(Nom_LAD);
  Session_.Code_Retour =
      Galss_.OuvrirSession(Application, LAD, Session_.Num_Session, Session_.Info_Session);
  Session_.Nom_Application = Texte_De_Cp1252(Application);
  Session_.Nom_LAD = Texte_De_Cp1252(LAD);
  return Session_.Code_Retour;
}

std::int16_t Connect_Deconnect::Prendre_Exclusivite() {
  Octets Texte_Exclusivite = Cp1252_De_Texte(std::to_string(Session_.Num_Session) + ":1");
  Octets Application = Cp1252_De_Texte(Session_.Nom_Application);
  Octets LAD = Cp1252_De_Texte(Session_.Nom_LAD);
  Session_.Code_Retour =
      Galss_.DebutExclusivite(Texte_Exclusivite, Application, LAD, Session_.Num_Exclusivite);
  Session_.Nom_Application = Texte_De_Cp1252(Application);
  Session_.Nom_LAD = Texte_De_Cp1252(LAD);
  return Session_.Code_Retour;
}

void Connect_Deconnect::Deconnexion(std::string& Message) {
  Session_.Code_Retour = Galss_.FinExclusivite(Session_.Num_Exclusivite);
  if (Session_.Code_Retour != 0) {
    Erreur_Galss("SUPPRESSION DE L'EXCLUSIVITE", Session_.Code_Retour, Message);
  }
  Session_.Code_Retour = Galss_.FermerSession(Session_.Num_Session, Session_.Num_Exclusivite);
  if (Session_.Code_Retour != 0) {
    Erreur_Galss("FERMETURE SESSION GALSS", Session_.Code_Retour, Message);
    return;
  }
  Message = "Déconnexion Réussie";
  TxtDetails_.Ajouter(std::string(Retour_Ligne) + Message);
}
