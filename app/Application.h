#pragma once
// The program: its windows, its process-wide values and its procedures, wired together. It alone
// knows everybody.

#include "Variables_Globales.h"
#include "catalogue/Choix_Dossier.h"
#include "catalogue/Lecture.h"
#include "catalogue/Lecture_Ecriture_FichierINI.h"
#include "platform/Machine.h"
#include "serial/Test_lecteur.h"
#include "ui/Fenetres.h"
#include "ui/Graphic.h"
#include "update/Procedure_Mise_A_Jour.h"

class Application {
 public:
  explicit Application(const Machine& Poste);

  /// Start-up, from the main window on the screen to the lists filled. The caller runs the event
  /// loop, which Fenetrage::Quitter ends.
  void Form_Load();

  Fenetres F;
  Variables_Globales Globales;

 private:
  void Attacher_Principale();
  void Attacher_Panneau();
  void Attacher_Dossier();
  void Attacher_Apropos();
  void CmdQuitter_Click();
  void MnApropos_Click();
  /// "OK" of the About box.
  void CmdOK_Click();
  void Finir_Sans_Fenetre();
  void Informer(std::string_view Texte);

  Fenetrage& Ecran_;
  Graphic Panneau_;
  Lecture Catalogue_;
  Lecture_Ecriture_FichierINI Reglages_;
  Choix_Dossier Dossier_;
  Procedure_Mise_A_Jour Procedure_;
  Test_lecteur Test_;
};
