#pragma once
// What a window draws with: objects of GDI that release themselves, the scale from the lengths of
// the models to pixels, fonts, and the look of the operator's theme.

#include <windows.h>

#include <cmath>
#include <compare>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

#include "platform/Erreur.h"
#include "ui/controles/Conception.h"
#include "windows/systeme/Texte_Windows.h"

struct Detruire_Gdi {
  void operator()(void* Objet) const { DeleteObject(Objet); }
};
template <typename Poignee_Gdi>
using Objet_Gdi = std::unique_ptr<std::remove_pointer_t<Poignee_Gdi>, Detruire_Gdi>;

struct Detruire_Dc {
  void operator()(HDC Dc) const { DeleteDC(Dc); }
};
using Dc_Memoire = std::unique_ptr<std::remove_pointer_t<HDC>, Detruire_Dc>;

struct Rendre_Dc {
  void operator()(HDC Dc) const { ReleaseDC(WindowFromDC(Dc), Dc); }
};
/// Borrowed from a window, and given back before the window goes.
using Dc_Fenetre = std::unique_ptr<std::remove_pointer_t<HDC>, Rendre_Dc>;

struct Detruire_Icone {
  void operator()(HICON Icone_Systeme) const { DestroyIcon(Icone_Systeme); }
};
using Icone_Systeme = std::unique_ptr<std::remove_pointer_t<HICON>, Detruire_Icone>;

struct Detruire_Crochet {
  void operator()(HHOOK Pose) const { UnhookWindowsHookEx(Pose); }
};
using Crochet = std::unique_ptr<std::remove_pointer_t<HHOOK>, Detruire_Crochet>;

/// Puts an object in a device context until the end of the block.
class Selection_Gdi {
 public:
  Selection_Gdi(HDC Dc, HGDIOBJ Objet) : Dc_(Dc), Avant_(SelectObject(Dc, Objet)) {}
  ~Selection_Gdi() { SelectObject(Dc_, Avant_); }
  Selection_Gdi(const Selection_Gdi&) = delete;
  Selection_Gdi& operator=(const Selection_Gdi&) = delete;

 private:
  HDC Dc_;
  HGDIOBJ Avant_;
};

/// The window or menu just made; a null one becomes an Erreur with the system's reason.
template <typename Poignee_Systeme>
Poignee_Systeme Exiger(Poignee_Systeme Faite) {
  if (Faite != nullptr) return Faite;
  throw Erreur(Numero_Erreur::Memoire_Insuffisante, Texte_Systeme(GetLastError()));
}

inline COLORREF En_Colorref(Couleur C) {
  return RGB(C.Rouge, C.Vert, C.Bleu);
}

inline int Largeur_De(const RECT& R) {
  return R.right - R.left;
}
inline int Hauteur_De(const RECT& R) {
  return R.bottom - R.top;
}

/// Pixels per inch of the monitor that shows a window: the one place where twips and points are
/// scaled.
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

/// The fonts of the windows, one per size and look, made once. Arial Narrow is missing on many PCs;
/// a text that would not fit with the wider Arial gets narrower letters, then smaller ones.
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

struct Fermer_Theme {
  void operator()(void* Ouvert) const;
};

/// The look of the operator's theme. uxtheme.dll is not imported: a program's imports are looked
/// for beside it first, and whatever is planted there runs before main. It is loaded by its full
/// path when a control is painted; without it there is no theme, and the classic look stands in.
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
