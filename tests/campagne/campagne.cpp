// The fault campaign: "campagne" plays every case, "campagne K N" those whose number is K modulo N,
// "campagne NAME" that one alone, told in full.
//
// The parts of a campaign go through the same cases in the same order and number them with Est_A_Moi.
// What a case alone can tell (the second action) is played at once by the same part, without a number.

#include <sys/time.h>

#include <csignal>
#include <cstdio>
#include <fstream>

#include "simulator/Lecture_Texte.h"
#include "tests/campagne/Epreuve.h"

namespace {

constexpr int Secondes_Par_Cas = 60;  // of processor

std::string En_Cours;
void Mourir(int Signal) {
  std::printf("ECHEC %s : signal %d\n", En_Cours.c_str(), Signal);
  std::fflush(stdout);
  std::_Exit(1);
}

// "a,b,1..3": a, b, 1, 2 and 3.
std::vector<std::string> Valeurs(const std::string& Liste) {
  std::vector<std::string> Toutes;
  for (const auto Mot : Decouper(Liste, ',')) {
    const auto Points = Mot.find("..");
    Toutes.emplace_back(Mot.substr(0, Points));
    while (Points != Mot.npos && Toutes.back() != Mot.substr(Points + 2))
      Toutes.push_back(std::to_string(std::stoi(Toutes.back()) + 1));
  }
  return Toutes;
}

struct Campagne {
  void Tout() {
    for (const auto& [Nom, Scenario] : Scenarios_Campagne) {
      const auto Claire = Passer(Nom, true);
      std::ifstream Coups(CAMPAGNE "/coups.txt");
      for (std::string Pour, Coup; Coups >> Pour && std::getline(Coups, Coup);) {
        // In the scenarios with more windows the operator alone differs.
        const bool Tous = Pour == "*" && !Nom.ends_with("-fenetres");
        if (Tous || std::ranges::count(Decouper(Pour, ','), Nom) > 0) Frapper(Nom + "/" + Coup.substr(1), *Claire);
      }
      if (!Coups.eof()) throw std::runtime_error("coups.txt");
      Operer(Nom + "/", Claire->Permises);
    }
  }

  std::unique_ptr<Epreuve> Passer(const std::string& Nom, bool Relever = false) {
    En_Cours = Nom;
    const itimerval Delai{{}, {Secondes_Par_Cas, 0}};
    setitimer(ITIMER_PROF, &Delai, nullptr);
    auto E = std::make_unique<Epreuve>(Nom);
    E->Passer(Relever);
    for (const auto& Plainte : E->Plaintes) std::printf("ECHEC %s : %s\n", Nom.c_str(), Plainte.c_str());
    ++(E->Plaintes.empty() ? Passes : Echecs);
    return E;
  }

  bool Est_A_Moi() { return Suivant++ % Sur == Part; }

  // Once for each value of its braces, then for each rank of its call.
  void Frapper(const std::string& Nom, const Epreuve& Claire) {
    const auto Debut = Nom.find('{'), Fin = Nom.find('}'), Diese = Nom.find('#');
    if (Debut != Nom.npos) {
      for (const auto& Valeur : Valeurs(Nom.substr(Debut + 1, Fin - Debut - 1)))
        Frapper(std::string(Nom).replace(Debut, Fin + 1 - Debut, Valeur), Claire);
    } else if (Diese != Nom.npos) {
      const auto Appel = Claire.Appels.find(Nom.substr(Nom.find('/') + 1, Diese - Nom.find('/') - 2));
      for (int Rang = 1; Appel != Claire.Appels.end() && Rang <= Appel->second; ++Rang)
        Frapper(std::string(Nom).replace(Diese, 1, std::to_string(Rang)), Claire);
    } else if (Est_A_Moi()) {
      Passer(Nom);
    }
  }

  // Each action at each yield; then, where the choice of actions changes, each second action there
  // and at the next yield.
  void Operer(const std::string& Nom, const auto& Toutes) {
    const auto Clic = [](std::size_t Rang, const std::string& Action) {
      return "Traiter_Evenements_" + std::to_string(Rang + 1) + ":clic_" + Action;
    };
    for (std::size_t I = 0; I < Toutes.size(); ++I) {
      const bool Nouveau = I == 0 || I + 1 == Toutes.size() || Toutes[I] != Toutes[I - 1] || Toutes[I] != Toutes[I + 1];
      for (const auto& A : Toutes[I]) {
        if (!Est_A_Moi()) continue;
        const std::string Debut = Nom + Clic(I, A);
        const auto Suites = Passer(Debut, Nouveau)->Permises;
        if (I + 1 >= Suites.size()) continue;
        for (const auto& Autre : Suites[I + 1])
          for (const std::size_t Second : {I, I + 1}) Passer(Debut + "," + Clic(Second, Autre));
      }
    }
  }

  int Part = 0, Sur = 1, Suivant = 0, Passes = 0, Echecs = 0;
};

}  // namespace

int main(int Nombre, char** Arguments) {
  Campagne C;
  if (Nombre == 2) {
    std::printf("%s", C.Passer(Arguments[1])->Histoire.c_str());
  } else {
    for (const int Signal : {SIGPROF, SIGABRT, SIGSEGV}) std::signal(Signal, Mourir);
    if (Nombre == 3) C.Part = std::stoi(Arguments[1]), C.Sur = std::stoi(Arguments[2]);
    C.Tout();
  }
  std::printf("%d passed, %d failed\n", C.Passes, C.Echecs);
  return C.Echecs != 0;
}
