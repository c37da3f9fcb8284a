#pragma once
// Clock and locale: the regional settings of the user who runs the program.

#include "platform/Horloge.h"

class Horloge_Windows : public Horloge {
 public:
  std::string Heure_Du_Jour() override;
  double Secondes() override;
  /// Raises 5 when Mois is not from 1 to 12.
  std::string Nom_Mois(int Mois) override;
};
