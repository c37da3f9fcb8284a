#pragma once
// The program's command line: /port:COM3 chooses the serial port, and nothing else is accepted.

#include <string>
#include <vector>

struct Ligne_Commande {
  int Port = 1;
  /// What to tell the operator of an argument that was not understood; empty when all were.
  std::string Avertissement;
};

/// Arguments without the program's name. Ports 1 to 256, the numbers that Windows gives.
Ligne_Commande Lire_Ligne_Commande(const std::vector<std::string>& Arguments);
