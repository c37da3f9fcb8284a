#include "update/Procedure_Mise_A_Jour.h"

#include <algorithm>
#include <array>

#include "galss/End_Process_Galls.h"
#include "galss/Lecture_Config.h"
#include "platform/Erreur.h"
#include "platform/Fenetrage.h"
#include "platform/Texte.h"

namespace {

constexpr int Lectures_Au_Plus = 10'000;

constexpr std::string_view Arret_Annonce = "Arrêt du Galss";
constexpr std::string_view Arret_Sur_Refus = "arrêt du Galss";

/// How an update that loads nothing ends: its box, then its line in the pane, then the server.
struct Refus {
  Issue_Decision Pourquoi;
  std::string_view Texte;
  std::string_view Titre;
  std::string_view Ligne;  // empty: no line, and the server is left alone
};

constexpr std::string_view Texte_Interdit_650 =
    "Impossible d'effectuer la mise à jour, sous peine de rendre inutilisable le terminal !!!";
constexpr std::string_view Texte_Interdit_Bifente =
    "Impossible d'effectuer la mise à jour, sous peine de rendre inutilisable le terminal.";

constexpr std::array<Refus, 5> Tous_Les_Refus = {{
    {Issue_Decision::Terminal_Refuse, "Impossible de télécharger ce type de terminal !",
     "attention", ""},
    {Issue_Decision::Noyau_Ou_Appli_Manquant,
     "Impossible de mettre à jour le terminal, puisque  une application ou un noyau récent est "
     "manquant !",
     "Attention", ""},
    {Issue_Decision::Aucune_Nouvelle_Version,
     "Aucune nouvelle version n'a été détéctée dans ce répertoire", "Information",
     "Aucune nouvelle version n'a été détéctée dans ce repertoire"},
    {Issue_Decision::Chargement_Interdit_650, Texte_Interdit_650, "Attention", Texte_Interdit_650},
    {Issue_Decision::Chargement_Interdit_Bifente, Texte_Interdit_Bifente, "Attention",
     Texte_Interdit_Bifente},
}};

}  // namespace

Procedure_Mise_A_Jour::Procedure_Mise_A_Jour(const Machine& Poste, Fenetres& F,
                                             Variables_Globales& Globales,
                                             Lecture_Ecriture_FichierINI& Reglages)
    : Processus_(Poste.Processus),
      Ecran_(Poste.Ecran),
      FMain_(F.FMain),
      Globales_(Globales),
      Reglages_(Reglages),
      Liaison_(Poste.Galss, Globales.Session),
      Connexions_(Poste.Galss, Globales.Session, F.FMain.TxtDetails),
      Transferts_(Poste, F, Globales, Liaison_, Connexions_),
      Volet_(F.FMain.TxtDetails, Poste.Temps) {}

void Procedure_Mise_A_Jour::CmdMaj_Click() {
  Deroulement Cours;
  try {
    Derouler(Cours);
  } catch (const std::exception&) {
    Traiter_Erreur(Cours);
  }
}

void Procedure_Mise_A_Jour::Derouler(Deroulement& Cours) {
  FMain_.TxtDetails.Visible(true);
  FMain_.TxtDetails.Texte("");
  Volet_.Repeindre();
  Volet_.Ligne("PROCEDURE DE CHARGEMENT");
  Volet_.Ligne("=========================");
  Reglages_.Ecrire_Repertoire_INI(Repertoire());
  Volet_.Ligne("Connexion en cours ... ");
  Lire_Lecteur(Cours);

  const Resultat_Decision Decision = Decider_Chargement(
      Cours.Reponse_Config,
      {FMain_.OptAuto.Valeur(), FMain_.CchooseNoyau.Texte(), FMain_.CchosseAppli.Texte()},
      Globales_);
  if (Decision.Issue != Issue_Decision::A_Charger) {
    Refuser(Decision.Issue);
  } else if (Confirmer(Decision.Liste_Fichiers)) {
    Charger(Decision, Cours);
  } else {
    Volet_.Ligne("mise à jour stoppée par l'utilisateur");
    Arreter_Galss(Arret_Annonce);
  }
}

// A failure goes on to the decision, which refuses the reply as it then stands: empty, spaces, or
// the reader's two-byte error answer.
void Procedure_Mise_A_Jour::Lire_Lecteur(Deroulement& Cours) {
  if (Connexions_.Connexion(Cours.Message) != 0) {
    Signaler_Echec(Cours);
    return;
  }
  Cours.Connecte = true;
  if (Lecture_Config_Lecteur(Liaison_, Cours.Reponse_Config, Cours.Message) != 0)
    Signaler_Echec(Cours);
}

void Procedure_Mise_A_Jour::Signaler_Echec(const Deroulement& Cours) {
  Volet_.Ligne(Cours.Message);
  Arreter_Galss(Arret_Annonce);
}

void Procedure_Mise_A_Jour::Refuser(Issue_Decision Pourquoi) {
  const Refus& Fin = *std::find_if(Tous_Les_Refus.begin(), Tous_Les_Refus.end(),
                                   [&](const Refus& R) { return R.Pourquoi == Pourquoi; });
  Informer(Fin.Texte, Fin.Titre);
  if (Fin.Ligne.empty()) return;
  Volet_.Ligne(Fin.Ligne);
  Arreter_Galss(Arret_Sur_Refus);
}

bool Procedure_Mise_A_Jour::Confirmer(const std::string& Liste_Fichiers) {
  const std::string Question =
      "Confirmez-vous la mise à jour du ou des fichiers ci-dessous :\r\n" + Liste_Fichiers;
  return Ecran_.Boite_Message(Question, Boutons::Oui_Non, Icone::Question, "TELECHARGER") ==
         Reponse::Oui;
}

// The kernel first; the application follows only when the kernel was accepted. Between the two the
// reader is half loaded: the PC stays awake all along.
void Procedure_Mise_A_Jour::Charger(const Resultat_Decision& Decision, Deroulement& Cours) {
  const Poste_Eveille Garde(Ecran_);
  const Operation_Transfert Operation = Decision.Famille_Transfert;
  FMain_.Souris(Pointeur::Sablier);
  bool Continuer = true;
  if (Decision.Charger_Noyau) {
    Continuer = Envoyer_Fichier(Operation, true);
    if (Continuer && Decision.Charger_Appli) {
      Attendre_Lecteur(Cours);
      if (Operation == Operation_Transfert::Charger_Fichier) Globales_.Noyau_Et_Appli = false;
    }
  }
  if (Continuer && Decision.Charger_Appli) Envoyer_Fichier(Operation, false);
  Arreter_Galss(Arret_Annonce);
  FMain_.Souris(Pointeur::Defaut);
}

// The directory and the list are read again for each file. So is the version of the request put
// back: the operator may have chosen another directory during the pause that follows a kernel.
bool Procedure_Mise_A_Jour::Envoyer_Fichier(Operation_Transfert Operation, bool Noyau) {
  const Liste_Deroulante& Liste = Noyau ? FMain_.CchooseNoyau : FMain_.CchosseAppli;
  const std::string Chemin = Repertoire() + Liste.Texte();
  if (Operation == Operation_Transfert::Telecharger_Fichier) {
    Globales_.Version_Appli = "0000";
    return Transferts_.Telecharger_Fichier(Chemin, Noyau);
  }
  Globales_.Version_Requete = "0000";
  return Transferts_.Charger_Fichier(Chemin);
}

// While the reader restarts on its new kernel; the application follows in any case.
void Procedure_Mise_A_Jour::Attendre_Lecteur(Deroulement& Cours) {
  for (int I = 0; I < Lectures_Au_Plus; ++I) {
    if (Lecture_Config_Lecteur(Liaison_, Cours.Reponse_Config, Cours.Message) == 0) return;
  }
}

void Procedure_Mise_A_Jour::Arreter_Galss(std::string_view Annonce) {
  Volet_.Ligne(Annonce);
  Arret_Galss(Processus_);
}

// Only inside a catch block. The pointer stays as it is.
void Procedure_Mise_A_Jour::Traiter_Erreur(Deroulement& Cours) {
  const Erreur Cause = Erreur_En_Cours();
  if (Cours.Connecte) {
    try {
      Connexions_.Deconnexion(Cours.Message);
    } catch (const std::exception&) {
      // The library that just failed may fail again: the outcome does not matter here.
    }
    Volet_.Ligne_Horodatee("Deconnexion Réussie.");
    Volet_.Repeindre();
  }
  Informer(Cause.Numero() == Numero_Erreur::Bibliotheque_Non_Chargeable
               ? "Vérifiez l'installation du service SESAM-Vitale (GALSS)."
               : "Vérifiez le service SESAM-Vitale (GALSS)n'est pas déjà ouvert, si le service est "
                 "ouvert veuillez supprimer cette tache ATL+CTRL+SUPP et séléctionnez galsvw32.exe "
                 "et faite terminer la tache.",
           "Télécharger");
  FMain_.CmdQuitter.Active(true);
}

std::string Procedure_Mise_A_Jour::Repertoire() const {
  return Rogner(FMain_.TxtChooseDirectory.Texte());
}

void Procedure_Mise_A_Jour::Informer(std::string_view Texte, std::string_view Titre) {
  Ecran_.Boite_Message(Texte, Boutons::Ok, Icone::Information, Titre);
}
