// The simulated reader is the judge of every other test: these prove that it condemns each fault,
// and only faults, and that every fault of a scenario reaches the program as written.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "simulator/Galss_Simulee.h"
#include "simulator/Lecteur_Serie.h"
#include "tests/Table.h"

namespace {

/// A program whose conversation is a text of steps: L reads the configuration; Dt sends a request
/// and its ten digits; Bt a block, its type and its size; Kt a file of 5000 bytes at 2043 a block;
/// c instead of t for the second family; F frees the exclusivity, X closes the session; ~ spoils the
/// repetitions to come: their command (c), its length (l), the reply (r) or its length (k).
/// Each step answers "code/length:first bytes".
class Programme {
 public:
  explicit Programme(const std::string& Texte) : Lecteur(Scenario_De(Texte)), Galss_(Lecteur) { Connecter(); }

  void Connecter() {
    Octets Nom = Lire_Caracteres("Téléchargement"), LAD = Lire_Caracteres("Log_SV");
    Octets Texte_Exclusivite = Lire_Caracteres("3:1");
    std::int16_t Info = 0;
    Galss_.OuvrirSession(Nom, LAD, Session, Info);
    Galss_.DebutExclusivite(Texte_Exclusivite, Nom, LAD, Exclusivite_);
  }

  std::string Jouer(const std::string& Pas) {
    std::istringstream Suite(Pas);
    std::string Reponses;
    for (std::string Mot; Suite >> Mot;) Reponses += Mot[0] == 'K' ? Charger(Mot[1]) : Un_Pas(Mot) + "; ";
    return Reponses;
  }

  Lecteur_Simule Lecteur;
  std::int16_t Session = 0;

 private:
  std::string Charger(char Famille) {
    std::string Pas = "D?0000005000 B?01:2043 B?00:2043 B?10:914";
    std::replace(Pas.begin(), Pas.end(), '?', Famille);
    return Jouer(Pas);
  }

  std::string Un_Pas(const std::string& Mot) {
    const bool Seconde = Mot.size() > 1 && Mot[1] == 'c';
    switch (Mot[0]) {
      case '~':
        return {Gate_ = Mot[1]};
      case 'F':
        return std::to_string(Galss_.FinExclusivite(Exclusivite_));
      case 'X':
        return std::to_string(Galss_.FermerSession(Session, Exclusivite_));
      case 'L':
        return Envoyer(Lire_Hexa("01 00 00 94"), 2048);
      case 'D': {
        auto Trame = Lire_Hexa(Seconde ? "FF 01 03 01 01 FF FF" : "01 00 00 99");
        Trame.insert(Trame.end(), Mot.begin() + 2, Mot.end());
        return Envoyer(Trame, 3);
      }
      default: {
        auto Trame = Lire_Hexa((Seconde ? "FF 01 03 02 01 FF FF " : "01 00 00 98 ") + Mot.substr(2, 2));
        Trame.resize(Trame.size() + std::stoul(Mot.substr(5)), static_cast<std::uint8_t>(Mot[2]));
        return Envoyer(Trame, 2);
      }
    }
  }

  std::string Envoyer(Octets Trame, std::size_t Capacite) {
    Octets Reponse(Capacite, ' ');
    auto Envoi = static_cast<std::int32_t>(Trame.size()), Retour = static_cast<std::int32_t>(Capacite);
    auto Code = Galss_.Echange(Session, 0, Trame, Envoi, Reponse, Retour);
    if (Code == 64) {
      Trame.back() ^= Gate_ == 'c';
      Envoi -= Gate_ == 'l';
      Reponse.back() ^= Gate_ == 'r';
      Retour -= Gate_ == 'k';
      Code = Galss_.Echange(Session, 0, Trame, Envoi, Reponse, Retour);
    }
    return std::to_string(Code) + "/" + std::to_string(Retour) + ":" + Ecrire_Hexa(Vue_Octets(Reponse).first(2), 2);
  }

  Galss_Simulee Galss_;
  std::int16_t Exclusivite_ = 0;
  char Gate_ = 0;
};

TEST(Simulateur, Condamne_Chaque_Faute) {
  for (const auto& C : Lire_Table("fautes.txt")) {
    Programme P(C.size() < 3 ? "" : "defaut = " + C[2]);
    P.Jouer(C[0]);
    ASSERT_FALSE(P.Lecteur.Fautes().empty()) << C[0];
    EXPECT_NE(P.Lecteur.Fautes().front().find(C[1]), std::string::npos) << P.Lecteur.Fautes().front();
  }
}

TEST(Simulateur, Condamne_D_Autres_Noms_Que_Ceux_Laisses) {
  const auto Fautes = [](const char* Nom_Application, const char* Nom_LAD, const char* Nom_Exclusivite) {
    Lecteur_Simule Lecteur(Scenario_De("defaut = OuvrirSession 1 : code 8192 noms X; lad = LOG_SV"));
    Octets Application = Lire_Caracteres("Téléchargement"), LAD = Lire_Caracteres("Log_SV"), Texte{'3', ':', '1'};
    std::int16_t Numero = 0, Info = 0;
    Lecteur.OuvrirSession(Application, LAD, Numero, Info);
    Application = Lire_Caracteres(Nom_Application), LAD = Lire_Caracteres(Nom_LAD);
    Lecteur.OuvrirSession(Application, LAD, Numero, Info);
    Application = Lire_Caracteres(Nom_Exclusivite);
    Lecteur.DebutExclusivite(Texte, Application, LAD, Numero);
    return Lecteur.Fautes().size();
  };
  EXPECT_EQ(Fautes("Xéléchargement", "LOG_SV", "Xéléchargement"), 0u);
  EXPECT_EQ(Fautes("Téléchargement", "LOG_SV", "Téléchargement"), 1u);
  EXPECT_EQ(Fautes("Xéléchargement", "XOG_SV", "Xéléchargement"), 2u) << "spelled wrong, so not opened";
  EXPECT_EQ(Fautes("Xéléchargement", "LOG_SV", "Téléchargement"), 1u);
}

TEST(Simulateur, Chaque_Defaut_Atteint_Le_Programme) {
  const char* const Cas[][3] = {
      {"lecture 2 fois 2 : code 0x8004", "L L L L", "0/118:00 49; -32764/2048:20 20; -32764/2048:20 20; 0/118:00 49; "},
      {"demande 1 : refus", "Dt0000000010", "0/2:01 32; "},
      {"demande 1 : refus", "Dc0000000010", "0/2:00 92; "},
      {"demande 1 : longueur capacite+1", "Dt0000000010", "0/4:00 00; "},
      {"appel 4 : technique 131", "Dc0000000010 Bc11:10", "0/3:00 02; 0/2:01 83; "},
      {"bloc 1 : code 64 livre noms X", "Dt0000000010 Bt11:10 L", "0/3:00 00; 0/2:00 00; 1024/2048:20 20; "},
      {"bloc 1 : code 64; defaut = bloc 1 : refus 0x97", "Dc0000000010 Bc11:10", "0/3:00 02; 0/2:00 97; "},
      {"FermerSession 1 : code 4", "F X", "0; 4; "}};
  for (const auto& [Defaut, Pas, Attendu] : Cas) {
    Programme P("defaut = " + std::string(Defaut));
    EXPECT_EQ(P.Jouer(Pas), Attendu) << Defaut;
    EXPECT_EQ(P.Lecteur.Fautes(), std::vector<std::string>()) << Defaut;
  }
}

TEST(Simulateur, Scenario_Dit_La_Ligne_Fausse_Et_Garde_Les_Autres) {
  const auto Lu = Lire_Scenario(
      "\xEF\xBB\xBF# lecteur\r\ntype_os = 04\r\ntaille_bloc = 300\nfoo = 1\ndefaut = bloc "
      "3\ndefaut = bloc 3 : refuse\nrien\n");
  ASSERT_EQ(Lu.Erreurs.size(), 5u);
  EXPECT_EQ(Lu.Erreurs[0], "ligne 3 : nombre de 0 à 255 attendu au lieu de \"300\"");
  EXPECT_EQ(Lu.Erreurs[4].substr(0, 8), "ligne 7 ");
  EXPECT_EQ(Lu.Contenu.Identite[Champ::TypeOS], Lire_Caracteres("04"));
  for (const auto& Fichier : std::filesystem::directory_iterator(RACINE "/simulator/scenarios")) {
    std::ostringstream Texte;
    Texte << std::ifstream(Fichier.path()).rdbuf();
    EXPECT_NO_THROW(Scenario_De(Texte.str())) << Fichier.path();
  }
}

TEST(Simulateur, Bout_Serie) {
  const auto Essai = Lire_Hexa("2F C0 04 00 14 00 C8 A4 FC"), Config = Lire_Hexa("2F 40 04 01 00 00 94 A0 9B");
  Lecteur_Serie Lecteur(Scenario_De("vitesses = 9600, 19200; morceaux = 5; debranche_apres = 3"));
  EXPECT_TRUE(Lecteur.Recevoir(Essai, 4800).Morceaux.empty());
  EXPECT_TRUE(Lecteur.Recevoir(Vue_Octets(Essai).first(4), 9600).Morceaux.empty());
  EXPECT_EQ(Lecteur.Recevoir(Vue_Octets(Essai).subspan(4), 9600).Morceaux,
            (std::vector<Octets>{Lire_Hexa("F2 E0 04 00 14"), Lire_Hexa("00 C8 59 A3")}));
  EXPECT_EQ(Lecteur.Recevoir(Config, 19200).Morceaux.size(), 25u);
  EXPECT_TRUE(Lecteur.Fautes().empty());
  EXPECT_TRUE(Lecteur.Recevoir(Essai, 9600).Debranche);
  Lecteur.Recevoir(Lire_Hexa("2F C0 04 00 14 00 C8 A4 FD"), 9600);
  EXPECT_EQ(Lecteur.Fautes(), std::vector<std::string>{"octets de contrôle faux"});
  Lecteur_Serie Etrange(Scenario_De("silence = test; longueur_config = 124; bruit_avant = AA; constructeur = AUTRE"));
  EXPECT_TRUE(Etrange.Recevoir(Essai, 9600).Morceaux.empty());
  const auto Reponse = Etrange.Recevoir(Config, 9600).Morceaux.at(0);
  EXPECT_EQ(Reponse.size(), 125u);
  EXPECT_EQ(std::string(Reponse.begin() + 5, Reponse.begin() + 10), "AUTRE");
  EXPECT_EQ(Crc_Kermit(Vue_Octets(Reponse).subspan(1)), 0);
}

}  // namespace
