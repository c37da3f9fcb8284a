// Text helpers, code texts, command line.

#include <gtest/gtest.h>

#include "app/Ligne_Commande.h"
#include "galss/Fonction_API.h"
#include "galss/Gestion_Erreur.h"
#include "platform/Cp1252.h"
#include "platform/Texte.h"

TEST(Texte, Compte_Les_Caracteres_Et_Non_Les_Octets) {
  EXPECT_EQ(Extraire("Eété.ing", 2, 3), "été");
  EXPECT_EQ(Fin_De("noyau03é0.ing", 6), "é0.ing");
  EXPECT_EQ(Fin_De("abc", 9), "abc");
  EXPECT_EQ(Extraire("abc", 9, 2), "");
  EXPECT_EQ(Nombre_Caracteres("a\xFF"
                              "b\xC3"),
            4U)
      << "an invalid byte counts as one character";
  EXPECT_EQ(Rogner("  a b "), "a b");
  EXPECT_EQ(Hexadecimal(0) + Hexadecimal(4) + Hexadecimal(0xE0), "04E0");
}

TEST(Texte, Valeur_Num) {
  const std::pair<const char*, double> Cas[] = {
      {"03", 3},  {"0127", 127}, {"", 0},     {"A1", 0},    {"  12", 12}, {"1.5x", 1.5},
      {"-3", -3}, {"+-3", 0},    {"1e3", 1},  {"inf", 0},   {"nan", 0},   {".5", 0.5},
      {".", 0},   {"1..2", 1},   {"0x10", 0}, {"12 3", 12}, {"٣", 0},     {"99999", 99999}};
  for (const auto& [Texte, Valeur] : Cas)
    EXPECT_DOUBLE_EQ(Valeur_Num(Texte), Valeur) << '"' << Texte << '"';
}

TEST(Cp1252, Chaque_Octet_Fait_L_Aller_Retour) {
  Octets Tous(256);
  for (std::size_t I = 0; I < 256; ++I) Tous[I] = static_cast<std::uint8_t>(I);
  EXPECT_EQ(Cp1252_De_Texte(Texte_De_Cp1252(Tous)), Tous);
  EXPECT_EQ(Texte_De_Cp1252(Octets{0x54, 0xE9, 0x80, 0x9C}), "Té€œ");
  EXPECT_EQ(Cp1252_De_Texte("é漢"), (Octets{0xE9, '?'}));
}

TEST(Codes, Chaque_Code_A_Son_Texte) {
  const auto Galss = [](int Code, std::string Message = "") {
    Erreur_Galss("POSE D'UNE EXCLUSIVITE", static_cast<std::int16_t>(Code), Message);
    return Message;
  };
  const std::pair<int, const char*> Cas[] = {
      {-1, "Longueur de message reçue incorrecte"},
      {1, "Erreur dans le gestionnaire"},
      {2, "Plus de ressource dans la table des gestionnaires"},
      {4, "LAD pris en exclusivité par une autre application"},
      {8, "Une exclusivité est déjà en cours pour cette application"},
      {16, "Taille du message de réponse trop petite"},
      {64, "Transfert abandonné par le matériel"},
      {128, "Transfert abandonné par le gestionnaire"},
      {256, "Temps alloué pour l'application insuffisantepour cette commande"},
      {512, "Erreur protocole"},
      {1024,
       "Pas de réponse du matériel, vérifez :\r\nla connexion entre le PC et le lecteur\r\n que le "
       "lecteur est en "
       "attente d'un ordre\r\nla configuration de la liaison série(Port COM, vitesse, ...)"},
      {2048, "La session est déjà ouverte"},
      {4096, "La session est inconnue"},
      {8196, "LAD non définie dans le fichier de configuration"},
      {16384, "Erreur de parametre"},
      {-32764, "Pas de numéro de session disponible"},
      {-32760, "Ressource non accessible"}};
  for (const auto& [Code, Texte] : Cas)
    EXPECT_EQ(Galss(Code), "Erreur GALSS " + std::to_string(Code) + " : " + Texte);
  EXPECT_EQ(Galss(0x8004 - 0x10000), "Erreur GALSS -32764 : Pas de numéro de session disponible");
  EXPECT_EQ(Galss(8192), "Erreur GALSS 8192 : ");
  EXPECT_EQ(Galss(8192, "avant"), "Erreur GALSS 8192 : avant");

  std::string Message = "avant";
  Erreur_Telechargement("", 7, Message);
  EXPECT_EQ(Message, "Erreur de Téléchargement 7:avant");
  const char* Refus[] = {"Problème de chargement", "Version logicielle déjà chargée ou incorrecte",
                         "Format de logiciel incorrect", "Taille de logiciel incorrecte"};
  for (std::int16_t Code = 50; Code < 54; ++Code) {
    Erreur_Telechargement("", Code, Message);
    EXPECT_EQ(Message, "Erreur de Téléchargement " + std::to_string(Code) + ":" + Refus[Code - 50]);
  }
}

TEST(Codes, Etats_Du_Lecteur) {
  std::string Message;
  const auto Etat = [&](int Code) {
    return Etat_Final(Octets{0, static_cast<std::uint8_t>(Code)}, Message);
  };
  const auto Technique = [&](int Code) {
    return Erreur_Technique(Octets{1, static_cast<std::uint8_t>(Code)}, Message);
  };
  const std::pair<int, const char*> Finals[] = {
      {0, "0 : Fin de dialogue lecteur"},
      {1, "1 : OK"},
      {2, "2 : Accord de mise à jour"},
      {0x91, "91 : Refus d'une application"},
      {0x92, "92 : Refus du propriétaire"},
      {0x93, "93 : Refus, version de logicielle incorrecte"},
      {0x94, "94 : Refus de l'application"},
      {0x95, "95 : Refus mémoire insuffisante"},
      {0x96, "96 : Echec authenticité logiciel"},
      {0x97, "97 : Echec intégrité"},
      {0x98, "98 : Echec erreur code position"},
      {0x99, "99 : Echec message de mise à jour non précédé d'un message de mise à jour"},
      {0x9A, "9A : Incorrect"},
      {3, "3 : Incorrect"}};
  for (const auto& [Code, Fin] : Finals) {
    EXPECT_EQ(Etat(Code), Code);
    EXPECT_EQ(Message, std::string("Etat Final") + Fin);
  }
  const char* Techniques[] = {"Incorrect",
                              "Application inconnue",
                              "Time out",
                              "Problème de mémoire",
                              "Problème d'installation logiciel",
                              "Problème coupleur",
                              "Autre problème",
                              "service Inconnu",
                              "Paramètre incorrect",
                              "Abandon suite à un refus d'allongement de temps",
                              "Incorrect"};
  for (int Code = 0x80; Code <= 0x8A; ++Code) {
    EXPECT_EQ(Technique(Code), Code);
    EXPECT_EQ(Message, "Erreur Technique" + Hexadecimal(static_cast<unsigned>(Code)) + " : " +
                           Techniques[Code - 0x80]);
  }
}

TEST(Ligne_De_Commande, Un_Port_Ou_Un_Avertissement) {
  const std::pair<std::vector<std::string>, int> Bons[] = {
      {{}, 1}, {{"/port:COM3"}, 3}, {{"/PORT:com256"}, 256}, {{"/port:COM2", "/port:COM4"}, 4}};
  for (const auto& [Arguments, Port] : Bons) {
    EXPECT_EQ(Lire_Ligne_Commande(Arguments).Port, Port);
    EXPECT_EQ(Lire_Ligne_Commande(Arguments).Avertissement, "");
  }
  for (const char* Mauvais : {"/port:COM0", "/port:COM257", "/port:COM", "/port:COM3x", "COM3",
                              "/port:LPT1", "", "/port:COM-1", "/port:COM99999999999"}) {
    const Ligne_Commande Lue = Lire_Ligne_Commande({"/port:COM5", Mauvais});
    EXPECT_EQ(Lue.Port, 1) << Mauvais;
    EXPECT_TRUE(Lue.Avertissement.starts_with(std::string("Argument non reconnu : ") + Mauvais));
  }
}
