// A small foreign library for the tests of the loader, exported under plain names but for one, or under
// decorated ones. DebutExclusivite does what its first text says, as a badly behaved library would.

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

LONG CALLBACK Reprendre(EXCEPTION_POINTERS*) {
  return EXCEPTION_CONTINUE_EXECUTION;
}

// An exception that nobody but this library is to hear of, and a word to a debugger.
std::int16_t Tout_Traiter() {
  void* const Traitant = AddVectoredExceptionHandler(1, Reprendre);
  RaiseException(0xC0001234, 0, 0, nullptr);
  RemoveVectoredExceptionHandler(Traitant);
  OutputDebugStringA("rien");
  return 7;
}

std::int16_t Zeros(const char* Texte) {
  const char* const Fin = Texte + std::strlen(Texte);
  int Nombre = 0;
  while (Nombre < 256 && Fin[Nombre] == 0) ++Nombre;
  return static_cast<std::int16_t>(Nombre);
}

}  // namespace

// A clean-up that never ends, when the test asks for it.
BOOL WINAPI DllMain(HINSTANCE, DWORD Moment, void* Processus_Fini) {
  const bool Lente = GetEnvironmentVariableW(L"PAVORIN_FIN_LENTE", nullptr, 0) != 0;
  if (Moment == DLL_PROCESS_DETACH && Processus_Fini != nullptr && Lente) Sleep(INFINITE);
  return TRUE;
}

extern "C" {

std::int32_t Valeur_Du_Compagnon();

std::int16_t __stdcall OuvrirSession(char* Application, char* LAD, std::int16_t* Session, std::int16_t* Info) {
  *Session = static_cast<std::int16_t>(std::strlen(Application));  // as seen through its final zero
  *Info = static_cast<std::int16_t>(Valeur_Du_Compagnon());
  LAD[0] = '!';
  return LoadLibraryA("nu.dll") != nullptr ? -3 : -2;
}

std::int16_t __stdcall DebutExclusivite(char* Texte, char*, char* LAD, std::int16_t* Exclusivite) {
  const char* const Suite = Texte + 1;
  switch (Texte[0]) {
    case 'c':  // loads a companion by its bare name
      return LoadLibraryA(Suite) != nullptr;
    case 'e':  // raises an exception that may be resumed
    case 'E':  // or may not
      RaiseException(std::strtoul(Suite, nullptr, 16), Texte[0] == 'E' ? EXCEPTION_NONCONTINUABLE : 0, 0, nullptr);
      return 1;
    case 'h':
      return Tout_Traiter();
    case 'l':  // reads what the caller tells elsewhere that it is doing
      *Exclusivite = *reinterpret_cast<std::int16_t*>(std::strtoull(Suite, nullptr, 10));
      return 0;
    case 'z':  // counts what it may overwrite behind a name, and does
      *Exclusivite = Zeros(LAD);
      std::memset(LAD + std::strlen(LAD), ' ', std::size_t(*Exclusivite));
      return 0;
    default:
      __builtin_trap();  // an invalid address would do, but Wine may map the first pages
  }
}

std::int16_t __stdcall Echange(std::int16_t, std::int16_t, std::uint8_t* Commande, std::int32_t* Longueur_Commande,
                               std::uint8_t* Reponse, std::int32_t* Longueur_Reponse) {
  // Longueur_Reponse bytes are ours to write: a greedy test lends fewer than it says.
  std::memset(Reponse, Commande[*Longueur_Commande - 1], std::size_t(*Longueur_Reponse));
  *Longueur_Reponse = -7;
  return 64;
}

std::int16_t __stdcall FinExclusivite(std::int16_t Exclusivite) {
  const std::uint16_t Tout_Demasque = 0x1332;  // floating-point traps on, as old runtimes leave it
  asm volatile("fldcw %0" : : "m"(Tout_Demasque));
  return static_cast<std::int16_t>(Exclusivite + 1);
}

std::int16_t __stdcall FermerSession(std::int16_t Session, std::int16_t* Exclusivite) {
  *Exclusivite = Session;
  return 9;
}
}
