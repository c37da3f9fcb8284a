// The layout of every window, against the table drawn by hand.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"

namespace {

std::string Menus(const std::vector<Entree_Menu*>& Entrees) {
  std::string Textes;
  for (const Entree_Menu* Une : Entrees) {
    Textes += std::to_string(Une->Numero()) + " " + Une->Texte() +
              (Une->Sous_Menu().empty() ? "; " : " {" + Menus(Une->Sous_Menu()) + "} ");
  }
  return Textes;
}

struct Disposition_Test : testing::Test, Poste_De_Test {
  Fenetres& F = App.F;
};

TEST_F(Disposition_Test, Chaque_Controle_A_Sa_Place) {
  const Cadre* Cadre_Courant = nullptr;
  const Controle* const Apres_Les_Cadres = &F.FDossierING.DirDirectory;
  std::vector<const Controle*> Ordre, Declares;
  // Native identifiers follow each other from these on.
  const std::map<const Controle*, int> Premiers = {
      {&F.FMain.FrmChooseDirectory, 100}, {&F.FMain.FrmParamFichier, 200},    {&F.FMain.FChoose, 300},
      {&F.FMain.FmDetails, 400},          {&F.FDossierING.DirDirectory, 601}, {&F.FrmAnimCharg.LblTitre, 701},
      {&F.FrmResultParam.Image1, 801},    {&F.frmAbout.picIcon, 901}};
  int Numero = 0;
  for (const Ligne_Disposition& L : Disposition(F)) {
    SCOPED_TRACE(L.Nom);
    const Conception& D = L.C.Depart();
    const Position &P = L.C.Place(), &V = L.Place;
    const auto A = [&](char Lettre) { return L.Style.find(Lettre) != L.Style.npos; };
    EXPECT_EQ(Lecture_Controle(L.C).Genre, L.Genre);
    EXPECT_EQ(D.Texte, L.Texte);
    EXPECT_EQ(D.Image, L.Image);
    EXPECT_EQ(std::tie(P.Gauche, P.Haut, P.Largeur, P.Hauteur), std::tie(V.Gauche, V.Haut, V.Largeur, V.Hauteur));
    EXPECT_EQ(D.Points, L.Points > 0 ? L.Points : 9);
    EXPECT_TRUE(D.Gras == A('g') && D.Souligne == A('s') && D.Centre == A('c'));
    const std::optional<Couleur> Rouge({255, 0, 0}), Bleu({0, 0, 255}), Bleu_Clair({128, 128, 255}),
        Gris({224, 224, 224}), Aucune;
    EXPECT_EQ(D.Encre, A('R') ? Rouge : A('B') ? Bleu : A('b') ? Bleu_Clair : Aucune);
    EXPECT_EQ(D.Fond, A('G') ? Gris : Aucune);
    auto* const Lui = dynamic_cast<const Cadre*>(&L.C);
    const auto Premier = Premiers.find(&L.C);
    Numero = Premier == Premiers.end() ? Numero + 1 : Premier->second;
    EXPECT_EQ(L.C.Numero(), Numero);
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
    const Fenetre& Une;
    std::string Titre;
    int Largeur, Hauteur;
    std::optional<Couleur> Fond;
    const Controle *Entree, *Echap;
  } Cas[] = {
      {F.FMain, "Pavorin V3.01 Pour 650 Mono", 11190, 5985, {}, nullptr, nullptr},
      {F.FDossierING, "Séléction du répertoire", 3870, 5145, Couleur{224, 224, 224}, &F.FDossierING.CmdOK,
       &F.FDossierING.CmdAnnul},
      {F.FrmAnimCharg, "Pavorin", 5520, 1920, {}, nullptr, nullptr},
      {F.FrmResultParam, "Configuration du lecteur", 11280, 5040, {}, &F.FrmResultParam.CmdOK, &F.FrmResultParam.CmdOK},
      {F.frmAbout, "  À propos du Pavorin", 6000, 3600, {}, &F.frmAbout.CmdOK, &F.frmAbout.CmdOK}};
  for (const auto& C : Cas) {
    const Conception_Fenetre& D = C.Une.Depart();
    EXPECT_EQ(std::tie(D.Titre, D.Largeur, D.Hauteur, D.Fond), std::tie(C.Titre, C.Largeur, C.Hauteur, C.Fond));
    EXPECT_TRUE(C.Une.Bouton_Entree == C.Entree && C.Une.Bouton_Echap == C.Echap) << C.Titre;
  }
  EXPECT_EQ(Menus(F.FMain.Menus()),
            "500 &Fichier {501 &Communication {502 &Test Lecteur; } 503 -; 504 &Quitter; } "
            "510 &Aide {511 &A propos du Pavorin; } ");
}

}  // namespace
