// The reader's configuration as the library answers it: admission, decision, family.

#include "fuzz/Entree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  FuzzedDataProvider Reste(Donnees, Taille);
  const int Longueur = Reste.ConsumeIntegralInRange(0, 4095);
  std::string Nom = "650/lecteur:trace=non,lecture_1:longueur_" + std::to_string(Longueur) + "_octets_00";
  for (const auto Octet : Reste.ConsumeBytes<std::uint8_t>(200)) Nom += "_" + Hexadecimal(Octet);
  Epreuve E(Nom);
  Exiger_Sans_Plainte(E, Nom);
  return 0;
}
