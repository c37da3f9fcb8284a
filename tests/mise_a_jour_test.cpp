// Whole updates, read as an operator would: what the pane says, which boxes came up, what the
// reader received byte for byte, what is enabled at the end.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"
#include "update/Decider_Chargement.h"

namespace {

const std::string Aucune = "Pas de mise à jour";
const std::string Type_650 = "INGENICO  650                 ";
const std::string Bifente_A = "LECTEUR BIFENTE 2.0M-XA-V2????";
const std::string Bifente_B = "LEC-V03.00-0065 2.0M-XA-V2    ";

Octets Reponse_De(const std::string& Constructeur, const std::string& Type, const std::string& OS,
                  const std::string& Version) {
  std::string Texte = "\x01" + Constructeur + Type + std::string(20, '#') + OS + std::string(30, 'a') + Version;
  return Octets(Texte.begin(), Texte.end());
}

TEST(Decision, Admission) {
  const std::string I = "INGENICO       ";
  const struct {
    std::string Constructeur, Type, OS, Version;
    bool Admis;
  } Cas[] = {{I, Type_650, "03", "0127", true},
             {I, Type_650, "03", "0128", false},
             {I, Type_650, "02", "0127", false},
             {I, "INGENICO 650                  ", "03", "0127", false},
             {"Ingenico       ", Type_650, "03", "0127", false},
             {I, Bifente_A, "02", "0001", true},
             {I, Bifente_A, "01", "0130", false},
             {I, Bifente_A, " 9", "0130", true},
             {I, Bifente_B, "03", "0130", false},
             {I, Bifente_B, "04", "0130", true},
             {"INGENICO      X", Bifente_A, "04", "0130", false},
             {I, "lecteur bifente 2.0M-XA-V2    ", "04", "0130", false}};
  for (const auto& C : Cas) {
    Variables_Globales V;
    const auto R = Decider_Chargement(Reponse_De(C.Constructeur, C.Type, C.OS, C.Version), {true, Aucune, Aucune}, V);
    EXPECT_EQ(R.Issue != Issue::Terminal_Refuse, C.Admis) << C.Type << C.OS << C.Version;
  }
  Variables_Globales V;
  for (const Octets& Courte : {Octets{}, Octets(2048, ' '), Octets{0, 52}}) {
    EXPECT_EQ(Decider_Chargement(Courte, {}, V).Issue, Issue::Terminal_Refuse);
  }
}

// Mode, reader, OS and version of the reader, K and A chosen or not, VN and VA, then what is
// expected: issue, files in the order of the list, family.
struct Cas_Decision {
  bool Auto;
  const std::string& Type;
  const char *OS, *Version;
  bool K, A;
  const char *VN, *VA;
  Issue Quoi;
  std::string Ordre;
  bool Chargement;
};

TEST(Decision, Regles) {
  using enum Issue;
  const bool Auto = true, Manuel = false, Oui = true, Non = false;
  const Cas_Decision Cas[] = {
      {Auto, Type_650, "03", "0127", Oui, Oui, "02", "0130", A_Charger, "KA", false},
      {Auto, Type_650, "03", "0127", Oui, Non, "02", "", Noyau_Ou_Appli_Manquant, "K", false},
      {Auto, Type_650, "03", "0127", Oui, Non, "02", "0128", A_Charger, "KA", false},
      {Auto, Type_650, "03", "0127", Non, Oui, "", "0130", Noyau_Ou_Appli_Manquant, "A", false},
      {Auto, Type_650, "03", "0127", Non, Oui, "01", "0130", Noyau_Ou_Appli_Manquant, "A", false},
      {Auto, Type_650, "03", "0127", Non, Oui, "02", "0130", A_Charger, "KA", false},
      {Auto, Type_650, "03", "0127", Non, Non, "", "0127", Noyau_Ou_Appli_Manquant, "", false},
      {Auto, Bifente_A, "03", "0130", Oui, Oui, "03", "0130", A_Charger, "K", false},
      {Auto, Bifente_A, "03", "0130", Oui, Oui, "02", "0131", A_Charger, "A", false},
      {Auto, Bifente_A, "03", "0130", Oui, Oui, "02", "0130", Aucune_Nouvelle_Version, "", false},
      {Auto, Bifente_A, "03", "0130", Non, Non, "09", "0900", Aucune_Nouvelle_Version, "", false},
      {Auto, Bifente_A, "03", "0199", Oui, Oui, "03", "0200", A_Charger, "KA", false},
      {Auto, Bifente_A, "03", "0200", Oui, Oui, "03", "0201", A_Charger, "KA", true},
      {Auto, Bifente_B, "04", "0200", Non, Oui, "", "0201", A_Charger, "A", true},
      {Manuel, Type_650, "03", "0127", Non, Oui, "03", "0127", A_Charger, "A", false},   // M1
      {Manuel, Type_650, "03", "0127", Non, Non, "01", "0127", A_Charger, "A", false},   // M1 before M2
      {Manuel, Type_650, "03", "0127", Oui, Non, "01", "0130", A_Charger, "K", false},   // M2
      {Manuel, Type_650, "03", "0127", Oui, Oui, "01", "0127", A_Charger, "KA", false},  // M3
      {Manuel, Type_650, "03", "0127", Oui, Oui, "03", "0130", A_Charger, "KA", false},  // M4
      {Manuel, Type_650, "03", "0127", Oui, Non, "03", "0130", A_Charger, "KA", false},  // M4
      {Manuel, Type_650, "03", "0127", Oui, Oui, "03", "0127", A_Charger, "A", false},   // M5
      {Manuel, Type_650, "03", "0127", Oui, Oui, "01", "0130", A_Charger, "K", false},   // M5
      {Manuel, Type_650, "03", "0127", Non, Oui, "01", "0126", A_Charger, "K", false},   // M5
      {Manuel, Type_650, "03", "0127", Oui, Non, "02", "0126", Chargement_Interdit_650, "", false},
      {Manuel, Type_650, "03", "0127", Non, Oui, "02", "0130", Chargement_Interdit_650, "", false},
      {Manuel, Bifente_A, "03", "0130", Non, Oui, "09", "0127", Chargement_Interdit_Bifente, "", false},
      {Manuel, Bifente_A, "03", "0130", Non, Oui, "01", "0128", A_Charger, "A", false},
      {Manuel, Bifente_A, "03", "0130", Oui, Non, "01", "0900", Chargement_Interdit_Bifente, "", false},
      {Manuel, Bifente_A, "03", "0130", Oui, Non, "02", "0001", A_Charger, "K", false},
      {Manuel, Bifente_A, "03", "0130", Oui, Oui, "01", "0130", A_Charger, "KA", false},
      {Manuel, Bifente_A, "03", "0250", Oui, Oui, "02", "0100", A_Charger, "KA", true},
      {Manuel, Bifente_A, "03", "0130", Non, Non, "09", "0900", Chargement_Interdit_Bifente, "", false},
  };
  int Rang = 0;
  for (const auto& C : Cas) {
    SCOPED_TRACE(Rang++);
    for (const bool Avant : {false, true}) {
      Variables_Globales V;
      V.Version_Noyau = C.VN;
      V.Version_Appli = C.VA;
      V.Noyau_Et_Appli = Avant;
      const std::string K = C.K ? "noyau" : Aucune, A = C.A ? "appli" : Aucune, Fin = C.Auto ? "\n\r" : "\r\n";
      const auto R = Decider_Chargement(Reponse_De("INGENICO       ", C.Type, C.OS, C.Version), {C.Auto, K, A}, V);
      std::string Liste;
      for (const char Lettre : C.Ordre) Liste += (Lettre == 'K' ? K : A) + Fin;
      EXPECT_EQ(R.Issue, C.Quoi);
      EXPECT_EQ(R.Liste_Fichiers, Liste);
      EXPECT_EQ(R.Charger_Noyau, C.Ordre.find('K') != std::string::npos);
      EXPECT_EQ(R.Charger_Appli, C.Ordre.find('A') != std::string::npos);
      EXPECT_EQ(R.Famille_Transfert == Famille_Transfert::Charger_Fichier, C.Chargement);
      EXPECT_EQ(V.Noyau_Et_Appli, C.Chargement ? C.Ordre.size() == 2 : Avant);
    }
  }
}

const std::string Scenario_650 = "lectures_muettes = 3; type_os_apres_noyau = 04\n";
const std::string Avant_200 =
    "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; lectures_muettes "
    "= 3\n";
const std::string Depuis_200 =
    "type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; lectures_muettes "
    "= 3\n";
const std::string H = "\t14:30:05\r\n";
const std::string Debut = "PROCEDURE DE CHARGEMENT\r\n=========================\r\nConnexion en cours ... \r\n";
const std::string Connecte = Debut + "Connexion Réussie.\r\n";
const std::string Fin = "Arrêt du Galss\r\n";
const std::string Reussi = "Début du chargement." + H + "Chargement Réussi." + H;
const std::string Echec = "Problème lors du Chargement." + H + "\r\nDéconnexion Réussie";

struct Mise_A_Jour_Test : testing::Test {
  void Preparer(const std::string& Scenario, std::size_t Noyau = 10000, std::size_t Appli = 5000) {
    P = std::make_unique<Poste_De_Test>(Scenario);
    P->Processus.Actifs = {{41, "galsvw32.exe"}, {42, "autre.exe"}};
    if (Noyau != 0) P->Disque.Poser("C:\\Pavorin\\Fexa0500.ing", Contenu(Noyau));
    if (Appli != 0) P->Disque.Poser("C:\\Pavorin\\ER0300.ing", Contenu(Appli));
    P->Demarrer();
    P->App.F.FMain.OptManuel.Active(true);
  }
  void Cliquer() {
    P->App.F.FMain.CmdMaj.Cliquer();
    EXPECT_EQ(P->Disque.Ouverts, 0);
    EXPECT_FALSE(P->App.F.FrmAnimCharg.Ouverte());
    EXPECT_TRUE(P->App.F.FMain.Active());
    EXPECT_EQ(P->Lecteur.Fautes(), std::vector<std::string>{});
  }
  Octets Recu(std::size_t Rang) const { return P->Lecteur.Fichiers().at(Rang).Contenu; }
  int Arrets() const { return static_cast<int>(P->Processus.Termines.size()); }
  std::unique_ptr<Poste_De_Test> P;
};

TEST_F(Mise_A_Jour_Test, Noyau_Et_Application_Dans_Chaque_Famille) {
  for (const bool Chargement : {false, true}) {
    Preparer(Chargement ? Depuis_200 : Avant_200);
    const double Avant = P->Temps.Maintenant;
    std::vector<std::string> Vues;
    P->Ecran.Au_Repos = [&] {
      const auto& F = P->App.F;
      std::string Vue =
          F.FrmAnimCharg.LblTitre.Texte() + "|" + F.FrmAnimCharg.LblCom.Texte() +
          (F.FMain.Souris() == Pointeur::Sablier ? "|sablier" : "|") +
          (F.FMain.Active() || F.FrmAnimCharg.PgbExe.Visible() || F.FrmAnimCharg.LblBlock.Visible() ? "!" : "");
      if (Vues.empty() || Vues.back() != Vue) Vues.push_back(Vue);
    };
    Cliquer();
    const std::string Noyau =
        Chargement ? "Ouverture du fichier. \r\n" : "Ouverture du fichier Fexa0500.ing 10000 Octets.\r\n";
    const std::string Appli =
        Chargement ? "Ouverture du fichier. \r\n" : "Ouverture du fichier ER0300.ing 5000 Octets.\r\n";
    EXPECT_EQ(P->Pane(), Connecte + Noyau + Reussi + Appli + Reussi + Fin);
    EXPECT_EQ(P->Ecran.Boites,
              std::vector<std::string>{"TELECHARGER | Confirmez-vous la mise à jour du ou des fichiers "
                                       "ci-dessous :\r\nFexa0500.ing\n\rER0300.ing\n\r"});
    EXPECT_EQ(Recu(0), Contenu(Chargement ? 9997 : 10000)) << "Contenu(n) is a prefix of any longer one";
    EXPECT_EQ(Recu(1), Contenu(Chargement ? 4997 : 5000));
    const std::string Vue = "Chargement Réussi.|Attendre l'écran de repos du lecteur Elite 650|";
    std::vector<std::string> Attendues = {Vue + "sablier"};
    if (Chargement) Attendues.push_back(Vue);  // the kernel's closing steps restore the pointer
    EXPECT_EQ(Vues, Attendues);
    EXPECT_NEAR(P->Temps.Maintenant - Avant, (Chargement ? 24 : 25) + 7, 0.2);
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Lecture), 1 + 3 + 1);
    EXPECT_EQ(Arrets(), 1);
    EXPECT_EQ(P->App.F.FMain.Souris(), Pointeur::Defaut);
    EXPECT_EQ(P->App.Globales.Version_Appli, Chargement ? "0300" : "0000");
    EXPECT_FALSE(P->App.Globales.Noyau_Et_Appli);
    EXPECT_EQ(P->Profil.Repertoire(), Cp1252_De_Texte("C:\\Pavorin\\"));
  }
}

TEST_F(Mise_A_Jour_Test, Version_Appli_Reste_A_0000_Apres_Un_Telechargement) {
  Preparer(Scenario_650);
  Cliquer();
  EXPECT_EQ(P->Lecteur.Fichiers().size(), 2U);
  P->App.F.FMain.TxtChooseDirectory.Texte("C:\\Pavorin");
  EXPECT_EQ(P->App.Globales.Version_Appli, "0300") << "a rescan sets it again";
}

TEST_F(Mise_A_Jour_Test, Fins_Sans_Chargement) {
  const std::string Refuse = "attention | Impossible de télécharger ce type de terminal !";
  const std::string Interdit = "Impossible d'effectuer la mise à jour, sous peine de rendre inutilisable le terminal";
  const std::string Texte_4096 = "Erreur GALSS 4096 : La session est inconnue\r\n";
  const struct {
    std::string Scenario;
    bool Manuel;
    std::string Boite, Pane;
    int Arrets;
  } Cas[] = {
      {"defaut = OuvrirSession : code 4096", false, Refuse, Debut + Texte_4096 + Texte_4096 + Fin, 1},
      {"defaut = lecture : code 4096", false, Refuse, Connecte + Texte_4096 + Fin, 1},
      {"defaut = lecture : refus 52", false, Refuse,
       Connecte + "Erreur de Téléchargement 52:Format de logiciel incorrect\r\n" + Fin, 1},
      {"num_version = 0126", false, Refuse, Connecte, 0},
      {"", false,
       "Attention | Impossible de mettre à jour le terminal, puisque  une application ou un noyau "
       "récent est manquant !",
       Connecte, 0},
      {Avant_200 + "num_version = 0300; type_os = 06", false,
       "Information | Aucune nouvelle version n'a été détéctée dans ce répertoire",
       Connecte + "Aucune nouvelle version n'a été détéctée dans ce repertoire\r\narrêt du Galss\r\n", 1},
      {"", true, "Attention | " + Interdit + " !!!", Connecte + Interdit + " !!!\r\narrêt du Galss\r\n", 1},
      {Avant_200, true, "Attention | " + Interdit + ".", Connecte + Interdit + ".\r\narrêt du Galss\r\n", 1},
  };
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Scenario);
    const bool Manquant = C.Boite.find("manquant") != std::string::npos;
    Preparer(C.Scenario, Manquant ? 0 : 100, 100);
    if (Manquant) P->App.F.FMain.OptManuel.Choisir(), P->App.F.FMain.OptAuto.Choisir();
    if (C.Manuel) {
      P->App.F.FMain.OptManuel.Choisir();
      P->App.F.FMain.CmdMaj.Active(true);
    }
    P->Ecran.Boites.clear();
    Cliquer();
    EXPECT_EQ(P->Ecran.Boites, std::vector<std::string>{C.Boite});
    EXPECT_EQ(P->Pane(), C.Pane);
    EXPECT_EQ(Arrets(), C.Arrets);
    EXPECT_TRUE(P->Lecteur.Fichiers().empty());
    EXPECT_EQ(P->App.F.FMain.Souris(), Pointeur::Defaut);
  }
  Preparer(Avant_200);
  P->Ecran.Confirmation = Reponse::Non;
  Cliquer();
  EXPECT_EQ(P->Pane(), Connecte + "mise à jour stoppée par l'utilisateur\r\n" + Fin);
  EXPECT_EQ(Arrets(), 1);
}

TEST_F(Mise_A_Jour_Test, Chargement_Refuse) {
  const struct {
    const std::string& Lecteur;
    std::string Defaut;
    int Blocs;
  } Cas[] = {{Avant_200, "demande : refus 51", 0},        {Depuis_200, "demande : refus 146", 0},
             {Avant_200, "bloc 3 : refus 50", 3},         {Depuis_200, "bloc 3 : technique 130", 3},
             {Depuis_200, "bloc 2 : nature 26", 2},       {Avant_200, "bloc 2 : longueur 0", 2},
             {Avant_200, "bloc 1 toujours : code 64", 1}, {Avant_200, "demande : octets 00 00 00", 0},
             {Avant_200, "demande : octets 00 00", 0},    {Depuis_200, "demande : octets 00 02 00", 0}};
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Defaut);
    Preparer(C.Lecteur + "defaut = " + C.Defaut);
    std::string Compteur, Verdict;
    P->Ecran.Au_Repos = [&] {
      Compteur = P->App.F.FrmAnimCharg.LblNumBlock.Texte();
      Verdict = P->App.F.FrmAnimCharg.LblTitre.Texte() + P->App.F.FrmAnimCharg.LblCom.Texte();
    };
    P->App.F.FMain.CmdQuitter.Active(false);
    const double Avant = P->Temps.Maintenant;
    P->App.F.FMain.CmdMaj.Cliquer();
    EXPECT_EQ(Compteur, std::to_string(C.Blocs));
    EXPECT_EQ(Verdict, "Problème lors du Chargement.Chargement Echoué ...");
    EXPECT_NEAR(P->Temps.Maintenant - Avant, 3, 0.1);
    EXPECT_TRUE(P->Pane().ends_with(Echec + Fin)) << P->Pane();
    EXPECT_EQ(P->Pane().find("Début du chargement.") != std::string::npos, C.Blocs > 0);
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Demande), 1) << "no application after a failed kernel";
    EXPECT_FALSE(P->Lecteur.Session_Ouverte());
    EXPECT_TRUE(P->App.F.FMain.CmdQuitter.Active());
    EXPECT_EQ(P->App.F.FMain.Souris(), Pointeur::Defaut);
  }
}

TEST_F(Mise_A_Jour_Test, Tailles_De_Fichier) {
  // One block holds 2043 bytes of data at size byte 4.
  for (const auto& [Taille, Blocs] : {std::pair{1, 1}, {2042, 1}, {2043, 1}, {2044, 2}, {4086, 2}, {4087, 3}, {0, 0}}) {
    SCOPED_TRACE(Taille);
    Preparer(Avant_200, 0, static_cast<std::size_t>(Taille) + 1);
    P->Disque.Fichiers["C:\\Pavorin\\ER0300.ing"] = Contenu(static_cast<std::size_t>(Taille));
    P->App.F.FMain.OptManuel.Choisir();
    P->App.F.FMain.CchosseAppli.Choisir_A_La_Main(0);
    std::string Pourcentage;
    P->Ecran.Au_Repos = [&] { Pourcentage = P->App.F.FrmAnimCharg.LblNumTaille.Texte(); };
    Cliquer();
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Bloc), Blocs);
    EXPECT_EQ(Recu(0), Contenu(static_cast<std::size_t>(Taille)));
    EXPECT_EQ(Pourcentage, Blocs == 0 ? "" : " 100%");
    EXPECT_TRUE(P->Pane().ends_with(Reussi + Fin));
  }
}

TEST_F(Mise_A_Jour_Test, Progression) {
  Preparer(Avant_200 + "taille_bloc = 1", 0, 1521);  // 507 bytes of data per block
  std::vector<std::string> Vues;
  const auto Voir = [&](Cible Operation, int) {
    const auto& F = P->App.F.FrmAnimCharg;
    if (Operation == Cible::Echange && F.Ouverte()) {
      Vues.push_back(F.LblNumBlock.Texte() + F.LblNumTaille.Texte() + " " +
                     std::to_string(F.PgbExe.Valeur()).substr(0, 7));
    }
  };
  P->Lecteur.Avant_Appel = Voir;
  Cliquer();
  EXPECT_EQ(Vues, (std::vector<std::string>{"0 0.00000", "0 0.00000", "1 33% 33.3333", "2 66% 66.6666"}));
}

TEST_F(Mise_A_Jour_Test, Lecteur_Muet_Apres_Le_Noyau) {
  Preparer(Depuis_200 + "lectures_muettes = 20000");
  P->App.F.FMain.CmdMaj.Cliquer();
  EXPECT_EQ(P->Lecteur.Nombre(Cible::Lecture), 1 + 10000);
  EXPECT_EQ(P->Lecteur.Nombre(Cible::Demande), 2) << "the application follows in any case";
  EXPECT_FALSE(P->App.Globales.Noyau_Et_Appli);
}

TEST_F(Mise_A_Jour_Test, Erreurs_Du_Transfert) {
  const struct {
    const char* Appel;
    int Numero;
    bool Ouvert, Boite;
  } Cas[] = {{"Taille", 53, false, false},
             {"Ouvrir_Fichier", 70, false, false},
             {"Lire", 62, true, false},
             {"Galss", 48, true, true}};
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Appel);
    Preparer(Avant_200);
    P->Pannes_.Avant = [&](std::string_view Appel, int) {
      const bool Transfert_En_Cours = Appel != "Galss" || P->App.F.FrmAnimCharg.Ouverte();
      if (Appel == C.Appel && Transfert_En_Cours) throw Erreur(C.Numero, "Panne");
    };
    P->App.F.FMain.CmdQuitter.Active(false);
    const double Avant = P->Temps.Maintenant;
    P->App.F.FMain.CmdMaj.Cliquer();
    const std::string Ligne = "Panne " + std::to_string(C.Numero) + H + (C.Ouvert ? "Fermeture du fichier." + H : "");
    EXPECT_TRUE(P->Pane().ends_with(Ligne + Fin)) << P->Pane();
    EXPECT_EQ(P->Ecran.Boites.size(), C.Boite ? 2U : 1U);
    if (C.Boite) {
      EXPECT_EQ(P->Ecran.Boites.back(), "Télécharger | Vérifiez l'installation du service SESAM-Vitale (GALSS).");
    }
    EXPECT_EQ(P->Temps.Maintenant, Avant) << "no pause";
    EXPECT_TRUE(P->Lecteur.Session_Ouverte()) << "no disconnection";
    EXPECT_TRUE(P->App.F.FMain.CmdQuitter.Active() && P->App.F.FMain.Active());
    EXPECT_EQ(P->Disque.Ouverts, 0);
  }
  for (const std::size_t Taille : {1000003U, 2U}) {
    Preparer(Depuis_200, 0, Taille);
    P->App.F.FMain.CmdMaj.Cliquer();
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Demande), 0);
    EXPECT_TRUE(P->Pane().ends_with(" 5" + H + "Fermeture du fichier." + H + Fin)) << P->Pane();
  }
}

TEST_F(Mise_A_Jour_Test, Erreurs_De_La_Bibliotheque) {
  const std::string Installation = "Télécharger | Vérifiez l'installation du service SESAM-Vitale (GALSS).";
  const std::string Service =
      "Télécharger | Vérifiez le service SESAM-Vitale (GALSS)n'est pas déjà ouvert, si le service "
      "est ouvert veuillez "
      "supprimer cette tache ATL+CTRL+SUPP et séléctionnez galsvw32.exe et faite terminer la "
      "tache.";
  for (const auto& [Numero, Boite] : {std::pair{48, Installation}, {53, Service}, {453, Service}}) {
    for (const int Appel : {1, 3}) {  // session opening, configuration read
      SCOPED_TRACE(Numero * 10 + Appel);
      Preparer(Avant_200);
      P->Lecteur.Avant_Appel = [&, Rang = 0](Cible, int) mutable {
        if (++Rang == Appel) throw Erreur(Numero, "Panne");
      };
      P->App.F.FMain.CmdQuitter.Active(false);
      P->App.F.FMain.CmdMaj.Cliquer();
      EXPECT_EQ(P->Ecran.Boites, std::vector<std::string>{Boite});
      EXPECT_EQ(P->Pane(), Appel == 1 ? Debut : Connecte + "\r\nDéconnexion RéussieDeconnexion Réussie." + H);
      EXPECT_TRUE(P->App.F.FMain.CmdQuitter.Active());
      EXPECT_FALSE(P->Lecteur.Session_Ouverte());
    }
  }
}

TEST_F(Mise_A_Jour_Test, Ouverture_Du_Galss_Sous_Trois_Noms) {
  Preparer(Avant_200 + "lad = log_SV", 0);
  Cliquer();
  EXPECT_EQ(P->Lecteur.Nombre(Cible::OuvrirSession), 3);
  EXPECT_EQ(P->App.Globales.Session.Nom_LAD, "log_SV");
  EXPECT_TRUE(P->Pane().ends_with(Reussi + Fin));
}

TEST_F(Mise_A_Jour_Test, Apropos_Reactive_La_Fenetre_Pendant_La_Pause) {
  Preparer(Avant_200);
  P->App.F.FMain.MnApropos.Cliquer();
  int Clics = 0;
  P->Ecran.Au_Repos = [&] {
    if (Clics++ != 0) return;
    P->App.F.frmAbout.CmdOK.Cliquer();
    P->App.F.FMain.CmdMaj.Cliquer();  // a second update within the first one's pause
  };
  P->App.F.FMain.CmdMaj.Cliquer();
  EXPECT_FALSE(P->App.F.FrmAnimCharg.Ouverte());
  EXPECT_TRUE(P->App.F.FMain.Active());
  EXPECT_EQ(P->Disque.Ouverts, 0);
}

}  // namespace
