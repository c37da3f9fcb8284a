// Whole updates, read as an operator would: what the pane says, which boxes came up, what the
// reader received byte for byte, what is enabled at the end.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"
#include "tests/Table.h"
#include "update/Decider_Chargement.h"

namespace {

const std::string Aucune = "Pas de mise à jour";
Octets Reponse_De(const std::string& Type, const std::string& OS, const std::string& Version) {
  const std::string Texte = "\x01" + Type + std::string(20, '#') + OS + std::string(30, 'a') + Version;
  return Octets(Texte.begin(), Texte.end());
}

TEST(Decision, Reponses_Sans_Fiche) {
  for (const Octets& Reponse : {Octets(), Octets(2048, ' '), Octets{0, 52}}) {
    Variables_Globales V;
    EXPECT_EQ(Decider_Chargement(Reponse, {true, "noyau", "appli"}, V).Issue, Issue_Decision::Terminal_Refuse);
  }
}

// A rule a line of decisions.txt.
TEST(Decision, Regles) {
  using enum Issue_Decision;
  const std::map<std::string, Issue_Decision> Issues = {{"A_Charger", A_Charger},
                                                        {"Terminal_Refuse", Terminal_Refuse},
                                                        {"Noyau_Ou_Appli_Manquant", Noyau_Ou_Appli_Manquant},
                                                        {"Aucune_Nouvelle_Version", Aucune_Nouvelle_Version},
                                                        {"Chargement_Interdit_650", Chargement_Interdit_650},
                                                        {"Chargement_Interdit_Bifente", Chargement_Interdit_Bifente}};
  int Rang = 0;
  for (auto C : Lire_Table("decisions.txt")) {
    SCOPED_TRACE(Rang++);
    for (const std::size_t Champ : {1U, 2U}) std::ranges::replace(C[Champ], '_', ' ');
    C[1].resize(45, ' ');
    const bool Auto = C[0] == "auto", Chargement = C[10] == "C";
    // A list without a text, as after the start-up, chooses no more than "Pas de mise à jour".
    for (const auto& [Avant, Rien] : {std::pair{false, Aucune}, {true, std::string()}}) {
      Variables_Globales V;
      V.Version_Noyau = C[5];
      V.Version_Appli = C[7];
      V.Noyau_Et_Appli = Avant;
      const std::string K = C[4] == "oui" ? "noyau" : Rien, A = C[6] == "oui" ? "appli" : Rien;
      const auto R = Decider_Chargement(Reponse_De(C[1], C[2], C[3]), {Auto, K, A}, V);
      std::string Liste;
      for (const char Lettre : C[9]) Liste += (Lettre == 'K' ? K : A) + (Auto ? "\n\r" : "\r\n");
      EXPECT_EQ(R.Issue, Issues.at(C[8]));
      EXPECT_EQ(R.Liste_Fichiers, Liste);
      EXPECT_EQ(R.Charger_Noyau, C[9].find('K') != std::string::npos);
      EXPECT_EQ(R.Charger_Appli, C[9].find('A') != std::string::npos);
      EXPECT_EQ(R.Famille_Transfert == Operation_Transfert::Charger_Fichier, Chargement);
      EXPECT_EQ(V.Noyau_Et_Appli, Chargement ? C[9].size() == 2 : Avant);
    }
  }
}

const std::string Avant_200 =
    "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0199; lectures_muettes = 3\n";
const std::string Depuis_200 =
    "type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; lectures_muettes = 3\n";

// What an update tells, from the click on.
const std::string Debut =
    R"(TxtDetails visible; TxtDetails = ; TxtDetails peint; TxtDetails = PROCEDURE DE CHARGEMENT¶; TxtDetails + =========================¶;
  réglages C:\Pavorin\; TxtDetails + Connexion en cours ... ¶; )";
const std::string Connecte = Debut + "OuvrirSession; DebutExclusivite; TxtDetails + Connexion Réussie.¶; ";
const std::string Confirmer = "[TELECHARGER | Confirmez-vous la mise à jour du ou des fichiers ci-dessous :¶";
const std::string Les_Deux = Connecte + "lecture; " + Confirmer + "Fexa0500.ing↓←ER0300.ing↓← | question | oui, non]; ";
const std::string Installation = "[Télécharger | Vérifiez l'installation du service SESAM-Vitale (GALSS).]; ";
const std::string Service =
    "[Télécharger | Vérifiez le service SESAM-Vitale (GALSS)n'est pas déjà ouvert, si le service est ouvert veuillez "
    "supprimer cette tache ATL+CTRL+SUPP et séléctionnez galsvw32.exe et faite terminer la tache.]; ";
const std::string Serveur = "termine 41; ";
const std::string Fin = "TxtDetails + Arrêt du Galss¶; " + Serveur;
const std::string Rendu = "flèche; CmdQuitter actif; ";  // to the operator
const std::string Fermee = "FrmAnimCharg inactive; FMain active; FrmAnimCharg fermée; ";
const std::string Noyau = "C:\\Pavorin\\Fexa0500.ing; ", Appli = "C:\\Pavorin\\ER0300.ing; ";
const std::string Reussi = R"(LblTitre = Chargement Réussi.; PgbExe caché;
  LblCom = Attendre l'écran de repos du lecteur Elite 650; LblNumBlock caché; LblBlock caché; LblNumTaille caché;
  TxtDetails + Chargement Réussi.→14:30:05¶; )";
const std::string Echoue = R"(LblTitre = Problème lors du Chargement.; PgbExe caché; LblCom = Chargement Echoué ...;
  LblNumBlock caché; LblBlock caché; LblNumTaille caché; TxtDetails + Problème lors du Chargement.→14:30:05¶;
  FinExclusivite; FermerSession; TxtDetails + ¶Déconnexion Réussie; 3 s; )";

/// A file opened, and its progress window; what is read of it.
std::string Ouvrir(const std::string& Fichier, const std::string& Ligne, int Lus) {
  return "ouvre " + Fichier + "TxtDetails + Ouverture du fichier" + Ligne +
         "¶; FMain inactive; LblTitre = Chargement en cours ...; FrmAnimCharg montrée; LblNumBlock = 0; "
         "FrmAnimCharg peinte; lit " +
         std::to_string(Lus) + "; demande; ";
}
/// Blocks sent, the bar after each.
std::string Blocs(const std::vector<std::string>& Barres) {
  std::string Recit = "TxtDetails + Début du chargement.→14:30:05¶; TxtDetails peint; ";
  for (std::size_t I = 0; I < Barres.size(); ++I) {
    Recit += "bloc; ";
    if (I == 0) Recit += "FrmAnimCharg montrée; FrmAnimCharg peinte; PgbExe peint; ";
    Recit += "LblNumBlock = " + std::to_string(I + 1) + "; PgbExe " + Barres[I] +
             "; LblNumTaille =  " + Barres[I].substr(0, Barres[I].find('.')) +
             "%; LblNumBlock peint; LblNumTaille peint; PgbExe peint; ";
  }
  return Recit;
}

struct Mise_A_Jour_Test : testing::Test {
  using Fichiers = std::vector<std::pair<std::string, std::size_t>>;  // names and sizes
  void Preparer(const std::string& Scenario, const Fichiers& Tous = {{"Fexa0500.ing", 5000}, {"ER0300.ing", 3000}}) {
    P = std::make_unique<Poste_De_Test>(Scenario);
    P->Processus.Actifs = {{41, "galsvw32.exe"}, {42, "autre.exe"}};
    for (const auto& [Nom, Taille] : Tous) P->Disque.Poser("C:\\Pavorin\\" + Nom, Contenu(Taille));
    P->Demarrer();
    FMain().TxtDetails.Texte("avant");
    FMain().TxtDetails.Visible(false);
    FMain().CmdQuitter.Active(false);
    P->Faits();
  }
  /// What an update tells.
  std::string Mettre_A_Jour() {
    FMain().CmdMaj.Cliquer();
    EXPECT_EQ(P->Disque.Ouverts, 0);
    EXPECT_EQ(P->Lecteur.Fautes(), std::vector<std::string>());
    return P->Faits();
  }
  /// The same, behind the confirmation.
  std::string Charger() {
    const std::string Faits = Mettre_A_Jour(), Avant = Recit(Les_Deux);
    EXPECT_TRUE(Faits.starts_with(Avant)) << Faits;
    return Faits.substr(std::min(Avant.size(), Faits.size()));
  }
  Fenetre_Principale& FMain() { return P->App.F.FMain; }
  const Octets& Recu(std::size_t Rang) const { return P->Lecteur.Fichiers().at(Rang).Contenu; }
  std::unique_ptr<Poste_De_Test> P;
};

TEST_F(Mise_A_Jour_Test, Noyau_Et_Application_Par_Telecharger_Fichier) {
  Preparer(Avant_200);
  EXPECT_EQ(Mettre_A_Jour(),
            Recit(Les_Deux + "éveillé; sablier; " + Ouvrir(Noyau, " Fexa0500.ing 5000 Octets.", 5000) +
                  Blocs({"40.8600", "81.7200", "100.000"}) + "ferme " + Noyau + Reussi + "25 s; " + Fermee +
                  "lecture ×4; " + Ouvrir(Appli, " ER0300.ing 3000 Octets.", 3000) + Blocs({"68.0999", "100.000"}) +
                  Reussi + "7 s; " + Fermee + "ferme " + Appli + Rendu + Fin + "peut dormir; "));
  EXPECT_EQ(Recu(0), Contenu(5000));
  EXPECT_EQ(Recu(1), Contenu(3000));
  EXPECT_EQ(P->App.Globales.Version_Appli, "0000");
  FMain().TxtChooseDirectory.Texte("C:\\Pavorin");
  EXPECT_EQ(P->App.Globales.Version_Appli, "0300") << "a rescan sets it again";
}

// The kernel's closing steps restore the pointer and "Quitter".
TEST_F(Mise_A_Jour_Test, Noyau_Et_Application_Par_Charger_Fichier) {
  Preparer(Depuis_200);
  EXPECT_EQ(
      Mettre_A_Jour(),
      Recit(Les_Deux + "éveillé; sablier; " + Ouvrir(Noyau, ". ", 4997) + Blocs({"40.8845", "81.7690", "100.000"}) +
            Reussi + "24 s; " + Fermee + "ferme " + Noyau + Rendu + "lecture ×4; " + Ouvrir(Appli, ". ", 2997) +
            Blocs({"68.1681", "100.000"}) + Reussi + "7 s; " + Fermee + "ferme " + Appli + Fin + "peut dormir; "));
  EXPECT_EQ(Recu(0), Contenu(4997)) << "Contenu(n) is a prefix of any longer one";
  EXPECT_EQ(Recu(1), Contenu(2997));
  EXPECT_EQ(P->App.Globales.Version_Appli, "0300");
  EXPECT_FALSE(P->App.Globales.Noyau_Et_Appli);
}

TEST_F(Mise_A_Jour_Test, Noyau_Seul) {
  const std::string Question = Connecte + "lecture; " + Confirmer + "Fexa0500.ing↓← | question | oui, non]; éveillé; ";
  Preparer(Avant_200, {{"Fexa0500.ing", 2043}});
  EXPECT_EQ(Mettre_A_Jour(),
            Recit(Question + "sablier; " + Ouvrir(Noyau, " Fexa0500.ing 2043 Octets.", 2043) + Blocs({"100.000"}) +
                  "ferme " + Noyau + Reussi + "25 s; " + Fermee + Fin + "flèche; peut dormir; "));
  Preparer(Depuis_200, {{"Fexa0500.ing", 2046}});
  P->App.Globales.Noyau_Et_Appli = true;  // of an earlier update
  EXPECT_EQ(Mettre_A_Jour(), Recit(Question + "sablier; " + Ouvrir(Noyau, ". ", 2043) + Blocs({"100.000"}) + Reussi +
                                   "7 s; " + Fermee + "ferme " + Noyau + Rendu + Fin + "peut dormir; "));
}

TEST_F(Mise_A_Jour_Test, Lecteur_Muet_Apres_Le_Noyau) {
  Preparer(Depuis_200 + "lectures_muettes = 20000");
  const std::string Faits = Charger();
  EXPECT_NE(Faits.find("\nlecture ×10000\nouvre C:\\Pavorin\\ER0300.ing\n"), std::string::npos) << Faits;
  EXPECT_NE(Faits.find("\ndemande\nLblTitre = Problème lors du Chargement.\n"), std::string::npos)
      << "tried all the same";
}

TEST_F(Mise_A_Jour_Test, Fins_Sans_Chargement) {
  const std::string Refuse = "[attention | Impossible de télécharger ce type de terminal !]; ";
  const std::string Manquant = R"([Attention | Impossible de mettre à jour le terminal, puisque  une application )"
                               "ou un noyau récent est manquant !]; ";
  const std::string Rien = "Aucune nouvelle version n'a été détéctée dans ce ";
  const std::string Interdit = "Impossible d'effectuer la mise à jour, sous peine de rendre inutilisable le terminal";
  const std::string Inconnue = "TxtDetails + Erreur GALSS 4096 : La session est inconnue¶", Lu = Connecte + "lecture; ";
  const std::string Arret = "TxtDetails + arrêt du Galss¶; " + Serveur;
  const Fichiers Deux = {{"Fexa0500.ing", 9}, {"ER0300.ing", 9}};
  const struct {
    std::string Scenario;
    Fichiers Tous;
    std::string Gestes;  // manual mode (M), automatic mode (A), the first application (a), the first kernel (n)
    std::string Faits;
  } Cas[] = {
      {"defaut = OuvrirSession : code 4096", Deux, "", Debut + "OuvrirSession; " + Inconnue + " ×2; " + Fin + Refuse},
      {"defaut = DebutExclusivite : code 4096", Deux, "",
       Debut + "OuvrirSession; DebutExclusivite; " + Inconnue + " ×2; " + Fin + Refuse},
      {"defaut = lecture : code 4096", Deux, "", Lu + Inconnue + "; " + Fin + Refuse},
      {"defaut = lecture : refus 52", Deux, "",
       Lu + "TxtDetails + Erreur de Téléchargement 52:Format de logiciel incorrect¶; " + Fin + Refuse},
      {"defaut = lecture : octets 00 49 4E", Deux, "", Lu + Refuse},
      {"", {{"ER0300.ing", 9}}, "MA", Lu + Manquant},
      {"", {{"Fexa0500.ing", 9}}, "", Lu + Manquant},
      {Avant_200 + "num_version = 0300; type_os = 06", Deux, "",
       Lu + "[Information | " + Rien + "répertoire]; TxtDetails + " + Rien + "repertoire¶; " + Arret},
      {"", Deux, "Ma", Lu + "[Attention | " + Interdit + " !!!]; TxtDetails + " + Interdit + " !!!¶; " + Arret},
      {Avant_200,
       {{"Fexa0100.ing", 9}, {"ER0127.ing", 9}},
       "Man",
       Lu + "[Attention | " + Interdit + ".]; TxtDetails + " + Interdit + ".¶; " + Arret},
      {Avant_200, Deux, "", Les_Deux + "TxtDetails + mise à jour stoppée par l'utilisateur¶; " + Fin},
      {Avant_200,
       {{"ER0300.ing", 9}},
       "Ma",
       Lu + Confirmer + "ER0300.ing¶ | question | oui, non]; TxtDetails + mise à jour stoppée par l'utilisateur¶; " +
           Fin},
  };
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Scenario + C.Gestes);
    Preparer(C.Scenario, C.Tous);
    for (const char Geste : C.Gestes) {
      if (Geste == 'M') FMain().OptManuel.Choisir();
      if (Geste == 'A') FMain().OptAuto.Choisir();
      if (Geste == 'a') FMain().CchosseAppli.Choisir_A_La_Main(0);
      if (Geste == 'n') FMain().CchooseNoyau.Choisir_A_La_Main(0);
    }
    P->Faits();
    P->Ecran.Confirmation = Reponse::Non;
    EXPECT_EQ(Mettre_A_Jour(), Recit(C.Faits));
  }
}

TEST_F(Mise_A_Jour_Test, Chargement_Refuse) {
  const std::vector<std::string> Avant = {"40.8600", "81.7200", "100.000"}, Depuis = {"40.8845", "81.7690", "100.000"};
  const struct {
    const std::string& Lecteur;
    std::string Defaut;
    int Blocs;
  } Cas[] = {{Avant_200, "demande : refus 51", 0},        {Depuis_200, "demande : refus 146", 0},
             {Avant_200, "bloc 3 : refus 50", 3},         {Depuis_200, "bloc 3 : technique 130", 3},
             {Depuis_200, "bloc 2 : nature 26", 2},       {Avant_200, "bloc 2 : longueur 0", 2},
             {Avant_200, "bloc 1 toujours : code 64", 1}, {Avant_200, "demande : octets 00 00 00", 0},
             {Avant_200, "demande : longueur 4", 0},      {Avant_200, "bloc 2 : longueur 3", 2},
             {Avant_200, "demande : octets 00 00", 0},    {Depuis_200, "demande : octets 00 02 00", 0}};
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Defaut);
    const bool Premiere = &C.Lecteur == &Avant_200;
    const auto& Barres = Premiere ? Avant : Depuis;
    std::string Attendu = Premiere ? Ouvrir(Noyau, " Fexa0500.ing 5000 Octets.", 5000) : Ouvrir(Noyau, ". ", 4997);
    if (C.Blocs > 0) Attendu += Blocs({Barres.begin(), Barres.begin() + C.Blocs});
    if (C.Defaut.ends_with("64")) Attendu.replace(Attendu.find("bloc;"), 5, "bloc ×2;");
    Attendu += Premiere ? "ferme " + Noyau + Echoue + Fermee : Echoue + Fermee + "ferme " + Noyau;
    Preparer(C.Lecteur + "defaut = " + C.Defaut);
    EXPECT_EQ(Charger(), Recit("éveillé; sablier; " + Attendu + Rendu + Fin + "peut dormir; "));
  }
}

TEST_F(Mise_A_Jour_Test, Tailles_De_Fichier) {
  // One block holds 2043 bytes of data at size byte 4.
  const std::pair<std::size_t, int> Tailles[] = {{0, 0},    {1, 1},    {2042, 1}, {2043, 1},
                                                 {2044, 2}, {4086, 2}, {4087, 3}, {999999, 490}};
  for (const auto& [Taille, Blocs] : Tailles) {
    for (const std::size_t Retenus : {0, 3}) {
      SCOPED_TRACE(Taille);
      Preparer(Retenus == 0 ? Avant_200 : Depuis_200, {{"ER0300.ing", Taille + Retenus}});
      EXPECT_NE(Mettre_A_Jour().find("\nLblTitre = Chargement Réussi.\n"), std::string::npos);
      EXPECT_EQ(P->Lecteur.Nombre(Cible::Bloc), Blocs);
      EXPECT_EQ(Recu(0), Contenu(Taille));
    }
  }
}

TEST_F(Mise_A_Jour_Test, Erreurs_Du_Transfert) {
  const std::string Fermeture = "TxtDetails + Fermeture du fichier.→14:30:05¶; ";
  const auto Jusque = [](std::string Tout, const std::string& Fait) { return Tout.substr(0, Tout.find(Fait)); };
  const auto Ligne = [](const std::string& Texte) { return "TxtDetails + " + Texte + "→14:30:05¶; "; };
  const std::string Ouvert = Ouvrir(Noyau, " Fexa0500.ing 5000 Octets.", 5000), Ouverte = Ouvrir(Appli, ". ", 0);
  const std::string Fin_Et_Fleche = "CmdQuitter actif; " + Fin + "flèche; peut dormir; ";
  const struct {
    std::string Appel;
    int Numero;
    std::string Faits;
  } Cas[] = {{"Taille", 53, Ligne("Panne 53")},
             {"Ouvrir_Fichier", 70, Ligne("Panne 70")},
             {"Lire", 62, Jusque(Ouvert, "lit ") + Ligne("Panne 62") + "ferme " + Noyau + Fermeture + Fermee},
             {"Galss", 48, Ouvert + Ligne("Panne 48") + "ferme " + Noyau + Fermeture + Installation + Fermee}};
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Appel);
    Preparer(Avant_200);
    P->Pannes_.Avant = [&](std::string_view Appel, int) {
      const bool Pendant = Appel != "Galss" || P->App.F.FrmAnimCharg.Ouverte();
      if (Appel == C.Appel && Pendant) throw Erreur(C.Numero, "Panne");
    };
    EXPECT_EQ(Charger(), Recit("éveillé; sablier; " + C.Faits + Fin_Et_Fleche));
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Demande), 0) << "nothing sent";
  }
  for (const std::size_t Taille : {1000003U, 2U}) {
    Preparer(Depuis_200, {{"ER0300.ing", Taille}});
    EXPECT_EQ(Mettre_A_Jour(),
              Recit(Connecte + "lecture; " + Confirmer +
                    "ER0300.ing↓← | question | oui, non]; éveillé; "
                    "sablier; " +
                    Jusque(Ouverte, "lit ") + Ligne("La taille du fichier ne peut pas être annoncée au lecteur 5") +
                    "ferme " + Appli + Fermeture + Fermee + Fin_Et_Fleche));
  }
}

TEST_F(Mise_A_Jour_Test, Erreurs_De_La_Bibliotheque) {
  const std::string Lu = Connecte + "lecture; FinExclusivite; ",
                    Fermer = "FermerSession; TxtDetails + ¶Déconnexion Réussie; ",
                    Ligne = "TxtDetails + Deconnexion Réussie.→14:30:05¶; TxtDetails peint; ";
  const struct {
    int Premier, Dernier;  // calls that fail
    std::string Faits;
  } Cas[] = {{1, 1, Debut + "OuvrirSession; "}, {3, 3, Lu + Fermer + Ligne}, {3, 9, Lu + Ligne}};
  for (const auto& [Numero, Boite] : {std::pair{48, Installation}, {53, Service}, {453, Service}}) {
    for (const auto& C : Cas) {
      SCOPED_TRACE(Numero * 10 + C.Premier);
      Preparer(Avant_200);
      int Appels = 0;
      P->Pannes_.Avant = [&, Quoi = Numero](std::string_view Appel, int) {
        if (Appel == "Galss" && ++Appels >= C.Premier && Appels <= C.Dernier) throw Erreur(Quoi, "Panne");
      };
      EXPECT_EQ(Mettre_A_Jour(), Recit(C.Faits + Boite + "CmdQuitter actif; "));
    }
  }
}

}  // namespace
