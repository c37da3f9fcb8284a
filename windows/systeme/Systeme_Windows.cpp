#include "windows/systeme/Systeme_Windows.h"

#include "windows/systeme/Poignee.h"
// After Poignee.h, which brings windows.h.
#include <tlhelp32.h>

#include <array>
#include <cstring>

#include "windows/systeme/Texte_Windows.h"

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
