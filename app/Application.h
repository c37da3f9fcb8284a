#pragma once
// The program: its windows, its process-wide values and its procedures, wired together. It alone
// knows everybody.

#include "Variables_Globales.h"
#include "platform/Machine.h"
#include "ui/Fenetres.h"

class Application {
 public:
  explicit Application(const Machine& Poste);

  /// Shows the main window, then reads the remembered directory. The caller runs the event loop.
  void Demarrer();

  Fenetres F;
  Variables_Globales Globales;
};
