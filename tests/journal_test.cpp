// The support journal: what it tells, what it never tells, when it is on the disk, and that the
// simulated reader replays it call for call.

#include <gtest/gtest.h>

#include "journal/Crc_32.h"
#include "journal/Poste_Journalise.h"
#include "tests/Machine_De_Test.h"

namespace {

struct Releve_De_Test : Releve_Poste {
  struct Sortie : Fichier_Journal {
    explicit Sortie(Releve_De_Test& R) : Releve(R) {}
    bool Ecrire(std::string_view Texte) override {
      Releve.Texte += Releve.Plein ? "" : Texte;
      return !Releve.Plein;
    }
    void Assurer() override { Releve.Assures = Releve.Texte.size(); }
    Releve_De_Test& Releve;
  };
  Instant Maintenant() override { return {2024, 2, 29, 23, 59, 58, 7}; }
  std::vector<Fait> Poste() override { return {{"programme", "3.1.0"}}; }
  std::vector<Fait> Bibliotheque() override {
    if (++Demandes != 2) return {};
    return {{"bibliotheque", "C:\\GALSS\\Galclw32.dll"}};
  }
  bool Inscriptible(std::string_view) override { return false; }
  bool Terminable(std::uint32_t Id) override { return Id == 7; }
  std::unique_ptr<Fichier_Journal> Creer_Journal(std::string_view Chemin) override {
    if (Refus) throw Erreur(70, "Accès refusé : " + std::string(Chemin));
    Chemins.emplace_back(Chemin);
    return std::make_unique<Sortie>(*this);
  }
  std::string Texte;
  std::vector<std::string> Chemins;
  std::size_t Assures = 0;
  int Demandes = 0;
  bool Plein = false, Refus = false;
};

/// The whole program on a machine that is overheard. A journal given is replayed.
struct Poste_Suivi : Poste_De_Test {
  explicit Poste_Suivi(const std::string& Scenario, const std::string& Rejoue = "")
      : Poste_De_Test(Rejoue.empty() ? Scenario : "rejouer = a.journal; " + Scenario,
                      [&](const std::string&) { return Rejoue; }) {
    Lecteur.Attendre = [this](int Ms) { Temps.Maintenant += Ms / 1000.0; };
    Lecteur.Lever = [](int Numero, const std::string& Description) { throw Erreur(Numero, Description); };
    Ecran.A_La_Boite = [this] { EXPECT_EQ(Releve.Assures, Releve.Texte.size()) << "before a box opens"; };
    Disque.Poser("C:\\Pavorin\\Fexa0400.ing", Contenu(1300));
    Disque.Poser("C:\\Pavorin\\E0300.ing", Contenu(1500));
    Processus.Actifs = {{7, "galsvw32.exe"}, {8, "autre.exe"}};
    Suivie.Form_Load();
  }
  void Mettre_A_Jour() { Suivie.F.FMain.CmdMaj.Cliquer(); }
  const std::string& Volet() const { return Suivie.F.FMain.TxtDetails.Texte(); }
  bool Dit(std::string_view Morceau) const { return Releve.Texte.find(Morceau) != std::string::npos; }

  Releve_De_Test Releve;
  Poste_Journalise Suivi{Machine{Galss, Processus, Profil, Disque, Port, Temps, Ecran}, Releve, "C:\\J"};
  Application Suivie{Suivi.Poste()};
};

const std::string Bifente =
    "taille_bloc = 1; delai_ms = 178; type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; ";
const std::string Premiere = Bifente + "num_version = 0150; ", Seconde = Bifente + "num_version = 0200; ";

TEST(Journal, Se_Rejoue_Appel_Pour_Appel) {
  const std::string Cas[] = {
      Premiere,
      Seconde,
      Premiere + "defaut = bloc 3 : refus 52",
      Premiere + "defaut = demande 2 : refus 51",
      Seconde + "defaut = bloc 2 : refus",
      Seconde + "defaut = bloc 3 fichier 2 : technique 130",
      Seconde + "defaut = demande 1 : nature 37",
      Premiere + "defaut = demande 1 : code 64; defaut = bloc 2 fois 2 : code 64 livre",
      Seconde + "defaut = Echange 3 : code 64 livre longueur 0 noms \\x00\\x22\\x5C\\x80é; defaut = bloc 1 : code 64",
      Premiere + "defaut = bloc 2 : longueur capacite+1",
      Premiere + "defaut = lecture 1 toujours : silence",
      Premiere + "defaut = lecture 1 : octets 00 35",
      Premiere + "defaut = OuvrirSession 1 : code 8192 noms L\\x00\\x81\\x22é; defaut = DebutExclusivite 1 : code 4",
      Premiere + "defaut = OuvrirSession 1 toujours : code 2048",
      Seconde + "defaut = FinExclusivite 1 : code 4; defaut = FermerSession 1 : code 5; defaut = bloc 1 : code 2"};
  for (const std::string& Scenario : Cas) {
    SCOPED_TRACE(Scenario);
    Poste_Suivi Note(Scenario);
    Note.Mettre_A_Jour();
    Note.Mettre_A_Jour();
    Poste_Suivi Rejoue("", Note.Releve.Texte);
    Rejoue.Mettre_A_Jour();
    Rejoue.Mettre_A_Jour();
    EXPECT_EQ(Rejoue.Lecteur.Fautes(), std::vector<std::string>());
    EXPECT_EQ(Rejoue.Lecteur.Restants(), 0U);
    EXPECT_EQ(Rejoue.Volet(), Note.Volet());
    EXPECT_EQ(Rejoue.Ecran.Boites, Note.Ecran.Boites);
    EXPECT_EQ(Rejoue.Releve.Texte, Note.Releve.Texte) << "the same to the millisecond";
  }
}

TEST(Journal, Rejoue_Une_Erreur_Levee_Et_Sans_Attendre) {
  Poste_Suivi Note(Premiere);
  Note.Pannes_.Avant = [&](std::string_view Appel, int) {
    if (Appel == "Galss" && Note.Lecteur.Nombre(Cible::Bloc) == 2) throw Erreur(51, "La \"bibliothèque\"\r\na fauté");
  };
  Note.Mettre_A_Jour();
  EXPECT_TRUE(Note.Dit("erreur=51 description=\"La \\\"bibliothèque\\\"\\r\\na fauté\""));
  EXPECT_TRUE(Note.Dit(" ERREUR numero=51 description="));
  Poste_Suivi Rejoue("durees = non", Note.Releve.Texte);
  Rejoue.Mettre_A_Jour();
  EXPECT_EQ(Rejoue.Volet(), Note.Volet());
  EXPECT_EQ(Rejoue.Lecteur.Restants(), 0U);
  EXPECT_LT(Rejoue.Temps.Maintenant, Note.Temps.Maintenant);
}

TEST(Journal, Premiere_Difference) {
  Poste_Suivi Note(Premiere);
  Note.Mettre_A_Jour();
  Note.Releve.Texte += "00:00:00.000 FIN quitter\r\n";
  const auto Rejouer = [&](const std::string& Scenario, const auto& Changer) {
    Poste_Suivi P(Scenario, Note.Releve.Texte);
    Changer(P);
    P.Mettre_A_Jour();
    return P.Lecteur.Fautes();
  };
  const auto Autre_Contenu = [](Poste_Suivi& P) { P.Disque.Fichiers["C:\\Pavorin\\Fexa0400.ing"][600] ^= 1; };
  auto Fautes = Rejouer("", Autre_Contenu);
  ASSERT_EQ(Fautes.size(), 1U);
  EXPECT_TRUE(Fautes[0].starts_with("rejeu, ligne ")) << Fautes[0];
  EXPECT_NE(Fautes[0].find(" : Echange, attendu crc32="), std::string::npos) << Fautes[0];
  EXPECT_NE(Fautes[0].find(", venu crc32="), std::string::npos) << Fautes[0];
  EXPECT_EQ(Rejouer("contenu = non", Autre_Contenu), std::vector<std::string>());
  Fautes = Rejouer("", [](Poste_Suivi& P) { P.Disque.Fichiers["C:\\Pavorin\\Fexa0400.ing"].resize(1200); });
  ASSERT_EQ(Fautes.size(), 1U);
  EXPECT_NE(Fautes[0].find("attendu commande=[01 00 00 99 30 30 30 30 30 30 31 33 30 30], venu commande=[01 00 00 99 "
                           "30 30 30 30 30 30 31 32 30 30]"),
            std::string::npos)
      << Fautes[0];
  Fautes = Rejouer("", [](Poste_Suivi& P) { P.Mettre_A_Jour(); });
  EXPECT_EQ(Fautes, std::vector<std::string>{"rejeu, rien de plus dans le journal, venu OuvrirSession"});
}

TEST(Journal, Dit_Le_Refus_Et_Ne_Copie_Aucun_Logiciel) {
  Poste_Suivi P(Premiere + "num_serie = SERIE42; defaut = bloc 3 : refus 52");
  P.Mettre_A_Jour();
  const std::string& Texte = P.Releve.Texte;
  EXPECT_EQ(P.Releve.Chemins, std::vector<std::string>{"C:\\J\\Pavorin-20240229-235958.journal"});
  EXPECT_TRUE(
      Texte.starts_with("\xEF\xBB\xBFJournal de Pavorin, format 1\r\n23:59:58.007 POSTE date=\"2024-02-29\"\r\n"));
  EXPECT_TRUE(Texte.ends_with("\r\n"));
  char Somme[32];
  std::snprintf(Somme, sizeof Somme, "crc32=%08X", Crc_32(Vue_Octets(Contenu(1300)).subspan(2 * 507)));
  for (const std::string& Attendu :
       {std::string("inscriptible=non cle=\"REP\" valeur=\"C:\\\\Pavorin\\\\\"\r\n"), std::string("PROCESSUS absent"),
        std::string("POSTE programme=\"3.1.0\""), std::string("POSTE bibliotheque=\"C:\\\\GALSS\\\\Galclw32.dll\""),
        std::string("PROCESSUS present id=7 nom=\"galsvw32.exe\" terminable=oui"),
        std::string("FENETRE ouverte titre=\""),
        std::string("REGLAGE Lire fichier=\"C:\\\\Pavorin\\\\telech.ini\" inscriptible=non"),
        std::string("OuvrirSession application=\"Téléchargement\" lad=\"Log_SV\" -> duree_ms=0.000 code=0 "),
        std::string("commande=[01 00 00 94] longueur=4 capacite=2048 -> duree_ms=178.000 code=0 longueur=4 recus=118 "
                    "reponse=[00 49 4E"),
        std::string("| SERIE42 | 02 |"),
        std::string("FICHIER Ouvrir chemin=\"C:\\\\Pavorin\\\\Fexa0400.ing\" taille=1300 crc32="),
        "commande=[01 00 00 98 10] bloc=3 donnees=286 " + std::string(Somme) + " longueur=291 capacite=2 ",
        std::string("recus=2 reponse=[01 34] sens=\"Erreur de Téléchargement 52:Format de logiciel incorrect\""),
        std::string("VOLET texte=\"Problème lors du Chargement."),
        std::string("BOITE ouverte titre=\"TELECHARGER\" texte=\"Confirmez"), std::string("boutons=oui_non"),
        std::string("BOITE fermee reponse=oui"), std::string("FENETRE fermee titre=")}) {
    EXPECT_TRUE(P.Dit(Attendu)) << Attendu;
  }
  EXPECT_FALSE(P.Dit("autre.exe"));
  EXPECT_FALSE(P.Dit("00 07 0E")) << "the file's first bytes";
  EXPECT_FALSE(P.Dit("98 01 00"));
  EXPECT_THROW(P.Suivi.Poste().Ecran.Quitter(), Programme_Arrete);
  EXPECT_TRUE(Texte.ends_with("FIN quitter\r\n"));
  EXPECT_EQ(P.Releve.Assures, Texte.size());
}

TEST(Journal, Somme_De_Controle) {
  const std::string Texte = "123456789";
  EXPECT_EQ(Crc_32(Octets(Texte.begin(), Texte.end())), 0xCBF43926U) << "the published check value";
  EXPECT_EQ(Crc_32({}), 0U);
}

TEST(Journal, Test_Serie) {
  for (const char* Scenario :
       {"morceaux = 3", "vitesses = 19200", "silence = tout", "longueur_config = 124", "date = 2005AB13"}) {
    SCOPED_TRACE(Scenario);
    Lecteur_Serie Reel(Scenario_De(Scenario));
    Poste_Suivi Note("");
    Note.Port.Brancher(Reel, 0.02);
    Note.Suivie.F.FMain.MnLecteur.Cliquer();
    Lecteur_Serie Enregistre(Scenario_De("rejouer = a", [&](const std::string&) { return Note.Releve.Texte; }));
    Poste_Suivi Rejoue("");
    Rejoue.Port.Brancher(Enregistre, 9);
    Rejoue.Suivie.F.FMain.MnLecteur.Cliquer();
    EXPECT_EQ(Enregistre.Fautes(), std::vector<std::string>());
    EXPECT_EQ(Rejoue.Volet(), Note.Volet());
    EXPECT_EQ(Rejoue.Ecran.Boites, Note.Ecran.Boites);
    EXPECT_EQ(Rejoue.Port.Conversation, Note.Port.Conversation);
    EXPECT_EQ(Rejoue.Suivie.F.FrmResultParam.LblNumSerie.Texte(), Note.Suivie.F.FrmResultParam.LblNumSerie.Texte());
    EXPECT_TRUE(Note.Dit(" SERIE Regler reglages=\"9600,n,8,1\"\r\n"));
    EXPECT_TRUE(Note.Dit(" SERIE Ecrire octets=[2F C0 04 00 14 00 C8 A4 FC]\r\n"));
    Rejoue.Suivie.F.FrmResultParam.CmdOK.Cliquer();
    Rejoue.Suivie.F.FMain.MnLecteur.Cliquer();
    EXPECT_TRUE(Enregistre.Fautes().at(0).starts_with("rejeu, rien de plus dans le journal, venu 2F C0"));
  }
}

TEST(Journal, Refuse_Ce_Qui_N_Est_Pas_Un_Journal) {
  const std::string Debut = "Journal de Pavorin, format 1\r\n00:00:00.000 POSTE date=\"2024-02-29\"\n",
                    H = "23:59:59.999 ";
  EXPECT_NO_THROW(Lire_Journal(Debut));
  const std::string Ouvrir = "GALSS OuvrirSession application=\"a\" lad=\"b\" ";
  const std::pair<std::string, std::string> Cas[] = {
      {"", "ligne 1 : ligne inachevée"},
      {"[INIT_REPERTOIRE]\r\n", "ligne 1 : ce n'est pas un journal de Pavorin"},
      {"Journal de Pavorin, format 2\r\n", "ligne 1 : ce n'est pas un journal de Pavorin"},
      {Debut + H + "FIN quit", "ligne 3 : ligne inachevée"},
      {Debut + "\n", "ligne 3 : heure attendue au lieu de \"\""},
      {Debut + "24:00:00.000 FIN a\n", "ligne 3 : nombre de 0 à 23"},
      {Debut + H + "BRUIT a\n", "ligne 3 : genre inconnu \"BRUIT\""},
      {Debut + H + "VOLET texte=\"abc\n", "ligne 3 : texte mal cité"},
      {Debut + H + "VOLET texte=\"a\\qc\"\n", "ligne 3 : texte mal cité"},
      {Debut + H + "VOLET texte=\"a\"b\n", "ligne 3 : valeur mal terminée"},
      {Debut + H + "VOLET efface encore\n", "ligne 3 : \"nom=valeur\" attendu"},
      {Debut + H + "SERIE Ecrire octets=[2F 1\n", "ligne 3 : valeur mal terminée"},
      {Debut + H + "SERIE Ecrire octets=[2F 1G]\n", "ligne 3 : octet hexadécimal"},
      {Debut + H + "SERIE Ecrire octets=12\n", "ligne 3 : \"octets\" : valeur d'une autre forme"},
      {Debut + H + "SERIE Chanter\n", "ligne 3 : mot inconnu"},
      {Debut + H + "GALSS Fermer\n", "ligne 3 : opération inconnue"},
      {Debut + H + Ouvrir + "\n", "ligne 3 : \"duree_ms\" manque"},
      {Debut + H + Ouvrir + "-> duree_ms=1.000 code=70000\n", "ligne 3 : nombre de -32768 à 32767"},
      {Debut + H + Ouvrir + "-> duree_ms=1.000 code=0 application=\"a\"\n", "ligne 3 : \"lad\" manque"},
      {Debut + H + "GALSS Echange session=3 -> duree_ms=1.000 code=0\n", "ligne 3 : \"commande\" manque"}};
  for (const auto& [Texte, Attendu] : Cas) {
    const auto Lu = Lire_Scenario("trace = non\nrejouer = x", [&](const std::string&) { return Texte; });
    ASSERT_EQ(Lu.Erreurs.size(), 1U) << Texte;
    EXPECT_TRUE(Lu.Erreurs[0].starts_with("x, " + Attendu)) << Lu.Erreurs[0] << "\n" << Texte;
    EXPECT_TRUE(Lu.Contenu.Rejeu && Lu.Contenu.Rejeu->Appels.empty()) << "a refused journal answers nothing";
  }
  EXPECT_EQ(Lire_Scenario("rejouer = x").Erreurs.size(), 1U);
}

TEST(Journal, Le_Programme_Continue_Sans) {
  Poste_De_Test P;
  const Machine Nue{P.Galss, P.Processus, P.Profil, P.Disque, P.Port, P.Temps, P.Ecran};
  Releve_De_Test Releve;
  std::string Avis;
  Releve.Refus = true;
  EXPECT_EQ(Journaliser(Nue, Releve, "", Avis), nullptr);
  EXPECT_EQ(Avis,
            "Le journal demandé ne peut pas être écrit :\r\nAccès refusé : C:\\Pavorin\\Pavorin-20240229-235958.journal"
            "\r\nLe programme continue sans journal.");
  Poste_Suivi Pleine(Premiere);
  Pleine.Releve.Plein = true;
  Pleine.Ecran.A_La_Boite = {};
  Pleine.Mettre_A_Jour();
  EXPECT_EQ(Pleine.Lecteur.Fautes(), std::vector<std::string>());
  EXPECT_EQ(std::count_if(Pleine.Ecran.Boites.begin(), Pleine.Ecran.Boites.end(),
                          [](const auto& B) { return B.starts_with("Pavorin | Le journal ne peut plus être écrit"); }),
            1);
}

}  // namespace
