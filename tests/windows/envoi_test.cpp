// The windows over time: while files are sent, while nothing happens, and after hundreds of loads.

#include "tests/windows/Poste_Natif.h"

namespace {

TEST_F(Fenetres_Natives, Le_Poste_Reste_Eveille_Pendant_Un_Envoi) {
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
TEST_F(Fenetres_Natives, Sans_Place_Aucune_Fenetre_N_Enferme_L_Operateur) {
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

TEST_F(Fenetres_Natives, Attendre_Laisse_Le_Processeur_Aux_Autres) {
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

// 25 times a second at most, the first block and the last one always; every block of a slow reader. Read as another
// program would.
TEST_F(Fenetres_Natives, La_Progression_Suit_L_Oeil) {
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
TEST_F(Fenetres_Natives, Cinq_Cents_Chargements_Ne_Consomment_Rien) {
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
