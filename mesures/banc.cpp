// Every measure of the program itself, one line each: what, figure, target, met or short. Runs in the Windows
// session, beside the program, under Wine:
//   banc STAGES...             ligne_galss, depart, attentes, serie; all unless named
//   banc systeme               the main window as the system makes one, against which the start is measured

#include <fstream>
#include <functional>
#include <sstream>

#include "mesures/Fenetre_Du_Systeme.h"
#include "mesures/Ligne.h"
#include "tests/bout_en_bout/Poste.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

using Horloge = std::chrono::steady_clock;
using Millisecondes = std::chrono::duration<double, std::milli>;

constexpr int Tours = 5;
constexpr double Bloc = 2043;

/// The program with the library that times what it is asked.
struct Banc : Poste {
  Banc() : Poste("C:\\Mesure") {}

  void Installer(const Fichiers& Logiciels, int Attente_Ms = 0, std::optional<std::string> Repertoire = {}) {
    static const std::string Chronometre = Lire(Programmes() / "mesures/galss_chrono.dll");
    Lancer({.Logiciels = Logiciels, .Repertoire = std::move(Repertoire), .Bibliotheque = Chronometre});
    Ecrire(Dossier / "attente.txt", std::to_string(Attente_Ms));
  }
  void Mettre_A_Jour() {
    Demander_Mise_A_Jour();
    Boite("TELECHARGER").Repondre("Oui");
  }
  /// Blocks, microseconds inside the library, microseconds in all.
  std::array<double, 3> Chrono(double Secondes) const {
    const fs::path Fichier = Dossier / "chrono.txt";
    std::istringstream Texte(
        Attendre(
            "dernier bloc", [&] { return Lire(Fichier).ends_with('\n') ? std::optional(Lire(Fichier)) : std::nullopt; },
            Secondes)
            .value());
    fs::remove(Fichier);
    std::array<double, 3> Lus{};
    for (double& Un : Lus) Texte >> Un;
    return Lus;
  }
  /// Seconds of a processor that the program has taken, as the system under Wine counts them.
  double Secondes_Prises() const {
    const std::string Le_Notre = "PAVORIN_PREFIXE=" + Variable(L"PAVORIN_PREFIXE") + '\0';
    for (const auto& Processus : fs::directory_iterator("Z:\\proc")) {
      if (Lire(Processus.path() / "cmdline").find("\\Pavorin.exe") == std::string::npos ||
          Lire(Processus.path() / "environ").find(Le_Notre) == std::string::npos)
        continue;
      double Nanosecondes = 0;
      for (const auto& Fil : fs::directory_iterator(Processus.path() / "task")) {
        Nanosecondes += std::stod(Lire(Fil.path() / "schedstat"));
      }
      return Nanosecondes / 1e9;
    }
    throw Pas_Venu("le programme ne tourne pas");
  }
  /// Percent of one processor that the program takes.
  double Processeur(double Secondes) const {
    const double Avant = Secondes_Prises();
    const auto Debut = Horloge::now();
    Sleep(static_cast<DWORD>(Secondes * 1000));
    return (Secondes_Prises() - Avant) / std::chrono::duration<double>(Horloge::now() - Debut).count() * 100;
  }
};

/// Blocks, microseconds inside the library, microseconds in all.
std::array<double, 3> Transferer(Banc& B, double Octets, int Attente_Ms) {
  B.Installer({{"E0300.ing", Contenu("APPLICATION", static_cast<std::size_t>(Octets))}}, Attente_Ms);
  B.Mettre_A_Jour();
  return B.Chrono(120);
}

// 178 ms: 2 KB at 115200 bauds.
void Ligne_Galss(Banc& B) {
  for (const auto& [Attente, Cible] : {std::pair{10, 98.0}, {50, 99.3}, {178, 99.7}}) {
    for (const int Blocs : {100, 200, 490}) {
      Releves Parts;
      for (int I = 0; I < Tours; ++I) {
        const auto [Passes, Dedans, Total] = Transferer(B, std::min(Blocs * Bloc, 999'999.0), Attente);
        Parts.push_back(Dedans / Total * 100);
      }
      Ligne("line: inside Echange, " + std::to_string(Blocs) + " blocks, answers after " + std::to_string(Attente) +
                " ms",
            Parts, "%", Sens::Au_Moins, Cible);
    }
  }
  Releves Propres;
  for (int I = 0; I < Tours; ++I) {
    const auto [Blocs, Dedans, Total] = Transferer(B, 999'999, 0);
    Propres.push_back((Total - Dedans) / (Blocs - 1));
  }
  Ligne("line: own cost of a block, answers at once", Propres, "us", Sens::Au_Plus, 60);
}

/// Milliseconds until a program's window is visible, then until it waits for the operator.
std::pair<double, double> Depart_De(const std::string& Commande) {
  Programme_Lance P;
  const auto Debut = Horloge::now();
  P.Lancer(Commande, "C:\\");
  while (P.Fenetres().empty()) Sleep(1);
  const auto Visible = Horloge::now();
  WaitForInputIdle(P.Processus(), INFINITE);
  P.Fenetres().front().Envoyer(WM_NULL);
  const auto Pret = Horloge::now();
  P.Tuer();
  return {Millisecondes(Visible - Debut).count(), Millisecondes(Pret - Debut).count()};
}

void Depart(Banc& B) {
  Fichiers Vingt_Six;
  for (const char* Genre : {"E", "Fexa"}) {
    for (int I = 10; I < 36; ++I) Vingt_Six[Genre + std::to_string(I) + "00.ing"] = "";
  }
  const std::string Cent_Mille =
      En_Utf8((Poste::Programmes().parent_path() / "mesures/pavorin-mesure-100000").make_preferred().wstring());
  const std::string Temoin = Entre_Guillemets(Poste::Programmes() / "banc.exe") + " systeme";
  const std::map<std::string, std::optional<std::string>> Cas = {
      {"system", {}}, {"26 files", {}}, {"absent", "C:\\Absent"}, {"100 000", Cent_Mille}};
  std::map<std::string, Releves> Visibles, Prets;
  for (int I = 0; I < 2 * Tours; ++I) {
    for (const auto& [Nom, Repertoire] : Cas) {
      B.Installer(Vingt_Six, 0, Repertoire);
      B.Programme.Tuer();
      const auto [Visible, Pret] = Depart_De(Nom == "system" ? Temoin : Entre_Guillemets(B.Dossier / "Pavorin.exe"));
      Visibles[Nom].push_back(Visible);
      Prets[Nom].push_back(Pret);
    }
  }
  Ligne("start: usable with 26 files of each kind", Prets["26 files"], "ms");
  Ligne("start: usable, beside the same window made by the system", Rapport(Prets["26 files"], Prets["system"]),
        "times", Sens::Au_Plus, 1.3);
  for (const char* Nom : {"absent", "100 000"}) {
    Ligne(std::string("start: visible, directory: ") + Nom + ", beside 26 files",
          Rapport(Visibles[Nom], Visibles["26 files"]), "times", Sens::Au_Plus, 1.15);
  }
}

/// So long, so many times, in a wait that Commencer begins.
void Attendre_En_Repos(const Banc& B, const std::string& Quoi, double Secondes,
                       const std::function<void()>& Commencer) {
  Releves Parts;
  for (int I = 0; I < Tours; ++I) {
    Commencer();
    Parts.push_back(B.Processeur(Secondes));
  }
  Ligne("wait: processor during " + Quoi, Parts, "%", Sens::Au_Plus, 1);
}

void Attentes(Banc& B) {
  B.Installer({{"Fexa0500.ing", Contenu("NOYAU", 3000)}});
  B.Mettre_A_Jour();
  B.Chrono(20);
  Sleep(500);
  Attendre_En_Repos(B, "the 25 s pause", 4, [] {});
}

// The reader sends byte by byte, at the pace of 9600 bauds; its record counts them.
void Serie(Banc& B) {
  const auto Emis = [&] {
    const std::string Journal = B.Journal_Serie();
    int Combien = 0;
    for (auto I = Journal.find("émis"); I != Journal.npos; I = Journal.find("émis", I + 1)) ++Combien;
    return Combien;
  };
  Releves Retards;
  for (int I = 0; I < 2 * Tours; ++I) {
    B.Installer({});
    B.Brancher_Serie("morceaux = 1\ndelai_morceaux_ms = 1");
    const int Tous = Emis() + 3 * 9 + 123;
    B.FMain.Menu("MnLecteur");
    while (Emis() < Tous) Sleep(1);
    const auto Debut = Horloge::now();
    while (!B.Programme.Fenetre("FrmResultParam")) Sleep(1);
    Retards.push_back(Millisecondes(Horloge::now() - Debut).count());
  }
  Ligne("serial: from the reader's last byte to the verdict shown", Retards, "ms", Sens::Au_Plus, 20);
  B.Installer({});
  B.Brancher_Serie("silence = tout");
  Attendre_En_Repos(B, "the serial waits", 2, [&] {
    Sleep(2000);
    B.FMain.Menu("MnLecteur");
    Sleep(200);
  });
}

}  // namespace

int main(int Nombre, char** Arguments) try {
  const std::vector<std::string> Voulues(Arguments + 1, Arguments + Nombre);
  if (std::ranges::count(Voulues, "systeme") > 0) return Fenetre_Du_Systeme().Montrer();
  Banc B;
  const std::pair<const char*, void (*)(Banc&)> Etapes[] = {
      {"ligne_galss", Ligne_Galss}, {"depart", Depart}, {"attentes", Attentes}, {"serie", Serie}};
  for (const auto& [Nom, Mesurer] : Etapes) {
    if (Voulues.empty() || std::ranges::count(Voulues, Nom) > 0) Mesurer(B);
  }
} catch (const std::exception& Erreur) {
  std::printf("%s\n", Erreur.what());
  return 2;
}
