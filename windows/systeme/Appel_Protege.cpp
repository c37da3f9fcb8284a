#include "windows/systeme/Appel_Protege.h"

#include <windows.h>

#include <algorithm>
#include <new>

#include "platform/Erreur.h"
#include "platform/Texte.h"

#ifdef __i386__

// How the guard works, since this compiler knows no __try:
//  1. Appeler puts a Garde in its frame and links it to the thread's chain of exception handlers,
//     whose head is at fs:0. The system asks the chain from the innermost link outwards, so the
//     library's own handlers are asked before ours; what reaches Traiter nobody inside has handled,
//     and outside there is only the end of the process.
//  2. Traiter notes the code, lets RtlUnwind run the clean-up of the frames inside, and jumps to
//     where Appeler stood before the call.
//  3. Appeler takes its link off the chain, whichever way it came back.
// To change it safely: Garde lies on the stack, as the system demands of a link, and its first two
// members are the system's; Appeler stays apart and not inlined, reads nothing but memory after the
// jump, and holds no object with a destructor, since none would run.

namespace {

struct Garde {
  DWORD Suivante;
  EXCEPTION_DISPOSITION (*Traitant)(EXCEPTION_RECORD*, void*, CONTEXT*, void*);
  void* Reprise[5];  // as __builtin_setjmp fills it
  DWORD Code;
};

// Messages to a debugger, harmless without one, and the end of the stack, on which there is no room
// for a message. For all the others it does not matter whether they are flagged as continuable:
// unhandled, they end the process too.
bool Passe_Outre(DWORD Code) {
  constexpr DWORD Nom_De_Fil = 0x406D1388;  // a thread tells its name
  constexpr DWORD Genre = 0xFFFF0000, Messages = 0x40010000;
  return (Code & Genre) == Messages || Code == Nom_De_Fil || Code == EXCEPTION_BREAKPOINT ||
         Code == EXCEPTION_SINGLE_STEP || Code == EXCEPTION_STACK_OVERFLOW;
}

EXCEPTION_DISPOSITION Traiter(EXCEPTION_RECORD* Faute, void* Lien, CONTEXT*, void*) {
  constexpr DWORD Deroulement = 0x2 | 0x4;  // EXCEPTION_UNWINDING, EXCEPTION_EXIT_UNWIND
  if ((Faute->ExceptionFlags & Deroulement) != 0 || Passe_Outre(Faute->ExceptionCode)) {
    return ExceptionContinueSearch;
  }
  auto* const Notre = static_cast<Garde*>(Lien);
  Notre->Code = Faute->ExceptionCode;
  // RtlUnwind(up to our link, no return address, no record, no result). It keeps no register.
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

#ifdef PAVORIN_PAGES_GARDEES

Tampon_Prete::Tampon_Prete(Octets& Origine, Fin Suite) : Origine_(Origine) {
  constexpr std::size_t Page = 4096;
  const std::size_t Taille = Origine.size() + static_cast<std::size_t>(Suite);
  const std::size_t Permis = (Taille + Page - 1) / Page * Page;
  Pages_ = VirtualAlloc(nullptr, Permis + Page, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (Pages_ == nullptr) throw std::bad_alloc();
  const auto Base = static_cast<std::uint8_t*>(Pages_);
  DWORD Ancienne = 0;
  VirtualProtect(Base + Permis, Page, PAGE_NOACCESS, &Ancienne);
  Debut_ = Base + Permis - Taille;
  std::copy(Origine.begin(), Origine.end(), Debut_);
}

Tampon_Prete::~Tampon_Prete() {
  std::copy_n(Debut_, Origine_.size(), Origine_.begin());
  VirtualFree(Pages_, 0, MEM_RELEASE);
}

#else

Tampon_Prete::Tampon_Prete(Octets& Origine, Fin Suite) : Origine_(Origine), Copie_(Origine) {
  Copie_.resize(Origine.size() + static_cast<std::size_t>(Suite));
  Debut_ = Copie_.data();
}

Tampon_Prete::~Tampon_Prete() {
  std::copy_n(Debut_, Origine_.size(), Origine_.begin());
}

#endif
