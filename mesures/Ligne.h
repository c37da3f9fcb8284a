#pragma once
// How a measure is told: what, the median of its runs, their spread, the target, and whether the median meets it.

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

enum class Sens { Sans_Cible, Au_Plus, Au_Moins };

using Releves = std::vector<double>;

inline double Mediane(Releves Valeurs) {
  std::ranges::sort(Valeurs);
  return Valeurs[Valeurs.size() / 2];
}

inline void Ligne(const std::string& Quoi, const Releves& Valeurs, const char* Unite, Sens S = Sens::Sans_Cible,
                  double Cible = 0) {
  const double M = Mediane(Valeurs);
  const auto [Bas, Haut] = std::ranges::minmax(Valeurs);
  std::printf("%-58s%11.2f %-6s", Quoi.c_str(), M, Unite);
  if (Valeurs.size() > 1) {
    const auto [Meilleur, Pire] = S == Sens::Au_Moins ? std::pair(Haut, Bas) : std::pair(Bas, Haut);
    std::printf("(%.2f to %.2f, %zu runs)", Meilleur, Pire, Valeurs.size());
  }
  if (S != Sens::Sans_Cible) {
    const bool Tenu = S == Sens::Au_Moins ? M >= Cible : M <= Cible;
    std::printf(" %s %g %s", S == Sens::Au_Moins ? ">=" : "<=", Cible, Tenu ? "met" : "SHORT");
  }
  std::printf("\n");
  std::fflush(stdout);
}

/// Run by run: what was measured together is compared together.
inline Releves Rapport(const Releves& Dessus, const Releves& Dessous) {
  Releves Quotients;
  for (std::size_t I = 0; I < std::min(Dessus.size(), Dessous.size()); ++I) {
    Quotients.push_back(Dessus[I] / Dessous[I]);
  }
  return Quotients;
}
