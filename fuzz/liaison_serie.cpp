// Serial bytes into the reader test, at any moment and in any pieces.

#include "fuzz/Entree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  Entree Reste(Donnees, Taille);
  Epreuve E("serie-9600");
  E.Port.Repondre = [&](Vue_Octets, const std::string&) {
    for (int Morceaux = Reste.Octet() % 4; Morceaux > 0; --Morceaux) {
      const double Delai = Reste.Octet() * 0.01;
      const auto Recus = Reste.Prendre(Reste.Octet());
      E.Port.Envoyer(Octets(Recus.begin(), Recus.end()), Delai);
    }
  };
  Exiger_Sans_Plainte(E, "serie-9600");
  return 0;
}
