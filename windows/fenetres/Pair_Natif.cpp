#include "windows/fenetres/Pair_Natif.h"

#include <algorithm>
#include <utility>

#include "windows/systeme/Texte_Windows.h"

Pair_Natif::~Pair_Natif() {
  if (Poignee_ != nullptr) Rendre_Procedure();
}

void Pair_Natif::Creer(const wchar_t* Classe, DWORD Style, DWORD Style_Etendu) {
  Style |= WS_CHILD | WS_CLIPSIBLINGS;
  if (!Controle_.Active()) Style |= WS_DISABLED;
  if (A_Montrer()) Style |= WS_VISIBLE;
  const RECT Ici = Place_Native();
  Texte_ = Texte_Natif();
  Poignee_ =
      Exiger(CreateWindowExW(Style_Etendu, Classe, Texte_.c_str(), Style, Ici.left, Ici.top,
                             Largeur_De(Ici), Hauteur_De(Ici), Lieu_.Fenetre,
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(Controle_.Numero())),
                             GetModuleHandleW(nullptr), nullptr));
  Prendre_Procedure();
  Habiller();
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
    Lieu_.Ecran.Donner_Nom_Accessible(Poignee_, En_Utf16(Look().Nom_Accessible));
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
// A_Peindre_ is set by every change, and cleared by whatever paints the whole control: this call,
// and the question for its colours, which a label asks as it paints itself with its new text. Set
// once too often it costs a request; cleared once too often it leaves the old state on the screen.
void Pair_Natif::Repeindre() {
  // Of a null handle Windows would paint the whole screen.
  if (Poignee_ != nullptr && std::exchange(A_Peindre_, false)) UpdateWindow(Poignee_);
}

void Pair_Natif::Disposer() {
  const RECT Ici = Place_Native();
  SetWindowPos(Poignee_, nullptr, Ici.left, Ici.top, Largeur_De(Ici), Hauteur_De(Ici),
               SWP_NOZORDER | SWP_NOACTIVATE);
  Habiller();
}

void Pair_Natif::Habiller() {
  Police_ = nullptr;
  Actualiser_Texte();
}

std::wstring Pair_Natif::Texte_Natif() const {
  return En_Utf16(Controle_.Texte());
}

void Pair_Natif::Actualiser_Texte() {
  std::wstring Texte = Texte_Natif();
  if (Police_ == nullptr || Texte != Texte_) Choisir_Police(Texte);
  if (Texte == Texte_) return;
  Poser_Texte(Texte);
  Texte_ = std::move(Texte);
}

// Measuring a text costs as much as showing it. Every figure is as wide as a zero: a count that
// goes on is measured once.
void Pair_Natif::Choisir_Police(const std::wstring& Texte) {
  std::wstring Gabarit = Texte;
  std::replace_if(
      Gabarit.begin(), Gabarit.end(), [](wchar_t C) { return C >= L'0' && C <= L'9'; }, L'0');
  if (Police_ != nullptr && Gabarit == Gabarit_) return;
  const SIZE Boite = Place_Texte();
  const HFONT Voulue = Boite.cx > 0 ? Lieu_.Fontes.Ajustee(Look(), Lieu_.Mesure, Gabarit, Boite)
                                    : Lieu_.Fontes.Normale(Look(), Lieu_.Mesure);
  Gabarit_ = std::move(Gabarit);
  if (Voulue == Police_) return;
  Police_ = Voulue;
  Envoyer(WM_SETFONT, reinterpret_cast<WPARAM>(Police_));
}

void Pair_Natif::Poser_Texte(const std::wstring& Texte) {
  A_Peindre_ = true;
  SetWindowTextW(Poignee_, Texte.c_str());
}

bool Pair_Natif::A_Montrer() const {
  const Cadre* const Parent = Controle_.Parent();
  return Controle_.Visible() && (Parent == nullptr || Parent->Visible());
}

void Pair_Natif::Actualiser_Visible() {
  const bool Montre = A_Montrer();
  const bool Avant = (GetWindowLongW(Poignee_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (Montre == Avant) return;
  Rattraper();
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
  // It is about to paint itself whole; a label does so as soon as it is given a text.
  A_Peindre_ = false;
  // A themed option paints in a device context of its own, where the brush of this one is white.
  if (Fond == Lieu_.Fond) return Lieu_.Pinceau_Fond;
  SetDCBrushColor(Dc, Fond);
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
