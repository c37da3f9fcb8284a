#pragma once
// What the fuzz targets share: the fuzzer's bytes taken apart, and the verdict.

#include <cstdio>
#include <cstdlib>

#include "tests/campagne/Epreuve.h"

class Entree {
 public:
  Entree(const std::uint8_t* Donnees, std::size_t Taille) : Reste_(Donnees, Taille) {}
  bool Vide() const { return Reste_.empty(); }
  std::uint8_t Octet() { return Vide() ? std::uint8_t{0} : Prendre(1)[0]; }
  Vue_Octets Prendre(std::size_t Nombre) {
    const auto Pris = Reste_.first(std::min(Nombre, Reste_.size()));
    Reste_ = Reste_.subspan(Pris.size());
    return Pris;
  }
  std::string Texte(std::size_t Nombre) {
    const auto Pris = Prendre(Nombre);
    return {Pris.begin(), Pris.end()};
  }

 private:
  Vue_Octets Reste_;
};

/// Plays the case and stops the fuzzer at the first complaint.
inline void Exiger_Sans_Plainte(Epreuve& E, const std::string& Nom) {
  for (const auto& Plainte : E.Passer().Plaintes) {
    std::fprintf(stderr, "%s : %s\n", Nom.c_str(), Plainte.c_str());
    std::abort();
  }
}

/// An update in which the library's replies follow the fuzzer: up to 12 exchanges, each with its
/// rank, its result code, its announced length and its bytes.
inline void Repondre(Entree Donnees, std::string Nom, std::string_view Cible) {
  for (int I = 0; I < 12 && !Donnees.Vide(); ++I) {
    const int Choix = Donnees.Octet();
    Nom += (I == 0 ? "/" : ",") + std::string(Cible) + "_" + std::to_string(1 + Choix % 16) + ":";
    if ((Choix & 16) != 0) Nom += "code_" + std::to_string(static_cast<std::int8_t>(Donnees.Octet())) + "_";
    if ((Choix & 32) != 0) {
      const int Haut = static_cast<std::int8_t>(Donnees.Octet());
      Nom += "longueur_" + std::to_string(Haut * 256 + Donnees.Octet()) + "_";
    }
    Nom += "octets" + std::string((Choix & 192) == 0 ? "_00" : "");
    for (const auto Octet : Donnees.Prendre(static_cast<std::size_t>(Choix >> 6))) {
      Nom += "_" + Hexadecimal(Octet);
    }
  }
  Epreuve E(Nom);
  Exiger_Sans_Plainte(E, Nom);
}
