// The fault campaign. Without argument every case, on all processors; "--un-sur N" plays one in N;
// "--case NAME" (or the name alone) plays that case, told in full.
//
// Every process of the team goes through the same cases in the same order and numbers them with
// Est_A_Moi; it plays those whose number is its own rank, modulo the team. What a case alone can tell
// (the fault that lasts, the second action) is played at once by the same process, without a number. So a
// new kind of case needs one function that asks Est_A_Moi before each Passer, called by Tout.

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <thread>

#include "simulator/Lecture_Texte.h"
#include "tests/campagne/Epreuve.h"

namespace {

constexpr int Equipiers_Au_Plus = 16, Secondes_Par_Cas = 60;  // of processor

/// What the processes share.
struct Tableau {
  std::atomic<int> Passes, Echecs;
  char En_Cours[Equipiers_Au_Plus][512];
};

struct Coups {
  std::string Appel;
  std::vector<std::string> Effets;
};

/// Adds the word, once for each value of its braces.
void Etendre(const std::string& Mot, std::vector<std::string>& Tous) {
  const auto Debut = Mot.find('{'), Fin = Mot.find('}');
  if (Debut == Mot.npos) return Tous.push_back(Mot);
  const auto Garnir = [&](const std::string& V) { Etendre(Mot.substr(0, Debut) + V + Mot.substr(Fin + 1), Tous); };
  for (const auto Part : Decouper(std::string_view(Mot).substr(Debut + 1, Fin - Debut - 1), ',')) {
    const std::string Valeur(Part);
    const auto Points = Valeur.find("..");
    const int Dernier = Points == Valeur.npos ? 0 : std::stoi(Valeur.substr(Points + 2));
    if (Points == Valeur.npos) Garnir(Valeur);
    for (int I = Dernier == 0 ? 1 : std::stoi(Valeur); I <= Dernier; ++I) Garnir(std::to_string(I));
  }
}

std::vector<Coups> Lire_Coups() {
  std::vector<Coups> Tous;
  std::ifstream Fichier(COUPS);
  for (std::string Appels, Mots; Fichier >> Appels && std::getline(Fichier, Mots);) {
    if (Appels == "#") continue;
    std::vector<std::string> Effets;
    for (const auto Mot : Decouper(Mots, ' ')) Etendre(std::string(Mot), Effets);
    for (const auto Appel : Decouper(Appels, ',')) Tous.push_back({std::string(Appel), Effets});
  }
  if (Tous.empty()) throw std::runtime_error(COUPS);
  return Tous;
}

/// What is done once stays done.
bool Dure_De_Soi(std::string_view Effet) {
  constexpr std::string_view Mots[] = {"tronquer", "effacer", "vider", "muet", "arracher"};
  return std::any_of(std::begin(Mots), std::end(Mots), [&](auto Mot) { return Effet.starts_with(Mot); });
}

class Campagne {
 public:
  Campagne(Tableau& T, int Rang, int Equipe, int Un_Sur) : T_(T), Rang_(Rang), Equipe_(Equipe), Un_Sur_(Un_Sur) {}

  void Tout() {
    for (const auto& S : Scenarios_Campagne) {
      Nom_ = S.Nom;
      Clair_ = Jouer(Nom_, true);
      // Other readers: as if the clean run had called them once.
      Clair_.Appels["lecteur_serie"] = Nom_.starts_with("serie");
      Clair_.Appels["lecteur"] = Nom_ == "tele" || Nom_ == "charge" || Nom_ == "650";
      if (!Nom_.ends_with("-fenetres")) Frapper();  // there the operator alone differs
      Operer();
    }
  }

 private:
  bool Est_A_Moi() {
    const int Numero = Suivant_++;
    return Numero % Un_Sur_ == 0 && Numero / Un_Sur_ % Equipe_ == Rang_;
  }

  Bilan Jouer(const std::string& Nom, bool Relever_Actions) {
    std::strncpy(T_.En_Cours[Rang_], Nom.c_str(), sizeof T_.En_Cours[0] - 1);
    const itimerval Delai{{}, {Secondes_Par_Cas, 0}};
    setitimer(ITIMER_PROF, &Delai, nullptr);
    Epreuve E(Nom);
    E.Relever_Actions = Relever_Actions;
    return E.Passer();
  }

  Bilan Passer(const std::string& Nom, bool Relever_Actions = false) {
    Bilan B = Jouer(Nom, Relever_Actions);
    if (B.Impossible) return B;
    ++(B.Plaintes.empty() ? T_.Passes : T_.Echecs);
    for (const auto& Plainte : B.Plaintes) std::printf("ECHEC %s : %s\n", Nom.c_str(), Plainte.c_str());
    return B;
  }

  // Once, then from then on when the call comes again and the effect would be another.
  void Frapper() {
    for (const auto& C : Tous_Les_Coups_) {
      // The waiting for a reader that restarts takes 30 answers well, and 10 000 for ever.
      const char* const Ensuite = C.Appel == "appel" || C.Appel == "Echange" ? "_fois_30:" : "!:";
      for (int Rang = 1; Rang <= Clair_.Appels[C.Appel]; ++Rang) {
        for (const auto& Effet : C.Effets) {
          if ((Effet.starts_with("nature") && Nom_ != "charge") || !Est_A_Moi()) continue;
          const std::string Debut = Nom_ + "/" + C.Appel + "_" + std::to_string(Rang);
          const bool Compose = Effet.starts_with("fois");
          Bilan B = Passer(Debut + (Compose ? "_" : ":") + Effet);
          if (B.Appels[C.Appel] > Rang && !Compose && !Dure_De_Soi(Effet)) Passer(Debut + Ensuite + Effet);
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
        if (!Est_A_Moi()) continue;
        const std::string Debut = Nom_ + "/" + Clic(I, A);
        const auto Suites = Passer(Debut, Nouveau).Actions;
        if (I + 1 >= Suites.size()) continue;
        for (const auto& Autre : Suites[I + 1]) {
          for (const std::size_t Second : {I, I + 1}) Passer(Debut + "," + Clic(Second, Autre));
        }
      }
    }
  }

  Tableau& T_;
  const int Rang_, Equipe_, Un_Sur_;
  int Suivant_ = 0;
  const std::vector<Coups> Tous_Les_Coups_ = Lire_Coups();
  std::string Nom_;
  Bilan Clair_;
};

int Tout_Passer(int Un_Sur) {
  auto& T =
      *static_cast<Tableau*>(mmap(nullptr, sizeof(Tableau), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  const int Equipe = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 2, Equipiers_Au_Plus);
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  std::map<pid_t, int> Equipiers;
  for (int Rang = 0; Rang < Equipe; ++Rang) {
    const pid_t Equipier = fork();
    Equipiers[Equipier] = Rang;
    if (Equipier != 0) continue;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    Campagne(T, Rang, Equipe, Un_Sur).Tout();
    std::exit(0);
  }
  int Etat = 0;
  for (pid_t Fini = 0; (Fini = wait(&Etat)) > 0;) {
    if (Etat == 0) continue;
    ++T.Echecs;
    std::printf("ECHEC : un processus s'est arrêté (%d) pendant %s\n", Etat, T.En_Cours[Equipiers[Fini]]);
  }
  rusage Usage{};
  getrusage(RUSAGE_CHILDREN, &Usage);
  const int Echecs = T.Echecs;
  std::printf("%ld s de processeur\n%d passed, %d failed\n", Usage.ru_utime.tv_sec + Usage.ru_stime.tv_sec,
              T.Passes.load(), Echecs);
  return Echecs != 0;
}

int Passer_Seul(const std::string& Nom) {
  Epreuve E(Nom);
  const Bilan B = E.Passer();
  std::printf("%s", E.Histoire.c_str());
  for (const auto& Plainte : B.Plaintes) std::printf("ECHEC %s\n", Plainte.c_str());
  std::printf("%d passed, %d failed\n", B.Plaintes.empty(), !B.Plaintes.empty());
  return !B.Plaintes.empty();
}

}  // namespace

int main(int Nombre, char** Arguments) {
  const std::string Premier = Nombre > 1 ? Arguments[1] : "", Dernier = Arguments[Nombre - 1];
  if (Nombre == 1) return Tout_Passer(1);
  return Premier == "--un-sur" ? Tout_Passer(std::stoi(Dernier)) : Passer_Seul(Dernier);
}
