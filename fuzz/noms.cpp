// File names into the catalogue and the selection panel, in both modes, then an update.

#include "fuzz/Entree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  Entree Reste(Donnees, Taille);
  Epreuve E(Reste.Octet() % 2 == 0 ? "tele/lecteur:trace=non" : "manuel/lecteur:trace=non");
  for (int I = 0; I < 40 && !Reste.Vide(); ++I) {
    const int Choix = Reste.Octet();
    const std::string Debut = (Choix & 1) != 0 ? "Fexa" : (Choix & 2) != 0 ? "E" : "";
    std::string Nom = Debut + Reste.Texte(static_cast<std::size_t>(Choix >> 3)) + ((Choix & 4) != 0 ? ".ing" : "");
    std::replace(Nom.begin(), Nom.end(), '\\', '_');
    E.Poser_Fichier("C:\\Pavorin\\" + Nom, 600);
  }
  Exiger_Sans_Plainte(E, E.Pane());
  return 0;
}
