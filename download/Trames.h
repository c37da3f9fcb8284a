#pragma once
// The frames of both families: their headers, the body of a load request, the type byte of a block,
// the sizes of the reply buffers, and the statuses of the operations that exchange them.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "galss/Liaison_Galss.h"

/// Statuses of the program's own; the others are 0, GALSS codes and the reader's error bytes.
namespace Statut {
inline constexpr std::int16_t Longueur_Incorrecte = -1;
inline constexpr std::int16_t Etat_Refuse = -2;
inline constexpr std::int16_t Panne_Technique = -3;
inline constexpr std::int16_t Nature_Inconnue = -4;
}  // namespace Statut

/// Place of a block in its file.
struct Rang_Bloc {
  bool Premier = false;
  bool Dernier = false;
};

/// What each frame begins with. A block's type byte follows its header.
inline constexpr std::array<std::uint8_t, 4> Entete_Demande_Telechargement = {0x01, 0x00, 0x00,
                                                                              0x99};
inline constexpr std::array<std::uint8_t, 4> Entete_Bloc_Telechargement = {0x01, 0x00, 0x00, 0x98};
inline constexpr std::array<std::uint8_t, 7> Entete_Demande_Chargement = {0xFF, 0x01, 0x03, 0x01,
                                                                          0x01, 0xFF, 0xFF};
inline constexpr std::array<std::uint8_t, 7> Entete_Bloc_Chargement = {0xFF, 0x01, 0x03, 0x02,
                                                                       0x01, 0xFF, 0xFF};

/// Body of a load request: version, 4 characters, then the length, 6 decimal digits.
inline constexpr std::size_t Taille_Version = 4;
inline constexpr std::size_t Taille_Longueur = 6;
inline constexpr std::int64_t Longueur_Maximale = 999'999;

inline constexpr std::size_t Capacite_Reponse_Demande = 3;
inline constexpr std::size_t Capacite_Reponse_Bloc = 2;

/// The name handed to the error texts, for blocks as well as for requests.
inline constexpr std::string_view Operation_Chargement = "DEMANDE DE CHARGEMENT";

using Corps = std::array<std::uint8_t, Taille_Version + Taille_Longueur>;

/// Raises 5 when the length does not fit its field.
void Exiger_Annoncable(std::int64_t Longueur);

/// Raises 5 when the length cannot be announced. A shorter version is padded with spaces.
Corps Corps_Demande(std::string_view Version, std::int64_t Longueur);

/// 0x01 for the first block, 0x10 for the last, both for the only one, 0 for any other.
constexpr std::uint8_t Type_Bloc(Rang_Bloc Rang) {
  return static_cast<std::uint8_t>((Rang.Premier ? 0x01 : 0) | (Rang.Dernier ? 0x10 : 0));
}

/// A block's header: the family's own, then the type byte.
template <std::size_t N>
constexpr std::array<std::uint8_t, N + 1> Avec_Type(const std::array<std::uint8_t, N>& Entete,
                                                    Rang_Bloc Rang) {
  std::array<std::uint8_t, N + 1> Complet{};
  std::copy(Entete.begin(), Entete.end(), Complet.begin());
  Complet.back() = Type_Bloc(Rang);
  return Complet;
}

/// Block size in an accepted request's reply: its third byte counts units of 1024 bytes.
inline std::int32_t Taille_Accordee(const Liaison_Galss& Liaison) {
  return Liaison.Reponse()[2] * 1024;
}
