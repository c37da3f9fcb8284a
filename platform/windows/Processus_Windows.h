#pragma once
// The process list, through the toolhelp snapshot.

#include "platform/Liste_Processus.h"

class Processus_Windows : public Liste_Processus {
 public:
  std::vector<Processus> Lister() override;
  void Terminer(std::uint32_t Id) override;
};
