// The support journal of the real program, and its replay through the real simulated library.

#include "tests/bout_en_bout/Cas.h"

namespace {

struct Journal : Cas {
  std::string Charger_Jusqu_Au_Refus() {
    Mettre_A_Jour(Les_Deux);
    Attendre_Volet("Arrêt du Galss\n");
    EXPECT_NE(Volet().find("Problème lors du Chargement."), std::string::npos);
    Verifier_Utilisable();
    const std::string Montre = Volet();
    Quitter();
    return Montre;
  }
};

TEST_F(Journal, D_Un_Bloc_Refuse_Dit_Pourquoi_Et_Se_Rejoue) {
  Lancer({.Scenario = "bloc-refuse", .Arguments = "/journal"});
  const std::string Volet_Note = Charger_Jusqu_Au_Refus();
  const fs::path Fichier = Journal_Ecrit();
  const std::string Texte = Lire(Fichier);
  for (const char* Attendu :
       {"\xEF\xBB\xBFJournal de Pavorin, format 1\r\n", " POSTE programme=\"", " POSTE windows=\"",
        " POSTE operations=\"DebutExclusivite, Echange, FermerSession, FinExclusivite, OuvrirSession\"",
        " REGLAGE Lire fichier=\"", " BOITE ouverte titre=\"TELECHARGER\"", " FICHIER Ouvrir chemin=\"",
        "sens=\"Erreur de Téléchargement 52:Format de logiciel incorrect\"\r\n", " FIN quitter\r\n"}) {
    EXPECT_NE(Texte.find(Attendu), std::string::npos) << Attendu << "\n" << Texte;
  }
  fs::remove(Dossier / "trace.txt");
  Donner_Scenario("rejouer = " + Fichier.filename().string());
  Relancer();
  EXPECT_EQ(Charger_Jusqu_Au_Refus(), Volet_Note);
  EXPECT_EQ(Trace(), "SCENARIO: scenario.txt\n");
}

#ifdef __i386__  // elsewhere nothing guards the program
TEST_F(Journal, D_Une_Faute_De_La_Bibliotheque_La_Commet_De_Nouveau) {
  const std::string Faute = " erreur=51 description=\"La bibliothèque GALSS a commis une faute : C0000005\"";
  Lancer({.Scenario = "rejouer = faute.txt", .Arguments = "/journal"});
  Ecrire(Dossier / "faute.txt",
         "Journal de Pavorin, format 1\n00:00:00.000 GALSS OuvrirSession application=\"Téléchargement\" lad=\"Log_SV\" "
         "-> duree_ms=0" +
             Faute + "\n");
  Demander_Mise_A_Jour();
  Boite("Télécharger").Repondre();
  EXPECT_NE(Lire(Journal_Ecrit()).find(Faute), std::string::npos);
}
#endif

}  // namespace
