#pragma once
// The main window: directory choice, selection panel, operation buttons and details pane.
// Declaration order is the tab order; a label stands directly before the control that it names.

#include "ui/controles/Controles.h"
#include "ui/controles/Fenetre.h"
#include "ui/controles/Listes.h"

struct Fenetre_Principale : Fenetre {
  explicit Fenetre_Principale(Fenetrage& Ecran);

  Cadre FrmChooseDirectory;
  Champ_Texte TxtChooseDirectory;
  Bouton CmdChooseDirectory;
  Etiquette lbltypedirectory;
  Image Image1;

  Cadre FrmParamFichier;
  Option OptManuel;
  Option OptAuto;
  Etiquette lblappli;
  Liste_Deroulante CchosseAppli;
  Etiquette lblnoyau;
  Liste_Deroulante CchooseNoyau;
  Etiquette lbltype;
  Etiquette lbltpe;
  Etiquette lblversion1;
  Etiquette lblvers1;
  Etiquette lblversion2;
  Etiquette lblvers2;
  Trait Line1;
  Trait Line2;
  Trait Line4;
  Trait Line5;
  Trait Line3;

  Cadre FChoose;
  Bouton CmdMaj;
  Bouton CmdQuitter;

  Cadre FmDetails;
  Champ_Texte TxtDetails;
  Etiquette LblConnection;
  Image ImgRed;
  Image ImgYellow;
  Image ImgGreen;
  Etiquette Label1;
  Image ImgRed2;
  Image ImgYellow2;
  Image ImgGreen2;
  Etiquette LblVitesse;
  Etiquette LblVit;
  Etiquette LblParité;
  Etiquette LblPart;
  Etiquette LblBitDonnées;
  Etiquette LblBitDon;
  Etiquette Label5;
  Etiquette LblBitStop;

  Entree_Menu MnFile;
  Entree_Menu Mncom;
  Entree_Menu MnLecteur;
  Entree_Menu se0;
  Entree_Menu MnQuitter;
  Entree_Menu MnAide;
  Entree_Menu MnApropos;
};
