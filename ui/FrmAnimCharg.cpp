#include "ui/FrmAnimCharg.h"

#include <utility>

// clang-format off
Fenetre_Progression::Fenetre_Progression(Fenetrage& Ecran, Fenetre& Principale)
    : Fenetre(Ecran, {.Titre = "Pavorin", .Largeur = 5520, .Hauteur = 1920, 
              .Fermable = false, .Devant = &Principale}),
      LblTitre(*this, 701, {960, 120, 4092, 372}, {.Texte = "Chargement en cours...", .Points = 16.5, .Gras = true}),
      LblBlock(*this, 702, {240, 720, 612, 252}, {.Texte = "Bloc : ", .Points = 10.5, .Gras = true}),
      LblNumBlock(*this, 703, {960, 720, 492, 252}, {.Points = 10.5}),
      LblNumTaille(*this, 704, {1800, 720, 3372, 252}, {.Points = 10.5}),
      PgbExe(*this, 705, {240, 1200, 5052, 372}, {.Nom_Accessible = "Progression du chargement"}),
      LblCom(*this, 706, {240, 1200, 4932, 252}, {.Points = 12, .Gras = true}),
      Image1(*this, 707, {240, 120, 480, 480}, {.Image = Dessin::Chargement, .Nom_Accessible = "Chargement"}),
      Principale_(Principale) {
  // clang-format on
  Chargement = [this] {
    // The rest of what an opening shows is the design state.
    LblTitre.Texte("Chargement en cours ...");
    // Last: whatever fails above must not leave it disabled.
    Principale_.Active(false);
  };
}

void Fenetre_Progression::Poser_Compteur(std::string Texte) {
  LblNumBlock.Texte(std::move(Texte));
}

void Fenetre_Progression::Poser_Progression(float Valeur, std::string Pourcentage) {
  PgbExe.Valeur(Valeur);
  LblNumTaille.Texte(std::move(Pourcentage));
}

void Fenetre_Progression::Repeindre_Progression() {
  LblNumBlock.Repeindre();
  LblNumTaille.Repeindre();
  PgbExe.Repeindre();
}

void Fenetre_Progression::Montrer_Succes() {
  Montrer_Verdict("Chargement Réussi.", "Attendre l'écran de repos du lecteur Elite 650");
}

void Fenetre_Progression::Montrer_Echec() {
  Montrer_Verdict("Problème lors du Chargement.", "Chargement Echoué ...");
}

void Fenetre_Progression::Fermer() {
  Principale_.Active(true);
  Active(false);
  Decharger();
}

void Fenetre_Progression::Montrer_Verdict(std::string Titre, std::string Commentaire) {
  LblTitre.Texte(std::move(Titre));
  PgbExe.Visible(false);
  LblCom.Texte(std::move(Commentaire));
  LblNumBlock.Visible(false);
  LblBlock.Visible(false);
  LblNumTaille.Visible(false);
}
