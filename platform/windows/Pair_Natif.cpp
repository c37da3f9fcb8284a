#include "platform/windows/Pair_Natif.h"

#include <utility>

#include "platform/windows/Fenetrage_Windows.h"
#include "platform/windows/Nom_Accessible.h"
#include "platform/windows/Texte_Windows.h"

Pair_Natif::~Pair_Natif() {
  if (Poignee_ != nullptr) Rendre_Procedure();
}

void Pair_Natif::Creer(const wchar_t* Classe, DWORD Style, DWORD Style_Etendu) {
  Style |= WS_CHILD | WS_CLIPSIBLINGS;
  if (!Controle_.Active()) Style |= WS_DISABLED;
  Poignee_ = CreateWindowExW(Style_Etendu, Classe, nullptr, Style, 0, 0, 0, 0, Lieu_.Fenetre,
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(Controle_.Numero())),
                             GetModuleHandleW(nullptr), nullptr);
  if (Poignee_ == nullptr) {
    throw Erreur(Numero_Erreur::Memoire_Insuffisante, Texte_Systeme(GetLastError()));
  }
  Prendre_Procedure();
  Disposer();
  Actualiser_Visible();
}

// Not the subclassing of comctl32.dll, which looks a window property up several times per message.
void Pair_Natif::Prendre_Procedure() {
  SetWindowLongPtrW(Poignee_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  Procedure_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(Poignee_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Aiguiller)));
}

void Pair_Natif::Rendre_Procedure() {
  SetWindowLongPtrW(Poignee_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure_));
  Poignee_ = nullptr;
}

LRESULT CALLBACK Pair_Natif::Aiguiller(HWND Fenetre, UINT Message, WPARAM W, LPARAM L) {
  auto& Pair = *reinterpret_cast<Pair_Natif*>(GetWindowLongPtrW(Fenetre, GWLP_USERDATA));
  if (Message == WM_NCDESTROY) {
    Pair.Rendre_Procedure();
    return CallWindowProcW(Pair.Procedure_, Fenetre, Message, W, L);
  }
  try {
    return Pair.Recevoir(Message, W, L);
  } catch (...) {
    Pair.Lieu_.Ecran.Signaler_Exception();
    return 0;
  }
}

LRESULT Pair_Natif::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  // The first question of a screen reader; before it, names would cost the start for nothing.
  if (Message == WM_GETOBJECT && !Nomme_) Nommer();
  // Its own events may have destroyed the native control meanwhile.
  return Poignee_ == nullptr ? 0 : CallWindowProcW(Procedure_, Poignee_, Message, W, L);
}

void Pair_Natif::Nommer() {
  Nomme_ = true;
  if (!Look().Nom_Accessible.empty()) {
    Donner_Nom_Accessible(Poignee_, En_Utf16(Look().Nom_Accessible));
  }
}

void Pair_Natif::Actualiser(Propriete Quoi) {
  switch (Quoi) {
    case Propriete::Texte:
      return Actualiser_Texte();
    case Propriete::Encre:
      return Invalider();
    case Propriete::Visible:
      return Actualiser_Visible();
    case Propriete::Active:
      return Actualiser_Active();
    case Propriete::Valeur:
    case Propriete::Contenu:
    case Propriete::Choix:
    case Propriete::Pointeur:
      return;  // kinds that have such a property look at it themselves
  }
}

// What has not changed is painted already, and asking the system for it costs as much as painting.
void Pair_Natif::Repeindre() {
  // Of a null handle Windows would paint the whole screen.
  if (Poignee_ != nullptr && std::exchange(A_Peindre_, false)) UpdateWindow(Poignee_);
}

void Pair_Natif::Disposer() {
  const RECT Ici = Place();
  SetWindowPos(Poignee_, nullptr, Ici.left, Ici.top, Largeur_De(Ici), Hauteur_De(Ici),
               SWP_NOZORDER | SWP_NOACTIVATE);
  Police_ = nullptr;
  Actualiser_Texte();
}

void Pair_Natif::Actualiser_Texte() {
  std::wstring Texte = En_Utf16(Controle_.Texte());
  if (Police_ != nullptr && Texte == Texte_) return;
  const SIZE Boite = Place_Texte();
  const HFONT Voulue = Boite.cx > 0 ? Lieu_.Fontes.Ajustee(Look(), Lieu_.Mesure, Texte, Boite)
                                    : Lieu_.Fontes.Normale(Look(), Lieu_.Mesure);
  if (Voulue != Police_) {
    Police_ = Voulue;
    Envoyer(WM_SETFONT, reinterpret_cast<WPARAM>(Police_));
  }
  A_Peindre_ = true;
  SetWindowTextW(Poignee_, Texte.c_str());
  Texte_ = std::move(Texte);
}

void Pair_Natif::Actualiser_Visible() {
  const Cadre* const Parent = Controle_.Parent();
  const bool Montre = Controle_.Visible() && (Parent == nullptr || Parent->Visible());
  const bool Avant = (GetWindowLongW(Poignee_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (Montre == Avant) return;
  A_Peindre_ = true;
  if (!Montre) Lieu_.Clavier.Ceder(Poignee_);
  ShowWindow(Poignee_, Montre ? SW_SHOWNA : SW_HIDE);
  if (Montre) Lieu_.Clavier.Rendre(Poignee_);
}

void Pair_Natif::Actualiser_Active() {
  const bool Oui = Controle_.Active();
  A_Peindre_ = true;
  if (!Oui) Lieu_.Clavier.Ceder(Poignee_);
  EnableWindow(Poignee_, Oui);
  if (Oui) Lieu_.Clavier.Rendre(Poignee_);
}

HBRUSH Pair_Natif::Colorer(HDC Dc) {
  const COLORREF Fond = Look().Fond ? Lieu_.Teinte(Look().Fond, COLOR_BTNFACE) : Lieu_.Fond;
  SetTextColor(Dc, Lieu_.Teinte(Controle_.Encre(), COLOR_BTNTEXT));
  SetBkColor(Dc, Fond);
  SetDCBrushColor(Dc, Fond);
  // It is about to paint itself whole; a label does so as soon as it is given a text.
  A_Peindre_ = false;
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

LRESULT Pair_Natif::Envoyer(UINT Message, WPARAM W, LPARAM L) const {
  return SendMessageW(Poignee_, Message, W, L);
}

RECT Pair_Natif::Place() const {
  Position P = Controle_.Place();
  if (const Cadre* const Parent = Controle_.Parent()) {
    P.Gauche += Parent->Place().Gauche;
    P.Haut += Parent->Place().Haut;
  }
  const Echelle& E = Lieu_.Mesure;
  return {E.Pixels(P.Gauche), E.Pixels(P.Haut), E.Pixels(P.Gauche + P.Largeur),
          E.Pixels(P.Haut + P.Hauteur)};
}

bool Pair_Natif::Touche(const Pair_Natif& Autre) const {
  const RECT Ici = Place(), La = Autre.Place();
  RECT Commun{};
  return Controle_.Parent() == Autre.Controle_.Parent() && IntersectRect(&Commun, &Ici, &La);
}

void Pair_Natif::Passer_Dessous(HWND Autre) const {
  SetWindowPos(Poignee_, Autre, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Pair_Natif::Invalider() {
  A_Peindre_ = true;
  if (Poignee_ != nullptr) InvalidateRect(Poignee_, nullptr, TRUE);
}
