#include "windows/systeme/Profil_Windows.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>

#include "windows/systeme/Texte_Windows.h"

namespace {

constexpr UINT Cp1252 = 1252;

bool Un_Octet_Par_Caractere(UINT Page) {
  CPINFO Infos;
  return GetCPInfo(Page, &Infos) && Infos.MaxCharSize == 1;
}

// The directory and not the file: a short path exists only for what exists. Empty when it has none.
std::wstring Repertoire_Court(const std::wstring& Repertoire) {
  std::wstring Court(GetShortPathNameW(Repertoire.c_str(), nullptr, 0), L'\0');
  Court.resize(GetShortPathNameW(Repertoire.c_str(), Court.data(), DWORD(Court.size())));
  return Court;
}

// Never a bare name, which the profile calls would look for in the Windows directory.
std::wstring Chemin_Profil(std::string_view Chemin) {
  std::wstring Large = En_Utf16(Chemin);
  if (Large.size() < MAX_PATH) return Large;
  const std::size_t Nom = Large.rfind(L'\\') + 1;
  const std::wstring Court = Repertoire_Court(Large.substr(0, Nom));
  const bool Convient = !Court.empty() && Court.size() + Large.size() - Nom < MAX_PATH;
  return Convient ? Court + Large.substr(Nom) : Chemin_Appel(Chemin);
}

// Absent when the ANSI calls cannot take this path. Nor can they be trusted with a value where a
// character of the system's code page may be several bytes (UTF-8, Far East): they would take our
// cp1252 bytes for broken characters.
std::optional<std::string> Chemin_Ansi(const std::wstring& Chemin, UINT Page) {
  if (Chemin.size() >= MAX_PATH || !Un_Octet_Par_Caractere(Page)) return std::nullopt;
  std::string Ansi = En_Page(Chemin, Page);
  return En_Utf16(Ansi, Page) == Chemin ? std::optional(Ansi) : std::nullopt;
}

// By this page the ANSI calls would turn the value's bytes into the characters of the wide ones.
UINT Page_Valeur(UINT Page) {
  return Un_Octet_Par_Caractere(Page) ? Page : Cp1252;
}

}  // namespace

Profil_Windows::Profil_Windows(unsigned Page_Systeme)
    : Page_(Page_Systeme == 0 ? GetACP() : Page_Systeme) {}

Octets Profil_Windows::Lire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
                            std::size_t Taille) {
  const std::wstring Fichier = Chemin_Profil(Chemin);
  std::string Valeur(Taille, '\0');
  if (const auto Ansi = Chemin_Ansi(Fichier, Page_)) {
    Valeur.resize(GetPrivateProfileStringA(std::string(Section).c_str(), std::string(Cle).c_str(),
                                           "", Valeur.data(), DWORD(Taille), Ansi->c_str()));
  } else {
    std::wstring Lue(Taille, L'\0');
    Lue.resize(GetPrivateProfileStringW(En_Utf16(Section).c_str(), En_Utf16(Cle).c_str(), L"",
                                        Lue.data(), DWORD(Taille), Fichier.c_str()));
    Valeur = En_Page(Lue, Page_Valeur(Page_));
  }
  return {Valeur.begin(), Valeur.end()};
}

void Profil_Windows::Ecrire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
                            Vue_Octets Valeur) {
  const std::wstring Fichier = Chemin_Profil(Chemin);
  const std::string Texte(Valeur.begin(), Valeur.end());
  if (const auto Ansi = Chemin_Ansi(Fichier, Page_)) {
    WritePrivateProfileStringA(std::string(Section).c_str(), std::string(Cle).c_str(),
                               Texte.c_str(), Ansi->c_str());
  } else {
    WritePrivateProfileStringW(En_Utf16(Section).c_str(), En_Utf16(Cle).c_str(),
                               En_Utf16(Texte, Page_Valeur(Page_)).c_str(), Fichier.c_str());
  }
}
