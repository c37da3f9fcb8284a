// The serial reader test over a scripted line, its window, and what the operator may do meanwhile.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"

namespace {

const Octets Accord = {0xF2, 0xE0, 0x04, 0x00, 0x14, 0x00, 0xC8, 0x59, 0xA3};
const std::string Trame_Test = "> 2F C0 4 0 14 0 C8 A4 FC";
const std::string Trame_Config = "> 2F 40 4 1 0 0 94 A0 9B";

Octets Configuration(std::size_t Taille = 123, const std::string& Constructeur = "INGENICO",
                     const std::string& Mois = "10") {
  std::string Texte = "\xF2\x40\x76\x01" + Constructeur;
  Texte.resize(4 + 15, ' ');
  Texte += "INGENICO  650";
  Texte.resize(4 + 45, ' ');
  Texte += "N\xB0 42";
  Texte.resize(4 + 65, ' ');
  Texte += "03Vitale";
  Texte.resize(4 + 97, ' ');
  Texte += "01272005" + Mois + "1309051A2B";
  Texte.resize(Taille, '?');
  return Octets(Texte.begin(), Texte.end());
}

struct Test_Lecteur_Test : testing::Test, Poste_De_Test {
  Test_Lecteur_Test() {
    Demarrer();
    Port.Repondre = [this](Vue_Octets Trame, const std::string& Reglages) {
      if (!Reglages.starts_with(Vitesse + ",")) return;
      if (Trame[1] == 0xC0 && !Reponse.empty()) Port.Envoyer(Reponse);
      if (Trame[1] == 0x40 && !Config.empty()) Port.Envoyer(Config, 0.13);
    };
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
  void Tester() {
    Debut = Temps.Maintenant;
    Port.Conversation.clear();
    FMain.MnLecteur.Cliquer();
    EXPECT_LT(Temps.Maintenant - Debut, 5.2);
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
  std::string Vitesse = "9600";
  Octets Reponse = Accord, Config = Configuration();
  double Debut = 0;
};

TEST_F(Test_Lecteur_Test, Lecteur_A_9600) {
  FMain.TxtDetails.Texte("avant");
  Tester();
  EXPECT_EQ(Port.Conversation,
            (std::vector<std::string>{"= 9600,n,8,1", Trame_Test, Trame_Test, Trame_Test, Trame_Config}));
  EXPECT_EQ(Pane(), "F2E040140C859A3\r\n\tTEST RÉUSSI");
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
  Vitesse = "19200";
  Tester();
  EXPECT_EQ(Port.Conversation, (std::vector<std::string>{"= 9600,n,8,1", Trame_Test, "= 19200,n,8,1", Trame_Test,
                                                         Trame_Test, Trame_Config}));
  EXPECT_EQ(Ecran.Boites, std::vector<std::string>{"Attention | Attention vous etes en 19200 Bauds!!"});
  EXPECT_EQ(Reglages_Montres(), "19200 bauds|n|8|1");
  Verifier_Succes();
}

TEST_F(Test_Lecteur_Test, Echecs_Puis_Succes) {
  const struct {
    Octets Reponse, Config;
    std::string Reglages, Pane;
  } Cas[] = {{{}, {}, "---|---|---|---", ""},
             {{0x00, 0xF2, 0xE0, 0x04, 0x00, 0x14, 0x00, 0xC8, 0x59, 0xA3}, {}, "---|---|---|---", "0F2E040140C859A3"},
             {Accord, {}, "9600 bauds|n|8|1", "F2E040140C859A3"},
             {Accord, Configuration(122), "9600 bauds|n|8|1", "F2E040140C859A3"},
             {Accord, Configuration(124), "9600 bauds|n|8|1", "F2E040140C859A3"},
             {Accord, Configuration(123, "INGENICA"), "9600 bauds|n|8|1", "F2E040140C859A3"}};
  for (const auto& C : Cas) {
    Reponse = C.Reponse;
    Config = C.Config;
    Tester();
    EXPECT_EQ(Voyants(), "RR");
    EXPECT_EQ(Reglages_Montres(), C.Reglages);
    EXPECT_EQ(Pane(), C.Pane);
    EXPECT_FALSE(FMain.TxtDetails.Visible() || Fiche.Ouverte() || Port.Ouvert());
    EXPECT_TRUE(FMain.Active());
    if (C.Reponse.empty()) {
      EXPECT_LT(Temps.Maintenant - Debut, 3.5);
    }
    Port.Tampon_.clear();
    Reponse = Accord;
    Config = Configuration();
    Tester();
    Verifier_Succes();
  }
  FMain.CmdMaj.Active(true);
  FMain.CmdMaj.Cliquer();
  EXPECT_TRUE(FMain.TxtDetails.Visible()) << "an update shows the pane again";
}

TEST_F(Test_Lecteur_Test, Reponse_En_Morceaux) {
  Reponse.clear();
  std::vector<std::string> Vues;
  Port.Repondre = [&](Vue_Octets Trame, const std::string&) {
    for (std::size_t I = 0; Trame[1] == 0xC0 && I < Accord.size(); I += 2) {
      Port.Envoyer(Octets(Accord.begin() + static_cast<int>(I),
                          Accord.begin() + static_cast<int>(std::min<std::size_t>(I + 2, 9))),
                   0.02 * static_cast<double>(I + 1));
    }
    if (Trame[1] == 0x40) Port.Envoyer(Config);
  };
  Ecran.Au_Repos = [&] {
    if (Vues.empty() || Vues.back() != Pane()) Vues.push_back(Pane());
  };
  Tester();
  ASSERT_GE(Vues.size(), 6U);
  EXPECT_EQ((std::vector<std::string>(Vues.begin(), Vues.begin() + 6)),
            (std::vector<std::string>{"", "F2E0", "F2E040", "F2E040140", "F2E040140C8" + std::string("59"),
                                      "F2E040140C859A3"}));
  Verifier_Succes();
}

TEST_F(Test_Lecteur_Test, Erreurs_De_La_Ligne) {
  Config = Configuration(123, "INGENICO", "13");
  Tester();
  EXPECT_EQ(Pane(), "Erreur n° : 5\r\nErreur : ");
  EXPECT_FALSE(Fiche.Ouverte());
  EXPECT_TRUE(Port.Ouvert()) << "an error leaves the port as it is";
  Config = Configuration();
  Tester();
  Verifier_Succes();
  Port.Absent = true;
  Tester();
  EXPECT_EQ(Pane(), "Erreur n° : 8002\r\nErreur : ");
  Port.Absent = false;
  Tester();
  Verifier_Succes();
}

TEST_F(Test_Lecteur_Test, L_Operateur_Pendant_Les_Attentes) {
  const std::pair<const char*, std::function<void()>> Actions[] = {
      {"second test", [this] { FMain.MnLecteur.Cliquer(); }},
      {"update", [this] { FMain.CmdMaj.Cliquer(); }},
      {"dialog", [this] { FMain.CmdChooseDirectory.Cliquer(); }},
      {"quit", [this] { FMain.CmdQuitter.Cliquer(); }},
      {"close", [this] { FMain.Fermer_Par_Cadre(); }},
      {"OK", [this] { Fiche.CmdOK.Cliquer(); }}};
  for (const auto& [Nom, Action] : Actions) {
    for (int Instant = 1; Instant < 60; Instant += 3) {
      SCOPED_TRACE(std::string(Nom) + std::to_string(Instant));
      Ecran.Au_Repos = [&, Reste = Instant]() mutable {
        if (--Reste == 0) Action();
      };
      try {
        FMain.CmdMaj.Active(true);
        Tester();
      } catch (const Programme_Arrete&) {
        FMain.Montrer();
      }
      Ecran.Au_Repos = nullptr;
      if (Fiche.Ouverte()) Fiche.CmdOK.Cliquer();
      App.F.FDossierING.Decharger();
      EXPECT_TRUE(FMain.Active());
      EXPECT_FALSE(Fiche.Ouverte());
    }
  }
}

}  // namespace
