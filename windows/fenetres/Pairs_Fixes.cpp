// The native side of what the operator only looks at: frames, labels, pictures, lines, the progress
// bar. A picture that has a click handler can also be reached and clicked from the keyboard.

#include "windows/fenetres/Fabrique_Pairs.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "windows/fenetres/Dessins.h"
#include "windows/fenetres/Outils_Dessin.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

class Pair_Cadre : public Pair_Natif {
 public:
  Pair_Cadre(Surface& Lieu, Cadre& Sien);
  void Actualiser(Propriete Quoi) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  SIZE Place_Texte() const override;
};

class Pair_Etiquette : public Pair_Natif {
 public:
  Pair_Etiquette(Surface& Lieu, Etiquette& Sienne);
  void Disposer() override;

 protected:
  void Actualiser_Texte() override;
  SIZE Place_Texte() const override;
};

class Pair_Image : public Pair_Natif {
 public:
  Pair_Image(Surface& Lieu, Image& Sienne);
  void Disposer() override;
  void Commander(WORD Avis) override;
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  // The name stands for the text, so that a screen reader says it.
  void Actualiser_Texte() override;

 private:
  Image& Image_;
  Image_Argb Dessin_;
};

class Pair_Trait : public Pair_Natif {
 public:
  Pair_Trait(Surface& Lieu, Trait& Sien);
  void Disposer() override;
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;
};

class Pair_Barre : public Pair_Natif {
 public:
  Pair_Barre(Surface& Lieu, Barre_Progression& Sienne);
  void Actualiser(Propriete Quoi) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  void Actualiser_Texte() override {}
  void Montrer_Dernier_Etat() override { Actualiser_Valeur(); }

 private:
  float Valeur() const;
  // Pixels that the value fills inside the border.
  int Rempli() const;
  void Actualiser_Valeur();
  void Peindre(HDC Dc) const;

  Barre_Progression& Barre_;
  int Rempli_ = -1;  // when a new value was last painted
};

}  // namespace

Pair_Cadre::Pair_Cadre(Surface& Lieu, Cadre& Sien) : Pair_Natif(Lieu, Sien) {
  Creer(WC_BUTTONW, BS_GROUPBOX);
}

void Pair_Cadre::Actualiser(Propriete Quoi) {
  Pair_Natif::Actualiser(Quoi);
  if (Quoi != Propriete::Visible) return;
  for (const auto& Pair : Lieu_.Pairs) {
    if (Pair->Modele().Parent() == &Modele()) Pair->Actualiser_Visible();
  }
}

LRESULT Pair_Cadre::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  if (Message != WM_ERASEBKGND) return Pair_Natif::Recevoir(Message, W, L);
  // The window does not paint below its controls, and a group box has no background of its own.
  RECT Ici{};
  GetClientRect(Poignee(), &Ici);
  FillRect(reinterpret_cast<HDC>(W), &Ici, Lieu_.Pinceau_Fond);
  return 1;
}

SIZE Pair_Cadre::Place_Texte() const {
  return {Largeur_De(Place()) - Pixels_96(20), 0};
}

Pair_Etiquette::Pair_Etiquette(Surface& Lieu, Etiquette& Sienne) : Pair_Natif(Lieu, Sienne) {
  Creer(WC_STATICW,
        static_cast<DWORD>(SS_NOPREFIX) | static_cast<DWORD>(Look().Centre ? SS_CENTER : SS_LEFT));
}

void Pair_Etiquette::Disposer() {
  Pair_Natif::Disposer();
  // A box that is a little lower than its line of text would cut the letters' tails off.
  const RECT Ici = Place();
  const int Ligne = Lieu_.Fontes.Hauteur_Ligne(Lieu_.Fontes.Normale(Look(), Lieu_.Mesure));
  if (Ligne <= Hauteur_De(Ici)) return;
  SetWindowPos(Poignee(), nullptr, 0, 0, Largeur_De(Ici), Ligne,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Pair_Etiquette::Actualiser_Texte() {
  if (!Trop_Tot()) Pair_Natif::Actualiser_Texte();
}

SIZE Pair_Etiquette::Place_Texte() const {
  const RECT Ici = Place();
  return {Largeur_De(Ici), Hauteur_De(Ici)};
}

Pair_Image::Pair_Image(Surface& Lieu, Image& Sienne) : Pair_Natif(Lieu, Sienne), Image_(Sienne) {
  DWORD Style = SS_OWNERDRAW;
  if (Image_.Clic) Style |= static_cast<DWORD>(SS_NOTIFY) | WS_TABSTOP;
  Creer(WC_STATICW, Style);
}

void Pair_Image::Disposer() {
  const RECT Ici = Place();
  Dessin_ = Dessiner(Look().Image, {Largeur_De(Ici), Hauteur_De(Ici)});
  Pair_Natif::Disposer();
}

void Pair_Image::Actualiser_Texte() {
  SetWindowTextW(Poignee(), En_Utf16(Look().Nom_Accessible).c_str());
}

void Pair_Image::Commander(WORD Avis) {
  if (Avis == STN_CLICKED) Image_.Cliquer();
}

LRESULT Pair_Image::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  if (Message == WM_SETFOCUS || Message == WM_KILLFOCUS) Invalider();
  if (Message == WM_KEYDOWN && W == VK_SPACE) {
    Image_.Cliquer();
    return 0;
  }
  return Pair_Natif::Recevoir(Message, W, L);
}

void Pair_Image::Dessiner_Article(const DRAWITEMSTRUCT& Demande) {
  FillRect(Demande.hDC, &Demande.rcItem, Lieu_.Pinceau_Fond);
  Dessin_.Poser(Demande.hDC, 0, 0);
  if (GetFocus() == Poignee()) DrawFocusRect(Demande.hDC, &Demande.rcItem);
}

Pair_Trait::Pair_Trait(Surface& Lieu, Trait& Sien) : Pair_Natif(Lieu, Sien) {
  Creer(WC_STATICW, SS_OWNERDRAW);
}

void Pair_Trait::Disposer() {
  const RECT Axe = Place();
  const int Epaisseur = std::max(1, Pixels_96(2));
  SetWindowPos(Poignee(), nullptr, Axe.left - Epaisseur / 2, Axe.top - Epaisseur / 2,
               Largeur_De(Axe) + Epaisseur, Hauteur_De(Axe) + Epaisseur,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Pair_Trait::Dessiner_Article(const DRAWITEMSTRUCT& Demande) {
  SetDCBrushColor(Demande.hDC, Lieu_.Teinte(Modele().Encre(), COLOR_BTNTEXT));
  FillRect(Demande.hDC, &Demande.rcItem, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

namespace {

constexpr int Pas_Par_Unite = 100;
constexpr int Bordure = 1;  // pixel

}  // namespace

Pair_Barre::Pair_Barre(Surface& Lieu, Barre_Progression& Sienne)
    : Pair_Natif(Lieu, Sienne), Barre_(Sienne) {
  Creer(PROGRESS_CLASSW, PBS_SMOOTH);
  // The themed bar glides to its value over a second, behind the transfer, and paints itself
  // slowly.
  Theme::Retirer(Poignee());
  Envoyer(PBM_SETRANGE32, 0, 100 * Pas_Par_Unite);
  Actualiser_Valeur();
}

void Pair_Barre::Actualiser(Propriete Quoi) {
  Pair_Natif::Actualiser(Quoi);
  if (Quoi == Propriete::Valeur) Actualiser_Valeur();
}

float Pair_Barre::Valeur() const {
  return std::clamp(Barre_.Valeur(), 0.0F, 100.0F);
}

int Pair_Barre::Rempli() const {
  RECT Ici{};
  GetClientRect(Poignee(), &Ici);
  const int Dedans = Largeur_De(Ici) - 2 * Bordure;
  return static_cast<int>(std::lround(Valeur() / 100 * static_cast<float>(Dedans)));
}

// Painted on the spot, as a label paints its new text: an invalidation and the message that it ends
// in would cost several times as much, at every block.
void Pair_Barre::Actualiser_Valeur() {
  if (Trop_Tot()) return;
  // A block of a large file moves the bar by less than a pixel.
  const int Nouveau = Rempli();
  if (std::exchange(Rempli_, Nouveau) == Nouveau) return;
  const HDC Dc = GetDC(Poignee());
  Peindre(Dc);
  ReleaseDC(Poignee(), Dc);
  NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, Poignee(), OBJID_CLIENT, CHILDID_SELF);
}

LRESULT Pair_Barre::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  switch (Message) {
    case PBM_GETPOS:  // a screen reader asks
      return std::lround(Valeur() * Pas_Par_Unite);
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      PAINTSTRUCT Demande{};
      Peindre(BeginPaint(Poignee(), &Demande));
      EndPaint(Poignee(), &Demande);
      return 0;
    }
  }
  return Pair_Natif::Recevoir(Message, W, L);
}

// Painted here, at every block of a transfer: where the system does it, it takes longer than the
// block itself.
void Pair_Barre::Peindre(HDC Dc) const {
  RECT Bord{};
  GetClientRect(Poignee(), &Bord);
  FrameRect(Dc, &Bord, GetSysColorBrush(COLOR_BTNSHADOW));
  InflateRect(&Bord, -Bordure, -Bordure);
  RECT Plein = Bord, Vide = Bord;
  Plein.right = Vide.left = Bord.left + Rempli();
  FillRect(Dc, &Plein, GetSysColorBrush(COLOR_HIGHLIGHT));
  FillRect(Dc, &Vide, GetSysColorBrush(COLOR_WINDOW));
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Cadre& C) {
  return std::make_unique<Pair_Cadre>(Lieu, C);
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Etiquette& C) {
  return std::make_unique<Pair_Etiquette>(Lieu, C);
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Image& C) {
  return std::make_unique<Pair_Image>(Lieu, C);
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Trait& C) {
  return std::make_unique<Pair_Trait>(Lieu, C);
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Barre_Progression& C) {
  return std::make_unique<Pair_Barre>(Lieu, C);
}
