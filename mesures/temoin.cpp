// What the program is measured against, and the stopwatch of its start:
//   temoin LARGEUR HAUTEUR N        a bare window, with N plain labels
//   temoin boucle DLL FICHIER       a bare loop: the same reads and exchanges as a transfer
//   temoin depart COMMANDE          starts a program; microseconds until its window is visible,
//                                   then until it waits for the operator

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/windows/Poignee.h"

namespace {

using Horloge = std::chrono::steady_clock;

int Fenetre_Nue(int Largeur, int Hauteur, int Etiquettes) {
  WNDCLASSA Classe{};
  Classe.lpfnWndProc = DefWindowProcA;
  Classe.hInstance = GetModuleHandleA(nullptr);
  Classe.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  Classe.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  Classe.lpszClassName = "Nue";
  RegisterClassA(&Classe);
  const HWND Nue = CreateWindowA("Nue", "Nue", WS_OVERLAPPEDWINDOW, 0, 0, Largeur, Hauteur, nullptr, nullptr,
                                 Classe.hInstance, nullptr);
  for (int I = 0; I < Etiquettes; ++I) {
    CreateWindowA("STATIC", "Etiquette", WS_CHILD | WS_VISIBLE, I % 5 * 120, I / 5 * 30, 110, 25, Nue, nullptr,
                  Classe.hInstance, nullptr);
  }
  ShowWindow(Nue, SW_SHOWNORMAL);
  SetForegroundWindow(Nue);
  RedrawWindow(Nue, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  for (MSG Message; GetMessageA(&Message, nullptr, 0, 0) > 0;) DispatchMessageA(&Message);
  return 0;
}

int Boucle_Nue(const char* Dll, const char* Chemin) {
  using Un_Echange =
      std::int16_t __stdcall(std::int16_t, std::int16_t, std::uint8_t*, std::int32_t*, std::uint8_t*, std::int32_t*);
  auto* const Echange =
      reinterpret_cast<Un_Echange*>(reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(Dll), "Echange")));
  const Poignee Fichier(CreateFileA(Chemin, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  DWORD Reste = GetFileSize(Fichier.get(), nullptr);
  std::uint8_t Trame[5 + 2043] = {1, 0, 0, 0x98, 1}, Reponse[2];
  while (Reste > 0) {
    DWORD Lus = 0;
    ReadFile(Fichier.get(), Trame + 5, sizeof Trame - 5, &Lus, nullptr);
    Reste -= Lus;
    if (Reste == 0) Trame[4] |= 0x10;
    std::int32_t Longueur = static_cast<std::int32_t>(5 + Lus), Recus = sizeof Reponse;
    Echange(0, 0, Trame, &Longueur, Reponse, &Recus);
    Trame[4] = 0;
  }
  return 0;
}

struct Recherche {
  DWORD Processus;
  HWND Trouvee;
};

BOOL CALLBACK Regarder(HWND Une, LPARAM Adresse) {
  auto& R = *reinterpret_cast<Recherche*>(Adresse);
  DWORD Auteur = 0;
  GetWindowThreadProcessId(Une, &Auteur);
  if (Auteur == R.Processus && IsWindowVisible(Une)) R.Trouvee = Une;
  return R.Trouvee == nullptr;
}

int Depart(char* Commande) {
  STARTUPINFOA Infos{};
  Infos.cb = sizeof Infos;
  PROCESS_INFORMATION Lance{};
  const auto Debut = Horloge::now();
  if (!CreateProcessA(nullptr, Commande, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &Infos, &Lance)) {
    return 1;
  }
  Recherche R{Lance.dwProcessId, nullptr};
  while (R.Trouvee == nullptr) {
    Sleep(1);
    EnumWindows(Regarder, reinterpret_cast<LPARAM>(&R));
  }
  const auto Visible = Horloge::now();
  WaitForInputIdle(Lance.hProcess, INFINITE);
  DWORD_PTR Reponse = 0;
  SendMessageTimeoutA(R.Trouvee, WM_NULL, 0, 0, SMTO_NORMAL, 60'000, &Reponse);
  const std::chrono::duration<double, std::micro> Jusque_La = Visible - Debut, En_Tout = Horloge::now() - Debut;
  std::printf("%.0f %.0f\n", Jusque_La.count(), En_Tout.count());
  TerminateProcess(Lance.hProcess, 0);
  WaitForSingleObject(Lance.hProcess, INFINITE);
  return 0;
}

}  // namespace

int main(int Nombre, char** Arguments) {
  if (Nombre < 3) return 2;
  if (std::strcmp(Arguments[1], "depart") == 0) return Depart(Arguments[2]);
  if (Nombre < 4) return 2;
  if (std::strcmp(Arguments[1], "boucle") == 0) return Boucle_Nue(Arguments[2], Arguments[3]);
  return Fenetre_Nue(std::atoi(Arguments[1]), std::atoi(Arguments[2]), std::atoi(Arguments[3]));
}
