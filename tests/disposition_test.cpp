// The layout of every window, against the tables drawn by hand.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"

namespace {

std::string Style(const Conception& D) {
  const std::pair<Couleur, const char*> Encres[] = {{{255, 0, 0}, "R"}, {{0, 0, 255}, "B"}, {{128, 128, 255}, "b"}};
  std::string Lettres = std::string(D.Gras ? "g" : "") + (D.Souligne ? "s" : "") + (D.Centre ? "c" : "");
  for (const auto& [Une, Lettre] : Encres) Lettres += D.Encre == Une ? Lettre : "";
  if (D.Fond) Lettres += D.Fond == Couleur{224, 224, 224} ? "G" : "?";
  return Lettres.empty() ? "-" : Lettres;
}

/// As a line of disposition.txt, without the name of its window and its own.
std::string Decrire(Controle& C, const std::string& Parent) {
  constexpr const char* Images[] = {"-",          "Programme", "Dossier",      "Mise_A_Jour",  "Quitter",    "Bandeau",
                                    "Chargement", "Lecteur",   "Voyant_Rouge", "Voyant_Jaune", "Voyant_Vert"};
  const Conception& D = C.Depart();
  const Position& P = C.Place();
  std::ostringstream Ligne;
  Ligne << C.Numero() << ' ' << Parent << ' ' << Lecture_Controle(C).Genre << ' ' << P.Gauche << ' ' << P.Haut << ' '
        << P.Largeur << ' ' << P.Hauteur << ' ' << D.Points << ' ' << Style(D) << ' '
        << Images[static_cast<int>(D.Image)] << " \"" << D.Texte << '"';
  return Ligne.str();
}

/// Title, width, height, ground, buttons of Enter and Escape.
std::string Decrire(const Fenetre& F) {
  const auto Numero = [](const Controle* Un) { return " " + std::to_string(Un == nullptr ? 0 : Un->Numero()); };
  const Conception_Fenetre& D = F.Depart();
  return D.Titre + "| " + std::to_string(D.Largeur) + " " + std::to_string(D.Hauteur) +
         (D.Fond == Couleur{224, 224, 224} ? " G"
          : D.Fond                         ? " ?"
                                           : " -") +
         Numero(F.Bouton_Entree) + Numero(F.Bouton_Echap) + "\n";
}

std::string Decrire(const std::vector<Entree_Menu*>& Entrees) {
  std::string Textes;
  for (const Entree_Menu* Une : Entrees) {
    Textes += std::to_string(Une->Numero()) + " " + Une->Texte() +
              (Une->Sous_Menu().empty() ? "; " : " {" + Decrire(Une->Sous_Menu()) + "} ");
  }
  return Textes;
}

TEST(Disposition, Chaque_Controle_A_Sa_Place) {
  Poste_De_Test P;
  std::string Toutes;
  for (const auto& [Une, Nom] : Fenetres_Nommees(P.App.F)) {
    std::map<const Controle*, std::string> Noms = {{nullptr, "-"}};
    const auto& Lignes = Lignes_Disposition(Nom);
    ASSERT_EQ(Une->Controles().size(), Lignes.size());
    for (std::size_t I = 0; I < Lignes.size(); ++I) {
      Controle* const Un = Une->Controles()[I];
      const std::string& Ligne = Lignes[I];
      const std::string Le_Nom = Noms[Un] = Ligne.substr(0, Ligne.find(' '));
      EXPECT_EQ(Le_Nom + " " + Decrire(*Un, Noms.at(Un->Parent())), Ligne) << Nom;
    }
    Toutes += Decrire(*Une);
  }
  EXPECT_EQ(Toutes, R"(Pavorin V3.01 Pour 650 Mono| 11190 5985 - 0 0
Séléction du répertoire| 3870 5145 G 603 604
Pavorin| 5520 1920 - 0 0
Configuration du lecteur| 11280 5040 - 821 821
  À propos du Pavorin| 6000 3600 - 909 909
)");
  EXPECT_EQ(Decrire(P.App.F.FMain.Menus()),
            "500 &Fichier {501 &Communication {502 &Test Lecteur; } 503 -; 504 &Quitter; } "
            "510 &Aide {511 &A propos du Pavorin; } ");
}

}  // namespace
