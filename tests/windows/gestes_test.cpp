// What the operator does, and what the windows answer: boxes, keys, menus, clicks.

#include "tests/windows/Poste_Natif.h"

namespace {

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

TEST_F(Fenetres_Natives, Une_Boite_Dit_Son_Texte_Et_Montre_Son_Dessin) {
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

TEST_F(Fenetres_Natives, Une_Touche_Frappee_D_Avance_Ne_Repond_A_Rien) {
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

TEST_F(Fenetres_Natives, Menus_Et_Echap_Au_Clavier) {
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

TEST_F(Fenetres_Natives, La_Touche_Tab_Passe_Par_Tous) {
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

TEST_F(Fenetres_Natives, Le_Volet_Suit_Sa_Derniere_Ligne_Et_Se_Copie) {
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

/// Takes what is in the queue like a library that knows nothing of our windows.
void Pomper() {
  for (MSG M; PeekMessageW(&M, nullptr, 0, 0, PM_REMOVE);) {
    TranslateMessage(&M);
    DispatchMessageW(&M);
  }
}

TEST_F(Fenetres_Natives, Rien_Ne_Commence_Pendant_Un_Appel_De_La_Bibliotheque) {
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

}  // namespace
