// The serial reader test, the simulated reader at the other end of the line, and its window.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"

namespace {

const std::string Trame_Test = "> 2F C0 4 0 14 0 C8 A4 FC";
const std::string Trame_Config = "> 2F 40 4 1 0 0 94 A0 9B";
const std::string Accord = "F2E040140C859A3";

struct Test_Lecteur_Test : testing::Test, Poste_De_Test {
  Test_Lecteur_Test() { Demarrer(); }

  /// A test of the reader of that scenario, which sends a piece of its answers every 20 ms.
  void Tester(const std::string& Scenario = "") {
    Lecteur_Serie Branche(Scenario_De(Scenario));
    Port.Tampon_.clear();
    Port.Conversation.clear();
    Port.Brancher(Branche, 0.02);
    const double Debut = Temps.Maintenant;
    FMain.MnLecteur.Cliquer();
    EXPECT_LT(Temps.Maintenant - Debut, 3.5);
    EXPECT_EQ(Branche.Fautes(), std::vector<std::string>());
  }
  std::string Voyants() const {
    const auto Un = [](const Image& R, const Image& J, const Image& V) {
      return std::string(R.Visible() ? "R" : "") + (J.Visible() ? "J" : "") + (V.Visible() ? "V" : "");
    };
    return Un(FMain.ImgRed, FMain.ImgYellow, FMain.ImgGreen) + Un(FMain.ImgRed2, FMain.ImgYellow2, FMain.ImgGreen2);
  }
  std::string Reglages_Montres() const {
    return FMain.LblVit.Texte() + "|" + FMain.LblPart.Texte() + "|" + FMain.LblBitDon.Texte() + "|" +
           FMain.LblBitStop.Texte();
  }
  /// Everything a successful test leaves, then "OK".
  void Verifier_Succes() {
    EXPECT_EQ(Voyants(), "VV");
    EXPECT_TRUE(Fiche.Ouverte());
    EXPECT_FALSE(FMain.Active());
    EXPECT_FALSE(Port.Ouvert());
    Fiche.CmdOK.Cliquer();
    EXPECT_TRUE(FMain.Active());
    EXPECT_FALSE(Fiche.Ouverte());
  }
  Fenetre_Principale& FMain = App.F.FMain;
  Fenetre_Configuration& Fiche = App.F.FrmResultParam;
};

TEST_F(Test_Lecteur_Test, Lecteur_A_9600) {
  FMain.TxtDetails.Texte("avant");
  Tester(
      "type_lecteur = INGENICO  650             WXYZ; num_serie = \\x20 N° 42; nom_appli = Vitale;"
      "date = 20051013; heure = 0905; num_crc = 1A2B");
  EXPECT_EQ(Port.Conversation,
            (std::vector<std::string>{"= 9600,n,8,1", Trame_Test, Trame_Test, Trame_Test, Trame_Config}));
  EXPECT_EQ(Pane(), Accord + "\r\n\tTEST RÉUSSI");
  EXPECT_FALSE(FMain.TxtDetails.Visible());
  EXPECT_EQ(Reglages_Montres(), "9600 bauds|n|8|1");
  EXPECT_TRUE(Ecran.Boites.empty());
  const Etiquette* Valeurs[] = {&Fiche.LblConst,  &Fiche.LblTypeLec,   &Fiche.LblNumSerie,
                                &Fiche.LblTypeOS, &Fiche.LblNameAppli, &Fiche.LblNumVersion,
                                &Fiche.LblDate,   &Fiche.LblHeure,     &Fiche.LblCRC};
  const char* Textes[] = {"INGENICO", "INGENICO  650",   "N° 42", "03",  "Vitale",
                          "1.27",     "13 octobre 2005", "09:05", "1A2B"};
  for (int I = 0; I < 9; ++I) EXPECT_EQ(Valeurs[I]->Texte(), Textes[I]);
  EXPECT_LE(Ecran.Plus_Longue.count(), 10);
  Fiche.Fermer_Par_Cadre();
  EXPECT_TRUE(FMain.Active()) << "the close box does as OK";
}

TEST_F(Test_Lecteur_Test, Lecteur_A_19200) {
  Tester("vitesses = 19200");
  EXPECT_EQ(Port.Conversation, (std::vector<std::string>{"= 9600,n,8,1", Trame_Test, "= 19200,n,8,1", Trame_Test,
                                                         Trame_Test, Trame_Config}));
  EXPECT_EQ(Ecran.Boites, std::vector<std::string>{"Attention | Attention vous etes en 19200 Bauds!! | exclamation"});
  EXPECT_EQ(Reglages_Montres(), "19200 bauds|n|8|1");
  Verifier_Succes();
}

TEST_F(Test_Lecteur_Test, Echecs_Puis_Succes) {
  const std::string Aucuns = "---|---|---|---", Lents = "9600 bauds|n|8|1";
  const std::tuple<const char*, std::string, std::string> Cas[] = {
      {"silence = tout", Aucuns, ""},           {"bruit_avant = 00", Aucuns, "0" + Accord},
      {"silence = config", Lents, Accord},      {"longueur_config = 122", Lents, Accord},
      {"longueur_config = 124", Lents, Accord}, {"constructeur = INGENICA", Lents, Accord}};
  for (const auto& [Scenario, Reglages, Recus] : Cas) {
    SCOPED_TRACE(Scenario);
    Tester(Scenario);
    EXPECT_EQ(Voyants(), "RR");
    EXPECT_EQ(Reglages_Montres(), Reglages);
    EXPECT_EQ(Pane(), Recus);
    EXPECT_FALSE(FMain.TxtDetails.Visible() || Fiche.Ouverte() || Port.Ouvert());
    EXPECT_TRUE(FMain.Active());
    Tester();
    Verifier_Succes();
  }
  FMain.CmdMaj.Active(true);
  FMain.CmdMaj.Cliquer();
  EXPECT_TRUE(FMain.TxtDetails.Visible()) << "an update shows the pane again";
}

TEST_F(Test_Lecteur_Test, Reponse_En_Morceaux) {
  std::vector<std::string> Vues;
  Ecran.Au_Repos = [&] {
    if (Vues.empty() || Vues.back() != Pane()) Vues.push_back(Pane());
  };
  Tester("morceaux = 2");
  Vues.resize(6);  // then the two other test frames
  EXPECT_EQ(Vues, (std::vector<std::string>{"", "F2E0", "F2E040", "F2E040140", "F2E040140C859", Accord}));
  Verifier_Succes();
}

TEST_F(Test_Lecteur_Test, Erreurs_De_La_Ligne) {
  for (const auto& [Mois, Numero] : {std::pair{"00", "5"}, {"13", "5"}, {"  ", "13"}, {"AB", "13"}, {"1x", "13"}}) {
    Tester(std::string("date = 2005") + Mois + "13");
    EXPECT_EQ(Pane(), std::string("Erreur n° : ") + Numero + "\r\nErreur : ") << Mois;
    EXPECT_FALSE(Fiche.Ouverte());
    EXPECT_FALSE(Port.Ouvert()) << "the line is GALSS's too";
    Tester();
    Verifier_Succes();
  }
  Port.Absent = true;
  Tester();
  EXPECT_EQ(Pane(), "Erreur n° : 8002\r\nErreur : ");
  Port.Absent = false;
  Tester();
  Verifier_Succes();
}

}  // namespace
