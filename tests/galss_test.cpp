// Session, exchanges, configuration: what becomes of each answer of the library. The simulated reader judges
// what goes to it.

#include <gtest/gtest.h>

#include "download/Chargement.h"
#include "galss/Config_Lecteur.h"
#include "galss/End_Process_Galls.h"
#include "galss/Lecture_Config.h"
#include "tests/Machine_De_Test.h"
#include "tests/Table.h"

namespace {

const std::string Inconnue = "Erreur GALSS 4096 : La session est inconnue";
const std::vector<std::string> Sans_Faute;

/// The operations, one by one, on the reader of a scenario.
struct Operations : Poste_De_Test {
  explicit Operations(const std::string& Scenario) : Poste_De_Test(Scenario) { TxtDetails.Texte("pane"); }
  /// L reads the configuration; D requests a load, B loads its one block; d and b by the second family.
  int Faire(char Quoi) {
    const Octets Donnees = {'a', 0, 'c'};
    switch (Quoi) {
      case 'L':
        return Lecture_Config_Lecteur(Liaison, Configuration, Message);
      case 'D':
        return Demande_Telechargement(Liaison, "0000", 3, Taille, Message);
      case 'd':
        return Demande_Chargement(Liaison, "0000", 3, Taille, Message);
      case 'B':
        return Bloc_Telechargement(Liaison, {true, true}, Donnees, Message);
      default:
        return Bloc_Chargement(Liaison, {true, true}, Donnees, Message);
    }
  }
  Session_Galss Etat;
  Champ_Texte& TxtDetails = App.F.FMain.TxtDetails;
  Connect_Deconnect Connexions{Galss, Etat, TxtDetails};
  Liaison_Galss Liaison{Galss, Etat};
  Octets Configuration;
  std::int32_t Taille = -7;
  std::string Message = "avant";
};

TEST(Galss, Connexion_Et_Deconnexion) {
  const std::string Exclusif = "Erreur GALSS 4 : LAD pris en exclusivité par une autre application";
  const std::string Reussie = "Connexion Réussie.", Finie = "Déconnexion Réussie";
  const struct {
    std::string Scenario;
    int Connexion;
    std::string Message;
    int Deconnexion;
    std::string Fin;
  } Cas[] = {
      {"", 0, Reussie, 0, Finie},
      {"lad = LOG_SV; session = -5", 0, Reussie, 0, Finie},
      {"lad = log_SV; session = 12", 0, Reussie, 0, Finie},
      {"lad = autre", 8192, "Erreur GALSS 8192 : avant", 0, ""},
      {"defaut = OuvrirSession : code 8192; defaut = OuvrirSession 2 : code 4096", 4096, Inconnue, 0, ""},
      {"defaut = OuvrirSession : code 4096", 4096, Inconnue, 0, ""},
      {"defaut = DebutExclusivite : code 4", 4, Exclusif, 0, ""},
      // The library writes over the names: only the LAD is spelled anew.
      {R"(lad = LOG_SV; defaut = OuvrirSession : code 8192 noms A\xC9; defaut = OuvrirSession 2 : noms B;
        defaut = DebutExclusivite : noms C)",
       0, Reussie, 0, Finie},
      {"defaut = FinExclusivite : code 4", 0, Reussie, 0, Finie},
      {"defaut = FinExclusivite : code 4; defaut = FermerSession : code 8192", 0, Reussie, 8192,
       "Erreur GALSS 8192 : " + Exclusif},
      {"defaut = FermerSession : code 8192", 0, Reussie, 8192, "Erreur GALSS 8192 : avant"},
      {"defaut = FermerSession : code 4096", 0, Reussie, 4096, Inconnue},
  };
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Scenario);
    Operations P(C.Scenario);
    EXPECT_EQ(P.Connexions.Connexion(P.Message), C.Connexion);
    EXPECT_EQ(P.Message, C.Message);
    EXPECT_EQ(P.Pane(), "pane" + C.Message + "\r\n");
    EXPECT_EQ(P.Etat.Code_Retour, C.Connexion);
    if (C.Connexion == 0) {
      P.TxtDetails.Texte("pane");
      P.Message = "avant";
      P.Connexions.Deconnexion(P.Message);
      EXPECT_EQ(P.Message, C.Fin);
      EXPECT_EQ(P.Pane(), C.Deconnexion == 0 ? "pane\r\n" + Finie : "pane");
      EXPECT_EQ(P.Etat.Code_Retour, C.Deconnexion);
    }
    EXPECT_EQ(P.Lecteur.Fautes(), Sans_Faute);
  }
}

// A reply a line: operation, replies, status, size of the blocks, message.
TEST(Galss, Chaque_Reponse) {
  for (const auto& C : Lire_Table("reponses.txt")) {
    SCOPED_TRACE(C[1]);
    const char Quoi = C[0][0];
    const bool Bloc = Quoi == 'B' || Quoi == 'b';
    std::string Scenario;
    for (const auto Une : Decouper(C[1], '/'))
      Scenario += (Quoi == 'L' ? "defaut = lecture : "
                   : Bloc      ? "defaut = bloc : "
                               : "defaut = demande : ") +
                  std::string(Une) + "\n";
    Operations P(Scenario);
    P.Connexions.Connexion(P.Message);
    if (Bloc) P.Faire(Quoi == 'B' ? 'D' : 'd');
    P.Message = "avant";
    P.Taille = -7;
    EXPECT_EQ(P.Faire(Quoi), std::stoi(C[2]));
    EXPECT_EQ(P.Taille, std::stoi(C[3]));
    EXPECT_EQ(P.Message, C[4]);
    EXPECT_EQ(P.Etat.Code_Retour, std::stoi(C[2]));
    EXPECT_EQ(P.Lecteur.Fautes(), Sans_Faute);
    EXPECT_EQ(P.Configuration.size(), Quoi == 'L' ? 2048 : 0);
  }
}

TEST(Galss, Une_Longueur_Qui_Ne_Peut_Etre_Annoncee) {
  Operations P("");
  for (const std::int64_t Longueur : {-1LL, 1000000LL, 1LL << 40}) {
    EXPECT_THROW(Demande_Telechargement(P.Liaison, "0000", Longueur, P.Taille, P.Message), Erreur);
    EXPECT_THROW(Demande_Chargement(P.Liaison, "0000", Longueur, P.Taille, P.Message), Erreur);
  }
  EXPECT_EQ(P.Lecteur.Nombre(Cible::Appel), 0);
}

// As the reader's configuration window shows them, from a reply that ends anywhere.
TEST(Galss, Champs_De_La_Configuration) {
  Horloge_De_Test Temps;
  const std::string Fiche =
      "\x01"
      "INGENICO       LECTEUR BIFENTE 2.0M-XA-V2WXYZ  N\xB0 42             03Vitale  A                "
      "     0 2720050315143012 4";
  const auto Montrer = [&](std::size_t Taille, std::string Mois = "03") {
    std::string Reponse = Fiche, Champs;
    Reponse.replace(106, 2, Mois);
    const Octets Lus(Reponse.begin(), Reponse.begin() + static_cast<std::ptrdiff_t>(Taille));
    for (int I = 0; I < 9; ++I) {
      try {
        Champs += Afficher_Champ(Lus, Avant_Config_Galss, static_cast<Champ_Config>(I), Temps) + "|";
      } catch (const Erreur& Levee) {
        Champs += std::to_string(Levee.Numero()) + " " + Levee.Description() + "|";
      }
    }
    return Champs;
  };
  const std::string Debut = "INGENICO|LECTEUR BIFENTE 2.0M-XA-V2|N° 42|03|Vitale  A|.27|";
  EXPECT_EQ(Fiche.size(), 118U);
  EXPECT_EQ(Montrer(118), Debut + "15 mars 2005|14:30|12 4|");
  EXPECT_EQ(Montrer(113), Debut + "15 mars 2005|14:3||") << Fiche.substr(0, 113);
  EXPECT_EQ(Montrer(20), "INGENICO|LECT||||.|13 Mois incorrect : |:||");
  EXPECT_EQ(Montrer(0), "|||||.|13 Mois incorrect : |:||");
  for (const auto& [Mois, Montre] :
       std::initializer_list<std::pair<const char*, std::string>>{{"01", "15 janvier 2005"},
                                                                  {"12", "15 décembre 2005"},
                                                                  {" 2", "15 février 2005"},
                                                                  {"00", "5 Mois incorrect : 00"},
                                                                  {"13", "5 Mois incorrect : 13"},
                                                                  {"1x", "13 Mois incorrect : 1x"},
                                                                  {"  ", "13 Mois incorrect :   "}}) {
    EXPECT_EQ(Montrer(118, Mois), Debut + Montre + "|14:30|12 4|");
  }
}

TEST(Galss, Arret_Du_Serveur) {
  const char* Noms[] = {
      "C:\\WINDOWS\\GALSVW32.EXE", "c:\\windows\\galsvw32.exe", "galsvw32.exe", "GALSVW32.EXE", "xgalsvw32.exe",
      "galsvw32.exe.bak"};
  Pannes P;
  Processus_De_Test Processus(P);
  for (std::uint32_t I = 0; I < std::size(Noms); ++I) Processus.Actifs.push_back({I, Noms[I]});
  Arret_Galss(Processus);
  EXPECT_EQ(Processus.Termines, (std::vector<std::uint32_t>{0, 2, 3}));
}

}  // namespace
