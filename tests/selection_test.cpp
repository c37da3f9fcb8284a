// Start-up, catalogue, selection panel, directory field, dialog and settings, through the windows.

#include <gtest/gtest.h>

#include "simulator/Lecture_Texte.h"
#include "tests/Machine_De_Test.h"

namespace {

const std::string Aucune = "Pas de mise à jour";
const std::string Message_Manuel =
    "Télécharger | \tSélectionnez les fichiers que vous désirez mettre à "
    "jour.\r\n\t\t\tATTENTION\r\n"
    "Les fichiers sélectionnés seront chargés même s'ils sont présents dans le lecteur !!!";

/// Release type, application version, kernel version, and whether "Mise à jour" may be pressed.
std::string Etat_De(Poste_De_Test& P) {
  const Fenetre_Principale& F = P.App.F.FMain;
  return F.lbltpe.Texte() + " " + F.lblvers1.Texte() + " " + F.lblvers2.Texte() + (F.CmdMaj.Active() ? " oui" : " non");
}

struct Selection_Test : testing::Test, Poste_De_Test {
  Fenetre_Principale& FMain = App.F.FMain;
  using Noms = std::vector<std::string>;

  void Demarrer_Sur(const Noms& Fichiers, std::string Repertoire = "C:\\Logiciels\\") {
    for (const auto& Nom : Fichiers) Disque.Poser("C:\\Logiciels\\" + Nom);
    Profil.Repertoire() = Octets(Repertoire.begin(), Repertoire.end());
    Demarrer();
  }
  std::string Etat() { return Etat_De(*this); }
};

// The window is up before the directory is searched.
const std::string Ouverture = R"(FMain montrée; ImgRed caché; ImgYellow caché; ImgGreen caché; ImgRed2 caché;
  ImgYellow2 caché; ImgGreen2 caché; CmdMaj inactif; CchooseNoyau inactif; CchosseAppli inactif; sablier; )";
std::string Scan(const std::string& Repertoire) {
  return "cherche " + Repertoire + "\\E*.ing; cherche " + Repertoire + "\\Fexa*.ing; ";
}
const std::string Encore = "CchosseAppli = ; CchooseNoyau = ; ";  // the second scan of the start-up

TEST_F(Selection_Test, Demarrage_Sans_Reglages_Ni_Fichier) {
  Demarrer();
  EXPECT_EQ(Faits(), Recit(Ouverture + R"(TxtChooseDirectory = C:\Pavorin\; )" + Scan("C:\\Pavorin") +
                           "OptManuel inactif; OptAuto inactif; " + Scan("C:\\Pavorin") + "flèche; "));
  EXPECT_EQ(FMain.CchosseAppli.Texte(), "") << "one entry, none selected, after the second scan";
  EXPECT_EQ(FMain.CchosseAppli.Entrees(), Noms{Aucune});
  EXPECT_EQ(FMain.CchosseAppli.Indice(), -1);
}

TEST_F(Selection_Test, Demarrage_Puis_D_Autres_Repertoires) {
  Disque.Poser("D:\\Fexa.ing");
  Demarrer_Sur({"E0127.ing", "eT0401.ING", "Fexa1000.ing"}, " C:\\Logiciels");  // a quoted value keeps its blank
  const std::string Selection = "CmdMaj actif; CchooseNoyau actif; CchosseAppli actif; ";
  EXPECT_EQ(Faits(), Recit(Ouverture + R"(TxtChooseDirectory =  C:\Logiciels; TxtChooseDirectory + \;
    cherche C:\Logiciels\E*.ing; lbltypedirectory = Fichier présent; lbltypedirectory encre 0 0 255; )" +
                           Selection +
                           R"(cherche C:\Logiciels\E*.ing; CchosseAppli = eT0401.ING; lblvers1 = 04.01;
    lbltpe = Version Test; cherche C:\Logiciels\Fexa*.ing; CchooseNoyau = Fexa1000.ing; lblvers2 = 10.00;
    CchooseNoyau inactif; CchosseAppli inactif; CchosseAppli = ; CchooseNoyau = ; cherche C:\Logiciels\E*.ing;
    CchosseAppli = eT0401.ING; cherche C:\Logiciels\Fexa*.ing; CchooseNoyau = Fexa1000.ing; flèche; )"));
  FMain.ImgRed.Visible(true);  // as a serial test left it
  FMain.OptManuel.Choisir();
  FMain.CchosseAppli.Choisir_A_La_Main(0);
  FMain.CchooseNoyau.Choisir_A_La_Main(0);
  Faits();
  FMain.TxtChooseDirectory.Texte("C:\\Vide");
  EXPECT_EQ(Faits(), Recit(R"(TxtChooseDirectory = C:\Vide; sablier; TxtChooseDirectory + \; )" + Scan("C:\\Vide") +
                           R"(lbltypedirectory = Fichier non présent; lbltypedirectory encre 255 0 0; OptManuel inactif;
    OptAuto inactif; CmdMaj inactif; CchooseNoyau inactif; CchosseAppli inactif; CchosseAppli = ; CchooseNoyau = ;
    lbltpe = -------; lblvers1 = --.--; lblvers2 = --.--; flèche; )"));
  EXPECT_EQ(FMain.CchosseAppli.Indice(), -1);
  EXPECT_TRUE(FMain.CchosseAppli.Entrees().empty() && FMain.CchooseNoyau.Entrees().empty());
  FMain.TxtChooseDirectory.Texte("C:\\Vide\\");
  EXPECT_EQ(Faits(), "") << "no change";
  FMain.TxtChooseDirectory.Texte("D:\\");
  EXPECT_EQ(Faits(), Recit(R"(TxtChooseDirectory = D:\; sablier; cherche D:\E*.ing; cherche D:\Fexa*.ing;
    lbltypedirectory = Fichier présent; lbltypedirectory encre 0 0 255; OptManuel actif; OptAuto actif; )" +
                           Selection +
                           R"(cherche D:\E*.ing; cherche D:\Fexa*.ing; CchooseNoyau = Fexa.ing; lblvers2 = Fe.00;
    CchosseAppli = Pas de mise à jour; flèche; )"))
      << "still in manual mode";
  EXPECT_EQ(App.Globales.Version_Appli + App.Globales.Version_Noyau, "0401Fe") << "they keep their last value";
}

// The newest first, then the others as they were found.
TEST(Catalogue, Listes_Et_Versions) {
  const std::tuple<std::string, std::string, std::string, std::string> Cas[] = {
      {"E0127.ing eT0401.ING ER0302.ing ES0401.ing lisezmoi.txt Exxx.ingx E.ing Eing Fexa0300.ing FEXA1000.ing "
       "FexaA100.ing fexa0900.ing",
       "Version Test 04.01 10.00 oui", "eT0401.ING E0127.ing ER0302.ing ES0401.ing E.ing ",
       "FEXA1000.ing Fexa0300.ing FexaA100.ing fexa0900.ing "},
      {"Fexa0300.ing", "------- --.-- 03.00 oui", "", "Fexa0300.ing "},
      {"E0302.ing", "Version Réelle 03.02 --.-- oui", "E0302.ing ", ""},
      {"Et0302.ing", "Version Test 03.02 --.-- oui", "Et0302.ing ", ""},
      {"E_T_0302.ing", "Version Réelle 03.02 --.-- oui", "E_T_0302.ing ", ""},
      {"EétéT03é2.ing", "Version Test 03.é2 --.-- oui", "EétéT03é2.ing ", ""},
      {"E.1.T1234.ing", "Version Test 12.34 --.-- oui", "E.1.T1234.ing ", ""},
      {"E1.ing", "Version Réelle E1. --.-- oui", "E1.ing ", ""}};
  const auto Tout = [](const Liste_Deroulante& Liste) {
    std::string Noms;
    for (const auto& Un : Liste.Entrees()) Noms += Un + " ";
    return Noms;
  };
  for (const auto& [Fichiers, Etat, Applis, Noyaux] : Cas) {
    Poste_De_Test P;
    for (const auto Nom : Decouper(Fichiers, ' ')) P.Disque.Poser("C:\\Pavorin\\" + std::string(Nom));
    P.Demarrer();
    EXPECT_EQ(Etat_De(P), Etat);
    EXPECT_EQ(Tout(P.App.F.FMain.CchosseAppli), Applis + Aucune + " ");
    EXPECT_EQ(Tout(P.App.F.FMain.CchooseNoyau), Noyaux + Aucune + " ");
  }
}

// Beyond 26 the oldest goes, of equals the last found.
TEST_F(Selection_Test, Vingt_Six_Fichiers_Au_Plus_Sans_Perdre_Le_Plus_Recent) {
  Noms Fichiers = {"EA0100.ing", "EB0100.ing"}, Gardes = {"E0300.ing", "EA0100.ing"};
  for (int I = 1000; I < 1024; ++I) Fichiers.push_back("E0" + std::to_string(I).substr(1) + "0200.ing");
  Gardes.insert(Gardes.end(), Fichiers.begin() + 2, Fichiers.end());
  Fichiers.insert(Fichiers.end(), {"E0300.ing", "EC0100.ing", "E0050.ing"});
  Gardes.push_back(Aucune);
  Demarrer_Sur(Fichiers);
  EXPECT_EQ(FMain.CchosseAppli.Entrees(), Gardes);
}

TEST_F(Selection_Test, Un_Genre_Sans_Fichier) {
  Disque.Poser("D:\\E0302.ing");
  Demarrer_Sur({"Fexa0300.ing"});
  FMain.TxtChooseDirectory.Texte("D:");
  EXPECT_EQ(FMain.CchooseNoyau.Texte(), Aucune);
  FMain.TxtChooseDirectory.Texte("C:\\Logiciels");
  EXPECT_EQ(FMain.CchosseAppli.Texte(), Aucune);
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
  EXPECT_EQ(FMain.CchooseNoyau.Indice(), 0);
  FMain.CchooseNoyau.Choisir_A_La_Main(1);
  EXPECT_EQ(Etat(), "------- --.-- --.-- non");
  FMain.CchooseNoyau.Taper();
  EXPECT_EQ(FMain.CchooseNoyau.Texte(), "Fexa0300.ing");

  FMain.OptAuto.Choisir();
  EXPECT_EQ(Etat(), "Version Test 03.02 03.00 oui");
  EXPECT_FALSE(FMain.CchosseAppli.Active());
  FMain.CchosseAppli.Choisir_A_La_Main(1);
  EXPECT_EQ(FMain.CchosseAppli.Texte(), "ET0302.ing") << "a disabled list cannot be moved";
}

TEST_F(Selection_Test, Reglages) {
  const std::string Long = "C:\\" + std::string(240, 'x');
  const std::pair<std::string, std::string> Cas[] = {{"", "C:\\Pavorin\\"},
                                                     {"   ", "C:\\Pavorin\\"},
                                                     {"D:\\ing  ", "D:\\ing\\"},
                                                     {"\\\\serveur\\ing", "\\\\serveur\\ing\\"},
                                                     {"C:\\\xE9t\xE9", "C:\\été\\"},
                                                     {Long, Long.substr(0, 199) + "\\"},
                                                     {std::string("D:\\ing\0  ", 9), "D:\\ing\\"}};
  EXPECT_EQ(Lecture::Nettoyer(std::string(" D:\\ing \0 ", 10)), "D:\\ing ");
  for (const auto& [Valeur, Champ] : Cas) {
    Poste_De_Test Poste;
    Poste.Profil.Repertoire() = Octets(Valeur.begin(), Valeur.end());
    Poste.Demarrer();
    EXPECT_EQ(Poste.App.F.FMain.TxtChooseDirectory.Texte(), Champ);
  }
}

TEST_F(Selection_Test, Dialogue_De_Repertoire) {
  Demarrer_Sur({}, "");
  Disque.Poser("C:\\Pavorin\\Logiciels\\E0302.ing");
  Fenetre_Dossier& Dossier = App.F.FDossierING;
  EXPECT_EQ(Dossier.DriveLecteur.Indice(), -1);
  Faits();
  FMain.CmdChooseDirectory.Cliquer();
  EXPECT_EQ(Faits(), Recit("CmdOK inactif; sablier; flèche; FDossierING montrée; "));
  EXPECT_EQ(Dossier.DriveLecteur.Lecteur(), "C:\\");
  EXPECT_EQ(Lecture_Controle(Dossier.DirDirectory).De(Propriete::Contenu), "C:\\|.Pavorin|..Logiciels|..Vide|");
  EXPECT_EQ(Dossier.DirDirectory.Indice(), 1);
  Dossier.DirDirectory.Ouvrir_A_La_Main(1);
  FMain.CmdChooseDirectory.Cliquer();
  EXPECT_EQ(Faits(), Recit("FDossierING montrée; "))
      << "the directory that is shown is no change; nor is a second opening";
  Dossier.DirDirectory.Ouvrir_A_La_Main(2);
  EXPECT_EQ(Faits(), Recit(R"(sablier; cherche C:\Pavorin\Logiciels\E*.ing; CmdOK actif; flèche; )"));
  EXPECT_EQ(App.Globales.Chemin_Dossier, "C:\\Pavorin\\Logiciels");
  Dossier.DriveLecteur.Choisir_A_La_Main(1);
  EXPECT_EQ(Faits(), Recit(R"(sablier; cherche D:\E*.ing; cherche D:\Fexa*.ing; CmdOK inactif; flèche; )"));
  EXPECT_EQ(Dossier.DirDirectory.Repertoire(), "D:\\");
  Dossier.DriveLecteur.Choisir_A_La_Main(0);
  Dossier.DirDirectory.Ouvrir_A_La_Main(0);
  EXPECT_EQ(Dossier.DirDirectory.Repertoire(), "C:\\") << "from the drive's own directory, C:\\Pavorin, to its root";
  Faits();
  Dossier.CmdAnnul.Cliquer();
  EXPECT_EQ(Faits(), Recit("FDossierING fermée; "));

  FMain.CmdChooseDirectory.Cliquer();
  EXPECT_EQ(Faits(), Recit("CmdOK inactif; sablier; flèche; FDossierING montrée; "));
  EXPECT_EQ(App.Globales.Chemin_Dossier, "C:\\") << "it outlives the dialog";
  Dossier.DirDirectory.Ouvrir_A_La_Main(2);
  Dossier.CmdOK.Cliquer();
  EXPECT_FALSE(Dossier.Ouverte());
  EXPECT_EQ(FMain.TxtChooseDirectory.Texte(), "C:\\Pavorin\\Logiciels\\");
  EXPECT_EQ(FMain.CchosseAppli.Texte(), "E0302.ing");
}

TEST_F(Selection_Test, Commandes_De_La_Fenetre) {
  Demarrer();
  auto& Apropos = App.F.frmAbout;
  Faits();
  FMain.MnQuitter.Cliquer();
  Apropos.Image1.Cliquer();  // not open yet: nothing
  FMain.MnApropos.Cliquer();
  Apropos.Image1.Cliquer();
  Apropos.picIcon.Cliquer();
  FMain.Active(false);
  Apropos.CmdOK.Cliquer();
  EXPECT_EQ(Faits(), Recit(R"(frmAbout montrée; [Information | Programme réalisé par l'équipe Pavorin.];
    [Information | Avec la participation de la société INGENICO, constructeur du lecteur ELITE 650.]; FMain inactive;
    FMain active; frmAbout fermée; )"));
  FMain.MnApropos.Cliquer();
  EXPECT_THROW(FMain.CmdQuitter.Cliquer(), Programme_Arrete);
  FMain.CmdChooseDirectory.Cliquer();
  FMain.Fermer_Par_Cadre();
  App.F.FDossierING.CmdAnnul.Cliquer();
  EXPECT_FALSE(FMain.Ouverte()) << "the About box keeps the program running";
  EXPECT_THROW(Apropos.CmdOK.Cliquer(), Programme_Arrete);
}

// Each opening starts afresh: what it shows beside itself is what its loading does.
TEST_F(Selection_Test, Une_Fenetre_Rouverte_Est_Comme_Neuve) {
  Demarrer_Sur({"E0302.ing", "Fexa0300.ing"});
  FMain.CmdChooseDirectory.Cliquer();
  App.F.FrmAnimCharg.Montrer();
  App.F.FrmAnimCharg.Poser_Progression(50, "");
  App.F.FrmAnimCharg.Montrer_Echec();
  App.F.FrmAnimCharg.Fermer();
  FMain.OptManuel.Choisir();
  FMain.OptManuel.Active(false);
  FMain.Souris(Pointeur::Sablier);
  FMain.Active(false);
  FMain.Decharger();
  Faits();
  FMain.Montrer();
  App.F.FrmAnimCharg.Montrer();
  EXPECT_EQ(Faits(),
            Recit("FMain montrée; FMain inactive; LblTitre = Chargement en cours ...; FrmAnimCharg montrée; "));
  EXPECT_FALSE(FMain.Active()) << "disabled, besides being covered";
  EXPECT_EQ(FMain.CchosseAppli.Indice(), -1);
  EXPECT_TRUE(FMain.CchosseAppli.Entrees().empty());
  auto& Arbre = App.F.FDossierING.DirDirectory;
  auto& Liste = App.F.FDossierING.DriveLecteur;
  Arbre.Active(false);
  Liste.Active(false);
  App.F.FDossierING.Decharger();
  EXPECT_TRUE(Arbre.Active() && Arbre.Lignes().empty() && Arbre.Repertoire().empty() && Arbre.Indice() == -1);
  EXPECT_TRUE(Liste.Active() && Liste.Entrees().empty() && Liste.Indice() == -1);
}

}  // namespace
