// The portable core beside bare loops that do nothing but the same reads and calls. Ends with the figures that
// count, one line each.

#include <benchmark/benchmark.h>
#include <dirent.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "download/Mise_A_Jour.h"
#include "mesures/Ligne.h"
#include "tests/Machine_De_Test.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t Taille = 999'999;
constexpr std::size_t Donnees_Par_Bloc = 2043;

/// A library that accepts everything at once.
struct Galss_Immediate : Bibliotheque_Galss {
  std::int16_t OuvrirSession(Octets&, Octets&, std::int16_t&, std::int16_t&) override { return 0; }
  std::int16_t DebutExclusivite(Octets&, Octets&, Octets&, std::int16_t&) override { return 0; }
  std::int16_t FinExclusivite(std::int16_t) override { return 0; }
  std::int16_t FermerSession(std::int16_t, std::int16_t&) override { return 0; }
  std::int16_t Echange(std::int16_t, std::int16_t, Octets&, std::int32_t&, Octets& Reponse, std::int32_t&) override {
    Reponse[0] = 0;
    Reponse[1] = Reponse.size() == 3 ? 2 : 0;  // accepts requests and blocks of both families
    if (Reponse.size() == 3) Reponse[2] = 4;
    return 0;
  }
};

/// A transfer through it: what the program itself costs.
struct Transfert_Immediat : Poste_De_Test {
  Transfert_Immediat() {
    Ecran.Ne_Plus_Regarder();
    Disque.Poser(Chemin, Contenu(Taille));
    Demarrer();
    App.Globales.Version_Requete = "0000";
  }
  bool Executer(bool Chargement) {
    App.F.FMain.TxtDetails.Texte("");
    return Chargement ? Transferts.Charger_Fichier(Chemin) : Transferts.Telecharger_Fichier(Chemin, false);
  }
  const std::string Chemin = "C:\\Pavorin\\E0300.ing";
  Galss_Immediate Immediate;
  Session_Galss Session;
  Liaison_Galss Liaison{Immediate, Session};
  Connect_Deconnect Connexions{Immediate, Session, App.F.FMain.TxtDetails};
  Mise_A_Jour Transferts{Machine{Immediate, Processus, Profil, Disque, Port, Temps, Ecran}, App.F, App.Globales,
                         Liaison, Connexions};
};

void Transfert(benchmark::State& Etat) {
  Transfert_Immediat T;
  for (auto _ : Etat) benchmark::DoNotOptimize(T.Executer(Etat.range(0) != 0));
}
BENCHMARK(Transfert)->ArgName("chargement")->Arg(0)->Arg(1);

// Kept whole, so that its instructions can be counted apart.
[[gnu::noinline]] void Envoi_Nu(Transfert_Immediat& T) {
  const auto Fichier = T.Disque.Ouvrir(T.Chemin);
  Octets Commande(5 + Donnees_Par_Bloc), Reponse(2, ' ');
  for (std::size_t Reste = Taille; Reste > 0;) {
    const std::size_t Taille_Bloc = std::min(Reste, Donnees_Par_Bloc);
    Fichier->Lire(std::span(Commande).subspan(5, Taille_Bloc));
    std::int32_t Longueur = static_cast<std::int32_t>(5 + Taille_Bloc), Recus = 2;
    T.Immediate.Echange(3, 0, Commande, Longueur, Reponse, Recus);
    Reste -= Taille_Bloc;
  }
}

void Boucle_Nue(benchmark::State& Etat) {
  Transfert_Immediat T;
  for (auto _ : Etat) Envoi_Nu(T);
}
BENCHMARK(Boucle_Nue);

/// A real directory of so many files, searched by the system.
struct Disque_Systeme : Disque_De_Test {
  Disque_Systeme(Pannes& P, std::int64_t Nombre)
      : Disque_De_Test(P), Chemin(fs::temp_directory_path() / ("pavorin-mesure-" + std::to_string(Nombre))) {
    if (!fs::create_directory(Chemin)) return;
    for (std::int64_t I = 0; I < Nombre; ++I) {
      std::ofstream(Chemin / ((I % 2 ? "ER" : "Fexa") + std::to_string(I) + ".ing"));
    }
  }
  void Chercher(std::string_view, std::string_view, const std::function<bool(std::string_view)>& Visiter) override {
    DIR* Dossier = opendir(Chemin.c_str());
    while (const dirent* Entree = readdir(Dossier)) {
      if (!Visiter(Entree->d_name)) break;
    }
    closedir(Dossier);
  }
  const fs::path Chemin;
};

void Catalogue(benchmark::State& Etat) {
  Poste_De_Test P;
  P.Ecran.Ne_Plus_Regarder();
  P.Demarrer();
  Disque_Systeme Disque(P.Pannes_, Etat.range(0));
  Lecture Catalogue_Mesure(Disque, P.App.F.FMain, P.App.Globales);
  for (auto _ : Etat) {
    P.App.F.FMain.CchosseAppli.Vider();
    P.App.F.FMain.CchooseNoyau.Vider();
    Catalogue_Mesure.Lecture_Repertoire("C:\\");
  }
}
BENCHMARK(Catalogue)->RangeMultiplier(10)->Range(100, 100'000);

// The same two passes over the same directory, that look at no name.
[[gnu::noinline]] void Deux_Passages(Disque_Systeme& Disque) {
  std::size_t Vus = 0;
  for (int Passage = 0; Passage < 2; ++Passage) {
    Disque.Chercher({}, {}, [&](std::string_view Nom) { return Vus += Nom.size(), true; });
  }
  benchmark::DoNotOptimize(Vus);
}

void Enumeration_Nue(benchmark::State& Etat) {
  Pannes Aucune;
  Disque_Systeme Disque(Aucune, Etat.range(0));
  for (auto _ : Etat) Deux_Passages(Disque);
}
BENCHMARK(Enumeration_Nue)->RangeMultiplier(10)->Range(100, 100'000);

/// Keeps the processor times of each benchmark, in nanoseconds.
struct Chronometre : benchmark::ConsoleReporter {
  Chronometre() : ConsoleReporter(OO_None) {}  // whose colours would begin the first line of the figures
  void ReportRuns(const std::vector<Run>& Passes) override {
    ConsoleReporter::ReportRuns(Passes);
    for (const Run& P : Passes) {
      if (P.run_type == Run::RT_Aggregate) continue;
      Temps[P.run_name.function_name + "/" + P.run_name.args].push_back(P.GetAdjustedCPUTime());
    }
  }
  std::map<std::string, Releves> Temps;
};

void Conclure(std::map<std::string, Releves>& Temps) {
  for (const std::string N : {"1000", "10000", "100000"}) {
    Ligne("core: catalogue of " + N + " files, beside the bare enumeration",
          Rapport(Temps["Catalogue/" + N], Temps["Enumeration_Nue/" + N]), "times", Sens::Au_Plus, 1.3);
  }
}

}  // namespace

int main(int Nombre, char** Arguments) {
  benchmark::Initialize(&Nombre, Arguments);
  Chronometre Mesures;
  benchmark::RunSpecifiedBenchmarks(&Mesures);
  if (Mesures.Temps.size() > 10) Conclure(Mesures.Temps);
}
