#pragma once
// Calls into a foreign library that must not take the program down with it. A structured exception
// that the library lets out, and that would end the process, becomes an Erreur: a processor fault
// as well as what its language raises (C++, Delphi, RPC). What the library handles itself is never
// seen here. The floating-point state is ours again after the call: old libraries unmask its
// exceptions.
// Only in the 32-bit program, and for the calling thread. What the call left undone inside the
// library stays undone. An exhausted stack, a heap found corrupt and a fault in a thread of the
// library's own still end the program; messages to a debugger go their way.

#include <cfenv>
#include <cstddef>
#include <type_traits>

#include "platform/Octets.h"

/// Puts the floating-point state back when it is destroyed.
class Calcul_Preserve {
 public:
  Calcul_Preserve() { std::fegetenv(&Etat_); }
  ~Calcul_Preserve() {
    // An exception noted before, and unmasked by the library since, is pending: the instruction
    // that loads the state back would raise it.
    asm volatile("fnclex");
    std::fesetenv(&Etat_);
  }
  Calcul_Preserve(const Calcul_Preserve&) = delete;
  Calcul_Preserve& operator=(const Calcul_Preserve&) = delete;

 private:
  std::fenv_t Etat_;
};

/// Calls Appel(Contexte), which must not throw. Raises 51 when a structured exception comes out.
void Appeler_Sous_Garde(void (*Appel)(void* Contexte), void* Contexte);

/// Result of Appel(), called under guard.
template <typename Appel>
auto Proteger(Appel A) {
  struct {
    Appel& A;
    std::invoke_result_t<Appel> Resultat;
  } Echange{A, {}};
  using Contexte = decltype(Echange);
  Appeler_Sous_Garde(
      [](void* Adresse) {
        auto& C = *static_cast<Contexte*>(Adresse);
        C.Resultat = C.A();
      },
      &Echange);
  return Echange.Resultat;
}

/// A buffer lent to the library: a copy of our bytes, whose content replaces them when the loan
/// ends. Built with PAVORIN_PAGES_GARDEES, it ends against a forbidden page, so that a library that
/// writes past it is caught in the act.
class Tampon_Prete {
 public:
  /// Zero bytes behind ours: none in exchange buffers, whose size the library is told. A name needs
  /// one; the others are for a library that pads its answer and would harm our memory.
#ifdef PAVORIN_PAGES_GARDEES
  enum class Fin : std::size_t { Nue = 0, Zero = 1 };
#else
  enum class Fin : std::size_t { Nue = 0, Zero = 256 };
#endif

  Tampon_Prete(Octets& Origine, Fin Suite);
  ~Tampon_Prete();
  Tampon_Prete(const Tampon_Prete&) = delete;
  Tampon_Prete& operator=(const Tampon_Prete&) = delete;

  std::uint8_t* Adresse() {
    return Debut_;
  }

 private:
  Octets& Origine_;
#ifdef PAVORIN_PAGES_GARDEES
  void* Pages_ = nullptr;
#else
  Octets Copie_;
#endif
  std::uint8_t* Debut_ = nullptr;
};
