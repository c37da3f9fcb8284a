#pragma once
// The program's windows, one instance each.

#include "ui/FDossierING.h"
#include "ui/FMain.h"
#include "ui/FrmAnimCharg.h"
#include "ui/FrmResultParam.h"
#include "ui/frmAbout.h"

struct Fenetres {
  Fenetres(Fenetrage& Ecran, Systeme_Fichiers& Disque)
      : FMain(Ecran),
        FDossierING(Ecran, Disque),
        FrmAnimCharg(Ecran, FMain),
        FrmResultParam(Ecran, FMain),
        frmAbout(Ecran) {}

  Fenetre_Principale FMain;
  Fenetre_Dossier FDossierING;
  Fenetre_Progression FrmAnimCharg;
  Fenetre_Configuration FrmResultParam;
  Fenetre_Apropos frmAbout;
};
