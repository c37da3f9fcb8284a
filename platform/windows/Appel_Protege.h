#pragma once
// Calls into a foreign library that must not take the program down with it. A structured exception
// (an access violation, a division by zero) that the library lets out becomes an Erreur, and the
// floating-point state is ours again after the call: old libraries unmask its exceptions.
// Only in the 32-bit program. What the faulty call left undone inside the library stays undone; an
// exhausted stack and a heap found corrupt still end the program.

#include <cfenv>
#include <type_traits>

/// Puts the floating-point state back when it is destroyed.
class Calcul_Preserve {
 public:
  Calcul_Preserve() { std::fegetenv(&Etat_); }
  ~Calcul_Preserve() { std::fesetenv(&Etat_); }
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
