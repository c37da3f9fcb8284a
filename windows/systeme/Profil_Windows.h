#pragma once
// Private profile files. The ANSI calls define the format of the settings file and do the ordinary
// work; a path that they cannot be told goes to their wide twins, which hold the same file.

#include "platform/Profil_Prive.h"

class Profil_Windows : public Profil_Prive {
 public:
  /// Page_Systeme: the system's code page, as GetACP answers it; 0 for the one in use.
  explicit Profil_Windows(unsigned Page_Systeme = 0);

  Octets Lire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
              std::size_t Taille) override;
  void Ecrire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
              Vue_Octets Valeur) override;

 private:
  unsigned Page_;
};
