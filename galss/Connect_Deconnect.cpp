#include "galss/Connect_Deconnect.h"

#include "galss/Fonction_API.h"
#include "platform/Cp1252.h"
#include "platform/Texte.h"

namespace {

// The answer to an unknown LAD name: installations differ in its spelling.
constexpr std::int16_t LAD_Inconnue = 8192;

}  // namespace

std::int16_t Connect_Deconnect::Connexion(std::string& Message) {
  Session_.Nom_Application = "Téléchargement";
  for (const char* Nom_LAD : {"Log_SV", "LOG_SV", "log_SV"}) {
    Session_.Nom_LAD = Nom_LAD;
    if (Ouvrir() != LAD_Inconnue) break;
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

std::int16_t Connect_Deconnect::Ouvrir() {
  return Preter_Noms([this](Octets& Application, Octets& LAD) {
    return Galss_.OuvrirSession(Application, LAD, Session_.Num_Session, Session_.Info_Session);
  });
}

std::int16_t Connect_Deconnect::Prendre_Exclusivite() {
  Octets Texte_Exclusivite = Cp1252_De_Texte(std::to_string(Session_.Num_Session) + ":1");
  return Preter_Noms([&](Octets& Application, Octets& LAD) {
    return Galss_.DebutExclusivite(Texte_Exclusivite, Application, LAD, Session_.Num_Exclusivite);
  });
}

// The library may rewrite the names it is lent: what it leaves is what the session goes on with,
// the next try under another spelling of the LAD included.
std::int16_t Connect_Deconnect::Preter_Noms(
    const std::function<std::int16_t(Octets& Application, Octets& LAD)>& Appel) {
  Octets Application = Cp1252_De_Texte(Session_.Nom_Application);
  Octets LAD = Cp1252_De_Texte(Session_.Nom_LAD);
  Session_.Code_Retour = Appel(Application, LAD);
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
