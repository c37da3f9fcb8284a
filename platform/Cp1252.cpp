#include "platform/Cp1252.h"

#include <algorithm>
#include <array>

#include "platform/Utf8.h"

namespace {

// Characters of bytes 0x80 to 0x9F; outside this range a byte is the character of its value.
constexpr std::array<char32_t, 32> Milieu = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint8_t Octet_De(char32_t Caractere) {
  const auto Trouve = std::find(Milieu.begin(), Milieu.end(), Caractere);
  if (Trouve != Milieu.end()) return static_cast<std::uint8_t>(0x80 + (Trouve - Milieu.begin()));
  if (Caractere > 0xFF || (Caractere >= 0x80 && Caractere < 0xA0)) return '?';
  return static_cast<std::uint8_t>(Caractere);
}

}  // namespace

std::string Texte_De_Cp1252(Vue_Octets Donnees) {
  std::string Texte;
  Texte.reserve(Donnees.size());
  for (const std::uint8_t Octet : Donnees) {
    Ajouter_Utf8(Texte, Octet >= 0x80 && Octet < 0xA0 ? Milieu[Octet - 0x80U] : Octet);
  }
  return Texte;
}

Octets Cp1252_De_Texte(std::string_view Texte) {
  Octets Donnees;
  Donnees.reserve(Texte.size());
  while (!Texte.empty()) Donnees.push_back(Octet_De(Prendre_Caractere(Texte)));
  return Donnees;
}
