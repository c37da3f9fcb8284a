// Session, exchanges, configuration: what becomes of each answer of the library. The simulated reader judges
// what goes to it.

#include <gtest/gtest.h>

#include "download/Chargement.h"
#include "galss/Config_Lecteur.h"
#include "galss/End_Process_Galls.h"
#include "galss/Lecture_Config.h"
#include "simulator/Lecture_Texte.h"
#include "tests/Machine_De_Test.h"

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
      {R"(lad = LOG_SV; defaut = OuvrirSession : code 8192 noms A\xC9; defaut = DebutExclusivite : noms C)", 0, Reussie,
       0, Finie},
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

TEST(Galss, Chaque_Reponse) {
  const std::string Galss_1 = "Erreur GALSS -1 : Longueur de message reçue incorrecte";
  const std::string Galss_64 = "Erreur GALSS 64 : Transfert abandonné par le matériel", T = "Erreur de Téléchargement ";
  const std::string Accord = "Etat Final2 : Accord de mise à jour";
  const struct {
    char Quoi;
    std::string Reponses;  // call by call
    int Statut, Taille;
    std::string Message;
  } Cas[] = {
      {'L', "code 0", 0, -7, "avant"},
      {'L', "code 64 / code 0", 0, -7, "avant"},
      {'L', "code 64 / code 64", 64, -7, Galss_64},
      {'L', "octets 00 34", 52, -7, T + "52:Format de logiciel incorrect"},
      {'L', "octets 00 00", 0, -7, T + "0:avant"},
      {'L', "longueur 1 octets 00 34", 0, -7, "avant"},
      {'L', "longueur 3 octets 00 34", 0, -7, "avant"},
      {'L', "longueur 50", 0, -7, "avant"},
      {'L', "vide longueur 99999", 0, -7, "avant"},
      {'L', "code 64 longueur 99999 / vide longueur -7", 0, -7, "avant"},
      {'L', "code 64 longueur -7 / code 0", 16, -7, "Erreur GALSS 16 : Taille du message de réponse trop petite"},
      {'D', "octets 07 07 04", 0, 4096, "avant"},
      {'D', "octets 09 33", 51, -7, T + "51:Version logicielle déjà chargée ou incorrecte"},
      {'D', "octets 09 00", 0, -7, T + "0:avant"},
      {'D', "code 1024 longueur 0", -1, -7, Galss_1},
      {'D', "code 512 longueur 3", 512, -7, "Erreur GALSS 512 : Erreur protocole"},
      {'D', "longueur 4", -1, -7, Galss_1},
      {'D', "longueur 99999", -1, -7, Galss_1},
      {'D', "longueur -3", -1, -7, Galss_1},
      {'D', "code 64 octets 01 02 09 / octets 01 02 04", 0, 4096, "avant"},
      {'D', "code 64 / code 64", 64, -7, Galss_64},
      {'B', "octets 00", 0, -7, "avant"},
      {'B', "octets 00 35", 0, -7, "avant"},
      {'B', "octets 01 35", 53, -7, T + "53:Taille de logiciel incorrecte"},
      {'B', "octets 01", 32, -7, T + "32:avant"},
      {'B', "vide longueur 0", -1, -7, Galss_1},
      {'B', "longueur 3", -1, -7, Galss_1},
      {'B', "code 64 longueur 99999 octets 07 07 / vide longueur 2", 0, -7, "avant"},
      {'B', "longueur -1", -1, -7, Galss_1},
      {'B', "code 2", 2, -7, "Erreur GALSS 2 : Plus de ressource dans la table des gestionnaires"},
      {'d', "octets 00 02 02", 0, 2048, Accord},
      {'d', "longueur 77 octets 00 02 02", 0, 2048, Accord},
      {'d', "octets 00 01 02", -2, -7, "Etat Final1 : OK"},
      {'d', "octets 01 82", -3, -7, "Erreur Technique82 : Time out"},
      {'d', "octets 1A 02 02", -4, -7, "Erreur nature du message 1AIncorrect"},
      {'d', "code 4096 octets 00 02 02", 4096, -7, Inconnue},
      {'b', "octets 00 00", 0, -7, "Etat Final0 : Fin de dialogue lecteur"},
      {'b', "octets 00 01", 0, -7, "Etat Final1 : OK"},
      {'b', "octets 00 02", -2, -7, Accord},
      {'b', "octets 01 81", -3, -7, "Erreur Technique81 : Application inconnue"},
      {'b', "octets 25 00", -4, -7, "Erreur nature du message 25incorrect"},
      {'b', "vide longueur 0", -4, -7, "Erreur nature du message 20incorrect"},
  };
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Reponses);
    const bool Bloc = C.Quoi == 'B' || C.Quoi == 'b';
    std::string Scenario;
    for (const auto Une : Decouper(C.Reponses, '/'))
      Scenario += (C.Quoi == 'L' ? "defaut = lecture : "
                   : Bloc        ? "defaut = bloc : "
                                 : "defaut = demande : ") +
                  std::string(Une) + "\n";
    Operations P(Scenario);
    P.Connexions.Connexion(P.Message);
    if (Bloc) P.Faire(C.Quoi == 'B' ? 'D' : 'd');
    P.Message = "avant";
    P.Taille = -7;
    EXPECT_EQ(P.Faire(C.Quoi), C.Statut);
    EXPECT_EQ(P.Taille, C.Taille);
    EXPECT_EQ(P.Message, C.Message);
    EXPECT_EQ(P.Etat.Code_Retour, C.Statut);
    EXPECT_EQ(P.Lecteur.Fautes(), Sans_Faute);
    EXPECT_EQ(P.Configuration.size(), C.Quoi == 'L' ? 2048 : 0);
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
