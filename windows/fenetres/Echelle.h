#pragma once
// From the lengths of the models to pixels: the one place where twips and points are scaled.

#include <windows.h>

#include <cmath>

/// Pixels per inch of the monitor that shows a window.
struct Echelle {
  int Dpi = USER_DEFAULT_SCREEN_DPI;

  int Pixels(int Twips) const { return MulDiv(Twips, Dpi, 1440); }
  /// Height of a font's em square.
  int Corps(double Points) const { return static_cast<int>(std::lround(Points * Dpi / 72)); }
  /// A length given in pixels at 96 DPI.
  int Depuis_96(int Longueur) const { return MulDiv(Longueur, Dpi, USER_DEFAULT_SCREEN_DPI); }
};

/// Asks the newest call that this Windows has: of the window, of its monitor, of the system.
Echelle Echelle_De_Fenetre(HWND Fenetre);
