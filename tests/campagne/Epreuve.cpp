#include "tests/campagne/Epreuve.h"

#include <charconv>

#include "simulator/Lecture_Texte.h"

namespace {

constexpr int Octets_Retenus = 3;  // at the end of a file, by the second family
constexpr int Plus_Petit_Bloc = 507;
constexpr double Duree_Transfert = 26, Duree_Test = 6;  // at most, in seconds

const Scenario_Campagne& Scenario_Nomme(std::string_view Nom) {
  const auto Fin = Nom.substr(0, Nom.find('/'));
  for (const auto& S : Scenarios_Campagne) {
    if (S.Nom == Fin) return S;
  }
  throw std::invalid_argument("scénario inconnu : " + std::string(Nom));
}

std::vector<std::string_view> Perturbations_De(std::string_view Nom) {
  const auto Debut = Nom.find('/');
  return Debut == std::string_view::npos ? std::vector<std::string_view>() : Decouper(Nom.substr(Debut + 1), ',');
}

bool Pour_Le_Lecteur(std::string_view P) {
  const auto Mot = P.substr(0, P.find_first_of("_:!"));
  return Mot == "lecteur" || std::find(Noms_Cibles.begin(), Noms_Cibles.end(), Mot) != Noms_Cibles.end();
}

/// The reader's whole scenario. "_" stands for a blank, "!" for "toujours".
std::string Texte_Lecteur(const std::string& Nom) {
  std::string Texte(Scenario_Nomme(Nom).Lecteur);
  for (const auto P : Perturbations_De(Nom)) {
    if (!Pour_Le_Lecteur(P)) continue;
    const auto Deux_Points = P.find(':');
    if (P.starts_with("lecteur")) {
      Texte.append("\nfamille = toutes\n").append(P.substr(Deux_Points + 1));
      continue;
    }
    std::string Defaut = "\ndefaut = ";
    for (const char C : P) Defaut += C == '!' ? " toujours" : std::string(1, C == '_' ? ' ' : C);
    Texte += Defaut;
  }
  return Texte;
}

int Nombre_De(std::string_view Texte) {
  int Valeur = 0;
  std::from_chars(Texte.data(), Texte.data() + Texte.size(), Valeur);
  return Valeur;
}

int Occurrences(std::string_view Texte, std::string_view Mot) {
  int Nombre = 0;
  for (auto I = Texte.find(Mot); I != Texte.npos; I = Texte.find(Mot, I + 1)) ++Nombre;
  return Nombre;
}

bool Est_Noyau(std::string_view Chemin) {
  return Egal_Sans_Casse(Chemin.substr(Chemin.rfind('\\') + 1, 1), "F");
}

/// The beginning of a longer one; a kernel's differs from an application's in every byte.
Octets Contenu_De(std::string_view Chemin, std::size_t Taille) {
  Octets Donnees = Contenu(Taille);
  if (Est_Noyau(Chemin)) return Donnees;
  for (auto& Octet : Donnees) Octet = static_cast<std::uint8_t>(~Octet);
  return Donnees;
}

std::string Reglage_Hostile(int Rang) {
  // clang-format off
  const std::string Textes[] = {"", " ", "C:\\Absent", std::string("C:\\Pavorin\0", 11), "\\", ".", "\\\\serveur\\part", "C:",
      std::string(199, 'x'), "\x81\x8D\xFF", std::string(3, '\0'), "C:\\Pavorin  ", "..\\..", "\"C:\\Pavorin\""};
  // clang-format on
  return Textes[static_cast<std::size_t>(Rang) % std::size(Textes)];
}

}  // namespace

Epreuve::Epreuve(const std::string& Nom)
    : Poste_De_Test(Texte_Lecteur(Nom)),
      Choix(Scenario_Nomme(Nom)),
      Serie_(Scenario_De(Texte_Lecteur(Nom))),
      Lecteur_Change_(Nom.find("lecteur:") != Nom.npos),
      Melange_(Nom.find(',') != Nom.npos),
      Operateur_(Nom.find("clic_") != Nom.npos) {
  for (const auto P : Perturbations_De(Nom)) {
    if (Pour_Le_Lecteur(P)) continue;
    const auto Deux_Points = P.find(':'), Tiret = P.rfind('_', Deux_Points);
    const auto Effet = P.substr(Deux_Points + 1);
    Perturbations_.push_back({std::string(P.substr(0, Tiret)), std::string(Effet), Nombre_De(P.substr(Tiret + 1)),
                              Nombre_De(Effet.substr(Effet.find('_') + 1)), P[Deux_Points - 1] == '!'});
  }
  for (const std::string Repertoire : {"C:\\Pavorin\\", "C:\\Pavorin\\Logiciels\\"}) {
    if (Choix.Noyau != 0) Poser_Fichier(Repertoire + "Fexa0500.ing", Choix.Noyau);
    if (Choix.Appli != 0) Poser_Fichier(Repertoire + "ER0300.ing", Choix.Appli);
  }
  Poser_Reglage("C:\\Pavorin");
  FMain.TxtDetails.Changement = [this] { Voir_Details(); };
  Galss.Apres_Echange = [this](Vue_Octets C, std::int16_t Code, Vue_Octets R, std::int32_t L) {
    Voir_Echange(C, Code, R, L);
  };
  Lecteur.Avant_Appel = [this](Cible Operation, int) {
    Operation_ = Operation;
    Bilan_.Operations.push_back(Operation);
    Pannes_.Passer("Galss");
  };
  Retablir();
}

void Epreuve::Poser_Fichier(const std::string& Chemin, std::size_t Taille) {
  Disque.Poser(Chemin, Contenu_De(Chemin, Taille));
  Ordre_ = Disque.Ordre;
  Fichiers_ = Disque.Fichiers;
}

void Epreuve::Poser_Reglage(const std::string& Texte) {
  Profil.Repertoire() = Ancien_Reglage_ = Octets(Texte.begin(), Texte.end());
}

void Epreuve::Retablir() {
  Lecteur.Rallumer();
  Disque.Ordre = Ordre_;
  Disque.Fichiers = Fichiers_;
  Processus.Actifs = {{41, "galsvw32.exe"}, {42, "autre.exe"}};
  Port.Fermer();
  Port.Absent = false;
  Port.Arrivees.clear();
  Port.Tampon_.clear();
  Port.Repondre = [this](Vue_Octets Trame, const std::string& Reglages) {
    double Delai = 0.005;
    for (auto& Morceau : Serie_.Recevoir(Trame, Nombre_De(Reglages)).Morceaux) {
      Port.Envoyer(std::move(Morceau), Delai += 0.002);
    }
  };
  Ecran.Confirmation = Reponse::Oui;
}

void Epreuve::Agir(const std::function<void()>& Action) {
  if (Arrete) return;
  try {
    Tenter(Action);
  } catch (const Programme_Arrete&) {
    Arrete = true;
  }
}

void Epreuve::Tenter(const std::function<void()>& Action) {
  try {
    Action();
  } catch (const std::exception&) {
    ++Vus_.Echappees;
  }
}

void Epreuve::Passer_Appel(std::string_view Appel) {
  auto Compte = Bilan_.Appels.find(Appel);
  if (Compte == Bilan_.Appels.end()) Compte = Bilan_.Appels.emplace(Appel, 0).first;
  const int Rang = ++Compte->second;
  Vus_.Connecte = Vus_.Connecte || Lecteur.Exclusivite_Tenue();
  Bilan_.Empreinte = Bilan_.Empreinte * 31 + Appel.size();
  if (Relever_Actions && Appel == "Traiter_Evenements") {
    auto& Noms = Bilan_.Actions.emplace_back();
    for (const auto& A : Actions_Permises(App.F)) Noms.push_back(A.Nom);
  }
  for (const auto& P : Perturbations_) {
    if (P.Appel == Appel && (Rang == P.Rang || (P.Toujours && Rang > P.Rang))) Frapper(P, Appel);
  }
}

void Epreuve::Frapper(const Perturbation& P, std::string_view Appel) {
  P.Frappe = true;
  const auto Est = [&](std::string_view Mot) { return P.Effet.starts_with(Mot); };
  if (Est("clic_")) {
    ++Vus_.Clics;
    for (const auto& A : Actions_Permises(App.F)) {
      if (A.Nom == P.Effet.substr(5)) return Tenter(A.Faire);
    }
    Bilan_.Impossible = true;
  } else if (Est("tronquer")) {
    for (auto& [Chemin, Donnees] : Disque.Fichiers) {
      Donnees = Contenu_De(Chemin, static_cast<std::size_t>(P.Valeur));
    }
  } else if (Est("effacer")) {
    Disque.Fichiers.clear();
  } else if (Est("vider")) {
    Disque.Ordre.clear();
  } else if (Est("remplir")) {
    for (int I = 100; I < 140; ++I) Disque.Poser("C:\\Pavorin\\Fexa" + std::to_string(I) + ".ing");
  } else if (Est("profil")) {
    Poser_Reglage(Reglage_Hostile(P.Valeur));
  } else if (Est("processus")) {
    Processus.Actifs.resize(static_cast<std::size_t>(P.Valeur), {43, std::string(300, '\xE9')});
  } else if (Est("non")) {
    Ecran.Confirmation = Reponse::Non;
  } else if (Est("inonder")) {
    Port.Envoyer(Octets(static_cast<std::size_t>(P.Valeur), 0xF2), 0);
  } else if (Est("muet")) {
    Port.Repondre = {};
  } else if (Est("arracher")) {
    Port.Fermer();
  } else {
    Lever(P, Appel);
  }
}

void Epreuve::Lever(const Perturbation& P, std::string_view Appel) {
  const bool Fin = Appel == "Galss" && (Operation_ == Cible::FinExclusivite || Operation_ == Cible::FermerSession);
  const bool Transfert = App.F.FrmAnimCharg.Ouverte() || Appel == "Taille" || Appel == "Ouvrir_Fichier";
  A_Repeter_.reset();
  // The update, the transfers and the serial test alone have a handler of their own.
  constexpr std::string_view Sans_Traitant[] = {"Boite_Message", "Chercher",           "Sous_Repertoires",
                                                "Lecteurs",      "Repertoire_Courant", "Lire_Profil"};
  Vus_.Sans_Traitant = Vus_.Sans_Traitant ||
                       std::find(std::begin(Sans_Traitant), std::end(Sans_Traitant), Appel) != std::end(Sans_Traitant);
  Vus_.Levees_Fin += Fin && Operation_ == Cible::FinExclusivite ? 1 : 0;
  Vus_.Levees_Dedans += Transfert ? 1 : 0;
  Vus_.Levees_Dehors += !Transfert && !Fin ? 1 : 0;
  Vus_.Levees_Connecte += !Transfert && !Fin && Vus_.Connecte ? 1 : 0;
  if (P.Effet == "memoire") throw std::bad_alloc();
  if (P.Effet == "inconnue") throw std::out_of_range("panne");
  throw Erreur(P.Valeur, "Panne");
}

// An exchange is over once its answer is not 64, or was given to its repetition.
void Epreuve::Voir_Echange(Vue_Octets Commande, std::int16_t Code, Vue_Octets Reponse, std::int32_t Longueur) {
  if (Code == 64 && !A_Repeter_) {
    A_Repeter_ = Octets(Commande.begin(), Commande.end());
    return;
  }
  const Octets Premiere = A_Repeter_.value_or(Octets(Commande.begin(), Commande.end()));
  A_Repeter_.reset();
  const auto Trame = Reconnaitre(Premiere);
  if (Trame.Genre == Role::Lecture) {
    ++Vus_.Lectures;
    return;
  }
  const bool Demande = Trame.Genre == Role::Demande;
  const bool Noyau = Est_Noyau(Disque.Ouvertures.back());
  Exiger(!Demande || Noyau || !Vus_.Noyau_En_Cours, "application après un noyau échoué");
  Vus_.Noyau_En_Cours = Vus_.Noyau_En_Cours || (Demande && Noyau);
  Vus_.Blocs = Demande ? 0 : Vus_.Blocs + 1;
  Exiger(Vus_.Blocs <= Disque.Derniere_Taille / Plus_Petit_Bloc + 1, "plus de blocs que n'en veut le fichier");
  const bool Premiere_Famille = Trame.Famille == Famille_Trames::Telechargement;
  Exiger(!Demande || Longueur_Declaree(Trame) == Disque.Derniere_Taille - (Premiere_Famille ? 0 : Octets_Retenus),
         "longueur annoncée");
  if (!Vaut_Accord(Trame, Code, Reponse, Longueur) || (Demande && Reponse[2] == 0)) {
    ++Vus_.Refus;
  } else if (Lecteur.Fichiers().back().Complet()) {
    ++Vus_.Reussis;
    Vus_.Noyau_En_Cours = Vus_.Noyau_En_Cours && !Noyau;
    Vus_.Noyaux_Sans_Suite += Premiere_Famille && Noyau ? 1 : 0;
  }
}

void Epreuve::Voir_Details() {
  const std::string& Nouveau = FMain.TxtDetails.Texte();
  const bool Suite = Nouveau.starts_with(Details_);
  const auto Ajout = std::string_view(Nouveau).substr(Suite ? Details_.size() : 0);
  Vus_.Succes_Montres += Occurrences(Ajout, "Chargement Réussi.");
  Vus_.Erreurs_Montrees += Occurrences(Ajout, "Erreur n°");
  Bilan_.Empreinte = Bilan_.Empreinte * 31 + std::hash<std::string_view>()(Ajout);
  Details_ = Nouveau;
}

void Epreuve::Exiger(bool Vrai, const std::string& Plainte) {
  if (!Vrai) Bilan_.Plaintes.push_back((Reprise_ ? "à la reprise, " : "") + Plainte);
}

// What the reader received, whatever the program says of it.
void Epreuve::Juger_Lecteur() {
  const auto& Recus = Lecteur.Fichiers();
  for (auto I = Vus_.Fichiers; I < Recus.size(); ++I) {
    const auto& Recu = Recus[I].Contenu;
    const auto Debut_De = [&](std::string_view Nom) { return Contenu_De(Nom, Recu.size()) == Recu; };
    Exiger(Debut_De("Fexa") || Debut_De("ER"), "octets reçus qui ne sont pas ceux du fichier");
  }
  for (auto I = Vus_.Fautes; I < Lecteur.Fautes().size(); ++I) {
    const std::string& Faute = Lecteur.Fautes()[I];
    // The error handler disconnects whether or not a failed transfer already did.
    const bool Deja_Fermee =
        Vus_.Levees_Dehors > 0 && Vus_.Refus > 0 && (Faute.starts_with("libération") || Faute.starts_with("fermeture"));
    Exiger(Deja_Fermee || Bilan_.Appels["Ecrire_Profil"] > 1, Faute);
  }
  Exiger(Vus_.Lectures <= 1 || Vus_.Reussis > 0 || Bilan_.Appels["Ecrire_Profil"] > 1, "lectures répétées sans noyau");
  for (const auto& Faute : Serie_.Fautes()) Exiger(false, Faute);
  Exiger(Vus_.Succes_Montres == Vus_.Reussis,
         "succès montrés : " + std::to_string(Vus_.Succes_Montres) + ", vrais : " + std::to_string(Vus_.Reussis));
}

// After a refused transfer and after a failure outside a transfer; nowhere else.
void Epreuve::Juger_Session() {
  if (Bilan_.Appels["Ecrire_Profil"] > 1 || Vus_.Sans_Traitant || (!Choix.Mise_A_Jour && !Reprise_)) return;
  const int Fins = Lecteur.Nombre(Cible::FinExclusivite) - Vus_.Fins;
  const int Fermetures = Lecteur.Nombre(Cible::FermerSession) - Vus_.Fermetures;
  Exiger(Fins == Vus_.Refus + Vus_.Levees_Connecte, "libérations : " + std::to_string(Fins));
  Exiger(Fermetures == Fins - Vus_.Levees_Fin, "fermetures : " + std::to_string(Fermetures));
  const bool Transferts = Bilan_.Appels["Taille"] > Vus_.Noyaux_Sans_Suite;
  const bool Rallume = Vus_.Levees_Dehors + Vus_.Levees_Dedans > 0 || Transferts;
  Exiger(FMain.CmdQuitter.Active() == (Rallume || !Vus_.Quitter_Eteint), "\"Quitter\"");
  Exiger(FMain.Souris() == Pointeur::Defaut || (Vus_.Levees_Dehors > 0 && Bilan_.Appels["Taille"] > 0), "sablier");
}

void Epreuve::Juger_Poste() {
  const auto& Fiche = App.F.FrmResultParam;
  Exiger(Disque.Ouverts == 0, "fichier laissé ouvert");
  Exiger(!Port.Ouvert() || Vus_.Erreurs_Montrees > 0 || Arrete, "port laissé ouvert");
  Exiger(Ecran.Plus_Longue.count() <= 50, "attente sourde");
  const double Duree = Bilan_.Appels["Taille"] * Duree_Transfert + Bilan_.Appels["Ouvrir_Port"] * Duree_Test;
  Exiger(Temps.Maintenant - Vus_.Debut <= Duree, "trop long");
  Exiger(Vus_.Echappees == 0 || Vus_.Sans_Traitant, "erreur échappée");
  const Octets& Reglage = Profil.Repertoire();
  const Octets Nouveau = Cp1252_De_Texte(Rogner(FMain.TxtChooseDirectory.Texte()));
  Exiger(Reglage == Ancien_Reglage_ || Reglage == Nouveau || Vus_.Clics > 0, "réglages déchirés");
  for (const auto Id : Processus.Termines) Exiger(Id == 41, "processus étranger terminé");
  if (Arrete || !FMain.Ouverte()) return;
  Exiger(!App.F.FrmAnimCharg.Ouverte(), "fenêtre de progression restée");
  Exiger(FMain.Active() || Fiche.Ouverte(), "fenêtre principale éteinte");
  Exiger(!FMain.Active() || !Fiche.Ouverte() || Vus_.Clics > 0, "fenêtre principale allumée");
}

void Epreuve::Jouer() {
  Vus_ = {};
  Vus_.Debut = Temps.Maintenant;
  Vus_.Fins = Lecteur.Nombre(Cible::FinExclusivite);
  Vus_.Fermetures = Lecteur.Nombre(Cible::FermerSession);
  Vus_.Fichiers = Lecteur.Fichiers().size();
  Vus_.Fautes = Lecteur.Fautes().size();
  Vus_.Quitter_Eteint = !FMain.CmdQuitter.Active();
  Bilan_.Appels.clear();
  Reprise_ ? Mettre_A_Jour() : Choix.Jouer(*this);
  Juger_Lecteur();
  Juger_Poste();
  if (!Arrete) Juger_Session();
}

void Epreuve::Rechoisir_Repertoire() {
  FMain.TxtChooseDirectory.Texte("C:\\Pavorin\\Vide");
  FMain.TxtChooseDirectory.Texte("C:\\Pavorin");
}

// The same directory again, as the operator chooses it, then an update and a test of the reader.
void Epreuve::Reprendre() {
  Perturbations_.clear();
  Lecteur.Oublier_Defauts();
  Retablir();
  App.F.frmAbout.CmdOK.Cliquer();
  App.F.FDossierING.CmdAnnul.Cliquer();
  App.F.FrmResultParam.CmdOK.Cliquer();
  FMain.OptAuto.Choisir();
  Rechoisir_Repertoire();
  Jouer();
  const int Voulus = Choix.Nom == "refuse" ? 0 : (Choix.Noyau != 0) + (Choix.Appli != 0);
  Exiger(Vus_.Reussis == Voulus || Lecteur_Change_, "fichiers : " + std::to_string(Vus_.Reussis));
  Tester();
  Exiger(App.F.FrmResultParam.Ouverte() || Lecteur_Change_, "test du lecteur");
}

Bilan Epreuve::Passer() {
  Choix.Preparer(*this);
  if (Choix.Mise_A_Jour && !Relever_Actions && !Operateur_) FMain.CmdQuitter.Active(false);
  Pannes_.Avant = [this](std::string_view Appel, int) { Passer_Appel(Appel); };
  Jouer();
  for (const auto& P : Perturbations_) Exiger(P.Frappe || Melange_, "rien de frappé");
  Bilan Premier = Bilan_;
  Relever_Actions = false;
  Reprise_ = true;
  if (!Arrete && FMain.Ouverte()) Reprendre();
  Premier.Plaintes = std::move(Bilan_.Plaintes);
  return Premier;
}

std::size_t Epreuve::Repeter(int Fois, std::size_t (*Mesurer)()) {
  Pannes_.Avant = {};
  Lecteur.Avant_Appel = {};
  for (int I = 0; I < Fois; ++I) {
    Retablir();
    App.F.FrmResultParam.CmdOK.Cliquer();
    Rechoisir_Repertoire();
    Mettre_A_Jour();
    Tester();
  }
  const auto Vider = [](auto&... Journaux) { ((Journaux = std::remove_reference_t<decltype(Journaux)>()), ...); };
  Vider(Ecran.Boites, Port.Conversation, Port.Arrivees, Disque.Ouvertures, Processus.Termines);
  std::size_t Recus = Lecteur.Fichiers().capacity() * sizeof(Fichier_Recu);
  for (const auto& F : Lecteur.Fichiers()) Recus += F.Contenu.capacity();
  return Mesurer() - Recus;
}
