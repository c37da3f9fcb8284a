// The program's entry point: the machine, the application, the event loop.

#include "app/Application.h"
#include "app/Ligne_Commande.h"
#include "platform/windows/Demarrage_Windows.h"
#include "platform/windows/Disque_Windows.h"
#include "platform/windows/Fenetrage_Windows.h"
#include "platform/windows/Galss_Windows.h"
#include "platform/windows/Horloge_Windows.h"
#include "platform/windows/Port_Serie_Windows.h"
#include "platform/windows/Processus_Windows.h"
#include "platform/windows/Profil_Windows.h"

namespace {

constexpr const char* Titre = "Pavorin";

// Ends with the process only: see Fenetrage::Quitter.
[[noreturn]] void Executer(Fenetrage_Windows& Ecran) {
  const Ligne_Commande Commande = Lire_Ligne_Commande(Arguments_Programme());
  Galss_Windows Galss;
  Processus_Windows Processus;
  Profil_Windows Profil;
  Disque_Windows Disque;
  Port_Serie_Windows Serie(static_cast<unsigned>(Commande.Port));
  Horloge_Windows Temps;
  Application Programme({Galss, Processus, Profil, Disque, Serie, Temps, Ecran});
  try {
    Programme.Demarrer();
    if (!Commande.Avertissement.empty()) {
      Ecran.Boite_Message(Commande.Avertissement, Boutons::Ok, Icone::Exclamation, Titre);
    }
  } catch (...) {
    Ecran.Signaler_Exception();
  }
  while (true) Ecran.Traiter_Evenements(std::chrono::hours(1));
}

}  // namespace

int main() {
  Proteger_Programme();
  const Instance_Unique Instance;
  if (!Instance.Premiere()) {
    Instance_Unique::Montrer_Premiere();
    return 0;
  }
  Fenetrage_Windows Ecran;
  Executer(Ecran);
}
