// The support journal: what it tells, what it never tells, when it is on the disk, and that the
// simulated reader replays it call for call.

#include <gtest/gtest.h>

#include <fstream>

#include "journal/Poste_Journalise.h"
#include "simulator/Lecture_Texte.h"
#include "tests/Machine_De_Test.h"

namespace {

struct Releve_De_Test : Releve_Poste {
  struct Sortie : Fichier_Journal {
    explicit Sortie(Releve_De_Test& R) : Releve(R) {}
    bool Ecrire(std::string_view Texte) override {
      Releve.Texte += Releve.Plein ? "" : Texte;
      Releve.Suivi += Releve.Plein ? "" : Texte;
      return !Releve.Plein;
    }
    void Assurer() override { Releve.Suivi += "(assuré)\r\n"; }
    Releve_De_Test& Releve;
  };
  Instant Maintenant() override { return {2024, 2, 29, 23, 59, 58, 7}; }
  std::vector<Fait> Poste() override { return {{"programme", "3.1.0"}}; }
  std::vector<Fait> Bibliotheque() override {
    if (++Demandes % 2 != 0) return {};  // the modules there before it
    return {{"bibliotheque", "C:\\GALSS\\Galclw32.dll"}};
  }
  bool Inscriptible(std::string_view) override { return false; }
  bool Terminable(std::uint32_t Id) override { return Id == 7; }
  std::unique_ptr<Fichier_Journal> Creer_Journal(std::string_view Chemin) override {
    if (Refus) throw Erreur(70, "Accès refusé : " + std::string(Chemin));
    Chemins.emplace_back(Chemin);
    return std::make_unique<Sortie>(*this);
  }
  std::string Texte, Suivi;  // what was written; the same, and when it reached the disk
  std::vector<std::string> Chemins;
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
    "taille_bloc = 1; delai_ms = 250; type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; ";
const std::string Premiere = Bifente + "num_version = 0150; ", Seconde = Bifente + "num_version = 0200; ";

TEST(Journal, Se_Rejoue_Appel_Pour_Appel) {
  const std::string Cas[] = {
      Premiere,
      Seconde,
      Premiere + "defaut = bloc 3 : refus 52",
      Seconde + "defaut = bloc 3 fichier 2 : technique 130",
      Premiere + "defaut = demande 1 : code 64; defaut = bloc 2 fois 2 : code 64 livre",
      Seconde + "defaut = Echange 3 : code 64 livre longueur 0 noms \\x00\\x22\\x5C\\x80é; defaut = bloc 1 : code 64",
      Premiere + "defaut = bloc 2 : longueur capacite+1",
      Premiere + "defaut = lecture 1 toujours : silence",
      Premiere + "defaut = OuvrirSession 1 : code 8192 noms L\\x00\\x81\\x22é; defaut = DebutExclusivite 1 : code 4",
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
  const std::string Noyau = "C:\\Pavorin\\Fexa0400.ing";
  const struct {
    std::string Scenario;
    std::function<void(Poste_Suivi& P)> Changer;
    std::vector<std::string> Morceaux;  // of the only fault, if any
  } Cas[] = {{"",
              [&](auto& P) { P.Disque.Fichiers[Noyau][600] ^= 1; },
              {"rejeu, ligne ", " : Echange, attendu crc32=", ", venu crc32="}},
             {"contenu = non", [&](auto& P) { P.Disque.Fichiers[Noyau][600] ^= 1; }, {}},
             {"",
              [&](auto& P) { P.Disque.Fichiers[Noyau].resize(1200); },
              {"attendu commande=[01 00 00 99 30 30 30 30 30 30 31 33 30 30]",
               ", venu commande=[01 00 00 99 30 30 30 30 30 30 31 32 30 30]"}},
             {"", [](auto& P) { P.Mettre_A_Jour(); }, {"rejeu, rien de plus dans le journal, venu OuvrirSession"}}};
  for (const auto& C : Cas) {
    Poste_Suivi P(C.Scenario, Note.Releve.Texte);
    C.Changer(P);
    P.Mettre_A_Jour();
    ASSERT_EQ(P.Lecteur.Fautes().size(), C.Morceaux.empty() ? 0 : 1);
    for (const auto& Un : C.Morceaux) EXPECT_NE(P.Lecteur.Fautes()[0].find(Un), std::string::npos);
  }
}

/// One of the journals of docs/formats.md that stand in journaux/, spelled by hand; the sums come from elsewhere.
/// "(assuré)" tells when what precedes had to be on the disk.
std::string Attendu(const std::string& Nom) {
  std::ostringstream Texte;
  Texte << std::ifstream(RACINE "/tests/journaux/" + Nom).rdbuf();
  return Texte.str();
}

std::string Lu(Poste_Suivi& P) {
  std::erase(P.Releve.Suivi, '\r');
  return P.Releve.Suivi;
}

TEST(Journal, Dit_Tout_Et_Ne_Copie_Aucun_Logiciel) {
  Poste_Suivi P(
      Premiere +
      R"(num_serie = SERIE42; lad = LOG_SV; lectures_muettes = 0; defaut = DebutExclusivite 1 : noms \x80\x22é\x7F\x5C;
    defaut = demande 1 : code 64 noms \x01ab octets 00 07 20; 
    defaut = bloc 1 : code 64 livre noms 0123456789012345678901234567890123456789;
    defaut = bloc 1 fichier 2 : vide longueur 0; defaut = FinExclusivite 1 : code 4; defaut = FermerSession 1 : code 5)");
  P.Disque.Fichiers["C:\\Pavorin\\Fexa0400.ing"] = Contenu(600);
  P.Disque.Fichiers["C:\\Pavorin\\E0300.ing"] = Contenu(40);
  P.Mettre_A_Jour();
  EXPECT_EQ(P.Releve.Chemins, std::vector<std::string>{"C:\\J\\Pavorin-20240229-235958.journal"});
  EXPECT_EQ(Lu(P), Attendu("premiere_famille.journal"));
}

TEST(Journal, Dit_L_Autre_Famille_La_Ligne_Et_La_Fin) {
  Poste_Suivi P(Seconde + "defaut = bloc 2 : code 64; defaut = bloc 2 : code 5");
  P.Disque.Fichiers["C:\\Pavorin\\Fexa0400.ing"] = Contenu(600);
  P.Mettre_A_Jour();
  P.Suivie.F.frmAbout.Montrer();
  Lecteur_Serie Reel(Scenario_De("silence = config"));
  P.Port.Brancher(Reel, 0.02);
  P.Suivie.F.FMain.MnLecteur.Cliquer();
  P.Port.Absent = true;
  P.Suivie.F.FMain.MnLecteur.Cliquer();
  P.Suivie.F.FMain.Fermer_Par_Cadre();
  EXPECT_THROW(P.Suivie.F.frmAbout.CmdOK.Cliquer(), Programme_Arrete);
  EXPECT_EQ(Lu(P), Attendu("seconde_famille_et_ligne.journal"));
  EXPECT_EQ(P.Faits(), Recit(R"(cherche C:\Pavorin\E*.ing ×2; cherche C:\Pavorin\Fexa*.ing; cherche C:\Pavorin\E*.ing;
    cherche C:\Pavorin\Fexa*.ing; réglages C:\Pavorin\; OuvrirSession; DebutExclusivite; lecture; 
    [TELECHARGER | Confirmez-vous la mise à jour du ou des fichiers ci-dessous :¶Fexa0400.ing↓←E0300.ing↓← | question | oui, non]; éveillé;
    ouvre C:\Pavorin\Fexa0400.ing ×2; lit 600; ferme C:\Pavorin\Fexa0400.ing; lit 597; demande; bloc ×3; FinExclusivite;
    FermerSession; 3 s; ferme C:\Pavorin\Fexa0400.ing; termine 7; peut dormir; port 9600,n,8,1; port ouvert;
    > 2F C0 4 0 14 0 C8 A4 FC ×3; > 2F 40 4 1 0 0 94 A0 9B; 2 s; port fermé; port 9600,n,8,1; fin; )"));
}

TEST(Journal, Valeurs_Aux_Bornes) {
  Poste_Suivi P("defaut = DebutExclusivite 1 : code 4");
  P.Mettre_A_Jour();
  EXPECT_TRUE(P.Dit("exclusivite=0 sens=\"Erreur GALSS 4 : LAD pris")) << P.Releve.Texte;
  Ligne_Journal Ligne("Mot");
  Ligne.Texte("t", "\"\\\r\n\t\x01\x1F ~\x7Fé")
      .Caracteres("c", Octets{0x1F, ' ', '"', '\\', '~', 0x7F, 0x9F, 0xA0, 0xFF});
  Ligne.Nombre("n", -7).Duree("d", 1.0005).Somme("s", 0x0A1B2C3D).Hexa("h", Octets{0x0F, 0xF0}).Mot("m", "x");
  EXPECT_EQ(Ligne.Contenu(),
            "Mot t=\"\\\"\\\\\\r\\n\\t\\x01\\x1F ~\\x7Fé\" c=\"\\x1F \\x22\\x5C~\\x7F\\x9F\u00A0ÿ\" n=-7 "
            "d=1000.500 s=0A1B2C3D h=[0F F0] m=x");
  Releve_De_Test Releve;
  Horloge_De_Test Temps;
  Journal Suivi(Releve.Creer_Journal(""), Temps, {2024, 2, 29, 0, 59, 59, 999});
  for (const double Secondes : {0.001, 60.001, 23 * 3600.001, 24 * 3600.001}) {
    Temps.Maintenant = Secondes;
    Suivi.Ecrire("A", Ligne_Journal("b"));
  }
  EXPECT_EQ(Releve.Texte,
            "\xEF\xBB\xBFJournal de Pavorin, format 1\r\n01:00:00.000 A b\r\n01:01:00.000 A b\r\n"
            "00:00:00.022 A b\r\n01:00:00.023 A b\r\n");
}

TEST(Journal, Contenu_Des_Fichiers) {
  Poste_De_Test P;
  Releve_De_Test Releve;
  Journal Suivi(Releve.Creer_Journal(""), P.Temps, {});
  Disque_Journalise Disque(P.Disque, Suivi);
  for (const std::size_t Taille : {4'000'000U, 4'000'001U, 9U}) {
    P.Disque.Poser("f", Octets(Taille, 'x'));
    if (Taille == 9)
      P.Pannes_.Avant = [](std::string_view Appel, int) {
        if (Appel == "Lire") throw Erreur(57, "Panne");
      };
    Disque.Ouvrir("f");
  }
  const std::string Ouvrir = "00:00:00.000 FICHIER Ouvrir chemin=\"f\" taille=";
  EXPECT_TRUE(Releve.Texte.ends_with(Ouvrir + "4000000 crc32=16AC25B8\r\n" + Ouvrir + "4000001\r\n" + Ouvrir +
                                     "9 crc32=illisible\r\n"))
      << Releve.Texte;
  Port_Journalise Port(P.Port, Suivi);
  Port.Ouvrir();
  P.Port.Envoyer({1}, 0);
  EXPECT_EQ(Port.Lire_Tout(), Octets{1}) << "without having counted them";
  P.Port.Envoyer({2}, 0);
  EXPECT_EQ(Port.En_Attente(), 1U);
  Port.Fermer();
  Port.Ouvrir();
  EXPECT_EQ(Port.En_Attente(), 0U) << "what was not read goes with the port";
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
    EXPECT_EQ(Rejoue.Faits(), Note.Faits());
    EXPECT_EQ(Rejoue.Suivie.F.FrmResultParam.LblNumSerie.Texte(), Note.Suivie.F.FrmResultParam.LblNumSerie.Texte());
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
      {"Journal de Pavorin, format 2\r\n", "ligne 1 : ce n'est pas un journal de Pavorin"},
      {Debut + H + "FIN quit", "ligne 3 : ligne inachevée"},
      {Debut + "\n", "ligne 3 : heure attendue au lieu de \"\""},
      {Debut + "24:00:00.000 FIN a\n", "ligne 3 : nombre de 0 à 23"},
      {Debut + H + "BRUIT a\n", "ligne 3 : genre inconnu \"BRUIT\""},
      {Debut + H + "VOLET texte=\"abc\n", "ligne 3 : texte mal cité"},
      {Debut + H + "VOLET texte=\"a\"b\n", "ligne 3 : valeur mal terminée"},
      {Debut + H + "VOLET efface encore\n", "ligne 3 : \"nom=valeur\" attendu"},
      {Debut + H + "SERIE Ecrire octets=[2F 1\n", "ligne 3 : valeur mal terminée"},
      {Debut + H + "SERIE Ecrire octets=12\n", "ligne 3 : \"octets\" : valeur d'une autre forme"},
      {Debut + H + "SERIE Chanter\n", "ligne 3 : mot inconnu"},
      {Debut + H + Ouvrir + "\n", "ligne 3 : \"duree_ms\" manque"},
      {Debut + H + Ouvrir + "-> duree_ms=1.000 code=70000\n", "ligne 3 : nombre de -32768 à 32767"},
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
  const std::string Ecrit = Pleine.Releve.Texte;
  Pleine.Releve.Plein = true;
  Pleine.Ecran.A_La_Boite = [&] { Pleine.Releve.Plein = false; };
  Pleine.Mettre_A_Jour();
  EXPECT_EQ(Pleine.Releve.Texte, Ecrit) << "a line is missing: nothing more is written";
  EXPECT_EQ(Pleine.Lecteur.Fautes(), std::vector<std::string>());
  EXPECT_EQ(std::count_if(Pleine.Ecran.Boites.begin(), Pleine.Ecran.Boites.end(),
                          [](const auto& B) { return B.starts_with("Pavorin | Le journal ne peut plus être écrit"); }),
            1);
}

}  // namespace
