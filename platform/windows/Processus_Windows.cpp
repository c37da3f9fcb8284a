#include "platform/windows/Processus_Windows.h"

#include "platform/windows/Poignee.h"
// After Poignee.h, which brings windows.h.
#include <tlhelp32.h>

#include <cstring>

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
