#include "journal/Crc_32.h"

#include <algorithm>
#include <array>

namespace {

using Table = std::array<std::uint32_t, 256>;

constexpr std::array<Table, 4> Calculer_Tables() {
  std::array<Table, 4> T{};
  for (std::uint32_t X = 0; std::uint32_t & Reste : T[0]) {
    Reste = X++;
    for (int Bit = 0; Bit < 8; ++Bit)
      Reste = (Reste & 1) != 0 ? Reste >> 1 ^ 0xEDB88320 : Reste >> 1;
  }
  for (std::size_t N = 1; N < T.size(); ++N) {
    std::transform(T[N - 1].begin(), T[N - 1].end(), T[N].begin(),
                   [&T](std::uint32_t Reste) { return Reste >> 8 ^ T[0][Reste & 0xFF]; });
  }
  return T;
}

// Tables[n][x]: what the byte x does to the remainder n bytes later.
constexpr std::array<Table, 4> Tables = Calculer_Tables();

}  // namespace

// Four bytes at a time: a block's sum must not be felt beside its exchange.
std::uint32_t Crc_32(Vue_Octets Donnees) {
  std::uint32_t Reste = 0xFFFFFFFF;
  for (; Donnees.size() >= 4; Donnees = Donnees.subspan(4)) {
    const std::uint32_t Mot = std::uint32_t{Donnees[3]} << 24 | std::uint32_t{Donnees[2]} << 16 |
                              std::uint32_t{Donnees[1]} << 8 | Donnees[0];
    Reste ^= Mot;
    Reste = Tables[3][Reste & 0xFF] ^ Tables[2][Reste >> 8 & 0xFF] ^ Tables[1][Reste >> 16 & 0xFF] ^
            Tables[0][Reste >> 24];
  }
  for (const std::uint8_t Octet : Donnees) Reste = Reste >> 8 ^ Tables[0][(Reste ^ Octet) & 0xFF];
  return ~Reste;
}
