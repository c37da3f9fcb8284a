#pragma once
// The fonts of the windows, one per size and look, made once. Arial Narrow is missing on many PCs;
// a text that would not fit with the wider Arial gets narrower letters, then smaller ones.

#include <compare>
#include <map>
#include <string>

#include "windows/fenetres/Echelle.h"
#include "windows/fenetres/Objets_Gdi.h"

class Polices {
 public:
  /// Famille: name of the typeface.
  explicit Polices(const wchar_t* Famille);

  /// The typeface that the windows were designed with, or the one that stands in for it.
  static const wchar_t* Famille_Du_Poste();

  HFONT Normale(const Conception& Look, Echelle Mesure);

  /// The normal font, or the widest one with which the text fits in the box (pixels). A text wraps
  /// at its spaces. A box that is lower than a line counts as one line.
  HFONT Ajustee(const Conception& Look, Echelle Mesure, const std::wstring& Texte, SIZE Boite);

  int Hauteur_Ligne(HFONT Police) const;
  int Largeur_Texte(HFONT Police, const std::wstring& Texte) const;

 private:
  struct Cle {
    int Corps = 0;     ///< pixels
    int Chasse = 100;  ///< width of the letters, percent
    bool Gras = false;
    bool Souligne = false;
    auto operator<=>(const Cle&) const = default;
  };

  HFONT Donner(const Cle& Voulue);
  HFONT Fabriquer(const Cle& Voulue);
  bool Tient(HFONT Police, const std::wstring& Texte, SIZE Boite) const;

  Dc_Memoire Dc_;
  const wchar_t* Famille_;
  std::map<Cle, Objet_Gdi<HFONT>> Faites_;
};
