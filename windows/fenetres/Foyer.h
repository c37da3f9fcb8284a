#pragma once
// The keyboard focus of one window: kept while another window is active, and never left on a
// control that can no longer be used.

#include <windows.h>

// Lending: a control that is hidden or disabled while it has the focus gives it to the next one
// (Delogee_ lent it, Remplacante_ holds it), since Windows would leave the keyboard on a dead
// control. Once usable again it takes the focus back, unless the operator has gone elsewhere. Three
// traps: the window itself holds the focus when no control can, and would hand it on at once
// (Cession_ forbids it); while another window is active the focus is Memoire_'s to change; a
// drop-down list has the focus in its edit part, a child of its own.
class Foyer {
 public:
  /// Premier_Choix: control to start on; null for the first in tab order.
  void Ouvrir(HWND Fenetre, HWND Premier_Choix);

  /// The window is deactivated.
  void Memoriser();
  /// The window is activated, or got the focus itself.
  void Reprendre();

  /// The control is about to be hidden or disabled: the next one takes its focus.
  void Ceder(HWND Controle);
  /// The control can be used again: it takes back the focus that it had to give, unless the
  /// operator went elsewhere in between.
  void Rendre(HWND Controle);

 private:
  bool Utilisable(HWND Controle) const;
  HWND Actuel() const;
  HWND Suivant(HWND Controle) const;

  HWND Fenetre_ = nullptr;
  HWND Premier_Choix_ = nullptr;
  HWND Memoire_ = nullptr;
  HWND Delogee_ = nullptr;
  HWND Remplacante_ = nullptr;
  bool Cession_ = false;
};
