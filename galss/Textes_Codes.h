#pragma once
// A table from a code to its French text, sorted by code, and its one lookup.

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

struct Texte_Code {
  std::int16_t Code;
  std::string_view Texte;
};

/// Strictly increasing codes: each stands once.
constexpr bool Est_Triee(std::span<const Texte_Code> Table) {
  return std::is_sorted(Table.begin(), Table.end(),
                        [](const auto& A, const auto& B) { return A.Code <= B.Code; });
}

/// Null when the code has no text.
constexpr const std::string_view* Texte_De(std::span<const Texte_Code> Table, std::int16_t Code) {
  const auto Place = std::lower_bound(Table.begin(), Table.end(), Code,
                                      [](const auto& Ligne, auto C) { return Ligne.Code < C; });
  return Place != Table.end() && Place->Code == Code ? &Place->Texte : nullptr;
}
