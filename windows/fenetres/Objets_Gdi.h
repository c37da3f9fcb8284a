#pragma once
// Drawing objects that release themselves, and what the system could not make.

#include <windows.h>

#include <memory>
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
