// Session, exchange contract, configuration read, frames: what goes to the library byte for byte,
// and what each answer becomes.

#include <gtest/gtest.h>

#include "download/Chargement.h"
#include "galss/Config_Lecteur.h"
#include "galss/End_Process_Galls.h"
#include "galss/Lecture_Config.h"
#include "tests/Machine_De_Test.h"

namespace {

/// A library that answers what the test dictates, call by call, then success.
struct Galss_Dictee : Bibliotheque_Galss {
  struct Dictee {
    int Code = 0;
    Octets Donnees = {};  // of the reply; or written over each name lent
    int Longueur = -2;    // announced; -2: that of Donnees
  };
  using Suite = std::deque<Dictee>;
  std::int16_t OuvrirSession(Octets& Application, Octets& LAD, std::int16_t& Session, std::int16_t&) override {
    Session = Numero;
    return Noter("ouvrir ", {&Application, &LAD});
  }
  std::int16_t DebutExclusivite(Octets& Texte, Octets& Application, Octets& LAD, std::int16_t& Exclusivite) override {
    Exclusivite = 9;
    return Noter("exclusivité ", {&Texte, &Application, &LAD});
  }
  std::int16_t Echange(std::int16_t, std::int16_t, Octets& Commande, std::int32_t& Longueur, Octets& Reponse,
                       std::int32_t& Recus) override {
    const auto Bornee = [](std::int64_t L, const Octets& T) {
      return static_cast<std::int32_t>(std::clamp<std::int64_t>(L, 0, std::ssize(T)));
    };
    const bool Seconde = std::exchange(Apres_64, false);
    if (Seconde) {
      EXPECT_EQ(std::tie(Commande, Longueur, Reponse, Recus), Laisses) << "as the first call left them, bounded";
    }
    Commandes.push_back(Commande);
    const Dictee D = Prochaine();
    std::copy_n(D.Donnees.begin(), std::min(D.Donnees.size(), Reponse.size()), Reponse.begin());
    Recus = D.Longueur == -2 ? static_cast<int>(D.Donnees.size()) : D.Longueur;
    if ((Apres_64 = D.Code == 64 && !Seconde)) {
      Commande.back() = 0xEE;
      Longueur = Recus;
      Laisses = {Commande, Bornee(Longueur, Commande), Reponse, Bornee(Recus, Reponse)};
    }
    return static_cast<std::int16_t>(D.Code);
  }
  std::int16_t FinExclusivite(std::int16_t Exclusivite) override { return Noter("fin " + std::to_string(Exclusivite)); }
  std::int16_t FermerSession(std::int16_t Session, std::int16_t& Exclusivite) override {
    return Noter("fermer " + std::to_string(Session) + " " + std::to_string(Exclusivite));
  }
  std::int16_t Noter(std::string Appel, const std::vector<Octets*>& Noms = {}) {
    const Dictee D = Prochaine();
    for (Octets* Nom : Noms) {
      Appel += (Nom == Noms.front() ? "" : " ") + Texte_De_Cp1252(*Nom);
      std::copy_n(D.Donnees.begin(), std::min(D.Donnees.size(), Nom->size()), Nom->begin());
    }
    Conversation += Appel + "; ";
    return static_cast<std::int16_t>(D.Code);
  }
  Dictee Prochaine() {
    if (Reponses.empty()) return {};
    const Dictee D = Reponses.front();
    Reponses.pop_front();
    return D;
  }
  std::int16_t Numero = 3;
  Suite Reponses;
  std::string Conversation;
  std::vector<Octets> Commandes;
  bool Apres_64 = false;
  std::tuple<Octets, std::int32_t, Octets, std::int32_t> Laisses;
};

const std::string Exclusif = "LAD pris en exclusivité par une autre application";
const std::string Inconnue = "Erreur GALSS 4096 : La session est inconnue";

struct Galss_Test : testing::Test, Poste_De_Test {
  void Dicter(const Galss_Dictee::Suite& Reponses) {
    Dictee.Reponses = Reponses;
    Dictee.Conversation.clear();
    Dictee.Commandes.clear();
    TxtDetails.Texte("pane");
    Message = "avant";
  }
  Galss_Dictee Dictee;
  Session_Galss Etat;
  Champ_Texte& TxtDetails = App.F.FMain.TxtDetails;
  Connect_Deconnect Connexions{Dictee, Etat, TxtDetails};
  Liaison_Galss Liaison{Dictee, Etat};
  std::string Message;
};

TEST_F(Galss_Test, Connexion) {
  const std::string T = "Téléchargement ", Une = "ouvrir " + T + "Log_SV; ", Deux = Une + "ouvrir " + T + "LOG_SV; ",
                    Trois = Deux + "ouvrir " + T + "log_SV; ", Reussie = "Connexion Réussie.";
  const struct {
    Galss_Dictee::Suite Codes;
    int Session, Resultat;
    std::string Conversation, Message;
  } Cas[] = {{{}, 3, 0, Une + "exclusivité 3:1 " + T + "Log_SV; ", Reussie},
             {{{8192}}, -5, 0, Deux + "exclusivité -5:1 " + T + "LOG_SV; ", Reussie},
             {{{8192}, {8192}}, 3, 0, Trois + "exclusivité 3:1 " + T + "log_SV; ", Reussie},
             {{{8192}, {8192}, {8192}}, 3, 8192, Trois, "Erreur GALSS 8192 : avant"},
             {{{8192}, {4096}}, 3, 4096, Deux, Inconnue},
             {{{4096}}, 3, 4096, Une, Inconnue},
             {{{0}, {4}}, 12, 4, Une + "exclusivité 12:1 " + T + "Log_SV; ", "Erreur GALSS 4 : " + Exclusif},
             // The library writes over the names: only the LAD is spelled anew.
             {{{8192, {'A', 0xC9}}, {0, {'B'}}, {0, {'C'}}},
              3,
              0,
              Une + "ouvrir AÉléchargement LOG_SV; exclusivité 3:1 BÉléchargement BOG_SV; ",
              Reussie},
             {{}, 3, 0, Une + "exclusivité 3:1 " + T + "Log_SV; ", Reussie}};
  for (const auto& C : Cas) {
    Dicter(C.Codes);
    Dictee.Numero = static_cast<std::int16_t>(C.Session);
    EXPECT_EQ(Connexions.Connexion(Message), C.Resultat);
    EXPECT_EQ(Dictee.Conversation, C.Conversation);
    EXPECT_EQ(Message, C.Message);
    EXPECT_EQ(Pane(), "pane" + C.Message + "\r\n");
    EXPECT_EQ(Etat.Code_Retour, C.Resultat);
  }
}

TEST_F(Galss_Test, Deconnexion) {
  const std::string Reussie = "Déconnexion Réussie";
  const struct {
    Galss_Dictee::Suite Codes;
    int Resultat;
    std::string Message, Pane;
  } Cas[] = {{{}, 0, Reussie, "pane\r\n" + Reussie},
             {{{4}, {0}}, 0, Reussie, "pane\r\n" + Reussie},
             {{{4}, {8192}}, 8192, "Erreur GALSS 8192 : Erreur GALSS 4 : " + Exclusif, "pane"},
             {{{4}, {4096}}, 4096, Inconnue, "pane"},
             {{{0}, {8192}}, 8192, "Erreur GALSS 8192 : avant", "pane"}};
  Etat.Num_Session = 3;
  Etat.Num_Exclusivite = 9;
  for (const auto& C : Cas) {
    Dicter(C.Codes);
    Connexions.Deconnexion(Message);
    EXPECT_EQ(Dictee.Conversation, "fin 9; fermer 3 9; ");
    EXPECT_EQ(Message, C.Message);
    EXPECT_EQ(Pane(), C.Pane);
    EXPECT_EQ(Etat.Code_Retour, C.Resultat);
  }
}

// As the reader's configuration window shows them, from a reply that ends anywhere.
TEST_F(Galss_Test, Champs_De_La_Configuration) {
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

TEST_F(Galss_Test, Arret_Du_Serveur) {
  const char* Noms[] = {
      "C:\\WINDOWS\\GALSVW32.EXE", "c:\\windows\\galsvw32.exe", "galsvw32.exe", "GALSVW32.EXE", "xgalsvw32.exe",
      "galsvw32.exe.bak"};
  for (std::uint32_t I = 0; I < std::size(Noms); ++I) Processus.Actifs.push_back({I, Noms[I]});
  Arret_Galss(Processus);
  EXPECT_EQ(Processus.Termines, (std::vector<std::uint32_t>{0, 2, 3}));
}

TEST_F(Galss_Test, Trames_Au_Bit_Pres) {
  std::int32_t Taille = 0;
  const Octets Donnees = {'a', 0, 'c'};
  const auto Derniere = [&] { return Dictee.Commandes.back(); };
  const auto Avec = [](Octets Debut, std::string_view Fin) {
    Debut.insert(Debut.end(), Fin.begin(), Fin.end());
    return Debut;
  };
  for (const auto& [Longueur, Champ] : {std::pair{0, "0127000000"}, {512, "0127000512"}, {999999, "0127999999"}}) {
    Demande_Telechargement(Liaison, "0127", Longueur, Taille, Message);
    EXPECT_EQ(Derniere(), Avec({1, 0, 0, 0x99}, Champ));
    Demande_Chargement(Liaison, "0127", Longueur, Taille, Message);
    EXPECT_EQ(Derniere(), Avec({0xFF, 1, 3, 1, 1, 0xFF, 0xFF}, Champ));
  }
  for (const std::uint8_t Type : Octets{0x00, 0x01, 0x10, 0x11}) {
    const Rang_Bloc Rang{(Type & 1) != 0, (Type & 0x10) != 0};
    Bloc_Telechargement(Liaison, Rang, Donnees, Message);
    EXPECT_EQ(Derniere(), (Octets{1, 0, 0, 0x98, Type, 'a', 0, 'c'}));
    Bloc_Chargement(Liaison, Rang, Donnees, Message);
    EXPECT_EQ(Derniere(), (Octets{0xFF, 1, 3, 2, 1, 0xFF, 0xFF, Type, 'a', 0, 'c'}));
  }
  Demande_Telechargement(Liaison, "12", 3, Taille, Message);
  EXPECT_EQ(Derniere(), Avec({1, 0, 0, 0x99}, "12  000003")) << "a shorter version is padded";
  Octets Configuration;
  Lecture_Config_Lecteur(Liaison, Configuration, Message);
  EXPECT_EQ(Derniere(), (Octets{1, 0, 0, 0x94}));
  EXPECT_EQ(Configuration.size(), 2048U);
  Dictee.Commandes.clear();
  for (const std::int64_t Longueur : {-1LL, 1000000LL, 1LL << 40}) {
    EXPECT_THROW(Demande_Telechargement(Liaison, "0000", Longueur, Taille, Message), Erreur);
    EXPECT_THROW(Demande_Chargement(Liaison, "0000", Longueur, Taille, Message), Erreur);
  }
  EXPECT_TRUE(Dictee.Commandes.empty());
}

TEST_F(Galss_Test, Reponses_Aux_Trames) {
  Octets Configuration;
  std::int32_t Taille = 0;
  const auto Lecture = [&] { return Lecture_Config_Lecteur(Liaison, Configuration, Message); };
  const auto Demande_T = [&] { return Demande_Telechargement(Liaison, "0000", 9, Taille, Message); };
  const auto Demande_C = [&] { return Demande_Chargement(Liaison, "0000", 9, Taille, Message); };
  const auto Bloc_T = [&] { return Bloc_Telechargement(Liaison, {}, {}, Message); };
  const auto Bloc_C = [&] { return Bloc_Chargement(Liaison, {}, {}, Message); };
  const std::string Galss_1 = "Erreur GALSS -1 : Longueur de message reçue incorrecte";
  const std::string Galss_64 = "Erreur GALSS 64 : Transfert abandonné par le matériel";
  const struct {
    std::function<int()> Quoi;
    Galss_Dictee::Suite Dictees;
    int Statut, Taille;
    std::string Message;
  } Cas[] = {
      {Lecture, {{0, Octets(118, 'x')}}, 0, -7, "avant"},
      {Lecture, {{64}, {0, Octets(118, 'x')}}, 0, -7, "avant"},
      {Lecture, {{64}, {64}}, 64, -7, Galss_64},
      {Lecture, {{0, {0, 52}}}, 52, -7, "Erreur de Téléchargement 52:Format de logiciel incorrect"},
      {Lecture, {{0, {0, 0}}}, 0, -7, "Erreur de Téléchargement 0:avant"},
      {Lecture, {{0, {0, 52}, 1}}, 0, -7, "avant"},
      {Lecture, {{0, {0, 52}, 3}}, 0, -7, "avant"},
      {Lecture, {{0, Octets(50, 'x')}}, 0, -7, "avant"},
      {Lecture, {{0, {}, 99999}}, 0, -7, "avant"},
      {Lecture, {{64, {}, 99999}, {0, {}, -7}}, 0, -7, "avant"},
      {Demande_T, {{0, {7, 7, 4}}}, 0, 4096, "avant"},
      {Demande_T, {{0, {9, 51}}}, 51, -7, "Erreur de Téléchargement 51:Version logicielle déjà chargée ou incorrecte"},
      {Demande_T, {{0, {9, 0}}}, 0, -7, "Erreur de Téléchargement 0:avant"},
      {Demande_T, {{1024, {}, 0}}, -1, -7, Galss_1},
      {Demande_T, {{512, {}, 3}}, 512, -7, "Erreur GALSS 512 : Erreur protocole"},
      {Demande_T, {{0, {1, 2, 4}, 4}}, -1, -7, Galss_1},
      {Demande_T, {{0, {1, 2, 4}, 99999}}, -1, -7, Galss_1},
      {Demande_T, {{0, {1, 2, 4}, -3}}, -1, -7, Galss_1},
      {Demande_T, {{64, {1, 2, 9}, 3}, {0, {1, 2, 4}}}, 0, 4096, "avant"},
      {Demande_T, {{64, {}, 3}, {64, {}, 3}}, 64, -7, Galss_64},
      {Bloc_T, {{0, {0}}}, 0, -7, "avant"},
      {Bloc_T, {{0, {0, 53}}}, 0, -7, "avant"},
      {Bloc_T, {{0, {1, 53}}}, 53, -7, "Erreur de Téléchargement 53:Taille de logiciel incorrecte"},
      {Bloc_T, {{0, {1}}}, 32, -7, "Erreur de Téléchargement 32:avant"},
      {Bloc_T, {{0, {}, 0}}, -1, -7, Galss_1},
      {Bloc_T, {{0, {0, 0}, 3}}, -1, -7, Galss_1},
      {Bloc_T, {{64, {7, 7}, 99999}, {0, {}, 2}}, 0, -7, "avant"},
      {Bloc_T, {{0, {0, 0}, -1}}, -1, -7, Galss_1},
      {Bloc_T, {{2, {}, 2}}, 2, -7, "Erreur GALSS 2 : Plus de ressource dans la table des gestionnaires"},
      {Demande_C, {{0, {0, 2, 2}}}, 0, 2048, "Etat Final2 : Accord de mise à jour"},
      {Demande_C, {{0, {0, 2, 2}, 77}}, 0, 2048, "Etat Final2 : Accord de mise à jour"},
      {Demande_C, {{0, {0, 1, 2}}}, -2, -7, "Etat Final1 : OK"},
      {Demande_C, {{0, {1, 0x82}}}, -3, -7, "Erreur Technique82 : Time out"},
      {Demande_C, {{0, {0x1A, 2, 2}}}, -4, -7, "Erreur nature du message 1AIncorrect"},
      {Demande_C, {{4096, {0, 2, 2}}}, 4096, -7, Inconnue},
      {Bloc_C, {{0, {0, 0}}}, 0, -7, "Etat Final0 : Fin de dialogue lecteur"},
      {Bloc_C, {{0, {0, 1}}}, 0, -7, "Etat Final1 : OK"},
      {Bloc_C, {{0, {0, 2}}}, -2, -7, "Etat Final2 : Accord de mise à jour"},
      {Bloc_C, {{0, {1, 0x81}}}, -3, -7, "Erreur Technique81 : Application inconnue"},
      {Bloc_C, {{0, {0x25, 0}}}, -4, -7, "Erreur nature du message 25incorrect"},
      {Bloc_C, {{0, {}, 0}}, -4, -7, "Erreur nature du message 20incorrect"},
  };
  int Rang = 0;
  for (const auto& C : Cas) {
    SCOPED_TRACE(Rang++);
    Dicter(C.Dictees);
    Taille = -7;
    EXPECT_EQ(C.Quoi(), C.Statut);
    EXPECT_EQ(Taille, C.Taille);
    EXPECT_EQ(Message, C.Message);
    EXPECT_EQ(Etat.Code_Retour, C.Statut);
    EXPECT_EQ(Dictee.Commandes.size(), C.Dictees.size());
  }
}

}  // namespace
