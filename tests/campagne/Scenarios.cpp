// The scenarios of the campaign. Blocks carry 507 bytes: small files, several blocks.

#include "tests/campagne/Epreuve.h"

#define AVANT_200 "taille_bloc = 1; type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2; type_os = 02; num_version = 0130; "
#define DEPUIS_200 "taille_bloc = 1; type_lecteur = LEC-V03.00-0065 2.0M-XA-V2; type_os = 04; num_version = 0200; "

namespace {

constexpr auto Tele = AVANT_200 "famille = telechargement", Charge = DEPUIS_200 "famille = chargement";

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
void Charger(Epreuve& E) {
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
  for (const int I : {1, 0}) E.Agir([&] { Dossier.DriveLecteur.Choisir_A_La_Main(I); });
  for (const int I : {3, 1, 2}) E.Agir([&] { Dossier.DirDirectory.Ouvrir_A_La_Main(I); });
  E.Agir([&] { Dossier.CmdOK.Cliquer(); });
  E.Agir([&] { E.FMain.OptManuel.Choisir(); });
}

}  // namespace

const std::vector<Scenario_Campagne> Scenarios_Campagne = {
    {"tele", Tele, Noyau, Appli, Ouvrir, Charger, true},
    {"tele-noyau", Tele, Noyau, 0, Ouvrir, Charger, true},
    {"tele-appli", AVANT_200 "premier_fichier = appli", 0, Appli, Ouvrir, Charger, true},
    {"charge", Charge, Noyau, Appli_Chargee, Ouvrir, Charger, true},
    {"charge-noyau", Charge, Noyau, 0, Ouvrir, Charger, true},
    {"charge-appli", DEPUIS_200 "premier_fichier = appli", 0, Appli_Chargee, Ouvrir, Charger, true},
    {"650", "taille_bloc = 1", Noyau, Appli, Ouvrir, Charger, true},
    {"manuel", Charge, Noyau, Appli_Chargee, Ouvrir_Manuel, Charger, true},
    {"refuse", "num_version = 0126", Noyau, Appli, Ouvrir, Charger, true},
    {"tele-refus", AVANT_200 "defaut = bloc 2 : refus 50", Noyau, Appli, Ouvrir, Charger, true},
    {"charge-panne", DEPUIS_200 "defaut = bloc 2 fichier 2 : technique 130", Noyau, Appli_Chargee, Ouvrir, Charger,
     true},
    {"tele-fenetres", Tele, Noyau, Appli, Ouvrir_Tout, Charger, true},
    {"charge-fenetres", Charge, Noyau, Appli_Chargee, Ouvrir_Tout, Charger, true},
    {"serie-9600", Tele, Noyau, Appli, Ouvrir, Tester, false},
    {"serie-19200", AVANT_200 "vitesses = 19200", Noyau, Appli, Ouvrir, Tester, false},
    {"demarrage", Tele, Noyau, Appli, [](Epreuve&) {}, Demarrer, false},
    {"dialogue", Tele, Noyau, Appli, Ouvrir, Choisir_Dossier, false},
};
