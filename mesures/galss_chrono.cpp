// A GALSS library that accepts everything and times what it is asked. In C:\Mesure: attente.txt
// gives the milliseconds before each answer, read at each session; chrono.txt is written with each
// file's last block.

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

struct Chrono {
  int Attente_Ms = 0;
  int Blocs = 0;
  LONGLONG Dans_Echange = 0, Premier = 0;
};
Chrono Etat;

LONGLONG Tops() {
  LARGE_INTEGER Lus;
  QueryPerformanceCounter(&Lus);
  return Lus.QuadPart;
}

void Attendre() {
  if (Etat.Attente_Ms == 0) return;
  static const HANDLE Minuterie = CreateWaitableTimerA(nullptr, TRUE, nullptr);
  LARGE_INTEGER Delai;
  Delai.QuadPart = -10'000LL * Etat.Attente_Ms;  // relative, in 100 ns
  SetWaitableTimer(Minuterie, &Delai, 0, nullptr, nullptr, FALSE);
  WaitForSingleObject(Minuterie, INFINITE);
}

// Blocks, microseconds inside, microseconds from the first block's start to the last one's end.
void Ecrire_Totaux(LONGLONG Fin) {
  LARGE_INTEGER Par_Seconde;
  QueryPerformanceFrequency(&Par_Seconde);
  const double Unite = 1e6 / static_cast<double>(Par_Seconde.QuadPart);
  FILE* const Sortie = std::fopen(R"(C:\Mesure\chrono.txt)", "w");
  std::fprintf(Sortie, "%d %.1f %.1f\n", Etat.Blocs, Unite * static_cast<double>(Etat.Dans_Echange),
               Unite * static_cast<double>(Fin - Etat.Premier));
  std::fclose(Sortie);
}

// A two-slot reader older than application 200, for which every file is newer.
constexpr char Lecteur[] =
    "\0INGENICO       LECTEUR BIFENTE 2.0M-XA-V2    MESURE00000000000001"
    "03MESURE                        013020050315"
    "1430"
    "A1B2";
static_assert(sizeof Lecteur == 1 + 117 + 1);

}  // namespace

#define OPERATION extern "C" __declspec(dllexport) std::int16_t __stdcall

OPERATION OuvrirSession(char*, char*, std::int16_t*, std::int16_t*) {
  Etat = {};
  if (FILE* const Reglage = std::fopen(R"(C:\Mesure\attente.txt)", "r")) {
    if (std::fscanf(Reglage, "%d", &Etat.Attente_Ms) != 1) Etat.Attente_Ms = 0;
    std::fclose(Reglage);
  }
  return 0;
}
OPERATION DebutExclusivite(char*, char*, char*, std::int16_t*) {
  return 0;
}
OPERATION FinExclusivite(std::int16_t) {
  return 0;
}
OPERATION FermerSession(std::int16_t, std::int16_t*) {
  return 0;
}

OPERATION Echange(std::int16_t, std::int16_t, std::uint8_t* Commande, std::int32_t*, std::uint8_t* Reponse,
                  std::int32_t* Longueur_Reponse) {
  const LONGLONG Debut = Tops();
  Attendre();
  const std::uint8_t Ordre = Commande[3];  // 94 configuration, 99 request, 98 block
  if (Ordre == 0x94) std::memcpy(Reponse, Lecteur, *Longueur_Reponse = sizeof Lecteur - 1);
  if (Ordre == 0x99) std::memcpy(Reponse, "\0\2\4", 3);
  if (Ordre != 0x98) return 0;
  std::memset(Reponse, 0, 2);
  if (Etat.Blocs++ == 0) Etat.Premier = Debut;
  const LONGLONG Fin = Tops();
  Etat.Dans_Echange += Fin - Debut;
  if ((Commande[4] & 0x10) != 0) Ecrire_Totaux(Fin);
  return 0;
}
