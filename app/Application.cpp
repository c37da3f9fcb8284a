#include "app/Application.h"

Application::Application(const Machine& Poste)
    : F(Poste.Ecran, Poste.Disque),
      Ecran_(Poste.Ecran),
      Panneau_(F.FMain, Globales, Poste.Ecran),
      Catalogue_(Poste.Disque, F.FMain, Globales),
      Reglages_(Poste, F.FMain, Panneau_, Catalogue_),
      Dossier_(Poste, F, Globales, Catalogue_),
      Procedure_(Poste, F, Globales, Reglages_),
      Test_(Poste, F, Globales) {
  Attacher_Principale();
  Attacher_Panneau();
  Attacher_Dossier();
  Attacher_Apropos();
}

void Application::Form_Load() {
  F.FMain.Montrer();
  for (Image* Voyant : {&F.FMain.ImgRed, &F.FMain.ImgYellow, &F.FMain.ImgGreen, &F.FMain.ImgRed2,
                        &F.FMain.ImgYellow2, &F.FMain.ImgGreen2}) {
    Voyant->Visible(false);
  }
  F.FMain.CmdMaj.Active(false);
  F.FMain.CchooseNoyau.Active(false);
  F.FMain.CchosseAppli.Active(false);
  Globales.Catalogue = {};
  Reglages_.Lire_Repertoire_INI();
}

// "&Quitter" of the menu has no handler: only the button ends the program.
void Application::Attacher_Principale() {
  F.FMain.CmdMaj.Clic = [this] { Procedure_.CmdMaj_Click(); };
  F.FMain.CmdQuitter.Clic = [this] { CmdQuitter_Click(); };
  F.FMain.MnLecteur.Clic = [this] { Test_.MnLecteur_Click(); };
  F.FMain.MnApropos.Clic = [this] { MnApropos_Click(); };
  F.FrmResultParam.CmdOK.Clic = [this] { Test_.CmdOK_Click(); };
  F.FrmResultParam.Fermeture = F.FrmResultParam.CmdOK.Clic;
  for (Fenetre* Une : std::initializer_list<Fenetre*>{&F.FMain, &F.FDossierING, &F.FrmAnimCharg,
                                                      &F.FrmResultParam, &F.frmAbout}) {
    Une->Dechargement = [this] { Finir_Sans_Fenetre(); };
  }
}

void Application::Attacher_Panneau() {
  F.FMain.OptAuto.Clic = [this] { Panneau_.OptAuto_Click(); };
  F.FMain.OptManuel.Clic = [this] { Panneau_.OptManuel_Click(); };
  F.FMain.CchooseNoyau.Clic = [this] { Panneau_.CchooseNoyau_Click(); };
  F.FMain.CchosseAppli.Clic = [this] { Panneau_.CchosseAppli_Click(); };
  // The text of a list is always one of its entries.
  F.FMain.CchooseNoyau.Saisie = [this] { F.FMain.CchooseNoyau.Choisir(0); };
  F.FMain.CchosseAppli.Saisie = [this] { F.FMain.CchosseAppli.Choisir(0); };
}

void Application::Attacher_Dossier() {
  F.FMain.TxtChooseDirectory.Changement = [this] { Reglages_.Traitement_Repertoire(); };
  F.FMain.CmdChooseDirectory.Clic = [this] { Dossier_.CmdChooseDirectory_Click(); };
  F.FDossierING.Chargement = [this] { Dossier_.Form_Load(); };
  F.FDossierING.DriveLecteur.Changement = [this] { Dossier_.DriveLecteur_Change(); };
  F.FDossierING.DirDirectory.Changement = [this] { Dossier_.DirDirectory_Change(); };
  F.FDossierING.CmdOK.Clic = [this] { Dossier_.CmdOK_Click(); };
  F.FDossierING.CmdAnnul.Clic = [this] { Dossier_.CmdAnnul_Click(); };
}

void Application::Attacher_Apropos() {
  F.frmAbout.CmdOK.Clic = [this] { CmdOK_Click(); };
  F.frmAbout.Image1.Clic = [this] { Informer("Programme réalisé par l'équipe Pavorin."); };
  F.frmAbout.picIcon.Clic = [this] {
    Informer("Avec la participation de la société INGENICO, constructeur du lecteur ELITE 650.");
  };
}

// Nothing is asked, saved or closed, whatever runs.
void Application::CmdQuitter_Click() {
  Ecran_.Quitter();
}

void Application::MnApropos_Click() {
  F.frmAbout.Montrer();
}

void Application::CmdOK_Click() {
  F.FMain.Active(true);
  F.frmAbout.Decharger();
}

// The program ends once none of its windows remains open.
void Application::Finir_Sans_Fenetre() {
  const bool Reste = F.FMain.Ouverte() || F.FDossierING.Ouverte() || F.FrmAnimCharg.Ouverte() ||
                     F.FrmResultParam.Ouverte() || F.frmAbout.Ouverte();
  if (!Reste) Ecran_.Quitter();
}

void Application::Informer(std::string_view Texte) {
  Ecran_.Boite_Message(Texte, Boutons::Ok, Icone::Information, "Information");
}
