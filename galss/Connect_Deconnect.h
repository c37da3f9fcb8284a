#pragma once
// Opens and closes the GALSS session, with the reader's exclusivity, and logs the outcome.

#include <cstdint>
#include <functional>
#include <string>

#include "Variables_Globales.h"
#include "platform/Bibliotheque_Galss.h"
#include "ui/controles/Controles.h"

class Connect_Deconnect {
 public:
  Connect_Deconnect(Bibliotheque_Galss& Galss, Session_Galss& Session, Champ_Texte& TxtDetails)
      : Galss_(Galss), Session_(Session), TxtDetails_(TxtDetails) {}

  /// Opens a session and takes the exclusivity; 0 when both are held. A refused exclusivity leaves
  /// the session open. Message and pane get the outcome, success or failure.
  std::int16_t Connexion(std::string& Message);

  /// Releases the exclusivity and closes the session. Only a success goes to the pane; the result
  /// is in Code_Retour and in Message.
  void Deconnexion(std::string& Message);

 private:
  std::int16_t Ouvrir();
  std::int16_t Prendre_Exclusivite();
  std::int16_t Preter_Noms(
      const std::function<std::int16_t(Octets& Application, Octets& LAD)>& Appel);

  Bibliotheque_Galss& Galss_;
  Session_Galss& Session_;
  Champ_Texte& TxtDetails_;
};
