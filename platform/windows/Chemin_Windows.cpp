#include "platform/windows/Chemin_Windows.h"

#include <windows.h>

#include "platform/windows/Texte_Windows.h"

namespace {

// A directory is refused from 248 characters on: it must leave room for an 8.3 name.
constexpr std::size_t Longueur_Sure = MAX_PATH - 12;

}  // namespace

std::wstring Chemin_Complet(const std::wstring& Chemin) {
  std::wstring Complet(GetFullPathNameW(Chemin.c_str(), 0, nullptr, nullptr), L'\0');
  Complet.resize(GetFullPathNameW(Chemin.c_str(), static_cast<DWORD>(Complet.size()),
                                  Complet.data(), nullptr));
  return Complet;
}

std::wstring Chemin_Appel(std::string_view Chemin) {
  std::wstring Large = En_Utf16(Chemin);
  if (Large.size() < Longueur_Sure || Large.starts_with(L"\\\\?\\")) return Large;
  const std::wstring Complet = Chemin_Complet(Large);
  return Complet.starts_with(L"\\\\") ? L"\\\\?\\UNC" + Complet.substr(1) : L"\\\\?\\" + Complet;
}

std::wstring Repertoire_Executable() {
  std::wstring Chemin(MAX_PATH, L'\0');
  DWORD Longueur = 0;
  // A name that fills the buffer was cut.
  while ((Longueur = GetModuleFileNameW(nullptr, Chemin.data(),
                                        static_cast<DWORD>(Chemin.size()))) == Chemin.size()) {
    Chemin.resize(2 * Chemin.size());
  }
  Chemin.resize(Longueur);
  return Chemin.substr(0, Chemin.rfind(L'\\'));
}
