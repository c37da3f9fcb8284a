#pragma once
// Functions that are looked up by name at run time, where this Windows may lack them.

#include <windows.h>

#include <string>

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
