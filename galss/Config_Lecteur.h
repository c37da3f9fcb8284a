#pragma once
// The reader's identification and configuration: a record of 117 bytes, cp1252, fields at fixed
// positions padded with spaces. It travels behind one status byte in the GALSS reply, and behind
// the frame's start, control and length bytes and that status byte on the serial line.

#include <array>
#include <cstddef>
#include <string>

#include "platform/Octets.h"

class Horloge;

/// In the order of the record.
enum class Champ_Config {
  Constructeur,
  TypeLecteur,
  NumSerie,
  TypeOS,
  NomAppli,
  NumVersion,
  Date,
  Heure,
  NumCRC
};

inline constexpr std::array<std::size_t, 9> Longueurs_Champs = {15, 30, 20, 2, 30, 4, 8, 4, 4};
inline constexpr std::size_t Taille_Config_Lecteur = 15 + 30 + 20 + 2 + 30 + 4 + 8 + 4 + 4;
static_assert(Taille_Config_Lecteur == 117);

/// Bytes before the record in each reply.
inline constexpr std::size_t Avant_Config_Galss = 1;
inline constexpr std::size_t Avant_Config_Serie = 4;

/// Asks a reader for its record, through GALSS or, inside a frame, on the serial line.
inline constexpr std::array<std::uint8_t, 4> Commande_Configuration = {0x01, 0x00, 0x00, 0x94};

/// Leading characters of TypeLecteur that name the reader; the four others vary.
inline constexpr std::size_t Type_Significatif = 26;

/// A field of the record that stands after Avant bytes of the reply; shorter, or empty, where the
/// reply ends before the field does.
std::string Lire_Champ(Vue_Octets Reponse, std::size_t Avant, Champ_Config Lequel);

/// A field as the operator sees it. Raises 13 when the date's month is not a number, 5 when it is
/// not from 1 to 12.
std::string Afficher_Champ(Vue_Octets Reponse, std::size_t Avant, Champ_Config Lequel,
                           Horloge& Temps);
