// Whole loads, with the real pauses: what the operator sees and what the reader holds.

#include "tests/bout_en_bout/Cas.h"

namespace {

struct Chargement : Cas {};

TEST_F(Chargement, Automatique_650) {
  Lancer({.Scenario = "lecteur-650"});
  Mettre_A_Jour(Les_Deux);
  const Fenetre_Vue Progression = Fenetre("FrmAnimCharg");
  Attendre("verdict", [&] { return Progression["LblTitre"].Texte() == "Chargement Réussi."; });
  // Nothing but the load's end takes the window away, and nothing else may start meanwhile.
  Progression.Fermer();
  FMain.Fermer();
  for (const char* Nom : {"CmdMaj", "CmdQuitter", "OptManuel"}) EXPECT_FALSE(FMain[Nom].Cliquer()) << Nom;
  EXPECT_FALSE(FMain.Menu("MnLecteur"));
  Attendre_Volet("Arrêt du Galss\n");
  const std::string Un_Fichier = "Début du chargement.\tHH\nChargement Réussi.\tHH\n";
  EXPECT_EQ(Volet(), Entete + "Connexion Réussie.\nOuverture du fichier " + Noyau + " 5000 Octets.\n" + Un_Fichier +
                         "Ouverture du fichier " + Appli + " 4086 Octets.\n" + Un_Fichier + "Arrêt du Galss\n");
  Attendre_Absence("FrmAnimCharg");
  Verifier_Utilisable();
  Juger({Petits.at(Noyau), Petits.at(Appli)});
}

TEST_F(Chargement, Manuel_Depuis_Un_Autre_Repertoire) {
  Lancer({.Scenario = "bifente-depuis-200", .Repertoire = "C:\\Nulle Part"});
  const fs::path Voulu = Dossier / Chemin("Données de l'été") / Chemin("Sous-répertoire œ");
  const std::string Choisi = "E l'été R0206.ing";
  fs::create_directories(Voulu);
  Ecrire(Voulu / Chemin("Été 2.0 é.R0205.ing"), "intrus");
  Ecrire(Voulu / Chemin(Choisi), Petits.at(Appli));
  Ouvrir_Dossier({"Données de l'été", "Sous-répertoire œ"})["CmdOK"].Cliquer();
  Attendre_Absence("FDossierING");
  EXPECT_EQ(Chemin(FMain["TxtChooseDirectory"].Texte()), Voulu / "");
  Choisir_Manuellement(Choisi);
  Mettre_A_Jour(Choisi + "\r\n");
  Attendre_Volet("Chargement Réussi.\tHH\nArrêt du Galss\n");
  Juger({Petits.at(Appli).substr(0, 4083)});  // this family keeps the last three bytes to itself
  wchar_t Memorise[600];
  GetPrivateProfileStringW(L"INIT_REPERTOIRE", L"REP", L"", Memorise, 600, (Dossier / "telech.ini").c_str());
  EXPECT_EQ(fs::path(Memorise), Voulu / "");
}

// Faults at the library's own border, of which the fault campaign knows nothing: the buffers lent to it end at a
// forbidden page. After each, the window is usable and the next update goes its way.
TEST_F(Chargement, Defauts_De_La_Bibliotheque) {
  const std::string Lecteur = "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2\nnum_version = 0150\n",
                    Echec = "Problème lors du Chargement.", Succes = "Chargement Réussi.";
  Lancer({.Gardee = true});
  Choisir_Manuellement(Appli);
  for (const auto& [Defaut, Verdict] : std::initializer_list<std::pair<const char*, std::string>>{
           {"demande 1 toujours : longueur capacite+1", Echec},
           {"demande 1 toujours : longueur -2147483648", Echec},
           {"bloc 2 toujours : code 64 longueur capacite+1", Echec},
           {"bloc 2 toujours : longueur 2147483647", Echec},
           {"bloc 2 toujours : technique", Echec},
           {"bloc 2 : code 64 livre", Succes},
           {"appel 1 toujours : noms \\xFF\\xFF", Succes}}) {
    SCOPED_TRACE(Defaut);
    Donner_Scenario(Lecteur + "defaut = " + Defaut + "\n");
    FMain["CchosseAppli"].Choisir(Appli);
    Mettre_A_Jour(Appli + "\r\n");
    Attendre_Volet("Arrêt du Galss\n");
    EXPECT_NE(Volet().find(Verdict), std::string::npos) << Volet();
    Verifier_Utilisable();
  }
  EXPECT_EQ(Trace().find("FAUTE"), std::string::npos);
}

// As the read-me of the training folder says: a copy of the program put into it. Played with the archive that is
// handed to operators when PAVORIN_PAQUET names the folder where it was unpacked.
TEST_F(Chargement, Entrainement) {
  const fs::path Paquet = Chemin(Variable(L"PAVORIN_PAQUET"));
  if (Paquet.empty()) GTEST_SKIP() << "no unpacked archive";
  fs::remove_all(Dossier);
  fs::create_directories(Dossier.parent_path());
  fs::copy(Paquet / "simulateur", Dossier, fs::copy_options::recursive);
  fs::copy_file(Paquet / "Pavorin.exe", Dossier / "Pavorin.exe");
  // A kernel too recent for the folder's own: the application alone, the shortest pause.
  Ecrire(Dossier / "scenario.txt", Lire(Dossier / "scenarios/bifente-avant-200.txt") + "type_os = 05\n");
  Relancer();
  Ouvrir_Dossier({"fichiers"})["CmdOK"].Cliquer();
  Mettre_A_Jour("ELITER0210.ing\n\r");
  Attendre_Volet("Arrêt du Galss\n");
  Juger({Lire(Dossier / "fichiers/ELITER0210.ing")});
}

}  // namespace
