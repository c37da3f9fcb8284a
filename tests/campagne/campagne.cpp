// The fault campaign. Without argument every case, on all processors; with a case's name, that case
// alone, told in full; "--graine N" changes the seed of the random mixtures, "--vite" stops at the
// first failure.

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
#include <unordered_set>

#include "simulator/Lecture_Texte.h"
#include "tests/campagne/Epreuve.h"

extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace {

// clang-format off
enum Sorte { Codes, Longueurs, Reponses, Levees, Fichiers, Poste, Ligne, Lecteurs, Operateur, Paires, Doubles,
             Hasard, Repetition, Nombre_Sortes };
constexpr const char* Titres[] = {"codes", "longueurs", "réponses", "levées", "fichiers", "poste", "ligne",
                                  "lecteurs", "opérateur", "paires", "doubles", "hasard", "répétition"};
// clang-format on
static_assert(std::size(Titres) == Nombre_Sortes);
constexpr int Equipiers_Au_Plus = 16, Secondes_Par_Cas = 60;

std::vector<std::string> Valeurs(std::string_view Accolade) {
  std::vector<std::string> Toutes;
  for (const auto Valeur : Decouper(Accolade, ',')) {
    const auto Points = Valeur.find("..");
    if (Points == Valeur.npos) {
      Toutes.emplace_back(Valeur);
      continue;
    }
    const long Dernier = Lire_Nombre(Valeur.substr(Points + 2), 0, 9999);
    for (long I = Lire_Nombre(Valeur.substr(0, Points), 0, 9999); I <= Dernier; ++I)
      Toutes.push_back(std::to_string(I));
  }
  return Toutes;
}

/// A word for each value of its braces.
std::vector<std::string> Etendre(std::string_view Mot) {
  const auto Debut = Mot.find('{'), Fin = Mot.find('}');
  if (Debut == Mot.npos) return {std::string(Mot)};
  std::vector<std::string> Tous;
  for (const auto& Valeur : Valeurs(Mot.substr(Debut + 1, Fin - Debut - 1))) {
    for (const auto& Suite : Etendre(Mot.substr(Fin + 1)))
      Tous.push_back(std::string(Mot.substr(0, Debut)) + Valeur + Suite);
  }
  return Tous;
}
std::vector<std::string> Etendre_Tous(std::string_view Mots) {
  std::vector<std::string> Tous;
  for (const auto Mot : Decouper(Mots, ' ')) {
    for (auto& Un : Etendre(Mot)) Tous.push_back(std::move(Un));
  }
  return Tous;
}

struct Coups {
  Sorte Quoi;
  std::string Appel;
  std::vector<std::string> Effets;
  bool De_La_Bibliotheque() const { return Appel == "appel" || Appel == "echange"; }
};

std::vector<Coups> Lire_Coups() {
  std::vector<Coups> Tous;
  std::ifstream Fichier(COUPS);
  for (std::string Ligne_Lue; std::getline(Fichier, Ligne_Lue);) {
    const auto Premier = Ligne_Lue.find(' '), Second = Ligne_Lue.find(' ', Premier + 1);
    const auto Titre = std::find(std::begin(Titres), std::end(Titres), Ligne_Lue.substr(0, Premier));
    if (Titre == std::end(Titres)) continue;
    for (const auto Appel : Decouper(std::string_view(Ligne_Lue).substr(Premier + 1, Second - Premier - 1), ',')) {
      Tous.push_back({static_cast<Sorte>(Titre - Titres), std::string(Appel),
                      Etendre_Tous(std::string_view(Ligne_Lue).substr(Second))});
    }
  }
  if (Tous.empty()) throw std::runtime_error(COUPS);
  return Tous;
}

/// What the processes share.
struct Tableau {
  std::atomic<int> Passes[32][Nombre_Sortes], Echecs[32][Nombre_Sortes], Traces;
  char En_Cours[Equipiers_Au_Plus][512];
};

bool Vite = false;

class Campagne {
 public:
  Campagne(Tableau& T, int Rang, int Equipe, unsigned Graine) : T_(T), Rang_(Rang), Equipe_(Equipe), Tirage_(Graine) {}

  void Tout() {
    for (const auto& S : Scenarios_Campagne) {
      Nom_ = S.Nom;
      Epreuve Saine(Nom_);
      Saine.Relever_Actions = true;
      Clair_ = Saine.Passer();
      if (!Nom_.ends_with("-fenetres")) {  // there the operator alone differs
        Frapper();
        Doubler();
      }
      Operer();
      Meler();
      Repeter();
      Changer_Lecteur();
      ++Scenario_;
    }
    T_.Traces += static_cast<int>(Empreintes_.size());
  }

 private:
  /// Every process knows all the cases of the first rank and plays its share of them.
  bool A_Moi() { return Suivant_++ % Equipe_ == Rang_; }

  void Compter(Sorte Quoi, const std::string& Nom, const std::vector<std::string>& Plaintes) {
    ++(Plaintes.empty() ? T_.Passes : T_.Echecs)[Scenario_][Quoi];
    for (const auto& Plainte : Plaintes) std::printf("ECHEC %s : %s\n", Nom.c_str(), Plainte.c_str());
    if (Vite && !Plaintes.empty()) std::exit(1);
  }

  Bilan Passer(Sorte Quoi, const std::string& Nom) {
    std::strncpy(T_.En_Cours[Rang_], Nom.c_str(), sizeof T_.En_Cours[0] - 1);
    alarm(Secondes_Par_Cas);
    Bilan B = Epreuve(Nom).Passer();
    if (!B.Impossible) Compter(Quoi, Nom, B.Plaintes);
    Empreintes_.insert(B.Empreinte);
    return B;
  }

  /// Calls of a name in the clean run. Those of the line matter to the serial test alone.
  int Rangs(const Coups& C) const {
    if (C.De_La_Bibliotheque()) return static_cast<int>(Clair_.Operations.size());
    const auto Compte = Clair_.Appels.find(C.Appel);
    return Compte == Clair_.Appels.end() ? 0 : Compte->second;
  }
  bool Convient(const Coups& C, int Rang) const {
    return C.Appel != "echange" || Clair_.Operations[static_cast<std::size_t>(Rang) - 1] == Cible::Echange;
  }
  static std::string Appel_De(const Coups& C) { return std::string(C.Appel == "echange" ? "appel" : C.Appel); }

  // Once, then from then on when the call comes again and the effect would be another.
  void Frapper() {
    for (const auto& C : Tous_Les_Coups_) {
      for (int Rang = 1; Rang <= Rangs(C); ++Rang) {
        for (const auto& Effet : C.Effets) {
          const bool Utile = Convient(C, Rang) && (!Effet.starts_with("nature") || Nom_ == "charge");
          if (!Utile || !A_Moi()) continue;
          const std::string Debut = Nom_ + "/" + Appel_De(C) + "_" + std::to_string(Rang);
          const bool Compose = Effet.starts_with("fois");
          const Bilan B = Passer(C.Quoi, Debut + (Compose ? "_" : ":") + Effet);
          const auto Compte = B.Appels.find(C.De_La_Bibliotheque() ? "Galss" : C.Appel);
          if (Compte->second <= Rang || Compose || Dure_De_Soi(Effet)) continue;
          // Where the program waits for a restarting reader, "from then on" takes 10 000 exchanges.
          int& Longues = Longues_[Debut];
          Longues += Passer(C.Quoi, Debut + (Longues > 3 ? "_fois_30:" : "!:") + Effet).Operations.size() > 5000;
        }
      }
    }
  }
  /// What is done once stays done.
  static bool Dure_De_Soi(std::string_view Effet) {
    const auto Mots = Etendre("{tronquer,effacer,vider,remplir,profil,muet,arracher,processus}");
    return std::any_of(Mots.begin(), Mots.end(), [&](const auto& Mot) { return Effet.starts_with(Mot); });
  }

  // A second fault after a first one, at each later call of the library; and the box that announces
  // a failure fails in its turn.
  void Doubler() {
    const auto Seconds = Etendre_Tous(
        "appel_R_fois_30:code_{64,1024_livre} Galss_R!:erreur_48 Galss_R:memoire "
        "appel_R_fois_30:longueur_2147483647 appel_R:octets_00_02_FF appel_R:refus_50 "
        "Galss_R:tronquer_600");
    for (int I = 1; I <= static_cast<int>(Clair_.Operations.size()); ++I) {
      if (A_Moi()) Passer(Doubles, Nom_ + "/Galss_" + std::to_string(I) + ":erreur_48,Boite_Message_2:memoire");
      for (const auto& Premier : Etendre("{code_64,code_64_livre,code_1024,refus_50,vide,longueur_0}")) {
        if (!A_Moi()) continue;
        const std::string Debut = Nom_ + "/appel_" + std::to_string(I) + ":" + Premier;
        const int Dernier = std::min(Epreuve(Debut).Passer().Appels.find("Galss")->second, I + 14);
        for (int J = I + 1; J <= Dernier; ++J) {
          for (std::string Second : Seconds) {
            Passer(Doubles, Debut + "," + Second.replace(Second.find('R'), 1, std::to_string(J)));
          }
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
        Passer(Operateur, Debut);
        Epreuve Ensuite(Debut);
        Ensuite.Relever_Actions = Nouveau;
        const auto Suites = Nouveau ? Ensuite.Passer().Actions : std::vector<std::vector<std::string>>();
        for (const std::size_t Second : {I, I + 1}) {
          if (I + 1 >= Suites.size()) continue;
          for (const auto& Autre : Suites[I + 1]) Passer(Paires, Debut + "," + Clic(Second, Autre));
        }
      }
    }
  }

  void Meler() {
    for (int I = 0; I < 500; ++I) {
      std::string Nom = Nom_ + "/";
      for (auto Combien = 3 + Tirage_() % 5; Combien > 0; --Combien) {
        const auto& C = Tous_Les_Coups_[Tirage_() % Tous_Les_Coups_.size()];
        const int Rang = Rangs(C) == 0 ? 0 : 1 + static_cast<int>(Tirage_() % static_cast<unsigned>(Rangs(C)));
        const auto& Effet = C.Effets[Tirage_() % C.Effets.size()];
        if (Rang > 0 && Convient(C, Rang) && !Effet.starts_with("fois"))
          Nom += Appel_De(C) + "_" + std::to_string(Rang) + ":" + Effet + ",";
      }
      if (A_Moi()) Passer(Hasard, Nom);
    }
  }

  // Updates and tests over and over: what the program holds must not grow.
  void Repeter() {
    if (__sanitizer_get_current_allocated_bytes == nullptr || !A_Moi()) return;
    Epreuve E(Nom_);
    E.Passer();
    const auto Avant = E.Repeter(5, __sanitizer_get_current_allocated_bytes);
    const auto Apres = E.Repeter(50, __sanitizer_get_current_allocated_bytes);
    Compter(Repetition, Nom_,
            Avant == Apres ? std::vector<std::string>()
                           : std::vector<std::string>{std::to_string(Apres - Avant) + " octets de plus"});
  }

  void Changer_Lecteur() {
    const bool Serie = Clair_.Appels.contains("Regler");
    if (!Serie && Nom_ != "tele" && Nom_ != "charge" && Nom_ != "650") return;
    for (const auto& C : Tous_Les_Coups_) {
      if (C.Appel != (Serie ? "lecteur_serie" : "lecteur")) continue;
      for (const auto& Effet : C.Effets) {
        if (A_Moi()) Passer(Lecteurs, Nom_ + "/lecteur:" + Effet);
      }
    }
  }

  Tableau& T_;
  const int Rang_, Equipe_;
  std::mt19937 Tirage_;
  int Suivant_ = 0, Scenario_ = 0;
  const std::vector<Coups> Tous_Les_Coups_ = Lire_Coups();
  std::string Nom_;
  Bilan Clair_;
  std::map<std::string, int> Longues_;
  std::unordered_set<std::size_t> Empreintes_;
};

int Tout_Passer(unsigned Graine) {
  auto* const T =
      static_cast<Tableau*>(mmap(nullptr, sizeof(Tableau), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  const auto Debut = std::chrono::steady_clock::now();
  const int Equipe = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 2, Equipiers_Au_Plus);
  std::printf("graine %u, %d processus\n", Graine, Equipe);
  std::fflush(stdout);
  for (int Rang = 0; Rang < Equipe; ++Rang) {
    if (fork() == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      Campagne(*T, Rang, Equipe, Graine).Tout();
      std::exit(0);
    }
  }
  int Passes = 0, Echecs = 0, Etat = 0;
  while (wait(&Etat) > 0) Echecs += Etat != 0;
  for (int Rang = 0; Rang < Equipe && Echecs != 0; ++Rang)
    std::printf("ECHEC : un processus s'est arrêté, dernier cas %s\n", T->En_Cours[Rang]);
  std::printf("%-16s", "");
  for (const auto* Titre : Titres) std::printf(" %10s", Titre);
  for (std::size_t I = 0; I < Scenarios_Campagne.size(); ++I) {
    std::printf("\n%-16s", Scenarios_Campagne[I].Nom.data());
    for (int J = 0; J < Nombre_Sortes; ++J) {
      Passes += T->Passes[I][J];
      Echecs += T->Echecs[I][J];
      std::printf(" %10d", T->Passes[I][J] + T->Echecs[I][J]);
    }
  }
  rusage Usage{};
  getrusage(RUSAGE_CHILDREN, &Usage);
  const std::chrono::duration<double> Duree = std::chrono::steady_clock::now() - Debut;
  std::printf("\n%d traces distinctes, %.0f s (%ld s de processeur)\n%d passed, %d failed\n", T->Traces.load(),
              Duree.count(), Usage.ru_utime.tv_sec + Usage.ru_stime.tv_sec, Passes, Echecs);
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
  if (Nombre == 1 || Premier == "--graine")
    return Tout_Passer(Nombre == 1 ? 20 : static_cast<unsigned>(std::stoul(Dernier)));
  Vite = Premier == "--vite";
  return Vite ? Tout_Passer(20) : Passer_Seul(Dernier);
}
