// A small foreign library for the tests of the loader: some operations under plain names, one under
// its decorated name, one that faults, one that is missing.

#include <cstdint>
#include <cstring>

extern "C" {

std::int32_t Valeur_Du_Compagnon();

std::int16_t __stdcall OuvrirSession(char* Application, char* LAD, std::int16_t* Session, std::int16_t* Info) {
  *Session = static_cast<std::int16_t>(std::strlen(Application));  // as seen through its final zero
  *Info = static_cast<std::int16_t>(Valeur_Du_Compagnon());
  LAD[0] = '!';
  return -2;
}

std::int16_t __stdcall DebutExclusivite(char*, char*, char*, std::int16_t*) {
  __builtin_trap();  // an invalid address would do, but Wine may map the first pages
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
}
