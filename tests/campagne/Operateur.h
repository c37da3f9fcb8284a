#pragma once
// The operator of the campaign: everything that the open windows allow at this moment.

#include <functional>
#include <string>
#include <vector>

#include "ui/Fenetres.h"

/// Nom: the control's number, with the entry for a list ("204-1", "204-t" to type in it), or
/// "fermer-" and the window's rank.
struct Action {
  std::string Nom;
  std::function<void()> Faire;
};

std::vector<Action> Actions_Permises(Fenetres& F);
