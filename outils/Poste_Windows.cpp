#include "outils/Poste_Windows.h"

#include <winternl.h>

namespace {

constexpr UINT Patience_Ms = 300;

std::wstring Classe_De(HWND Fenetre) {
  wchar_t Nom[64];
  return {Nom, static_cast<std::size_t>(GetClassNameW(Fenetre, Nom, 64))};
}

// Of another process's control, only the control itself knows the text.
std::optional<std::wstring> Texte_De(HWND Fenetre) {
  const auto Longueur = Envoyer(Fenetre, WM_GETTEXTLENGTH, 0, 0);
  if (!Longueur) return {};
  std::wstring Texte(static_cast<std::size_t>(*Longueur) + 1, L'\0');
  const auto Lus =
      Envoyer(Fenetre, WM_GETTEXT, Texte.size(), reinterpret_cast<LPARAM>(Texte.data()));
  if (!Lus) return {};
  Texte.resize(static_cast<std::size_t>(*Lus));
  return Texte;
}

std::wstring Titre_De(HWND Fenetre) {
  wchar_t Titre[512];
  return {Titre, static_cast<std::size_t>(GetWindowTextW(Fenetre, Titre, 512))};
}

HWND Foyer_De(HWND Fenetre) {
  GUITHREADINFO Infos{};
  Infos.cbSize = sizeof Infos;
  return GetGUIThreadInfo(GetWindowThreadProcessId(Fenetre, nullptr), &Infos) ? Infos.hwndFocus
                                                                              : nullptr;
}

Description_Fenetre Decrire(HWND Fenetre) {
  Description_Fenetre D;
  D.Poignee = Fenetre;
  D.Classe = Classe_De(Fenetre);
  D.Visible = IsWindowVisible(Fenetre) != 0;
  D.Active = IsWindowEnabled(Fenetre) != 0;
  GetWindowRect(Fenetre, &D.Place);
  return D;
}

/// Appends to the vector whose address is the parameter.
BOOL CALLBACK Noter(HWND Fenetre, LPARAM Liste) {
  reinterpret_cast<std::vector<HWND>*>(Liste)->push_back(Fenetre);
  return TRUE;
}

std::vector<HWND> Toutes_De(DWORD Processus) {
  std::vector<HWND> Toutes, Siennes;
  EnumWindows(Noter, reinterpret_cast<LPARAM>(&Toutes));
  for (HWND Une : Toutes) {
    DWORD Auteur = 0;
    GetWindowThreadProcessId(Une, &Auteur);
    if (Auteur == Processus) Siennes.push_back(Une);
  }
  return Siennes;
}

DWORD Compter_Fenetres(DWORD Processus) {
  std::vector<HWND> Dessous;
  const std::vector<HWND> Dessus = Toutes_De(Processus);
  for (HWND Une : Dessus) EnumChildWindows(Une, Noter, reinterpret_cast<LPARAM>(&Dessous));
  return static_cast<DWORD>(Dessus.size() + Dessous.size());
}

// Wine does not count GDI objects, but keeps the process's table of them where Windows does.
DWORD Compter_Gdi(HANDLE Processus) {
  if (const DWORD Comptes = GetGuiResources(Processus, GR_GDIOBJECTS)) return Comptes;
  struct Case {
    ULONGLONG Objet;
    ULONG Proprietaire;
    USHORT Unique;
    UCHAR Type, Drapeaux;
    ULONGLONG Adresse;
  };
  constexpr std::size_t Place_Table = sizeof(void*) == 4 ? 0x94 : 0xF8;
  constexpr std::size_t Cases = 0x4000;
  PROCESS_BASIC_INFORMATION Infos{};
  const char* Table = nullptr;
  std::vector<Case> Copie(Cases);
  NtQueryInformationProcess(Processus, ProcessBasicInformation, &Infos, sizeof Infos, nullptr);
  ReadProcessMemory(Processus, reinterpret_cast<char*>(Infos.PebBaseAddress) + Place_Table, &Table,
                    sizeof Table, nullptr);
  if (!ReadProcessMemory(Processus, Table, Copie.data(), Cases * sizeof(Case), nullptr)) return 0;
  DWORD Vivants = 0;
  for (const Case& Une : Copie) Vivants += Une.Type != 0;
  return Vivants;
}

// A session has room for so many USER handles: what is left is found by filling it up.
DWORD Compter_User_Libres() {
  std::vector<HMENU> Crees;
  while (const HMENU Un = CreateMenu()) Crees.push_back(Un);
  for (const HMENU Un : Crees) DestroyMenu(Un);
  return static_cast<DWORD>(Crees.size());
}

// Wine does not count a process's handles, but lists those of the whole session.
DWORD Compter_Poignees(HANDLE Processus, DWORD Numero) {
  DWORD Nombre = 0;
  if (GetProcessHandleCount(Processus, &Nombre) && Nombre > 0) return Nombre;
  struct Entree {
    ULONG Proprietaire;
    UCHAR Type, Drapeaux;
    USHORT Valeur;
    void* Objet;
    ULONG Acces;
  };
  struct Liste {
    ULONG Nombre;
    Entree Entrees[1];
  };
  std::vector<ULONG_PTR> Tampon(1 << 18);
  NtQuerySystemInformation(static_cast<SYSTEM_INFORMATION_CLASS>(16), Tampon.data(),
                           static_cast<ULONG>(Tampon.size() * sizeof Tampon[0]), nullptr);
  const auto* const Toutes = reinterpret_cast<const Liste*>(Tampon.data());
  for (ULONG I = 0; I < Toutes->Nombre; ++I) Nombre += Toutes->Entrees[I].Proprietaire == Numero;
  return Nombre;
}

}  // namespace

Consommation Mesurer(HANDLE Processus) {
  const DWORD Numero = GetProcessId(Processus);
  Consommation C;
  C.Poignees = Compter_Poignees(Processus, Numero);
  C.Gdi = Compter_Gdi(Processus);
  C.Fenetres = Compter_Fenetres(Numero);
  C.User_Libres = Compter_User_Libres();
  return C;
}

bool Programme_Lance::Lancer(std::wstring Commande, const std::wstring& Repertoire) {
  STARTUPINFOW Depart{};
  Depart.cb = sizeof Depart;
  PROCESS_INFORMATION Infos{};
  if (!CreateProcessW(nullptr, Commande.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      Repertoire.c_str(), &Depart, &Infos)) {
    return false;
  }
  CloseHandle(Infos.hThread);
  Processus_.reset(Infos.hProcess);
  return true;
}

std::optional<DWORD> Programme_Lance::Fin() const {
  DWORD Code = 0;
  if (WaitForSingleObject(Processus(), 0) != WAIT_OBJECT_0) return {};
  GetExitCodeProcess(Processus(), &Code);
  return Code;
}

void Programme_Lance::Tuer() const {
  TerminateProcess(Processus(), 99);
  WaitForSingleObject(Processus(), 5000);
}

std::vector<Description_Fenetre> Programme_Lance::Fenetres() const {
  std::vector<Description_Fenetre> Visibles;
  for (HWND Une : Toutes_De(GetProcessId(Processus()))) {
    Description_Fenetre D = Decrire(Une);
    if (!D.Visible) continue;
    D.Foyer = GetForegroundWindow() == Une;
    D.Texte = Titre_De(Une);
    Visibles.push_back(std::move(D));
  }
  return Visibles;
}

std::vector<Description_Fenetre> Enfants(HWND Fenetre, int Numero) {
  std::vector<HWND> Tous;
  EnumChildWindows(Fenetre, Noter, reinterpret_cast<LPARAM>(&Tous));
  const HWND Foyer = Foyer_De(Fenetre);
  bool Repond = true;
  std::vector<Description_Fenetre> Decrits;
  for (HWND Un : Tous) {
    if (Numero != 0 && GetDlgCtrlID(Un) != Numero) continue;
    Description_Fenetre D = Decrire(Un);
    D.Numero = GetDlgCtrlID(Un);
    D.Foyer = Un == Foyer;
    MapWindowPoints(nullptr, Fenetre, reinterpret_cast<POINT*>(&D.Place), 2);
    const auto Texte = Repond ? Texte_De(Un) : std::nullopt;
    Repond = Texte.has_value();
    D.Texte = Texte.value_or(L"?");
    Decrits.push_back(std::move(D));
  }
  return Decrits;
}

std::optional<LRESULT> Envoyer(HWND Fenetre, UINT Message, WPARAM W, LPARAM L) {
  DWORD_PTR Resultat = 0;
  if (!SendMessageTimeoutW(Fenetre, Message, W, L, SMTO_NORMAL, Patience_Ms, &Resultat)) return {};
  return static_cast<LRESULT>(Resultat);
}

std::vector<std::wstring> Entrees(HWND Liste) {
  const bool Deroulante = Classe_De(Liste) == L"ComboBox";
  const auto Nombre = Envoyer(Liste, Deroulante ? CB_GETCOUNT : LB_GETCOUNT, 0, 0).value_or(0);
  std::vector<std::wstring> Toutes;
  for (LRESULT I = 0; I < Nombre; ++I) {
    const auto Rang = static_cast<WPARAM>(I);
    const auto Longueur =
        Envoyer(Liste, Deroulante ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, Rang, 0).value_or(0);
    std::wstring Texte(static_cast<std::size_t>(Longueur) + 1, L'\0');
    Envoyer(Liste, Deroulante ? CB_GETLBTEXT : LB_GETTEXT, Rang,
            reinterpret_cast<LPARAM>(Texte.data()));
    Texte.pop_back();
    Toutes.push_back(std::move(Texte));
  }
  return Toutes;
}

std::wstring Presse_Papiers() {
  std::wstring Texte;
  if (!OpenClipboard(nullptr)) return Texte;
  if (const HANDLE Donnees = GetClipboardData(CF_UNICODETEXT)) {
    Texte = static_cast<const wchar_t*>(GlobalLock(Donnees));
    GlobalUnlock(Donnees);
  }
  CloseClipboard();
  return Texte;
}
