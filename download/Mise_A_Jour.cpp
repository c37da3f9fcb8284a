#include "download/Mise_A_Jour.h"

#include <algorithm>

#include "download/Chargement.h"
#include "download/Trames.h"
#include "platform/Erreur.h"
#include "platform/Fenetrage.h"
#include "platform/Texte.h"

struct Variante_Transfert {
  decltype(&Demande_Telechargement) Demande;
  decltype(&Bloc_Telechargement) Bloc;
  /// Bytes at the end of the file that are neither announced nor sent.
  std::int64_t Octets_Retenus;
  /// While the reader installs what it received.
  double Pause_Succes;
  /// The file is closed before the verdict; a success leaves the pointer and "Quitter" alone.
  bool Suite_Attendue;
};

namespace {

constexpr double Pause_Noyau = 25;
constexpr double Pause_Noyau_Et_Appli = 24;
constexpr double Pause_Appli = 7;
constexpr double Pause_Echec = 3;

// Longest sleep of a pause: an event ends it at once.
constexpr std::chrono::milliseconds Sommeil{50};

constexpr Variante_Transfert Noyau_Telecharge{Demande_Telechargement, Bloc_Telechargement, 0,
                                              Pause_Noyau, true};
constexpr Variante_Transfert Appli_Telechargee{Demande_Telechargement, Bloc_Telechargement, 0,
                                               Pause_Appli, false};
constexpr Variante_Transfert Noyau_Charge{Demande_Chargement, Bloc_Chargement, 3,
                                          Pause_Noyau_Et_Appli, false};
constexpr Variante_Transfert Seul_Charge{Demande_Chargement, Bloc_Chargement, 3, Pause_Appli,
                                         false};

// Half the size that the reader announces is for the frame, 5 bytes of which are its header.
constexpr std::int32_t Donnees_Par_Bloc(std::int32_t Taille_Bloc) {
  return Taille_Bloc / 2 - 5;
}

}  // namespace

struct Mise_A_Jour::Transfert {
  const Variante_Transfert& Variante;
  std::int64_t Taille_Fichier = 0;
  std::unique_ptr<Fichier_Ouvert> Fichier = {};
  bool Fichier_Ouvert_Une_Fois = false;
  Octets Donnees = {};  // what is declared to the reader and sent
  std::string Message = {};
};

Mise_A_Jour::Mise_A_Jour(const Machine& Poste, Fenetres& F, Variables_Globales& Globales,
                         Liaison_Galss& Liaison, Connect_Deconnect& Connexions)
    : Disque_(Poste.Disque),
      Temps_(Poste.Temps),
      Ecran_(Poste.Ecran),
      FMain_(F.FMain),
      FrmAnimCharg_(F.FrmAnimCharg),
      Globales_(Globales),
      Liaison_(Liaison),
      Connexions_(Connexions),
      Volet_(F.FMain.TxtDetails, Poste.Temps) {}

bool Mise_A_Jour::Telecharger_Fichier(const std::string& Chemin, bool Noyau) {
  const std::string& Choix = Noyau ? FMain_.CchooseNoyau.Texte() : FMain_.CchosseAppli.Texte();
  return Transferer(Noyau ? Noyau_Telecharge : Appli_Telechargee, Chemin,
                    Noyau ? "0000" : Globales_.Version_Appli, "Ouverture du fichier " + Choix);
}

bool Mise_A_Jour::Charger_Fichier(const std::string& Chemin) {
  return Transferer(Globales_.Noyau_Et_Appli ? Noyau_Charge : Seul_Charge, Chemin,
                    Globales_.Version_Requete, {});
}

bool Mise_A_Jour::Transferer(const Variante_Transfert& Variante, const std::string& Chemin,
                             const std::string& Version, const std::string& Premiere_Ligne) {
  Transfert T{.Variante = Variante};
  try {
    Ouvrir(T, Chemin, Premiere_Ligne);
    Lire_Fichier(T);
    const bool Reussi = Envoyer(T, Version);
    if (Reussi) {
      Reussir(T);
    } else {
      Echouer(T);
    }
    Pause(Reussi ? Variante.Pause_Succes : Pause_Echec);
    return Finir(T, Reussi);
  } catch (const std::exception&) {
    return Abandonner(T);
  }
}

void Mise_A_Jour::Ouvrir(Transfert& T, const std::string& Chemin,
                         const std::string& Premiere_Ligne) {
  T.Taille_Fichier = Disque_.Taille(Chemin);
  T.Fichier = Disque_.Ouvrir(Chemin);
  T.Fichier_Ouvert_Une_Fois = true;
  Volet_.Ligne(Premiere_Ligne.empty()
                   ? "Ouverture du fichier. "
                   : Premiere_Ligne + " " + std::to_string(T.Taille_Fichier) + " Octets.");
  FrmAnimCharg_.Montrer();
  FrmAnimCharg_.Poser_Compteur("0");
  FrmAnimCharg_.Repeindre();
}

// The reader hears of the file once all that it will get is in memory: a disk that is pulled out
// cannot leave it half loaded. A length that cannot be announced is refused before it is read.
void Mise_A_Jour::Lire_Fichier(Transfert& T) {
  const std::int64_t Longueur = T.Taille_Fichier - T.Variante.Octets_Retenus;
  Exiger_Annoncable(Longueur);
  T.Donnees.resize(static_cast<std::size_t>(Longueur));
  T.Fichier->Lire(T.Donnees);
}

// True when the reader accepted the request and every block.
bool Mise_A_Jour::Envoyer(Transfert& T, const std::string& Version) {
  std::int32_t Taille_Bloc = 0;
  if (T.Variante.Demande(Liaison_, Version, std::ssize(T.Donnees), Taille_Bloc, T.Message) != 0) {
    return false;
  }
  // A reader that grants no room for data, or refuses with code 0, cannot be loaded.
  const std::int32_t Taille_Donnees = Donnees_Par_Bloc(Taille_Bloc);
  if (Taille_Donnees < 1) return false;
  Volet_.Ligne_Horodatee("Début du chargement.");
  Volet_.Repeindre();
  return Envoyer_Blocs(T, static_cast<std::size_t>(Taille_Donnees)) == 0;
}

std::int16_t Mise_A_Jour::Envoyer_Blocs(Transfert& T, std::size_t Taille_Donnees) {
  Vue_Octets Reste = T.Donnees;
  Rang_Bloc Rang{.Premier = true};
  std::int16_t Etat = 0;
  for (std::int16_t Compteur = 1; Etat == 0 && !Reste.empty(); ++Compteur) {
    const Vue_Octets Bloc = Reste.first(std::min(Taille_Donnees, Reste.size()));
    Reste = Reste.subspan(Bloc.size());
    Rang.Dernier = Reste.empty();
    Etat = T.Variante.Bloc(Liaison_, Rang, Bloc, T.Message);
    Montrer_Bloc(T, Reste.size(), Compteur);
    Rang.Premier = false;
  }
  return Etat;
}

// A refused block is counted and shown like the others.
void Mise_A_Jour::Montrer_Bloc(const Transfert& T, std::size_t Restant, std::int16_t Compteur) {
  if (Compteur == 1) {
    FrmAnimCharg_.Montrer();
    FrmAnimCharg_.Repeindre();
    FrmAnimCharg_.PgbExe.Repeindre();
  }
  const auto Reste = static_cast<double>(Restant);
  const auto Total = static_cast<double>(T.Donnees.size());
  FrmAnimCharg_.Poser_Compteur(std::to_string(Compteur));
  FrmAnimCharg_.Poser_Progression(
      static_cast<float>(100 - Reste / Total * 100),
      " " + std::to_string(static_cast<int>(100 - Reste * 100 / Total)) + "%");
  FrmAnimCharg_.Repeindre_Progression();
}

void Mise_A_Jour::Reussir(Transfert& T) {
  if (T.Variante.Suite_Attendue) T.Fichier.reset();
  FrmAnimCharg_.Montrer_Succes();
  Volet_.Ligne_Horodatee("Chargement Réussi.");
}

void Mise_A_Jour::Echouer(Transfert& T) {
  if (T.Variante.Suite_Attendue) T.Fichier.reset();
  FrmAnimCharg_.Montrer_Echec();
  Volet_.Ligne_Horodatee("Problème lors du Chargement.");
  Connexions_.Deconnexion(T.Message);
}

bool Mise_A_Jour::Finir(Transfert& T, bool Reussi) {
  FrmAnimCharg_.Fermer();
  if (Reussi && T.Variante.Suite_Attendue) return true;
  T.Fichier.reset();
  FMain_.Souris(Pointeur::Defaut);
  FMain_.CmdQuitter.Active(true);
  return Reussi;
}

// Only inside a catch block. No pause, no disconnection; the pointer stays as it is.
bool Mise_A_Jour::Abandonner(Transfert& T) {
  try {
    Annoncer_Abandon(T);
  } catch (const std::exception&) {
    // No memory left for a line or a box: the window must not stay disabled for that.
  }
  if (FrmAnimCharg_.Ouverte()) FrmAnimCharg_.Fermer();
  FMain_.CmdQuitter.Active(true);
  return false;
}

void Mise_A_Jour::Annoncer_Abandon(Transfert& T) {
  const Erreur Cause = Erreur_En_Cours();
  Volet_.Ligne_Horodatee(Cause.Description() + " " + std::to_string(Cause.Numero()));
  if (T.Fichier_Ouvert_Une_Fois) {
    T.Fichier.reset();
    Volet_.Ligne_Horodatee("Fermeture du fichier.");
  }
  if (Cause.Numero() == Numero_Erreur::Bibliotheque_Non_Chargeable) {
    Ecran_.Boite_Message("Vérifiez l'installation du service SESAM-Vitale (GALSS).", Boutons::Ok,
                         Icone::Information, "Télécharger");
  }
}

void Mise_A_Jour::Pause(double Secondes) {
  const double Debut = Temps_.Secondes();
  while (Temps_.Secondes() - Debut < Secondes) Ecran_.Traiter_Evenements(Sommeil);
}
