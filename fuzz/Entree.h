#pragma once
// What the fuzz targets share: the replies to a transfer, and the verdict.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>

#include "tests/campagne/Epreuve.h"

/// Plays the case and stops the fuzzer at the first complaint.
inline void Exiger_Sans_Plainte(Epreuve& E, const std::string& Nom) {
  E.Passer();
  for (const auto& Plainte : E.Plaintes) {
    std::fprintf(stderr, "%s : %s\n", Nom.c_str(), Plainte.c_str());
    std::abort();
  }
}

/// An update in which the library's replies follow the fuzzer: up to 12 exchanges, each with its
/// rank, its result code, its announced length and its bytes.
inline void Repondre(FuzzedDataProvider Donnees, std::string Nom) {
  for (int I = 0; I < 12 && Donnees.remaining_bytes() > 0; ++I) {
    Nom += (I == 0 ? "/Echange_" : ",Echange_") + std::to_string(Donnees.ConsumeIntegralInRange(1, 16)) + ":";
    if (Donnees.ConsumeBool()) Nom += "code_" + std::to_string(Donnees.ConsumeIntegral<std::int8_t>()) + "_";
    if (Donnees.ConsumeBool()) Nom += "longueur_" + std::to_string(Donnees.ConsumeIntegral<std::int16_t>()) + "_";
    Nom += "octets";
    const auto Octets_Rendus = Donnees.ConsumeBytes<std::uint8_t>(Donnees.ConsumeIntegralInRange(0U, 3U));
    for (const auto Octet : Octets_Rendus) Nom += "_" + Hexadecimal(Octet);
    if (Octets_Rendus.empty()) Nom += "_00";
  }
  Epreuve E(Nom);
  Exiger_Sans_Plainte(E, Nom);
}
