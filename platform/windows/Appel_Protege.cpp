#include "platform/windows/Appel_Protege.h"

#ifdef __i386__

#include <windows.h>

#include "platform/Erreur.h"
#include "platform/Texte.h"

namespace {

// The compiler knows no __try: the guard is a link of the thread's chain of exception handlers, as
// the system defines it, in this function's frame. The chain is asked innermost first, so that the
// exceptions that the library handles itself never come here.
struct Garde {
  DWORD Suivante;                                                                // system's layout
  EXCEPTION_DISPOSITION (*Traitant)(EXCEPTION_RECORD*, void*, CONTEXT*, void*);  // system's layout
  void* Reprise[5];
  DWORD Code;
};

bool Est_Fatale(const EXCEPTION_RECORD& Faute) {
  // Below: debugger messages, thread names and breakpoints, which resume by themselves.
  constexpr DWORD Premiere_Erreur = 0xC0000000;
  return Faute.ExceptionCode >= Premiere_Erreur && Faute.ExceptionCode != EXCEPTION_STACK_OVERFLOW;
}

EXCEPTION_DISPOSITION Traiter(EXCEPTION_RECORD* Faute, void* Lien, CONTEXT*, void*) {
  constexpr DWORD Deroulement = 0x2 | 0x4;  // EXCEPTION_UNWINDING, EXCEPTION_EXIT_UNWIND
  if ((Faute->ExceptionFlags & Deroulement) != 0 || !Est_Fatale(*Faute)) {
    return ExceptionContinueSearch;
  }
  auto* const Notre = static_cast<Garde*>(Lien);
  Notre->Code = Faute->ExceptionCode;
  // RtlUnwind runs the library's own clean-up; it keeps no register.
  asm volatile(
      "pushal\n\t"
      "pushl $0\n\t"
      "pushl $0\n\t"
      "pushl $0\n\t"
      "pushl %0\n\t"
      "call _RtlUnwind@16\n\t"
      "popal"
      :
      : "r"(Notre)
      : "memory", "cc");
  __builtin_longjmp(Notre->Reprise, 1);
}

// Apart from its caller and never inlined: after the jump only what lies in memory is known.
__attribute__((noinline)) DWORD Appeler(void (*Appel)(void*), void* Contexte) {
  Garde Notre{__readfsdword(0), Traiter, {}, 0};
  if (__builtin_setjmp(Notre.Reprise) == 0) {
    __writefsdword(0, reinterpret_cast<DWORD>(&Notre));
    Appel(Contexte);
  }
  __writefsdword(0, Notre.Suivante);
  return Notre.Code;
}

}  // namespace

void Appeler_Sous_Garde(void (*Appel)(void* Contexte), void* Contexte) {
  DWORD Code = 0;
  {
    const Calcul_Preserve Calcul;
    Code = Appeler(Appel, Contexte);
  }
  if (Code != 0) {
    throw Erreur(Numero_Erreur::Erreur_Interne,
                 "La bibliothèque GALSS a commis une faute : " + Hexadecimal(Code));
  }
}

#else

void Appeler_Sous_Garde(void (*Appel)(void* Contexte), void* Contexte) {
  const Calcul_Preserve Calcul;
  Appel(Contexte);
}

#endif
