#pragma once
// The small things that the system is asked: the time and the names of the months as the operator's
// regional settings have them, and the processes.

#include "platform/Horloge.h"
#include "platform/Liste_Processus.h"

class Horloge_Windows : public Horloge {
 public:
  std::string Heure_Du_Jour() override;
  double Secondes() override;
  /// Raises 5 when Mois is not from 1 to 12.
  std::string Nom_Mois(int Mois) override;
};

/// Through the toolhelp snapshot.
class Processus_Windows : public Liste_Processus {
 public:
  std::vector<Processus> Lister() override;
  void Terminer(std::uint32_t Id) override;
};
