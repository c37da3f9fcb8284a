// The scenarios of the campaign. Blocks carry 507 bytes: small files, several blocks.

#include "tests/campagne/Epreuve.h"

#define AVANT_200 "taille_bloc = 1; type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; "
#define DEPUIS_200 "taille_bloc = 1; type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; "

namespace {

constexpr auto Tele = AVANT_200 "famille = telechargement", Charge = DEPUIS_200 "famille = chargement";

// The application is an exact number of blocks; the second family leaves 3 bytes.
constexpr std::size_t Noyau = 1300, Appli = 1014, Appli_Chargee = Appli + 3;

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
void Demarrer(Epreuve& E) {
  E.Agir([&] { E.Demarrer(); });
  for (const char* Repertoire : {"C:\\Pavorin\\Vide", "C:\\Pavorin\\Logiciels"})
    E.Agir([&] { E.FMain.TxtChooseDirectory.Texte(Repertoire); });
}
void Choisir_Dossier(Epreuve& E) {
  auto& Dossier = E.App.F.FDossierING;
  E.Agir([&] { E.FMain.CmdChooseDirectory.Cliquer(); });
  for (const int I : {1, 0}) E.Agir([&] { Dossier.DriveLecteur.Choisir_A_La_Main(I); });
  for (const int I : {3, 1, 2}) E.Agir([&] { Dossier.DirDirectory.Ouvrir_A_La_Main(I); });
  E.Agir([&] { Dossier.CmdOK.Cliquer(); });
  E.Agir([&] { E.FMain.OptManuel.Choisir(); });
}

}  // namespace

const std::map<std::string, Scenario_Campagne> Scenarios_Campagne = {
    {"tele", {Tele, Noyau, Appli}},
    {"tele-noyau", {Tele, Noyau, 0}},
    {"tele-appli", {AVANT_200 "premier_fichier = appli", 0, Appli}},
    {"charge", {Charge, Noyau, Appli_Chargee}},
    {"charge-noyau", {Charge, Noyau, 0}},
    {"charge-appli", {DEPUIS_200 "premier_fichier = appli", 0, Appli_Chargee}},
    {"650", {"taille_bloc = 1", Noyau, Appli}},
    {"manuel", {Charge, Noyau, Appli_Chargee, &Epreuve::Mettre_A_Jour, Ouvrir_Manuel}},
    {"refuse", {"num_version = 0126", Noyau, Appli}},
    {"aucune", {DEPUIS_200 "type_os = 06; num_version = 0300", Noyau, Appli}},
    // By hand the kernel alone is forbidden; without a hand the application is missing.
    {"interdit", {"taille_bloc = 1", Noyau, 0, &Epreuve::Mettre_A_Jour, Ouvrir_Manuel}},
    {"tele-refus", {AVANT_200 "defaut = bloc 2 : refus 50", Noyau, Appli}},
    {"charge-panne", {DEPUIS_200 "defaut = bloc 2 fichier 2 : technique 130", Noyau, Appli_Chargee}},
    {"tele-fenetres", {Tele, Noyau, Appli, &Epreuve::Mettre_A_Jour, Ouvrir_Tout}},
    {"charge-fenetres", {Charge, Noyau, Appli_Chargee, &Epreuve::Mettre_A_Jour, Ouvrir_Tout}},
    {"serie-9600", {Tele, Noyau, Appli, &Epreuve::Tester}},
    {"serie-19200", {AVANT_200 "vitesses = 19200", Noyau, Appli, &Epreuve::Tester}},
    {"demarrage", {Tele, Noyau, Appli, Demarrer, [](Epreuve&) {}}},
    {"dialogue", {Tele, Noyau, Appli, Choisir_Dossier}},
};
