// Replies into the transfers of the second family.

#include "fuzz/Entree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  Repondre({Donnees, Taille}, "charge");
  return 0;
}
