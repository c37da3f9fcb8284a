// Session, exchange contract, configuration read, frames: what goes to the library byte for byte,
// and what each answer becomes.

#include <gtest/gtest.h>

#include "download/Chargement.h"
#include "galss/Config_Lecteur.h"
#include "galss/End_Process_Galls.h"
#include "galss/Lecture_Config.h"
#include "tests/Machine_De_Test.h"

namespace {

/// A library that answers what the test dictates, exchange by exchange.
struct Galss_Dictee : Bibliotheque_Galss {
  struct Dictee {
    int Code = 0;
    Octets Donnees = {};
    int Longueur = -2;  // -2: that of Donnees
  };
  std::int16_t OuvrirSession(Octets& Application, Octets& LAD, std::int16_t& Session, std::int16_t&) override {
    Conversation.push_back("ouvrir " + Texte_De_Cp1252(Application) + " " + Texte_De_Cp1252(LAD));
    Session = Numero;
    return Prochain();
  }
  std::int16_t DebutExclusivite(Octets& Texte, Octets&, Octets& LAD, std::int16_t& Exclusivite) override {
    Conversation.push_back("exclusivité " + Texte_De_Cp1252(Texte) + " " + Texte_De_Cp1252(LAD));
    Exclusivite = 9;
    return Prochain();
  }
  std::int16_t Echange(std::int16_t, std::int16_t, Octets& Commande, std::int32_t& Longueur, Octets& Reponse,
                       std::int32_t& Recus) override {
    EXPECT_TRUE(Longueur >= 0 && Longueur <= std::ssize(Commande) && Recus >= 0 && Recus <= std::ssize(Reponse));
    Commandes.push_back(Commande);
    Lents.push_back(Recus);
    const Dictee D = Reponses.empty() ? Dictee{} : Reponses.front();
    if (!Reponses.empty()) Reponses.pop_front();
    std::copy_n(D.Donnees.begin(), std::min(D.Donnees.size(), Reponse.size()), Reponse.begin());
    Recus = D.Longueur == -2 ? static_cast<int>(D.Donnees.size()) : D.Longueur;
    return static_cast<std::int16_t>(D.Code);
  }
  std::int16_t FinExclusivite(std::int16_t Numero_Exclusivite) override {
    Conversation.push_back("fin " + std::to_string(Numero_Exclusivite));
    return Prochain();
  }
  std::int16_t FermerSession(std::int16_t Session, std::int16_t& Exclusivite) override {
    Conversation.push_back("fermer " + std::to_string(Session) + " " + std::to_string(Exclusivite));
    return Prochain();
  }
  std::int16_t Prochain() {
    if (Codes.empty()) return 0;
    const int Code = Codes.front();
    Codes.pop_front();
    return static_cast<std::int16_t>(Code);
  }
  std::int16_t Numero = 3;
  std::deque<int> Codes;
  std::deque<Dictee> Reponses;
  std::vector<std::string> Conversation;
  std::vector<Octets> Commandes;
  std::vector<std::int32_t> Lents;
};

struct Galss_Test : testing::Test, Poste_De_Test {
  Galss_Dictee Dictee;
  Session_Galss Etat;
  Champ_Texte& TxtDetails = App.F.FMain.TxtDetails;
  Connect_Deconnect Connexions{Dictee, Etat, TxtDetails};
  Liaison_Galss Liaison{Dictee, Etat};
  std::string Message = "avant";
};

TEST_F(Galss_Test, Connexion) {
  using Liste = std::vector<std::string>;
  const std::string T = "ouvrir Téléchargement ";
  const struct {
    std::deque<int> Codes;
    int Session, Resultat;
    Liste Conversation;
    std::string Message;
  } Cas[] = {{{}, 3, 0, {T + "Log_SV", "exclusivité 3:1 Log_SV"}, "Connexion Réussie."},
             {{8192}, -5, 0, {T + "Log_SV", T + "LOG_SV", "exclusivité -5:1 LOG_SV"}, "Connexion Réussie."},
             {{8192, 8192, 8192}, 3, 8192, {T + "Log_SV", T + "LOG_SV", T + "log_SV"}, "Erreur GALSS 8192 : avant"},
             {{8192, 4096}, 3, 4096, {T + "Log_SV", T + "LOG_SV"}, "Erreur GALSS 4096 : La session est inconnue"},
             {{4096}, 3, 4096, {T + "Log_SV"}, "Erreur GALSS 4096 : La session est inconnue"},
             {{0, 4},
              12,
              4,
              {T + "Log_SV", "exclusivité 12:1 Log_SV"},
              "Erreur GALSS 4 : LAD pris en exclusivité par une autre application"}};
  for (const auto& C : Cas) {
    Dictee.Codes = C.Codes;
    Dictee.Numero = static_cast<std::int16_t>(C.Session);
    Dictee.Conversation.clear();
    TxtDetails.Texte("pane ");
    Message = "avant";
    EXPECT_EQ(Connexions.Connexion(Message), C.Resultat);
    EXPECT_EQ(Dictee.Conversation, C.Conversation);
    EXPECT_EQ(Message, C.Message);
    EXPECT_EQ(Pane(), "pane " + C.Message + "\r\n");
    EXPECT_EQ(Etat.Code_Retour, C.Resultat);
  }
}

TEST_F(Galss_Test, Deconnexion) {
  const std::string Exclusif = "Erreur GALSS 4 : LAD pris en exclusivité par une autre application";
  const struct {
    std::deque<int> Codes;
    int Resultat;
    std::string Message, Pane;
  } Cas[] = {{{}, 0, "Déconnexion Réussie", "pane\r\nDéconnexion Réussie"},
             {{4, 0}, 0, "Déconnexion Réussie", "pane\r\nDéconnexion Réussie"},
             {{4, 8192}, 8192, "Erreur GALSS 8192 : " + Exclusif, "pane"},
             {{4, 4096}, 4096, "Erreur GALSS 4096 : La session est inconnue", "pane"},
             {{0, 8192}, 8192, "Erreur GALSS 8192 : avant", "pane"}};
  for (const auto& C : Cas) {
    Etat.Num_Session = 3;
    Etat.Num_Exclusivite = 9;
    Dictee.Codes = C.Codes;
    Dictee.Conversation.clear();
    TxtDetails.Texte("pane");
    Message = "avant";
    Connexions.Deconnexion(Message);
    EXPECT_EQ(Dictee.Conversation, (std::vector<std::string>{"fin 9", "fermer 3 9"}));
    EXPECT_EQ(Message, C.Message);
    EXPECT_EQ(Pane(), C.Pane);
    EXPECT_EQ(Etat.Code_Retour, C.Resultat);
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

TEST_F(Galss_Test, Lecture_De_La_Configuration) {
  Octets Config(118, 'x');
  const struct {
    std::deque<Galss_Dictee::Dictee> Reponses;
    int Resultat;
    std::size_t Appels;
    std::string Message;
  } Cas[] = {{{{0, Config}}, 0, 1, "avant"},
             {{{64}, {0, Config}}, 0, 2, "avant"},
             {{{64}, {64}, {0, Config}}, 64, 2, "Erreur GALSS 64 : Transfert abandonné par le matériel"},
             {{{0, {0, 52}}}, 52, 1, "Erreur de Téléchargement 52:Format de logiciel incorrect"},
             {{{0, {0, 0}}}, 0, 1, "Erreur de Téléchargement 0:avant"},
             {{{0, {}, 99999}}, 0, 1, "avant"},
             {{{64, {}, 99999}, {0, {}, -7}}, 0, 2, "avant"}};
  for (const auto& C : Cas) {
    Dictee.Reponses = C.Reponses;
    Dictee.Commandes.clear();
    Message = "avant";
    Octets Reponse;
    EXPECT_EQ(Lecture_Config_Lecteur(Liaison, Reponse, Message), C.Resultat);
    EXPECT_EQ(Message, C.Message);
    ASSERT_EQ(Dictee.Commandes.size(), C.Appels);
    EXPECT_EQ(Dictee.Commandes.back(), (Octets{1, 0, 0, 0x94}));
    EXPECT_EQ(Reponse.size(), 2048U);
    EXPECT_EQ(Etat.Code_Retour, C.Resultat);
  }
}

TEST_F(Galss_Test, Champs_Et_Formes_D_Affichage) {
  const auto Cadrer = [](std::string Texte, std::size_t Taille) {
    Texte.resize(Taille, ' ');
    return Texte;
  };
  const std::string Texte = "?" + Cadrer("INGENICO", 15) + Cadrer("INGENICO  650", 26) + "WXYZ" +
                            Cadrer("  S\xE9rie 12", 20) + "03" + Cadrer("Appli", 30) + "01272005031514301A2B";
  const Octets Reponse(Texte.begin(), Texte.end());
  ASSERT_EQ(Reponse.size(), 118U);
  const char* Formes[] = {"INGENICO", "INGENICO  650", "Série 12", "03",  "Appli",
                          "1.27",     "15 mars 2005",  "14:30",    "1A2B"};
  for (int I = 0; I < 9; ++I) {
    EXPECT_EQ(Afficher_Champ(Reponse, Avant_Config_Galss, static_cast<Champ_Config>(I), Temps), Formes[I]);
  }
  EXPECT_EQ(Lire_Champ(Vue_Octets(Reponse).first(50), 1, Champ_Config::NumSerie), "  S\xC3\xA9");
  EXPECT_EQ(Lire_Champ({}, 1, Champ_Config::TypeOS), "");
  for (const auto& [Mois, Numero] : {std::pair{"13", 5}, {"00", 5}, {"AB", 13}, {"  ", 13}, {"1x", 13}}) {
    Octets Copie = Reponse;
    std::copy_n(Mois, 2, Copie.begin() + 1 + 101 + 4);
    try {
      Afficher_Champ(Copie, Avant_Config_Galss, Champ_Config::Date, Temps);
      ADD_FAILURE() << Mois;
    } catch (const Erreur& E) {
      EXPECT_EQ(E.Numero(), Numero) << Mois;
    }
  }
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
  Dictee.Commandes.clear();
  for (const std::int64_t Longueur : {-1LL, 1000000LL, 1LL << 40}) {
    EXPECT_THROW(Demande_Telechargement(Liaison, "0000", Longueur, Taille, Message), Erreur);
    EXPECT_THROW(Demande_Chargement(Liaison, "0000", Longueur, Taille, Message), Erreur);
  }
  EXPECT_TRUE(Dictee.Commandes.empty());
}

TEST_F(Galss_Test, Reponses_Aux_Trames) {
  const auto Demande_T = [&](std::int32_t& T) { return Demande_Telechargement(Liaison, "0000", 9, T, Message); };
  const auto Demande_C = [&](std::int32_t& T) { return Demande_Chargement(Liaison, "0000", 9, T, Message); };
  const auto Bloc_T = [&](std::int32_t&) { return Bloc_Telechargement(Liaison, {}, {}, Message); };
  const auto Bloc_C = [&](std::int32_t&) { return Bloc_Chargement(Liaison, {}, {}, Message); };
  using Operation = std::function<int(std::int32_t&)>;
  using D = Galss_Dictee::Dictee;
  const std::string Galss_1 = "Erreur GALSS -1 : Longueur de message reçue incorrecte";
  const struct {
    Operation Quoi;
    std::deque<D> Reponses;
    int Statut, Taille;
    std::string Message;
  } Cas[] = {
      {Demande_T, {{0, {7, 7, 4}}}, 0, 4096, "avant"},
      {Demande_T, {{0, {9, 51}}}, 51, -7, "Erreur de Téléchargement 51:Version logicielle déjà chargée ou incorrecte"},
      {Demande_T, {{0, {9, 0}}}, 0, -7, "Erreur de Téléchargement 0:avant"},
      {Demande_T, {{1024, {}, 0}}, -1, -7, Galss_1},
      {Demande_T, {{512, {}, 3}}, 512, -7, "Erreur GALSS 512 : Erreur protocole"},
      {Demande_T, {{0, {1, 2, 4}, 4}}, 0, 4096, "avant"},
      {Demande_T, {{0, {1, 2, 4}, -3}}, -1, -7, Galss_1},
      {Demande_T, {{64, {1, 2, 9}, 3}, {0, {1, 2, 4}}}, 0, 4096, "avant"},
      {Demande_T, {{64, {}, 3}, {64, {}, 3}}, 64, -7, "Erreur GALSS 64 : Transfert abandonné par le matériel"},
      {Bloc_T, {{0, {0}}}, 0, -7, "avant"},
      {Bloc_T, {{0, {0, 53}}}, 0, -7, "avant"},
      {Bloc_T, {{0, {1, 53}}}, 53, -7, "Erreur de Téléchargement 53:Taille de logiciel incorrecte"},
      {Bloc_T, {{0, {1}}}, 32, -7, "Erreur de Téléchargement 32:avant"},
      {Bloc_T, {{0, {}, 0}}, -1, -7, Galss_1},
      {Bloc_T, {{0, {0, 0}, 99999}}, 0, -7, "avant"},
      {Bloc_T, {{0, {0, 0}, -1}}, -1, -7, Galss_1},
      {Bloc_T, {{2, {}, 2}}, 2, -7, "Erreur GALSS 2 : Plus de ressource dans la table des gestionnaires"},
      {Demande_C, {{0, {0, 2, 2}}}, 0, 2048, "Etat Final2 : Accord de mise à jour"},
      {Demande_C, {{0, {0, 2, 2}, 77}}, 0, 2048, "Etat Final2 : Accord de mise à jour"},
      {Demande_C, {{0, {0, 1, 2}}}, -2, -7, "Etat Final1 : OK"},
      {Demande_C, {{0, {1, 0x82}}}, -3, -7, "Erreur Technique82 : Time out"},
      {Demande_C, {{0, {0x1A, 2, 2}}}, -4, -7, "Erreur nature du message 1AIncorrect"},
      {Demande_C, {{4096, {0, 2, 2}}}, 4096, -7, "Erreur GALSS 4096 : La session est inconnue"},
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
    Dictee.Reponses = C.Reponses;
    Dictee.Lents.clear();
    Message = "avant";
    std::int32_t Taille = -7;
    EXPECT_EQ(C.Quoi(Taille), C.Statut);
    EXPECT_EQ(Taille, C.Taille);
    EXPECT_EQ(Message, C.Message);
    EXPECT_EQ(Etat.Code_Retour, C.Statut);
    EXPECT_EQ(Dictee.Lents.size(), C.Reponses.size());
  }
}

}  // namespace
