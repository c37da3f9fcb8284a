// The layout of every window, against the table drawn by hand.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"

namespace {

std::string Menus(const std::vector<Entree_Menu*>& Entrees) {
  std::string Textes;
  for (const Entree_Menu* Une : Entrees) {
    Textes += Une->Texte() + (Une->Sous_Menu().empty() ? "; " : " {" + Menus(Une->Sous_Menu()) + "} ");
  }
  return Textes;
}

struct Disposition_Test : testing::Test, Poste_De_Test {
  Fenetres& F = App.F;
  const Fenetre *const Principale = &F.FMain, *const Dossier = &F.FDossierING, *const Progression = &F.FrmAnimCharg,
                       *const Fiche = &F.FrmResultParam, *const Apropos = &F.frmAbout;
};

TEST_F(Disposition_Test, Chaque_Controle_A_Sa_Place) {
  const Cadre* Cadre_Courant = nullptr;
  const Controle* const Apres_Les_Cadres = &F.FDossierING.DirDirectory;
  std::vector<const Controle*> Ordre, Declares;
  for (const Ligne_Disposition& L : Disposition(F)) {
    SCOPED_TRACE(L.Nom);
    const Conception& D = L.C.Depart();
    const Position &P = L.C.Place(), &V = L.Place;
    const auto A = [&](char Lettre) { return L.Style.find(Lettre) != L.Style.npos; };
    EXPECT_EQ(Lecture_Controle(L.C).Genre, L.Genre);
    EXPECT_EQ(D.Texte, L.Texte);
    EXPECT_EQ(D.Image, L.Image);
    EXPECT_TRUE(V.Gauche < 0 || (P.Gauche == V.Gauche && P.Haut == V.Haut));
    EXPECT_TRUE(V.Largeur + V.Hauteur == 0 || (P.Largeur == V.Largeur && P.Hauteur == V.Hauteur));
    EXPECT_EQ(D.Points, L.Points > 0 ? L.Points : D.Points);
    if (!A('?')) {
      using namespace Couleurs;
      EXPECT_TRUE(D.Gras == A('g') && D.Souligne == A('s') && D.Centre == A('c'));
      EXPECT_EQ(D.Encre, A('R') ? Rouge : A('B') ? Bleu : A('b') ? Bleu_Clair : std::optional<Couleur>());
      EXPECT_EQ(D.Fond, A('G') ? Gris : std::optional<Couleur>());
    }
    auto* const Lui = dynamic_cast<const Cadre*>(&L.C);
    if (Lui || &L.C == Apres_Les_Cadres) Cadre_Courant = Lui;
    EXPECT_EQ(L.C.Parent(), Lui ? nullptr : Cadre_Courant);
    Ordre.push_back(&L.C);
  }
  for (const auto& [Une, Nom] : Fenetres_Nommees(F)) {
    Declares.insert(Declares.end(), Une->Controles().begin(), Une->Controles().end());
  }
  EXPECT_EQ(Declares, Ordre) << "each once, in its tab order";
}

TEST_F(Disposition_Test, Fenetres_Et_Menus) {
  const struct {
    const Fenetre* Une;
    std::string Titre;  // free when empty, and so is a size of 0
    int Largeur, Hauteur;
    std::optional<Couleur> Fond;
  } Cas[] = {{&F.FMain, "Pavorin V3.01 Pour 650 Mono", 11190, 5985, {}},
             {&F.FDossierING, "Séléction du répertoire", 3870, 5145, Couleur{224, 224, 224}},
             {&F.FrmAnimCharg, "", 5520, 1920, {}},
             {&F.frmAbout, "  À propos du Pavorin", 0, 0, {}}};
  for (const auto& C : Cas) {
    const Conception_Fenetre& D = C.Une->Depart();
    EXPECT_EQ(D.Titre, C.Titre.empty() ? D.Titre : C.Titre);
    EXPECT_TRUE(C.Largeur == 0 || (D.Largeur == C.Largeur && D.Hauteur == C.Hauteur)) << C.Titre;
    EXPECT_EQ(D.Fond, C.Fond);
  }
  EXPECT_EQ(Menus(F.FMain.Menus()),
            "&Fichier {&Communication {&Test Lecteur; } -; &Quitter; } &Aide {&A propos du Pavorin; } ");
}

}  // namespace
