#pragma once
// What a control is at design time: its place, its look, its first content. The tables of every
// window are written with these types. Lengths are twips (1/1440 inch), font sizes points.

#include <cstdint>
#include <optional>
#include <string>

/// Left, top, width, height, relative to the frame or to the window's client area.
struct Position {
  int Gauche = 0;
  int Haut = 0;
  int Largeur = 0;
  int Hauteur = 0;
};

struct Couleur {
  std::uint8_t Rouge = 0;
  std::uint8_t Vert = 0;
  std::uint8_t Bleu = 0;
  bool operator==(const Couleur&) const = default;
};

namespace Couleurs {
inline constexpr Couleur Bleu{0, 0, 255};
inline constexpr Couleur Bleu_Clair{128, 128, 255};
inline constexpr Couleur Rouge{255, 0, 0};
inline constexpr Couleur Gris{224, 224, 224};
}  // namespace Couleurs

/// The program's own pictures; the windowing draws them at any size.
enum class Dessin {
  Aucun,
  Programme,
  Dossier,
  Mise_A_Jour,
  Quitter,
  Bandeau,
  Chargement,
  Lecteur,
  Voyant_Rouge,
  Voyant_Jaune,
  Voyant_Vert
};

/// Absent colours are the system's.
struct Conception {
  std::string Texte = {};
  double Points = 9;
  bool Gras = false;
  bool Souligne = false;
  bool Centre = false;
  std::optional<Couleur> Encre = {};
  std::optional<Couleur> Fond = {};
  Dessin Image = Dessin::Aucun;
  bool Visible = true;
  bool Active = true;
  /// What a screen reader says of a control that no label precedes.
  std::string Nom_Accessible = {};
};
