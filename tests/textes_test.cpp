// Text helpers, code texts, command line.

#include <gtest/gtest.h>

#include "app/Ligne_Commande.h"
#include "galss/Fonction_API.h"
#include "galss/Gestion_Erreur.h"
#include "platform/Cp1252.h"
#include "platform/Texte.h"
#include "tests/Temoins.h"

TEST(Texte, Compte_Les_Caracteres_Et_Non_Les_Octets) {
  EXPECT_EQ(Extraire("Eété.ing", 2, 3), "été");
  EXPECT_EQ(Fin_De("noyau03é0.ing", 6) + Fin_De("é0.ing", 5), "é0.ing0.ing");
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

/// Every code that one of the routines has a text for, of those that it can be given.
template <class Routine>
std::string Codes(int Premier, int Dernier, const std::string& Sans_Texte, Routine Composer) {
  std::string Tous;
  for (int Code = Premier; Code <= Dernier; ++Code) {
    const std::string Message = Composer(Code);
    if (!Message.ends_with(Sans_Texte)) Tous += Lisible(Message) + "\n";
  }
  return Tous;
}

TEST(Codes, Chacun_A_Son_Texte) {
  const auto Galss = [](int Code) {
    std::string Message = "avant";
    Erreur_Galss("POSE D'UNE EXCLUSIVITE", static_cast<std::int16_t>(Code), Message);
    return Message;
  };
  const auto Telechargement = [](int Code) {
    std::string Message = "avant";
    Erreur_Telechargement("", static_cast<std::int16_t>(Code), Message);
    return Message;
  };
  const auto Etat = [](auto Traduire) {
    return [Traduire](int Code) {
      std::string Message = "avant";
      EXPECT_EQ(Traduire(Octets{0, static_cast<std::uint8_t>(Code)}, Message), Code);
      return Message;
    };
  };
  EXPECT_EQ(Galss(8192), "Erreur GALSS 8192 : avant");
  EXPECT_EQ(Telechargement(7), "Erreur de Téléchargement 7:avant");
  EXPECT_EQ(Etat(Etat_Final)(0x9A), "Etat Final9A : Incorrect");
  EXPECT_EQ(Etat(Erreur_Technique)(0x80), "Erreur Technique80 : Incorrect");
  std::ostringstream Tous;
  Tous << std::ifstream(RACINE "/tests/codes.txt").rdbuf();
  EXPECT_EQ(Codes(INT16_MIN, INT16_MAX, "avant", Galss) + Codes(0, 255, "avant", Telechargement) +
                Codes(0, 255, "Incorrect", Etat(Etat_Final)) + Codes(0, 255, "Incorrect", Etat(Erreur_Technique)),
            Tous.str());
}

TEST(Ligne_De_Commande, Un_Port_Ou_Un_Avertissement) {
  const std::pair<std::vector<std::string>, int> Bons[] = {
      {{}, 1}, {{"/port:COM1"}, 1}, {{"/port:COM3"}, 3}, {{"/PORT:com256"}, 256}, {{"/port:COM2", "/port:COM4"}, 4}};
  for (const auto& [Arguments, Port] : Bons) {
    EXPECT_EQ(Lire_Ligne_Commande(Arguments).Port, Port);
    EXPECT_EQ(Lire_Ligne_Commande(Arguments).Avertissement, "");
    EXPECT_EQ(Lire_Ligne_Commande(Arguments).Journal, std::nullopt);
  }
  EXPECT_EQ(Lire_Ligne_Commande({"/JOURNAL", "/port:COM3"}).Journal, "");
  for (const char* Mauvais : {"/port:COM0", "/port:COM257", "/port:COM", "/port:COM3x", "COM3", "3", "/port:LPT1", "",
                              "/port:COM-1", "/port:COM99999999999", "/journal:", "/journaux", "/journalC:\\J"}) {
    const Ligne_Commande Lue = Lire_Ligne_Commande({"/port:COM5", Mauvais, "/Journal:D:\\é x", "/autre"});
    EXPECT_EQ(Lue.Journal, "D:\\é x");
    EXPECT_EQ(Lue.Port, 1) << Mauvais;
    EXPECT_TRUE(Lue.Avertissement.starts_with(std::string("Argument non reconnu : ") + Mauvais));
  }
}
