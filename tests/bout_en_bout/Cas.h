#pragma once
// What the end-to-end tests share: a PC each, named after the test, and the reader's judgement.

#include <gtest/gtest.h>

#include "tests/bout_en_bout/Poste.h"

inline const std::string Entete = "PROCEDURE DE CHARGEMENT\n=========================\nConnexion en cours ... \n";
inline const std::string Terminal = "OK : Impossible de télécharger ce type de terminal !";
inline const std::string Confirmation = "Oui Non : Confirmez-vous la mise à jour du ou des fichiers ci-dessous :\r\n";
inline const std::string Les_Deux = Noyau + "\n\r" + Appli + "\n\r";

/// Accents and blanks are in every path.
class Cas : public testing::Test, protected Poste {
 protected:
  Cas()
      : Poste(Programmes() / Chemin("Vérification à l'écran") /
              testing::UnitTest::GetInstance()->current_test_info()->name()) {}

  void TearDown() override {
    if (!HasFailure()) return;
    Photographier({GetDesktopWindow()}, Dossier / "echec.png");
    ADD_FAILURE() << "Volet :\n" << (IsWindow(FMain.Poignee) ? Volet() : "") << "\nLecteur :\n" << Trace();
  }

  /// The box holds exactly that, and the main window waits for its answer.
  void Repondre(std::string_view Titre, const std::string& Tout, std::string_view Bouton = "OK") {
    const Boite_Vue Ouverte = Boite(Titre);
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
    EXPECT_TRUE(Recus() == Voulus);
    for (const char* Faute : {"FAUTE", "SCENARIO: ligne"}) EXPECT_EQ(Trace().find(Faute), std::string::npos);
  }

  /// By a start with "/journal".
  fs::path Journal_Ecrit() const {
    for (const auto& Fichier : fs::directory_iterator(Dossier)) {
      if (Fichier.path().extension() == ".journal") return Fichier.path();
    }
    throw Pas_Venu("journal");
  }

  void Quitter() {
    FMain["CmdQuitter"].Cliquer();
    EXPECT_EQ(Attendre_Fin(), 0U);
  }
  void Verifier_Utilisable() {
    Attendre("fenêtre principale active", [&] { return FMain.Actif() && FMain["CmdQuitter"].Actif(); });
  }
};
