#include "ui/Graphic.h"

namespace {

constexpr const char* Sans_Type = "-------";
constexpr const char* Sans_Version = "--.--";

}  // namespace

void Graphic::Desactiver_Selection() {
  Activer_Panneau(false);
  FMain_.lbltpe.Texte(Sans_Type);
  FMain_.lblvers1.Texte(Sans_Version);
  FMain_.lblvers2.Texte(Sans_Version);
}

void Graphic::Activer_Selection() {
  Activer_Panneau(true);
}

void Graphic::Activer_Panneau(bool Oui) {
  FMain_.OptManuel.Active(Oui);
  FMain_.OptAuto.Active(Oui);
  FMain_.CmdMaj.Active(Oui);
  FMain_.CchooseNoyau.Active(Oui);
  FMain_.CchosseAppli.Active(Oui);
  FMain_.CchosseAppli.Vider();
  FMain_.CchooseNoyau.Vider();
}

void Graphic::Listes_Manuel() {
  Choisir_Premieres_Entrees(true);
}

void Graphic::Listes_Auto() {
  Choisir_Premieres_Entrees(false);
}

void Graphic::Choisir_Premieres_Entrees(bool Listes_Actives) {
  FMain_.CchooseNoyau.Active(Listes_Actives);
  FMain_.CchosseAppli.Active(Listes_Actives);
  FMain_.CchooseNoyau.Choisir(0);
  FMain_.CchosseAppli.Choisir(0);
}

void Graphic::Maj_Versions() {
  Montrer_Version(Genre::Appli);
  Montrer_Version(Genre::Noyau);
}

// The shared value keeps the version of the last file selected.
void Graphic::Montrer_Version(Genre Quoi) {
  const bool Appli = Quoi == Genre::Appli;
  const std::string& Nom = Appli ? FMain_.CchosseAppli.Texte() : FMain_.CchooseNoyau.Texte();
  std::string& Version = Appli ? Globales_.Version_Appli : Globales_.Version_Noyau;
  Etiquette& Affichage = Appli ? FMain_.lblvers1 : FMain_.lblvers2;
  if (Est_Fichier(Nom)) {
    Version = Version_Fichier(Nom, Quoi);
    Affichage.Texte(Afficher_Version(Version, Quoi));
  } else {
    Affichage.Texte(Sans_Version);
  }
}

void Graphic::CchooseNoyau_Click() {
  Montrer_Version(Genre::Noyau);
  if (Est_Fichier(FMain_.CchooseNoyau.Texte())) {
    FMain_.CmdMaj.Active(true);
  } else {
    Desactiver_Si_Rien();
  }
}

void Graphic::CchosseAppli_Click() {
  const std::string& Nom = FMain_.CchosseAppli.Texte();
  Montrer_Version(Genre::Appli);
  if (Est_Fichier(Nom)) {
    FMain_.lbltpe.Texte(Est_Version_Test(Nom) ? "Version Test" : "Version Réelle");
    FMain_.CmdMaj.Active(true);
  } else {
    FMain_.lbltpe.Texte(Sans_Type);
    Desactiver_Si_Rien();
  }
}

void Graphic::Desactiver_Si_Rien() {
  if (FMain_.CchooseNoyau.Texte() == Pas_De_Mise_A_Jour &&
      FMain_.CchosseAppli.Texte() == Pas_De_Mise_A_Jour) {
    FMain_.CmdMaj.Active(false);
  }
}

void Graphic::OptAuto_Click() {
  Listes_Auto();
  FMain_.CchosseAppli.Choisir(0);
  FMain_.CchooseNoyau.Choisir(0);
}

void Graphic::OptManuel_Click() {
  Listes_Manuel();
  Ecran_.Boite_Message(
      "\tSélectionnez les fichiers que vous désirez mettre à jour.\r\n"
      "\t\t\tATTENTION\r\n"
      "Les fichiers sélectionnés seront chargés même s'ils sont présents dans le lecteur !!!",
      Boutons::Ok, Icone::Information, "Télécharger");
  FMain_.CchooseNoyau.Choisir(FMain_.CchooseNoyau.Derniere());
  FMain_.CchosseAppli.Choisir(FMain_.CchosseAppli.Derniere());
}
