// File names into the catalogue and the selection panel, in both modes, then an update.

#include "fuzz/Entree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  FuzzedDataProvider Reste(Donnees, Taille);
  Epreuve E(Reste.ConsumeBool() ? "tele/lecteur:trace=non" : "manuel/lecteur:trace=non");
  for (int I = 0; I < 40 && Reste.remaining_bytes() > 0; ++I) {
    const std::string Debut = Reste.PickValueInArray({"Fexa", "E", ""});
    const std::string Fin = Reste.ConsumeBool() ? ".ing" : "";
    std::string Nom = Debut + Reste.ConsumeBytesAsString(Reste.ConsumeIntegralInRange(0U, 31U)) + Fin;
    std::replace(Nom.begin(), Nom.end(), '\\', '_');
    E.Disque.Poser("C:\\Pavorin\\" + Nom, Contenu_De(Nom, 600));
  }
  Exiger_Sans_Plainte(E, E.Pane());
  return 0;
}
