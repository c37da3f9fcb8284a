#include "tests/campagne/Epreuve.h"

#include <cstdlib>

#include "simulator/Lecture_Texte.h"

namespace {

constexpr int Octets_Retenus = 3;                       // at the end of a file, by the second family
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
    if (P.starts_with("lecteur")) {
      Texte.append("\nfamille = toutes\n").append(P.substr(P.find(':') + 1));
    } else if (Pour_Le_Lecteur(P)) {
      Texte += "\ndefaut = ";
      for (const char C : P) Texte += C == '!' ? " toujours" : std::string(1, C == '_' ? ' ' : C);
    }
  }
  return Texte;
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

// clang-format off
const std::vector<std::string> Reglages_Hostiles = {"", " ", "C:\\Absent", std::string("C:\\Pavorin\0", 11), "\\", ".",
    "\\\\serveur\\part", "C:", std::string(199, 'x'), "\x81\x8D\xFF", std::string(3, '\0'), "C:\\Pavorin  ", "..\\..",
    "\"C:\\Pavorin\""};
// clang-format on

/// What a perturbation does to the station. Nombre: what follows its word.
struct Coup {
  std::string_view Mot;
  void (*Porter)(Epreuve& E, std::size_t Nombre);
};
constexpr Coup Coups_Au_Poste[] = {
    {"effacer", [](auto& E, auto) { E.Disque.Fichiers.clear(); }},
    {"vider", [](auto& E, auto) { E.Disque.Ordre.clear(); }},
    {"non", [](auto& E, auto) { E.Ecran.Confirmation = Reponse::Non; }},
    {"muet", [](auto& E, auto) { E.Port.Repondre = {}; }},
    {"arracher", [](auto& E, auto) { E.Port.Fermer(); }},
    {"inonder", [](auto& E, auto Nombre) { E.Port.Envoyer(Octets(Nombre, 0xF2), 0); }},
    {"profil", [](auto& E, auto Rang) { E.Poser_Reglage(Reglages_Hostiles.at(Rang)); }},
    {"processus",
     [](auto& E, auto Nombre) {
       E.Processus.Actifs.resize(Nombre, {43, std::string(300, '\xE9')});
     }},
    {"tronquer",
     [](auto& E, auto Taille) {
       for (auto& [Chemin, Donnees] : E.Disque.Fichiers) Donnees = Contenu_De(Chemin, Taille);
     }},
    {"remplir",
     [](auto& E, auto) {
       for (int I = 100; I < 140; ++I) E.Disque.Poser("C:\\Pavorin\\Fexa" + std::to_string(I) + ".ing");
     }},
};

}  // namespace

Epreuve::Epreuve(const std::string& Nom)
    : Poste_De_Test(Texte_Lecteur(Nom)),
      Choix(Scenario_Nomme(Nom)),
      Serie_(Scenario_De(Texte_Lecteur(Nom))),
      Lecteur_Change_(Nom.find("/lecteur") != Nom.npos),
      Melange_(Nom.find(',') != Nom.npos),
      Operateur_(Nom.find("clic_") != Nom.npos) {
  Ecran.Ne_Plus_Regarder();
  for (const auto P : Perturbations_De(Nom)) {
    if (Pour_Le_Lecteur(P)) continue;
    const auto Deux_Points = P.find(':'), Tiret = P.rfind('_', Deux_Points);
    const std::string Appel(P.substr(0, Tiret)), Rang(P.substr(Tiret + 1)), Effet(P.substr(Deux_Points + 1));
    const int Nombre = std::atoi(Effet.c_str() + Effet.find('_') + 1);
    Perturbations_.push_back({Appel, Effet, std::atoi(Rang.c_str()), Nombre, P[Deux_Points - 1] == '!'});
  }
  Retablir();
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
    ++Bilan_.Appels["appel"];
    ++Bilan_.Appels[Noms_Cibles[static_cast<std::size_t>(Operation)]];
    Pannes_.Passer("Galss");
  };
}

void Epreuve::Poser_Fichier(const std::string& Chemin, std::size_t Taille) {
  Disque.Poser(Chemin, Contenu_De(Chemin, Taille));
}

void Epreuve::Poser_Reglage(const std::string& Texte) {
  Profil.Repertoire() = Ancien_Reglage_ = Octets(Texte.begin(), Texte.end());
}

void Epreuve::Retablir() {
  Lecteur.Rallumer();
  Disque.Ordre = Ordre_;
  Disque.Fichiers = Fichiers_;
  Processus.Actifs = {{41, "galsvw32.exe"}, {42, "autre.exe"}};
  Port.Arrivees.clear();
  Port.Tampon_.clear();
  Port.Brancher(Serie_, 0.002);
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
  const int Rang = ++Bilan_.Appels[Appel];
  Vus_.Connecte = Vus_.Connecte || Lecteur.Exclusivite_Tenue();
  if (Relever_Actions && Appel == "Traiter_Evenements") {
    auto& Noms = Bilan_.Actions.emplace_back();
    for (const auto& A : Actions_Permises(App.F)) Noms.push_back(A.Nom);
  }
  for (auto& P : Perturbations_) {
    if (P.Appel == Appel && (Rang == P.Rang || (P.Toujours && Rang > P.Rang))) Frapper(P, Appel);
  }
}

void Epreuve::Frapper(Perturbation& P, std::string_view Appel) {
  P.Frappe = true;
  for (const auto& C : Coups_Au_Poste) {
    if (P.Effet.starts_with(C.Mot)) return C.Porter(*this, static_cast<std::size_t>(P.Valeur));
  }
  if (!P.Effet.starts_with("clic_")) Lever(P, Appel);
  for (const auto& A : Actions_Permises(App.F)) {
    if (A.Nom == P.Effet.substr(5)) return Tenter(A.Faire);
  }
  Bilan_.Impossible = true;
}

void Epreuve::Lever(const Perturbation& P, std::string_view Appel) {
  const bool Fin = Appel == "Galss" && (Operation_ == Cible::FinExclusivite || Operation_ == Cible::FermerSession);
  const bool Transfert = App.F.FrmAnimCharg.Ouverte() || Appel == "Taille" || Appel == "Ouvrir_Fichier";
  const bool Dehors = !Transfert && !Fin;
  A_Repeter_.clear();
  // The update, the transfers and the serial test alone have a handler of their own, and open each its window.
  constexpr std::string_view Sans_Traitant[] = {"Boite_Message", "Chercher",           "Sous_Repertoires",
                                                "Lecteurs",      "Repertoire_Courant", "Lire_Profil"};
  Vus_.Sans_Traitant = Vus_.Sans_Traitant || (Appel == "Creer" && !Transfert && !App.F.FrmResultParam.Ouverte()) ||
                       std::find(std::begin(Sans_Traitant), std::end(Sans_Traitant), Appel) != std::end(Sans_Traitant);
  Vus_.Levees_Fin += Fin && Operation_ == Cible::FinExclusivite ? 1 : 0;
  Vus_.Levees_Dedans += Transfert ? 1 : 0;
  Vus_.Levees_Dehors += Dehors ? 1 : 0;
  Vus_.Levees_Connecte += Dehors && Vus_.Connecte ? 1 : 0;
  if (P.Effet == "memoire") throw std::bad_alloc();
  if (P.Effet == "inconnue") throw std::out_of_range("panne");
  throw Erreur(P.Valeur, "Panne");
}

// An exchange is over once its answer is not 64, or was given to its repetition.
void Epreuve::Voir_Echange(Vue_Octets Commande, std::int16_t Code, Vue_Octets Reponse, std::int32_t Longueur) {
  const bool Repetee = !A_Repeter_.empty();
  const Octets Envoyee = Repetee ? std::exchange(A_Repeter_, {}) : Octets(Commande.begin(), Commande.end());
  if (Code == 64 && !Repetee) {
    A_Repeter_ = Envoyee;
    return;
  }
  const auto Trame = Reconnaitre(Envoyee);
  if (Trame.Role == Role_Trame::Lecture) {
    ++Vus_.Lectures;
    return;
  }
  const bool Demande = Trame.Role == Role_Trame::Demande;
  const bool Noyau = Est_Noyau(Disque.Ouvertures.back());
  const bool Premiere_Famille = Trame.Famille == Famille_Trames::Telechargement;
  Exiger(!Demande || Longueur_Declaree(Trame) == Disque.Derniere_Taille - (Premiere_Famille ? 0 : Octets_Retenus),
         "longueur annoncée");
  if (!Vaut_Accord(Trame, Code, Reponse, Longueur) || (Demande && Reponse[2] == 0)) {
    ++Vus_.Refus;
  } else if (Lecteur.Fichiers().back().Complet()) {
    ++Vus_.Reussis;
    Vus_.Noyaux_Sans_Suite += Premiere_Famille && Noyau ? 1 : 0;
  }
}

void Epreuve::Voir_Details() {
  const std::string& Nouveau = FMain.TxtDetails.Texte();
  const auto Ajout = std::string_view(Nouveau).substr(Nouveau.starts_with(Details_) ? Details_.size() : 0);
  Vus_.Succes_Montres += Ajout.find("Chargement Réussi.") != Ajout.npos;
  Details_ = Nouveau;
}

void Epreuve::Exiger(bool Vrai, const std::string& Plainte) {
  if (!Vrai) Bilan_.Plaintes.push_back((Reprise_ ? "à la reprise, " : "") + Plainte);
}

// What the reader received, whatever the program says of it.
void Epreuve::Juger_Lecteur() {
  const bool Plusieurs = Bilan_.Appels["Ecrire_Profil"] > 1;  // updates
  for (const auto& Recu : Lecteur.Fichiers()) {
    const auto Debut_De = [&](std::string_view Nom) { return Contenu_De(Nom, Recu.Contenu.size()) == Recu.Contenu; };
    Exiger(Debut_De("Fexa") || Debut_De("ER"), "octets reçus qui ne sont pas ceux du fichier");
  }
  for (const auto& Faute : std::span(Lecteur.Fautes()).subspan(Vus_.Fautes)) {
    // The error handler disconnects whether or not a failed transfer already did.
    const bool Deja_Fermee =
        Vus_.Levees_Dehors > 0 && Vus_.Refus > 0 && (Faute.starts_with("libération") || Faute.starts_with("fermeture"));
    Exiger(Deja_Fermee || Plusieurs, Faute);
  }
  Exiger(Vus_.Lectures <= 1 || Vus_.Reussis > 0 || Plusieurs, "lectures répétées sans noyau");
  for (const auto& Faute : Serie_.Fautes()) Exiger(false, Faute);
  Exiger(Vus_.Succes_Montres == Vus_.Reussis,
         "succès montrés : " + std::to_string(Vus_.Succes_Montres) + ", vrais : " + std::to_string(Vus_.Reussis));
}

// One update: the session ends after a refused transfer and after a failure outside a transfer; nowhere else.
void Epreuve::Juger_Session() {
  if (Bilan_.Appels["Ecrire_Profil"] != 1 || Vus_.Sans_Traitant) return;
  const int Fins = Bilan_.Appels["FinExclusivite"], Fermetures = Bilan_.Appels["FermerSession"];
  Exiger(Fins == Vus_.Refus + Vus_.Levees_Connecte, "libérations : " + std::to_string(Fins));
  Exiger(Fermetures == Fins - Vus_.Levees_Fin, "fermetures : " + std::to_string(Fermetures));
  const bool Transferts = Bilan_.Appels["Taille"] > Vus_.Noyaux_Sans_Suite;
  const bool Rallume = Vus_.Levees_Dehors + Vus_.Levees_Dedans > 0 || Transferts;
  Exiger(FMain.CmdQuitter.Active() == (Rallume || Quitter_Offert_), "\"Quitter\"");
  Exiger(FMain.Souris() == Pointeur::Defaut || (Vus_.Levees_Dehors > 0 && Bilan_.Appels["Taille"] > 0), "sablier");
}

void Epreuve::Juger_Poste() {
  Exiger(Disque.Ouverts == 0, "fichier laissé ouvert");
  Exiger(!Port.Ouvert() || Arrete, "port laissé ouvert");
  Exiger(Ecran.Plus_Longue.count() <= 50, "attente sourde");
  const double Duree = Bilan_.Appels["Taille"] * Duree_Transfert + Bilan_.Appels["Ouvrir_Port"] * Duree_Test;
  Exiger(Temps.Maintenant - Vus_.Debut <= Duree, "trop long");
  Exiger(Vus_.Echappees == 0 || Vus_.Sans_Traitant, "erreur échappée");
  const Octets& Reglage = Profil.Repertoire();
  const Octets Nouveau = Cp1252_De_Texte(Rogner(FMain.TxtChooseDirectory.Texte()));
  Exiger(Reglage == Ancien_Reglage_ || Reglage == Nouveau || Operateur_, "réglages déchirés");
  for (const auto Id : Processus.Termines) Exiger(Id == 41, "processus étranger terminé");
  if (Arrete || !FMain.Ouverte()) return;
  Exiger(!App.F.FrmAnimCharg.Ouverte(), "fenêtre de progression restée");
  const bool Fiche = App.F.FrmResultParam.Ouverte();
  Exiger(FMain.A_Portee() != Fiche && (FMain.Active() || Fiche), "fenêtre principale");
}

void Epreuve::Jouer(const std::function<void(Epreuve&)>& Jeu) {
  Vus_ = {.Debut = Temps.Maintenant, .Fautes = Lecteur.Fautes().size()};
  Bilan_.Appels.clear();
  FMain.CmdQuitter.Active(Quitter_Offert_);
  Jeu(*this);
  Juger_Lecteur();
  Juger_Poste();
  if (!Arrete) Juger_Session();
}

void Epreuve::Recommencer() {
  Retablir();
  App.F.frmAbout.CmdOK.Cliquer();
  App.F.FDossierING.CmdAnnul.Cliquer();
  App.F.FrmResultParam.CmdOK.Cliquer();
  FMain.OptAuto.Choisir();
  FMain.TxtChooseDirectory.Texte("C:\\Pavorin\\Vide");
  FMain.TxtChooseDirectory.Texte("C:\\Pavorin");
}

// A clean update, then a test of the reader.
void Epreuve::Reprendre() {
  Reprise_ = true;
  Operateur_ = Relever_Actions = Quitter_Offert_ = false;
  Perturbations_.clear();
  Lecteur.Oublier_Defauts();
  Recommencer();
  Jouer([](Epreuve& E) {
    E.Mettre_A_Jour();
    E.Tester();
  });
  const int Voulus = Choix.Nom == "refuse" ? 0 : (Choix.Noyau != 0) + (Choix.Appli != 0);
  Exiger(Vus_.Reussis == Voulus || Lecteur_Change_, "fichiers : " + std::to_string(Vus_.Reussis));
  Exiger(App.F.FrmResultParam.Ouverte() || Lecteur_Change_, "test du lecteur");
}

Bilan Epreuve::Passer() {
  Ordre_ = Disque.Ordre;
  Fichiers_ = Disque.Fichiers;
  Choix.Preparer(*this);
  Quitter_Offert_ = Relever_Actions || Operateur_;
  Pannes_.Avant = [this](std::string_view Appel, int) { Passer_Appel(Appel); };
  Jouer(Choix.Jouer);
  for (const auto& P : Perturbations_) Exiger(P.Frappe || Melange_, "rien de frappé");
  Bilan Premier = Bilan_;
  if (!Arrete && FMain.Ouverte()) Reprendre();
  Premier.Plaintes = std::move(Bilan_.Plaintes);
  return Premier;
}
