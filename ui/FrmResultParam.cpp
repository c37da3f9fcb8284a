#include "ui/FrmResultParam.h"

namespace {

// Columns and rows, in twips.
constexpr int Legende_Gauche = 480, Valeur_Gauche = 2640;
constexpr int Legende_Droite = 5880, Valeur_Droite = 8040;
constexpr int Rangee_1 = 1080, Rangee_2 = 1680, Rangee_3 = 2280, Rangee_4 = 2880, Rangee_5 = 3480;

constexpr Position Legende(int Gauche, int Haut) {
  return {Gauche, Haut, 2100, 300};
}
constexpr Position Valeur(int Gauche, int Haut) {
  return {Gauche, Haut, 3100, 300};
}

Conception Texte_Legende(std::string Texte) {
  return {.Texte = std::move(Texte), .Points = 10.5, .Gras = true};
}
Conception Texte_Valeur() {
  return {.Points = 10.5, .Encre = Couleurs::Bleu};
}

}  // namespace

// clang-format off
Fenetre_Configuration::Fenetre_Configuration(Fenetrage& Ecran, Fenetre& Principale)
    : Fenetre(Ecran, {.Titre = "Configuration du lecteur", .Largeur = 11280, .Hauteur = 5040, .Devant = &Principale}),
      Image1(*this, 801, {480, 240, 480, 480}, {.Image = Dessin::Lecteur, .Nom_Accessible = "Lecteur de cartes"}),
      LblTitre(*this, 802, {1200, 300, 9600, 420},
          {.Texte = "CONFIGURATION DU LECTEUR ELITE 650", .Points = 14.25, .Gras = true, .Centre = true}),
      Label1(*this, 803, Legende(Legende_Gauche, Rangee_1), Texte_Legende("Constructeur :")),
      LblConst(*this, 804, Valeur(Valeur_Gauche, Rangee_1), Texte_Valeur()),
      Label2(*this, 805, Legende(Legende_Gauche, Rangee_2), Texte_Legende("Type de lecteur :")),
      LblTypeLec(*this, 806, Valeur(Valeur_Gauche, Rangee_2), Texte_Valeur()),
      Label3(*this, 807, Legende(Legende_Gauche, Rangee_3), Texte_Legende("N° de Série :")),
      LblNumSerie(*this, 808, Valeur(Valeur_Gauche, Rangee_3), Texte_Valeur()),
      Label4(*this, 809, Legende(Legende_Gauche, Rangee_4), Texte_Legende("Type d'OS :")),
      LblTypeOS(*this, 810, Valeur(Valeur_Gauche, Rangee_4), Texte_Valeur()),
      Label5(*this, 811, Legende(Legende_Gauche, Rangee_5), Texte_Legende("Nom de l'application :")),
      LblNameAppli(*this, 812, Valeur(Valeur_Gauche, Rangee_5), Texte_Valeur()),
      Label6(*this, 813, Legende(Legende_Droite, Rangee_1), Texte_Legende("N° de Version :")),
      LblNumVersion(*this, 814, Valeur(Valeur_Droite, Rangee_1), Texte_Valeur()),
      Label7(*this, 815, Legende(Legende_Droite, Rangee_2), Texte_Legende("Date :")),
      LblDate(*this, 816, Valeur(Valeur_Droite, Rangee_2), Texte_Valeur()),
      Label8(*this, 817, Legende(Legende_Droite, Rangee_3), Texte_Legende("Heure :")),
      LblHeure(*this, 818, Valeur(Valeur_Droite, Rangee_3), Texte_Valeur()),
      Label9(*this, 819, Legende(Legende_Droite, Rangee_4), Texte_Legende("N° de CRC :")),
      LblCRC(*this, 820, Valeur(Valeur_Droite, Rangee_4), Texte_Valeur()),
      CmdOK(*this, 821, {4965, 4140, 1350, 600}, {.Texte = "OK"}) {
  Bouton_Entree = &CmdOK;
  Bouton_Echap = &CmdOK;
}
// clang-format on
