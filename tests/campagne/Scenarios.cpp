// The scenarios of the campaign. Blocks carry 507 bytes: small files, several blocks.

#include "tests/campagne/Epreuve.h"

namespace {

constexpr auto Avant_200 =
    "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; taille_bloc = 1; "
    "famille = telechargement";
constexpr auto Depuis_200 =
    "type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; taille_bloc = 1; "
    "famille = chargement";
constexpr auto Appli_Avant_200 =
    "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; taille_bloc = 1; "
    "premier_fichier = appli";
constexpr auto Appli_Depuis_200 =
    "type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; taille_bloc = 1; "
    "premier_fichier = appli";
constexpr auto Bloc_Refuse =
    "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; taille_bloc = 1; "
    "defaut = bloc 2 : refus 50";
constexpr auto Bloc_En_Panne =
    "type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; taille_bloc = 1; "
    "defaut = bloc 2 fichier 2 : technique 130";
constexpr auto A_19200 =
    "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; taille_bloc = 1; "
    "vitesses = 19200";

// The application is an exact number of blocks; the second family leaves 3 bytes.
constexpr std::size_t Noyau = 1300, Appli = 2 * 507, Appli_Chargee = Appli + 3;

void Ouvrir(Epreuve& E) {
  E.Demarrer();
}
void Ouvrir_Manuel(Epreuve& E) {
  E.Demarrer();
  E.FMain.OptManuel.Choisir();
  E.FMain.CchooseNoyau.Choisir_A_La_Main(0);
  E.FMain.CchosseAppli.Choisir_A_La_Main(0);
}
void Ouvrir_Tout(Epreuve& E) {
  E.Demarrer();
  E.FMain.MnApropos.Cliquer();
  E.FMain.CmdChooseDirectory.Cliquer();
}
void Mettre_A_Jour(Epreuve& E) {
  E.Mettre_A_Jour();
}
void Tester(Epreuve& E) {
  E.Tester();
}
void Demarrer(Epreuve& E) {
  E.Agir([&] { E.Demarrer(); });
  for (const char* Repertoire : {"C:\\Pavorin\\Vide", "C:\\Pavorin\\Logiciels"}) {
    E.Agir([&] { E.FMain.TxtChooseDirectory.Texte(Repertoire); });
  }
}
void Choisir_Dossier(Epreuve& E) {
  auto& Dossier = E.App.F.FDossierING;
  E.Agir([&] { E.FMain.CmdChooseDirectory.Cliquer(); });
  for (const int Lecteur : {1, 0}) {
    E.Agir([&] { Dossier.DriveLecteur.Choisir_A_La_Main(Lecteur); });
  }
  for (const int Ligne : {3, 1, 2}) {
    E.Agir([&] { Dossier.DirDirectory.Ouvrir_A_La_Main(Ligne); });
  }
  E.Agir([&] { Dossier.CmdOK.Cliquer(); });
  E.Agir([&] { E.FMain.OptManuel.Choisir(); });
}

}  // namespace

const std::vector<Scenario_Campagne> Scenarios_Campagne = {
    {"tele", Avant_200, Noyau, Appli, Ouvrir, Mettre_A_Jour, true},
    {"tele-noyau", Avant_200, Noyau, 0, Ouvrir, Mettre_A_Jour, true},
    {"tele-appli", Appli_Avant_200, 0, Appli, Ouvrir, Mettre_A_Jour, true},
    {"charge", Depuis_200, Noyau, Appli_Chargee, Ouvrir, Mettre_A_Jour, true},
    {"charge-noyau", Depuis_200, Noyau, 0, Ouvrir, Mettre_A_Jour, true},
    {"charge-appli", Appli_Depuis_200, 0, Appli_Chargee, Ouvrir, Mettre_A_Jour, true},
    {"650", "taille_bloc = 1", Noyau, Appli, Ouvrir, Mettre_A_Jour, true},
    {"manuel", Depuis_200, Noyau, Appli_Chargee, Ouvrir_Manuel, Mettre_A_Jour, true},
    {"refuse", "num_version = 0126", Noyau, Appli, Ouvrir, Mettre_A_Jour, true},
    {"tele-refus", Bloc_Refuse, Noyau, Appli, Ouvrir, Mettre_A_Jour, true},
    {"charge-panne", Bloc_En_Panne, Noyau, Appli_Chargee, Ouvrir, Mettre_A_Jour, true},
    {"tele-fenetres", Avant_200, Noyau, Appli, Ouvrir_Tout, Mettre_A_Jour, true},
    {"charge-fenetres", Depuis_200, Noyau, Appli_Chargee, Ouvrir_Tout, Mettre_A_Jour, true},
    {"serie-9600", Avant_200, Noyau, Appli, Ouvrir, Tester, false},
    {"serie-19200", A_19200, Noyau, Appli, Ouvrir, Tester, false},
    {"demarrage", Avant_200, Noyau, Appli, [](Epreuve&) {}, Demarrer, false},
    {"dialogue", Avant_200, Noyau, Appli, Ouvrir, Choisir_Dossier, false},
};
