// The judge: what the operator, the reader and the PC can see once a scenario was played. It knows
// nothing of the program's own steps.
//
// A file whose last acknowledgement is lost is in the reader although nobody can know it: there,
// "Chargement Réussi." is wrong. It must be shown exactly when the reader holds the whole file and
// its consent reached the program.

#include <regex.h>

#include <fstream>

#include "simulator/Lecture_Texte.h"
#include "tests/campagne/Epreuve.h"

namespace {

/// All that an update says, a letter for each line of the pane and for each box; "*" stands for anything.
/// Of those that fit, the first; none, 'm': a failure's text, or a test's digits.
std::vector<std::string> Lire_Alphabet() {
  std::vector<std::string> Lu;
  std::ifstream Fichier(CAMPAGNE "/alphabet.txt");
  for (std::string Ligne; std::getline(Fichier, Ligne);) Lu.push_back(Ligne);
  return Lu;
}

char En_Lettre(std::string_view Ligne) {
  static const auto Alphabet = Lire_Alphabet();
  for (const std::string_view Une : Alphabet) {
    const auto Joker = Une.find('*');
    const auto Debut = Une.substr(2, Joker - 2);
    const bool Tient = Joker != Une.npos && Ligne.starts_with(Debut) && Ligne.ends_with(Une.substr(Joker + 1));
    if (Tient || Ligne == Une.substr(2)) return Une[0];
  }
  return 'm';
}

/// An update from its first line to its last, in letters; then one that a failure cut short anywhere.
/// Where a transfer's end is told, it may still fail: in its pause, or as it disconnects.
const std::string Transfert = "(eI?|[kO]D?(eFI?|(R|Bd?)(eFI?)?))";
const std::string Menee = "P=c(m+A|C(m+A?)?)([12]|3na|4ia|QUA|Q" + Transfert + "{1,2}A)";
const std::string Rompue = "P=(c(m+A?)?1?|cC(m+A?)?([12]|3(na?)?|4(ia?)?|QU?A?|Q" + Transfert + "{1,2}A?)?d?X)?[SI]";

bool Est_Un_Recit(const std::string& Lettres) {
  static regex_t Regle;
  static const int Refusee = regcomp(&Regle, ("^(" + Menee + "|" + Rompue + ")$").c_str(), REG_EXTENDED | REG_NOSUB);
  return Refusee == 0 && regexec(&Regle, Lettres.c_str(), 0, nullptr, 0) == 0;
}

}  // namespace

void Epreuve::Exiger(bool Vrai, const std::string& Plainte) {
  if (!Vrai) Plaintes.push_back((Reprise_ ? "à la reprise, " : "") + Plainte + " (" + Vus_.Lettres + ")");
}

void Epreuve::Juger() {
  for (const auto Ligne : Decouper(Vus_.Recit, '\n')) Vus_.Lettres += En_Lettre(Ligne);
  Exiger(Disque.Ouverts == 0, "fichier laissé ouvert");
  Exiger(!Port.Ouvert() || Arrete_, "port laissé ouvert");
  Exiger(!Ecran.Eveille || Arrete_, "PC tenu éveillé");
  for (const auto Id : Processus.Termines) Exiger(Id == 41, "processus étranger terminé");
  Juger_Lecteur();
  if (!Arrete_ && std::ranges::count(Vus_.Lettres, 'P') == 1) Juger_Mise_A_Jour();
  Exiger(Arrete_ || !FMain.Ouverte() || FMain.A_Portee() != App.F.FrmResultParam.Ouverte(), "fenêtre principale");
  if (Reprise_ && Ordinaire) Exiger(Vus_.Lettres.ends_with('T'), "reprise manquée");
}

// What the reader received, whatever the program says of it.
void Epreuve::Juger_Lecteur() {
  int Entiers = 0;
  for (const auto& Recu : std::span(Lecteur.Fichiers()).subspan(Vus_.Fichiers)) {
    const auto Debut_De = [&](std::string_view Nom) { return Contenu_De(Nom, Recu.Contenu.size()) == Recu.Contenu; };
    Exiger(Debut_De("Fexa") || Debut_De("ER"), "octets reçus qui ne sont pas ceux du fichier");
    Entiers += Recu.Complet() && Recu.Accepte ? 1 : 0;
  }
  Exiger(std::ranges::count(Vus_.Lettres, 'R') == Entiers, "vrais succès : " + std::to_string(Entiers));
  for (const auto& Faute : Serie_.Fautes()) Exiger(false, Faute);
  const auto Dit = [&](char Lettre) { return Vus_.Lettres.find(Lettre) != Vus_.Lettres.npos; };
  for (const auto& Faute : std::span(Lecteur.Fautes()).subspan(Vus_.Fautes)) {
    // The error handler disconnects whether or not a failed transfer already did.
    const bool Deja_Fermee = Faute.starts_with("libération") || Faute.starts_with("fermeture");
    Exiger((Deja_Fermee && Dit('B') && Dit('X')) || std::ranges::count(Vus_.Lettres, 'P') > 1, Faute);
  }
}

// One update: every line and every box whole and at its place, and the session as it was told.
void Epreuve::Juger_Mise_A_Jour() {
  std::string Lettres = Vus_.Lettres;
  if (Operateur) std::erase(Lettres, '?');
  if (Reprise_ || Appels["Regler"] > 0) {  // a test around it, or after it
    Lettres.erase(Lettres.find_last_not_of("mVT") + 1);
    Lettres.erase(0, Lettres.find('P'));
  }
  Exiger(Est_Un_Recit(Lettres), "récit");
  if (Lettres.find('C') != Lettres.npos)
    Exiger(Lecteur.Session_Ouverte() == (Lettres.find('d') == Lettres.npos), "session annoncée autrement");
}
