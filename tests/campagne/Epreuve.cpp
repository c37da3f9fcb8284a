#include "tests/campagne/Epreuve.h"

#include <cstdlib>

#include "simulator/Lecture_Texte.h"

namespace {

/// What strikes the station otherwise than by a failure, by its word and the number that follows.
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

Cas::Cas(std::string_view Nom)
    : Operateur(Nom.find("clic_") != Nom.npos),
      Ordinaire(Nom.find("/lecteur") == Nom.npos),
      Nom_Scenario(Nom.substr(0, Nom.find('/'))),
      Choix(Scenarios_Campagne.at(Nom_Scenario)),
      Texte_Lecteur(Choix.Lecteur) {
  for (const auto Part : Decouper(Nom.substr(std::min(Nom_Scenario.size() + 1, Nom.size())), ',')) {
    const std::string P(Part), Mot = P.substr(0, P.find_first_of("_:")), Effet = P.substr(P.find(':') + 1);
    if (Mot == "lecteur") {
      Texte_Lecteur += "\nfamille = toutes\n" + Effet;
    } else if (std::find(Noms_Cibles.begin(), Noms_Cibles.end(), Mot) != Noms_Cibles.end()) {
      Texte_Lecteur += "\ndefaut = ";
      for (const char C : P) Texte_Lecteur += C == '_' ? ' ' : C;
    } else {
      const auto Chiffre = P.find_first_of("0123456789"), Fois = P.find("_fois_");
      const int Rang = std::atoi(P.c_str() + Chiffre),
                En_Plus = Fois == P.npos ? 0 : std::atoi(P.c_str() + Fois + 6) - 1;
      Au_Poste.push_back({P.substr(0, Chiffre - 1), Effet, Rang, Rang + En_Plus});
    }
  }
}

Octets Contenu_De(std::string_view Chemin, std::size_t Taille) {
  Octets Donnees = Contenu(Taille);
  if (Egal_Sans_Casse(Chemin.substr(Chemin.rfind('\\') + 1, 1), "F")) return Donnees;
  for (auto& Octet : Donnees) Octet = static_cast<std::uint8_t>(~Octet);
  return Donnees;
}

Epreuve::Epreuve(std::string_view Nom) : Cas(Nom), Poste_De_Test(Texte_Lecteur) {
  Ecran.Ne_Plus_Regarder();
  for (const std::string Repertoire : {"C:\\Pavorin\\", "C:\\Pavorin\\Logiciels\\"}) {
    const std::string Noyau = Repertoire + "Fexa0500.ing", Appli = Repertoire + "ER0300.ing";
    if (Choix.Noyau != 0) Disque.Poser(Noyau, Contenu_De(Noyau, Choix.Noyau));
    if (Choix.Appli != 0) Disque.Poser(Appli, Contenu_De(Appli, Choix.Appli));
  }
  Profil.Repertoire() = Cp1252_De_Texte("C:\\Pavorin");
  Retablir();
  FMain.TxtDetails.Changement = [this] {
    const std::string Avant = std::exchange(Details_, FMain.TxtDetails.Texte());
    const auto Suite = std::string_view(Details_).substr(Details_.starts_with(Avant) ? Avant.size() : 0);
    if (!Suite.empty()) Vus_.Recit += Lisible(Suite) + "\n";
  };
  Lecteur.Avant_Appel = [this](Cible Operation, int) {
    Operation_ = Noms_Cibles[static_cast<std::size_t>(Operation)];
    ++Appels["appel"];
    ++Appels[Operation_];
    Pannes_.Passer("Galss");
  };
}

void Epreuve::Retablir() {
  Processus.Actifs = {{41, "galsvw32.exe"}, {42, "autre.exe"}};
  Port.Arrivees.clear();
  Port.Tampon_.clear();
  Port.Brancher(Serie_, 0.002);
  Ecran.Confirmation = Reponse::Oui;
}

void Epreuve::Agir(const std::function<void()>& Action) {
  try {
    Action();
  } catch (const std::exception&) {
    ++Vus_.Echappees;
  }
}

void Epreuve::Passer_Appel(std::string_view Appel) {
  const int Rang = ++Appels[Appel];
  if (Appel == "Boite_Message") Vus_.Recit += "[" + Lisible(Ecran.Boites.back()) + "]\n";
  if (Appel == "Traiter_Evenements") {
    Exiger(Ecran.Eveille || !App.F.FrmAnimCharg.Ouverte(), "PC qui peut s'endormir pendant un chargement");
    if (Relever_) Permises.emplace_back();
    for (const auto& [Nom, Faire] : Relever_ ? Actions_Permises(App.F) : Actions()) Permises.back().push_back(Nom);
  }
  for (const auto& P : Au_Poste) {
    if (P.Appel == Appel && Rang >= P.Rang && Rang <= P.Dernier) Frapper(P.Effet, Appel);
  }
}

void Epreuve::Frapper(const std::string& Effet, std::string_view Appel) {
  const int Nombre = std::atoi(Effet.c_str() + Effet.find('_') + 1);
  for (const auto& [Mot, Porter] : Coups_Au_Poste) {
    if (Effet.starts_with(Mot)) return Porter(*this, static_cast<std::size_t>(Nombre));
  }
  if (Effet.starts_with("clic_")) {
    for (const auto& [Nom, Faire] : Actions_Permises(App.F)) {
      if (Nom == Effet.substr(5)) return Agir(Faire);
    }
    return;
  }
  // While a file or the port is open, a procedure that has a handler runs.
  const bool Tenu = Appel == "Creer" && (Disque.Ouverts > 0 || Port.Ouvert());
  ++Vus_.Levees[Appel == "Galss" ? Operation_ : Tenu ? "Creer tenu" : Appel];
  if (Effet == "erreur_48") ++Vus_.Levees["sans bibliothèque"];
  if (Effet == "memoire") throw std::bad_alloc();
  if (Effet == "inconnue") throw std::out_of_range("panne");
  throw Erreur(Nombre, "Panne");
}

void Epreuve::Jouer(const std::function<void(Epreuve&)>& Jeu) {
  Vus_ = {Temps.Maintenant, Lecteur.Fautes().size(), Lecteur.Fichiers().size(), Lecteur.Nombre(Cible::Lecture)};
  Appels.clear();
  Disque.Ouvertures.clear();
  Processus.Termines.clear();
  FMain.CmdQuitter.Active(Quitter_Offert_);
  try {
    Jeu(*this);
  } catch (const Programme_Arrete&) {
    Arrete_ = true;
  }
  Histoire += Vus_.Recit + "----\n";
  Juger();
}

// A clean update, then a test of the reader: whatever happened before, they tell what they do
// after a clean run.
void Epreuve::Reprendre() {
  static std::map<std::string, std::string> Claires;
  const auto [Claire, Premiere] = Claires.try_emplace(Nom_Scenario);
  if (Premiere) Epreuve(Nom_Scenario).Passer();
  Reprise_ = true;
  Relever_ = Quitter_Offert_ = false;
  Au_Poste.clear();
  Lecteur.Oublier_Defauts();
  Lecteur.Rallumer();
  Retablir();
  for (Bouton* Un : {&App.F.frmAbout.CmdOK, &App.F.FDossierING.CmdAnnul, &App.F.FrmResultParam.CmdOK}) Un->Cliquer();
  FMain.OptAuto.Choisir();
  FMain.TxtChooseDirectory.Texte("C:\\Pavorin\\Vide");
  FMain.TxtChooseDirectory.Texte("C:\\Pavorin");
  Jouer([](Epreuve& E) {
    E.Mettre_A_Jour();
    E.Tester();
  });
  if (!Ordinaire) return;
  if (Claire->second.empty()) Claire->second = Vus_.Recit;
  Exiger(Vus_.Recit == Claire->second, "récit au lieu de celui d'un poste neuf :\n" + Vus_.Recit);
}

void Epreuve::Passer(bool Relever_Actions) {
  const auto Ordre = Disque.Ordre;
  const auto Fichiers = Disque.Fichiers;
  Ancien_Reglage_ = Profil.Repertoire();
  Relever_ = Relever_Actions;
  Choix.Preparer(*this);
  Quitter_Offert_ = Relever_ || Operateur;
  Pannes_.Avant = [this](std::string_view Appel, int) { Passer_Appel(Appel); };
  Jouer(Choix.Jouer);
  const auto Premiers = Appels;
  Disque.Ordre = Ordre;
  Disque.Fichiers = Fichiers;
  if (!Arrete_ && FMain.Ouverte()) Reprendre();
  Appels = Premiers;
}
