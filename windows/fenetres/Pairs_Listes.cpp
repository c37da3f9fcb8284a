// The native lists: the drop-down ones of the selections and of the drives, and the directory tree.

#include "windows/fenetres/Fabrique_Pairs.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "ui/controles/Listes.h"
#include "windows/fenetres/Dessins.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

// What the two drop-down lists share. A search fills a list entry by entry, and more than once: the
// native one is filled when it is over.
class Pair_Deroulant : public Pair_Natif {
 public:
  using Pair_Natif::Pair_Natif;
  void Actualiser(Propriete Quoi) override;
  void Rattraper() override;

 protected:
  void Habiller() override;
  // The text is the selected entry's.
  void Actualiser_Texte() override;
  virtual const std::vector<std::string>& Entrees() const = 0;
  virtual int Indice() const = 0;

  void Actualiser_Choix();
  void Effacer_Surbrillance();
  // Index of the entry that the operator selected.
  int Indice_Natif() const { return static_cast<int>(Envoyer(CB_GETCURSEL)); }
  // Room for the longest entry.
  void Elargir();

 private:
  void Actualiser_Contenu();

  std::vector<std::string> Montrees_;  // entries of the native list
  bool En_Retard_ = false;
};

class Pair_Liste_Deroulante : public Pair_Deroulant {
 public:
  Pair_Liste_Deroulante(Surface& Lieu, Liste_Deroulante& Sienne);
  void Commander(WORD Avis) override;

 protected:
  const std::vector<std::string>& Entrees() const override { return Liste_.Entrees(); }
  int Indice() const override { return Liste_.Indice(); }

 private:
  Liste_Deroulante& Liste_;
};

class Pair_Lecteurs : public Pair_Deroulant {
 public:
  Pair_Lecteurs(Surface& Lieu, Liste_Lecteurs& Sienne);
  void Commander(WORD Avis) override;

 protected:
  const std::vector<std::string>& Entrees() const override { return Liste_.Entrees(); }
  int Indice() const override { return Liste_.Indice(); }

 private:
  Liste_Lecteurs& Liste_;
};

class Pair_Repertoires : public Pair_Natif {
 public:
  Pair_Repertoires(Surface& Lieu, Liste_Repertoires& Sienne);
  void Actualiser(Propriete Quoi) override;
  void Commander(WORD Avis) override;
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  void Habiller() override;
  void Actualiser_Texte() override;

 private:
  void Actualiser_Contenu();
  void Ouvrir();
  int Retrait(int Niveau) const;

  Liste_Repertoires& Liste_;
  Image_Argb Dessin_;
};

constexpr int Lignes_Deroulees = 12;

}  // namespace

void Pair_Deroulant::Habiller() {
  Pair_Natif::Habiller();
  const RECT Voulue = Place();
  const int Deroulee = Lignes_Deroulees * static_cast<int>(Envoyer(CB_GETITEMHEIGHT, 0));
  SetWindowPos(Poignee(), nullptr, 0, 0, Largeur_De(Voulue), Hauteur_De(Voulue) + Deroulee,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  // The height of a closed list follows from that of its one line.
  for (int Passe = 0, Ligne = Hauteur_De(Voulue); Passe < 2; ++Passe) {
    Envoyer(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), Ligne);
    RECT Fermee{};
    GetWindowRect(Poignee(), &Fermee);
    Ligne = std::max(1, Ligne + Hauteur_De(Voulue) - Hauteur_De(Fermee));
  }
  En_Retard_ = true;
}

void Pair_Deroulant::Actualiser(Propriete Quoi) {
  Pair_Natif::Actualiser(Quoi);
  if (Quoi == Propriete::Contenu || Quoi == Propriete::Choix) En_Retard_ = true;
}

void Pair_Deroulant::Rattraper() {
  if (!std::exchange(En_Retard_, false) || Poignee() == nullptr) return;
  Actualiser_Contenu();
  Actualiser_Choix();
}

void Pair_Deroulant::Actualiser_Texte() {
  const auto Police = Lieu_.Fontes.Normale(Look(), Lieu_.Mesure);
  if (reinterpret_cast<HFONT>(Envoyer(WM_GETFONT)) == Police) return;
  Envoyer(WM_SETFONT, reinterpret_cast<WPARAM>(Police), TRUE);
}

void Pair_Deroulant::Actualiser_Contenu() {
  if (Montrees_ == Entrees()) return;
  Montrees_.clear();
  Envoyer(CB_RESETCONTENT);
  for (const std::string& Une : Entrees()) {
    Envoyer(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(En_Utf16(Une).c_str()));
  }
  Montrees_ = Entrees();
}

void Pair_Deroulant::Actualiser_Choix() {
  Envoyer(CB_SETCURSEL, static_cast<WPARAM>(Indice()));
  Effacer_Surbrillance();
}

// A text that is set comes highlighted, as if the list had the focus.
void Pair_Deroulant::Effacer_Surbrillance() {
  if (!IsChild(Poignee(), GetFocus())) Envoyer(CB_SETEDITSEL, 0, MAKELPARAM(-1, 0));
}

void Pair_Deroulant::Elargir() {
  const HFONT Police = Lieu_.Fontes.Normale(Look(), Lieu_.Mesure);
  int Largeur = 0;
  for (const std::string& Une : Entrees()) {
    Largeur = std::max(Largeur, Lieu_.Fontes.Largeur_Texte(Police, En_Utf16(Une)));
  }
  Largeur += GetSystemMetrics(SM_CXVSCROLL) + Pixels_96(10);
  Envoyer(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::max(Largeur, Largeur_De(Place()))));
}

Pair_Liste_Deroulante::Pair_Liste_Deroulante(Surface& Lieu, Liste_Deroulante& Sienne)
    : Pair_Deroulant(Lieu, Sienne), Liste_(Sienne) {
  Creer(WC_COMBOBOXW,
        WS_TABSTOP | WS_VSCROLL | WS_GROUP | static_cast<DWORD>(CBS_DROPDOWN | CBS_AUTOHSCROLL));
}

void Pair_Liste_Deroulante::Commander(WORD Avis) {
  switch (Avis) {
    case CBN_DROPDOWN:
      return Elargir();
    case CBN_KILLFOCUS:
      return Effacer_Surbrillance();
    case CBN_SELCHANGE:
      return Liste_.Choisir_A_La_Main(Indice_Natif());
    case CBN_EDITCHANGE:
      Liste_.Taper();
      // Whatever was typed, the text is the selected entry's.
      Actualiser_Choix();
      Envoyer(CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
      return;
  }
}

Pair_Lecteurs::Pair_Lecteurs(Surface& Lieu, Liste_Lecteurs& Sienne)
    : Pair_Deroulant(Lieu, Sienne), Liste_(Sienne) {
  Creer(WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | WS_GROUP | static_cast<DWORD>(CBS_DROPDOWNLIST));
}

void Pair_Lecteurs::Commander(WORD Avis) {
  if (Avis == CBN_SELCHANGE) Liste_.Choisir_A_La_Main(Indice_Natif());
}

Pair_Repertoires::Pair_Repertoires(Surface& Lieu, Liste_Repertoires& Sienne)
    : Pair_Natif(Lieu, Sienne), Liste_(Sienne) {
  Creer(WC_LISTBOXW,
        WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | WS_GROUP |
            static_cast<DWORD>(LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS |
                               LBS_NOINTEGRALHEIGHT),
        WS_EX_CLIENTEDGE);
  Actualiser_Contenu();
}

void Pair_Repertoires::Habiller() {
  Dessin_ = Dessiner(Dessin::Dossier, Taille_Dessin(Dessin::Dossier, Lieu_.Mesure));
  Pair_Natif::Habiller();
  const int Ligne = Lieu_.Fontes.Hauteur_Ligne(Lieu_.Fontes.Normale(Look(), Lieu_.Mesure));
  Envoyer(LB_SETITEMHEIGHT, 0,
          std::max(Ligne, static_cast<int>(Dessin_.Taille().cy) + Pixels_96(2)));
}

void Pair_Repertoires::Actualiser_Texte() {
  Envoyer(WM_SETFONT, reinterpret_cast<WPARAM>(Lieu_.Fontes.Normale(Look(), Lieu_.Mesure)), TRUE);
}

void Pair_Repertoires::Actualiser(Propriete Quoi) {
  Pair_Natif::Actualiser(Quoi);
  if (Quoi == Propriete::Contenu) Actualiser_Contenu();
}

void Pair_Repertoires::Actualiser_Contenu() {
  const HFONT Police = Lieu_.Fontes.Normale(Look(), Lieu_.Mesure);
  Envoyer(LB_RESETCONTENT);
  int Largeur = 0;
  for (const auto& Ligne : Liste_.Lignes()) {
    const std::wstring Nom = En_Utf16(Ligne.Nom);
    Envoyer(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Nom.c_str()));
    Largeur = std::max(Largeur, Retrait(Ligne.Niveau) + static_cast<int>(Dessin_.Taille().cx) +
                                    Pixels_96(10) + Lieu_.Fontes.Largeur_Texte(Police, Nom));
  }
  Envoyer(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(Largeur));
  Envoyer(LB_SETCURSEL, static_cast<WPARAM>(Liste_.Indice()));
}

int Pair_Repertoires::Retrait(int Niveau) const {
  return Pixels_96(2 + 10 * Niveau);
}

void Pair_Repertoires::Commander(WORD Avis) {
  if (Avis == LBN_DBLCLK) Ouvrir();
}

LRESULT Pair_Repertoires::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  if (Message == WM_GETDLGCODE && L != 0 && W == VK_RETURN) {
    return Pair_Natif::Recevoir(Message, W, L) | DLGC_WANTMESSAGE;
  }
  if (Message == WM_KEYDOWN && W == VK_RETURN) {
    Ouvrir();
    return 0;
  }
  return Pair_Natif::Recevoir(Message, W, L);
}

void Pair_Repertoires::Ouvrir() {
  Liste_.Ouvrir_A_La_Main(static_cast<int>(Envoyer(LB_GETCURSEL)));
}

void Pair_Repertoires::Dessiner_Article(const DRAWITEMSTRUCT& Demande) {
  const bool Choisie = (Demande.itemState & ODS_SELECTED) != 0;
  FillRect(Demande.hDC, &Demande.rcItem,
           GetSysColorBrush(Choisie ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  const auto Rang = static_cast<std::size_t>(Demande.itemID);
  if (Rang < Liste_.Lignes().size()) {
    const auto& Ligne = Liste_.Lignes()[Rang];
    RECT Texte = Demande.rcItem;
    Texte.left += Retrait(Ligne.Niveau);
    Dessin_.Poser(Demande.hDC, Texte.left,
                  Texte.top + (Hauteur_De(Texte) - Dessin_.Taille().cy) / 2);
    Texte.left += Dessin_.Taille().cx + Pixels_96(4);
    SetBkMode(Demande.hDC, TRANSPARENT);
    SetTextColor(Demande.hDC, GetSysColor(Choisie ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    DrawTextW(Demande.hDC, En_Utf16(Ligne.Nom).c_str(), -1, &Texte,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  }
  if ((Demande.itemState & ODS_FOCUS) != 0) DrawFocusRect(Demande.hDC, &Demande.rcItem);
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Liste_Deroulante& C) {
  return std::make_unique<Pair_Liste_Deroulante>(Lieu, C);
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Liste_Lecteurs& C) {
  return std::make_unique<Pair_Lecteurs>(Lieu, C);
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Liste_Repertoires& C) {
  return std::make_unique<Pair_Repertoires>(Lieu, C);
}
