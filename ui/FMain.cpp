#include "ui/FMain.h"

using enum Dessin;
using Couleurs::Bleu, Couleurs::Bleu_Clair, Couleurs::Gris, Couleurs::Rouge;
using Lignes = Champ_Texte::Lignes;

namespace {

constexpr double Points_Cadre = 12;
constexpr Position Voyant_Connexion{1080, 600, 480, 480};
constexpr Position Voyant_Test{4560, 600, 480, 480};

Conception Voyant(Dessin Quoi, std::string Nom_Accessible) {
  return {.Image = Quoi, .Nom_Accessible = std::move(Nom_Accessible)};
}

}  // namespace

// clang-format off
Fenetre_Principale::Fenetre_Principale(Fenetrage& Ecran)
    : Fenetre(Ecran, {.Titre = "Pavorin V3.01 Pour 650 Mono", .Largeur = 11190, .Hauteur = 5985}),

      FrmChooseDirectory(*this, 100, {240, 120, 5295, 1695},
          {.Texte = "Répertoire des fichiers à télécharger", .Points = Points_Cadre, .Gras = true}),
      TxtChooseDirectory(FrmChooseDirectory, 101, {480, 600, 3255, 375},
          {.Nom_Accessible = "Répertoire des fichiers à télécharger"}, Lignes::Une),
      CmdChooseDirectory(FrmChooseDirectory, 102, {4200, 480, 732, 495}, {.Texte = "Dossier", .Points = 7.5, .Image = Dossier}),
      lbltypedirectory(FrmChooseDirectory, 103, {480, 1080, 3255, 375},
          {.Texte = "Fichier non présent", .Points = 14.25, .Gras = true, .Centre = true, .Encre = Rouge}),
      Image1(FrmChooseDirectory, 104, {3720, 1200, 1500, 435}, {.Image = Bandeau, .Nom_Accessible = "Bandeau Pavorin"}),

      FrmParamFichier(*this, 200, {240, 2040, 5295, 3735},
          {.Texte = "Paramétres des fichiers", .Points = Points_Cadre, .Gras = true}),
      OptManuel(FrmParamFichier, 201, {360, 480, 2175, 375}, {.Texte = "Mise à jour Manuelle"}),
      OptAuto(FrmParamFichier, 202, {2760, 480, 2295, 375}, {.Texte = "Mise à jour Automatique"}, true),
      lblappli(FrmParamFichier, 203, {360, 1080, 2055, 375}, {.Texte = "Applications", .Points = 11.25, .Centre = true}),
      CchosseAppli(FrmParamFichier, 204, {360, 1440, 2055, 360}, {.Nom_Accessible = "Applications"}),
      lblnoyau(FrmParamFichier, 205, {2760, 1080, 1935, 375}, {.Texte = "Noyaux", .Points = 11.25, .Centre = true}),
      CchooseNoyau(FrmParamFichier, 206, {2760, 1440, 2055, 360}, {.Nom_Accessible = "Noyaux"}),
      lbltype(FrmParamFichier, 207, {360, 2040, 615, 255}, {.Texte = "Type :", .Points = 9.75, .Souligne = true}),
      lbltpe(FrmParamFichier, 208, {1080, 2040, 1215, 255},
          {.Texte = "-------", .Points = 9.75, .Centre = true, .Encre = Bleu_Clair}),
      lblversion1(FrmParamFichier, 209, {360, 2520, 735, 255}, {.Texte = "Version :", .Points = 9.75, .Souligne = true}),
      lblvers1(FrmParamFichier, 210, {1080, 2520, 1215, 255},
          {.Texte = "--.--", .Points = 9.75, .Centre = true, .Encre = Bleu_Clair}),
      lblversion2(FrmParamFichier, 211, {2760, 2520, 735, 255}, {.Texte = "Version :", .Points = 9.75, .Souligne = true}),
      lblvers2(FrmParamFichier, 212, {3480, 2520, 1335, 255},
          {.Texte = "--.--", .Points = 9.75, .Centre = true, .Encre = Bleu_Clair}),
      Line1(FrmParamFichier, 213, {240, 960, 4800, 0}, {.Encre = Bleu}),
      Line2(FrmParamFichier, 214, {240, 960, 0, 2520}, {.Encre = Bleu}),
      Line4(FrmParamFichier, 215, {5040, 960, 0, 2520}, {.Encre = Bleu}),
      Line5(FrmParamFichier, 216, {2520, 960, 0, 2520}, {.Encre = Bleu}),
      Line3(FrmParamFichier, 217, {360, 3480, 4800, 0}, {.Encre = Bleu}),

      FChoose(*this, 300, {5709, 120, 5292, 1695},
          {.Texte = "Choix des opérations", .Points = Points_Cadre, .Gras = true}),
      CmdMaj(FChoose, 301, {360, 600, 2895, 732}, {.Texte = "Mise à jour", .Points = 7.5, .Image = Mise_A_Jour}),
      CmdQuitter(FChoose, 302, {3840, 600, 1095, 735}, {.Texte = "Quitter", .Points = 8.25, .Image = Quitter}),

      FmDetails(*this, 400, {5709, 2085, 5292, 3735},
          {.Texte = "Détails des opérations", .Points = Points_Cadre, .Gras = true}),
      TxtDetails(FmDetails, 401, {120, 480, 5052, 3015},
          {.Points = 10.5, .Encre = Bleu, .Fond = Gris, .Nom_Accessible = "Détails des opérations"}, Lignes::Plusieurs),
      LblConnection(FmDetails, 402, {240, 720, 852, 252}, {.Texte = "Connexion : "}),
      ImgRed(FmDetails, 403, Voyant_Connexion, Voyant(Voyant_Rouge, "Connexion : échec")),
      ImgYellow(FmDetails, 404, Voyant_Connexion, Voyant(Voyant_Jaune, "Connexion : en cours")),
      ImgGreen(FmDetails, 405, Voyant_Connexion, Voyant(Voyant_Vert, "Connexion : réussie")),
      Label1(FmDetails, 406, {4080, 720, 372, 252}, {.Texte = "Test : "}),
      ImgRed2(FmDetails, 407, Voyant_Test, Voyant(Voyant_Rouge, "Test : échec")),
      ImgYellow2(FmDetails, 408, Voyant_Test, Voyant(Voyant_Jaune, "Test : en cours")),
      ImgGreen2(FmDetails, 409, Voyant_Test, Voyant(Voyant_Vert, "Test : réussi")),
      LblVitesse(FmDetails, 410, {1200, 1320, 732, 252}, {.Texte = "Vitesse : ", .Gras = true}),
      LblVit(FmDetails, 411, {3000, 1320, 1332, 252}, {.Gras = true, .Centre = true, .Encre = Bleu}),
      LblParité(FmDetails, 412, {1200, 1680, 732, 252}, {.Texte = "Parité : ", .Gras = true}),
      LblPart(FmDetails, 413, {3000, 1680, 1332, 252}, {.Gras = true, .Centre = true, .Encre = Bleu}),
      LblBitDonnées(FmDetails, 414, {1200, 2040, 1452, 252}, {.Texte = "Bit de données : ", .Gras = true}),
      LblBitDon(FmDetails, 415, {3000, 2040, 1332, 252}, {.Gras = true, .Centre = true, .Encre = Bleu}),
      Label5(FmDetails, 416, {1200, 2400, 1092, 252}, {.Texte = "Bit de stop : ", .Gras = true}),
      LblBitStop(FmDetails, 417, {3000, 2400, 1332, 252}, {.Gras = true, .Centre = true, .Encre = Bleu}),

      MnFile(*this, 500, "&Fichier"),
      Mncom(MnFile, 501, "&Communication"),
      MnLecteur(Mncom, 502, "&Test Lecteur"),
      se0(MnFile, 503, "-"),
      MnQuitter(MnFile, 504, "&Quitter"),
      MnAide(*this, 510, "&Aide"),
      MnApropos(MnAide, 511, "&A propos du Pavorin") {}
// clang-format on
