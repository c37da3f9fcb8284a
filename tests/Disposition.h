#pragma once
// How every window is laid out: one line a control, written by hand from the windows' drawings. What the
// models, and the native windows made from them, are compared with.

#include "ui/Fenetres.h"

struct Ligne_Disposition {
  Controle& C;
  std::string_view Nom, Genre;
  Position Place;  ///< twips, within its frame
  std::string_view Texte = {};
  double Points = 0;            ///< 0: those of any text, 9
  std::string_view Style = {};  ///< g bold, s underlined, c centred; ink R red, B blue, b light blue; G grey ground
  Dessin Image = Dessin::Aucun;
};

inline std::vector<std::pair<Fenetre*, std::string_view>> Fenetres_Nommees(Fenetres& F) {
  return {{&F.FMain, "FMain"},
          {&F.FDossierING, "FDossierING"},
          {&F.FrmAnimCharg, "FrmAnimCharg"},
          {&F.FrmResultParam, "FrmResultParam"},
          {&F.frmAbout, "frmAbout"}};
}

// clang-format off
/// Window by window, each in its tab order; the controls of a frame stand below it.
inline std::vector<Ligne_Disposition> Disposition(Fenetres& F) {
#define L(Fenetre, Nom, Genre, ...) {F.Fenetre.Nom, #Nom, Genre, __VA_ARGS__}
  constexpr std::string_view Legende = "etiquette", Ampoule = "image";
  return {
      L(FMain, FrmChooseDirectory, "cadre", {240, 120, 5295, 1695}, "Répertoire des fichiers à télécharger", 12, "g"),
      L(FMain, TxtChooseDirectory, "champ", {480, 600, 3255, 375}),
      L(FMain, CmdChooseDirectory, "bouton", {4200, 480, 732, 495}, "Dossier", 7.5, "", Dessin::Dossier),
      L(FMain, lbltypedirectory, Legende, {480, 1080, 3255, 375}, "Fichier non présent", 14.25, "gcR"),
      L(FMain, Image1, "image", {3720, 1200, 1500, 435}, "", 0, "", Dessin::Bandeau),
      L(FMain, FrmParamFichier, "cadre", {240, 2040, 5295, 3735}, "Paramétres des fichiers", 12, "g"),
      L(FMain, OptManuel, "option", {360, 480, 2175, 375}, "Mise à jour Manuelle", 9),
      L(FMain, OptAuto, "option", {2760, 480, 2295, 375}, "Mise à jour Automatique", 9),
      L(FMain, lblappli, Legende, {360, 1080, 2055, 375}, "Applications", 11.25, "c"),
      L(FMain, CchosseAppli, "liste", {360, 1440, 2055, 360}, "", 9),
      L(FMain, lblnoyau, Legende, {2760, 1080, 1935, 375}, "Noyaux", 11.25, "c"),
      L(FMain, CchooseNoyau, "liste", {2760, 1440, 2055, 360}, "", 9),
      L(FMain, lbltype, Legende, {360, 2040, 615, 255}, "Type :", 9.75, "s"),
      L(FMain, lbltpe, Legende, {1080, 2040, 1215, 255}, "-------", 9.75, "cb"),
      L(FMain, lblversion1, Legende, {360, 2520, 735, 255}, "Version :", 9.75, "s"),
      L(FMain, lblvers1, Legende, {1080, 2520, 1215, 255}, "--.--", 9.75, "cb"),
      L(FMain, lblversion2, Legende, {2760, 2520, 735, 255}, "Version :", 9.75, "s"),
      L(FMain, lblvers2, Legende, {3480, 2520, 1335, 255}, "--.--", 9.75, "cb"),
      L(FMain, Line1, "trait", {240, 960, 5040 - 240, 0}, "", 9, "B"),
      L(FMain, Line2, "trait", {240, 960, 0, 3480 - 960}, "", 9, "B"),
      L(FMain, Line4, "trait", {5040, 960, 0, 3480 - 960}, "", 9, "B"),
      L(FMain, Line5, "trait", {2520, 960, 0, 3480 - 960}, "", 9, "B"),
      L(FMain, Line3, "trait", {360, 3480, 5160 - 360, 0}, "", 9, "B"),
      L(FMain, FChoose, "cadre", {5709, 120, 5292, 1695}, "Choix des opérations", 12, "g"),
      L(FMain, CmdMaj, "bouton", {360, 600, 2895, 732}, "Mise à jour", 7.5, "", Dessin::Mise_A_Jour),
      L(FMain, CmdQuitter, "bouton", {3840, 600, 1095, 735}, "Quitter", 8.25, "", Dessin::Quitter),
      L(FMain, FmDetails, "cadre", {5709, 2085, 5292, 3735}, "Détails des opérations", 12, "g"),
      L(FMain, TxtDetails, "pane", {120, 480, 5052, 3015}, "", 10.5, "BG"),
      L(FMain, LblConnection, Legende, {240, 720, 852, 252}, "Connexion : ", 9),
      L(FMain, ImgRed, Ampoule, {1080, 600, 480, 480}, "", 0, "", Dessin::Voyant_Rouge),
      L(FMain, ImgYellow, Ampoule, {1080, 600, 480, 480}, "", 0, "", Dessin::Voyant_Jaune),
      L(FMain, ImgGreen, Ampoule, {1080, 600, 480, 480}, "", 0, "", Dessin::Voyant_Vert),
      L(FMain, Label1, Legende, {4080, 720, 372, 252}, "Test : ", 9),
      L(FMain, ImgRed2, Ampoule, {4560, 600, 480, 480}, "", 0, "", Dessin::Voyant_Rouge),
      L(FMain, ImgYellow2, Ampoule, {4560, 600, 480, 480}, "", 0, "", Dessin::Voyant_Jaune),
      L(FMain, ImgGreen2, Ampoule, {4560, 600, 480, 480}, "", 0, "", Dessin::Voyant_Vert),
      L(FMain, LblVitesse, Legende, {1200, 1320, 732, 252}, "Vitesse : ", 9, "g"),
      L(FMain, LblVit, Legende, {3000, 1320, 1332, 252}, "", 9, "gcB"),
      L(FMain, LblParité, Legende, {1200, 1680, 732, 252}, "Parité : ", 9, "g"),
      L(FMain, LblPart, Legende, {3000, 1680, 1332, 252}, "", 9, "gcB"),
      L(FMain, LblBitDonnées, Legende, {1200, 2040, 1452, 252}, "Bit de données : ", 9, "g"),
      L(FMain, LblBitDon, Legende, {3000, 2040, 1332, 252}, "", 9, "gcB"),
      L(FMain, Label5, Legende, {1200, 2400, 1092, 252}, "Bit de stop : ", 9, "g"),
      L(FMain, LblBitStop, Legende, {3000, 2400, 1332, 252}, "", 9, "gcB"),

      L(FDossierING, DirDirectory, "repertoires", {360, 1470, 2895, 2565}),
      L(FDossierING, DriveLecteur, "lecteurs", {360, 990, 2895, 315}),
      L(FDossierING, CmdOK, "bouton", {360, 4245, 975, 735}, "OK"),
      L(FDossierING, CmdAnnul, "bouton", {2280, 4245, 975, 735}, "Annuler"),
      L(FDossierING, Label1, Legende, {360, 165, 2895, 735}, "Séléctionnez le répertoire des fichiers à télécharger",
        12, "gcG"),

      L(FrmAnimCharg, LblTitre, Legende, {960, 120, 4092, 372}, "Chargement en cours...", 16.5, "g"),
      L(FrmAnimCharg, LblBlock, Legende, {240, 720, 612, 252}, "Bloc : ", 10.5, "g"),
      L(FrmAnimCharg, LblNumBlock, Legende, {960, 720, 492, 252}, "", 10.5),
      L(FrmAnimCharg, LblNumTaille, Legende, {1800, 720, 3372, 252}, "", 10.5),
      L(FrmAnimCharg, PgbExe, "barre", {240, 1200, 5052, 372}),
      L(FrmAnimCharg, LblCom, Legende, {240, 1200, 4932, 252}, "", 12, "g"),
      L(FrmAnimCharg, Image1, "image", {240, 120, 480, 480}, "", 0, "", Dessin::Chargement),

      L(FrmResultParam, Image1, "image", {480, 240, 480, 480}, "", 0, "", Dessin::Lecteur),
      L(FrmResultParam, LblTitre, Legende, {1200, 300, 9600, 420}, "CONFIGURATION DU LECTEUR ELITE 650", 14.25, "gc"),
      L(FrmResultParam, Label1, Legende, {480, 1080, 2100, 300}, "Constructeur :", 10.5, "g"),
      L(FrmResultParam, LblConst, Legende, {2640, 1080, 3100, 300}, "", 10.5, "B"),
      L(FrmResultParam, Label2, Legende, {480, 1680, 2100, 300}, "Type de lecteur :", 10.5, "g"),
      L(FrmResultParam, LblTypeLec, Legende, {2640, 1680, 3100, 300}, "", 10.5, "B"),
      L(FrmResultParam, Label3, Legende, {480, 2280, 2100, 300}, "N° de Série :", 10.5, "g"),
      L(FrmResultParam, LblNumSerie, Legende, {2640, 2280, 3100, 300}, "", 10.5, "B"),
      L(FrmResultParam, Label4, Legende, {480, 2880, 2100, 300}, "Type d'OS :", 10.5, "g"),
      L(FrmResultParam, LblTypeOS, Legende, {2640, 2880, 3100, 300}, "", 10.5, "B"),
      L(FrmResultParam, Label5, Legende, {480, 3480, 2100, 300}, "Nom de l'application :", 10.5, "g"),
      L(FrmResultParam, LblNameAppli, Legende, {2640, 3480, 3100, 300}, "", 10.5, "B"),
      L(FrmResultParam, Label6, Legende, {5880, 1080, 2100, 300}, "N° de Version :", 10.5, "g"),
      L(FrmResultParam, LblNumVersion, Legende, {8040, 1080, 3100, 300}, "", 10.5, "B"),
      L(FrmResultParam, Label7, Legende, {5880, 1680, 2100, 300}, "Date :", 10.5, "g"),
      L(FrmResultParam, LblDate, Legende, {8040, 1680, 3100, 300}, "", 10.5, "B"),
      L(FrmResultParam, Label8, Legende, {5880, 2280, 2100, 300}, "Heure :", 10.5, "g"),
      L(FrmResultParam, LblHeure, Legende, {8040, 2280, 3100, 300}, "", 10.5, "B"),
      L(FrmResultParam, Label9, Legende, {5880, 2880, 2100, 300}, "N° de CRC :", 10.5, "g"),
      L(FrmResultParam, LblCRC, Legende, {8040, 2880, 3100, 300}, "", 10.5, "B"),
      L(FrmResultParam, CmdOK, "bouton", {4965, 4140, 1350, 600}, "OK"),

      L(frmAbout, picIcon, "image", {240, 240, 720, 720}, "", 0, "", Dessin::Programme),
      L(frmAbout, lblTitle, Legende, {1200, 240, 4560, 420}, "PAVORIN INGENICO ELITE 650", 14.25, "g"),
      L(frmAbout, lblVersion, Legende, {1200, 720, 4560, 300}, "Version 2.2", 10.5),
      L(frmAbout, Label1, Legende, {1200, 1200, 4560, 300}, "Station : ELITE 650", 10.5),
      L(frmAbout, Label2, Legende, {1200, 1560, 4560, 300}, "Noyau :  Mono Application", 10.5),
      L(frmAbout, lblDescription, Legende, {1200, 1920, 4560, 300}, "Constructeur : INGENICO", 10.5),
      L(frmAbout, Image1, "image", {240, 2640, 1500, 435}, "", 0, "", Dessin::Bandeau),
      L(frmAbout, Image2, "image", {360, 1440, 480, 480}, "", 0, "", Dessin::Lecteur),
      L(frmAbout, CmdOK, "bouton", {4440, 2640, 1320, 600}, "OK"),
  };
#undef L
}
// clang-format on
