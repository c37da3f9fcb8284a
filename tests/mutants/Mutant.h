#pragma once
// Put before every source of the mutated copy: each mutation asks here whether it is the one that the
// variable MUTANT switches on for this run.

#include <cstdlib>

inline bool Mutant(int Numero) {
  static const int Choisi = [] {
    const char* const Dit = std::getenv("MUTANT");
    return Dit == nullptr ? 0 : std::atoi(Dit);
  }();
  return Choisi == Numero;
}

/// Stands between the two operands of a comparison: A < B becomes A <Compare<'<'>{12}> B.
template <char Signe>
struct Compare {
  int Numero;
};
template <char Signe, class T>
struct Demi_Compare {
  const T& A;
  int Numero;
};

// One sign against its neighbour.
#define COMPARER(Signe, Voisin, Lettre, Suite)                            \
  template <class T>                                                      \
  Demi_Compare<Lettre, T> operator Signe(const T& A, Compare<Lettre> C) { \
    return {A, C.Numero};                                                 \
  }                                                                       \
  template <class T, class U>                                             \
  bool operator Suite(Demi_Compare<Lettre, T> C, const U& B) {            \
    return Mutant(C.Numero) ? C.A Voisin B : C.A Signe B;                 \
  }
COMPARER(<, <=, '<', >)
COMPARER(<=, <, 'l', >)
COMPARER(>, >=, '>', >)
COMPARER(>=, >, 'g', >)
COMPARER(==, !=, '=', ==)
COMPARER(!=, ==, '!', !=)
