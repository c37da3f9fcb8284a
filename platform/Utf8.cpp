#include "platform/Utf8.h"

#include <cstddef>

namespace {

struct Entete {
  std::size_t Longueur;
  char32_t Bits;
  char32_t Minimum;  // below it the sequence is overlong
};

Entete Lire_Entete(unsigned char Octet) {
  if ((Octet & 0xE0) == 0xC0) return {2, Octet & 0x1FU, 0x80};
  if ((Octet & 0xF0) == 0xE0) return {3, Octet & 0x0FU, 0x800};
  if ((Octet & 0xF8) == 0xF0) return {4, Octet & 0x07U, 0x10000};
  return {0, 0, 0};
}

bool Est_Permis(char32_t Caractere, char32_t Minimum) {
  const bool Substitut = Caractere >= 0xD800 && Caractere <= 0xDFFF;
  return Caractere >= Minimum && Caractere <= 0x10FFFF && !Substitut;
}

}  // namespace

char32_t Prendre_Caractere(std::string_view& Texte) {
  const auto Premier = static_cast<unsigned char>(Texte.front());
  if (Premier < 0x80) {
    Texte.remove_prefix(1);
    return Premier;
  }
  const Entete Debut = Lire_Entete(Premier);
  char32_t Caractere = Debut.Bits;
  bool Valide = Debut.Longueur != 0 && Debut.Longueur <= Texte.size();
  for (std::size_t I = 1; Valide && I < Debut.Longueur; ++I) {
    const auto Suite = static_cast<unsigned char>(Texte[I]);
    Valide = (Suite & 0xC0) == 0x80;
    Caractere = (Caractere << 6) | (Suite & 0x3FU);
  }
  Valide = Valide && Est_Permis(Caractere, Debut.Minimum);
  Texte.remove_prefix(Valide ? Debut.Longueur : 1);
  return Valide ? Caractere : Caractere_Invalide;
}

void Ajouter_Utf8(std::string& Texte, char32_t Caractere) {
  const auto Ajouter = [&Texte](char32_t Octet) { Texte.push_back(static_cast<char>(Octet)); };
  const auto Suite = [&](int Decalage) { Ajouter(0x80 | ((Caractere >> Decalage) & 0x3F)); };
  if (Caractere < 0x80) {
    Ajouter(Caractere);
  } else if (Caractere < 0x800) {
    Ajouter(0xC0 | (Caractere >> 6));
    Suite(0);
  } else if (Caractere < 0x10000) {
    Ajouter(0xE0 | (Caractere >> 12));
    Suite(6);
    Suite(0);
  } else {
    Ajouter(0xF0 | (Caractere >> 18));
    Suite(12);
    Suite(6);
    Suite(0);
  }
}
