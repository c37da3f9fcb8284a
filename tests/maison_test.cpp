// House rules that a machine can check, each with a bad sample that proves it fires.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace {

namespace fs = std::filesystem;

// A room includes itself and the rooms of lower rank. Graphic sits above the names that it reads.
int Rang(const std::string& Chemin) {
  const std::pair<const char*, int> Rangs[] = {
      {"platform/windows/", 90}, {"platform/", 0}, {"ui/controles/", 1}, {"Variables_Globales.h", 1},
      {"ui/Graphic", 5},         {"ui/", 3},       {"galss/", 3},        {"catalogue/Fichier_Logiciel", 4},
      {"catalogue/", 6},         {"download/", 7}, {"serial/", 7},       {"update/", 8},
      {"app/Pavorin.cpp", 91},   {"app/", 9}};
  for (const auto& [Debut, Valeur] : Rangs) {
    if (Chemin.starts_with(Debut)) return Valeur;
  }
  return -1;
}

/// What a source file breaks; empty when it keeps the rules.
std::string Verifier(const std::string& Chemin, const std::string& Texte) {
  std::string Fautes;
  const std::regex Inclusion("#include [<\"]([^>\"]+)[>\"]");
  for (auto I = std::sregex_iterator(Texte.begin(), Texte.end(), Inclusion); I != std::sregex_iterator(); ++I) {
    const std::string Inclus = (*I)[1];
    const bool Windows = Inclus == "windows.h" && Rang(Chemin) < 90;
    if (Windows || Rang(Inclus) > Rang(Chemin)) Fautes += Chemin + " inclut " + Inclus + "\n";
  }
  return Fautes;
}

TEST(Maison, Les_Inclusions_Vont_Dans_Un_Sens) {
  EXPECT_NE(Verifier("galss/A.cpp", "#include <windows.h>"), "");
  EXPECT_NE(Verifier("ui/FMain.cpp", "#include \"update/B.h\""), "");
  EXPECT_NE(Verifier("app/Application.cpp", "#include \"platform/windows/C.h\""), "");
  EXPECT_EQ(Verifier("update/A.cpp", "#include \"ui/FMain.h\"\n#include <string>"), "");
  int Lus = 0;
  for (const char* Piece : {"platform", "ui", "galss", "catalogue", "download", "serial", "update", "app"}) {
    for (const auto& Entree : fs::recursive_directory_iterator(fs::path(RACINE) / Piece)) {
      if (Entree.path().extension() != ".h" && Entree.path().extension() != ".cpp") continue;
      std::ifstream Fichier(Entree.path());
      std::stringstream Texte;
      Texte << Fichier.rdbuf();
      EXPECT_EQ(Verifier(fs::relative(Entree.path(), RACINE).generic_string(), Texte.str()), "");
      ++Lus;
    }
  }
  EXPECT_GT(Lus, 60);
}

}  // namespace
