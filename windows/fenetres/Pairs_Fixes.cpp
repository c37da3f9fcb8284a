// The native side of what the operator only looks at: frames, labels, pictures, lines, the progress
// bar. A picture that has a click handler can also be reached and clicked from the keyboard.

#include "windows/fenetres/Fabrique_Pairs.h"

#include <commctrl.h>

#include <algorithm>
#include <chrono>
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

// What changes at every block of a file, which may take less than its painting: it is shown 25
// times a second. Whoever looks for long, or waits longer for an answer, finds the state up to
// date. A change is told to the system at once and painted when the program asks for it: first the
// window server answers for all that changed, then all is painted.
class Pair_Vif : public Pair_Natif {
 public:
  using Pair_Natif::Pair_Natif;
  void Repeindre() override;
  void Rattraper() override;

 protected:
  // A change that comes before the eye could follow: it waits for Rattraper, or for the next one.
  bool Trop_Tot();
  // What Trop_Tot left for later.
  virtual void Montrer_Dernier_Etat() = 0;
  // Whether a change can be painted by Tracer; it will be.
  bool A_Tracer();
  // Paints on Dc_Vif, at Place_Vive, what changed.
  virtual void Tracer() = 0;
  RECT Place_Vive() const;

 private:
  using Horloge = std::chrono::steady_clock;  // ticks are too coarse for every block of 40 ms

  std::optional<Horloge::time_point> Vu_;  // when the last change was shown
  bool Vif_ = false;                       // the program itself asks for its painting
  bool En_Retard_ = false;
  bool A_Tracer_ = false;
};

class Pair_Etiquette : public Pair_Vif {
 public:
  Pair_Etiquette(Surface& Lieu, Etiquette& Sienne);

 protected:
  RECT Place_Native() const override;
  void Actualiser_Texte() override;
  void Poser_Texte(const std::wstring& Texte) override;
  void Montrer_Dernier_Etat() override { Actualiser_Texte(); }
  void Tracer() override;
  SIZE Place_Texte() const override;

 private:
  // At most, and from the left.
  bool Une_Ligne() const;
};

class Pair_Image : public Pair_Natif {
 public:
  Pair_Image(Surface& Lieu, Image& Sienne);
  void Commander(WORD Avis) override;
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  void Habiller() override;
  // So that a screen reader says it.
  std::wstring Texte_Natif() const override { return En_Utf16(Look().Nom_Accessible); }

 private:
  Image& Image_;
  Image_Argb Dessin_;
};

class Pair_Trait : public Pair_Natif {
 public:
  Pair_Trait(Surface& Lieu, Trait& Sien);
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;

 protected:
  RECT Place_Native() const override;
  void Habiller() override {}
};

class Pair_Barre : public Pair_Vif {
 public:
  Pair_Barre(Surface& Lieu, Barre_Progression& Sienne);
  void Actualiser(Propriete Quoi) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  void Actualiser_Texte() override {}
  void Montrer_Dernier_Etat() override { Actualiser_Valeur(); }
  void Tracer() override;

 private:
  float Valeur() const;
  // Pixels that the value fills inside the border.
  int Rempli() const;
  void Actualiser_Valeur();
  void Peindre(HDC Dc);

  Barre_Progression& Barre_;
  int Rempli_ = 0;  // as painted
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

void Pair_Vif::Repeindre() {
  Vif_ = true;
  if (!std::exchange(A_Tracer_, false)) return Pair_Natif::Repeindre();
  Tracer();
  // The system gathers what is drawn until it is asked for something else.
  GdiFlush();
}

bool Pair_Vif::Trop_Tot() {
  constexpr std::chrono::milliseconds Entre_Deux{40};
  if (!Vif_) return false;
  const auto Maintenant = Horloge::now();
  En_Retard_ = Vu_ && Maintenant - *Vu_ < Entre_Deux;
  if (!En_Retard_) Vu_ = Maintenant;
  return En_Retard_;
}

void Pair_Vif::Rattraper() {
  Vu_.reset();
  if (Poignee() == nullptr) return;
  const bool En_Retard = std::exchange(En_Retard_, false);
  if (En_Retard) Montrer_Dernier_Etat();
  if (En_Retard || A_Tracer_) Repeindre();
  Vu_.reset();
}

bool Pair_Vif::A_Tracer() {
  A_Tracer_ = Vif_ && (GetWindowLongW(Poignee(), GWL_STYLE) & WS_VISIBLE) != 0;
  return A_Tracer_;
}

RECT Pair_Vif::Place_Vive() const {
  const RECT Ou = Place();
  RECT Ici{};
  GetClientRect(Poignee(), &Ici);
  OffsetRect(&Ici, Ou.left, Ou.top);
  return Ici;
}

Pair_Etiquette::Pair_Etiquette(Surface& Lieu, Etiquette& Sienne) : Pair_Vif(Lieu, Sienne) {
  Creer(WC_STATICW,
        static_cast<DWORD>(SS_NOPREFIX) | static_cast<DWORD>(Look().Centre ? SS_CENTER : SS_LEFT));
}

// A box that is a little lower than its line of text would cut the letters' tails off.
RECT Pair_Etiquette::Place_Native() const {
  RECT Ici = Place();
  const int Ligne = Lieu_.Fontes.Hauteur_Ligne(Lieu_.Fontes.Normale(Look(), Lieu_.Mesure));
  Ici.bottom = std::max<LONG>(Ici.bottom, Ici.top + Ligne);
  return Ici;
}

bool Pair_Etiquette::Une_Ligne() const {
  return !Look().Centre && Hauteur_De(Place()) < 2 * Lieu_.Mesure.Corps(Look().Points);
}

void Pair_Etiquette::Actualiser_Texte() {
  if (!Trop_Tot()) Pair_Natif::Actualiser_Texte();
}

// A native label that is given a text asks its window for colours, takes a device context and gives
// it back. A fast one keeps the text, for whoever reads or uncovers it, and is painted in one
// stroke: nothing flickers.
void Pair_Etiquette::Poser_Texte(const std::wstring& Texte) {
  if (!Une_Ligne() || !A_Tracer()) return Pair_Natif::Poser_Texte(Texte);
  DefWindowProcW(Poignee(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Texte.c_str()));
}

void Pair_Etiquette::Tracer() {
  const HDC Dc = Lieu_.Dc_Vif();
  const RECT Ici = Place_Vive();
  // Left there for the next block: a font that is selected anew is looked for anew.
  if (GetCurrentObject(Dc, OBJ_FONT) != Police()) SelectObject(Dc, Police());
  Colorer(Dc);
  ExtTextOutW(Dc, Ici.left, Ici.top, ETO_OPAQUE | ETO_CLIPPED, &Ici, Texte_Montre().data(),
              static_cast<UINT>(Texte_Montre().size()), nullptr);
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

void Pair_Image::Habiller() {
  const RECT Ici = Place();
  Dessin_ = Dessiner(Look().Image, {Largeur_De(Ici), Hauteur_De(Ici)});
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

RECT Pair_Trait::Place_Native() const {
  const int Epaisseur = std::max(1, Pixels_96(2));
  RECT Axe = Place();
  OffsetRect(&Axe, -Epaisseur / 2, -Epaisseur / 2);
  return {Axe.left, Axe.top, Axe.right + Epaisseur, Axe.bottom + Epaisseur};
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
    : Pair_Vif(Lieu, Sienne), Barre_(Sienne) {
  Creer(PROGRESS_CLASSW, PBS_SMOOTH);
  // The themed bar glides to its value over a second, behind the transfer, and paints itself
  // slowly.
  Theme::Retirer(Poignee());
  Envoyer(PBM_SETRANGE32, 0, 100 * Pas_Par_Unite);
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

// A block of a large file moves the bar by less than a pixel.
void Pair_Barre::Actualiser_Valeur() {
  if (Trop_Tot() || Rempli() == Rempli_) return;
  if (!A_Tracer()) Invalider();
  NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, Poignee(), OBJID_CLIENT, CHILDID_SELF);
}

// Nothing but what moved.
void Pair_Barre::Tracer() {
  const int Nouveau = Rempli(), Avant = std::exchange(Rempli_, Nouveau);
  RECT Ecart = Place_Vive();
  InflateRect(&Ecart, -Bordure, -Bordure);
  Ecart.right = Ecart.left + std::max(Avant, Nouveau);
  Ecart.left += std::min(Avant, Nouveau);
  SetBkColor(Lieu_.Dc_Vif(), GetSysColor(Nouveau > Avant ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  ExtTextOutW(Lieu_.Dc_Vif(), 0, 0, ETO_OPAQUE, &Ecart, nullptr, 0, nullptr);
}

LRESULT Pair_Barre::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  switch (Message) {
    case PBM_GETPOS:  // a screen reader asks
      return std::lround(Valeur() * Pas_Par_Unite);
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      // Whole, even where a part alone was uncovered: Tracer goes on from what is painted.
      InvalidateRect(Poignee(), nullptr, FALSE);
      PAINTSTRUCT Demande{};
      Peindre(BeginPaint(Poignee(), &Demande));
      EndPaint(Poignee(), &Demande);
      return 0;
    }
  }
  return Pair_Natif::Recevoir(Message, W, L);
}

// The system's own painting takes longer than a block.
void Pair_Barre::Peindre(HDC Dc) {
  RECT Bord{};
  GetClientRect(Poignee(), &Bord);
  FrameRect(Dc, &Bord, GetSysColorBrush(COLOR_BTNSHADOW));
  InflateRect(&Bord, -Bordure, -Bordure);
  Rempli_ = Rempli();
  RECT Plein = Bord, Vide = Bord;
  Plein.right = Vide.left = Bord.left + Rempli_;
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
