// The serial reader test, the simulated reader at the other end of the line, and its window.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"

namespace {

const std::string Trame = "> 2F C0 4 0 14 0 C8 A4 FC; ", Lente = "port 9600,n,8,1; port ouvert; ",
                  Rapide = "port 19200,n,8,1; ";
const std::string Accord = "TxtDetails = F2E040140C859A3; ", Demande = "> 2F 40 4 1 0 0 94 A0 9B; ";
const std::string Verts = "ImgRed caché; ImgRed2 caché; ", Sans_Vert = "ImgGreen caché; ImgGreen2 caché; ";
const std::string Rouges = "ImgRed visible; ImgRed2 visible; " + Sans_Vert;
const std::string Reglages = "LblPart = n; LblBitDon = 8; LblBitStop = 1; ";
const std::string Etabli = Lente + Trame + Accord + "> 2F C0 4 0 14 0 C8 A4 FC ×2; " + Verts + "TxtDetails caché; ";
const std::string A_9600 = Etabli + "LblVit = 9600 bauds; " + Reglages + Demande;

struct Test_Lecteur_Test : testing::Test, Poste_De_Test {
  Test_Lecteur_Test() {
    Demarrer();
    Allumer();
  }
  /// Every light shown, so that each verdict tells what it puts out.
  void Allumer() {
    FMain.TxtDetails.Texte("avant");
    FMain.TxtDetails.Visible(true);
    for (Image* Un : {&FMain.ImgRed, &FMain.ImgRed2, &FMain.ImgGreen, &FMain.ImgGreen2}) Un->Visible(true);
    for (Etiquette* Une : {&FMain.LblVit, &FMain.LblPart, &FMain.LblBitDon, &FMain.LblBitStop}) Une->Texte("");
    Faits();
  }
  /// A test of the reader of that scenario, which sends a piece of its answers every 20 ms.
  std::string Tester(const std::string& Scenario = "") {
    Lecteur_Serie Branche(Scenario_De(Scenario));
    Port.Tampon_.clear();
    Port.Brancher(Branche, 0.02);
    FMain.MnLecteur.Cliquer();
    EXPECT_EQ(Branche.Fautes(), std::vector<std::string>());
    return Faits();
  }
  Fenetre_Principale& FMain = App.F.FMain;
  Fenetre_Configuration& Fiche = App.F.FrmResultParam;
};

TEST_F(Test_Lecteur_Test, Lecteur_A_9600) {
  FMain.FmDetails.Visible(false);
  Faits();
  EXPECT_EQ(Tester("type_lecteur = INGENICO  650             WXYZ; num_serie = \\x20 N° 42; nom_appli = Vitale;"
                   "date = 20051013; heure = 0905; num_crc = 1A2B"),
            Recit("FmDetails visible; TxtDetails = ; " + A_9600 +
                  R"(TxtDetails + ¶→TEST RÉUSSI; FMain inactive; LblConst = INGENICO;
    LblTypeLec = INGENICO  650; LblNumSerie = N° 42; LblTypeOS = 03; LblNameAppli = Vitale; LblNumVersion = 1.27;
    LblDate = 13 octobre 2005; LblHeure = 09:05; LblCRC = 1A2B; FrmResultParam montrée; port fermé; )"));
  EXPECT_LE(Ecran.Plus_Longue.count(), 15);
  EXPECT_FALSE(FMain.Active());
  Fiche.CmdOK.Cliquer();
  EXPECT_EQ(Faits(), Recit("FMain active; FrmResultParam fermée; FMain devant; "));
  Tester();
  Fiche.Fermer_Par_Cadre();
  EXPECT_TRUE(FMain.Active()) << "the close box does as OK";
}

TEST_F(Test_Lecteur_Test, Lecteur_A_19200) {
  const std::string Faits = Tester("vitesses = 19200");
  const std::string Debut =
      Recit("TxtDetails = ; " + Lente + Trame + "1 s; " + Rapide + Trame + Accord + Trame + Verts +
            "TxtDetails caché; [Attention | Attention vous etes en 19200 Bauds!! | exclamation]; "
            "LblVit = 19200 bauds; " +
            Reglages + Demande);
  EXPECT_EQ(Faits.substr(0, Debut.size()), Debut);
  EXPECT_TRUE(Faits.ends_with("\nFrmResultParam montrée\nport fermé\n")) << Faits;
}

TEST_F(Test_Lecteur_Test, Echecs_Et_Erreurs) {
  // The third answer decides; a stray byte is never forgotten within a wait.
  const std::string Seconde = "1 s; ";
  const auto Mois = [](const std::string& Numero) {
    return A_9600 + "TxtDetails + ¶→TEST RÉUSSI; port fermé; TxtDetails = Erreur n° : " + Numero + "¶Erreur : ; ";
  };
  const std::pair<const char*, std::string> Cas[] = {
      {"silence = tout", Lente + Trame + Seconde + Rapide + Trame + Seconde + Trame + Seconde + Sans_Vert +
                             "TxtDetails caché; LblVit = ---; LblPart = ---; LblBitDon = ---; LblBitStop = ---; port "
                             "fermé; "},
      {"bruit_avant = 00", Lente + Trame + "TxtDetails = 0F2E040140C859A3; " + Seconde},
      {"silence = config", A_9600 + "2 s; " + Rouges + "port fermé; "},
      {"longueur_config = 122", A_9600 + "2 s; " + Rouges + "port fermé; "},
      {"longueur_config = 124", A_9600 + "2 s; " + Rouges + "port fermé; "},
      {"constructeur = INGENICA", A_9600 + Rouges + "port fermé; "},
      {"constructeur = XINGENICO", A_9600 + Rouges + "port fermé; "},
      {"date = 20050013", Mois("5")},
      {"date = 20051313", Mois("5")},
      {"date = 2005AB13", Mois("13")},
  };
  for (const auto& [Scenario, Attendu] : Cas) {
    SCOPED_TRACE(Scenario);
    Allumer();
    const std::string Faits = Tester(Scenario), Debut = Recit("TxtDetails = ; " + Attendu);
    EXPECT_EQ(Attendu.ends_with(Seconde) ? Faits.substr(0, Debut.size()) : Faits, Debut);
    EXPECT_TRUE(FMain.Active() && !Fiche.Ouverte() && !Port.Ouvert());
    EXPECT_EQ(App.Globales.Reponse_Serie.empty(), FMain.LblVit.Texte() == "---");
  }
  Port.Absent = true;
  EXPECT_EQ(Tester(), Recit("TxtDetails = ; port 9600,n,8,1; TxtDetails = Erreur n° : 8002¶Erreur : ; "));
  Port.Absent = false;
  Tester();
  EXPECT_TRUE(Fiche.Ouverte()) << "once it is back";
}

TEST_F(Test_Lecteur_Test, Le_Troisieme_Essai_Decide) {
  for (const int Muet : {2, 3}) {
    Lecteur_Serie Branche(Scenario_De(""));
    Port.Brancher(Branche, 0.02);
    int Essais = 0;
    Port.Repondre = [&, Reel = Port.Repondre](Vue_Octets Trame_Recue, const std::string& Vitesse) {
      if (++Essais != Muet) Reel(Trame_Recue, Vitesse);
    };
    FMain.MnLecteur.Cliquer();
    EXPECT_EQ(Fiche.Ouverte(), Muet == 2);
    Fiche.CmdOK.Cliquer();
  }
}

TEST_F(Test_Lecteur_Test, Reponse_En_Morceaux) {
  EXPECT_TRUE(Tester("morceaux = 2")
                  .starts_with(Recit("TxtDetails = ; " + Lente + Trame + R"(TxtDetails = F2E0; TxtDetails + 40;
    TxtDetails + 140; TxtDetails + C859; TxtDetails + A3; )" +
                                     Trame + "TxtDetails = F2E0; ")));
  EXPECT_TRUE(Fiche.Ouverte());
}

// The last bytes of an answer are not left waiting.
TEST_F(Test_Lecteur_Test, Fin_De_Reponse_Lue_Aussitot) {
  Lecteur_Serie Branche(Scenario_De("morceaux = 41"));
  double Dernier = 0;
  for (const double Entre : {0.011, 0.013, 0.017, 0.019, 0.023}) {
    Port.Brancher(Branche, Entre);
    Port.Repondre = [&, Reel = Port.Repondre](Vue_Octets Trame_Recue, const std::string& Vitesse) {
      Reel(Trame_Recue, Vitesse);
      Dernier = Port.Arrivees.back().first;
    };
    FMain.MnLecteur.Cliquer();
    EXPECT_LE(Temps.Maintenant - Dernier, 0.0021) << Entre;
    Fiche.CmdOK.Cliquer();
  }
}

// A test started from within the wait of another: it runs whole, then the first finds its port closed.
TEST_F(Test_Lecteur_Test, Dans_Un_Autre) {
  int Passages = 0;
  Ecran.Au_Repos = [&] {
    if (++Passages == 1) FMain.MnLecteur.Cliquer();
  };
  const std::string Faits = Tester();
  EXPECT_NE(Faits.find("\nport fermé\nport 9600,n,8,1\nport ouvert\n"), std::string::npos) << Faits;
  EXPECT_TRUE(Faits.ends_with("\nport fermé\nTxtDetails = Erreur n° : 8018¶Erreur : \n")) << Faits;
}

}  // namespace
