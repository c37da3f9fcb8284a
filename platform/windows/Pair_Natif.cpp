#include "platform/windows/Pair_Natif.h"

#include <commctrl.h>

#include <utility>

#include "platform/windows/Fenetrage_Windows.h"
#include "platform/windows/Nom_Accessible.h"
#include "platform/windows/Texte_Windows.h"

namespace {

constexpr UINT_PTR Identite = 1;

}  // namespace

Pair_Natif::~Pair_Natif() {
  if (Poignee_ != nullptr) RemoveWindowSubclass(Poignee_, Aiguiller, Identite);
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
  SetWindowSubclass(Poignee_, Aiguiller, Identite, reinterpret_cast<DWORD_PTR>(this));
  Disposer();
  Actualiser_Visible();
}

LRESULT CALLBACK Pair_Natif::Aiguiller(HWND Fenetre, UINT Message, WPARAM W, LPARAM L, UINT_PTR,
                                       DWORD_PTR Adresse) {
  auto& Pair = *reinterpret_cast<Pair_Natif*>(Adresse);
  if (Message == WM_NCDESTROY) {
    RemoveWindowSubclass(Fenetre, Aiguiller, Identite);
    Pair.Poignee_ = nullptr;
    return DefSubclassProc(Fenetre, Message, W, L);
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
  return DefSubclassProc(Poignee_, Message, W, L);
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

void Pair_Natif::Repeindre() {
  // Of a null handle Windows would paint the whole screen.
  if (Poignee_ != nullptr) UpdateWindow(Poignee_);
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
  SetWindowTextW(Poignee_, Texte.c_str());
  Texte_ = std::move(Texte);
}

void Pair_Natif::Actualiser_Visible() {
  const Cadre* const Parent = Controle_.Parent();
  const bool Montre = Controle_.Visible() && (Parent == nullptr || Parent->Visible());
  const bool Avant = (GetWindowLongW(Poignee_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (Montre == Avant) return;
  if (!Montre) Lieu_.Clavier.Ceder(Poignee_);
  ShowWindow(Poignee_, Montre ? SW_SHOWNA : SW_HIDE);
  if (Montre) Lieu_.Clavier.Rendre(Poignee_);
}

void Pair_Natif::Actualiser_Active() {
  const bool Oui = Controle_.Active();
  if (!Oui) Lieu_.Clavier.Ceder(Poignee_);
  EnableWindow(Poignee_, Oui);
  if (Oui) Lieu_.Clavier.Rendre(Poignee_);
}

HBRUSH Pair_Natif::Colorer(HDC Dc) {
  const auto& Encre = Controle_.Encre();
  SetTextColor(Dc, Encre ? En_Colorref(*Encre) : GetSysColor(COLOR_BTNTEXT));
  SetBkColor(Dc, Lieu_.Fond);
  return Lieu_.Pinceau_Fond;
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

void Pair_Natif::Invalider() const {
  if (Poignee_ != nullptr) InvalidateRect(Poignee_, nullptr, TRUE);
}
