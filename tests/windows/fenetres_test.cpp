// The native windows around the whole program, whose machine is the tests' own: a simulated reader,
// time that jumps, message boxes that answer themselves.

#include <gtest/gtest.h>
#include <oleacc.h>

#include "outils/Poste_Windows.h"
#include "platform/windows/Fenetrage_Windows.h"
#include "platform/windows/Nom_Accessible.h"
#include "platform/windows/Texte_Windows.h"
#include "tests/Machine_De_Test.h"

namespace {

std::map<HWND, std::wstring> Noms_Donnes;

}  // namespace

// In the place of the program's own, whose service Wine does not have.
void Donner_Nom_Accessible(HWND Controle, const std::wstring& Nom) {
  Noms_Donnes[Controle] = Nom;
}

namespace {

struct Ecran_Natif : Fenetrage_Windows {
  Ecran_Natif(const wchar_t* Famille, Horloge_De_Test& H) : Fenetrage_Windows(Famille), Temps(H) {}

  Reponse Boite_Message(std::string_view, Boutons Choix, Icone, std::string_view) override {
    return Choix == Boutons::Ok ? Reponse::Ok : Reponse::Oui;
  }
  void Traiter_Evenements(std::chrono::milliseconds Attente) override {
    Temps.Maintenant += std::chrono::duration<double>(Attente).count();
    Fenetrage_Windows::Traiter_Evenements(std::chrono::milliseconds(0));
    if (Au_Repos) Au_Repos();
  }

  Horloge_De_Test& Temps;
  std::function<void()> Au_Repos;
};

HWND Poignee_De(const Fenetre& F) {
  return static_cast<Fenetre_Native*>(F.Pair())->Poignee();
}

struct Poste_Natif : Poste_De_Test {
  explicit Poste_Natif(const wchar_t* Famille = L"Arial Narrow", std::string_view Scenario = "")
      : Poste_De_Test(Scenario), Natif(Famille, Temps) {
    Disque.Poser("C:\\Pavorin\\Fexa0500.ing", Contenu(1300));
    Disque.Poser("C:\\Pavorin\\ER0300.ing", Contenu(1014));
    Profil.Repertoire() = {'C', ':', '\\', 'P', 'a', 'v', 'o', 'r', 'i', 'n'};
    Port.Brancher(Serie, 0.002);
    Programme.Demarrer();
  }
  void Mettre_A_Jour() {
    Lecteur.Rallumer();
    Programme.F.FMain.CmdMaj.Cliquer();
  }
  /// Every window in turn, an update, a test of the reader. Voir is called for each open window whenever it shows
  /// something new.
  void Tout_Montrer(const std::function<void(const Fenetre&)>& Voir) {
    Fenetres& F = Programme.F;
    const Fenetre* const Toutes[] = {&F.FMain, &F.FDossierING, &F.FrmAnimCharg, &F.FrmResultParam, &F.frmAbout};
    std::set<std::string> Vues;
    Natif.Au_Repos = [&] {
      for (const Fenetre* Une : Toutes) {
        std::string Vue = std::to_string(Une->Depart().Largeur);
        for (const Controle* C : Une->Controles()) Vue += C->Visible() ? C->Texte() + "|" : "";
        if (Une->Ouverte() && Vues.insert(Vue).second) Voir(*Une);
      }
    };
    F.FMain.MnApropos.Cliquer();
    F.FMain.CmdChooseDirectory.Cliquer();
    Natif.Traiter_Evenements({});
    Mettre_A_Jour();
    F.FMain.MnLecteur.Cliquer();
    Natif.Traiter_Evenements({});
    Natif.Au_Repos = {};
  }

  Lecteur_Serie Serie{Scenario_De("date = 20051013")};
  Ecran_Natif Natif;
  Application Programme{Machine{Galss, Processus, Profil, Disque, Port, Temps, Natif}};
};

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

TEST(Fenetres, Aucun_Texte_Coupe_Sur_Aucun_Moniteur) {
  for (const wchar_t* Famille : {L"Arial Narrow", L"Arial"}) {
    for (const int Dpi : {96, 120, 144, 192}) {
      SCOPED_TRACE(En_Utf8(Famille) + std::to_string(Dpi));
      std::set<const Fenetre*> Vues;
      Poste_Natif(Famille).Tout_Montrer([&](const Fenetre& F) {
        const RECT Voulue{10, 20, 0, 0};
        SendMessageW(Poignee_De(F), WM_DPICHANGED, MAKEWPARAM(Dpi, Dpi), reinterpret_cast<LPARAM>(&Voulue));
        Voir_Place(F, {Dpi});
        Voir_Textes(F);
        Vues.insert(&F);
      });
      EXPECT_EQ(Vues.size(), 5U);
    }
  }
}

std::wstring Nom_Lu(HWND Controle) {
  SendMessageW(Controle, WM_GETOBJECT, 0, OBJID_CLIENT);
  if (const auto Donne = Noms_Donnes.find(Controle); Donne != Noms_Donnes.end()) return Donne->second;
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

TEST(Fenetres, Un_Lecteur_D_Ecran_Nomme_Chaque_Controle) {
  Noms_Donnes.clear();
  std::set<std::wstring> Voyants;
  Poste_Natif P;
  P.Tout_Montrer([&](const Fenetre& F) {
    for (const Controle* C : F.Controles()) {
      const bool Texte_Seul = dynamic_cast<const Etiquette*>(C) || dynamic_cast<const Trait*>(C);
      const std::wstring Nom = Nom_Lu(GetDlgItem(Poignee_De(F), C->Numero()));
      EXPECT_TRUE(Texte_Seul || !Nom.empty()) << C->Numero();
      const bool Voyant = dynamic_cast<const Image*>(C) && C->Parent() == &P.Programme.F.FMain.FmDetails;
      if (Voyant && C->Visible()) Voyants.insert(Nom);
    }
  });
  EXPECT_EQ(Voyants, (std::set<std::wstring>{L"Connexion : réussie", L"Test : réussi"}));
}

TEST(Fenetres, Le_Poste_Reste_Eveille_Pendant_Un_Envoi) {
  Poste_Natif P;
  auto& F = P.Programme.F;
  const HWND Principale = Poignee_De(F.FMain);
  int Pendant = 0, Sabliers = 0;
  const auto Voir = [&](bool Envoi) {
    EXPECT_EQ(SendMessageW(Principale, WM_QUERYENDSESSION, 0, 0), !Envoi);
    // Answers the state before.
    const EXECUTION_STATE Etat = SetThreadExecutionState(ES_CONTINUOUS);
    SetThreadExecutionState(Etat);
    EXPECT_EQ((Etat & ES_SYSTEM_REQUIRED) != 0, Envoi);
    const bool Attend = F.FMain.Souris() == Pointeur::Sablier;
    Sabliers += Attend;
    SendMessageW(Principale, WM_SETCURSOR, reinterpret_cast<WPARAM>(Principale), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor() == LoadCursorW(nullptr, IDC_WAIT), Attend);
  };
  SetThreadExecutionState(ES_CONTINUOUS);
  P.Natif.Au_Repos = [&] {
    Voir(F.FrmAnimCharg.Ouverte());
    if (!F.FrmAnimCharg.Ouverte()) return;
    ++Pendant;
    EXPECT_FALSE(GetWindowLongW(Poignee_De(F.FrmAnimCharg), GWL_STYLE) & WS_SYSMENU);
    SendMessageW(Poignee_De(F.FrmAnimCharg), WM_CLOSE, 0, 0);
  };
  P.Mettre_A_Jour();
  P.Natif.Traiter_Evenements({});
  EXPECT_EQ(P.Lecteur.Fichiers().size(), 2U);
  EXPECT_GT(Pendant, 500);
  EXPECT_GT(Sabliers, 0);
}

// Labels and frames follow the operator's colours wherever the layout gives none.
TEST(Fenetres, Couleurs_De_L_Operateur) {
  Poste_Natif P;
  const Fenetre& F = P.Programme.F.FMain;
  const INT Elements[] = {COLOR_BTNFACE, COLOR_BTNTEXT};
  const COLORREF Avant[] = {GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNTEXT)},
                 Apres[] = {RGB(1, 2, 3), RGB(250, 251, 252)};
  for (const COLORREF* Voulues : {Apres, Avant}) {
    SetSysColors(2, Elements, Voulues);
    SendMessageW(Poignee_De(F), WM_SYSCOLORCHANGE, 0, 0);
    for (const Controle* C : F.Controles()) {
      if (!dynamic_cast<const Etiquette*>(C)) continue;
      const HDC Dc = GetDC(nullptr);
      SendMessageW(Poignee_De(F), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(Dc),
                   reinterpret_cast<LPARAM>(GetDlgItem(Poignee_De(F), C->Numero())));
      EXPECT_EQ(GetTextColor(Dc), C->Encre() ? En_Colorref(*C->Encre()) : Voulues[1]) << C->Numero();
      EXPECT_EQ(GetBkColor(Dc), Voulues[0]) << C->Numero();
      ReleaseDC(nullptr, Dc);
    }
  }
}

TEST(Fenetres, Deux_Cents_Mises_A_Jour_Ne_Consomment_Rien) {
  Poste_Natif P(L"Arial",
                "num_version = 0200; type_os = 04; type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; premier_fichier = appli");
  Fenetre_Principale& FMain = P.Programme.F.FMain;
  FMain.OptManuel.Choisir();  // the application alone: a kernel's long pauses would show nothing more
  const auto Passer = [&](int Fois) {
    for (int I = 0; I < Fois; ++I) {
      FMain.CchosseAppli.Choisir_A_La_Main(0);
      P.Mettre_A_Jour();
      if (I % 20 != 0) continue;
      FMain.MnLecteur.Cliquer();
      EXPECT_TRUE(P.Programme.F.FrmResultParam.Ouverte());
      P.Programme.F.FrmResultParam.CmdOK.Cliquer();
    }
    P.Natif.Traiter_Evenements({});
    return Mesurer(GetCurrentProcess());
  };
  const Consommation Avant = Passer(3), Apres = Passer(200);
  EXPECT_EQ(P.Lecteur.Fichiers().size(), 203U);
  EXPECT_GT(Avant.Gdi, 0U);
  EXPECT_EQ(Apres.Gdi, Avant.Gdi);
  EXPECT_EQ(Apres.Fenetres, Avant.Fenetres);
  EXPECT_EQ(Apres.User_Libres, Avant.User_Libres);
  EXPECT_LE(Apres.Poignees, Avant.Poignees + 2);
}

}  // namespace
