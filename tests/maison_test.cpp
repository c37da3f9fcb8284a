// House rules that a machine can check, each with a bad sample that proves it fires.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using Sources = std::map<std::string, std::string>;  // path -> text

/// Each room, by the beginning of its paths, and what it may include beside itself. The longest beginning holds.
const std::map<std::string, std::vector<std::string>> Pieces = {
    {"platform/", {}},
    {"Variables_Globales.h", {"platform/"}},
    {"logiciel/", {"platform/"}},
    {"ui/controles/", {"platform/"}},
    {"ui/", {"platform/", "Variables_Globales.h", "logiciel/", "ui/controles/"}},
    {"galss/", {"platform/", "Variables_Globales.h", "ui/controles/"}},
    {"catalogue/", {"platform/", "Variables_Globales.h", "logiciel/", "ui/"}},
    {"download/", {"platform/", "Variables_Globales.h", "ui/", "galss/"}},
    {"serial/", {"platform/", "Variables_Globales.h", "ui/", "galss/"}},
    {"update/", {"platform/", "Variables_Globales.h", "logiciel/", "ui/", "galss/", "catalogue/", "download/"}},
    {"app/", {"platform/", "Variables_Globales.h", "ui/", "catalogue/", "serial/", "update/"}},
    {"app/Pavorin.cpp", {"platform/", "app/", "journal/", "windows/", "windows.h"}},
    {"journal/", {"platform/", "ui/controles/", "galss/", "download/"}},
    {"windows/systeme/", {"platform/", "windows.h"}},
    {"windows/fenetres/", {"platform/", "ui/controles/", "windows/systeme/", "windows.h"}},
    {"simulator/", {"platform/Octets.h", "platform/Bibliotheque_Galss.h"}},
    {"simulator/Galclw32_dll.cpp", {"simulator/", "windows.h"}},
};

/// Empty for a file in no room.
std::string Piece_De(const std::string& Chemin) {
  std::string Meilleure;
  for (const auto& [Debut, Permises] : Pieces) {
    if (Chemin.starts_with(Debut) && Debut.size() > Meilleure.size()) Meilleure = Debut;
  }
  return Meilleure;
}

std::vector<std::string> Inclus_Par(const std::string& Texte) {
  static const std::regex Inclusion("#include [<\"]([^>\"]+)[>\"]");
  std::vector<std::string> Tous;
  for (auto I = std::sregex_iterator(Texte.begin(), Texte.end(), Inclusion); I != std::sregex_iterator(); ++I)
    Tous.push_back((*I)[1]);
  return Tous;
}

/// A source and its header are one.
std::string Corps(const std::string& Chemin) {
  return Chemin.substr(0, Chemin.rfind('.'));
}

class Maison {
 public:
  explicit Maison(const Sources& Toutes) {
    for (const auto& [Chemin, Texte] : Toutes) Lire(Chemin, Texte);
    for (const auto& [Fichier, Suivants] : Fleches_) Suivre(Fichier);
  }
  /// What breaks the rules, one line each.
  std::string Fautes;

 private:
  void Lire(const std::string& Chemin, const std::string& Texte) {
    const std::string Piece = Piece_De(Chemin);
    if (Piece.empty()) Fautes += Chemin + " n'est dans aucune pièce\n";
    for (const auto& Inclus : Inclus_Par(Texte)) {
      // The headers of the language and of other tools, but for the one that only some rooms may know.
      if (Inclus != "windows.h" && Piece_De(Inclus).empty()) continue;
      Fleches_[Corps(Chemin)].insert(Corps(Inclus));
      if (!Piece.empty() && Piece_De(Inclus) != Piece && !Permis(Piece, Inclus))
        Fautes += Chemin + " inclut " + Inclus + "\n";
    }
  }
  static bool Permis(const std::string& Piece, const std::string& Inclus) {
    return std::ranges::any_of(Pieces.at(Piece), [&](const auto& Debut) {
      return Inclus.starts_with(Debut) && (Debut.ends_with(".h") || Piece_De(Inclus) != "app/Pavorin.cpp");
    });
  }
  void Suivre(const std::string& Fichier) {
    const auto Ici = std::ranges::find(Chemin_, Fichier);
    if (Ici != Chemin_.end()) {
      Fautes += "cercle :";
      for (auto I = Ici; I != Chemin_.end(); ++I) Fautes += " " + *I;
      Fautes += "\n";
    } else if (Vus_.insert(Fichier).second) {
      Chemin_.push_back(Fichier);
      for (const auto& Suivant : Fleches_[Fichier]) {
        if (Suivant != Fichier) Suivre(Suivant);
      }
      Chemin_.pop_back();
    }
  }

  std::map<std::string, std::set<std::string>> Fleches_;
  std::set<std::string> Vus_;
  std::vector<std::string> Chemin_;  // from the first file to the one being followed
};

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

std::string Fautes_De(const Sources& Toutes) {
  return Maison(Toutes).Fautes;
}

TEST(Maison, Les_Inclusions_Vont_Dans_Un_Sens) {
  EXPECT_EQ(Fautes_De({{"galss/A.cpp", "#include <windows.h>"}}), "galss/A.cpp inclut windows.h\n");
  EXPECT_EQ(Fautes_De({{"ui/B.cpp", "#include \"update/C.h\""}}), "ui/B.cpp inclut update/C.h\n");
  EXPECT_EQ(Fautes_De({{"app/D.cpp", "#include \"windows/systeme/E.h\""}}), "app/D.cpp inclut windows/systeme/E.h\n");
  EXPECT_EQ(Fautes_De({{"simulator/F.h", "#include \"platform/Texte.h\""}}), "simulator/F.h inclut platform/Texte.h\n");
  EXPECT_EQ(Fautes_De({{"neuve/G.h", ""}}), "neuve/G.h n'est dans aucune pièce\n");
  EXPECT_EQ(Fautes_De({{"ui/H.h", "#include \"ui/I.h\""}, {"ui/I.cpp", "#include \"ui/H.h\""}}),
            "cercle : ui/H ui/I\n");
  EXPECT_EQ(Fautes_De({{"update/J.cpp", "#include \"update/J.h\"\n#include \"ui/FMain.h\"\n#include <string>"}}), "");
  const Sources Toutes = Lire_Le_Depot();
  EXPECT_GT(Toutes.size(), 100U);
  EXPECT_EQ(Fautes_De(Toutes), "");
}

}  // namespace
