#pragma once
// The native menu bar of a window.

#include <windows.h>

#include "ui/controles/Fenetre.h"

/// Null when the system has no room for it. The window destroys it with itself.
HMENU Creer_Menu(const Fenetre& Modele);

/// The entry of this number; null when there is none.
Entree_Menu* Trouver_Entree(const Fenetre& Modele, int Numero);
