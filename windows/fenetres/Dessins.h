#pragma once
// The program's pictures, drawn at the size asked for.

#include "ui/controles/Conception.h"
#include "windows/fenetres/Echelle.h"
#include "windows/fenetres/Toile.h"

/// The size at which a picture is shown, pixels.
SIZE Taille_Dessin(Dessin Quoi, Echelle Mesure);

/// Empty when there is nothing to draw.
Image_Argb Dessiner(Dessin Quoi, SIZE Taille);
