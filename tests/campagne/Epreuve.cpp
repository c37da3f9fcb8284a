#include "tests/campagne/Epreuve.h"

#include "simulator/Lecture_Texte.h"

namespace {

/// What strikes the station, by its word; what follows the word comes with it.
const std::map<std::string, decltype(Cas::Coup::Porter)> Coups_Au_Poste = {
    {"effacer", [](auto& E, auto&) { E.Disque.Fichiers.clear(); }},
    {"vider", [](auto& E, auto&) { E.Disque.Ordre.clear(); }},
    {"non", [](auto& E, auto&) { E.Ecran.Confirmation = Reponse::Non; }},
    {"muet", [](auto& E, auto&) { E.Port.Repondre = {}; }},
    {"arracher", [](auto& E, auto&) { E.Port.Fermer(); }},
    {"inonder", [](auto& E, auto& Nombre) { E.Port.Envoyer(Octets(std::stoul(Nombre), 0xF2), 0); }},
    {"tronquer",
     [](auto& E, auto& Taille) {
       for (auto& [Chemin, Donnees] : E.Disque.Fichiers) Donnees = Contenu_De(Chemin, std::stoul(Taille));
     }},
    {"clic",
     [](auto& E, auto& Nom) {
       for (const auto& [Une, Faire] : Actions_Permises(E.App.F))
         if (Une == Nom) return E.Agir(Faire);
     }},
    {"erreur", [](auto&, auto& Numero) { throw Erreur(std::stoi(Numero), "Panne"); }},
    {"memoire", [](auto&, auto&) { throw std::bad_alloc(); }},
    {"inconnue", [](auto&, auto&) { throw std::out_of_range("panne"); }},
};

/// Where no procedure has a handler: a failure comes out of the operator's action.
constexpr std::string_view Sans_Traitant[] = {
    "Boite_Message", "Chercher", "Sous_Repertoires", "Lecteurs", "Repertoire_Courant", "Lire_Profil", "Creer"};

}  // namespace

Cas::Cas(std::string_view Nom)
    : Operateur(Nom.find("clic_") != Nom.npos),
      Ordinaire(Nom.find("/lecteur") == Nom.npos),
      Nom_Scenario(Nom.substr(0, Nom.find('/'))),
      Choix(Scenarios_Campagne.at(Nom_Scenario)),
      Texte_Lecteur(Choix.Lecteur) {
  for (const auto Part : Decouper(Nom.substr(std::min(Nom_Scenario.size() + 1, Nom.size())), ',')) {
    std::string P(Part);
    if (P.starts_with("lecteur:")) {
      Texte_Lecteur += "\nfamille = toutes\n" + P.substr(8);
    } else if (std::ranges::find(Noms_Cibles, P.substr(0, P.find('_'))) != Noms_Cibles.end()) {
      std::ranges::replace(P, '_', ' ');
      Texte_Lecteur += "\ndefaut = " + P;
    } else {
      const auto Chiffre = P.find_first_of("0123456789"), Fois = P.find("_fois_"), Effet = P.find(':') + 1;
      const auto Fin = std::min(P.find('_', Effet), P.size() - 1);
      const int Rang = std::stoi(P.substr(Chiffre)), En_Plus = Fois == P.npos ? 0 : std::stoi(P.substr(Fois + 6)) - 1;
      const auto Porter = Coups_Au_Poste.at(P.substr(Effet, P.find('_', Effet) - Effet));
      Au_Poste.push_back({P.substr(0, Chiffre - 1), Rang, Rang + En_Plus, Porter, P.substr(Fin + 1)});
    }
  }
}

Octets Contenu_De(std::string_view Chemin, std::size_t Taille) {
  Octets Donnees = Contenu(Taille);
  if (!Egal_Sans_Casse(Chemin.substr(Chemin.rfind('\\') + 1, 1), "F"))
    for (auto& Octet : Donnees) Octet = static_cast<std::uint8_t>(~Octet);
  return Donnees;
}

Epreuve::Epreuve(std::string_view Nom) : Cas(Nom), Poste_De_Test(Texte_Lecteur) {
  Ecran.Ne_Plus_Regarder();
  Profil.Repertoire() = Cp1252_De_Texte("C:\\Pavorin");
  Retablir();
  FMain.TxtDetails.Changement = [this] {
    const std::string Avant = std::exchange(Details_, FMain.TxtDetails.Texte());
    const auto Suite = std::string_view(Details_).substr(Details_.starts_with(Avant) ? Avant.size() : 0);
    if (!Suite.empty()) Vus_.Recit += Lisible(Suite) + "\n";
  };
}

void Epreuve::Retablir() {
  Disque.Ordre.clear();
  for (const std::string Repertoire : {"C:\\Pavorin\\", "C:\\Pavorin\\Logiciels\\"}) {
    const std::string Noyau = Repertoire + "Fexa0500.ing", Appli = Repertoire + "ER0300.ing";
    if (Choix.Noyau != 0) Disque.Poser(Noyau, Contenu_De(Noyau, Choix.Noyau));
    if (Choix.Appli != 0) Disque.Poser(Appli, Contenu_De(Appli, Choix.Appli));
  }
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
    Exiger(std::ranges::count(Sans_Traitant, Vus_.Frappe) > 0, "erreur échappée");
  }
}

void Epreuve::Passer_Appel(std::string_view Appel) {
  if (Appel == "Boite_Message") Vus_.Recit += "[" + Lisible(Ecran.Boites.back()) + "]\n";
  if (Appel == "Traiter_Evenements")
    Exiger(Ecran.Eveille || !App.F.FrmAnimCharg.Ouverte(), "PC qui peut s'endormir pendant un chargement");
  if (Reprise_) return;
  const int Rang = ++Appels[Appel];
  if (Relever_ && Appel == "Traiter_Evenements") {
    Permises.emplace_back();
    for (const auto& [Nom, Faire] : Actions_Permises(App.F)) Permises.back().push_back(Nom);
  }
  for (const auto& C : Au_Poste) {
    if (C.Appel != Appel || Rang < C.Rang || Rang > C.Dernier) continue;
    Vus_.Frappe = Appel;
    C.Porter(*this, C.Suite);
  }
}

void Epreuve::Jouer(const std::function<void(Epreuve&)>& Jeu) {
  Vus_ = {Lecteur.Fichiers().size(), Lecteur.Fautes().size()};
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
  if (Claire->second.empty()) Claire->second = Vus_.Recit;
  Exiger(!Ordinaire || Vus_.Recit == Claire->second, "récit au lieu de celui d'un poste neuf :\n" + Vus_.Recit);
}

void Epreuve::Passer(bool Relever_Actions) {
  Relever_ = Relever_Actions;
  Choix.Preparer(*this);
  Pannes_.Avant = [this](std::string_view Appel, int) { Passer_Appel(Appel); };
  Jouer(Choix.Jouer);
  for (const Cible Quoi : {Cible::Appel, Cible::Echange})
    Appels[Noms_Cibles[static_cast<std::size_t>(Quoi)]] = Lecteur.Nombre(Quoi);
  if (!Arrete_ && FMain.Ouverte()) Reprendre();
}
