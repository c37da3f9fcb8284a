#include "tests/bout_en_bout/Poste.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>

#include "windows/systeme/Texte_Windows.h"

namespace {

std::string Variable(const wchar_t* Nom) {
  std::wstring Valeur(32767, L'\0');
  Valeur.resize(GetEnvironmentVariableW(Nom, Valeur.data(), static_cast<DWORD>(Valeur.size())));
  return En_Utf8(Valeur);
}

// What Wine's host says in its environment: paths of the Linux system, which it shows as drive Z:.
const std::string Prefixe = Variable(L"PAVORIN_PREFIXE");
fs::path Vu_De_Windows(const std::string& Chemin_Linux) {
  return Chemin("Z:" + Chemin_Linux).make_preferred();
}

// The standard library's own does not go deeper than 260 characters.
void Effacer(const std::wstring& Quoi) {
  WIN32_FIND_DATAW Entree;
  const HANDLE Recherche = FindFirstFileW((Quoi + L"\\*").c_str(), &Entree);
  for (BOOL Suite = Recherche != INVALID_HANDLE_VALUE; Suite; Suite = FindNextFileW(Recherche, &Entree)) {
    const std::wstring Nom = Entree.cFileName, Chemin_Entier = Quoi + L"\\" + Nom;
    if (Nom == L"." || Nom == L"..") continue;
    Entree.dwFileAttributes& FILE_ATTRIBUTE_DIRECTORY ? Effacer(Chemin_Entier)
                                                      : void(DeleteFileW(Chemin_Entier.c_str()));
  }
  FindClose(Recherche);
  RemoveDirectoryW(Quoi.c_str());
}

double Secondes(const FILETIME& Duree) {
  return static_cast<double>(static_cast<std::uint64_t>(Duree.dwHighDateTime) << 32 | Duree.dwLowDateTime) * 1e-7;
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
  for (int I = 0; Lignes.size() < Taille; ++I) {
    const std::string Rang = std::to_string(I);
    Lignes.append(Texte).append(" ").append(6 - std::min<std::size_t>(6, Rang.size()), '0').append(Rang).append("\r\n");
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

fs::path Poste::Programmes() {
  return Repertoire_Executable();
}

std::string Poste::Sans_Ligne_Serie() {
  return Prefixe.empty() ? "no simulated serial line on a real Windows PC: it takes a pseudo-terminal" : "";
}

void Poste::Lancer(const Installation& Voulue) {
  Programme.Tuer();
  Effacer(L"\\\\?\\" + Dossier.wstring());
  fs::create_directories(Dossier / "Logiciels");
  fs::copy_file(Programmes() / (Voulue.Gardee ? "Pavorin_Garde.exe" : "Pavorin.exe"), Dossier / "Pavorin.exe");
  if (!Voulue.Bibliotheque) {
    fs::copy_file(Programmes() / "simulateur/Galclw32.dll", Dossier / "Galclw32.dll");
  } else if (!Voulue.Bibliotheque->empty()) {
    Ecrire(Dossier / "Galclw32.dll", *Voulue.Bibliotheque);
  }
  for (const auto& [Nom, Texte] : Voulue.Logiciels) Ecrire(Dossier / "Logiciels" / Chemin(Nom), Texte);
  Donner_Scenario(Voulue.Scenario);
  const std::wstring Repertoire = Voulue.Repertoire ? En_Utf16(*Voulue.Repertoire) : (Dossier / "Logiciels").wstring();
  WritePrivateProfileStringW(L"INIT_REPERTOIRE", L"REP", Repertoire.c_str(), (Dossier / "telech.ini").c_str());
  Relancer(Voulue.Arguments, Voulue.Courant);
}

// In a directory of its own for each start: a journal is named by the second.
std::string Poste::Journal_Demande(const std::string& Arguments) const {
  static int Rang = 0;
  const std::string Journaux = Variable(L"PAVORIN_JOURNAUX");
  if (Journaux.empty() || Arguments.find("/journal") != std::string::npos) return "";
  const fs::path Le_Sien = Chemin(Journaux) / Dossier.filename() / std::to_string(++Rang);
  fs::create_directories(Le_Sien);
  return " /journal:" + Entre_Guillemets(Le_Sien);
}

void Poste::Relancer(const std::string& Arguments, bool Courant) {
  Programme.Tuer();
  Programme.Lancer(Entre_Guillemets(Dossier / "Pavorin.exe") + " " + Arguments + Journal_Demande(Arguments),
                   Courant ? Dossier : fs::path("C:\\"));
  FMain = Fenetre("FMain");
}

void Poste::Donner_Scenario(const std::string& Texte) const {
  const std::string Pret = Texte.empty() ? "" : Lire(Programmes() / "simulateur/scenarios" / Chemin(Texte + ".txt"));
  Ecrire(Dossier / "scenario.txt", Pret.empty() ? Texte : Pret);
}

Fenetre_Vue Poste::Fenetre(std::string_view Nom, double Secondes) const {
  return Attendre(
      "fenêtre " + std::string(Nom), [&] { return Programme.Fenetre(Nom); }, Secondes);
}

void Poste::Attendre_Absence(std::string_view Nom, double Secondes) const {
  Attendre(
      "fermeture de " + std::string(Nom), [&] { return !Programme.Fenetre(Nom); }, Secondes);
}

Boite_Vue Poste::Boite(std::string_view Titre) const {
  return Attendre("boîte " + std::string(Titre), [&] { return Programme.Boite(Titre); });
}

DWORD Poste::Attendre_Fin() const {
  return *Attendre("fin du programme", [&] { return Programme.Fin(); });
}

std::string Poste::Volet() const {
  std::string Lu;
  for (const char C : FMain["TxtDetails"].Texte()) {
    if (C != '\r') Lu += C;
  }
  static const std::regex Heure("\t\\d\\d?[:.h]\\d\\d[^\n]*\n");
  return std::regex_replace(Lu, Heure, "\tHH\n");
}

void Poste::Attendre_Volet(std::string_view Fin, double Secondes) const {
  Attendre(
      "fin du volet : " + std::string(Fin), [&] { return Volet().ends_with(Fin); }, Secondes);
}

void Poste::Demander_Mise_A_Jour() const {
  Attendre("« Mise à jour » actif", [&] { return FMain["CmdMaj"].Cliquer(); });
}

void Poste::Choisir_Dossier(const std::vector<std::string>& Sous_Dossiers) const {
  FMain["CmdChooseDirectory"].Cliquer();
  const Fenetre_Vue Dialogue = Fenetre("FDossierING");
  const Objet_Vu Liste = Dialogue["DirDirectory"];
  for (const std::string& Nom : Sous_Dossiers) {
    if (Dialogue["CmdOK"].Actif()) throw Pas_Venu("OK inactif avant " + Nom);
    Attendre(Nom, [&] {
      const auto Lignes = Liste.Entrees();
      return std::find(Lignes.begin(), Lignes.end(), Nom) != Lignes.end();
    });
    Liste.Ouvrir_Ligne(Nom);
  }
  Attendre("OK actif", [&] { return Dialogue["CmdOK"].Cliquer(); });
  Attendre_Absence("FDossierING");
}

void Poste::Choisir_Manuellement(const std::string& Application) const {
  FMain["OptManuel"].Cliquer();
  Boite("Télécharger").Repondre();
  for (const char* Liste : {"CchooseNoyau", "CchosseAppli"}) {
    Attendre("dernières entrées", [&] { return FMain[Liste].Texte() == "Pas de mise à jour"; });
  }
  if (!Application.empty()) FMain["CchosseAppli"].Choisir(Application);
}

void Poste::Photographier(const Objet_Vu& Quoi, const fs::path& Fichier) const {
  RECT Ici{};
  GetWindowRect(Quoi.Poignee, &Ici);
  fs::create_directories(fs::absolute(Fichier).parent_path());
  ::Photographier(Ici, Fichier);
}

// Wine knows the times of the process that asks alone: the Linux system is asked, in hundredths of a second.
double Poste::Secondes_De_Processeur() const {
  FILETIME Debut{}, Fin{}, Noyau_Systeme{}, Programme_Meme{};
  GetProcessTimes(Programme.Processus(), &Debut, &Fin, &Noyau_Systeme, &Programme_Meme);
  if (Prefixe.empty()) return Secondes(Noyau_Systeme) + Secondes(Programme_Meme);
  for (const auto& Processus : fs::directory_iterator("Z:\\proc")) {
    if (Lire(Processus.path() / "cmdline").find("\\Pavorin.exe") == std::string::npos ||
        Lire(Processus.path() / "environ").find("PAVORIN_PREFIXE=" + Prefixe + '\0') == std::string::npos)
      continue;
    const std::string Etat = Lire(Processus.path() / "stat");
    std::istringstream Champs(Etat.substr(Etat.rfind(')') + 1));
    std::string Champ;
    for (int I = 0; I < 11; ++I) Champs >> Champ;
    double Lui = 0, Systeme = 0;
    Champs >> Lui >> Systeme;
    return (Lui + Systeme) / 100;
  }
  throw Pas_Venu("le programme ne tourne pas");
}

std::vector<std::string> Poste::Recus() const {
  std::vector<std::string> Tous;
  while (true) {
    const fs::path Fichier = Dossier / ("recu-" + std::to_string(Tous.size() + 1) + ".bin");
    if (!fs::exists(Fichier)) return Tous;
    Tous.push_back(Lire(Fichier));
  }
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
