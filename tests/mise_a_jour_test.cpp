// Whole updates, read as an operator would: what the pane says, which boxes came up, what the
// reader received byte for byte, what is enabled at the end.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"
#include "update/Decider_Chargement.h"

namespace {

const std::string Aucune = "Pas de mise à jour";
// Manufacturer and type, as a reader gives them.
const std::string Elite = "INGENICO       INGENICO  650                 ";
const std::string Bifente_A = "INGENICO       LECTEUR BIFENTE 2.0M-XA-V2????";
const std::string Bifente_B = "INGENICO       LEC-V03.00-0065 2.0M-XA-V2    ";

Octets Reponse_De(const std::string& Type, const std::string& OS, const std::string& Version) {
  const std::string Texte = "\x01" + Type + std::string(20, '#') + OS + std::string(30, 'a') + Version;
  return Octets(Texte.begin(), Texte.end());
}

TEST(Decision, Reponse_Trop_Courte_Ou_Vide) {
  Variables_Globales V;
  for (const Octets& Reponse : {Octets{}, Octets(2048, ' '), Octets{0, 52}}) {
    EXPECT_EQ(Decider_Chargement(Reponse, {}, V).Issue, Issue_Decision::Terminal_Refuse);
  }
}

TEST(Decision, Regles) {
  using enum Issue_Decision;
  const bool Auto = true, Manuel = false, Oui = true, Non = false;
  // Mode, reader, its OS and version, kernel and application chosen or not, their versions, then what
  // is expected: issue, files in the order of the list, family.
  const struct {
    bool Automatique;
    std::string Type, OS, Version;
    bool K, A;
    std::string VN, VA;
    Issue_Decision Quoi;
    std::string Ordre;
    bool Chargement;
  } Cas[] = {
      {Auto, Elite, "03", "0128", Oui, Oui, "04", "0300", Terminal_Refuse, "", false},
      {Auto, Elite, "02", "0127", Oui, Oui, "04", "0300", Terminal_Refuse, "", false},
      {Auto, "INGENICO       INGENICO 650                  ", "03", "0127", Oui, Oui, "", "", Terminal_Refuse, "",
       false},
      {Auto, "Ingenico       INGENICO  650                 ", "03", "0127", Oui, Oui, "", "", Terminal_Refuse, "",
       false},
      {Auto, "INGENICO      XLECTEUR BIFENTE 2.0M-XA-V2    ", "04", "0130", Oui, Oui, "", "", Terminal_Refuse, "",
       false},
      {Auto, "INGENICO       lecteur bifente 2.0M-XA-V2    ", "04", "0130", Oui, Oui, "", "", Terminal_Refuse, "",
       false},
      {Auto, Bifente_A, "01", "0130", Oui, Oui, "04", "0300", Terminal_Refuse, "", false},
      {Auto, Bifente_B, "03", "0130", Oui, Oui, "04", "0300", Terminal_Refuse, "", false},
      {Auto, Bifente_A, "02", "0001", Oui, Non, "02", "", A_Charger, "K", false},
      {Auto, Bifente_A, " 9", "0130", Oui, Oui, "09", "0130", A_Charger, "K", false},
      {Auto, Bifente_B, "04", "0130", Oui, Oui, "03", "0131", A_Charger, "A", false},
      {Auto, Elite, "03", "0127", Oui, Oui, "02", "0130", A_Charger, "KA", false},
      {Auto, Elite, "03", "0127", Oui, Non, "02", "", Noyau_Ou_Appli_Manquant, "K", false},
      {Auto, Elite, "03", "0127", Oui, Non, "02", "0128", A_Charger, "KA", false},
      {Auto, Elite, "03", "0127", Non, Oui, "", "0130", Noyau_Ou_Appli_Manquant, "A", false},
      {Auto, Elite, "03", "0127", Non, Oui, "01", "0130", Noyau_Ou_Appli_Manquant, "A", false},
      {Auto, Elite, "03", "0127", Non, Oui, "02", "0130", A_Charger, "KA", false},
      {Auto, Elite, "03", "0127", Non, Non, "", "0127", Noyau_Ou_Appli_Manquant, "", false},
      {Auto, Bifente_A, "03", "0130", Oui, Oui, "03", "0130", A_Charger, "K", false},
      {Auto, Bifente_A, "03", "0130", Oui, Oui, "02", "0131", A_Charger, "A", false},
      {Auto, Bifente_A, "03", "0130", Oui, Oui, "02", "0130", Aucune_Nouvelle_Version, "", false},
      {Auto, Bifente_A, "03", "0130", Non, Non, "09", "0900", Aucune_Nouvelle_Version, "", false},
      {Auto, Bifente_A, "03", "0199", Oui, Oui, "03", "0200", A_Charger, "KA", false},
      {Auto, Bifente_A, "03", "0200", Oui, Oui, "03", "0201", A_Charger, "KA", true},
      {Auto, Bifente_B, "04", "0200", Non, Oui, "", "0201", A_Charger, "A", true},
      {Manuel, Elite, "03", "0127", Non, Oui, "03", "0127", A_Charger, "A", false},   // application alone
      {Manuel, Elite, "03", "0127", Non, Non, "01", "0127", A_Charger, "A", false},   // application before kernel
      {Manuel, Elite, "03", "0127", Oui, Non, "01", "0130", A_Charger, "K", false},   // kernel alone
      {Manuel, Elite, "03", "0127", Oui, Oui, "01", "0127", A_Charger, "KA", false},  // both of the first generation
      {Manuel, Elite, "03", "0127", Oui, Oui, "03", "0130", A_Charger, "KA", false},  // both later
      {Manuel, Elite, "03", "0127", Oui, Non, "03", "0130", A_Charger, "KA", false},  // both later
      {Manuel, Elite, "03", "0127", Oui, Oui, "03", "0127", A_Charger, "A", false},   // the one of the first generation
      {Manuel, Elite, "03", "0127", Oui, Oui, "01", "0130", A_Charger, "K", false},   // the one of the first generation
      {Manuel, Elite, "03", "0127", Non, Oui, "01", "0126", A_Charger, "K", false},   // the one of the first generation
      {Manuel, Elite, "03", "0127", Oui, Non, "02", "0126", Chargement_Interdit_650, "", false},
      {Manuel, Elite, "03", "0127", Non, Oui, "02", "0130", Chargement_Interdit_650, "", false},
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
    // A list without a text, as after the start-up, chooses no more than "Pas de mise à jour".
    for (const auto& [Avant, Rien] : {std::pair{false, Aucune}, {true, std::string()}}) {
      Variables_Globales V;
      V.Version_Noyau = C.VN;
      V.Version_Appli = C.VA;
      V.Noyau_Et_Appli = Avant;
      const std::string K = C.K ? "noyau" : Rien, A = C.A ? "appli" : Rien, Fin = C.Automatique ? "\n\r" : "\r\n";
      const auto R = Decider_Chargement(Reponse_De(C.Type, C.OS, C.Version), {C.Automatique, K, A}, V);
      std::string Liste;
      for (const char Lettre : C.Ordre) Liste += (Lettre == 'K' ? K : A) + Fin;
      EXPECT_EQ(R.Issue, C.Quoi);
      EXPECT_EQ(R.Liste_Fichiers, Liste);
      EXPECT_EQ(R.Charger_Noyau, C.Ordre.find('K') != std::string::npos);
      EXPECT_EQ(R.Charger_Appli, C.Ordre.find('A') != std::string::npos);
      EXPECT_EQ(R.Famille_Transfert == Operation_Transfert::Charger_Fichier, C.Chargement);
      EXPECT_EQ(V.Noyau_Et_Appli, C.Chargement ? C.Ordre.size() == 2 : Avant);
    }
  }
}

const std::string Avant_200 =
    "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; lectures_muettes = 3\n";
const std::string Depuis_200 =
    "type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; lectures_muettes = 3\n";
const std::string H = "\t14:30:05\r\n";
const std::string Debut = "PROCEDURE DE CHARGEMENT\r\n=========================\r\nConnexion en cours ... \r\n";
const std::string Connecte = Debut + "Connexion Réussie.\r\n";
const std::string Fin = "Arrêt du Galss\r\n";
const std::string Reussi = "Début du chargement." + H + "Chargement Réussi." + H;
const std::string Confirmer =
    "TELECHARGER | Confirmez-vous la mise à jour du ou des fichiers ci-dessous :\r\n"
    "Fexa0500.ing\n\rER0300.ing\n\r | question | oui, non";
const std::string Installation = "Télécharger | Vérifiez l'installation du service SESAM-Vitale (GALSS).";
const std::string Service =
    "Télécharger | Vérifiez le service SESAM-Vitale (GALSS)n'est pas déjà ouvert, si le service est ouvert veuillez "
    "supprimer cette tache ATL+CTRL+SUPP et séléctionnez galsvw32.exe et faite terminer la tache.";

struct Mise_A_Jour_Test : testing::Test {
  void Preparer(const std::string& Scenario, std::size_t Noyau = 10000, std::size_t Appli = 5000) {
    P = std::make_unique<Poste_De_Test>(Scenario);
    P->Processus.Actifs = {{41, "galsvw32.exe"}, {42, "autre.exe"}};
    if (Noyau != 0) P->Disque.Poser("C:\\Pavorin\\Fexa0500.ing", Contenu(Noyau));
    if (Appli != 0) P->Disque.Poser("C:\\Pavorin\\ER0300.ing", Contenu(Appli));
    P->Demarrer();
    FMain().OptManuel.Active(true);
    FMain().CmdQuitter.Active(false);
  }
  /// An update, and what holds after any; how many seconds it took.
  double Mettre_A_Jour() {
    const double Avant = P->Temps.Maintenant;
    FMain().CmdMaj.Cliquer();
    EXPECT_EQ(P->Disque.Ouverts, 0);
    EXPECT_FALSE(Progression().Ouverte());
    EXPECT_TRUE(FMain().Active());
    return P->Temps.Maintenant - Avant;
  }
  Fenetre_Principale& FMain() { return P->App.F.FMain; }
  Fenetre_Progression& Progression() { return P->App.F.FrmAnimCharg; }
  const Octets& Recu(std::size_t Rang) const { return P->Lecteur.Fichiers().at(Rang).Contenu; }
  std::size_t Arrets() const { return P->Processus.Termines.size(); }
  std::unique_ptr<Poste_De_Test> P;
};

TEST_F(Mise_A_Jour_Test, Noyau_Et_Application_Dans_Chaque_Famille) {
  for (const bool Chargement : {false, true}) {
    Preparer(Chargement ? Depuis_200 : Avant_200);
    std::vector<std::string> Vues;
    P->Ecran.Au_Repos = [&] {
      const std::string Vue = Progression().LblTitre.Texte() + "|" + Progression().LblCom.Texte() +
                              (FMain().Souris() == Pointeur::Sablier ? "|sablier" : "|");
      if (Vues.empty() || Vues.back() != Vue) Vues.push_back(Vue);
      EXPECT_FALSE(FMain().Active() || Progression().PgbExe.Visible() || Progression().LblBlock.Visible());
    };
    bool Commence = false;
    P->Pannes_.Avant = [&](std::string_view Appel, int) {
      Commence = Commence || Appel == "Taille";
      EXPECT_EQ(P->Ecran.Eveille, Commence) << Appel << ": awake from the first file to the last";
    };
    EXPECT_NEAR(Mettre_A_Jour(), (Chargement ? 24 : 25) + 7, 0.2);
    EXPECT_FALSE(P->Ecran.Eveille);
    P->Pannes_.Avant = {};
    const std::string Noyau = Chargement ? ". " : " Fexa0500.ing 10000 Octets.";
    const std::string Appli = Chargement ? ". " : " ER0300.ing 5000 Octets.";
    EXPECT_EQ(P->Pane(), Connecte + "Ouverture du fichier" + Noyau + "\r\n" + Reussi + "Ouverture du fichier" + Appli +
                             "\r\n" + Reussi + Fin);
    EXPECT_EQ(P->Ecran.Boites, std::vector{Confirmer});
    EXPECT_EQ(Recu(0), Contenu(Chargement ? 9997 : 10000)) << "Contenu(n) is a prefix of any longer one";
    EXPECT_EQ(Recu(1), Contenu(Chargement ? 4997 : 5000));
    EXPECT_EQ(P->Lecteur.Fautes(), std::vector<std::string>());
    const std::string Vue = "Chargement Réussi.|Attendre l'écran de repos du lecteur Elite 650|";
    std::vector<std::string> Attendues = {Vue + "sablier"};
    if (Chargement) Attendues.push_back(Vue);  // the kernel's closing steps restore the pointer
    EXPECT_EQ(Vues, Attendues);
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Lecture), 1 + 3 + 1);
    EXPECT_EQ(Arrets(), 1U);
    EXPECT_EQ(FMain().Souris(), Pointeur::Defaut);
    EXPECT_FALSE(P->App.Globales.Noyau_Et_Appli);
    EXPECT_EQ(P->Profil.Repertoire(), Cp1252_De_Texte("C:\\Pavorin\\"));
    EXPECT_EQ(P->App.Globales.Version_Appli, Chargement ? "0300" : "0000");
    FMain().TxtChooseDirectory.Texte("C:\\Pavorin");
    EXPECT_EQ(P->App.Globales.Version_Appli, "0300") << "a rescan sets it again";
  }
}

TEST_F(Mise_A_Jour_Test, Fins_Sans_Chargement) {
  const std::string Refuse = "attention | Impossible de télécharger ce type de terminal !";
  const std::string Manquant =
      "Attention | Impossible de mettre à jour le terminal, puisque  une application ou un noyau récent est manquant !";
  const std::string Rien = "Aucune nouvelle version n'a été détéctée dans ce ";
  const std::string Interdit = "Impossible d'effectuer la mise à jour, sous peine de rendre inutilisable le terminal";
  const std::string Texte_4096 = "Erreur GALSS 4096 : La session est inconnue\r\n";
  const struct {
    std::string Scenario, Modes, Boite, Pane;  // modes set after the start: M, A; without the kernel: K, or the
    std::size_t Arrets;                        // application: P
  } Cas[] = {
      {"defaut = OuvrirSession : code 4096", "", Refuse, Debut + Texte_4096 + Texte_4096 + Fin, 1},
      {"defaut = lecture : code 4096", "", Refuse, Connecte + Texte_4096 + Fin, 1},
      {"defaut = lecture : refus 52", "", Refuse,
       Connecte + "Erreur de Téléchargement 52:Format de logiciel incorrect\r\n" + Fin, 1},
      {"num_version = 0126", "", Refuse, Connecte, 0},
      {"", "KMA", Manquant, Connecte, 0},
      {"", "K", Manquant, Connecte, 0},
      {"", "P", Manquant, Connecte, 0},
      {Avant_200 + "num_version = 0300; type_os = 06", "", "Information | " + Rien + "répertoire",
       Connecte + Rien + "repertoire\r\narrêt du Galss\r\n", 1},
      {"", "M", "Attention | " + Interdit + " !!!", Connecte + Interdit + " !!!\r\narrêt du Galss\r\n", 1},
      {Avant_200, "M", "Attention | " + Interdit + ".", Connecte + Interdit + ".\r\narrêt du Galss\r\n", 1},
      {Avant_200, "", Confirmer, Connecte + "mise à jour stoppée par l'utilisateur\r\n" + Fin, 1},
  };
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Boite);
    const auto Demande = [&](char Lettre) { return C.Modes.find(Lettre) != std::string::npos; };
    Preparer(C.Scenario, Demande('K') ? 0 : 100, Demande('P') ? 0 : 100);
    if (Demande('M')) FMain().OptManuel.Choisir();
    if (Demande('A')) FMain().OptAuto.Choisir();
    FMain().CmdMaj.Active(true);
    P->Ecran.Boites.clear();
    P->Ecran.Confirmation = Reponse::Non;
    Mettre_A_Jour();
    EXPECT_EQ(P->Ecran.Boites, std::vector{C.Boite});
    EXPECT_EQ(P->Pane(), C.Pane);
    EXPECT_EQ(Arrets(), C.Arrets);
    EXPECT_TRUE(P->Lecteur.Fichiers().empty() && P->Lecteur.Fautes().empty());
    EXPECT_EQ(FMain().Souris(), Pointeur::Defaut);
  }
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
             {Avant_200, "demande : longueur 4", 0},      {Avant_200, "bloc 2 : longueur 3", 2},
             {Avant_200, "demande : octets 00 00", 0},    {Depuis_200, "demande : octets 00 02 00", 0}};
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Defaut);
    Preparer(C.Lecteur + "defaut = " + C.Defaut);
    std::string Vue;
    P->Ecran.Au_Repos = [&] {
      const auto& F = Progression();
      Vue = F.LblNumBlock.Texte() + F.LblTitre.Texte() + F.LblCom.Texte();
    };
    EXPECT_NEAR(Mettre_A_Jour(), 3, 0.1);
    EXPECT_EQ(Vue, std::to_string(C.Blocs) + "Problème lors du Chargement.Chargement Echoué ...");
    EXPECT_TRUE(P->Pane().ends_with("Problème lors du Chargement." + H + "\r\nDéconnexion Réussie" + Fin)) << P->Pane();
    EXPECT_EQ(P->Pane().find("Début du chargement.") != std::string::npos, C.Blocs > 0);
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Demande), 1) << "no application after a failed kernel";
    EXPECT_FALSE(P->Lecteur.Session_Ouverte());
    EXPECT_TRUE(FMain().CmdQuitter.Active());
    EXPECT_EQ(FMain().Souris(), Pointeur::Defaut);
  }
}

TEST_F(Mise_A_Jour_Test, Tailles_De_Fichier) {
  // One block holds 2043 bytes of data at size byte 4.
  for (const auto& [Taille, Blocs] :
       {std::pair<std::size_t, int>{1, 1}, {2042, 1}, {2043, 1}, {2044, 2}, {4086, 2}, {4087, 3}, {0, 0}}) {
    SCOPED_TRACE(Taille);
    Preparer(Avant_200, 0, Taille + 1);
    P->Disque.Fichiers["C:\\Pavorin\\ER0300.ing"] = Contenu(Taille);
    FMain().OptManuel.Choisir();
    FMain().CchosseAppli.Choisir_A_La_Main(0);
    std::string Pourcentage;
    P->Ecran.Au_Repos = [&] { Pourcentage = Progression().LblNumTaille.Texte(); };
    Mettre_A_Jour();
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Bloc), Blocs);
    EXPECT_EQ(Recu(0), Contenu(Taille));
    EXPECT_EQ(Pourcentage, Blocs == 0 ? "" : " 100%");
    EXPECT_TRUE(P->Pane().ends_with(Reussi + Fin));
  }
}

TEST_F(Mise_A_Jour_Test, Blocs_Montres) {
  Preparer(Avant_200 + "taille_bloc = 1", 0, 1521);  // 507 bytes of data per block
  std::vector<std::string> Vues;
  P->Lecteur.Avant_Appel = [&](Cible Operation, int) {
    const auto& F = Progression();
    if (Operation != Cible::Echange || !F.Ouverte()) return;
    const std::string Barre = std::to_string(F.PgbExe.Valeur()).substr(0, 7);
    Vues.push_back(F.LblNumBlock.Texte() + F.LblNumTaille.Texte() + " " + Barre);
  };
  Mettre_A_Jour();
  EXPECT_EQ(Vues, (std::vector<std::string>{"0 0.00000", "0 0.00000", "1 33% 33.3333", "2 66% 66.6666"}));
}

TEST_F(Mise_A_Jour_Test, Disque_Retire_Pendant_Le_Transfert) {
  Preparer(Depuis_200, 0, 5003);
  std::string Lectures;
  P->Pannes_.Avant = [&](std::string_view Appel, int) {
    if (Appel == "Lire") Lectures += Progression().LblNumBlock.Texte() + "; ";
    if (Appel == "Galss" && Progression().Ouverte()) P->Disque.Fichiers.clear();
  };
  Mettre_A_Jour();
  EXPECT_EQ(Lectures, "0; ") << "once, the progress window up";
  EXPECT_EQ(Recu(0), Contenu(5000));
  EXPECT_TRUE(P->Pane().ends_with(Reussi + Fin)) << P->Pane();
}

TEST_F(Mise_A_Jour_Test, Lecteur_Muet_Apres_Le_Noyau) {
  Preparer(Depuis_200 + "lectures_muettes = 20000");
  Mettre_A_Jour();
  EXPECT_EQ(P->Lecteur.Nombre(Cible::Lecture), 1 + 10000);
  EXPECT_EQ(P->Lecteur.Nombre(Cible::Demande), 2) << "the application follows in any case";
  EXPECT_FALSE(P->App.Globales.Noyau_Et_Appli);
}

TEST_F(Mise_A_Jour_Test, Erreurs_Du_Transfert) {
  const struct {
    std::string Appel;
    int Numero;
    std::string Fermeture, Boite;  // the box after the confirmation, if any
  } Cas[] = {{"Taille", 53, "", ""},
             {"Ouvrir_Fichier", 70, "", ""},
             {"Lire", 62, "Fermeture du fichier." + H, ""},
             {"Galss", 48, "Fermeture du fichier." + H, Installation}};
  for (const auto& C : Cas) {
    SCOPED_TRACE(C.Appel);
    Preparer(Avant_200);
    P->Pannes_.Avant = [&](std::string_view Appel, int) {
      const bool Pendant = Appel != "Galss" || Progression().Ouverte();
      if (Appel == C.Appel && Pendant) throw Erreur(C.Numero, "Panne");
    };
    EXPECT_EQ(Mettre_A_Jour(), 0) << "no pause";
    const std::string Ligne = "Panne " + std::to_string(C.Numero) + H;
    EXPECT_TRUE(P->Pane().ends_with(Ligne + C.Fermeture + Fin)) << P->Pane();
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Demande), 0) << "nothing sent";
    EXPECT_EQ(P->Ecran.Boites.back(), C.Boite.empty() ? Confirmer : C.Boite);
    EXPECT_TRUE(P->Lecteur.Session_Ouverte()) << "no disconnection";
    EXPECT_TRUE(FMain().CmdQuitter.Active());
  }
  for (const std::size_t Taille : {1000003U, 2U}) {
    Preparer(Depuis_200, 0, Taille);
    P->Pannes_.Avant = [](std::string_view Appel, int) { EXPECT_NE(Appel, "Lire") << "refused before it is read"; };
    Mettre_A_Jour();
    EXPECT_EQ(P->Lecteur.Nombre(Cible::Demande), 0);
    EXPECT_TRUE(P->Pane().ends_with(" 5" + H + "Fermeture du fichier." + H + Fin)) << P->Pane();
  }
}

TEST_F(Mise_A_Jour_Test, Erreurs_De_La_Bibliotheque) {
  for (const auto& [Numero, Boite] : {std::pair{48, Installation}, {53, Service}, {453, Service}}) {
    for (const int Appel : {1, 3}) {  // session opening, configuration read
      SCOPED_TRACE(Numero * 10 + Appel);
      const Erreur Panne(Numero, "Panne");
      Preparer(Avant_200);
      P->Lecteur.Avant_Appel = [&](Cible, int Rang) {
        if (Rang == Appel) throw Panne;
      };
      Mettre_A_Jour();
      EXPECT_EQ(P->Ecran.Boites, std::vector{Boite});
      EXPECT_EQ(P->Pane(), Appel == 1 ? Debut : Connecte + "\r\nDéconnexion RéussieDeconnexion Réussie." + H);
      EXPECT_TRUE(FMain().CmdQuitter.Active());
      EXPECT_FALSE(P->Lecteur.Session_Ouverte());
    }
  }
}

}  // namespace
