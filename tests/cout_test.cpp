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
void* operator new(std::size_t Taille, const std::nothrow_t&) noexcept {
  ++Allocations;
  return std::malloc(Taille == 0 ? 1 : Taille);
}
void operator delete(void* Place) noexcept {
  std::free(Place);
}
void operator delete(void* Place, std::size_t) noexcept {
  std::free(Place);
}

namespace {

/// Of a second transfer of a file of that size.
std::size_t Allocations_D_Un_Transfert(bool Chargement, std::size_t Taille) {
  Transfert_Immediat T(Taille);
  EXPECT_TRUE(T.Executer(Chargement));
  const std::size_t Avant = Allocations;
  EXPECT_TRUE(T.Executer(Chargement));
  EXPECT_EQ(T.Immediate.Echanges, 2 * (1 + static_cast<int>(Taille / 2043 + 1)));
  return Allocations - Avant;
}

TEST(Cout, Un_Bloc_N_Alloue_Rien) {
  for (const bool Chargement : {false, true}) {
    EXPECT_EQ(Allocations_D_Un_Transfert(Chargement, 900'000), Allocations_D_Un_Transfert(Chargement, 100'000))
        << "nine times the blocks, the same allocations";
  }
}

}  // namespace
