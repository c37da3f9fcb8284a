#include "platform/windows/Demarrage_Windows.h"

#include <shellapi.h>

#include "platform/windows/Fonction_Module.h"
#include "platform/windows/Texte_Windows.h"

namespace {

// The program and its libraries never take a library from the current directory, nor a system
// library planted beside the program.
void Limiter_Recherche_Dll() {
  SetDllDirectoryW(L"");
  SetSearchPathMode(BASE_SEARCH_PATH_ENABLE_SAFE_SEARCHMODE | BASE_SEARCH_PATH_PERMANENT);
  // Windows 7 without update lacks it.
  auto* const Limiter = Fonction_Module<BOOL __stdcall(DWORD)>(GetModuleHandleW(L"kernel32.dll"),
                                                               "SetDefaultDllDirectories");
  if (Limiter != nullptr) Limiter(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
}

}  // namespace

void Proteger_Programme() {
  Limiter_Recherche_Dll();
  HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
  Taire_Boites_Systeme();
  DisableProcessWindowsGhosting();
}

void Taire_Boites_Systeme() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
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
  // Refused access: the first copy runs with higher rights.
  Premiere_ = GetLastError() != ERROR_ALREADY_EXISTS && GetLastError() != ERROR_ACCESS_DENIED;
}

void Instance_Unique::Montrer_Premiere() {
  HWND Fenetre = nullptr;
  for (int Essai = 0; Essai < 20 && Fenetre == nullptr; ++Essai) {
    if (Essai > 0) Sleep(100);
    Fenetre = FindWindowW(Classe_Fenetre_Principale, nullptr);
    if (Fenetre == nullptr) Fenetre = FindWindowW(Classe_Fenetre, nullptr);
  }
  if (Fenetre == nullptr) return;
  DWORD Autre = 0;
  GetWindowThreadProcessId(Fenetre, &Autre);
  AllowSetForegroundWindow(Autre);
  // Nothing here waits for the first copy, which may be in the middle of an exchange.
  if (IsIconic(Fenetre)) ShowWindowAsync(Fenetre, SW_RESTORE);
  SetForegroundWindow(GetLastActivePopup(Fenetre));
}

Veille_Suspendue::Veille_Suspendue(HWND Fenetre, std::string_view Raison) : Fenetre_(Fenetre) {
  SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED);
  ShutdownBlockReasonCreate(Fenetre_, En_Utf16(Raison).c_str());
}

Veille_Suspendue::~Veille_Suspendue() {
  ShutdownBlockReasonDestroy(Fenetre_);
  SetThreadExecutionState(ES_CONTINUOUS);
}
