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
  explicit Poste_Natif(const wchar_t* Famille = L"Arial Narrow", std::string_view Scenario = "")
      : Poste_De_Test(Scenario), Natif(Famille, Temps) {
    Disque.Poser("C:\\Pavorin\\Fexa0500.ing", Contenu(1300));
    Disque.Poser("C:\\Pavorin\\ER0300.ing", Contenu(1014));
    Profil.Repertoire() = {'C', ':', '\\', 'P', 'a', 'v', 'o', 'r', 'i', 'n'};
    Port.Brancher(Serie, 0.002);
    Programme.Form_Load();
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

TEST(Fenetres, Une_Fenetre_Trop_Haute_Garde_Sa_Barre_De_Titre) {
  Poste_Natif P;
  Fenetre Haute(P.Natif, {.Titre = "Haute", .Largeur = 60000, .Hauteur = 60000});
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
  P.Pannes_.Avant = [&](std::string_view Appel, int) {
    Envoi = Envoi || Appel == "Taille";
    Entre_Deux += Envoi && !F.FrmAnimCharg.Ouverte();
    Voir();
  };
  P.Natif.Au_Repos = [&] {
    Voir();
    if (!F.FrmAnimCharg.Ouverte()) return;
    ++Pendant;
    EXPECT_FALSE(GetWindowLongW(Poignee_De(F.FrmAnimCharg), GWL_STYLE) & WS_SYSMENU);
    SendMessageW(Poignee_De(F.FrmAnimCharg), WM_CLOSE, 0, 0);
  };
  P.Mettre_A_Jour();
  Envoi = false;
  P.Natif.Traiter_Evenements({});
  EXPECT_EQ(P.Lecteur.Fichiers().size(), 2U);
  EXPECT_GT(Pendant, 500);
  EXPECT_GT(Entre_Deux, 2);
  EXPECT_GT(Sabliers, 0);
}

TEST(Fenetres, Une_Fenetre_Couverte_Ne_Prend_Rien) {
  Poste_Natif P;
  auto& F = P.Programme.F;
  int Fois = 0;
  const auto Voir = [&](const Fenetre& Une) {
    if (Une.Depart().Devant == nullptr) return;
    ++Fois;
    F.FMain.Active(true);
    const HWND Principale = Poignee_De(F.FMain);
    EXPECT_FALSE(IsWindowEnabled(Principale));
    EXPECT_EQ(GetWindow(Poignee_De(Une), GW_OWNER), Principale);
    F.frmAbout.Decharger();
    SendMessageW(Principale, WM_COMMAND, static_cast<WPARAM>(F.FMain.MnApropos.Numero()), 0);
    SendMessageW(Principale, WM_CLOSE, 0, 0);
    EXPECT_TRUE(F.FMain.Ouverte() && !F.frmAbout.Ouverte());
  };
  P.Tout_Montrer(Voir);
  EXPECT_GT(Fois, 1);
  F.FrmResultParam.CmdOK.Cliquer();
  EXPECT_TRUE(IsWindowEnabled(Poignee_De(F.FMain)));
}

int Creations_Permises = 0;
LRESULT CALLBACK Refuser_Une_Creation(int Code, WPARAM W, LPARAM L) {
  if (Code == HCBT_CREATEWND && Creations_Permises-- == 0) return 1;
  return CallNextHookEx(nullptr, Code, W, L);
}

// The system cannot make a window, or one of its controls.
TEST(Fenetres, Sans_Place_Aucune_Fenetre_N_Enferme_L_Operateur) {
  Poste_Natif P;
  auto& F = P.Programme.F;
  const Crochet Refus(SetWindowsHookExW(WH_CBT, Refuser_Une_Creation, nullptr, GetCurrentThreadId()));
  for (const int Permises : {0, 1, 5}) {
    for (const auto* Demande : {&F.FMain.CmdMaj.Clic, &F.FMain.MnLecteur.Clic, &F.FMain.MnApropos.Clic}) {
      Creations_Permises = Permises;
      try {
        P.Lecteur.Rallumer();
        (*Demande)();
      } catch (const Erreur&) {
        EXPECT_EQ(Demande, &F.FMain.MnApropos.Clic);
      }
      EXPECT_LT(Creations_Permises, 0);
      EXPECT_TRUE(P.Lecteur.Fichiers().empty());
      EXPECT_FALSE(F.FrmAnimCharg.Ouverte() || F.FrmResultParam.Ouverte() || F.frmAbout.Ouverte());
      EXPECT_TRUE(IsWindowEnabled(Poignee_De(F.FMain)) && F.FMain.Active());
    }
  }
  P.Mettre_A_Jour();
  EXPECT_EQ(P.Lecteur.Fichiers().size(), 2U);
}

/// What is done while a box is up, one step every tenth of a second.
std::deque<std::function<void()>> Etapes;
void CALLBACK Passer_Une_Etape(HWND, UINT, UINT_PTR, DWORD) {
  if (Etapes.empty()) return;
  const auto Etape = Etapes.front();
  Etapes.pop_front();
  Etape();
}

TEST(Fenetres, Une_Touche_Frappee_D_Avance_Ne_Repond_A_Rien) {
  Poste_Natif P;
  const auto Enfoncer = [] { Toucher(VK_RETURN, 0); };
  const auto Relacher = [] { Toucher(VK_RETURN, KEYEVENTF_KEYUP); };
  const auto Refuser = [] { PostMessageW(GetActiveWindow(), WM_COMMAND, IDNO, 0); };
  const auto Demander = [&](std::deque<std::function<void()>> Pendant) {
    Etapes = std::move(Pendant);
    const UINT_PTR Minuterie = SetTimer(nullptr, 0, 100, Passer_Une_Etape);
    const Reponse Donnee = P.Natif.Fenetrage_Windows::Boite_Message("?", Boutons::Oui_Non, Icone::Question, "Essai");
    KillTimer(nullptr, Minuterie);
    return Donnee;
  };
  P.Natif.Traiter_Evenements({});
  EXPECT_EQ(Demander({Enfoncer, Relacher}), Reponse::Oui) << "typed once the box is up";
  Enfoncer();
  Relacher();
  EXPECT_EQ(Demander({Refuser}), Reponse::Non) << "typed before";
  const auto Repeter = [] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 0x40000001); };
  EXPECT_EQ(Demander({Repeter, Repeter, Refuser}), Reponse::Non) << "held down";
}

/// Takes what is in the queue like a library that knows nothing of our windows.
void Pomper() {
  for (MSG M; PeekMessageW(&M, nullptr, 0, 0, PM_REMOVE);) {
    TranslateMessage(&M);
    DispatchMessageW(&M);
  }
}

TEST(Fenetres, Rien_Ne_Commence_Pendant_Un_Appel_De_La_Bibliotheque) {
  Poste_Natif P;
  auto& M = P.Programme.F.FMain;
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
  P.Natif.Ignorer_Operateur(true);
  EXPECT_EQ(Tout_Faire(), 0);
  // Sent by another program, without the queue.
  for (const auto& G : std::span(Gestes).last(3)) SendMessageW(G.Cible, G.Message, G.W, G.L);
  EXPECT_EQ(Actions, 0);
  P.Natif.Ignorer_Operateur(false);
  EXPECT_EQ(Tout_Faire(), 7);
  // A key held down.
  for (const LPARAM L : {1, 0x40000001, 0x40000001}) PostMessageW(Bouton, WM_KEYDOWN, VK_RETURN, L);
  P.Natif.Traiter_Evenements({});
  EXPECT_EQ(Actions, 1);
}

// 25 times a second at most, the first block and the last one always; every block of a slow reader. Read as another
// program would.
TEST(Fenetres, La_Progression_Suit_L_Oeil) {
  for (const bool Lent : {false, true}) {
    Poste_Natif P(L"Arial", "taille_bloc = 1");
    auto& F = P.Programme.F;
    P.Disque.Fichiers["C:\\Pavorin\\Fexa0500.ing"] = Contenu(507 * (Lent ? 6 : 400));
    std::vector<int> Montres;
    const auto Lire = [&] {
      wchar_t Texte[16] = L"";
      InternalGetWindowText(GetDlgItem(Poignee_De(F.FrmAnimCharg), F.FrmAnimCharg.LblNumBlock.Numero()), Texte, 16);
      if (Montres.empty() || Montres.back() != _wtoi(Texte)) Montres.push_back(_wtoi(Texte));
    };
    bool Envoye = false;
    P.Galss.Apres_Echange = [&](auto...) {
      if (Envoye || !F.FrmAnimCharg.Ouverte()) return;
      if (Lent) Sleep(60);
      Lire();
    };
    P.Natif.Au_Repos = [&] {
      if (!std::exchange(Envoye, true)) Lire();
    };
    const ULONGLONG Debut = GetTickCount64();
    F.FMain.CmdMaj.Cliquer();
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
      const LRESULT Pinceau = SendMessageW(Poignee_De(F), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(Dc),
                                           reinterpret_cast<LPARAM>(GetDlgItem(Poignee_De(F), C->Numero())));
      EXPECT_NE(Pinceau, reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH))) << "a theme paints in another context";
      EXPECT_EQ(GetTextColor(Dc), C->Encre() ? En_Colorref(*C->Encre()) : Voulues[1]) << C->Numero();
      EXPECT_EQ(GetBkColor(Dc), Voulues[0]) << C->Numero();
      ReleaseDC(nullptr, Dc);
    }
  }
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

// The application alone: a kernel's long pauses would show nothing more.
TEST(Fenetres, Cinq_Cents_Chargements_Ne_Consomment_Rien) {
  for (const char* Lecteur : {"type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; ",
                              "type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; "}) {
    Poste_Natif P(L"Arial", std::string(Lecteur) + "premier_fichier = appli");
    Fenetre_Principale& FMain = P.Programme.F.FMain;
    FMain.OptManuel.Choisir();
    const auto Passer = [&](int Fois) {
      for (int I = 0; I < Fois; ++I) {
        FMain.CchosseAppli.Choisir_A_La_Main(0);
        P.Mettre_A_Jour();
        if (I % 50 != 0) continue;
        FMain.MnLecteur.Cliquer();
        EXPECT_TRUE(P.Programme.F.FrmResultParam.Ouverte());
        P.Programme.F.FrmResultParam.CmdOK.Cliquer();
      }
      P.Natif.Traiter_Evenements({});
      return Mesurer(GetCurrentProcess());
    };
    const Consommation Avant = Passer(3);
    const std::size_t Tas_Avant = Tas_Occupe();
    const Consommation Apres = Passer(250);
    EXPECT_EQ(P.Lecteur.Fichiers().size(), 253U);
    EXPECT_GT(Avant.Gdi, 0U);
    EXPECT_EQ(Apres.Gdi, Avant.Gdi);
    EXPECT_EQ(Apres.Fenetres, Avant.Fenetres);
    EXPECT_EQ(Apres.User_Libres, Avant.User_Libres);
    EXPECT_LE(Apres.Poignees, Avant.Poignees + 2);
    EXPECT_GT(Tas_Avant, 0U);
    EXPECT_LT(Tas_Occupe(), Tas_Avant + 250 * 2000) << "the reader keeps the 1 014 bytes of each";
  }
}

}  // namespace
