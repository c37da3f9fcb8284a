// The native windows around the whole program, whose machine is the tests' own: a simulated reader,
// time that jumps, message boxes that answer themselves.

#include <gtest/gtest.h>
#include <oleacc.h>

#include "tests/Machine_De_Test.h"
#include "tests/bout_en_bout/Poste_Windows.h"
#include "windows/fenetres/Fenetrage_Windows.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

std::map<HWND, std::wstring> Noms_Donnes;

struct Ecran_Natif : Fenetrage_Windows {
  Ecran_Natif(const wchar_t* Famille, Horloge_De_Test& H) : Fenetrage_Windows(Famille), Temps(H) {}

  Reponse Boite_Message(std::string_view, Boutons Choix, Icone, std::string_view) override {
    return Choix == Boutons::Ok ? Reponse::Ok : Reponse::Oui;
  }
  // Wine does not have the program's own service.
  void Donner_Nom_Accessible(HWND Controle, const std::wstring& Nom) const override { Noms_Donnes[Controle] = Nom; }
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
  explicit Poste_Natif(const wchar_t* Famille = Polices::Famille_Du_Poste(), std::string_view Scenario = "")
      : Poste_De_Test(Scenario), Natif(Famille, Temps) {
    Disque.Poser("C:\\Pavorin\\Fexa0500.ing", Contenu(1300));
    Disque.Poser("C:\\Pavorin\\ER0300.ing", Contenu(1014));
    Profil.Repertoire() = {'C', ':', '\\', 'P', 'a', 'v', 'o', 'r', 'i', 'n'};
    Port.Brancher(Serie, 0.002);
    Programme.Form_Load();
  }
  void Mettre_A_Jour() {
    Lecteur.Rallumer();
    F.FMain.CmdMaj.Cliquer();
  }
  /// Every window in turn, an update, a test of the reader. Voir is called for each open window whenever it shows
  /// something new.
  void Tout_Montrer(const std::function<void(const Fenetre&)>& Voir) {
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
  Fenetres& F = Programme.F;
};

struct Fenetres : testing::Test, Poste_Natif {};

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

TEST_F(Fenetres, Aucun_Texte_Coupe_Sur_Aucun_Moniteur) {
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

TEST_F(Fenetres, Une_Fenetre_Trop_Haute_Garde_Sa_Barre_De_Titre) {
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

TEST_F(Fenetres, Un_Lecteur_D_Ecran_Nomme_Chaque_Controle) {
  Noms_Donnes.clear();
  std::set<std::wstring> Voyants;
  Tout_Montrer([&](const Fenetre& Une) {
    for (const Controle* C : Une.Controles()) {
      const bool Texte_Seul = dynamic_cast<const Etiquette*>(C) || dynamic_cast<const Trait*>(C);
      const std::wstring Nom = Nom_Lu(GetDlgItem(Poignee_De(Une), C->Numero()));
      EXPECT_TRUE(Texte_Seul || !Nom.empty()) << C->Numero();
      const bool Voyant = dynamic_cast<const Image*>(C) && C->Parent() == &F.FMain.FmDetails;
      if (Voyant && C->Visible()) Voyants.insert(Nom);
    }
  });
  EXPECT_EQ(Voyants, (std::set<std::wstring>{L"Connexion : réussie", L"Test : réussi"}));
}

TEST_F(Fenetres, Le_Poste_Reste_Eveille_Pendant_Un_Envoi) {
  const HWND Principale = Poignee_De(F.FMain);
  int Entre_Deux = 0, Pendant = 0, Sabliers = 0;
  bool Envoi = false;
  const auto Voir = [&] {
    EXPECT_EQ(SendMessageW(Principale, WM_QUERYENDSESSION, 0, 0), !Envoi);
    // Answers the state before.
    const EXECUTION_STATE Etat = SetThreadExecutionState(ES_CONTINUOUS);
    SetThreadExecutionState(Etat);
    EXPECT_EQ(Etat & (ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED),
              Envoi ? EXECUTION_STATE{ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED} : 0);
    const bool Attend = F.FMain.Souris() == Pointeur::Sablier;
    Sabliers += Attend;
    SendMessageW(Principale, WM_SETCURSOR, reinterpret_cast<WPARAM>(Principale), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor() == LoadCursorW(nullptr, IDC_WAIT), Attend);
  };
  SetThreadExecutionState(ES_CONTINUOUS);
  Pannes_.Avant = [&](std::string_view Appel, int) {
    Envoi = Envoi || Appel == "Taille";
    Entre_Deux += Envoi && !F.FrmAnimCharg.Ouverte();
    Voir();
  };
  Natif.Au_Repos = [&] {
    Voir();
    if (!F.FrmAnimCharg.Ouverte()) return;
    ++Pendant;
    EXPECT_FALSE(GetWindowLongW(Poignee_De(F.FrmAnimCharg), GWL_STYLE) & WS_SYSMENU);
    SendMessageW(Poignee_De(F.FrmAnimCharg), WM_CLOSE, 0, 0);
  };
  Mettre_A_Jour();
  Envoi = false;
  Natif.Traiter_Evenements({});
  EXPECT_EQ(Lecteur.Fichiers().size(), 2U);
  EXPECT_GT(Pendant, 500);
  EXPECT_GT(Entre_Deux, 2);
  EXPECT_GT(Sabliers, 0);
}

int Creations_Permises = 0;
LRESULT CALLBACK Refuser_Une_Creation(int Code, WPARAM W, LPARAM L) {
  if (Code == HCBT_CREATEWND && Creations_Permises-- == 0) return 1;
  return CallNextHookEx(nullptr, Code, W, L);
}

// The system cannot make a window, or one of its controls.
TEST_F(Fenetres, Sans_Place_Aucune_Fenetre_N_Enferme_L_Operateur) {
  const Crochet Refus(SetWindowsHookExW(WH_CBT, Refuser_Une_Creation, nullptr, GetCurrentThreadId()));
  for (const int Permises : {0, 1, 5}) {
    for (const auto* Demande : {&F.FMain.CmdMaj.Clic, &F.FMain.MnLecteur.Clic, &F.FMain.MnApropos.Clic}) {
      Creations_Permises = Permises;
      try {
        Lecteur.Rallumer();
        (*Demande)();
      } catch (const Erreur&) {
        EXPECT_EQ(Demande, &F.FMain.MnApropos.Clic);
      }
      EXPECT_LT(Creations_Permises, 0);
      EXPECT_TRUE(Lecteur.Fichiers().empty());
      EXPECT_FALSE(F.FrmAnimCharg.Ouverte() || F.FrmResultParam.Ouverte() || F.frmAbout.Ouverte());
      EXPECT_TRUE(IsWindowEnabled(Poignee_De(F.FMain)) && F.FMain.Active());
    }
  }
  Mettre_A_Jour();
  EXPECT_EQ(Lecteur.Fichiers().size(), 2U);
}

/// What is done while a box is up, one step every tenth of a second.
std::deque<std::function<void()>> Etapes;
void CALLBACK Passer_Une_Etape(HWND, UINT, UINT_PTR, DWORD) {
  if (Etapes.empty()) return;
  const auto Etape = Etapes.front();
  Etapes.pop_front();
  Etape();
}

std::function<void()> Frapper(WORD Touche) {
  return [=] {
    Toucher(Touche, 0);
    Toucher(Touche, KEYEVENTF_KEYUP);
  };
}

/// The answer to a real box.
Reponse Demander(Ecran_Natif& Natif, Boutons Choix, Icone Dessin, std::deque<std::function<void()>> Pendant) {
  Etapes = std::move(Pendant);
  const UINT_PTR Minuterie = SetTimer(nullptr, 0, 100, Passer_Une_Etape);
  const Reponse Donnee = Natif.Fenetrage_Windows::Boite_Message("Été ?", Choix, Dessin, "Essai");
  KillTimer(nullptr, Minuterie);
  return Donnee;
}

// Its points as they are drawn.
std::vector<COLORREF> Points_De(HICON Dessin) {
  constexpr int Cote = 16;
  const HDC Ecran = GetDC(nullptr);
  const Dc_Memoire Dc(CreateCompatibleDC(Ecran));
  const Objet_Gdi<HBITMAP> Surface_Dessinee(CreateCompatibleBitmap(Ecran, Cote, Cote));
  ReleaseDC(nullptr, Ecran);
  const Selection_Gdi Choisie(Dc.get(), Surface_Dessinee.get());
  DrawIconEx(Dc.get(), 0, 0, Dessin, Cote, Cote, 0, nullptr, DI_NORMAL);
  std::vector<COLORREF> Points;
  for (int I = 0; I < Cote * Cote; ++I) Points.push_back(GetPixel(Dc.get(), I % Cote, I / Cote));
  return Points;
}

TEST_F(Fenetres, Une_Boite_Dit_Son_Texte_Et_Montre_Son_Dessin) {
  for (const auto& [Dessin, Voulu] : {std::pair{Icone::Information, IDI_INFORMATION},
                                      {Icone::Question, IDI_QUESTION},
                                      {Icone::Exclamation, IDI_WARNING}}) {
    for (const Boutons Choix : {Boutons::Ok, Boutons::Oui_Non}) {
      Boite_Vue Vue;
      const auto Voir = [&, Attendu = Points_De(LoadIconW(nullptr, Voulu))] {
        Vue = Boite_Vue({GetActiveWindow()});
        EXPECT_EQ(Vue.Objet_Vu::Texte(), "Essai");
        EXPECT_EQ(Points_De(reinterpret_cast<HICON>(Vue.Dessin.Envoyer(STM_GETICON))), Attendu);
        EXPECT_FALSE(IsWindowEnabled(Poignee_De(F.FMain)));
        Vue.Poster(WM_COMMAND, Choix == Boutons::Ok ? IDOK : IDYES);
      };
      EXPECT_EQ(Demander(Natif, Choix, Dessin, {Voir}), Choix == Boutons::Ok ? Reponse::Ok : Reponse::Oui);
      EXPECT_EQ(Vue.Tout, Choix == Boutons::Ok ? "OK : Été ?" : "Oui Non : Été ?");
    }
  }
}

TEST_F(Fenetres, Une_Touche_Frappee_D_Avance_Ne_Repond_A_Rien) {
  const auto Entrer = Frapper(VK_RETURN);
  const auto Refuser = [] { PostMessageW(GetActiveWindow(), WM_COMMAND, IDNO, 0); };
  const auto Essayer = [&](std::deque<std::function<void()>> Pendant) {
    return Demander(Natif, Boutons::Oui_Non, Icone::Question, std::move(Pendant));
  };
  Natif.Traiter_Evenements({});
  EXPECT_EQ(Essayer({Entrer}), Reponse::Oui) << "typed once the box is up";
  Entrer();
  EXPECT_EQ(Essayer({Refuser}), Reponse::Non) << "typed before";
  const auto Repeter = [] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 0x40000001); };
  EXPECT_EQ(Essayer({Repeter, Repeter, Refuser}), Reponse::Non) << "held down";
}

std::wstring Presse_Papiers() {
  std::wstring Texte;
  if (!OpenClipboard(nullptr)) return Texte;
  if (const HANDLE Donnees = GetClipboardData(CF_UNICODETEXT)) {
    Texte = static_cast<const wchar_t*>(GlobalLock(Donnees));
    GlobalUnlock(Donnees);
  }
  CloseClipboard();
  return Texte;
}

TEST_F(Fenetres, Menus_Et_Echap_Au_Clavier) {
  int Tests = 0;
  F.FMain.MnLecteur.Clic = [&] { ++Tests; };
  // Should the keys miss the menu, it would stay open for ever.
  Etapes = {Frapper('C'), Frapper('T')};
  Etapes.resize(30, [] {});
  Etapes.push_back([] { SendMessageW(GetActiveWindow(), WM_CANCELMODE, 0, 0); });
  const UINT_PTR Minuterie = SetTimer(nullptr, 0, 100, Passer_Une_Etape);
  SendMessageW(Poignee_De(F.FMain), WM_SYSCOMMAND, SC_KEYMENU, 'f');
  KillTimer(nullptr, Minuterie);
  Natif.Traiter_Evenements({});
  EXPECT_EQ(Tests, 1);
  F.FMain.MnApropos.Cliquer();
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
  Natif.Traiter_Evenements({});
  EXPECT_FALSE(F.frmAbout.Ouverte());
}

TEST_F(Fenetres, La_Touche_Tab_Passe_Par_Tous) {
  // The directory and its button, the mode, the two commands, then the pane again.
  const std::vector Voulus = {101, 102, 202, 301, 302, 401};
  std::vector<int> Vus;
  SetFocus(GetDlgItem(Poignee_De(F.FMain), Voulus.back()));
  while (Vus.size() < Voulus.size()) {
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
    Natif.Traiter_Evenements({});
    Vus.push_back(GetDlgCtrlID(GetFocus()));
  }
  EXPECT_EQ(Vus, Voulus);
}

TEST_F(Fenetres, Le_Volet_Suit_Sa_Derniere_Ligne_Et_Se_Copie) {
  Champ_Texte& Volet = F.FMain.TxtDetails;
  const Objet_Vu Details{GetDlgItem(Poignee_De(F.FMain), Volet.Numero())};
  for (int Ligne = 0; Ligne < 100; ++Ligne) {
    Volet.Texte(Volet.Texte() + "été " + std::to_string(Ligne) + "\r\n");
    Natif.Traiter_Evenements({});
  }
  EXPECT_GT(Details.Envoyer(EM_GETFIRSTVISIBLELINE), 50);
  constexpr WPARAM Controle_A = 1, Controle_C = 3, Controle_X = 24;  // the characters that these keys type
  for (const WPARAM Lettre : {Controle_A, Controle_C, Controle_X, WPARAM{'x'}}) Details.Poster(WM_CHAR, Lettre, 1);
  Details.Poster(WM_KEYDOWN, VK_DELETE, 1);
  Natif.Traiter_Evenements({});
  EXPECT_EQ(En_Utf8(Presse_Papiers()), Volet.Texte());
  EXPECT_EQ(Details.Texte(), Volet.Texte());
}

TEST_F(Fenetres, Attendre_Laisse_Le_Processeur_Aux_Autres) {
  const auto Pris = [] {  // by this program, in 100 ns
    FILETIME Debut{}, Fin{}, Systeme{}, Propre{};
    GetProcessTimes(GetCurrentProcess(), &Debut, &Fin, &Systeme, &Propre);
    return Systeme.dwLowDateTime + Propre.dwLowDateTime;
  };
  Natif.Traiter_Evenements({});
  const ULONGLONG Debut = GetTickCount64();
  const DWORD Avant = Pris();
  for (int I = 0; I < 100; ++I) Natif.Fenetrage_Windows::Traiter_Evenements(std::chrono::milliseconds(10));
  EXPECT_GE(GetTickCount64() - Debut, 500U) << "some waits may be cut short";
  EXPECT_LT(Pris() - Avant, 2'000'000U);
}

/// Takes what is in the queue like a library that knows nothing of our windows.
void Pomper() {
  for (MSG M; PeekMessageW(&M, nullptr, 0, 0, PM_REMOVE);) {
    TranslateMessage(&M);
    DispatchMessageW(&M);
  }
}

TEST_F(Fenetres, Rien_Ne_Commence_Pendant_Un_Appel_De_La_Bibliotheque) {
  auto& M = F.FMain;
  M.OptManuel.Choisir();
  int Actions = 0;
  M.CmdQuitter.Clic = M.MnApropos.Clic = M.Fermeture = M.OptAuto.Clic = M.CchooseNoyau.Saisie = [&] { ++Actions; };
  const HWND Principale = Poignee_De(M), Bouton = GetDlgItem(Principale, M.CmdQuitter.Numero()),
             Puce = GetDlgItem(Principale, M.OptAuto.Numero()),
             Edition = FindWindowExW(GetDlgItem(Principale, M.CchooseNoyau.Numero()), nullptr, L"Edit", nullptr);
  const struct {
    HWND Cible;
    UINT Message;
    WPARAM W;
    LPARAM L = 1;
  } Gestes[] = {{Bouton, WM_KEYDOWN, VK_RETURN},
                {Bouton, BM_CLICK, 0},
                {Puce, WM_LBUTTONDOWN, MK_LBUTTON},
                {Puce, WM_LBUTTONUP, 0},
                {Edition, WM_CHAR, 'x'},
                {Principale, WM_COMMAND, static_cast<WPARAM>(M.MnApropos.Numero()), 0},
                {Principale, WM_SYSCOMMAND, SC_CLOSE},
                {Principale, WM_CLOSE, 0}};
  const auto Tout_Faire = [&] {
    for (const auto& G : Gestes) PostMessageW(G.Cible, G.Message, G.W, G.L);
    InvalidateRect(Bouton, nullptr, FALSE);
    Pomper();
    EXPECT_FALSE(GetUpdateRect(Bouton, nullptr, FALSE)) << "painted";
    return std::exchange(Actions, 0);
  };
  Natif.Ignorer_Operateur(true);
  EXPECT_EQ(Tout_Faire(), 0);
  // Sent by another program, without the queue.
  for (const auto& G : std::span(Gestes).last(3)) SendMessageW(G.Cible, G.Message, G.W, G.L);
  EXPECT_EQ(Actions, 0);
  Natif.Ignorer_Operateur(false);
  EXPECT_EQ(Tout_Faire(), 7);
  // A key held down.
  for (const LPARAM L : {1, 0x40000001, 0x40000001}) PostMessageW(Bouton, WM_KEYDOWN, VK_RETURN, L);
  Natif.Traiter_Evenements({});
  EXPECT_EQ(Actions, 1);
}

// 25 times a second at most, the first block and the last one always; every block of a slow reader. Read as another
// program would.
TEST_F(Fenetres, La_Progression_Suit_L_Oeil) {
  for (const bool Lent : {false, true}) {
    Poste_Natif P(L"Arial", "taille_bloc = 1");
    P.Disque.Fichiers["C:\\Pavorin\\Fexa0500.ing"] = Contenu(507 * (Lent ? 6 : 400));
    std::vector<int> Montres;
    const auto Lire = [&] {
      wchar_t Texte[16] = L"";
      InternalGetWindowText(GetDlgItem(Poignee_De(P.F.FrmAnimCharg), P.F.FrmAnimCharg.LblNumBlock.Numero()), Texte, 16);
      if (Montres.empty() || Montres.back() != _wtoi(Texte)) Montres.push_back(_wtoi(Texte));
    };
    bool Envoye = false;
    P.Galss.Apres_Echange = [&](auto...) {
      if (Envoye || !P.F.FrmAnimCharg.Ouverte()) return;
      if (Lent) Sleep(60);
      Lire();
    };
    P.Natif.Au_Repos = [&] {
      if (!std::exchange(Envoye, true)) Lire();
    };
    const ULONGLONG Debut = GetTickCount64();
    P.F.FMain.CmdMaj.Cliquer();
    const ULONGLONG Duree = GetTickCount64() - Debut;
    if (Lent) {
      EXPECT_EQ(Montres, (std::vector{0, 1, 2, 3, 4, 5, 6}));
      continue;
    }
    EXPECT_EQ((std::vector{Montres[0], Montres[1], Montres.back()}), (std::vector{0, 1, 400}));
    EXPECT_LE(Montres.size(), 4 + Duree / 40);
    EXPECT_LT(Montres.size(), 200U);
  }
}

// Labels and frames follow the operator's colours wherever the layout gives none.
TEST_F(Fenetres, Couleurs_De_L_Operateur) {
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

// How many Creer makes before the system has no more: Wine counts none of what a process holds.
template <class Faire, class Defaire>
std::size_t Reste(Faire Creer, Defaire Detruire) {
  std::vector<decltype(Creer())> Faits;
  while (const auto Un = Creer()) Faits.push_back(Un);
  for (const auto Un : Faits) Detruire(Un);
  return Faits.size();
}

/// GDI objects and USER handles.
std::pair<std::size_t, std::size_t> Restes() {
  return {Reste([] { return CreateSolidBrush(RGB(1, 2, 3)); }, DeleteObject), Reste(CreateMenu, DestroyMenu)};
}

// Bytes taken from the heaps of this process.
std::size_t Tas_Occupe() {
  std::array<HANDLE, 64> Tas;
  std::size_t Total = 0;
  for (DWORD I = GetProcessHeaps(Tas.size(), Tas.data()); I-- > 0;) {
    for (PROCESS_HEAP_ENTRY Bloc{}; HeapWalk(Tas[I], &Bloc);) {
      if ((Bloc.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) Total += Bloc.cbData;
    }
  }
  return Total;
}

// The application alone: a kernel's long pauses would show nothing more. The heaps are counted when each PC is gone
// with all that its reader kept, and when they have been as full before: they keep room for themselves.
TEST_F(Fenetres, Cinq_Cents_Chargements_Ne_Consomment_Rien) {
  std::size_t Tas = 0;
  std::map<std::string, std::pair<std::size_t, std::size_t>> Libres;
  for (int Tour = 0; Tour < 2; ++Tour) {
    Tas = Tas_Occupe();
    for (const char* Sorte : {"type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; ",
                              "type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; "}) {
      Poste_Natif P(L"Arial", std::string(Sorte) + "premier_fichier = appli");
      Fenetre_Principale& FMain = P.F.FMain;
      FMain.OptManuel.Choisir();
      for (int I = 0; I < 125; ++I) {
        FMain.CchosseAppli.Choisir_A_La_Main(0);
        P.Mettre_A_Jour();
        if (I % 50 != 0) continue;
        FMain.MnLecteur.Cliquer();
        EXPECT_TRUE(P.F.FrmResultParam.Ouverte());
        P.F.FrmResultParam.CmdOK.Cliquer();
      }
      P.Natif.Traiter_Evenements({});
      EXPECT_EQ(P.Lecteur.Fichiers().size(), 125U);
      EXPECT_EQ(Libres.try_emplace(Sorte, Restes()).first->second, Restes());
    }
  }
  EXPECT_GT(Tas, 0U);
  EXPECT_LT(Tas_Occupe(), Tas + 250 * 100);
}

}  // namespace
