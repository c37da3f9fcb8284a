// What the program may not come to cost: counts, never times.

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "tests/Galss_Immediate.h"

namespace {
std::size_t Allocations = 0;
}

void* operator new(std::size_t Taille) {
  ++Allocations;
  if (void* Place = std::malloc(Taille == 0 ? 1 : Taille)) return Place;
  throw std::bad_alloc();
}
void operator delete(void* Place) noexcept {
  std::free(Place);
}
void operator delete(void* Place, std::size_t) noexcept {
  std::free(Place);
}

namespace {

TEST(Cout, Un_Bloc_N_Alloue_Rien) {
  for (const bool Chargement : {false, true}) {
    std::size_t Comptes[2] = {};
    for (const std::size_t Milliers : {100, 900}) {
      Transfert_Immediat T(Milliers * 1000);
      EXPECT_TRUE(T.Executer(Chargement));
      Comptes[0] = Allocations;
      EXPECT_TRUE(T.Executer(Chargement));
      Comptes[0] = Allocations - Comptes[0];
      EXPECT_EQ(T.Immediate.Echanges, 2 * (1 + static_cast<int>(Milliers * 1000 / 2043 + 1)));
      if (Milliers == 100) Comptes[1] = Comptes[0];
    }
    EXPECT_EQ(Comptes[0], Comptes[1]) << "nine times the blocks, the same allocations";
  }
}

TEST(Cout, Une_Recherche_Par_Genre_Et_Par_Passage) {
  Poste_De_Test P;
  int Recherches = 0;
  P.Pannes_.Avant = [&](std::string_view Appel, int) { Recherches += Appel == "Chercher"; };
  for (int I = 0; I < 500; ++I) P.Disque.Poser("C:\\Pavorin\\E" + std::to_string(1000 + I) + ".ing");
  P.Demarrer();
  EXPECT_EQ(Recherches, 1 + 2 + 2) << "presence, scan, second scan of the start-up";
}

}  // namespace
