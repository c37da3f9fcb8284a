#pragma once
// Drawing objects that release themselves.

#include <windows.h>

#include <memory>
#include <type_traits>

#include "ui/controles/Conception.h"

struct Detruire_Gdi {
  void operator()(void* Objet) const { DeleteObject(Objet); }
};
template <typename Poignee_Gdi>
using Objet_Gdi = std::unique_ptr<std::remove_pointer_t<Poignee_Gdi>, Detruire_Gdi>;

struct Detruire_Dc {
  void operator()(HDC Dc) const { DeleteDC(Dc); }
};
using Dc_Memoire = std::unique_ptr<std::remove_pointer_t<HDC>, Detruire_Dc>;

struct Detruire_Icone {
  void operator()(HICON Icone_Systeme) const { DestroyIcon(Icone_Systeme); }
};
using Icone_Systeme = std::unique_ptr<std::remove_pointer_t<HICON>, Detruire_Icone>;

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

inline COLORREF En_Colorref(Couleur C) {
  return RGB(C.Rouge, C.Vert, C.Bleu);
}

inline int Largeur_De(const RECT& R) {
  return R.right - R.left;
}
inline int Hauteur_De(const RECT& R) {
  return R.bottom - R.top;
}
