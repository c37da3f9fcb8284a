#pragma once
// The reader's configuration, as the serial test received it: two columns of captions and values.

#include "ui/controles/Controles.h"
#include "ui/controles/Fenetre.h"

struct Fenetre_Configuration : Fenetre {
  Fenetre_Configuration(Fenetrage& Ecran, Fenetre& Principale);

  Image Image1;
  Etiquette LblTitre;
  Etiquette Label1;
  Etiquette LblConst;
  Etiquette Label2;
  Etiquette LblTypeLec;
  Etiquette Label3;
  Etiquette LblNumSerie;
  Etiquette Label4;
  Etiquette LblTypeOS;
  Etiquette Label5;
  Etiquette LblNameAppli;
  Etiquette Label6;
  Etiquette LblNumVersion;
  Etiquette Label7;
  Etiquette LblDate;
  Etiquette Label8;
  Etiquette LblHeure;
  Etiquette Label9;
  Etiquette LblCRC;
  Bouton CmdOK;
};
