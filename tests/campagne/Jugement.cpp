// The judge: what the operator, the reader and the PC can see once a scenario was played. It knows
// which failures were raised, and nothing of the program's own steps.
//
// A file whose last acknowledgement is lost is in the reader although nobody can know it: there,
// "Chargement Réussi." is wrong. It must be shown exactly when the reader holds the whole file and
// its consent reached the program.

#include <regex.h>

#include <fstream>

#include "simulator/Lecture_Texte.h"
#include "tests/campagne/Epreuve.h"

namespace {

constexpr double Duree_Transfert = 26, Duree_Test = 6;  // at most, in seconds
constexpr double Pause_Reussite = 7, Pause_Echec = 3;   // at least

/// All that an update says, a letter for each line of the pane and for each box; "*" stands for anything.
/// Of those that fit, the first; none, 'm': a failure's text, or a test's digits.
std::vector<std::pair<char, std::string>> Lire_Alphabet() {
  std::vector<std::pair<char, std::string>> Lu;
  std::ifstream Fichier(CAMPAGNE "/alphabet.txt");
  for (std::string Ligne; std::getline(Fichier, Ligne);) Lu.emplace_back(Ligne[0], Ligne.substr(2));
  return Lu;
}

std::string En_Lettres(std::string_view Recit) {
  static const auto Alphabet = Lire_Alphabet();
  std::string Lettres;
  for (const auto Ligne : Decouper(Recit, '\n')) {
    const auto Trouvee = std::ranges::find_if(Alphabet, [&](const auto& Une) {
      const auto Joker = Une.second.find('*');
      if (Joker == Une.second.npos) return Ligne == Une.second;
      return Ligne.starts_with(Une.second.substr(0, Joker)) && Ligne.ends_with(Une.second.substr(Joker + 1));
    });
    Lettres += Trouvee == Alphabet.end() ? 'm' : Trouvee->first;
  }
  return Lettres;
}

struct Grammaire {
  explicit Grammaire(const char* Motif) { regcomp(&Regle, Motif, REG_EXTENDED | REG_NOSUB); }
  bool Admet(const std::string& Lettres) const { return regexec(&Regle, Lettres.c_str(), 0, nullptr, 0) == 0; }
  regex_t Regle;
};

/// An update from its first line to its last, in letters; then one that a failure cut short anywhere.
/// Where a transfer's end is told, it may still fail: in its pause, or as it disconnects.
#define TRANSFERT "(eI?|[kO]D?(eFI?|(R|Bd?)(eFI?)?))"
const Grammaire Menee_A_Bien("^P=c(m+A|C(m+A?)?)([12]|3na|4ia|QUA|Q" TRANSFERT "{1,2}A)$"),
    Rompue("^P=(c(m+A?)?1?|cC(m+A?)?([12]|3(na?)?|4(ia?)?|QU?A?|Q" TRANSFERT "{1,2}A?)?d?X)?[SI]$");

/// Where no procedure has a handler: a failure comes out of the operator's action.
constexpr std::string_view Sans_Traitant[] = {
    "Boite_Message", "Chercher", "Sous_Repertoires", "Lecteurs", "Repertoire_Courant", "Lire_Profil", "Creer"};

}  // namespace

void Epreuve::Exiger(bool Vrai, const std::string& Plainte) {
  if (!Vrai) Plaintes.push_back((Reprise_ ? "à la reprise, " : "") + Plainte + " (" + Vus_.Lettres + ")");
}

// How often it says one of these.
int Epreuve::Dit(std::string_view Lettres) const {
  return static_cast<int>(
      std::count_if(Vus_.Lettres.begin(), Vus_.Lettres.end(), [&](char C) { return Lettres.find(C) != Lettres.npos; }));
}

void Epreuve::Juger() {
  Vus_.Lettres = En_Lettres(Vus_.Recit);
  Juger_Poste();
  Juger_Lecteur();
  if (Arrete_) return;
  if (Dit("P") == 1) Juger_Mise_A_Jour();
  if (Appels["Regler"] > 0 && (!Operateur || Reprise_)) Juger_Test();
  if (Reprise_ && Ordinaire) Exiger(Vus_.Lettres.ends_with('T'), "reprise manquée");
}

void Epreuve::Juger_Poste() {
  Exiger(Disque.Ouverts == 0, "fichier laissé ouvert");
  Exiger(!Port.Ouvert() || Arrete_, "port laissé ouvert");
  Exiger(!Ecran.Eveille || Arrete_, "PC tenu éveillé");
  Exiger(Ecran.Plus_Longue.count() <= 50, "attente sourde");
  const double Duree = Temps.Maintenant - Vus_.Debut;
  Exiger(Duree <= Appels["Taille"] * Duree_Transfert + Appels["Ouvrir_Port"] * Duree_Test, "trop long");
  int Libres = 0;
  for (const auto Appel : Sans_Traitant) Libres += Vus_.Levees[Appel];
  Exiger(Vus_.Echappees <= Libres, "erreur échappée");
  const Octets Nouveau = Cp1252_De_Texte(Rogner(FMain.TxtChooseDirectory.Texte()));
  const bool Ecrits = Dit("P") > Vus_.Levees["Ecrire_Profil"];
  Exiger(Profil.Repertoire() == (Ecrits ? Nouveau : Ancien_Reglage_) || Operateur, "réglages");
  for (const auto Id : Processus.Termines) Exiger(Id == 41, "processus étranger terminé");
  Exiger(std::ssize(Processus.Termines) == Dit("Aa") - Vus_.Levees["Lister"] || Arrete_, "arrêts du Galss");
  if (Arrete_ || !FMain.Ouverte()) return;
  Exiger(FMain.A_Portee() != App.F.FrmResultParam.Ouverte(), "fenêtre principale");
}

// What the reader received, whatever the program says of it.
void Epreuve::Juger_Lecteur() {
  int Entiers = 0;
  for (const auto& Recu : std::span(Lecteur.Fichiers()).subspan(Vus_.Fichiers)) {
    const auto Debut_De = [&](std::string_view Nom) { return Contenu_De(Nom, Recu.Contenu.size()) == Recu.Contenu; };
    Exiger(Debut_De("Fexa") || Debut_De("ER"), "octets reçus qui ne sont pas ceux du fichier");
    Entiers += Recu.Complet() && Recu.Accepte ? 1 : 0;
    const int Annoncee = Recu.Longueur + (Recu.Famille == Famille_Trames::Chargement ? 3 : 0);
    const auto Est = [&](auto Taille) { return std::cmp_equal(Annoncee, Taille); };
    const bool Presente =
        std::ranges::any_of(Disque.Fichiers, [&](const auto& Fichier) { return Est(Fichier.second.size()); });
    Exiger(Presente || Est(Choix.Noyau) || Est(Choix.Appli) || Est(Disque.Derniere_Taille),
           "longueur annoncée : " + std::to_string(Annoncee));
  }
  Exiger(Dit("R") == Entiers, "vrais succès : " + std::to_string(Entiers));
  for (const auto& Faute : std::span(Lecteur.Fautes()).subspan(Vus_.Fautes)) {
    // The error handler disconnects whether or not a failed transfer already did.
    const bool Deja_Fermee =
        Dit("B") > 0 && Dit("X") > 0 && (Faute.starts_with("libération") || Faute.starts_with("fermeture"));
    Exiger(Deja_Fermee || Dit("P") > 1, Faute);
  }
  for (const auto& Faute : Serie_.Fautes()) Exiger(false, Faute);
}

// One update: every line and every box whole and at its place, the session as it was told, and the window
// the operator's again.
void Epreuve::Juger_Mise_A_Jour() {
  std::string Lettres = Vus_.Lettres;
  if (Operateur) std::erase(Lettres, '?');
  if (Appels["Regler"] > 0) {  // a test around it, or after it
    Lettres.erase(Lettres.find_last_not_of("mVT") + 1);
    Lettres.erase(0, Lettres.find('P'));
  }
  const bool Panne = Rompue.Admet(Lettres);
  Exiger(Panne || Menee_A_Bien.Admet(Lettres), "récit");
  Exiger(Panne || Dit("Q") == 0 || (Dit("U") == 1) == (Ecran.Confirmation == Reponse::Non), "réponse de l'opérateur");
  Exiger(Dit("C") == 0 || Lecteur.Session_Ouverte() == (Dit("d") == 0), "session annoncée autrement");
  Exiger(Dit("I") <= Vus_.Levees["sans bibliothèque"], "bibliothèque absente");
  const double Pauses = Dit("R") * Pause_Reussite + Dit("B") * Pause_Echec;
  Exiger(Temps.Maintenant - Vus_.Debut >= Pauses || Dit("e") > 0, "pause écourtée");
  if (Vus_.Echappees > 0) return;
  Exiger(FMain.CmdQuitter.Active() || !(Panne || Dit("Be") > 0), "\"Quitter\" refusé après un échec");
  Exiger(FMain.Souris() == Pointeur::Defaut || (Panne && Dit("Q") > 0), "sablier");
}

// The pane, the lights, the record's window and the box of the speed tell the same of one test.
void Epreuve::Juger_Test() {
  const bool Fiche = App.F.FrmResultParam.Ouverte();
  Exiger(Fiche == Pane().ends_with("\r\n\tTEST RÉUSSI"), "test annoncé autrement");
  Exiger(!Fiche || App.F.FrmResultParam.LblConst.Texte().starts_with("INGENICO"), "fiche d'un autre constructeur");
  if (Pane().starts_with("Erreur n° : ")) return Exiger(Pane().ends_with("\r\nErreur : "), "texte de l'erreur");
  Exiger(FMain.ImgGreen.Visible() == Fiche && FMain.ImgGreen2.Visible() == Fiche, "voyants verts");
  Exiger(FMain.ImgRed.Visible() != Fiche && FMain.ImgRed2.Visible() != Fiche, "voyants rouges");
  Exiger(Dit("V") == (FMain.LblVit.Texte() == "19200 bauds"), "boîte de la vitesse");
  Exiger(Reprise_ || Vus_.Lettres.find_first_not_of("mVT") == std::string::npos, "boîte sans raison");
}
