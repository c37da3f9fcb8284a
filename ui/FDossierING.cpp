#include "ui/FDossierING.h"

// clang-format off
Fenetre_Dossier::Fenetre_Dossier(Fenetrage& Ecran, Systeme_Fichiers& Disque)
    : Fenetre(Ecran, {.Titre = "Séléction du répertoire", .Largeur = 3870, .Hauteur = 5145, .Fond = Couleurs::Gris}),
      DirDirectory(*this, 601, {360, 1470, 2895, 2565}, {.Nom_Accessible = "Répertoires"}, Disque),
      DriveLecteur(*this, 602, {360, 990, 2895, 315}, {.Nom_Accessible = "Lecteurs"}, Disque),
      CmdOK(*this, 603, {360, 4245, 975, 735}, {.Texte = "OK"}),
      CmdAnnul(*this, 604, {2280, 4245, 975, 735}, {.Texte = "Annuler"}),
      Label1(*this, 605, {360, 165, 2895, 735},
          {.Texte = "Séléctionnez le répertoire des fichiers à télécharger", .Points = 12, .Gras = true, .Centre = true,
           .Fond = Couleurs::Gris}) {
  Bouton_Entree = &CmdOK;
  Bouton_Echap = &CmdAnnul;
}
// clang-format on
