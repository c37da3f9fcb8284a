#pragma once
// Windows private profile (INI) files, through the ANSI calls that define their format.

#include <cstddef>
#include <string_view>

#include "platform/Octets.h"

class Profil_Prive {
 public:
  virtual ~Profil_Prive() = default;

  /// The key's value, cp1252, cut to Taille - 1 bytes; empty when file, section or key is missing.
  virtual Octets Lire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
                      std::size_t Taille) = 0;

  /// Creates the file and the section when they are missing. A failure is ignored.
  virtual void Ecrire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
                      Vue_Octets Valeur) = 0;
};
