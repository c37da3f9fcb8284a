// The simulated reader is the judge of every other test: these prove that it condemns each fault
// and only faults.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "simulator/Galss_Simulee.h"

namespace {

Octets De(const std::string& Texte) {
  return {Texte.begin(), Texte.end()};
}

/// A program that follows the rules, unless the test says otherwise.
struct Programme {
  explicit Programme(const std::string& Texte) : Lecteur(Scenario_De(Texte)), Galss(Lecteur) {}

  void Connecter() {
    Octets Nom =
               De("T\xE9l\xE9"
                  "chargement"),
           LAD = De("Log_SV"), Texte = De("3:1");
    std::int16_t Info = 0;
    EXPECT_EQ(Galss.OuvrirSession(Nom, LAD, Session, Info), 0);
    EXPECT_EQ(Galss.DebutExclusivite(Texte, Nom, LAD, Exclusivite), 0);
  }
  std::int16_t Envoyer(Octets Trame, std::size_t Capacite) {
    Reponse.assign(Capacite, ' ');
    Longueur = static_cast<std::int32_t>(Capacite);
    auto Envoi = static_cast<std::int32_t>(Trame.size());
    const auto Code = Galss.Echange(Session, 0, Trame, Envoi, Reponse, Longueur);
    return Code != 64 ? Code : Galss.Echange(Session, 0, Trame, Envoi, Reponse, Longueur);
  }
  std::int16_t Lire() { return Envoyer({1, 0, 0, 0x94}, 2048); }
  std::int16_t Demander(const std::string& Suite, bool Chargement) {
    return Envoyer(De((Chargement ? Entete_C + '\1' : Entete_T + '\x99') + Fin(Chargement) + Suite),
                   3);
  }
  std::int16_t Bloc(int Type, std::size_t Taille, bool Chargement) {
    auto Trame = De((Chargement ? Entete_C + '\2' : Entete_T + '\x98') + Fin(Chargement));
    Trame.push_back(static_cast<std::uint8_t>(Type));
    Trame.resize(Trame.size() + Taille, static_cast<std::uint8_t>(Type + 1));
    return Envoyer(Trame, 2);
  }
  /// 5000 bytes at 2043 per block.
  void Charger(bool Chargement) {
    Demander("0000005000", Chargement);
    Bloc(0x01, 2043, Chargement);
    Bloc(0x00, 2043, Chargement);
    Bloc(0x10, 914, Chargement);
  }
  static std::string Fin(bool Chargement) { return Chargement ? "\1\xFF\xFF" : ""; }

  const std::string Entete_T{"\1\0\0", 3}, Entete_C{"\xFF\1\3"};
  Lecteur_Simule Lecteur;
  Galss_Simulee Galss;
  std::int16_t Session = 0, Exclusivite = 0;
  Octets Reponse;
  std::int32_t Longueur = 0;
};

TEST(Simulateur, Charge_Noyau_Et_Application_Dans_Chaque_Famille) {
  for (const bool Chargement : {false, true}) {
    Programme P("lectures_muettes = 2; type_os_apres_noyau = 04; num_version_apres_appli = 0210");
    P.Connecter();
    EXPECT_EQ(P.Lire(), 0);
    EXPECT_EQ(P.Longueur, 118);
    EXPECT_EQ(std::string(P.Reponse.begin() + 66, P.Reponse.begin() + 68), "03");
    P.Charger(Chargement);
    EXPECT_EQ(P.Lire(), 1024);
    EXPECT_EQ(P.Lire(), 1024);
    EXPECT_EQ(P.Lire(), 0);
    EXPECT_EQ(std::string(P.Reponse.begin() + 66, P.Reponse.begin() + 68), "04");
    P.Charger(Chargement);
    EXPECT_EQ(P.Lecteur.Identite()[Champ::NumVersion], De("0210"));
    EXPECT_EQ(P.Galss.FinExclusivite(P.Exclusivite), 0);
    EXPECT_EQ(P.Galss.FermerSession(P.Session, P.Exclusivite), 0);
    EXPECT_TRUE(P.Lecteur.Fautes().empty()) << P.Lecteur.Fautes().front();
    ASSERT_EQ(P.Lecteur.Fichiers().size(), 2u);
    for (const auto& Fichier : P.Lecteur.Fichiers()) {
      EXPECT_TRUE(Fichier.Complet() && Fichier.Accepte);
      EXPECT_EQ(Fichier.Contenu[2042], 2);
      EXPECT_EQ(Fichier.Contenu[2043], 1);
    }
    EXPECT_TRUE(P.Lecteur.Fichiers()[0].Noyau && !P.Lecteur.Fichiers()[1].Noyau);
  }
}

TEST(Simulateur, Condamne_Chaque_Faute) {
  struct Cas {
    const char* Reproche;
    std::function<void(Programme&)> Faire;
  };
  const Cas Tous[] = {
      {"bloc sans demande", [](auto& P) { P.Bloc(1, 10, false); }},
      {"version", [](auto& P) { P.Demander("0127005000", true); }},
      {"six chiffres", [](auto& P) { P.Demander("0000 05000", false); }},
      {"trame inconnue",
       [](auto& P) {
         P.Envoyer({1, 0, 0, 0x97}, 2);
       }},
      {"capacité",
       [](auto& P) {
         P.Envoyer({1, 0, 0, 0x94}, 118);
       }},
      {"premier bloc", [](auto& P) { P.Demander("0000005000", false), P.Bloc(0, 2043, false); }},
      {"dernier bloc", [](auto& P) { P.Demander("0000000010", true), P.Bloc(1, 10, true); }},
      {"2042 octets", [](auto& P) { P.Demander("0000005000", true), P.Bloc(1, 2042, true); }},
      {"11 octets", [](auto& P) { P.Demander("0000000010", true), P.Bloc(0x11, 11, true); }},
      {"type de bloc", [](auto& P) { P.Demander("0000005000", true), P.Bloc(3, 2043, true); }},
      {"autre famille", [](auto& P) { P.Demander("0000005000", true), P.Bloc(1, 2043, false); }},
      {"après la fin", [](auto& P) { P.Charger(false), P.Bloc(0x10, 914, false); }},
      {"sans avoir attendu", [](auto& P) { P.Charger(false), P.Charger(false); }},
      {"avant la fin",
       [](auto& P) { P.Demander("0000005000", true), P.Demander("0000000000", true); }},
      {"deux familles",
       [](auto& P) { P.Charger(true), P.Lire(), P.Lire(), P.Lire(), P.Charger(false); }},
      {"sans exclusivité", [](auto& P) { P.Galss.FinExclusivite(P.Exclusivite), P.Lire(); }},
      {"hors session", [](auto& P) { P.Session = 4, P.Lire(); }},
      {"sans avoir libéré", [](auto& P) { P.Galss.FermerSession(P.Session, P.Exclusivite); }},
  };
  for (const auto& C : Tous) {
    Programme P("");
    P.Connecter();
    C.Faire(P);
    ASSERT_FALSE(P.Lecteur.Fautes().empty()) << C.Reproche;
    EXPECT_NE(P.Lecteur.Fautes().front().find(C.Reproche), std::string::npos)
        << P.Lecteur.Fautes().front();
  }
}

}  // namespace
