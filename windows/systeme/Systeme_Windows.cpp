#include "windows/systeme/Systeme_Windows.h"

#include <shellapi.h>
#include <tlhelp32.h>

#include <array>
#include <cstring>

#include "windows/systeme/Fonction_Module.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

// The program and its libraries never take a library from the current directory, nor a system
// library planted beside the program.
void Limiter_Recherche_Dll() {
  SetSearchPathMode(BASE_SEARCH_PATH_ENABLE_SAFE_SEARCHMODE | BASE_SEARCH_PATH_PERMANENT);
  auto* const Limiter = Fonction_Kernel32<BOOL __stdcall(DWORD)>("SetDefaultDllDirectories");
  if (Limiter != nullptr) {
    Limiter(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
  } else {
    // Windows 7 without update. Only there: the processes that ours starts inherit it.
    SetDllDirectoryW(L"");
  }
}

// A copy that is ending has hidden its windows.
HWND Fenetre_Visible(const wchar_t* Classe) {
  HWND Fenetre = nullptr;
  do {
    Fenetre = FindWindowExW(nullptr, Fenetre, Classe, nullptr);
  } while (Fenetre != nullptr && !IsWindowVisible(Fenetre));
  return Fenetre;
}

}  // namespace

void Proteger_Programme() {
  Limiter_Recherche_Dll();
  HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
  Taire_Boites_Systeme();
  DisableProcessWindowsGhosting();
}

void Taire_Boites_Systeme() {
  // The thread's mode: the process's would pass to a server that the access library starts.
  SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, nullptr);
}

std::vector<std::string> Arguments_Programme() {
  std::vector<std::string> Arguments;
  int Nombre = 0;
  wchar_t** const Liste = CommandLineToArgvW(GetCommandLineW(), &Nombre);
  for (int I = 1; Liste != nullptr && I < Nombre; ++I) Arguments.push_back(En_Utf8(Liste[I]));
  LocalFree(Liste);
  return Arguments;
}

Instance_Unique::Instance_Unique() : Verrou_(CreateMutexW(nullptr, FALSE, L"Local\\Pavorin")) {
  const DWORD Cause = GetLastError();
  // Refused access: the first copy runs with higher rights.
  Premiere_ = Cause != ERROR_ALREADY_EXISTS && Cause != ERROR_ACCESS_DENIED;
}

bool Instance_Unique::Montrer_Premiere() {
  HWND Fenetre = nullptr;
  for (int Essai = 0; Essai < 20 && Fenetre == nullptr; ++Essai) {
    if (Essai > 0) Sleep(100);
    Fenetre = Fenetre_Visible(Classe_Fenetre_Principale);
    if (Fenetre == nullptr) Fenetre = Fenetre_Visible(Classe_Fenetre);
  }
  if (Fenetre == nullptr) return false;
  DWORD Autre = 0;
  GetWindowThreadProcessId(Fenetre, &Autre);
  AllowSetForegroundWindow(Autre);
  // Nothing here waits for the first copy, which may be in the middle of an exchange.
  if (IsIconic(Fenetre)) ShowWindowAsync(Fenetre, SW_RESTORE);
  SetForegroundWindow(GetLastActivePopup(Fenetre));
  return true;
}

Veille_Suspendue::Veille_Suspendue(HWND Fenetre, std::string_view Raison) : Fenetre_(Fenetre) {
  // A laptop that sleeps "connected" drops the request for the system alone on battery, but not the
  // one for the display.
  SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED);
  ShutdownBlockReasonCreate(Fenetre_, En_Utf16(Raison).c_str());
}

Veille_Suspendue::~Veille_Suspendue() {
  ShutdownBlockReasonDestroy(Fenetre_);
  SetThreadExecutionState(ES_CONTINUOUS);
}

namespace {

// The two locale calls below answer a length that counts the final zero, 0 on failure.
std::string Texte_Local(const std::array<wchar_t, 128>& Tampon, int Longueur) {
  return Longueur == 0 ? std::string() : En_Utf8({Tampon.data(), std::size_t(Longueur) - 1});
}

}  // namespace

std::string Horloge_Windows::Heure_Du_Jour() {
  std::array<wchar_t, 128> Tampon;
  return Texte_Local(Tampon, GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, nullptr, nullptr,
                                             Tampon.data(), int(Tampon.size())));
}

double Horloge_Windows::Secondes() {
  LARGE_INTEGER Tops;
  LARGE_INTEGER Par_Seconde;
  QueryPerformanceCounter(&Tops);
  QueryPerformanceFrequency(&Par_Seconde);
  return double(Tops.QuadPart) / double(Par_Seconde.QuadPart);
}

std::string Horloge_Windows::Nom_Mois(int Mois) {
  if (Mois < 1 || Mois > 12) {
    throw Erreur(Numero_Erreur::Appel_Incorrect, "Numéro de mois incorrect");
  }
  std::array<wchar_t, 128> Tampon;
  return Texte_Local(Tampon, GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT,
                                             LOCALE_SMONTHNAME1 + static_cast<LCTYPE>(Mois - 1),
                                             Tampon.data(), int(Tampon.size())));
}

std::vector<Processus> Processus_Windows::Lister() {
  static_assert(sizeof(void*) != 4 || sizeof(PROCESSENTRY32) == 296);
  std::vector<Processus> Liste;
  const Poignee Cliche = Prendre_Poignee(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  if (!Cliche) return Liste;
  PROCESSENTRY32 Entree{};
  Entree.dwSize = sizeof Entree;
  for (BOOL Suite = Process32First(Cliche.get(), &Entree); Suite;
       Suite = Process32Next(Cliche.get(), &Entree)) {
    const std::size_t Longueur = strnlen(Entree.szExeFile, sizeof Entree.szExeFile - 1);
    Liste.push_back({Entree.th32ProcessID, std::string(Entree.szExeFile, Longueur)});
  }
  return Liste;
}

void Processus_Windows::Terminer(std::uint32_t Id) {
  const Poignee Cible(OpenProcess(PROCESS_TERMINATE, FALSE, Id));
  if (Cible) TerminateProcess(Cible.get(), 0);
}
