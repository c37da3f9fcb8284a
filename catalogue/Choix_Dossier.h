#pragma once
// The directory dialog at work: "OK" is enabled only while the directory shown, once the operator
// has moved to it, holds software files.

#include "catalogue/Lecture.h"
#include "platform/Machine.h"
#include "ui/Fenetres.h"

class Choix_Dossier {
 public:
  Choix_Dossier(const Machine& Poste, Fenetres& F, Variables_Globales& Globales, Lecture& Catalogue)
      : Disque_(Poste.Disque), F_(F), Globales_(Globales), Catalogue_(Catalogue) {}

  /// "Dossier": opens the dialog, or shows it again.
  void CmdChooseDirectory_Click();

  // Handlers of the dialog.
  void Form_Load();
  void DriveLecteur_Change();
  void DirDirectory_Change();
  void CmdOK_Click();
  void CmdAnnul_Click();

 private:
  Systeme_Fichiers& Disque_;
  Fenetres& F_;
  Variables_Globales& Globales_;
  Lecture& Catalogue_;
};
