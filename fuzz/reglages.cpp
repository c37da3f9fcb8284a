// The settings file's text into the start-up.

#include "fuzz/Entree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  Epreuve E("demarrage");
  E.Profil.Repertoire() = {Donnees, Donnees + Taille};
  Exiger_Sans_Plainte(E, "demarrage");
  return 0;
}
