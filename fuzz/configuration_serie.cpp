// A configuration answer of the right size, whatever it holds, into the configuration window.

#include "fuzz/Entree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  Octets Config(123, ' ');
  std::copy_n(Donnees, std::min(Taille, Config.size()), Config.begin());
  const std::string_view Constructeur = "INGENICO";
  if (Taille % 8 != 0) std::copy(Constructeur.begin(), Constructeur.end(), Config.begin() + 4);
  Epreuve E("serie-9600");
  const auto Du_Lecteur = E.Port.Repondre;
  E.Port.Repondre = [&](Vue_Octets Trame, const std::string& Reglages) {
    Trame[1] == 0x40 ? E.Port.Envoyer(Config) : Du_Lecteur(Trame, Reglages);
  };
  Exiger_Sans_Plainte(E, "serie-9600");
  return 0;
}
