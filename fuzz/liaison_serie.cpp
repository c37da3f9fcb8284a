// Serial bytes into the reader test, at any moment and in any pieces.

#include "fuzz/Entree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  FuzzedDataProvider Reste(Donnees, Taille);
  Epreuve E("serie-9600");
  E.Port.Repondre = [&](Vue_Octets, const std::string&) {
    for (int Morceaux = Reste.ConsumeIntegralInRange(0, 3); Morceaux > 0; --Morceaux) {
      const double Delai = Reste.ConsumeFloatingPointInRange(0.0, 2.55);
      E.Port.Envoyer(Reste.ConsumeBytes<std::uint8_t>(Reste.ConsumeIntegral<std::uint8_t>()), Delai);
    }
  };
  Exiger_Sans_Plainte(E, "serie-9600");
  return 0;
}
