#include "tests/bout_en_bout/Poste.h"

#include <fstream>
#include <regex>
#include <sstream>

#include "windows/systeme/Texte_Windows.h"

namespace {

// What Wine's host says in its environment: paths of the Linux system, which it shows as drive Z:.
const std::string Prefixe = Variable(L"PAVORIN_PREFIXE");
fs::path Vu_De_Windows(const std::string& Chemin_Linux) {
  return Chemin("Z:" + Chemin_Linux).make_preferred();
}

}  // namespace

const Fichiers Grands = {{"Fexa0300.ing", Contenu("NOYAU 03.00", 61440)},
                         {Noyau, Contenu("NOYAU 04.00", 122880)},
                         {"ELITER0127.ing", Contenu("APPLICATION 01.27", 90112)},
                         {"ELITET0205.ing", Contenu("APPLICATION D'ESSAI 02.05", 91000)},
                         {Appli, Contenu("APPLICATION 02.10", 184320)}};
const Fichiers Petits = {{Noyau, Contenu("NOYAU", 5000)}, {Appli, Contenu("APPLICATION", 4086)}};

std::string Contenu(std::string_view Texte, std::size_t Taille) {
  std::string Lignes;
  for (int Rang = 100'000; Lignes.size() < Taille; ++Rang) {
    Lignes.append(Texte).append(" ").append(std::to_string(Rang)).append("\r\n");
  }
  Lignes.resize(Taille);
  return Lignes;
}

std::string Lire(const fs::path& Fichier) {
  std::ostringstream Texte;
  Texte << std::ifstream(Fichier, std::ios::binary).rdbuf();
  return Texte.str();
}

void Ecrire(const fs::path& Fichier, std::string_view Texte) {
  std::ofstream(Fichier, std::ios::binary) << Texte;
}

fs::path Chemin(std::string_view Texte) {
  return En_Utf16(Texte);
}

std::string Entre_Guillemets(const fs::path& Fichier) {
  return '"' + En_Utf8(Fichier.wstring()) + '"';
}

std::string Variable(const wchar_t* Nom) {
  const wchar_t* const Valeur = _wgetenv(Nom);
  return Valeur == nullptr ? "" : En_Utf8(Valeur);
}

fs::path Poste::Programmes() {
  return Repertoire_Executable();
}

void Poste::Lancer(const Installation& Voulue) {
  Programme.Tuer();
  fs::remove_all(Dossier);
  fs::create_directories(Dossier / "Logiciels");
  fs::copy_file(Programmes() / (Voulue.Gardee ? "Pavorin_Garde.exe" : "Pavorin.exe"), Dossier / "Pavorin.exe");
  fs::copy_file(Programmes() / "simulateur/Galclw32.dll", Dossier / "Galclw32.dll");
  if (Voulue.Bibliotheque) Ecrire(Dossier / "Galclw32.dll", *Voulue.Bibliotheque);
  for (const auto& [Nom, Texte] : Voulue.Logiciels) Ecrire(Dossier / "Logiciels" / Chemin(Nom), Texte);
  Donner_Scenario(Voulue.Scenario);
  const fs::path Repertoire = Voulue.Repertoire ? Chemin(*Voulue.Repertoire) : Dossier / "Logiciels";
  WritePrivateProfileStringW(L"INIT_REPERTOIRE", L"REP", Repertoire.c_str(), (Dossier / "telech.ini").c_str());
  Relancer(Voulue.Arguments);
}

void Poste::Relancer(const std::string& Arguments) {
  static int Rang = 0;
  Programme.Tuer();
  std::string Commande = Entre_Guillemets(Dossier / "Pavorin.exe") + " " + Arguments;
  const std::string Journaux = Variable(L"PAVORIN_JOURNAUX");
  if (!Journaux.empty() && Arguments.find("/journal") == std::string::npos) {
    // In a directory of its own for each start: a journal is named by the second.
    const fs::path Le_Sien = Chemin(Journaux) / Dossier.filename() / std::to_string(++Rang);
    fs::create_directories(Le_Sien);
    Commande += " /journal:" + Entre_Guillemets(Le_Sien);
  }
  Programme.Lancer(Commande, Dossier.parent_path());
  FMain = Fenetre("FMain");
  FMain.Envoyer(WM_NULL);  // the window is there before its start is over
}

void Poste::Donner_Scenario(const std::string& Texte) const {
  const std::string Pret = Texte.empty() ? "" : Lire(Programmes() / "simulateur/scenarios" / Chemin(Texte + ".txt"));
  Ecrire(Dossier / "scenario.txt", Pret.empty() ? Texte : Pret);
}

Fenetre_Vue Poste::Fenetre(std::string_view Nom) const {
  return Attendre("fenêtre " + std::string(Nom), [&] { return Programme.Fenetre(Nom); });
}

void Poste::Attendre_Absence(std::string_view Nom) const {
  Attendre("fermeture de " + std::string(Nom), [&] { return !Programme.Fenetre(Nom); });
}

Boite_Vue Poste::Boite(std::string_view Titre) const {
  return Attendre("boîte " + std::string(Titre), [&] { return Programme.Boite(Titre); });
}

DWORD Poste::Attendre_Fin() const {
  return *Attendre("fin du programme", [&] { return Programme.Fin(); });
}

std::string Poste::Volet() const {
  static const std::regex Retour("\r"), Heure("\t\\d\\d?[:.h]\\d\\d[^\n]*\n");
  return std::regex_replace(std::regex_replace(FMain["TxtDetails"].Texte(), Retour, ""), Heure, "\tHH\n");
}

void Poste::Attendre_Volet(std::string_view Fin) const {
  Attendre("fin du volet : " + std::string(Fin), [&] { return Volet().ends_with(Fin); });
}

void Poste::Demander_Mise_A_Jour() const {
  Attendre("« Mise à jour » actif", [&] { return FMain["CmdMaj"].Cliquer(); });
}

Fenetre_Vue Poste::Ouvrir_Dossier(const std::vector<std::string>& Sous_Dossiers) const {
  FMain["CmdChooseDirectory"].Cliquer();
  const Fenetre_Vue Dialogue = Fenetre("FDossierING");
  Dialogue["DirDirectory"].Ouvrir_Ligne(En_Utf8(Dossier.filename().wstring()));
  for (const std::string& Nom : Sous_Dossiers) {
    if (Dialogue["CmdOK"].Actif()) throw Pas_Venu("OK inactif avant " + Nom);
    Dialogue["DirDirectory"].Ouvrir_Ligne(Nom);
  }
  Attendre("OK actif", [&] { return Dialogue["CmdOK"].Actif(); });
  return Dialogue;
}

void Poste::Choisir_Manuellement(const std::string& Application) const {
  FMain["OptManuel"].Cliquer();
  Boite("Télécharger").Repondre();
  Attendre("dernière entrée", [&] { return FMain["CchosseAppli"].Texte() == "Pas de mise à jour"; });
  FMain["CchosseAppli"].Choisir(Application);
}

std::vector<std::string> Poste::Recus() const {
  std::vector<std::string> Tous;
  while (true) {
    const fs::path Fichier = Dossier / ("recu-" + std::to_string(Tous.size() + 1) + ".bin");
    if (!fs::exists(Fichier)) return Tous;
    Tous.push_back(Lire(Fichier));
  }
}

bool Poste::Ligne_Serie() {
  return !Prefixe.empty();
}

// The reader looks at its scenario again as soon as its text changes, and says so in its own record.
void Poste::Brancher_Serie(const std::string& Scenario) const {
  static int Rang = 0;
  const fs::path Regles = Vu_De_Windows(Prefixe + "/serie.txt"), Neuf = Vu_De_Windows(Prefixe + "/serie.neuf");
  const std::string Deja = Journal_Serie();
  Ecrire(Neuf, Scenario + "\n# " + std::to_string(Rang) + "\n");
  fs::rename(Neuf, Regles);
  if (Rang++ == 0) {
    Programme_Lance().Lancer(Entre_Guillemets(Vu_De_Windows(Variable(L"PAVORIN_LECTEUR_SERIE"))) + " --lien " +
                                 Prefixe + "/serie --scenario " + Prefixe + "/serie.txt --trace " + Prefixe +
                                 "/serie.log",
                             "C:\\");
  }
  const bool Absent = Scenario.find("debranche_apres = 0") != std::string::npos;
  Attendre("lecteur série", [&] {
    return Journal_Serie().find(Absent ? "débranché" : "branché sur", Deja.size()) != std::string::npos;
  });
}

std::string Poste::Journal_Serie() const {
  return Lire(Vu_De_Windows(Prefixe + "/serie.log"));
}
