// Start-up, catalogue, selection panel, directory field, dialog and settings, through the windows.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"

namespace {

const std::string Aucune = "Pas de mise à jour";
const std::string Message_Manuel =
    "Télécharger | \tSélectionnez les fichiers que vous désirez mettre à "
    "jour.\r\n\t\t\tATTENTION\r\n"
    "Les fichiers sélectionnés seront chargés même s'ils sont présents dans le lecteur !!!";

struct Selection_Test : testing::Test, Poste_De_Test {
  Fenetre_Principale& FMain = App.F.FMain;
  using Noms = std::vector<std::string>;

  void Demarrer_Sur(const Noms& Fichiers, std::string Repertoire = "C:\\Logiciels\\") {
    for (const auto& Nom : Fichiers) Disque.Poser("C:\\Logiciels\\" + Nom);
    Profil.Repertoire() = Octets(Repertoire.begin(), Repertoire.end());
    Demarrer();
  }
  /// Release type, application version, kernel version, and whether "Mise à jour" may be pressed.
  std::string Etat() const {
    return FMain.lbltpe.Texte() + " " + FMain.lblvers1.Texte() + " " + FMain.lblvers2.Texte() +
           (FMain.CmdMaj.Active() ? " oui" : " non");
  }
};

TEST_F(Selection_Test, Demarrage_Sans_Reglages_Ni_Fichier) {
  Demarrer();
  EXPECT_EQ(FMain.TxtChooseDirectory.Texte(), "C:\\Pavorin\\");
  EXPECT_EQ(FMain.lbltypedirectory.Texte(), "Fichier non présent");
  EXPECT_EQ(FMain.lbltypedirectory.Encre(), Couleurs::Rouge);
  EXPECT_EQ(Etat(), "------- --.-- --.-- non");
  EXPECT_FALSE(FMain.OptAuto.Active() || FMain.OptManuel.Active() || FMain.CchooseNoyau.Active());
  EXPECT_FALSE(FMain.ImgRed.Visible() || FMain.ImgYellow2.Visible() || FMain.ImgGreen.Visible());
  EXPECT_EQ(FMain.CchosseAppli.Texte(), "") << "one entry, none selected, after the second scan";
  EXPECT_EQ(FMain.CchosseAppli.Entrees(), Noms{Aucune});
}

TEST_F(Selection_Test, Le_Plus_Recent_D_Abord_Puis_L_Ordre_Trouve) {
  Demarrer_Sur({"E0127.ing", "eT0401.ING", "ER0302.ing", "ES0401.ing", "lisezmoi.txt", "Exxx.ingx", "Fexa0300.ing",
                "FEXA1000.ing", "FexaA100.ing", "fexa0900.ing"},
               "C:\\Logiciels");
  EXPECT_EQ(FMain.TxtChooseDirectory.Texte(), "C:\\Logiciels\\");
  EXPECT_EQ(FMain.CchosseAppli.Entrees(), (Noms{"eT0401.ING", "E0127.ing", "ER0302.ing", "ES0401.ing", Aucune}));
  EXPECT_EQ(FMain.CchooseNoyau.Entrees(),
            (Noms{"FEXA1000.ing", "Fexa0300.ing", "FexaA100.ing", "fexa0900.ing", Aucune}));
  EXPECT_EQ(App.Globales.Catalogue.Liste_Noyaux[0], "Fexa0300.ing") << "the catalogue keeps the found order";
  EXPECT_EQ(FMain.lbltypedirectory.Texte(), "Fichier présent");
  EXPECT_EQ(FMain.lbltypedirectory.Encre(), Couleurs::Bleu);
  EXPECT_EQ(Etat(), "Version Test 04.01 10.00 oui");
  EXPECT_EQ(App.Globales.Version_Appli + App.Globales.Version_Noyau, "040110");
  EXPECT_FALSE(FMain.CchooseNoyau.Active()) << "automatic mode";
}

TEST_F(Selection_Test, Marque_De_Version_Test) {
  const std::tuple<const char*, const char*, const char*> Cas[] = {
      {"E0302.ing", "Version Réelle", "03.02"},   {"Et0302.ing", "Version Test", "03.02"},
      {"ET0302.ing", "Version Test", "03.02"},    {"E_T_0302.ing", "Version Réelle", "03.02"},
      {"EétéT03é2.ing", "Version Test", "03.é2"}, {"E.1.T1234.ing", "Version Test", "12.34"},
      {"E1.ing", "Version Réelle", "E1."}};
  for (const auto& [Nom, Type, Version] : Cas) {
    Poste_De_Test Poste;
    Poste.Disque.Poser(std::string("C:\\Pavorin\\") + Nom);
    Poste.Demarrer();
    EXPECT_EQ(Poste.App.F.FMain.lbltpe.Texte(), Type) << Nom;
    EXPECT_EQ(Poste.App.F.FMain.lblvers1.Texte(), Version) << Nom;
  }
}

TEST_F(Selection_Test, Vingt_Six_Fichiers_Au_Plus_Sans_Perdre_Le_Plus_Recent) {
  Noms Fichiers;
  for (int I = 0; I < 40; ++I) Fichiers.push_back("E" + std::to_string(1000 + (I * 17) % 40) + ".ing");
  Fichiers.push_back("EX1039.ing");
  Demarrer_Sur(Fichiers);
  EXPECT_EQ(App.Globales.Catalogue.Liste_Applis.size(), 26U);
  EXPECT_EQ(FMain.CchosseAppli.Entrees().size(), 27U);
  EXPECT_EQ(FMain.CchosseAppli.Entrees().front(), "E1039.ing");
  EXPECT_EQ(FMain.CchosseAppli.Entrees()[25], "EX1039.ing");
  EXPECT_EQ(std::count(Fichiers.begin(), Fichiers.end(), FMain.CchosseAppli.Entrees()[1]), 1);
}

TEST_F(Selection_Test, Un_Genre_Sans_Fichier) {
  Demarrer_Sur({"Fexa0300.ing"});
  EXPECT_EQ(Etat(), "------- --.-- 03.00 oui");
  FMain.OptManuel.Choisir();
  FMain.OptAuto.Choisir();
  EXPECT_EQ(FMain.CchosseAppli.Texte(), Aucune);
  EXPECT_EQ(Etat(), "------- --.-- 03.00 oui");
}

TEST_F(Selection_Test, Mode_Manuel) {
  Demarrer_Sur({"E0127.ing", "ET0302.ing", "Fexa0300.ing"});
  Ecran.A_La_Boite = [this] {
    EXPECT_EQ(FMain.CchosseAppli.Texte(), "ET0302.ing") << "first entries while the box is up";
    EXPECT_TRUE(FMain.CchosseAppli.Active());
  };
  FMain.OptManuel.Choisir();
  EXPECT_EQ(Ecran.Boites, Noms{Message_Manuel});
  EXPECT_EQ(Etat(), "------- --.-- --.-- non");
  EXPECT_EQ(App.Globales.Version_Appli + App.Globales.Version_Noyau, "030203") << "they keep their last value";
  FMain.OptManuel.Choisir();
  EXPECT_EQ(Ecran.Boites.size(), 1U) << "the mode already set does nothing";

  FMain.CchosseAppli.Choisir_A_La_Main(1);
  EXPECT_EQ(Etat(), "Version Réelle 01.27 --.-- oui");
  FMain.CchosseAppli.Taper();
  EXPECT_EQ(FMain.CchosseAppli.Texte(), "ET0302.ing");
  FMain.CchosseAppli.Choisir_A_La_Main(2);
  EXPECT_EQ(Etat(), "------- --.-- --.-- non");
  FMain.CchooseNoyau.Choisir_A_La_Main(0);
  EXPECT_EQ(Etat(), "------- --.-- 03.00 oui");

  FMain.OptAuto.Choisir();
  EXPECT_EQ(Etat(), "Version Test 03.02 03.00 oui");
  EXPECT_FALSE(FMain.CchosseAppli.Active());
  FMain.CchosseAppli.Choisir_A_La_Main(1);
  EXPECT_EQ(FMain.CchosseAppli.Texte(), "ET0302.ing") << "a disabled list cannot be moved";
}

TEST_F(Selection_Test, Changement_De_Repertoire) {
  Disque.Poser("D:\\E0500.ing");
  Demarrer_Sur({"E0302.ing", "Fexa0300.ing"});
  FMain.OptManuel.Choisir();
  FMain.TxtChooseDirectory.Texte("D:");
  EXPECT_EQ(FMain.TxtChooseDirectory.Texte(), "D:\\");
  EXPECT_EQ(FMain.CchosseAppli.Entrees(), (Noms{"E0500.ing", Aucune})) << "nothing of the earlier directory";
  EXPECT_EQ(FMain.CchosseAppli.Texte(), "E0500.ing") << "manual mode comes up on the newest";
  EXPECT_EQ(FMain.CchooseNoyau.Texte(), Aucune);
  EXPECT_EQ(Etat(), "Version Réelle 05.00 --.-- oui");
  EXPECT_EQ(App.Globales.Version_Noyau, "03");
  FMain.TxtChooseDirectory.Texte("Z:\\absent");
  EXPECT_EQ(Etat(), "------- --.-- --.-- non");
  EXPECT_TRUE(FMain.CchosseAppli.Entrees().empty() && FMain.CchooseNoyau.Entrees().empty());
  FMain.CchosseAppli.Taper();
  EXPECT_EQ(FMain.CchosseAppli.Texte(), "");
}

TEST_F(Selection_Test, Reglages) {
  const std::string Long = "C:\\" + std::string(240, 'x');
  const std::pair<std::string, std::string> Cas[] = {
      {"", "C:\\Pavorin\\"},          {"   ", "C:\\Pavorin\\"},
      {"D:\\ing  ", "D:\\ing\\"},     {"\\\\serveur\\ing", "\\\\serveur\\ing\\"},
      {"C:\\\xE9t\xE9", "C:\\été\\"}, {Long, Long.substr(0, 199) + "\\"}};
  for (const auto& [Valeur, Champ] : Cas) {
    Poste_De_Test Poste;
    Poste.Profil.Repertoire() = Octets(Valeur.begin(), Valeur.end());
    Poste.Demarrer();
    EXPECT_EQ(Poste.App.F.FMain.TxtChooseDirectory.Texte(), Champ);
  }
}

TEST_F(Selection_Test, Blanc_Devant_Le_Repertoire) {
  Demarrer_Sur({"E0302.ing", "Fexa0300.ing"}, " C:\\Logiciels");  // a quoted value keeps it
  EXPECT_EQ(FMain.TxtChooseDirectory.Texte(), " C:\\Logiciels\\");
  EXPECT_EQ(FMain.CchosseAppli.Entrees(), (Noms{"E0302.ing", Aucune}));
  EXPECT_EQ(FMain.CchooseNoyau.Texte(), "Fexa0300.ing");
}

TEST_F(Selection_Test, Dialogue_De_Repertoire) {
  Demarrer_Sur({}, "");
  Disque.Poser("C:\\Pavorin\\Logiciels\\E0302.ing");
  Fenetre_Dossier& Dossier = App.F.FDossierING;
  FMain.CmdChooseDirectory.Cliquer();
  EXPECT_TRUE(Dossier.Ouverte());
  EXPECT_EQ(Dossier.DirDirectory.Repertoire(), "C:\\Pavorin");
  EXPECT_EQ(Dossier.DirDirectory.Lignes().size(), 4U);
  EXPECT_FALSE(Dossier.CmdOK.Active());
  Dossier.DirDirectory.Ouvrir_A_La_Main(2);
  EXPECT_EQ(App.Globales.Chemin_Dossier, "C:\\Pavorin\\Logiciels");
  EXPECT_TRUE(Dossier.CmdOK.Active());
  Dossier.DriveLecteur.Choisir_A_La_Main(1);
  EXPECT_EQ(Dossier.DirDirectory.Repertoire(), "D:\\");
  EXPECT_FALSE(Dossier.CmdOK.Active());
  Dossier.CmdAnnul.Cliquer();
  EXPECT_FALSE(Dossier.Ouverte());
  EXPECT_EQ(FMain.TxtChooseDirectory.Texte(), "C:\\Pavorin\\");

  FMain.CmdChooseDirectory.Cliquer();
  EXPECT_FALSE(Dossier.CmdOK.Active());
  EXPECT_EQ(App.Globales.Chemin_Dossier, "D:\\") << "it outlives the dialog";
  Dossier.DirDirectory.Ouvrir_A_La_Main(2);
  Dossier.CmdOK.Cliquer();
  EXPECT_FALSE(Dossier.Ouverte());
  EXPECT_EQ(FMain.TxtChooseDirectory.Texte(), "C:\\Pavorin\\Logiciels\\");
  EXPECT_EQ(FMain.CchosseAppli.Texte(), "E0302.ing");
}

TEST_F(Selection_Test, Commandes_De_La_Fenetre) {
  Demarrer();
  FMain.MnQuitter.Cliquer();
  App.F.frmAbout.Image1.Cliquer();  // not open yet: nothing
  FMain.MnApropos.Cliquer();
  EXPECT_TRUE(App.F.frmAbout.Ouverte());
  App.F.frmAbout.Image1.Cliquer();
  App.F.frmAbout.picIcon.Cliquer();
  EXPECT_EQ(Ecran.Boites.size(), 2U);
  EXPECT_THROW(FMain.CmdQuitter.Cliquer(), Programme_Arrete);
  FMain.Fermer_Par_Cadre();
  EXPECT_FALSE(FMain.Ouverte()) << "the About box keeps the program running";
  EXPECT_THROW(App.F.frmAbout.CmdOK.Cliquer(), Programme_Arrete);
}

TEST(Recherche, Se_Fait_Sous_Le_Sablier_Dans_Une_Fenetre_Deja_La) {
  Poste_De_Test P;
  auto& F = P.App.F;
  P.Disque.Poser("C:\\Pavorin\\ER0300.ing");
  int Recherches = 0;
  Fenetre* Une = &F.FMain;
  P.Pannes_.Avant = [&](std::string_view Appel, int) {
    if (Appel != "Chercher") return;
    ++Recherches;
    EXPECT_TRUE(F.FMain.Ouverte());
    EXPECT_EQ(Une->Souris(), Pointeur::Sablier);
  };
  P.Demarrer();
  F.FMain.TxtChooseDirectory.Texte("C:\\Vide");
  EXPECT_EQ(Recherches, 7) << "presence and two scans at the start, presence of no kind after";
  F.FMain.CmdChooseDirectory.Cliquer();
  Une = &F.FDossierING;
  F.FDossierING.DirDirectory.Ouvrir_A_La_Main(0);
  F.FDossierING.DriveLecteur.Choisir_A_La_Main(1);
  EXPECT_GT(Recherches, 9);
  EXPECT_TRUE(F.FMain.Souris() == Pointeur::Defaut && F.FDossierING.Souris() == Pointeur::Defaut);
}

}  // namespace
