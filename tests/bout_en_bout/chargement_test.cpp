// Whole loads, with the real pauses: what the operator sees and what the reader holds.

#include "tests/bout_en_bout/Cas.h"

namespace {

const std::string Connecte = Entete + "Connexion Réussie.\n";
const std::string Un_Fichier = "Début du chargement.\tHH\nChargement Réussi.\tHH\n";

struct Chargement : Cas {
  /// What the progress window says at the end, and which of its controls are left.
  void Verifier_Verdict(const Fenetre_Vue& Progression, const std::string& Titre, const std::string& Suite) {
    Attendre(
        Titre, [&] { return Progression["LblTitre"].Texte() == Titre; }, 60);
    Attendre(
        Suite, [&] { return Progression["LblCom"].Texte() == Suite; }, 1);
    for (const char* Nom : {"LblBlock", "LblNumBlock", "LblNumTaille", "PgbExe"})
      EXPECT_FALSE(Progression[Nom].Visible()) << Nom;
    EXPECT_TRUE(Progression["LblCom"].Visible());
  }
};

TEST_F(Chargement, Automatique_650) {
  Lancer({.Scenario = "lecteur-650"});
  Mettre_A_Jour(Noyau + "\n\r" + Appli + "\n\r");
  const Fenetre_Vue Progression = Fenetre("FrmAnimCharg");
  Verifier_Verdict(Progression, "Chargement Réussi.", "Attendre l'écran de repos du lecteur Elite 650");
  // Nothing but the load's end takes the window away, and nothing else may start meanwhile.
  Progression.Fermer();
  FMain.Fermer();
  for (const char* Nom : {"CmdMaj", "CmdQuitter", "OptManuel"}) EXPECT_FALSE(FMain[Nom].Cliquer()) << Nom;
  EXPECT_FALSE(FMain.Menu("MnLecteur"));
  Attendre_Volet("Arrêt du Galss\n", 60);
  EXPECT_EQ(Volet(), Connecte + "Ouverture du fichier " + Noyau + " 5000 Octets.\n" + Un_Fichier +
                         "Ouverture du fichier " + Appli + " 4086 Octets.\n" + Un_Fichier + "Arrêt du Galss\n");
  Attendre_Absence("FrmAnimCharg");
  Verifier_Utilisable();
  Juger({Petits.at(Noyau), Petits.at(Appli)});
}

TEST_F(Chargement, Manuel_Depuis_Un_Long_Chemin_Accentue) {
  std::vector<std::string> Noms = {"Données de l'été"};
  for (const char N : {'1', '2', '3', '4', '5'})
    Noms.push_back(std::string("sous-répertoire numéro ") + N + " très long œ");
  Lancer({.Scenario = "bifente-avant-200", .Logiciels = {}, .Repertoire = "C:\\Nulle Part", .Courant = true});
  fs::path Profond = L"\\\\?\\" + Dossier.wstring();
  for (const std::string& Nom : Noms) Profond /= Chemin(Nom);
  fs::create_directories(Profond);
  const std::string Choisi = "E l'été R0206.ing";
  Ecrire(Profond / Chemin("Été 2.0 é.R0205.ing"), "intrus");
  Ecrire(Profond / Chemin(Choisi), Petits.at(Appli));
  Choisir_Dossier(Noms);
  const std::string Voulu = FMain["TxtChooseDirectory"].Texte();
  EXPECT_EQ(Chemin(Voulu), fs::path(Profond.wstring().substr(4) + L"\\"));
  EXPECT_GT(Chemin(Voulu).wstring().size(), 260U);
  EXPECT_EQ(FMain["CchosseAppli"].Entrees(), (std::vector<std::string>{Choisi, "Pas de mise à jour"}));
  Choisir_Manuellement(Choisi);
  Mettre_A_Jour(Choisi + "\r\n");
  Attendre_Volet("Chargement Réussi.\tHH\nArrêt du Galss\n", 40);
  Juger({Petits.at(Appli)});
  wchar_t Memorise[600];
  GetPrivateProfileStringW(L"INIT_REPERTOIRE", L"REP", L"", Memorise, 600, (Dossier / "telech.ini").c_str());
  EXPECT_EQ(fs::path(Memorise), Chemin(Voulu));
}

TEST_F(Chargement, Bloc_Refuse_Puis_Nouvel_Essai) {
  Lancer({.Scenario = "bloc-refuse", .Logiciels = Grands});
  Mettre_A_Jour(Noyau + "\n\r" + Appli + "\n\r");
  Verifier_Verdict(Fenetre("FrmAnimCharg"), "Problème lors du Chargement.", "Chargement Echoué ...");
  Attendre_Volet("Arrêt du Galss\n");
  EXPECT_EQ(Volet(), Connecte + "Ouverture du fichier " + Noyau +
                         " 122880 Octets.\nDébut du chargement.\tHH\nProblème lors du Chargement.\tHH\n"
                         "\nDéconnexion RéussieArrêt du Galss\n");
  Attendre_Absence("FrmAnimCharg");
  Donner_Scenario("bifente-avant-200");
  const std::string Accepte = Grands.at(Noyau).substr(0, 2 * 2043);
  Juger({Accepte});
  Choisir_Manuellement(Appli);
  Mettre_A_Jour(Appli + "\r\n");
  Attendre_Volet("Chargement Réussi.\tHH\nArrêt du Galss\n", 40);
  Juger({Accepte, Grands.at(Appli)});
}

TEST_F(Chargement, Cent_Confirmations_Refusees_Ne_Consomment_Rien) {
  Lancer({.Scenario = "trace = non"});
  Consommation Avant;
  for (int Tour = 0; Tour < 105; ++Tour) {
    if (Tour == 5) Avant = Mesurer(Programme.Processus());
    Demander_Mise_A_Jour();
    Boite("TELECHARGER").Repondre("Non");
  }
  Attendre_Volet("Arrêt du Galss\n");
  EXPECT_EQ(Volet(), Connecte + "mise à jour stoppée par l'utilisateur\nArrêt du Galss\n");
  const Consommation Apres = Mesurer(Programme.Processus());
  EXPECT_LE(Apres.Poignees, Avant.Poignees + 2);
  EXPECT_LE(Apres.Gdi, Avant.Gdi + 2);
  EXPECT_LE(Apres.Fenetres, Avant.Fenetres + 2);
  EXPECT_GE(Apres.User_Libres + 2, Avant.User_Libres);
}

}  // namespace
