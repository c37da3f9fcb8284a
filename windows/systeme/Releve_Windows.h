#pragma once
// What the support journal tells of a Windows PC, and the file it writes.

#include <windows.h>

#include <set>

#include "platform/Releve_Poste.h"

class Releve_Windows : public Releve_Poste {
 public:
  Instant Maintenant() override;
  std::vector<Fait> Poste() override;
  std::vector<Fait> Bibliotheque() override;
  bool Inscriptible(std::string_view Chemin) override;
  bool Terminable(std::uint32_t Id) override;
  std::unique_ptr<Fichier_Journal> Creer_Journal(std::string_view Chemin) override;

 private:
  std::set<HMODULE> Connus_;  // modules of the process at the last look
};
