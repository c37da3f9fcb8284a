// The program on its PC: start and end, command line.

#include "tests/bout_en_bout/Cas.h"

namespace {

struct Sur_Son_Poste : Cas {};

TEST_F(Sur_Son_Poste, A_L_Echelle_De_L_Ecran_Jusqu_A_Sa_Derniere_Fenetre) {
  Lancer();
  const HDC Ecran = GetDC(nullptr);
  const int Dpi = GetDeviceCaps(Ecran, LOGPIXELSX);
  ReleaseDC(nullptr, Ecran);
  RECT Dedans{};
  GetClientRect(FMain["TxtDetails"].Poignee, &Dedans);
  EXPECT_NEAR(Dedans.bottom, MulDiv(3015, Dpi, 1440), 5) << "with its edges";
  for (const bool Par_Le_Cadre : {true, false}) {
    Relancer();
    FMain.Menu("MnQuitter");
    FMain.Menu("MnApropos");
    const Fenetre_Vue Apropos = Fenetre("frmAbout");
    Par_Le_Cadre ? FMain.Fermer() : void(FMain["CmdQuitter"].Cliquer());
    Attendre_Absence("FMain");
    EXPECT_TRUE(!Par_Le_Cadre || !Programme.Fin());
    Apropos.Fermer();
    EXPECT_EQ(Attendre_Fin(), 0U);
  }
}

TEST_F(Sur_Son_Poste, Second_Depart_Ramene_Le_Premier) {
  Lancer();
  FMain.Poster(WM_SYSCOMMAND, SC_MINIMIZE);
  Attendre("réduction", [&] { return IsIconic(FMain.Poignee); });
  Programme_Lance Second;
  Second.Lancer(Entre_Guillemets(Dossier / "Pavorin.exe"), Dossier);
  EXPECT_EQ(*Attendre("fin du second", [&] { return Second.Fin(); }), 0U);
  Attendre("premier plan", [&] { return !IsIconic(FMain.Poignee) && FMain.Devant(); });
  EXPECT_EQ(Programme.Fenetres().size(), 1U);
}

// The stand-in library of the loader's own tests has a clean-up that may never end.
TEST_F(Sur_Son_Poste, Second_Depart_Pendant_Une_Fin_Qui_Traine_Ou_Sans_Reponse) {
  const fs::path Bouchon = Programmes() / "bouchon";
  SetEnvironmentVariableW(L"PAVORIN_FIN_LENTE", L"oui");
  Lancer({.Bibliotheque = Lire(Bouchon / "Galclw32.dll")});
  fs::copy_file(Bouchon / "compagnon.dll", Dossier / "compagnon.dll");
  Demander_Mise_A_Jour();
  Repondre("attention", Terminal);
  FMain["CmdQuitter"].Cliquer();
  Attendre("plus de fenêtre", [&] { return Programme.Fenetres().empty(); });
  EXPECT_FALSE(Programme.Fin());
  Programme_Lance Suivant;
  const std::string Commande = Entre_Guillemets(Dossier / "Pavorin.exe");
  Suivant.Lancer(Commande, Dossier);
  Attendre("le suivant s'ouvre", [&] { return Suivant.Fenetre("FMain"); });
  Suivant.Tuer();
  Programme.Tuer();
  const Poignee Verrou(CreateMutexW(nullptr, FALSE, L"Local\\Pavorin"));
  Programme.Lancer(Commande, Dossier);
  const Boite_Vue Avis = Boite("Pavorin");
  EXPECT_EQ(Avis.Tout,
            "OK : Un Pavorin est déjà ouvert et ne répond pas.\n\nTerminez « Pavorin.exe » dans le Gestionnaire des "
            "tâches (Ctrl+Maj+Échap), ou redémarrez le PC, puis relancez Pavorin.");
  Avis.Repondre();
  EXPECT_EQ(Attendre_Fin(), 0U);
}

// What the command line asks and cannot be had is told, and the program goes on.
TEST_F(Sur_Son_Poste, Arguments_Impossibles) {
  for (const auto& [Argument, Debut, Fin] : std::initializer_list<std::array<const char*, 3>>{
           {"/port:9", "OK : Argument non reconnu : /port:9\r\n", "\r\nLe port COM1 sera utilisé."},
           {"/journal:C:\\nulle\\part", "OK : Le journal demandé ne peut pas être écrit :\r\n",
            "\r\nLe programme continue sans journal."}}) {
    Lancer({.Arguments = Argument});
    const Boite_Vue Avis = Boite("Pavorin");
    EXPECT_TRUE(Avis.Tout.starts_with(Debut) && Avis.Tout.ends_with(Fin)) << Avis.Tout;
    Avis.Repondre();
    Mettre_A_Jour(Les_Deux, "Non");
    Attendre_Volet("mise à jour stoppée par l'utilisateur\nArrêt du Galss\n");
  }
}

}  // namespace
