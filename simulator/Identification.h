#pragma once
// What a reader says of itself: nine text fields at fixed places, padded with spaces. The same
// record travels through GALSS and over the serial line.

#include <array>
#include <optional>
#include <string_view>

#include "platform/Octets.h"

enum class Champ {
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

struct Description_Champ {
  std::string_view Cle;     ///< key of the scenario
  std::size_t Longueur;     ///< bytes in the record
  std::string_view Valeur;  ///< what the simulated reader holds when the scenario says nothing
};

/// In the order of the record.
inline constexpr std::array<Description_Champ, 9> Champs_Identification = {{
    {"constructeur", 15, "INGENICO"},
    {"type_lecteur", 30, "INGENICO  650"},
    {"num_serie", 20, "SIMULE0000000001"},
    {"type_os", 2, "03"},
    {"nom_appli", 30, "SESAM-VITALE"},
    {"num_version", 4, "0127"},
    {"date", 8, "20050315"},
    {"heure", 4, "1430"},
    {"num_crc", 4, "A1B2"},
}};

inline constexpr std::size_t Taille_Enregistrement = 117;

static_assert([] {
  std::size_t Total = 0;
  for (const auto& Champ : Champs_Identification) {
    Total += Champ.Longueur;
  }
  return Total == Taille_Enregistrement;
}());

/// New values of some fields, for example those that a kernel brings.
using Changements = std::array<std::optional<Octets>, Champs_Identification.size()>;

class Identification {
 public:
  Identification();

  const Octets& operator[](Champ Nom) const { return Valeurs_[static_cast<std::size_t>(Nom)]; }
  void Changer(const Changements& Nouveaux);

  /// The 117 bytes. A value that is too long is cut.
  Octets Enregistrement() const;

 private:
  std::array<Octets, Champs_Identification.size()> Valeurs_;
};
