// The program on its PC: the access library, start and end, command line, keyboard, layout, training.

#include <algorithm>

#include "tests/bout_en_bout/Cas.h"

namespace {

const std::string Installation_Galss = "i OK : Vérifiez l'installation du service SESAM-Vitale (GALSS).";
const std::string Service_Galss =
    "i OK : Vérifiez le service SESAM-Vitale (GALSS)n'est pas déjà ouvert, si le service est ouvert veuillez supprimer "
    "cette tache ATL+CTRL+SUPP et séléctionnez galsvw32.exe et faite terminer la tache.";

// The stand-in library of the loader's own tests, and what it depends on.
const fs::path Bouchon = Poste::Programmes() / "bouchon";

struct Sur_Son_Poste : Cas {
  /// Types the keys, and again when nothing comes of them: on a busy PC one is lost now and then.
  template <class Question>
  void Obtenir(const std::string& Quoi, std::initializer_list<std::initializer_list<WORD>> Touches,
               Question Condition) {
    for (int Essai = 1;; ++Essai) {
      for (const auto& Ensemble : Touches) Taper(Ensemble);
      try {
        Attendre(Quoi, Condition, 4);
        return;
      } catch (const Pas_Venu&) {
        if (Essai == 4) throw;
      }
    }
  }

  /// The controls' places in twips: left, top, right, bottom, within the window.
  struct Place {
    const char* Nom;
    int Bords[4];
  };

  void Verifier_Places(const Fenetre_Vue& Fenetre, const std::vector<Place>& Voulues) {
    const HDC Ecran = GetDC(nullptr);
    const double Dpi = GetDeviceCaps(Ecran, LOGPIXELSX);
    ReleaseDC(nullptr, Ecran);
    for (const auto& [Nom, Bords] : Voulues) {
      const RECT Lue = Fenetre[Nom].Place();
      const LONG Bords_Lus[] = {Lue.left, Lue.top, Lue.right, Lue.bottom};
      for (int I = 0; I < 4; ++I) EXPECT_NEAR(Bords_Lus[I], Bords[I] * Dpi / 1440, Dpi / 48) << Nom << " " << I;
    }
    Photographier(Fenetre, Dossier / (Fenetre.Texte() + ".png"));
  }
};

std::string D_Un_Autre_Processeur(std::string Dll) {
  const auto Pe = static_cast<std::size_t>(*reinterpret_cast<const std::int32_t*>(Dll.data() + 0x3C));
  // Machine type: ARM64 beside a 64-bit program, since Wine takes a 32-bit library into one and trips over it; x86-64,
  // with the optional header's own mark, beside a 32-bit one.
  if constexpr (sizeof(void*) == 8) return Dll.replace(Pe + 4, 2, "\x64\xAA", 2);
  Dll.replace(Pe + 4, 2, "\x64\x86", 2);
  return Dll.replace(Pe + 24, 2, "\x0B\x02", 2);
}

TEST_F(Sur_Son_Poste, Bibliotheque_Absente_Ou_Abimee) {
  const std::string Dll = Lire(Programmes() / "simulateur/Galclw32.dll");
  struct Abimee {
    std::string Comment, Dll, Boite_Voulue;
  };
  std::vector<Abimee> Toutes = {{"pas une bibliothèque", "MZ" + std::string(3000, '\0'), Installation_Galss},
                                {"un octet", std::string(1, '\0'), Installation_Galss},
                                {"tronquée", Dll.substr(0, 1000), Installation_Galss},
                                {"d'un autre processeur", D_Un_Autre_Processeur(Dll), Installation_Galss}};
  // Where the real one is installed, a program without its own would take that: no reader may be touched.
  if (!SearchPathW(nullptr, L"Galclw32.dll", nullptr, 0, nullptr, nullptr))
    Toutes.push_back({"absente", "", Service_Galss});
  for (const auto& [Comment, Abimee, Boite_Voulue] : Toutes) {
    Etape = Comment;
    EXPECT_NE(Abimee, Dll);
    Lancer({.Bibliotheque = Abimee});
    for (int Essai = 0; Essai < 2; ++Essai) {  // the second try must end alike
      Demander_Mise_A_Jour();
      Repondre("Télécharger", Boite_Voulue);
    }
    EXPECT_TRUE(Volet().starts_with(Entete)) << Volet();
    Verifier_Utilisable();
  }
}

TEST_F(Sur_Son_Poste, Reste_Tant_Qu_Une_Fenetre_Est_Ouverte) {
  Lancer();
  EXPECT_TRUE(FMain.Menu("MnQuitter"));
  EXPECT_TRUE(FMain.Menu("MnApropos"));
  const Fenetre_Vue Apropos = Fenetre("frmAbout");
  FMain.Fermer();
  Attendre_Absence("FMain");
  EXPECT_FALSE(Programme.Fin());
  Apropos.Fermer();
  EXPECT_EQ(Attendre_Fin(), 0U);
  Relancer();
  FMain.Menu("MnApropos");
  Fenetre("frmAbout");
  FMain["CmdQuitter"].Cliquer();
  EXPECT_EQ(Attendre_Fin(), 0U);
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

TEST_F(Sur_Son_Poste, Second_Depart_Sans_Reponse_Ou_Pendant_Une_Fin_Qui_Traine) {
  SetEnvironmentVariableW(L"PAVORIN_FIN_LENTE", L"oui");
  Lancer({.Bibliotheque = Lire(Bouchon / "Galclw32.dll")});
  fs::copy_file(Bouchon / "compagnon.dll", Dossier / "compagnon.dll");
  Demander_Mise_A_Jour();
  Repondre("attention", Terminal);
  FMain["CmdQuitter"].Cliquer();
  Attendre("plus de fenêtre", [&] { return Programme.Fenetres().empty(); });
  EXPECT_FALSE(Programme.Fin());
  Programme_Lance Suivant, Muet;
  const std::string Commande = Entre_Guillemets(Dossier / "Pavorin.exe");
  Suivant.Lancer(Commande, Dossier);
  Attendre("le suivant s'ouvre", [&] { return Suivant.Fenetre("FMain"); });
  Suivant.Tuer();
  Programme.Tuer();
  const Poignee Verrou(CreateMutexW(nullptr, FALSE, L"Local\\Pavorin"));
  Muet.Lancer(Commande, Dossier);
  const std::string Texte =
      "! OK : Un Pavorin est déjà ouvert et ne répond pas.\n\nTerminez « Pavorin.exe » dans le Gestionnaire des tâches "
      "(Ctrl+Maj+Échap), ou redémarrez le PC, puis relancez Pavorin.";
  Attendre(Texte, [&] { return Muet.Boite("Pavorin").Tout == Texte; });
  Muet.Boite("Pavorin").Repondre("OK");
  EXPECT_EQ(*Attendre("fin du second", [&] { return Muet.Fin(); }), 0U);
}

TEST_F(Sur_Son_Poste, Volet_Se_Copie_Et_Suit_La_Derniere_Ligne) {
  Lancer({.Scenario = "defaut = OuvrirSession 1 toujours : code 4096"});
  const Objet_Vu Details = FMain["TxtDetails"];
  for (int Fois = 0; Fois < 2; ++Fois) {
    Demander_Mise_A_Jour();
    Repondre("attention", Terminal);
  }
  const RECT Ici = Details.Place();
  if (Details.Envoyer(EM_GETLINECOUNT) > (Ici.bottom - Ici.top) / 15) {
    EXPECT_GT(Details.Envoyer(EM_GETFIRSTVISIBLELINE), 0);
  }
  POINT Dedans{Ici.left + 30, Ici.top + 30};
  ClientToScreen(FMain.Poignee, &Dedans);
  // A click that comes while the command still ends is ignored, as it must be: one clicks again.
  Attendre("volet actif", [&] {
    Cliquer_Souris(Dedans);
    return Details.Foyer();
  });
  const std::string Texte = Details.Texte();
  Obtenir("copie du volet", {{VK_CONTROL, 'A'}, {VK_CONTROL, 'C'}}, [&] { return Presse_Papiers() == Texte; });
  Taper({'X'});
  Taper({VK_DELETE});
  EXPECT_EQ(Details.Texte(), Texte);
}

TEST_F(Sur_Son_Poste, Clavier) {
  Lancer({.Arguments = "/port:COM256"});
  Attendre("premier plan", [&] { return FMain.Devant(); });
  Obtenir("test lancé par les menus", {{VK_ESCAPE}, {VK_ESCAPE}, {VK_MENU, 'F'}, {'C'}, {'T'}},
          [&] { return Volet().starts_with("Erreur n° : "); });
  Obtenir("À propos", {{VK_ESCAPE}, {VK_ESCAPE}, {VK_MENU, 'A'}, {'A'}}, [&] { return Programme.Fenetre("frmAbout"); });
  Obtenir("fin d'À propos", {{VK_ESCAPE}}, [&] { return !Programme.Fenetre("frmAbout"); });
  const char* Ordre[] = {"TxtChooseDirectory", "CmdChooseDirectory", "OptAuto", "CmdMaj", "CmdQuitter", "TxtDetails"};
  const auto Foyer = [&](const char* Nom) { return FMain[Nom].Foyer(); };
  Attendre("focus après À propos", [&] { return std::ranges::any_of(Ordre, Foyer); });
  const auto Depart = std::ranges::find_if(Ordre, Foyer) - Ordre;
  for (int Pas = 1; Pas <= 6; ++Pas) {
    const char* const Suivant = Ordre[(Depart + Pas) % 6];
    Obtenir(std::string("focus sur ") + Suivant, {{VK_TAB}}, [&] { return Foyer(Suivant); });
  }
  EXPECT_EQ(FMain["CchooseNoyau"].Entrees(), (std::vector<std::string>{Noyau, "Pas de mise à jour"}));
  EXPECT_EQ(FMain["CchosseAppli"].Texte(), Appli);
}

TEST_F(Sur_Son_Poste, Port_Mal_Ecrit) {
  Lancer({.Arguments = "/port:9"});
  Repondre("Pavorin",
           "! OK : Argument non reconnu : /port:9\r\nLe port série s'indique ainsi : /port:COM3 (de COM1 à "
           "COM256).\r\nLe port COM1 sera utilisé.");
  Verifier_Utilisable();
}

// The pictures, for the eye, stay beside the program.
TEST_F(Sur_Son_Poste, Places_Et_Images) {
  Lancer({.Scenario = "bloc-refuse"});
  Verifier_Places(FMain, {{"FrmChooseDirectory", {240, 120, 5535, 1815}},
                          {"FmDetails", {5709, 2085, 11001, 5820}},
                          {"CmdMaj", {6069, 720, 8964, 1452}},
                          {"TxtDetails", {5829, 2565, 10881, 5580}},
                          {"CchooseNoyau", {3000, 3480, 5055, 3840}},
                          {"LblBitStop", {8709, 4485, 10041, 4737}}});
  FMain["OptManuel"].Cliquer();
  Repondre("Télécharger",
           "i OK : \tSélectionnez les fichiers que vous désirez mettre à jour.\r\n\t\t\tATTENTION\r\n"
           "Les fichiers sélectionnés seront chargés même s'ils sont présents dans le lecteur !!!");
  FMain["OptAuto"].Cliquer();
  Mettre_A_Jour(Noyau + "\n\r" + Appli + "\n\r");
  const Fenetre_Vue Progression = Fenetre("FrmAnimCharg");
  Attendre("verdict", [&] { return Progression["LblCom"].Texte() == "Chargement Echoué ..."; });
  Verifier_Places(Progression, {{"LblTitre", {960, 120, 5052, 492}}, {"LblCom", {240, 1200, 5172, 1452}}});
  Attendre_Absence("FrmAnimCharg");
  FMain.Menu("MnApropos");
  Verifier_Places(Fenetre("frmAbout"), {});
  FMain["CmdChooseDirectory"].Cliquer();
  Verifier_Places(Fenetre("FDossierING"),
                  {{"DirDirectory", {360, 1470, 3255, 4035}}, {"CmdOK", {360, 4245, 1335, 4980}}});
}

// As the read-me of the training folder says: a copy of the program put into it. Played with the archive that is
// handed to operators when PAVORIN_PAQUET names the folder where it was unpacked.
TEST_F(Sur_Son_Poste, Entrainement) {
  wchar_t Paquet[600] = L"";
  GetEnvironmentVariableW(L"PAVORIN_PAQUET", Paquet, 600);
  const fs::path Source = Paquet;
  if (Source.empty()) GTEST_SKIP() << "no unpacked archive";
  fs::remove_all(Dossier);
  fs::create_directories(Dossier.parent_path());
  fs::copy(Source / "simulateur", Dossier, fs::copy_options::recursive);
  fs::copy_file(Source / "Pavorin.exe", Dossier / "Pavorin.exe");
  // A kernel too recent for the folder's own: the application alone, the shortest pause.
  Ecrire(Dossier / "scenario.txt", Lire(Dossier / "scenarios/bifente-avant-200.txt") + "type_os = 05\n");
  Relancer("", true);
  Choisir_Dossier({"fichiers"});
  Mettre_A_Jour("ELITER0210.ing\n\r");
  Attendre_Volet("Arrêt du Galss\n", 60);
  Juger({Lire(Dossier / "fichiers/ELITER0210.ing")});
}

}  // namespace
