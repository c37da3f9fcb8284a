#pragma once
// Tests the reader on a serial line, apart from GALSS: checks the link with a fixed frame at 9600
// then 19200 bauds, shows the line settings and the lights, asks the reader for its configuration
// and shows it in a window of its own. Check bytes are fixed in the frames sent and not verified in
// the answers.

#include <chrono>
#include <string>

#include "Variables_Globales.h"
#include "platform/Machine.h"
#include "platform/Port_Serie.h"
#include "ui/Fenetres.h"

class Test_lecteur {
 public:
  Test_lecteur(const Machine& Poste, Fenetres& F, Variables_Globales& Globales);

  /// The menu entry. Window events are processed during the waits: it may run again within itself.
  void MnLecteur_Click();

  /// "OK" of the configuration window, and its close box.
  void CmdOK_Click();

 private:
  void Tester_Lecteur();
  void Derouler();
  bool Test_Liaison();
  bool Etablir_Liaison(bool& Vitesse_Changee);
  void Montrer_Absence();
  void Montrer_Reglages(bool Vitesse_Changee);
  bool Lire_Configuration();
  void Conclure(bool Configuration_Recue);
  void Afficher_Config();
  void Montrer_Voyants(bool Verts);
  void Poser_Reglages(std::string Vitesse, std::string Parite, std::string Donnees,
                      std::string Stop);
  std::string Prendre_Recus();

  Port_Serie& MSComm1_;
  Horloge& Temps_;
  Fenetrage& Ecran_;
  Fenetre_Principale& FMain_;
  Fenetre_Configuration& FrmResultParam_;
  Octets& Reponse_Serie_;
};
