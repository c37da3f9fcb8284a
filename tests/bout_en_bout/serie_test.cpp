// The serial reader test, on a pseudo-terminal in the place of COM1.

#include "tests/bout_en_bout/Cas.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

struct Serie : Cas {
  void SetUp() override {
    if (const std::string Pourquoi = Sans_Ligne_Serie(); !Pourquoi.empty()) GTEST_SKIP() << Pourquoi;
    Debut_ = Journal_Serie().size();
    Brancher_Serie("date = 20051013");
    Lancer();
  }

  std::string Journal() const { return Journal_Serie().substr(Debut_); }
  void Demander_Test(const std::string& Scenario = "") {
    if (!Scenario.empty()) Brancher_Serie(Scenario);
    EXPECT_TRUE(FMain.Menu("MnLecteur"));
  }
  /// The six lights, then the four settings of the line.
  std::string Affichage() const {
    std::string Tout;
    for (const char* Nom : {"ImgRed", "ImgYellow", "ImgGreen", "ImgRed2", "ImgYellow2", "ImgGreen2"})
      if (FMain[Nom].Visible()) Tout += std::string(Nom) + " ";
    for (const char* Nom : {"LblVit", "LblPart", "LblBitDon", "LblBitStop"}) Tout += "|" + FMain[Nom].Texte();
    return Tout;
  }
  bool Rouges() const { return Affichage().starts_with("ImgRed ImgRed2 |"); }

  /// A test that succeeds, up to OK in the configuration window.
  void Reussir(const std::string& Vitesse = "9600", const std::string& Date = "13 octobre 2005",
               const std::string& Scenario = "date = 20051013") {
    Demander_Test(Scenario);
    if (Vitesse != "9600") {
      const Boite_Vue Avis = Boite("Attention");
      EXPECT_TRUE(Affichage().starts_with("ImgGreen ImgGreen2 |"));
      Repondre("Attention", "! OK : Attention vous etes en 19200 Bauds!!");
    }
    const Fenetre_Vue Configuration = Fenetre("FrmResultParam");
    Attendre("fiche", [&] { return Configuration["LblConst"].Texte() != "?"; });  // still opening, on a busy PC
    std::string Fiche;
    for (const char* Nom : {"LblConst", "LblTypeLec", "LblNumSerie", "LblTypeOS", "LblNameAppli", "LblNumVersion",
                            "LblDate", "LblHeure", "LblCRC"})
      Fiche += Configuration[Nom].Texte() + "|";
    EXPECT_EQ(Fiche, "INGENICO|INGENICO  650|SIMULE0000000001|03|SESAM-VITALE|1.27|" + Date + "|14:30|A1B2|");
    EXPECT_FALSE(FMain.Actif());
    EXPECT_EQ(Affichage(), "ImgGreen ImgGreen2 |" + Vitesse + " bauds|n|8|1");
    EXPECT_FALSE(FMain["TxtDetails"].Visible());
    EXPECT_TRUE(Volet().ends_with("\n\tTEST RÉUSSI")) << Volet();
    Configuration["CmdOK"].Cliquer();
    Attendre_Absence("FrmResultParam");
    Attendre("fenêtre principale devant", [&] { return FMain.Actif() && FMain.Devant(); });
    EXPECT_EQ(Journal().find("FAUTE"), std::string::npos);
  }

 private:
  std::size_t Debut_ = 0;
};

TEST_F(Serie, A_9600_Puis_A_19200_Puis_Fermeture_Par_Le_Cadre) {
  Reussir();
  const std::string Lu = Journal();
  int Envois = 0;
  for (std::size_t I = 0; (I = Lu.find("reçu à ", I)) != std::string::npos; ++I, ++Envois)
    EXPECT_EQ(Lu.substr(I, 20), "reçu à 9600 bauds ");
  EXPECT_EQ(Envois, 4);
  Reussir("19200", "15 mars 2005", "vitesses = 19200");
  Demander_Test("morceaux = 3\ndelai_morceaux_ms = 15");
  Fenetre("FrmResultParam").Fermer();
  Attendre_Absence("FrmResultParam");
  Verifier_Utilisable();
}

TEST_F(Serie, Journal_Se_Rejoue) {
  Relancer("/journal");
  Reussir();
  FMain["CmdQuitter"].Cliquer();
  EXPECT_EQ(Attendre_Fin(), 0U);
  // A path of the Linux system, which Wine shows as drive Z:.
  Brancher_Serie("rejouer = " + En_Utf8(Journal_Ecrit().generic_wstring()).substr(2));
  Relancer();
  Reussir("9600", "13 octobre 2005", "");
  Demander_Test();
  Attendre("rien de plus dans le journal", [&] { return Rouges(); });
}

TEST_F(Serie, Muet_Puis_Reponse) {
  Brancher_Serie("silence = tout");
  const double Avant = Secondes_De_Processeur();
  Demander_Test();
  Sleep(2900);                                             // looking at the windows would cost them processor time
  EXPECT_LT(Secondes_De_Processeur() - Avant, 0.1 * 2.9);  // all of it, if the wait were busy
  Attendre(
      "voyants rouges en 3,5 s", [&] { return Rouges(); }, 0.6);
  EXPECT_EQ(Affichage(), "ImgRed ImgRed2 |---|---|---|---");
  Reussir();
}

TEST_F(Serie, Echecs_Puis_Reponse) {
  struct Echec {
    const char *Scenario, *Volet_Voulu;
  };
  for (const auto& [Scenario, Volet_Voulu] : std::initializer_list<Echec>{{"debranche_apres = 0", "Erreur n° : 80"},
                                                                          {"date = 2005AB13", "Erreur n° : 13\n"},
                                                                          {"longueur_config = 124", "F2E0"},
                                                                          {"bruit_avant = 55", "55F2E0"},
                                                                          {"debranche_apres = 2", "Erreur n° : "}}) {
    Etape = Scenario;
    Demander_Test(Scenario);
    Attendre("échec", [&] { return Rouges() || Volet().starts_with("Erreur n° : "); });
    EXPECT_TRUE(Volet().starts_with(Volet_Voulu)) << Volet() << Affichage();
    Verifier_Utilisable();
    Reussir();
  }
}

TEST_F(Serie, Operateur_Pendant_L_Attente) {
  Demander_Test("silence = tout");
  Demander_Test();
  Attendre("voyants rouges", [&] { return Rouges(); });
  Reussir();
  for (const bool Bouton : {true, false}) {
    Relancer();
    Demander_Test("silence = tout");
    Sleep(300);
    Bouton ? void(FMain["CmdQuitter"].Cliquer()) : FMain.Fermer();
    EXPECT_EQ(Attendre_Fin(), 0U);
  }
}

}  // namespace
