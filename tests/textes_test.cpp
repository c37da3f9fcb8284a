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
  for (const auto& [Texte, Valeur] : Cas) EXPECT_DOUBLE_EQ(Valeur_Num(Texte), Valeur) << '"' << Texte << '"';
}

TEST(Cp1252, Chaque_Octet_Fait_L_Aller_Retour) {
  Octets Tous(256);
  for (std::size_t I = 0; I < 256; ++I) Tous[I] = static_cast<std::uint8_t>(I);
  EXPECT_EQ(Cp1252_De_Texte(Texte_De_Cp1252(Tous)), Tous);
  EXPECT_EQ(Texte_De_Cp1252(Octets{0x54, 0xE9, 0x80, 0x9C}), "Té€œ");
  EXPECT_EQ(Cp1252_De_Texte("é漢"), (Octets{0xE9, '?'}));
}

// Every text stands in the operator's guide too, where a check of its own compares them all.
TEST(Codes, Messages_Composes) {
  const auto Galss = [](int Code, std::string Message = "avant") {
    Erreur_Galss("POSE D'UNE EXCLUSIVITE", static_cast<std::int16_t>(Code), Message);
    return Message;
  };
  EXPECT_EQ(Galss(-1), "Erreur GALSS -1 : Longueur de message reçue incorrecte");
  EXPECT_EQ(Galss(256), "Erreur GALSS 256 : Temps alloué pour l'application insuffisantepour cette commande");
  EXPECT_EQ(Galss(0x8004 - 0x10000), "Erreur GALSS -32764 : Pas de numéro de session disponible");
  EXPECT_EQ(Galss(0x8008 - 0x10000), "Erreur GALSS -32760 : Ressource non accessible");
  EXPECT_EQ(Galss(1024),
            "Erreur GALSS 1024 : Pas de réponse du matériel, vérifez :\r\nla connexion entre le PC et le lecteur\r\n "
            "que le lecteur est en attente d'un ordre\r\nla configuration de la liaison série(Port COM, vitesse, ...)");
  EXPECT_EQ(Galss(8192), "Erreur GALSS 8192 : avant");
  EXPECT_EQ(Galss(8196), "Erreur GALSS 8196 : LAD non définie dans le fichier de configuration");
  EXPECT_EQ(Galss(8192, ""), "Erreur GALSS 8192 : ");

  std::string Message = "avant";
  Erreur_Telechargement("", 7, Message);
  EXPECT_EQ(Message, "Erreur de Téléchargement 7:avant");
  Erreur_Telechargement("", 53, Message);
  EXPECT_EQ(Message, "Erreur de Téléchargement 53:Taille de logiciel incorrecte");
}

TEST(Codes, Etats_Du_Lecteur) {
  const std::tuple<decltype(&Etat_Final), int, const char*> Cas[] = {
      {Etat_Final, 0, "Etat Final0 : Fin de dialogue lecteur"},
      {Etat_Final, 3, "Etat Final3 : Incorrect"},
      {Etat_Final, 0x91, "Etat Final91 : Refus d'une application"},
      {Etat_Final, 0x99, "Etat Final99 : Echec message de mise à jour non précédé d'un message de mise à jour"},
      {Etat_Final, 0x9A, "Etat Final9A : Incorrect"},
      {Erreur_Technique, 0x80, "Erreur Technique80 : Incorrect"},
      {Erreur_Technique, 0x81, "Erreur Technique81 : Application inconnue"},
      {Erreur_Technique, 0x89, "Erreur Technique89 : Abandon suite à un refus d'allongement de temps"},
      {Erreur_Technique, 0x8A, "Erreur Technique8A : Incorrect"}};
  for (const auto& [Traduire, Code, Texte] : Cas) {
    std::string Message = "avant";
    EXPECT_EQ(Traduire(Octets{0, static_cast<std::uint8_t>(Code)}, Message), Code);
    EXPECT_EQ(Message, Texte);
  }
}

TEST(Ligne_De_Commande, Un_Port_Ou_Un_Avertissement) {
  const std::pair<std::vector<std::string>, int> Bons[] = {
      {{}, 1}, {{"/port:COM3"}, 3}, {{"/PORT:com256"}, 256}, {{"/port:COM2", "/port:COM4"}, 4}};
  for (const auto& [Arguments, Port] : Bons) {
    EXPECT_EQ(Lire_Ligne_Commande(Arguments).Port, Port);
    EXPECT_EQ(Lire_Ligne_Commande(Arguments).Avertissement, "");
    EXPECT_EQ(Lire_Ligne_Commande(Arguments).Journal, std::nullopt);
  }
  EXPECT_EQ(Lire_Ligne_Commande({"/JOURNAL", "/port:COM3"}).Journal, "");
  for (const char* Mauvais : {"/port:COM0", "/port:COM257", "/port:COM", "/port:COM3x", "COM3", "/port:LPT1", "",
                              "/port:COM-1", "/port:COM99999999999", "/journal:", "/journaux", "/journalC:\\J"}) {
    const Ligne_Commande Lue = Lire_Ligne_Commande({"/port:COM5", Mauvais, "/Journal:D:\\é x", "/autre"});
    EXPECT_EQ(Lue.Journal, "D:\\é x");
    EXPECT_EQ(Lue.Port, 1) << Mauvais;
    EXPECT_TRUE(Lue.Avertissement.starts_with(std::string("Argument non reconnu : ") + Mauvais));
  }
}
