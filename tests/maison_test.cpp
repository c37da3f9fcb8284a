// House rules that a machine can check, each with a bad sample that proves it fires.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "tests/Table.h"

namespace {

namespace fs = std::filesystem;
using Sources = std::map<std::string, std::string>;  // path -> text

/// What the rooms of pieces.txt may include.
const std::map<std::string, std::vector<std::string>> Pieces = [] {
  std::map<std::string, std::vector<std::string>> Lues;
  for (const auto& Ligne : Lire_Table("pieces.txt")) {
    for (const auto Une : Decouper(Ligne[1], ' ')) Lues[Ligne[0]].emplace_back(Une);
    Lues[Ligne[0]];
  }
  return Lues;
}();

/// Empty for a file in no room.
std::string Piece_De(const std::string& Chemin) {
  std::string Meilleure;
  for (const auto& [Debut, Permises] : Pieces) {
    if (Chemin.starts_with(Debut) && Debut.size() > Meilleure.size()) Meilleure = Debut;
  }
  return Meilleure;
}

bool Permis(const std::string& Piece, const std::string& Inclus) {
  return std::ranges::any_of(Pieces.at(Piece), [&](const auto& Debut) {
    return Inclus.starts_with(Debut) && (Debut.ends_with(".h") || Piece_De(Inclus) != "app/Pavorin.cpp");
  });
}

/// What breaks the rules, one line each. A source and its header are one where circles are looked for.
std::string Fautes_De(const Sources& Toutes) {
  static const std::regex Inclusion("#include [<\"]([^>\"]+)[>\"]");
  const auto Corps = [](const std::string& Chemin) { return Chemin.substr(0, Chemin.rfind('.')); };
  std::string Fautes;
  std::map<std::string, std::set<std::string>> Fleches;
  for (const auto& [Chemin, Texte] : Toutes) {
    const std::string Piece = Piece_De(Chemin);
    if (Piece.empty()) Fautes += Chemin + " n'est dans aucune pièce\n";
    for (auto I = std::sregex_iterator(Texte.begin(), Texte.end(), Inclusion); I != std::sregex_iterator(); ++I) {
      const std::string Inclus = (*I)[1];
      // The headers of the language and of other tools, but for the one that only some rooms may know.
      if (Inclus != "windows.h" && Piece_De(Inclus).empty()) continue;
      if (Corps(Inclus) != Corps(Chemin)) Fleches[Corps(Chemin)].insert(Corps(Inclus));
      if (!Piece.empty() && Piece_De(Inclus) != Piece && !Permis(Piece, Inclus))
        Fautes += Chemin + " inclut " + Inclus + "\n";
    }
  }
  // What leads to no file that is left goes, until only circles, and what leads to them, are left.
  const auto Sort = [&](const auto& Un) {
    return std::ranges::none_of(Un.second, [&](const auto& Suivant) { return Fleches.contains(Suivant); });
  };
  while (std::erase_if(Fleches, Sort) > 0) continue;
  for (const auto& [Fichier, Suivants] : Fleches) Fautes += "cercle : " + Fichier + "\n";
  return Fautes;
}

/// The program's sources, without what only judges it.
Sources Lire_Le_Depot() {
  const std::set<std::string> Autour = {"build", "dist", "docs", "fuzz", "mesures", "outils", "tests"};
  Sources Toutes;
  for (auto I = fs::recursive_directory_iterator(RACINE); I != fs::recursive_directory_iterator(); ++I) {
    const fs::path Chemin = fs::relative(I->path(), RACINE);
    if (I.depth() == 0 && (Autour.contains(Chemin.string()) || Chemin.string().starts_with("."))) {
      I.disable_recursion_pending();
    } else if (Chemin.extension() == ".h" || Chemin.extension() == ".cpp") {
      std::stringstream Texte;
      Texte << std::ifstream(I->path()).rdbuf();
      Toutes[Chemin.generic_string()] = Texte.str();
    }
  }
  return Toutes;
}

TEST(Maison, Les_Inclusions_Vont_Dans_Un_Sens) {
  EXPECT_EQ(Fautes_De({{"galss/A.cpp", "#include <windows.h>"}}), "galss/A.cpp inclut windows.h\n");
  EXPECT_EQ(Fautes_De({{"ui/B.cpp", "#include \"update/C.h\""}}), "ui/B.cpp inclut update/C.h\n");
  EXPECT_EQ(Fautes_De({{"app/D.cpp", "#include \"windows/systeme/E.h\""}}), "app/D.cpp inclut windows/systeme/E.h\n");
  EXPECT_EQ(Fautes_De({{"simulator/F.h", "#include \"platform/Texte.h\""}}), "simulator/F.h inclut platform/Texte.h\n");
  EXPECT_EQ(Fautes_De({{"neuve/G.h", ""}}), "neuve/G.h n'est dans aucune pièce\n");
  EXPECT_EQ(Fautes_De({{"ui/H.h", "#include \"ui/I.h\""}, {"ui/I.cpp", "#include \"ui/H.h\""}}),
            "cercle : ui/H\ncercle : ui/I\n");
  EXPECT_EQ(Fautes_De({{"update/J.cpp", "#include \"update/J.h\"\n#include \"ui/FMain.h\"\n#include <string>"}}), "");
  const Sources Toutes = Lire_Le_Depot();
  EXPECT_GT(Toutes.size(), 100U);
  EXPECT_EQ(Fautes_De(Toutes), "");
}

}  // namespace
