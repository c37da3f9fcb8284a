// The messages of a window.

#include <algorithm>

#include "windows/fenetres/Fenetre_Native.h"

namespace {

// The entry of this number; null when there is none.
Entree_Menu* Trouver(const std::vector<Entree_Menu*>& Contenu, int Numero) {
  for (Entree_Menu* const Une : Contenu) {
    if (Une->Numero() == Numero) return Une;
    if (Entree_Menu* const Dessous = Trouver(Une->Sous_Menu(), Numero)) return Dessous;
  }
  return nullptr;
}

}  // namespace

LRESULT CALLBACK Fenetre_Native::Aiguiller(HWND Fenetre_Windows, UINT Message, WPARAM W, LPARAM L) {
  auto* const Native =
      reinterpret_cast<Fenetre_Native*>(GetWindowLongPtrW(Fenetre_Windows, GWLP_USERDATA));
  if (Native == nullptr) return DefWindowProcW(Fenetre_Windows, Message, W, L);
  try {
    return Native->Recevoir(Message, W, L);
  } catch (...) {
    Native->Lieu_.Ecran.Signaler_Exception();
    return 0;
  }
}

const Fenetre_Native* Fenetre_Native::De(HWND Poignee_Fenetre) {
  const bool Notre =
      GetWindowLongPtrW(Poignee_Fenetre, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(Aiguiller);
  if (!Notre) return nullptr;
  return reinterpret_cast<const Fenetre_Native*>(GetWindowLongPtrW(Poignee_Fenetre, GWLP_USERDATA));
}

LRESULT Fenetre_Native::Par_Defaut(UINT Message, WPARAM W, LPARAM L) const {
  return DefWindowProcW(Poignee(), Message, W, L);
}

LRESULT Fenetre_Native::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  switch (Message) {
    case WM_ACTIVATE:
      if (LOWORD(W) == WA_INACTIVE) {
        Lieu_.Clavier.Memoriser();
      } else if (HIWORD(W) == 0) {  // not minimised
        Lieu_.Clavier.Reprendre();
      }
      return 0;
    case WM_SETFOCUS:
      Lieu_.Clavier.Reprendre();
      return 0;
    case WM_CLOSE:
      Fermer();
      return 0;
    case WM_QUERYENDSESSION:
      return Lieu_.Ecran.Eveille() ? FALSE : TRUE;
    case WM_SYSCOMMAND:
      return Lieu_.Ecran.Operateur_Ignore() ? 0 : Par_Defaut(Message, W, L);
    case WM_SETCURSOR:
      return Poser_Pointeur(LOWORD(L)) ? TRUE : Par_Defaut(Message, W, L);
    case WM_DPICHANGED:
      Changer_Echelle(HIWORD(W), *reinterpret_cast<const RECT*>(L));
      return 0;
    case WM_SETTINGCHANGE:
      if (W != SPI_SETHIGHCONTRAST) break;
      [[fallthrough]];
    case WM_SYSCOLORCHANGE:
      Prendre_Couleurs();
      for (const auto& Pair : Lieu_.Pairs) SendMessageW(Pair->Poignee(), WM_SYSCOLORCHANGE, 0, 0);
      RedrawWindow(Poignee(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
      return 0;
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT: {
      RECT Ici{};
      GetClientRect(Poignee(), &Ici);
      FillRect(reinterpret_cast<HDC>(W), &Ici, Lieu_.Pinceau_Fond);
      return 1;
    }
    case DM_GETDEFID:
      return Bouton_Par_Defaut();
  }
  return Recevoir_De_Controle(Message, W, L);
}

LRESULT Fenetre_Native::Recevoir_De_Controle(UINT Message, WPARAM W, LPARAM L) {
  switch (Message) {
    case WM_COMMAND:
      Commander(W, reinterpret_cast<HWND>(L));
      return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      if (Pair_Natif* const Pair = Pair_De(reinterpret_cast<HWND>(L))) {
        const HBRUSH Pinceau = Pair->Colorer(reinterpret_cast<HDC>(W));
        if (Pinceau != nullptr) return reinterpret_cast<LRESULT>(Pinceau);
      }
      break;
    case WM_DRAWITEM: {
      const auto& Demande = *reinterpret_cast<const DRAWITEMSTRUCT*>(L);
      if (Pair_Natif* const Pair = Pair_De(Demande.hwndItem)) Pair->Dessiner_Article(Demande);
      return TRUE;
    }
  }
  return Par_Defaut(Message, W, L);
}

Pair_Natif* Fenetre_Native::Pair_De(HWND Poignee_Controle) const {
  const auto Trouve = std::find_if(Lieu_.Pairs.begin(), Lieu_.Pairs.end(), [&](const auto& Pair) {
    return Pair->Poignee() == Poignee_Controle;
  });
  return Trouve == Lieu_.Pairs.end() ? nullptr : Trouve->get();
}

void Fenetre_Native::Commander(WPARAM W, HWND Poignee_Controle) {
  // Otherwise whatever comes is not the operator's.
  if (!Ecoute()) return;
  if (Poignee_Controle != nullptr) {
    if (Pair_Natif* const Pair = Pair_De(Poignee_Controle)) Pair->Commander(HIWORD(W));
  } else if (LOWORD(W) == IDCANCEL) {
    Echapper();
  } else if (Entree_Menu* const Entree = Trouver(Modele_.Menus(), LOWORD(W))) {
    Entree->Cliquer();
  }
}

void Fenetre_Native::Echapper() {
  if (const Controle* const Voulu = Modele_.Bouton_Echap) {
    SendDlgItemMessageW(Poignee(), Voulu->Numero(), BM_CLICK, 0, 0);
  } else if (Modele_.Menus().empty()) {
    Modele_.Fermer_Par_Cadre();
  }
}

void Fenetre_Native::Fermer() {
  if (Ecoute()) Modele_.Fermer_Par_Cadre();
}

bool Fenetre_Native::Ecoute() const {
  return IsWindowEnabled(Poignee()) && !Lieu_.Ecran.Operateur_Ignore();
}

bool Fenetre_Native::Poser_Pointeur(WORD Endroit) const {
  if (Endroit != HTCLIENT || Modele_.Souris() != Pointeur::Sablier) return false;
  SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  return true;
}

LRESULT Fenetre_Native::Bouton_Par_Defaut() const {
  const Controle* const Voulu = Modele_.Bouton_Entree;
  return Voulu == nullptr ? 0 : MAKELRESULT(Voulu->Numero(), DC_HASDEFID);
}
