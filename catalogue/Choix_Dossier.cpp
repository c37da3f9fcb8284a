#include "catalogue/Choix_Dossier.h"

#include "ui/controles/Sablier.h"

void Choix_Dossier::CmdChooseDirectory_Click() {
  F_.FDossierING.Montrer();
}

void Choix_Dossier::Form_Load() {
  const std::string Depart = Disque_.Repertoire_Courant({});
  F_.FDossierING.CmdOK.Active(false);
  F_.FDossierING.DriveLecteur.Montrer(Depart);
  F_.FDossierING.DirDirectory.Montrer(Depart);
}

void Choix_Dossier::DriveLecteur_Change() {
  const Sablier Recherche(F_.FDossierING);
  const std::string Lecteur = F_.FDossierING.DriveLecteur.Lecteur();
  F_.FDossierING.DirDirectory.Repertoire(Disque_.Repertoire_Courant(Lecteur));
}

void Choix_Dossier::DirDirectory_Change() {
  const Sablier Recherche(F_.FDossierING);
  Globales_.Chemin_Dossier = F_.FDossierING.DirDirectory.Repertoire();
  std::string Repertoire = Globales_.Chemin_Dossier;
  if (!Repertoire.ends_with('\\')) Repertoire += '\\';
  F_.FDossierING.CmdOK.Active(Catalogue_.Presence_Fichiers(Repertoire));
}

void Choix_Dossier::CmdOK_Click() {
  F_.FMain.TxtChooseDirectory.Texte(Globales_.Chemin_Dossier);
  F_.FDossierING.Decharger();
}

void Choix_Dossier::CmdAnnul_Click() {
  F_.FDossierING.Decharger();
}
