#pragma once
// One fault of a scenario: at which call it strikes, how often, and what it does to the answer.
// Written "CIBLE [RANG] [fichier N] [fois N | toujours] : EFFET", for example "bloc 3 : refus 146".

#include <array>
#include <climits>
#include <optional>
#include <string_view>

#include "platform/Octets.h"

/// What a fault aims at, and what the reader counts. Appel is any call; the last three are the
/// roles of an exchange.
enum class Cible {
  Appel,
  OuvrirSession,
  DebutExclusivite,
  Echange,
  FinExclusivite,
  FermerSession,
  Lecture,
  Demande,
  Bloc
};

inline constexpr std::array<std::string_view, 9> Noms_Cibles = {
    "appel",         "OuvrirSession", "DebutExclusivite", "Echange", "FinExclusivite",
    "FermerSession", "lecture",       "demande",          "bloc"};

/// Code of a refusal or technical error that the scenario does not give: the family's usual one.
inline constexpr int Code_Usuel = -1;

/// What remains empty leaves the reader's own answer. Effects combine.
struct Effet {
  std::optional<std::int16_t> Code;  ///< result code; unless Livre, the reader never saw the frame
  bool Livre = false;                ///< the frame reached the reader although Code says otherwise
  std::optional<int> Refus;          ///< error or state code, or Code_Usuel
  std::optional<int> Technique;      ///< technical error code, or Code_Usuel
  std::optional<std::uint8_t> Nature;    ///< first byte of the answer
  std::optional<Octets> Reponse;         ///< bytes written whatever they mean, with any code
  bool Vide = false;                     ///< nothing is written, the length stays as given
  std::optional<std::int32_t> Longueur;  ///< announced length, never written past the buffer
  bool Depuis_Capacite = false;          ///< Longueur counts from the buffer's capacity
  std::optional<Octets> Noms;  ///< written over the names lent (or over the command), in place
};

struct Defaut {
  Cible Vise = Cible::Appel;
  int Rang = 1;     ///< first rank struck, from 1; a block's rank counts within its file
  int Fichier = 0;  ///< only within the n-th file announced; 0 for any
  int Reste = 1;    ///< strikes left
  Effet Consequence;
};

inline constexpr int Toujours = INT_MAX;

/// Raises std::invalid_argument with a French text.
Defaut Lire_Defaut(std::string_view Texte);
