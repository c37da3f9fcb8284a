// The fault campaign. Without argument every case, on all processors; "--case NAME" (or the name alone)
// plays that case, told in full; "--graine N" changes the seed of the random mixtures, "--un-sur N" plays
// one case in N, "--vite" stops at the first failure.

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <random>
#include <thread>

#include "simulator/Lecture_Texte.h"
#include "tests/campagne/Epreuve.h"

extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace {

/// Kinds of cases; the first ones are those of coups.txt.
constexpr const char* Sortes[] = {"codes",    "longueurs", "réponses", "levées",  "fichiers", "poste",     "ligne",
                                  "lecteurs", "opérateur", "paires",   "doubles", "hasard",   "répétition"};
constexpr int Equipiers_Au_Plus = 16, Secondes_Par_Cas = 60;

/// Adds the word, once for each value of its braces.
void Etendre(const std::string& Mot, std::vector<std::string>& Tous) {
  const auto Debut = Mot.find('{'), Fin = Mot.find('}');
  if (Debut == Mot.npos) return Tous.push_back(Mot);
  const auto Garnir = [&](std::string Valeur) { Etendre(Mot.substr(0, Debut) + Valeur + Mot.substr(Fin + 1), Tous); };
  for (const auto Valeur : Decouper(std::string_view(Mot).substr(Debut + 1, Fin - Debut - 1), ',')) {
    const auto Points = Valeur.find("..");
    if (Points == Valeur.npos) {
      Garnir(std::string(Valeur));
      continue;
    }
    const long Dernier = Lire_Nombre(Valeur.substr(Points + 2), 0, 9999);
    for (long I = Lire_Nombre(Valeur.substr(0, Points), 0, 9999); I <= Dernier; ++I) Garnir(std::to_string(I));
  }
}

struct Coups {
  std::string Sorte, Appel;
  std::vector<std::string> Effets;
};

std::vector<Coups> Lire_Coups() {
  std::vector<Coups> Tous;
  std::ifstream Fichier(COUPS);
  for (std::string Ligne; std::getline(Fichier, Ligne);) {
    const auto Mots = Decouper(Ligne, ' ');
    if (Mots[0] == "#") continue;
    std::vector<std::string> Effets;
    for (const auto Mot : std::span(Mots).subspan(2)) Etendre(std::string(Mot), Effets);
    for (const auto Appel : Decouper(Mots[1], ',')) Tous.push_back({std::string(Mots[0]), std::string(Appel), Effets});
  }
  if (Tous.empty()) throw std::runtime_error(COUPS);
  return Tous;
}

/// What the processes share.
struct Tableau {
  using Comptes = std::array<std::atomic<int>, std::size(Sortes)>;
  Comptes Passes[32], Echecs[32];  // by scenario
  char En_Cours[Equipiers_Au_Plus][512];
};

bool Vite = false;

class Campagne {
 public:
  Campagne(Tableau& T, int Rang, int Equipe, unsigned Graine, int Un_Sur)
      : T_(T), Rang_(Rang), Equipe_(Equipe), Un_Sur_(Un_Sur), Tirage_(Graine) {}

  void Tout() {
    for (const auto& S : Scenarios_Campagne) {
      Nom_ = S.Nom;
      Clair_ = Jouer(Nom_, true);
      // Other readers: as if the clean run had called them once.
      Clair_.Appels["lecteur_serie"] = Nom_.starts_with("serie");
      Clair_.Appels["lecteur"] = Nom_ == "tele" || Nom_ == "charge" || Nom_ == "650";
      if (!Nom_.ends_with("-fenetres")) {  // there the operator alone differs
        Frapper();
        Doubler();
      }
      Operer();
      Meler();
      Repeter();
      ++Scenario_;
    }
  }

 private:
  /// Every process knows all the cases of the first rank and plays its share of those that are played.
  bool A_Moi() {
    const int Numero = Suivant_++;
    return Numero % Un_Sur_ == 0 && Numero / Un_Sur_ % Equipe_ == Rang_;
  }

  Bilan Jouer(const std::string& Nom, bool Relever_Actions) {
    std::strncpy(T_.En_Cours[Rang_], Nom.c_str(), sizeof T_.En_Cours[0] - 1);
    alarm(Secondes_Par_Cas);
    Epreuve E(Nom);
    E.Relever_Actions = Relever_Actions;
    return E.Passer();
  }

  void Compter(std::string_view Sorte, const std::string& Nom, const std::vector<std::string>& Plaintes) {
    const auto Colonne = std::find(std::begin(Sortes), std::end(Sortes), Sorte) - Sortes;
    ++(Plaintes.empty() ? T_.Passes : T_.Echecs)[Scenario_].at(static_cast<std::size_t>(Colonne));
    for (const auto& Plainte : Plaintes) std::printf("ECHEC %s : %s\n", Nom.c_str(), Plainte.c_str());
    if (Vite && !Plaintes.empty()) std::exit(1);
  }

  Bilan Passer(std::string_view Sorte, const std::string& Nom, bool Relever_Actions = false) {
    const Bilan B = Jouer(Nom, Relever_Actions);
    if (!B.Impossible) Compter(Sorte, Nom, B.Plaintes);
    return B;
  }

  // Once, then from then on when the call comes again and the effect would be another.
  void Frapper() {
    for (const auto& C : Tous_Les_Coups_) {
      for (int Rang = 1; Rang <= Clair_.Appels[C.Appel]; ++Rang) {
        for (const auto& Effet : C.Effets) {
          if ((Effet.starts_with("nature") && Nom_ != "charge") || !A_Moi()) continue;
          const std::string Debut = Nom_ + "/" + C.Appel + "_" + std::to_string(Rang);
          const bool Compose = Effet.starts_with("fois");
          Bilan B = Passer(C.Sorte, Debut + (Compose ? "_" : ":") + Effet);
          if (B.Appels[C.Appel] <= Rang || Compose || Dure_De_Soi(Effet)) continue;
          // Where the program waits for a restarting reader, "from then on" takes 10 000 exchanges.
          int& Longues = Longues_[Debut];
          Longues += Passer(C.Sorte, Debut + (Longues > 3 ? "_fois_30:" : "!:") + Effet).Appels["appel"] > 5000;
        }
      }
    }
  }
  /// What is done once stays done.
  static bool Dure_De_Soi(const std::string& Effet) {
    constexpr std::string_view Mots[] = {"tronquer", "effacer", "vider",    "remplir",
                                         "profil",   "muet",    "arracher", "processus"};
    return std::any_of(std::begin(Mots), std::end(Mots), [&](auto Mot) { return Effet.starts_with(Mot); });
  }

  // A second fault after a first one, at each later call of the library; and the box that announces
  // a failure fails in its turn.
  void Doubler() {
    for (int I = 1; I <= Clair_.Appels["appel"]; ++I) {
      if (A_Moi()) Passer("doubles", Nom_ + "/Galss_" + std::to_string(I) + ":erreur_48,Boite_Message_2:memoire");
      for (const auto* Premier : {"code_64", "code_64_livre", "code_1024", "refus_50", "vide", "longueur_0"}) {
        if (!A_Moi()) continue;
        const std::string Debut = Nom_ + "/appel_" + std::to_string(I) + ":" + Premier;
        const int Dernier = std::min(Jouer(Debut, false).Appels["appel"], I + 14);
        for (int J = I + 1; J <= Dernier; ++J) {
          const std::string Lecteur = Debut + ",appel_" + std::to_string(J),
                            Galss = Debut + ",Galss_" + std::to_string(J);
          for (const auto* Effet : {"_fois_30:code_64", "_fois_30:code_1024_livre", "_fois_30:longueur_2147483647",
                                    ":octets_00_02_FF", ":refus_50"}) {
            Passer("doubles", Lecteur + Effet);
          }
          for (const auto* Effet : {"!:erreur_48", ":memoire", ":tronquer_600"}) Passer("doubles", Galss + Effet);
        }
      }
    }
  }

  // Each action at each yield; then, where the choice of actions changes, each second action there
  // and at the next yield.
  void Operer() {
    const auto Clic = [](std::size_t Rang, const std::string& Action) {
      return "Traiter_Evenements_" + std::to_string(Rang + 1) + ":clic_" + Action;
    };
    const auto& Toutes = Clair_.Actions;
    for (std::size_t I = 0; I < Toutes.size(); ++I) {
      const bool Nouveau = I == 0 || I + 1 == Toutes.size() || Toutes[I] != Toutes[I - 1] || Toutes[I] != Toutes[I + 1];
      for (const auto& A : Toutes[I]) {
        if (!A_Moi()) continue;
        const std::string Debut = Nom_ + "/" + Clic(I, A);
        const auto Suites = Passer("opérateur", Debut, Nouveau).Actions;
        if (I + 1 >= Suites.size()) continue;
        for (const auto& Autre : Suites[I + 1]) {
          for (const std::size_t Second : {I, I + 1}) Passer("paires", Debut + "," + Clic(Second, Autre));
        }
      }
    }
  }

  void Meler() {
    for (int I = 0; I < 500; ++I) {
      std::string Nom = Nom_ + "/";
      for (auto Combien = 3 + Tirage_() % 5; Combien > 0; --Combien) {
        const auto& C = Tous_Les_Coups_[Tirage_() % Tous_Les_Coups_.size()];
        const auto Rang = Tirage_() % static_cast<unsigned>(std::max(1, Clair_.Appels[C.Appel])) + 1;
        const auto& Effet = C.Effets[Tirage_() % C.Effets.size()];
        if (Clair_.Appels[C.Appel] > 0 && C.Sorte != "lecteurs" && !Effet.starts_with("fois"))
          Nom += C.Appel + "_" + std::to_string(Rang) + ":" + Effet + ",";
      }
      if (A_Moi()) Passer("hasard", Nom);
    }
  }

  // Updates and tests over and over: what the program holds must not grow once its buffers have their size.
  void Repeter() {
    if (__sanitizer_get_current_allocated_bytes == nullptr || Scenario_ % Equipe_ != Rang_) return;
    Epreuve E(Nom_);
    E.Passer();
    const auto Tenus_Apres = [&](int Fois) {
      for (int I = 0; I < Fois; ++I) {
        E.Recommencer();
        E.Mettre_A_Jour();
        E.Tester();
        for (auto* Journal : {&E.Ecran.Boites, &E.Port.Conversation, &E.Disque.Ouvertures}) Journal->clear();
        E.Processus.Termines.clear();
      }
      std::size_t Recus = E.Lecteur.Fichiers().capacity() * sizeof(Fichier_Recu);
      for (const auto& F : E.Lecteur.Fichiers()) Recus += F.Contenu.capacity();
      return __sanitizer_get_current_allocated_bytes() - Recus;
    };
    const auto Avant = Tenus_Apres(5), De_Plus = Tenus_Apres(50) - Avant;
    Compter("répétition", Nom_, std::vector<std::string>(De_Plus != 0, std::to_string(De_Plus) + " octets de plus"));
  }

  Tableau& T_;
  const int Rang_, Equipe_, Un_Sur_;
  std::mt19937 Tirage_;
  int Suivant_ = 0, Scenario_ = 0;
  const std::vector<Coups> Tous_Les_Coups_ = Lire_Coups();
  std::string Nom_;
  Bilan Clair_;
  std::map<std::string, int> Longues_;
};

int Tout_Passer(unsigned Graine, int Un_Sur) {
  auto* const T =
      static_cast<Tableau*>(mmap(nullptr, sizeof(Tableau), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  const auto Debut = std::chrono::steady_clock::now();
  const int Equipe = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 2, Equipiers_Au_Plus);
  std::printf("graine %u, %d processus\n", Graine, Equipe);
  std::fflush(stdout);
  for (int Rang = 0; Rang < Equipe; ++Rang) {
    if (fork() == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      Campagne(*T, Rang, Equipe, Graine, Un_Sur).Tout();
      std::exit(0);
    }
  }
  int Passes = 0, Echecs = 0, Etat = 0;
  while (wait(&Etat) > 0) Echecs += Etat != 0;
  for (int Rang = 0; Rang < Equipe && Echecs != 0; ++Rang)
    std::printf("ECHEC : un processus s'est arrêté, dernier cas %s\n", T->En_Cours[Rang]);
  std::printf("%-16s", "");
  for (const auto* Sorte : Sortes) std::printf(" %10s", Sorte);
  for (std::size_t I = 0; I < Scenarios_Campagne.size(); ++I) {
    std::printf("\n%-16s", Scenarios_Campagne[I].Nom.data());
    for (std::size_t J = 0; J < std::size(Sortes); ++J) {
      Passes += T->Passes[I][J];
      Echecs += T->Echecs[I][J];
      std::printf(" %10d", T->Passes[I][J] + T->Echecs[I][J]);
    }
  }
  rusage Usage{};
  getrusage(RUSAGE_CHILDREN, &Usage);
  const std::chrono::duration<double> Duree = std::chrono::steady_clock::now() - Debut;
  std::printf("\n%.0f s (%ld s de processeur)\n%d passed, %d failed\n", Duree.count(),
              Usage.ru_utime.tv_sec + Usage.ru_stime.tv_sec, Passes, Echecs);
  return Echecs != 0;
}

int Passer_Seul(const std::string& Nom) {
  Epreuve E(Nom);
  const Bilan B = E.Passer();
  for (const auto& Plainte : B.Plaintes) std::printf("ECHEC %s\n", Plainte.c_str());
  for (const auto& Boite : E.Ecran.Boites) std::printf("[boîte] %s\n", Boite.c_str());
  std::printf("%s\n%d passed, %d failed\n", E.Pane().c_str(), B.Plaintes.empty(), !B.Plaintes.empty());
  return !B.Plaintes.empty();
}

}  // namespace

int main(int Nombre, char** Arguments) {
  const std::string Premier = Nombre > 1 ? Arguments[1] : "", Dernier = Arguments[Nombre - 1];
  Vite = Premier == "--vite";
  if (Nombre == 1 || Vite) return Tout_Passer(20, 1);
  if (Premier == "--un-sur") return Tout_Passer(20, std::stoi(Dernier));
  return Premier == "--graine" ? Tout_Passer(static_cast<unsigned>(std::stoul(Dernier)), 1) : Passer_Seul(Dernier);
}
