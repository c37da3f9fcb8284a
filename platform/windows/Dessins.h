#pragma once
// The program's pictures, drawn at the size asked for.

#include "platform/windows/Echelle.h"
#include "platform/windows/Toile.h"
#include "ui/controles/Conception.h"

/// The size at which a picture is shown, pixels.
SIZE Taille_Dessin(Dessin Quoi, Echelle Mesure);

/// Empty when there is nothing to draw.
Image_Argb Dessiner(Dessin Quoi, SIZE Taille);
