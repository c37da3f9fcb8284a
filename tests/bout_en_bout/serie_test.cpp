// The serial reader test, on a pseudo-terminal in the place of COM1.

#include "tests/bout_en_bout/Cas.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

struct Serie : Cas {
  void SetUp() override {
    if (!Ligne_Serie()) GTEST_SKIP() << "no simulated serial line on a real Windows PC: it takes a pseudo-terminal";
    Brancher_Serie("date = 20051013");
    Lancer();
  }

  void Demander_Test(const std::string& Scenario = "") {
    if (!Scenario.empty()) Brancher_Serie(Scenario);
    EXPECT_TRUE(FMain.Menu("MnLecteur"));
  }
  /// The configuration window of a test that succeeds.
  Fenetre_Vue Attendre_La_Fiche() {
    const Fenetre_Vue Configuration = Fenetre("FrmResultParam");
    Attendre("date de la fiche", [&] { return Configuration["LblDate"].Texte() == "13 octobre 2005"; });
    EXPECT_FALSE(FMain.Actif());
    EXPECT_FALSE(FMain["ImgRed"].Visible());
    EXPECT_TRUE(Volet().ends_with("\n\tTEST RÉUSSI")) << Volet();
    EXPECT_EQ(Journal_Serie().find("FAUTE"), std::string::npos);
    return Configuration;
  }
  /// A test that succeeds, up to OK in the configuration window.
  void Reussir(const std::string& Scenario = "date = 20051013") {
    Demander_Test(Scenario);
    Attendre_La_Fiche()["CmdOK"].Cliquer();
    Attendre_Absence("FrmResultParam");
    Attendre("fenêtre principale devant", [&] { return FMain.Actif() && FMain.Devant(); });
  }
};

TEST_F(Serie, A_9600_Puis_A_19200_Puis_Par_Morceaux) {
  Reussir();
  Demander_Test("vitesses = 19200\ndate = 20051013");
  Repondre("Attention", "OK : Attention vous etes en 19200 Bauds!!");
  Attendre_La_Fiche().Fermer();
  Attendre_Absence("FrmResultParam");
  for (const char* Vu : {"reçu à 9600 bauds ", "reçu à 19200 bauds "})
    EXPECT_NE(Journal_Serie().find(Vu), std::string::npos) << Vu;
  Reussir("morceaux = 3\ndelai_morceaux_ms = 15\ndate = 20051013");
}

TEST_F(Serie, Journal_Se_Rejoue) {
  Relancer("/journal");
  Reussir();
  Quitter();
  // A path of the Linux system, which Wine shows as drive Z:.
  Brancher_Serie("rejouer = " + En_Utf8(Journal_Ecrit().generic_wstring()).substr(2));
  Relancer();
  Reussir("");
  Demander_Test();
  Attendre("rien de plus dans le journal", [&] { return FMain["ImgRed"].Visible(); });
}

TEST_F(Serie, Echecs_Puis_Reponse) {
  for (const auto& [Scenario, Volet_Voulu] :
       std::initializer_list<std::pair<const char*, const char*>>{{"silence = tout", ""},
                                                                  {"debranche_apres = 0", "Erreur n° : 80"},
                                                                  {"bruit_avant = 55", "55F2E0"},
                                                                  {"debranche_apres = 2", "Erreur n° : "}}) {
    SCOPED_TRACE(Scenario);
    Demander_Test(Scenario);
    Attendre("échec", [&] { return FMain["ImgRed"].Visible() || Volet().starts_with("Erreur n° : "); });
    EXPECT_TRUE(Volet().starts_with(Volet_Voulu)) << Volet();
    Verifier_Utilisable();
    Reussir();
  }
}

TEST_F(Serie, Operateur_Pendant_L_Attente) {
  Demander_Test("silence = tout");
  Demander_Test();
  Attendre("fin du premier, dont le second a fermé le port", [&] { return Volet().starts_with("Erreur n° : 8018"); });
  Reussir();
  Demander_Test("silence = tout");
  FMain.Fermer();
  EXPECT_EQ(Attendre_Fin(), 0U);
}

}  // namespace
