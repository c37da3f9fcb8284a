#pragma once
// Where a library is looked for that does not come with Windows; and functions that are looked up
// by name at run time.

#include <windows.h>

#include <string>
#include <vector>

/// The program's directory, the Windows system directories and the absolute entries of PATH, in
/// this order; never the current directory.
std::vector<std::wstring> Repertoires_De_Recherche();

/// Full path of the first file of this name in the directories; empty when there is none.
std::wstring Trouver_Dll(const std::vector<std::wstring>& Repertoires, const std::wstring& Nom);

/// While it lives, what a library depends on, or loads by its bare name, is found in these
/// directories too: the program's safe search sees the system directory alone. Windows 7 without
/// update has no such call, and no such search either.
class Recherche_Elargie {
 public:
  /// The system directory is searched first, then these in their order, as far as the system keeps
  /// one.
  explicit Recherche_Elargie(const std::vector<std::wstring>& Repertoires);
  ~Recherche_Elargie();
  Recherche_Elargie(const Recherche_Elargie&) = delete;
  Recherche_Elargie& operator=(const Recherche_Elargie&) = delete;

  /// The directories stay, until the process ends.
  void Garder() { Admis_.clear(); }

 private:
  std::vector<void*> Admis_;
};

/// Null when the module does not have it.
template <typename Fonction>
Fonction* Fonction_Module(HMODULE Module, const char* Nom) {
  // Through void*: the compiler rightly distrusts a direct cast between function types.
  return reinterpret_cast<Fonction*>(reinterpret_cast<void*>(GetProcAddress(Module, Nom)));
}

/// A library of the system's own directory, which stays loaded; null when this Windows lacks it.
/// The full path is given: none planted beside the program is ever taken.
inline HMODULE Bibliotheque_Systeme(const wchar_t* Nom) {
  wchar_t Repertoire[MAX_PATH];
  const UINT Longueur = GetSystemDirectoryW(Repertoire, MAX_PATH);
  if (Longueur == 0 || Longueur >= MAX_PATH) return nullptr;
  return LoadLibraryW((std::wstring(Repertoire, Longueur) + L'\\' + Nom).c_str());
}

/// What the oldest Windows lacks, or Windows 7 without update.
template <typename Fonction>
Fonction* Fonction_Kernel32(const char* Nom) {
  return Fonction_Module<Fonction>(GetModuleHandleW(L"kernel32.dll"), Nom);
}
