// A GALSS library that accepts everything and times what it is asked. In C:\Mesure: attente.txt
// gives the milliseconds before each answer, read at each session; chrono.txt is written with each
// file's last block.

#include <chrono>
#include <cstdint>
#include <cstring>
#include <fstream>

#include "windows/systeme/Poignee.h"

namespace {

using Horloge = std::chrono::steady_clock;
using Microsecondes = std::chrono::duration<double, std::micro>;

struct Chrono {
  int Attente_Ms = 0;
  int Blocs = 0;
  Microsecondes Dans_Echange{0};
  Horloge::time_point Premier;
};
Chrono Etat;

void Attendre() {
  if (Etat.Attente_Ms == 0) return;
  static const Poignee Minuterie(CreateWaitableTimerA(nullptr, TRUE, nullptr));
  LARGE_INTEGER Delai;
  Delai.QuadPart = -10'000LL * Etat.Attente_Ms;  // relative, in 100 ns
  SetWaitableTimer(Minuterie.get(), &Delai, 0, nullptr, nullptr, FALSE);
  WaitForSingleObject(Minuterie.get(), INFINITE);
}

// Blocks, microseconds inside, microseconds from the first block's start to the last one's end.
void Ecrire_Totaux(Horloge::time_point Fin) {
  std::ofstream(R"(C:\Mesure\chrono.txt)") << std::fixed << Etat.Blocs << ' ' << Etat.Dans_Echange.count() << ' '
                                           << Microsecondes(Fin - Etat.Premier).count() << '\n';
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
  std::ifstream(R"(C:\Mesure\attente.txt)") >> Etat.Attente_Ms;
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
  const auto Debut = Horloge::now();
  Attendre();
  const std::uint8_t Ordre = Commande[3];  // 94 configuration, 99 request, 98 block
  if (Ordre == 0x94) std::memcpy(Reponse, Lecteur, *Longueur_Reponse = sizeof Lecteur - 1);
  if (Ordre == 0x99) std::memcpy(Reponse, "\0\2\4", 3);
  if (Ordre != 0x98) return 0;
  std::memset(Reponse, 0, 2);
  if (Etat.Blocs++ == 0) Etat.Premier = Debut;
  const auto Fin = Horloge::now();
  Etat.Dans_Echange += Fin - Debut;
  if ((Commande[4] & 0x10) != 0) Ecrire_Totaux(Fin);
  return 0;
}
