#pragma once
// The About box.

#include "ui/controles/Controles.h"
#include "ui/controles/Fenetre.h"

struct Fenetre_Apropos : Fenetre {
  explicit Fenetre_Apropos(Fenetrage& Ecran);

  Image picIcon;
  Etiquette lblTitle;
  Etiquette lblVersion;
  Etiquette Label1;
  Etiquette Label2;
  Etiquette lblDescription;
  Image Image1;
  Image Image2;
  Bouton CmdOK;
};
