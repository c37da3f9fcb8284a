#pragma once
// What the end-to-end tests share: a PC each, named after the test, and the reader's judgement.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "tests/bout_en_bout/Poste.h"

inline const std::string Entete = "PROCEDURE DE CHARGEMENT\n=========================\nConnexion en cours ... \n";
inline const std::string Terminal = "i OK : Impossible de télécharger ce type de terminal !";
inline const std::string Confirmation = "? Oui Non : Confirmez-vous la mise à jour du ou des fichiers ci-dessous :\r\n";

class Cas : public testing::Test, protected Poste {
  /// Accents and blanks are in every path; the same test may run on several screens at once.
  static std::string Nom_Du_Test() {
    std::string Nom = testing::UnitTest::GetInstance()->current_test_info()->name();
    for (const char* Ecran : {"PAVORIN_DPI", "PAVORIN_POLICE"})
      if (const char* const Reglage = std::getenv(Ecran)) Nom += std::string(" ") + Reglage;
    std::ranges::replace(Nom, '/', ' ');
    return Nom;
  }

 protected:
  Cas() : Poste(Programmes() / Chemin("Vérification à l'écran") / Nom_Du_Test()) {}

  void TearDown() override {
    if (!HasFailure()) return;
    ::Photographier({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}, Dossier / "echec.png");
    const std::string Dernieres = Trace();
    ADD_FAILURE() << Etape << "\nVolet :\n"
                  << (FMain ? Volet() : "") << "\nLecteur :\n"
                  << Dernieres.substr(Dernieres.size() - std::min<std::size_t>(1500, Dernieres.size()));
  }

  /// Which of its cases a test is at, told with a failure.
  std::string Etape;

  /// The box holds exactly that, and the main window waits for its answer.
  void Repondre(std::string_view Titre, const std::string& Tout, std::string_view Bouton = "OK") {
    Boite_Vue Ouverte = Boite(Titre);
    // Looked at while it is painted, the icon is taken for another.
    for (int Essai = 0; Ouverte.Tout != Tout && Essai < 40; ++Essai) {
      Sleep(50);
      Ouverte = Boite(Titre);
    }
    EXPECT_EQ(Ouverte.Tout, Tout);
    EXPECT_FALSE(FMain.Actif());
    Ouverte.Repondre(Bouton);
  }

  void Mettre_A_Jour(const std::string& Liste, std::string_view Reponse = "Oui") {
    Demander_Mise_A_Jour();
    Repondre("TELECHARGER", Confirmation + Liste, Reponse);
  }

  /// The reader's record: these files, and no fault of the program.
  void Juger(const std::vector<std::string>& Voulus) {
    Attendre("fichiers reçus", [&] { return Recus().size() >= Voulus.size(); });
    const auto Lus = Recus();
    ASSERT_EQ(Lus.size(), Voulus.size());
    for (std::size_t I = 0; I < Lus.size(); ++I) EXPECT_TRUE(Lus[I] == Voulus[I]) << I << ": " << Lus[I].size();
    EXPECT_EQ(Trace().find("FAUTE"), std::string::npos);
    EXPECT_EQ(Trace().find("SCENARIO: ligne"), std::string::npos);
  }

  /// By a start with "/journal".
  fs::path Journal_Ecrit() const {
    const fs::directory_iterator Tous(Dossier);
    const auto Lui = std::find_if(begin(Tous), end(Tous), [](const auto& F) {
      return F.path().extension() == ".journal" && F.path().filename().string().starts_with("Pavorin-");
    });
    return Lui == end(Tous) ? throw Pas_Venu("journal") : Lui->path();
  }

  void Verifier_Utilisable() {
    Attendre("fenêtre principale active", [&] { return FMain.Actif() && FMain["CmdQuitter"].Actif(); });
  }
};
