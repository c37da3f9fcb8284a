#pragma once
// The program's command line: /port:COM3 chooses the serial port, /journal or /journal:DIRECTORY
// asks for a support journal, and nothing else is accepted.

#include <optional>
#include <string>
#include <vector>

struct Ligne_Commande {
  int Port = 1;
  /// The journal's directory, empty for the program's own; absent when no journal is asked for.
  std::optional<std::string> Journal;
  /// What to tell the operator of an argument that was not understood; empty when all were.
  std::string Avertissement;
};

/// Arguments without the program's name. Ports 1 to 256, the numbers that Windows gives. A port is
/// dropped by an argument that was not understood, a journal is not.
Ligne_Commande Lire_Ligne_Commande(const std::vector<std::string>& Arguments);
