// The native buttons and options. A button with a picture is drawn here, in the look of the
// operator's theme; the others are the system's.

#include "windows/fenetres/Fabrique_Pairs.h"

#include <commctrl.h>
#include <vssym32.h>

#include <algorithm>

#include "windows/fenetres/Dessins.h"
#include "windows/fenetres/Outils_Dessin.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

class Pair_Bouton : public Pair_Natif {
 public:
  // Par_Defaut: pressed by Enter from the whole window.
  Pair_Bouton(Surface& Lieu, Bouton& Sien, bool Par_Defaut);
  void Commander(WORD Avis) override;
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  void Habiller() override;
  SIZE Place_Texte() const override;

 private:
  bool Illustre() const { return Look().Image != Dessin::Aucun; }
  void Survoler(bool Oui);
  void Peindre(HDC Dc, const RECT& Cadre_Bouton, UINT Etat);
  void Peindre_Fond(HDC Dc, const Theme& Look_Du_Poste, RECT Cadre_Bouton, UINT Etat) const;
  int Peindre_Contenu(HDC Dc, const Theme& Look_Du_Poste, const RECT& Cadre_Bouton, UINT Etat);
  COLORREF Encre(const Theme& Look_Du_Poste, UINT Etat) const;

  Bouton& Bouton_;
  Image_Argb Dessin_;
  bool Survole_ = false;
};

class Pair_Option : public Pair_Natif {
 public:
  // Premiere: opens the group of options among which the arrow keys move.
  Pair_Option(Surface& Lieu, Option& Sienne, bool Premiere);
  void Actualiser(Propriete Quoi) override;
  void Commander(WORD Avis) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  SIZE Place_Texte() const override;

 private:
  void Actualiser_Valeur();
  void Aller(bool Avant);

  Option& Option_;
};

constexpr BYTE Opacite_Desactive = 90;

int Etat_Theme(UINT Etat, bool Survole) {
  if ((Etat & ODS_DISABLED) != 0) return PBS_DISABLED;
  if ((Etat & ODS_SELECTED) != 0) return PBS_PRESSED;
  if (Survole) return PBS_HOT;
  return (Etat & ODS_FOCUS) != 0 ? PBS_DEFAULTED : PBS_NORMAL;
}

bool Touche_Entree(LPARAM L) {
  const auto* const Frappe = reinterpret_cast<const MSG*>(L);
  return Frappe != nullptr && Frappe->message == WM_KEYDOWN && Frappe->wParam == VK_RETURN;
}

}  // namespace

Pair_Bouton::Pair_Bouton(Surface& Lieu, Bouton& Sien, bool Par_Defaut)
    : Pair_Natif(Lieu, Sien), Bouton_(Sien) {
  const int Genre = Illustre() ? BS_OWNERDRAW : Par_Defaut ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
  Creer(WC_BUTTONW, WS_TABSTOP | WS_GROUP | static_cast<DWORD>(Genre));
}

void Pair_Bouton::Habiller() {
  if (Illustre()) Dessin_ = Dessiner(Look().Image, Taille_Dessin(Look().Image, Lieu_.Mesure));
  Pair_Natif::Habiller();
}

void Pair_Bouton::Commander(WORD Avis) {
  if (Avis == BN_CLICKED) Bouton_.Cliquer();
}

LRESULT Pair_Bouton::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  switch (Message) {
    case WM_GETDLGCODE:
      // Enter presses the button that has the focus, whatever the window's own button is.
      return Pair_Natif::Recevoir(Message, W, L) | (Touche_Entree(L) ? DLGC_WANTMESSAGE : 0);
    case WM_KEYDOWN:
      if (W != VK_RETURN) break;
      Bouton_.Cliquer();
      return 0;
    case WM_MOUSEMOVE:
      Survoler(true);
      break;
    case WM_MOUSELEAVE:
      Survoler(false);
      break;
    case WM_ERASEBKGND:
      if (Illustre()) return 1;  // the whole surface is drawn at once
      break;
  }
  return Pair_Natif::Recevoir(Message, W, L);
}

void Pair_Bouton::Survoler(bool Oui) {
  if (Survole_ == Oui || !Illustre()) return;
  Survole_ = Oui;
  Invalider();
  if (!Oui) return;
  TRACKMOUSEEVENT Suivi{sizeof Suivi, TME_LEAVE, Poignee(), 0};
  TrackMouseEvent(&Suivi);
}

SIZE Pair_Bouton::Place_Texte() const {
  return {Largeur_De(Place()) - Pixels_96(10), 0};
}

void Pair_Bouton::Dessiner_Article(const DRAWITEMSTRUCT& Demande) {
  const RECT& Ici = Demande.rcItem;
  const Dc_Memoire Dc(CreateCompatibleDC(Demande.hDC));
  const Objet_Gdi<HBITMAP> Surface_Bouton(
      CreateCompatibleBitmap(Demande.hDC, Largeur_De(Ici), Hauteur_De(Ici)));
  const Selection_Gdi Choisie(Dc.get(), Surface_Bouton.get());
  Peindre(Dc.get(), Ici, Demande.itemState);
  BitBlt(Demande.hDC, Ici.left, Ici.top, Largeur_De(Ici), Hauteur_De(Ici), Dc.get(), Ici.left,
         Ici.top, SRCCOPY);
}

void Pair_Bouton::Peindre(HDC Dc, const RECT& Cadre_Bouton, UINT Etat) {
  const Theme Look_Du_Poste(Poignee(), WC_BUTTONW);
  FillRect(Dc, &Cadre_Bouton, Lieu_.Pinceau_Fond);
  Peindre_Fond(Dc, Look_Du_Poste, Cadre_Bouton, Etat);
  const int Marge = Peindre_Contenu(Dc, Look_Du_Poste, Cadre_Bouton, Etat);
  if ((Etat & ODS_FOCUS) == 0 || (Etat & ODS_NOFOCUSRECT) != 0) return;
  // Around the content, and inside the border.
  RECT Interieur = Cadre_Bouton;
  InflateRect(&Interieur, -Pixels_96(3), -std::clamp(Marge - 2, 1, Pixels_96(3)));
  SetTextColor(Dc, GetSysColor(COLOR_BTNTEXT));
  SetBkColor(Dc, GetSysColor(COLOR_BTNFACE));
  DrawFocusRect(Dc, &Interieur);
}

void Pair_Bouton::Peindre_Fond(HDC Dc, const Theme& Look_Du_Poste, RECT Cadre_Bouton,
                               UINT Etat) const {
  if (Look_Du_Poste) {
    Look_Du_Poste.Peindre_Fond(Dc, BP_PUSHBUTTON, Etat_Theme(Etat, Survole_), Cadre_Bouton);
    return;
  }
  const UINT Enfonce = (Etat & ODS_SELECTED) != 0 ? DFCS_PUSHED : 0U;
  DrawFrameControl(Dc, &Cadre_Bouton, DFC_BUTTON, DFCS_BUTTONPUSH | Enfonce);
}

// The theme's for this state: in high contrast a hot button has a ground of its own.
COLORREF Pair_Bouton::Encre(const Theme& Look_Du_Poste, UINT Etat) const {
  const auto Dite = Look_Du_Poste
                        ? Look_Du_Poste.Couleur_Texte(BP_PUSHBUTTON, Etat_Theme(Etat, Survole_))
                        : std::nullopt;
  const bool Desactive = (Etat & ODS_DISABLED) != 0;
  return Dite.value_or(GetSysColor(Desactive ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
}

// The picture above the text, both centred. Gives the pixels left above and below.
int Pair_Bouton::Peindre_Contenu(HDC Dc, const Theme& Look_Du_Poste, const RECT& Cadre_Bouton,
                                 UINT Etat) {
  const bool Desactive = (Etat & ODS_DISABLED) != 0;
  const auto Police = reinterpret_cast<HFONT>(Envoyer(WM_GETFONT));
  const int Ligne = Lieu_.Fontes.Hauteur_Ligne(Police);
  const SIZE Taille = Dessin_.Taille();
  const int Marge = static_cast<int>(Hauteur_De(Cadre_Bouton) - Taille.cy - Ligne) / 2;
  const int Haut = Cadre_Bouton.top + Marge;
  Dessin_.Poser(Dc, Cadre_Bouton.left + (Largeur_De(Cadre_Bouton) - Taille.cx) / 2, Haut,
                Desactive ? Opacite_Desactive : BYTE{255});
  RECT Legende{Cadre_Bouton.left, Haut + Taille.cy, Cadre_Bouton.right, Haut + Taille.cy + Ligne};
  const Selection_Gdi Choisie(Dc, Police);
  SetBkMode(Dc, TRANSPARENT);
  SetTextColor(Dc, Encre(Look_Du_Poste, Etat));
  const std::wstring Texte = En_Utf16(Bouton_.Texte());
  DrawTextW(Dc, Texte.c_str(), static_cast<int>(Texte.size()), &Legende,
            DT_CENTER | DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX);
  return Marge;
}

Pair_Option::Pair_Option(Surface& Lieu, Option& Sienne, bool Premiere)
    : Pair_Natif(Lieu, Sienne), Option_(Sienne) {
  Creer(WC_BUTTONW, static_cast<DWORD>(BS_RADIOBUTTON) | (Premiere ? WS_GROUP | WS_TABSTOP : 0));
  // Otherwise Windows clicks an option that the focus merely comes to.
  Envoyer(BM_SETDONTCLICK, TRUE);
  Actualiser_Valeur();
}

void Pair_Option::Actualiser(Propriete Quoi) {
  Pair_Natif::Actualiser(Quoi);
  if (Quoi == Propriete::Valeur) Actualiser_Valeur();
}

void Pair_Option::Commander(WORD Avis) {
  if (Avis == BN_CLICKED) Option_.Choisir();
}

// The native option also becomes the tab stop of its group when it is set.
void Pair_Option::Actualiser_Valeur() {
  Envoyer(BM_SETCHECK, Option_.Valeur() ? BST_CHECKED : BST_UNCHECKED);
}

LRESULT Pair_Option::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  switch (Message) {
    case WM_GETDLGCODE:
      return Pair_Natif::Recevoir(Message, W, L) | DLGC_WANTARROWS;
    case WM_KEYDOWN:
      if (W == VK_UP || W == VK_LEFT) return Aller(false), 0;
      if (W == VK_DOWN || W == VK_RIGHT) return Aller(true), 0;
      break;
  }
  return Pair_Natif::Recevoir(Message, W, L);
}

// An arrow key moves to the neighbour and sets it.
void Pair_Option::Aller(bool Avant) {
  const HWND Voisine = GetNextDlgGroupItem(Lieu_.Fenetre, Poignee(), !Avant);
  if (Voisine == nullptr || Voisine == Poignee()) return;
  SetFocus(Voisine);
  SendMessageW(Voisine, BM_CLICK, 0, 0);
}

SIZE Pair_Option::Place_Texte() const {
  return {Largeur_De(Place()) - Pixels_96(20), 0};
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Bouton& C, bool Par_Defaut) {
  return std::make_unique<Pair_Bouton>(Lieu, C, Par_Defaut);
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Option& C, bool Premiere) {
  return std::make_unique<Pair_Option>(Lieu, C, Premiere);
}
