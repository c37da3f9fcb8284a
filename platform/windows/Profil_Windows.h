#pragma once
// Private profile files through the ANSI calls, whose bytes are the format of the settings file.

#include "platform/Profil_Prive.h"

class Profil_Windows : public Profil_Prive {
 public:
  Octets Lire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
              std::size_t Taille) override;
  void Ecrire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
              Vue_Octets Valeur) override;
};
