#pragma once
// Clock and locale of the operator's system.

#include <string>

class Horloge {
 public:
  virtual ~Horloge() = default;

  /// Time of day (hours, minutes, seconds) in the system's time format.
  virtual std::string Heure_Du_Jour() = 0;

  /// Elapsed seconds since an arbitrary instant; never goes backwards.
  virtual double Secondes() = 0;

  /// Full name of a month in the system's language; Mois from 1 to 12.
  virtual std::string Nom_Mois(int Mois) = 0;
};
