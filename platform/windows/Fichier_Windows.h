#pragma once
// A file open for reading. Nobody may write it meanwhile: what goes to the reader is one state of
// the file.

#include <string>

#include "platform/Systeme_Fichiers.h"
#include "platform/windows/Poignee.h"

class Fichier_Windows : public Fichier_Ouvert {
 public:
  /// Raises 53, 76, 70 or 57.
  explicit Fichier_Windows(std::string_view Chemin);

  void Lire(std::span<std::uint8_t> Tampon) override;

 private:
  std::string Chemin_;
  Poignee Fichier_;
};
