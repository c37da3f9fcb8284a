#pragma once
// The details pane as the log that the operator reads.

#include <string>
#include <string_view>

#include "platform/Horloge.h"
#include "ui/controles/Controles.h"

class Volet_Details {
 public:
  Volet_Details(Champ_Texte& TxtDetails, Horloge& Temps) : TxtDetails_(TxtDetails), Temps_(Temps) {}

  /// Appends a line and its line break.
  void Ligne(std::string_view Texte);
  /// The same, with a tab and the time of day before the line break.
  void Ligne_Horodatee(std::string_view Texte);
  void Repeindre() { TxtDetails_.Repeindre(); }

 private:
  Champ_Texte& TxtDetails_;
  Horloge& Temps_;
};
