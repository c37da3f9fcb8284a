#include "platform/windows/Profil_Windows.h"

#include <windows.h>

#include <string>

#include "platform/windows/Texte_Windows.h"

namespace {

struct Texte_Ansi {
  std::string Octets;
  bool Fidele;  // every character has its byte
};

Texte_Ansi En_Ansi(std::wstring_view Texte) {
  std::string Resultat(2 * Texte.size(), '\0');  // two bytes per unit at most
  BOOL Remplace = FALSE;
  const int Longueur = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, Texte.data(),
                                           static_cast<int>(Texte.size()), Resultat.data(),
                                           static_cast<int>(Resultat.size()), nullptr, &Remplace);
  Resultat.resize(static_cast<std::size_t>(Longueur));
  return {Resultat, !Remplace};
}

// The directory and not the file: a short path exists only for what exists.
std::wstring Repertoire_Court(const std::wstring& Repertoire) {
  std::wstring Court(GetShortPathNameW(Repertoire.c_str(), nullptr, 0), L'\0');
  Court.resize(GetShortPathNameW(Repertoire.c_str(), Court.data(), DWORD(Court.size())));
  return Court;
}

// The ANSI calls take no path outside the system's code page, nor a long one: such a directory goes
// by its short name. On a volume without short names the call then fails as for a missing file.
std::string Chemin_Ansi(std::string_view Chemin) {
  const std::wstring Large = En_Utf16(Chemin);
  const Texte_Ansi Direct = En_Ansi(Large);
  if (Direct.Fidele && Direct.Octets.size() < MAX_PATH) return Direct.Octets;
  const std::size_t Nom = Large.rfind(L'\\') + 1;
  return En_Ansi(Repertoire_Court(Large.substr(0, Nom)) + Large.substr(Nom)).Octets;
}

}  // namespace

Octets Profil_Windows::Lire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
                            std::size_t Taille) {
  std::string Valeur(Taille, '\0');
  Valeur.resize(GetPrivateProfileStringA(std::string(Section).c_str(), std::string(Cle).c_str(), "",
                                         Valeur.data(), DWORD(Taille),
                                         Chemin_Ansi(Chemin).c_str()));
  return {Valeur.begin(), Valeur.end()};
}

void Profil_Windows::Ecrire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
                            Vue_Octets Valeur) {
  WritePrivateProfileStringA(std::string(Section).c_str(), std::string(Cle).c_str(),
                             std::string(Valeur.begin(), Valeur.end()).c_str(),
                             Chemin_Ansi(Chemin).c_str());
}
