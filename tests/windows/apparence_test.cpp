// What the windows show: places, texts, names, colours.

#include <oleacc.h>

#include "tests/windows/Poste_Natif.h"

namespace {

// The native window and its controls hold what the models do.
void Voir_Etat(const Fenetre& F) {
  EXPECT_EQ(IsWindowEnabled(Poignee_De(F)) != 0, F.A_Portee());
  if (const Fenetre* const Derriere = F.Depart().Devant) {
    EXPECT_FALSE(IsWindowEnabled(Poignee_De(*Derriere)));
    EXPECT_EQ(GetWindow(Poignee_De(F), GW_OWNER), Poignee_De(*Derriere));
  }
  for (const Controle* C : F.Controles()) {
    SCOPED_TRACE(C->Numero());
    const Objet_Vu Lui{GetDlgItem(Poignee_De(F), C->Numero())};
    EXPECT_EQ(Lui.Visible(), C->Visible() && (C->Parent() == nullptr || C->Parent()->Visible()));
    EXPECT_EQ(Lui.Actif(), C->Active());
    const auto* const Liste = dynamic_cast<const Liste_Deroulante*>(C);
    const bool Dit_Son_Texte = Liste != nullptr || dynamic_cast<const Etiquette*>(C) != nullptr ||
                               dynamic_cast<const Champ_Texte*>(C) != nullptr;
    EXPECT_TRUE(!Dit_Son_Texte || Lui.Texte() == C->Texte()) << C->Texte();
    EXPECT_TRUE(!Liste || Lui.Envoyer(CB_GETCOUNT) == static_cast<LRESULT>(Liste->Entrees().size()));
  }
}

// What each control shows fits inside it, in the font that it really has.
void Voir_Textes(const Fenetre& F) {
  for (const Controle* C : F.Controles()) {
    const HWND Lui = GetDlgItem(Poignee_De(F), C->Numero());
    const bool Etiquette_Simple = dynamic_cast<const Etiquette*>(C) != nullptr;
    const bool Puce = dynamic_cast<const Option*>(C) != nullptr;
    const bool Ecrit = Etiquette_Simple || Puce || dynamic_cast<const Bouton*>(C) || dynamic_cast<const Cadre*>(C);
    if (!Ecrit || !IsWindowVisible(Lui)) continue;
    const std::wstring Texte = En_Utf16(C->Texte());
    RECT Dedans{}, Pris{};
    GetClientRect(Lui, &Dedans);
    Pris.right = Dedans.right;
    const HDC Dc = GetDC(Lui);
    {
      const Selection_Gdi Police(Dc, reinterpret_cast<HFONT>(SendMessageW(Lui, WM_GETFONT, 0, 0)));
      DrawTextW(Dc, Texte.c_str(), -1, &Pris,
                DT_CALCRECT | DT_NOPREFIX | (Etiquette_Simple ? DT_WORDBREAK : DT_SINGLELINE));
    }
    ReleaseDC(Lui, Dc);
    const int Puce_Dessinee = Puce ? Dedans.bottom / 2 : 0;
    EXPECT_LE(Pris.right + Puce_Dessinee, Dedans.right) << C->Numero() << C->Texte();
    EXPECT_LE(Pris.bottom, Dedans.bottom) << C->Numero() << C->Texte();
  }
}

void Voir_Place(const Fenetre& F, const Echelle& E) {
  RECT Dedans{};
  GetClientRect(Poignee_De(F), &Dedans);
  EXPECT_EQ(Dedans.right, E.Pixels(F.Depart().Largeur));
  EXPECT_EQ(Dedans.bottom, E.Pixels(F.Depart().Hauteur));
  for (const Controle* C : F.Controles()) {
    RECT Ici{};
    GetWindowRect(GetDlgItem(Poignee_De(F), C->Numero()), &Ici);
    MapWindowPoints(nullptr, Poignee_De(F), reinterpret_cast<POINT*>(&Ici), 2);
    const Position Cadre_Sien = C->Parent() ? C->Parent()->Place() : Position{};
    EXPECT_NEAR(Ici.left, E.Pixels(Cadre_Sien.Gauche + C->Place().Gauche), 2) << C->Numero();
    EXPECT_NEAR(Ici.top, E.Pixels(Cadre_Sien.Haut + C->Place().Haut), 2) << C->Numero();
  }
}

TEST_F(Fenetres_Natives, Aucun_Texte_Coupe_Sur_Aucun_Moniteur) {
  for (const wchar_t* Famille : {Polices::Famille_Du_Poste(), L"Arial"}) {
    for (const int Dpi : {96, 120, 144, 192}) {
      SCOPED_TRACE(En_Utf8(Famille) + std::to_string(Dpi));
      std::set<const Fenetre*> Vues;
      Poste_Natif(Famille).Tout_Montrer([&](const Fenetre& Une) {
        const RECT Voulue{10, 20, 0, 0};
        SendMessageW(Poignee_De(Une), WM_DPICHANGED, MAKEWPARAM(Dpi, Dpi), reinterpret_cast<LPARAM>(&Voulue));
        Voir_Etat(Une);
        Voir_Place(Une, {Dpi});
        Voir_Textes(Une);
        Vues.insert(&Une);
      });
      EXPECT_EQ(Vues.size(), 5U);
    }
  }
}

TEST_F(Fenetres_Natives, Une_Fenetre_Trop_Haute_Garde_Sa_Barre_De_Titre) {
  Fenetre Haute(Natif, {.Titre = "Haute", .Largeur = 60000, .Hauteur = 60000});
  Haute.Montrer();
  RECT Place{}, Travail{};
  GetWindowRect(Poignee_De(Haute), &Place);
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &Travail, 0);
  EXPECT_GT(Place.bottom, Travail.bottom);
  EXPECT_EQ(Place.top, Travail.top);
  EXPECT_EQ(Place.left, Travail.left);
  Haute.Decharger();
}

std::wstring Nom_Lu(const Ecran_Natif& Natif, HWND Controle) {
  SendMessageW(Controle, WM_GETOBJECT, 0, OBJID_CLIENT);
  if (const auto Donne = Natif.Noms.find(Controle); Donne != Natif.Noms.end()) return Donne->second;
  IAccessible* Objet = nullptr;
  BSTR Nom = nullptr;
  VARIANT Lui_Meme{};
  Lui_Meme.vt = VT_I4;
  if (FAILED(AccessibleObjectFromWindow(Controle, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                        reinterpret_cast<void**>(&Objet))))
    return {};
  Objet->get_accName(Lui_Meme, &Nom);
  Objet->Release();
  const std::wstring Lu = Nom ? Nom : L"";
  SysFreeString(Nom);
  return Lu;
}

TEST_F(Fenetres_Natives, Un_Lecteur_D_Ecran_Nomme_Chaque_Controle) {
  std::set<std::wstring> Voyants;
  Tout_Montrer([&](const Fenetre& Une) {
    for (const Controle* C : Une.Controles()) {
      const bool Texte_Seul = dynamic_cast<const Etiquette*>(C) || dynamic_cast<const Trait*>(C);
      const std::wstring Nom = Nom_Lu(Natif, GetDlgItem(Poignee_De(Une), C->Numero()));
      EXPECT_TRUE(Texte_Seul || !Nom.empty()) << C->Numero();
      const bool Voyant = dynamic_cast<const Image*>(C) && C->Parent() == &F.FMain.FmDetails;
      if (Voyant && C->Visible()) Voyants.insert(Nom);
    }
  });
  EXPECT_EQ(Voyants, (std::set<std::wstring>{L"Connexion : réussie", L"Test : réussi"}));
}

// Labels and frames follow the operator's colours wherever the layout gives none.
TEST_F(Fenetres_Natives, Couleurs_De_L_Operateur) {
  const Fenetre& Principale = F.FMain;
  const INT Elements[] = {COLOR_BTNFACE, COLOR_BTNTEXT};
  const COLORREF Avant[] = {GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNTEXT)},
                 Apres[] = {RGB(1, 2, 3), RGB(250, 251, 252)};
  for (const COLORREF* Voulues : {Apres, Avant}) {
    SetSysColors(2, Elements, Voulues);
    SendMessageW(Poignee_De(Principale), WM_SYSCOLORCHANGE, 0, 0);
    for (const Controle* C : Principale.Controles()) {
      if (!dynamic_cast<const Etiquette*>(C)) continue;
      const HDC Dc = GetDC(nullptr);
      const LRESULT Pinceau = SendMessageW(Poignee_De(Principale), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(Dc),
                                           reinterpret_cast<LPARAM>(GetDlgItem(Poignee_De(Principale), C->Numero())));
      EXPECT_NE(Pinceau, reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH))) << "a theme paints in another context";
      EXPECT_EQ(GetTextColor(Dc), C->Encre() ? En_Colorref(*C->Encre()) : Voulues[1]) << C->Numero();
      EXPECT_EQ(GetBkColor(Dc), Voulues[0]) << C->Numero();
      ReleaseDC(nullptr, Dc);
    }
  }
}

}  // namespace
