#include "tests/campagne/Epreuve.h"

#include <cstdlib>

#include "simulator/Lecture_Texte.h"

namespace {

constexpr int Octets_Retenus = 3;  // at the end of a file, by the second family

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

/// What a perturbation does to the station, by its word and the number that follows.
constexpr std::pair<std::string_view, void (*)(Epreuve& E, std::size_t Nombre)> Coups_Au_Poste[] = {
    {"effacer", [](auto& E, auto) { E.Disque.Fichiers.clear(); }},
    {"vider", [](auto& E, auto) { E.Disque.Ordre.clear(); }},
    {"non", [](auto& E, auto) { E.Ecran.Confirmation = Reponse::Non; }},
    {"muet", [](auto& E, auto) { E.Port.Repondre = {}; }},
    {"arracher", [](auto& E, auto) { E.Port.Fermer(); }},
    {"inonder", [](auto& E, auto Nombre) { E.Port.Envoyer(Octets(Nombre, 0xF2), 0); }},
    {"tronquer",
     [](auto& E, auto Taille) {
       for (auto& [Chemin, Donnees] : E.Disque.Fichiers) Donnees = Contenu_De(Chemin, Taille);
     }},
};

}  // namespace

bool Est_Noyau(std::string_view Chemin) {
  return Egal_Sans_Casse(Chemin.substr(Chemin.rfind('\\') + 1, 1), "F");
}

Octets Contenu_De(std::string_view Chemin, std::size_t Taille) {
  Octets Donnees = Contenu(Taille);
  if (Est_Noyau(Chemin)) return Donnees;
  for (auto& Octet : Donnees) Octet = static_cast<std::uint8_t>(~Octet);
  return Donnees;
}

Epreuve::Epreuve(const std::string& Nom)
    : Poste_De_Test(Texte_Lecteur(Nom)),
      Choix(Scenario_Nomme(Nom)),
      Serie_(Scenario_De(Texte_Lecteur(Nom))),
      Operateur_(Nom.find("clic_") != Nom.npos),
      Melange_(Nom.find(',') != Nom.npos),
      Ordinaire_(Nom.find("/lecteur") == Nom.npos) {
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
    const std::string Noyau = Repertoire + "Fexa0500.ing", Appli = Repertoire + "ER0300.ing";
    if (Choix.Noyau != 0) Disque.Poser(Noyau, Contenu_De(Noyau, Choix.Noyau));
    if (Choix.Appli != 0) Disque.Poser(Appli, Contenu_De(Appli, Choix.Appli));
  }
  Poser_Reglage("C:\\Pavorin");
  FMain.TxtDetails.Changement = [this] { Voir_Details(); };
  Galss.Apres_Echange = [this](auto...) { Voir_Annonce(); };
  Lecteur.Avant_Appel = [this](Cible Operation, int) {
    Operation_ = Operation;
    ++Bilan_.Appels["appel"];
    ++Bilan_.Appels[Noms_Cibles[static_cast<std::size_t>(Operation)]];
    Pannes_.Passer("Galss");
  };
}

void Epreuve::Poser_Fichier(const std::string& Chemin, std::size_t Taille) {
  Ordinaire_ = false;
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
  if (Arrete_) return;
  try {
    Tenter(Action);
  } catch (const Programme_Arrete&) {
    Arrete_ = true;
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
  if (Appel == "Boite_Message") Vus_.Recit += "[" + Ecran.Boites.back() + "]\r\n";
  if (Appel == "Traiter_Evenements") {
    Exiger(Ecran.Eveille || !App.F.FrmAnimCharg.Ouverte(), "PC qui peut s'endormir pendant un chargement");
    if (Relever_Actions) {
      auto& Noms = Bilan_.Actions.emplace_back();
      for (const auto& A : Actions_Permises(App.F)) Noms.push_back(A.Nom);
    }
  }
  for (auto& P : Perturbations_) {
    if (P.Appel != Appel || (Rang != P.Rang && !(P.Toujours && Rang > P.Rang))) continue;
    P.Frappe = true;
    Frapper(P, Appel);
  }
}

void Epreuve::Frapper(const Perturbation& P, std::string_view Appel) {
  for (const auto& [Mot, Porter] : Coups_Au_Poste) {
    if (P.Effet.starts_with(Mot)) return Porter(*this, static_cast<std::size_t>(P.Valeur));
  }
  if (P.Effet.starts_with("clic_")) {
    for (const auto& A : Actions_Permises(App.F)) {
      if (A.Nom == P.Effet.substr(5)) return Tenter(A.Faire);
    }
    Bilan_.Impossible = true;
    return;
  }
  // While a file or the port is open, a procedure that has a handler runs.
  const bool Tenu = Appel == "Creer" && (Disque.Ouverts > 0 || Port.Ouvert());
  ++Vus_.Levees[Appel == "Galss" ? Noms_Cibles[static_cast<std::size_t>(Operation_)] : Tenu ? "Creer tenu" : Appel];
  if (P.Effet == "erreur_48") ++Vus_.Sans_Bibliotheque;
  if (P.Effet == "memoire") throw std::bad_alloc();
  if (P.Effet == "inconnue") throw std::out_of_range("panne");
  throw Erreur(P.Valeur, "Panne");
}

void Epreuve::Voir_Annonce() {
  if (Annonces_ == Lecteur.Fichiers().size()) return;
  Annonces_ = Lecteur.Fichiers().size();
  const auto& Recu = Lecteur.Fichiers().back();
  const int Retenus = Recu.Famille == Famille_Trames::Chargement ? Octets_Retenus : 0;
  Exiger(Recu.Longueur == Disque.Derniere_Taille - Retenus, "longueur annoncée");
}

void Epreuve::Voir_Details() {
  const std::string& Nouveau = FMain.TxtDetails.Texte();
  Vus_.Recit += std::string_view(Nouveau).substr(Nouveau.starts_with(Details_) ? Details_.size() : 0);
  Details_ = Nouveau;
}

void Epreuve::Jouer(const std::function<void(Epreuve&)>& Jeu) {
  Vus_ = {.Debut = Temps.Maintenant,
          .Fautes = Lecteur.Fautes().size(),
          .Fichiers = Lecteur.Fichiers().size(),
          .Lectures = Lecteur.Nombre(Cible::Lecture)};
  Bilan_.Appels.clear();
  Ecran.Boites.clear();
  Disque.Ouvertures.clear();
  Processus.Termines.clear();
  FMain.CmdQuitter.Active(Quitter_Offert_);
  Jeu(*this);
  Histoire += Vus_.Recit + "----\r\n";
  Juger();
}

// A clean update, then a test of the reader: whatever happened before, they tell what they do
// after a clean run.
void Epreuve::Reprendre() {
  static std::map<std::string_view, std::string> Claires;
  const auto [Claire, Premiere] = Claires.try_emplace(Choix.Nom);
  if (Premiere) Epreuve(std::string(Choix.Nom)).Passer();
  Reprise_ = true;
  Relever_Actions = Quitter_Offert_ = false;
  Perturbations_.clear();
  Lecteur.Oublier_Defauts();
  Retablir();
  App.F.frmAbout.CmdOK.Cliquer();
  App.F.FDossierING.CmdAnnul.Cliquer();
  App.F.FrmResultParam.CmdOK.Cliquer();
  FMain.OptAuto.Choisir();
  FMain.TxtChooseDirectory.Texte("C:\\Pavorin\\Vide");
  FMain.TxtChooseDirectory.Texte("C:\\Pavorin");
  Jouer([](Epreuve& E) {
    E.Mettre_A_Jour();
    E.Tester();
  });
  if (!Ordinaire_) return;
  const int Voulus = Choix.Nom == "refuse" ? 0 : (Choix.Noyau != 0) + (Choix.Appli != 0);
  Exiger(Dit("Chargement Réussi.\t14:30:05") == Voulus, "fichiers");
  Exiger(App.F.FrmResultParam.Ouverte(), "test du lecteur");
  if (Claire->second.empty()) Claire->second = Vus_.Recit;
  Exiger(Vus_.Recit == Claire->second, "récit au lieu de celui d'un poste neuf :\n" + Vus_.Recit);
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
  if (!Arrete_ && FMain.Ouverte()) Reprendre();
  Premier.Plaintes = std::move(Bilan_.Plaintes);
  return Premier;
}
