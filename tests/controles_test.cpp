// The controls as models: what a native peer is told, the lists' corners; UTF-8 at its borders.

#include <gtest/gtest.h>

#include "platform/Utf8.h"
#include "tests/Machine_De_Test.h"

namespace {

struct Controles_Test : testing::Test {
  Controles_Test() { Ecran.Regarder(F); }
  /// What was seen since the last call.
  std::string Vu() { return P.Faits.Prendre(); }

  Pannes P;
  Horloge_De_Test Temps;
  Ecran_De_Test Ecran{Temps, P};
  Disque_De_Test Disque{P};
  Fenetres F{Ecran, Disque};
};

TEST_F(Controles_Test, Une_Fenetre_Se_Ferme_Une_Fois_Et_De_Bon_Gre) {
  auto& M = F.FMain;
  M.Montrer();
  M.Active(false);
  M.MnApropos.Cliquer();
  M.Fermer_Par_Cadre();
  M.CmdQuitter.Cliquer();
  EXPECT_TRUE(M.Ouverte()) << "a disabled window does nothing";
  M.Active(true);
  Vu();
  M.Fermer_Par_Cadre();
  M.Fermer_Par_Cadre();
  EXPECT_EQ(Vu(), "FMain fermée\n") << "closed once, detached before the design state returns";
  F.FrmAnimCharg.Montrer();
  F.FrmAnimCharg.Fermer_Par_Cadre();
  EXPECT_TRUE(F.FrmAnimCharg.Ouverte()) << "no close box";
}

// "OK" of the About box enables the main window, whatever stands in front of it.
TEST_F(Controles_Test, Une_Fenetre_Couverte_Est_Hors_De_Portee) {
  int Actions = 0;
  auto& M = F.FMain;
  M.CmdQuitter.Clic = M.MnApropos.Clic = M.Fermeture = M.OptManuel.Clic = [&] { ++Actions; };
  const auto Agir = [&] {
    M.CmdQuitter.Cliquer();
    M.MnApropos.Cliquer();
    M.Fermer_Par_Cadre();
    M.OptManuel.Choisir();
    return std::exchange(Actions, 0);
  };
  M.Montrer();
  F.FrmAnimCharg.Montrer();
  F.FrmResultParam.Montrer();
  M.Active(true);
  EXPECT_EQ(Agir(), 0);
  F.FrmAnimCharg.Fermer();
  F.FrmAnimCharg.Fermer();
  EXPECT_EQ(Agir(), 0) << "the other one is still open";
  Vu();
  F.FrmResultParam.Decharger();
  EXPECT_EQ(Vu(), "FMain active\nFrmResultParam fermée\n") << "within reach before the window in front goes";
  EXPECT_EQ(Agir(), 4);
}

// A window fails to be made, or at any step of its loading.
TEST_F(Controles_Test, Une_Fenetre_Qui_Echoue_N_Enferme_Personne) {
  F.FMain.Montrer();
  for (Fenetre* Une : {static_cast<Fenetre*>(&F.FrmAnimCharg), static_cast<Fenetre*>(&F.FrmResultParam)}) {
    Une->Dechargement = [] { FAIL() << "it was never loaded"; };
    P.Avant = [](auto, int) { throw std::bad_alloc(); };
    EXPECT_THROW(Une->Montrer(), std::bad_alloc);
    P.Avant = {};
    bool Montree = false;
    for (int Bons = 1; !Montree; ++Bons) {
      EXPECT_TRUE(!Une->Ouverte() && F.FMain.Active() && F.FMain.A_Portee()) << Bons;
      P.Avant = [Reste = Bons](std::string_view Appel, int) mutable {
        if (Appel == "Actualiser" && --Reste == 0) throw std::bad_alloc();
      };
      try {
        Une->Montrer();
        Montree = true;
      } catch (const std::bad_alloc&) {
        ASSERT_LT(Bons, 20);
      }
      P.Avant = {};
    }
    EXPECT_FALSE(F.FMain.A_Portee());
    Une->Dechargement = {};
    Une->Decharger();
    F.FMain.Active(true);
  }
}

TEST_F(Controles_Test, Listes_Hors_De_Leurs_Bornes) {
  auto& D = F.FDossierING;
  D.DriveLecteur.Choisir_A_La_Main(0);
  D.DirDirectory.Ouvrir_A_La_Main(0);
  F.FMain.CchooseNoyau.Choisir_A_La_Main(0);
  F.FMain.CchooseNoyau.Taper();
  D.Montrer();
  F.FMain.Montrer();
  D.DriveLecteur.Montrer("Z:\\rien");
  EXPECT_EQ(D.DriveLecteur.Lecteur(), "");
  const std::pair<const char*, std::string> Arbres[] = {
      {"", ""},
      {"C:\\", "C:\\|"},
      {"C:\\a\\b", "C:\\|C:\\a|C:\\a\\b|"},
      {"C:\\Pavorin", "C:\\|C:\\Pavorin|C:\\Pavorin\\Logiciels|C:\\Pavorin\\Vide|"},
      {"\\\\serveur", "\\\\serveur|"},
      {"\\\\serveur\\part", "\\\\serveur\\part|"},
      {"\\\\serveur\\part\\a", "\\\\serveur\\part\\|\\\\serveur\\part\\a|"}};
  for (const auto& [Chemin, Attendu] : Arbres) {
    D.DirDirectory.Montrer(Chemin);
    std::string Lu;
    for (const auto& L : D.DirDirectory.Lignes()) Lu += L.Chemin + "|";
    EXPECT_EQ(Lu, Attendu);
    EXPECT_EQ(D.DirDirectory.Indice() < 0, Attendu.empty());
    D.DirDirectory.Repertoire(Chemin);
  }
  const std::string Avant = D.DirDirectory.Repertoire();
  for (const int I : {-1, 2, 99}) {
    D.DirDirectory.Ouvrir_A_La_Main(I);
    D.DriveLecteur.Choisir_A_La_Main(I);
    F.FMain.CchooseNoyau.Choisir(I);
  }
  P.Avant = [](std::string_view Appel, int) {
    if (Appel == "Sous_Repertoires") throw std::bad_alloc();
  };
  Vu();
  EXPECT_THROW(D.DirDirectory.Repertoire("C:\\a"), std::bad_alloc);
  EXPECT_EQ(Vu(), "sablier\nflèche\n") << "the hourglass, over; the model has not changed";
  EXPECT_EQ(D.DirDirectory.Repertoire(), Avant);
  EXPECT_EQ(D.DriveLecteur.Indice(), -1);
  EXPECT_EQ(F.FMain.CchooseNoyau.Indice(), Liste_Deroulante::Aucun);
}

TEST(Utf8, Aux_Bornes) {
  for (const char32_t C : {0x24, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF}) {
    std::string Texte;
    Ajouter_Utf8(Texte, C);
    std::string_view Reste = Texte;
    EXPECT_EQ(Prendre_Caractere(Reste), C);
    EXPECT_TRUE(Reste.empty());
  }
  for (const std::string_view Faux : {"\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
                                      "\xF4\x90\x80\x80", "\xF8\x88\x80\x80", "\xE2\x82", "\xE2\x28\xA1"}) {
    std::string_view Reste = Faux;
    EXPECT_EQ(Prendre_Caractere(Reste), Caractere_Invalide) << Hexadecimal(static_cast<unsigned char>(Faux[0]));
    EXPECT_EQ(Reste.size(), Faux.size() - 1);
  }
  EXPECT_EQ(Cp1252_De_Texte("\u0080\u0100\u00A0\u20AC"), (Octets{'?', '?', 0xA0, 0x80}));
}

}  // namespace
