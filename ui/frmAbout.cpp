#include "ui/frmAbout.h"

// clang-format off
Fenetre_Apropos::Fenetre_Apropos(Fenetrage& Ecran)
    : Fenetre(Ecran, {.Titre = "  À propos du Pavorin", .Largeur = 6000, .Hauteur = 3600}),
      picIcon(*this, 901, {240, 240, 720, 720}, {.Image = Dessin::Programme, .Nom_Accessible = "Pavorin"}),
      lblTitle(*this, 902, {1200, 240, 4560, 420}, {.Texte = "PAVORIN INGENICO ELITE 650", .Points = 14.25, .Gras = true}),
      lblVersion(*this, 903, {1200, 720, 4560, 300}, {.Texte = "Version 2.2", .Points = 10.5}),
      Label1(*this, 904, {1200, 1200, 4560, 300}, {.Texte = "Station : ELITE 650", .Points = 10.5}),
      Label2(*this, 905, {1200, 1560, 4560, 300}, {.Texte = "Noyau :  Mono Application", .Points = 10.5}),
      lblDescription(*this, 906, {1200, 1920, 4560, 300}, {.Texte = "Constructeur : INGENICO", .Points = 10.5}),
      Image1(*this, 907, {240, 2640, 1500, 435}, {.Image = Dessin::Bandeau, .Nom_Accessible = "Auteurs"}),
      Image2(*this, 908, {360, 1440, 480, 480}, {.Image = Dessin::Lecteur, .Nom_Accessible = "Lecteur de cartes"}),
      CmdOK(*this, 909, {4440, 2640, 1320, 600}, {.Texte = "OK"}) {
  Bouton_Entree = &CmdOK;
  Bouton_Echap = &CmdOK;
}
// clang-format on
