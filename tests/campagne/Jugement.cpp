// The judge: what the operator, the reader and the PC can see once a scenario was played. It knows
// which failures were raised, and nothing of the program's own steps.
//
// A file whose last acknowledgement is lost is in the reader although nobody can know it: there,
// "Chargement Réussi." is wrong. It must be shown exactly when the reader holds the whole file and
// its consent reached the program.

#include "tests/campagne/Epreuve.h"

#define HEURE "\t14:30:05"

namespace {

constexpr double Duree_Transfert = 26, Duree_Test = 6;  // at most, in seconds
constexpr int Lectures_Au_Plus = 10'001;                // of a reader that restarts

constexpr std::string_view Installation = "Télécharger | Vérifiez l'installation du service SESAM-Vitale (GALSS).";
constexpr std::string_view Service =
    "Télécharger | Vérifiez le service SESAM-Vitale (GALSS)n'est pas déjà ouvert, si le service est ouvert veuillez "
    "supprimer cette tache ATL+CTRL+SUPP et séléctionnez galsvw32.exe et faite terminer la tache.";
constexpr std::string_view Question = "TELECHARGER | Confirmez-vous la mise à jour du ou des fichiers ci-dessous :\r\n";
constexpr std::string_view Choix_Question = " | question | oui, non";
constexpr std::string_view Vitesse = "Attention | Attention vous etes en 19200 Bauds!! | exclamation";

/// An update that loads nothing: its box, then all that the pane says after it.
constexpr std::pair<std::string_view, std::string_view> Sans_Chargement[] = {
    {"attention | Impossible de télécharger ce type de terminal !", ""},
    {"Attention | Impossible de mettre à jour le terminal, puisque  une application ou un noyau récent est manquant !",
     ""},
    {"Information | Aucune nouvelle version n'a été détéctée dans ce répertoire",
     "Aucune nouvelle version n'a été détéctée dans ce repertoire\r\narrêt du Galss\r\n"},
    {"Attention | Impossible d'effectuer la mise à jour, sous peine de rendre inutilisable le terminal.",
     "Impossible d'effectuer la mise à jour, sous peine de rendre inutilisable le terminal.\r\narrêt du Galss\r\n"},
};

constexpr std::string_view Reussi = "Chargement Réussi." HEURE, Probleme = "Problème lors du Chargement." HEURE,
                           Coupure = "Deconnexion Réussie." HEURE, Fermeture = "Fermeture du fichier." HEURE,
                           Deconnexion = "Déconnexion Réussie";

/// Where no procedure has a handler: a failure comes out of the operator's action.
constexpr std::string_view Sans_Traitant[] = {"Boite_Message", "Chercher",           "Sous_Repertoires",
                                              "Lecteurs",      "Repertoire_Courant", "Lire_Profil"};

}  // namespace

void Epreuve::Exiger(bool Vrai, const std::string& Plainte) {
  if (!Vrai) Bilan_.Plaintes.push_back((Reprise_ ? "à la reprise, " : "") + Plainte);
}

int Epreuve::Dit(std::string_view Ligne) const {
  const auto Trouvee = Vus_.Lignes.find(Ligne);
  return Trouvee == Vus_.Lignes.end() ? 0 : Trouvee->second;
}

void Epreuve::Juger() {
  Vus_.Lignes.clear();
  for (std::size_t Debut = 0, Fin = 0; (Fin = Vus_.Recit.find("\r\n", Debut)) != Vus_.Recit.npos; Debut = Fin + 2) {
    std::string Ligne = Vus_.Recit.substr(Debut, Fin - Debut);
    if (Ligne.starts_with(Deconnexion)) {  // which does not end its line
      ++Vus_.Lignes[std::string(Deconnexion)];
      Ligne.erase(0, Deconnexion.size());
    }
    ++Vus_.Lignes[Ligne];
  }
  Juger_Poste();
  Juger_Lecteur();
  if (Arrete_) return;
  const bool Une = Bilan_.Appels["Ecrire_Profil"] == 1;
  if (Une) Juger_Mise_A_Jour();
  if (Une && !Operateur_ && !Reprise_) Juger_Fin();
  if (Bilan_.Appels["Regler"] > 0 && (!Operateur_ || Reprise_)) Juger_Test();
}

void Epreuve::Juger_Poste() {
  Exiger(Disque.Ouverts == 0, "fichier laissé ouvert");
  Exiger(!Port.Ouvert() || Arrete_, "port laissé ouvert");
  Exiger(!Ecran.Eveille || Arrete_, "PC tenu éveillé");
  Exiger(Ecran.Plus_Longue.count() <= 50, "attente sourde");
  const double Duree = Bilan_.Appels["Taille"] * Duree_Transfert + Bilan_.Appels["Ouvrir_Port"] * Duree_Test;
  Exiger(Temps.Maintenant - Vus_.Debut <= Duree, "trop long");
  int Libres = Vus_.Levees["Creer"];
  for (const auto Appel : Sans_Traitant) Libres += Vus_.Levees[Appel];
  Exiger(Vus_.Echappees <= Libres, "erreur échappée");
  const Octets& Reglage = Profil.Repertoire();
  const Octets Nouveau = Cp1252_De_Texte(Rogner(FMain.TxtChooseDirectory.Texte()));
  Exiger(Reglage == Ancien_Reglage_ || Reglage == Nouveau || (Operateur_ && !Reprise_), "réglages déchirés");
  for (const auto Id : Processus.Termines) Exiger(Id == 41, "processus étranger terminé");
  const int Arrets = Dit("Arrêt du Galss") + Dit("arrêt du Galss");
  Exiger(std::ssize(Processus.Termines) == Arrets - Vus_.Levees["Lister"] || Arrete_, "arrêts du Galss");
  if (Arrete_ || !FMain.Ouverte()) return;
  Exiger(!App.F.FrmAnimCharg.Ouverte(), "fenêtre de progression restée");
  const bool Fiche = App.F.FrmResultParam.Ouverte();
  Exiger(FMain.A_Portee() != Fiche && (FMain.Active() || Fiche), "fenêtre principale");
}

// What the reader received, whatever the program says of it.
void Epreuve::Juger_Lecteur() {
  const bool Plusieurs = Bilan_.Appels["Ecrire_Profil"] > 1;  // updates
  int Entiers = 0;
  for (const auto& Recu : std::span(Lecteur.Fichiers()).subspan(Vus_.Fichiers)) {
    const auto Debut_De = [&](std::string_view Nom) { return Contenu_De(Nom, Recu.Contenu.size()) == Recu.Contenu; };
    Exiger(Debut_De("Fexa") || Debut_De("ER"), "octets reçus qui ne sont pas ceux du fichier");
    Entiers += Recu.Complet() && Recu.Accepte ? 1 : 0;
  }
  Exiger(Dit(Reussi) == Entiers,
         "succès montrés : " + std::to_string(Dit(Reussi)) + ", vrais : " + std::to_string(Entiers));
  for (const auto& Faute : std::span(Lecteur.Fautes()).subspan(Vus_.Fautes)) {
    // The error handler disconnects whether or not a failed transfer already did.
    const bool Deja_Fermee =
        Dit(Probleme) > 0 && Dit(Coupure) > 0 && (Faute.starts_with("libération") || Faute.starts_with("fermeture"));
    Exiger(Deja_Fermee || Plusieurs, Faute);
  }
  const int Lectures = Lecteur.Nombre(Cible::Lecture) - Vus_.Lectures;
  Exiger(Lectures <= (Entiers > 0 ? Lectures_Au_Plus : 1) || Plusieurs, "lectures répétées");
  for (const auto& Faute : Serie_.Fautes()) Exiger(false, Faute);
}

// Lines of the pane that tell why a transfer failed: of those with the time, all but the known ones.
int Epreuve::Erreurs_Dites() const {
  int Nombre = -Dit(Reussi) - Dit(Probleme) - Dit(Coupure) - Dit(Fermeture) - Dit("Début du chargement." HEURE);
  for (const auto& [Ligne, Fois] : Vus_.Lignes) Nombre += Ligne.ends_with(HEURE) ? Fois : 0;
  return Nombre;
}

// One update: each transfer is told; the session ends after a refused transfer and after a failure
// outside a transfer, nowhere else; the window is the operator's again.
void Epreuve::Juger_Mise_A_Jour() {
  const int Transferts = Bilan_.Appels["Taille"], Erreurs_Vues = Erreurs_Dites();
  const int Ouverts = static_cast<int>(Disque.Ouvertures.size());
  const int Issues = Dit(Reussi) + Dit(Probleme) + Erreurs_Vues;
  // A transfer whose end is told may still fail: in its pause, or as it disconnects.
  const int Apres = Vus_.Levees["Traiter_Evenements"] + Vus_.Levees["FinExclusivite"] + Vus_.Levees["FermerSession"];
  Exiger(Issues >= Transferts && Issues <= Transferts + Apres, "issues des transferts : " + std::to_string(Issues));
  Exiger(Dit(Fermeture) == Erreurs_Vues - (Transferts - Ouverts), "fermetures de fichier annoncées");
  const int Fins = Bilan_.Appels["FinExclusivite"];
  Exiger(Fins == Dit(Probleme) + Dit(Coupure), "libérations : " + std::to_string(Fins));
  Exiger(Bilan_.Appels["FermerSession"] == Fins - Vus_.Levees["FinExclusivite"], "fermetures de la session");
  Exiger(Dit("Connexion Réussie.") == 0 || Lecteur.Session_Ouverte() == (Dit(Deconnexion) == 0),
         "session annoncée autrement");
  if (Vus_.Echappees > 0) return;
  const bool Panne = Vus_.Recit.find(Service) != Vus_.Recit.npos || Vus_.Recit.find(Installation) != Vus_.Recit.npos;
  // The kernel alone, in the first family: "Quitter" is left as it was.
  const bool Seul_Noyau = Transferts == 1 && Dit(Reussi) == 1 && Lecteur.Fichiers().size() > Vus_.Fichiers &&
                          Est_Noyau(Disque.Ouvertures.back()) &&
                          Lecteur.Fichiers().back().Famille == Famille_Trames::Telechargement;
  const bool Rendu = Panne || Erreurs_Vues > 0 || (Transferts > 0 && !Seul_Noyau);
  Exiger(FMain.CmdQuitter.Active() == (Rendu || Quitter_Offert_), "\"Quitter\"");
  Exiger(FMain.Souris() == Pointeur::Defaut || (Panne && Transferts > 0), "sablier");
}

// The boxes of one update, each whole and at its place, and how it ends after the last.
void Epreuve::Juger_Fin() {
  const auto& Boites = Ecran.Boites;
  if (Boites.empty()) return Exiger(false, "aucune boîte");
  const std::string &Premiere = Boites.front(), &Derniere = Boites.back();
  const auto Fin =
      std::string_view(Vus_.Recit).substr(Vus_.Recit.rfind("[" + Derniere + "]\r\n") + Derniere.size() + 4);
  const auto* const R = std::find_if(std::begin(Sans_Chargement), std::end(Sans_Chargement),
                                     [&](const auto& Refus) { return Refus.first == Premiere; });
  const bool Demandee = Premiere.starts_with(Question) && Premiere.ends_with(Choix_Question);
  for (std::size_t I = R != std::end(Sans_Chargement) || Demandee; I < Boites.size(); ++I) {
    const bool Pour_Finir = I + 1 == Boites.size() && Boites[I] == Service;
    Exiger(Pour_Finir || Boites[I] == Installation, "boîte " + Boites[I]);
  }
  // As it disconnects, the error handler has no use for a second failure.
  const auto Absences = std::count(Boites.begin(), Boites.end(), Installation);
  const int Tues = Vus_.Levees["FinExclusivite"] + Vus_.Levees["FermerSession"];
  Exiger(Absences <= Vus_.Sans_Bibliotheque && Absences >= Vus_.Sans_Bibliotheque - Tues, "bibliothèque absente");
  Exiger(Vus_.Recit.find("\r\nConnexion Réussie.\r\nArrêt") == Vus_.Recit.npos, "échec sans un mot");
  const int Transferts = Bilan_.Appels["Taille"];
  Exiger(Transferts == 0 || Demandee, "chargement sans l'accord de l'opérateur");
  const bool Panne = Derniere == Service || (Derniere == Installation && Fin.empty());
  const int Coupures = Panne && Dit("Connexion Réussie.") == 1 ? 1 : 0;
  Exiger(Dit(Coupure) == Coupures, "coupures : " + std::to_string(Dit(Coupure)));
  if (Panne) return Exiger(Fin.empty(), "suite de la panne");
  if (R != std::end(Sans_Chargement)) return Exiger(Fin == R->second, "suite du refus");
  if (Ecran.Confirmation == Reponse::Non)
    return Exiger(Fin == "mise à jour stoppée par l'utilisateur\r\nArrêt du Galss\r\n", "suite du non");
  Exiger(Transferts > 0 && Fin.ends_with("Arrêt du Galss\r\n"), "fin du chargement");
}

// The pane, the lights, the record's window and the box of the speed tell the same of one test.
void Epreuve::Juger_Test() {
  const bool Fiche = App.F.FrmResultParam.Ouverte();
  Exiger(Fiche == Pane().ends_with("\r\n\tTEST RÉUSSI"), "test annoncé autrement");
  Exiger(!Fiche || App.F.FrmResultParam.LblConst.Texte().starts_with("INGENICO"), "fiche d'un autre constructeur");
  if (Pane().starts_with("Erreur n° : ")) return Exiger(Pane().ends_with("\r\nErreur : "), "texte de l'erreur");
  Exiger(FMain.ImgGreen.Visible() == Fiche && FMain.ImgGreen2.Visible() == Fiche, "voyants verts");
  Exiger(FMain.ImgRed.Visible() != Fiche && FMain.ImgRed2.Visible() != Fiche, "voyants rouges");
  const auto Vues = std::count(Ecran.Boites.begin(), Ecran.Boites.end(), Vitesse);
  Exiger(Vues == (FMain.LblVit.Texte() == "19200 bauds"), "boîte de la vitesse");
  Exiger(Reprise_ || std::ssize(Ecran.Boites) == Vues, "boîte sans raison");
}
