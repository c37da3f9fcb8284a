#pragma once
// Line settings written as text, "9600,n,8,1".

#include <cstdint>
#include <optional>
#include <string_view>

enum class Parite : std::uint8_t { Aucune, Impaire, Paire, Marque, Espace };
enum class Bits_Stop : std::uint8_t { Un, Un_Et_Demi, Deux };

struct Reglages_Serie {
  std::uint32_t Bauds;
  Parite Controle;
  std::uint8_t Bits_Donnees;  ///< 5 to 8
  Bits_Stop Stop;
};

/// Speed in bauds (1 to 7 digits, not 0), parity letter n, o, e, m or s, data bits 5 to 8, stop
/// bits 1, 1.5 or 2, between commas and without blanks; absent for any other text.
std::optional<Reglages_Serie> Lire_Reglages(std::string_view Texte);
