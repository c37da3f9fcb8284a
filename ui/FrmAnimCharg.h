#pragma once
// The progress of one file transfer, then its verdict. While it is open the main window is
// disabled and out of reach. It has no close box: only the transfer closes it.

#include <string>

#include "ui/controles/Controles.h"
#include "ui/controles/Fenetre.h"

struct Fenetre_Progression : Fenetre {
  Fenetre_Progression(Fenetrage& Ecran, Fenetre& Principale);

  /// The block counter alone, as it stands before the first block.
  void Poser_Compteur(std::string Texte);
  /// Valeur: part of the file sent, 0 to 100.
  void Poser_Progression(float Valeur, std::string Pourcentage);
  /// Paints the two counters and the bar at once.
  void Repeindre_Progression();
  void Montrer_Succes();
  void Montrer_Echec();
  /// Enables the main window first, so that the focus returns to it.
  void Fermer();

  Etiquette LblTitre;
  Etiquette LblBlock;
  Etiquette LblNumBlock;
  Etiquette LblNumTaille;
  Barre_Progression PgbExe;
  Etiquette LblCom;
  Image Image1;

 private:
  void Montrer_Verdict(std::string Titre, std::string Commentaire);

  Fenetre& Principale_;
};
