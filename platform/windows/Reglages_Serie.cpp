#include "platform/windows/Reglages_Serie.h"

#include <charconv>

namespace {

// Order of the enumerations.
constexpr std::string_view Lettres_Parite = "noems";
constexpr std::string_view Textes_Stop[] = {"1", "1.5", "2"};

std::optional<Bits_Stop> Lire_Stop(std::string_view Texte) {
  for (std::uint8_t Rang = 0; const std::string_view Possible : Textes_Stop) {
    if (Texte == Possible) return Bits_Stop{Rang};
    ++Rang;
  }
  return std::nullopt;
}

}  // namespace

std::optional<Reglages_Serie> Lire_Reglages(std::string_view Texte) {
  std::uint32_t Bauds = 0;
  const auto [Fin, Echec] = std::from_chars(Texte.data(), Texte.data() + Texte.size(), Bauds);
  const auto Chiffres = static_cast<std::size_t>(Fin - Texte.data());
  if (Echec != std::errc() || Bauds == 0 || Chiffres > 7) return std::nullopt;
  const std::string_view Suite = Texte.substr(Chiffres);  // ",n,8,1"
  if (Suite.size() < 6 || Suite[0] != ',' || Suite[2] != ',' || Suite[4] != ',')
    return std::nullopt;
  const std::size_t Rang_Parite = Lettres_Parite.find(Suite[1]);
  const auto Stop = Lire_Stop(Suite.substr(5));
  if (Rang_Parite == std::string_view::npos || Suite[3] < '5' || Suite[3] > '8' || !Stop) {
    return std::nullopt;
  }
  return Reglages_Serie{Bauds, static_cast<Parite>(Rang_Parite),
                        static_cast<std::uint8_t>(Suite[3] - '0'), *Stop};
}
