#pragma once
// The directory dialog: a drive list, a directory tree, "OK" and "Annuler".

#include "ui/controles/Controles.h"
#include "ui/controles/Fenetre.h"
#include "ui/controles/Listes.h"

struct Fenetre_Dossier : Fenetre {
  Fenetre_Dossier(Fenetrage& Ecran, Systeme_Fichiers& Disque);

  Liste_Repertoires DirDirectory;
  Liste_Lecteurs DriveLecteur;
  Bouton CmdOK;
  Bouton CmdAnnul;
  Etiquette Label1;
};
