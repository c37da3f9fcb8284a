#pragma once
// The look of the operator's theme. uxtheme.dll is not imported: a program's imports are looked for
// beside it first, and whatever is planted there runs before main. It is loaded by its full path
// when a control is painted; without it there is no theme, and the classic look stands in.

#include <windows.h>

#include <memory>
#include <optional>

struct Fermer_Theme {
  void operator()(void* Ouvert) const;
};

class Theme {
 public:
  /// Classe: WC_BUTTONW, ...
  Theme(HWND Controle, const wchar_t* Classe);
  /// No theme is active when it is false.
  explicit operator bool() const { return Ouvert_ != nullptr; }

  void Peindre_Fond(HDC Dc, int Partie, int Etat, const RECT& Ici) const;
  /// None where the theme leaves the colour to the system.
  std::optional<COLORREF> Couleur_Texte(int Partie, int Etat) const;

  /// The control keeps the classic look from now on.
  static void Retirer(HWND Controle);

 private:
  std::unique_ptr<void, Fermer_Theme> Ouvert_;
};
