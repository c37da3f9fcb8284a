// The program's entry point: the machine, the application, the event loop.

#include "app/Application.h"
#include "app/Ligne_Commande.h"
#include "journal/Poste_Journalise.h"
#include "windows/fenetres/Fenetrage_Windows.h"
#include "windows/systeme/Fichiers_Windows.h"
#include "windows/systeme/Galss_Windows.h"
#include "windows/systeme/Port_Serie_Windows.h"
#include "windows/systeme/Releve_Windows.h"
#include "windows/systeme/Systeme_Windows.h"

namespace {

constexpr const char* Titre = "Pavorin";
constexpr const char* Copie_Muette =
    "Un Pavorin est déjà ouvert et ne répond pas.\n\n"
    "Terminez « Pavorin.exe » dans le Gestionnaire des tâches (Ctrl+Maj+Échap), ou redémarrez le "
    "PC, puis relancez Pavorin.";

// Ends with the process only: see Fenetrage::Quitter.
[[noreturn]] void Executer(Fenetrage_Windows& Ecran) {
  const Ligne_Commande Commande = Lire_Ligne_Commande(Arguments_Programme());
  Galss_Windows Galss([&Ecran](bool En_Cours) { Ecran.Ignorer_Operateur(En_Cours); });
  Processus_Windows Processus;
  Profil_Windows Profil;
  Disque_Windows Disque;
  Port_Serie_Windows Serie(static_cast<unsigned>(Commande.Port));
  Horloge_Windows Temps;
  const Machine Nue{Galss, Processus, Profil, Disque, Serie, Temps, Ecran};
  Releve_Windows Releve;
  std::string Sans_Journal;
  const auto Suivi =
      Commande.Journal ? Journaliser(Nue, Releve, *Commande.Journal, Sans_Journal) : nullptr;
  const Machine Poste = Suivi ? Suivi->Poste() : Nue;
  Ecran.Signaler_Par(Poste.Ecran);
  Application Programme(Poste);
  try {
    Programme.Form_Load();
    for (const std::string& Avis : {Sans_Journal, Commande.Avertissement}) {
      if (!Avis.empty()) Poste.Ecran.Boite_Message(Avis, Boutons::Ok, Icone::Exclamation, Titre);
    }
  } catch (...) {
    Ecran.Signaler_Exception();
  }
  while (true) Poste.Ecran.Traiter_Evenements(std::chrono::hours(1));
}

}  // namespace

int main() {
  Proteger_Programme();
  Instance_Unique Instance;
  Fenetrage_Windows Ecran;
  if (!Instance.Premiere()) {
    if (!Instance_Unique::Montrer_Premiere()) {
      Ecran.Boite_Message(Copie_Muette, Boutons::Ok, Icone::Exclamation, Titre);
    }
    return 0;
  }
  Ecran.Avant_De_Finir = [&Instance] { Instance.Ceder(); };
  Executer(Ecran);
}
