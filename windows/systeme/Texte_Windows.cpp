#include "windows/systeme/Texte_Windows.h"

#include <windows.h>

#include <array>

namespace {

// A directory is refused from 248 characters on: it must leave room for an 8.3 name.
constexpr std::size_t Longueur_Sure = MAX_PATH - 12;

}  // namespace

std::wstring En_Utf16(std::string_view Texte, unsigned Page) {
  // No text becomes longer in UTF-16 units than it is in bytes.
  std::wstring Resultat(Texte.size(), L'\0');
  const int Longueur = MultiByteToWideChar(Page, 0, Texte.data(), static_cast<int>(Texte.size()),
                                           Resultat.data(), static_cast<int>(Resultat.size()));
  Resultat.resize(static_cast<std::size_t>(Longueur));
  return Resultat;
}

std::string En_Page(std::wstring_view Texte, unsigned Page) {
  std::string Resultat(4 * Texte.size(), '\0');  // four bytes per unit at most
  // Neither flags nor a report of what was replaced: UTF-8 takes none of them.
  const int Longueur =
      WideCharToMultiByte(Page, 0, Texte.data(), static_cast<int>(Texte.size()), Resultat.data(),
                          static_cast<int>(Resultat.size()), nullptr, nullptr);
  Resultat.resize(static_cast<std::size_t>(Longueur));
  return Resultat;
}

std::string En_Utf8(std::wstring_view Texte) {
  std::string Resultat;
  Ecrire_Utf8(Texte, Resultat);
  return Resultat;
}

void Ecrire_Utf8(std::wstring_view Texte, std::string& Resultat) {
  Resultat.resize(3 * Texte.size());  // three bytes per unit at most
  const int Longueur =
      WideCharToMultiByte(CP_UTF8, 0, Texte.data(), static_cast<int>(Texte.size()), Resultat.data(),
                          static_cast<int>(Resultat.size()), nullptr, nullptr);
  Resultat.resize(static_cast<std::size_t>(Longueur));
}

std::string Texte_Systeme(unsigned long Code) {
  std::array<wchar_t, 512> Tampon;
  const DWORD Longueur = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, Code, 0, Tampon.data(), static_cast<DWORD>(Tampon.size()), nullptr);
  std::wstring_view Texte(Tampon.data(), Longueur);
  Texte = Texte.substr(0, Texte.find_last_not_of(L" .\r\n") + 1);
  return Texte.empty() ? "Erreur système " + std::to_string(Code) : En_Utf8(Texte);
}

Erreur Erreur_Fichier(unsigned long Code, std::string_view Chemin) {
  const std::string Description = Texte_Systeme(Code) + " : " + std::string(Chemin);
  switch (Code) {
    case ERROR_FILE_NOT_FOUND:
      return {Numero_Erreur::Fichier_Introuvable, Description};
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
      return {Numero_Erreur::Chemin_Introuvable, Description};
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return {Numero_Erreur::Acces_Refuse, Description};
    default:
      return {Numero_Erreur::Erreur_Peripherique, Description};
  }
}

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
