#pragma once
// The program's pictures, drawn at the size asked for, and the small canvas that they are drawn on.

#include <windows.h>

#include <cstdint>
#include <functional>
#include <initializer_list>

#include "windows/fenetres/Outils_Dessin.h"

struct Point_Grille {
  double X = 0;
  double Y = 0;
};

/// Shapes in the coordinates of a design grid, drawn four times too large and averaged, so that
/// edges are smooth at every size.
class Toile {
 public:
  /// Echelle: device pixels per unit of the grid.
  Toile(HDC Dc, double Echelle) : Dc_(Dc), Echelle_(Echelle) {}

  void Polygone(std::initializer_list<Point_Grille> Sommets, Couleur Teinte);
  void Disque(Point_Grille Centre, double Rayon, Couleur Teinte);
  /// A rectangle with round corners; no radius makes them square.
  void Pave(Point_Grille Coin, Point_Grille Oppose, double Rayon, Couleur Teinte);
  /// A line with round ends through the points.
  void Trace(std::initializer_list<Point_Grille> Points, double Epaisseur, Couleur Teinte);
  /// A word in bold capitals, centred in the rectangle.
  void Mot(const wchar_t* Texte, Point_Grille Coin, Point_Grille Oppose, double Corps,
           Couleur Teinte);

 private:
  int Longueur(double Unites) const;
  POINT Point(Point_Grille P) const;

  HDC Dc_;
  double Echelle_;
};

/// A picture with premultiplied transparency, 32 bits per pixel.
class Image_Argb {
 public:
  Image_Argb() = default;
  /// Grille_Largeur: units of the grid over the picture's width.
  Image_Argb(SIZE Taille, double Grille_Largeur, const std::function<void(Toile&)>& Peindre);

  SIZE Taille() const { return Taille_; }
  /// Opacite: 255 for the picture as it is.
  void Poser(HDC Dc, int X, int Y, BYTE Opacite = 255) const;
  Icone_Systeme En_Icone() const;

 private:
  SIZE Taille_{};
  std::uint32_t* Points_ = nullptr;  // Bitmap_'s memory
  Objet_Gdi<HBITMAP> Bitmap_;
};

/// The size at which a picture is shown, pixels.
SIZE Taille_Dessin(Dessin Quoi, Echelle Mesure);

/// Empty when there is nothing to draw.
Image_Argb Dessiner(Dessin Quoi, SIZE Taille);
