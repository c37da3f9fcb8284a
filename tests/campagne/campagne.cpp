// The fault campaign: "campagne" plays every case, "campagne K N" those whose number is K modulo N,
// "campagne NAME" that one alone, told in full.
//
// The parts of a campaign go through the same cases in the same order and number them with Est_A_Moi.
// What a case alone can tell (the second action) is played at once by the same part, without a number.
// So a new kind of case needs one function that asks Est_A_Moi before each Passer, called by Tout.

#include <sys/time.h>

#include <csignal>
#include <cstdio>
#include <ctime>
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

struct Campagne {
  void Tout() {
    for (const auto& [Nom, Scenario] : Scenarios_Campagne) {
      const auto Claire = Passer(Nom, true);
      std::ifstream Coups(CAMPAGNE "/coups.txt");
      for (std::string Ligne, Pour, Coup; std::getline(Coups, Ligne);) {
        std::istringstream(Ligne) >> Pour >> Coup;
        if (Concerne(Pour, Nom)) Frapper(Nom + "/" + Coup, Claire->Appels);
      }
      if (!Coups.eof()) throw std::runtime_error("coups.txt");
      Operer(Nom + "/", Claire->Permises);
    }
  }

  // In the scenarios with more windows the operator alone differs.
  static bool Concerne(const std::string& Pour, const std::string& Nom) {
    return Pour == "*" ? !Nom.ends_with("-fenetres") : std::ranges::count(Decouper(Pour, ','), Nom) > 0;
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
  void Frapper(const std::string& Nom, const Comptes& Appels) {
    const auto Debut = Nom.find('{'), Fin = Nom.find('}'), Diese = Nom.find('#');
    const auto Garnir = [&](std::size_t Place, std::size_t Taille, int Premier, int Dernier) {
      for (int I = Premier; I <= Dernier; ++I)
        Frapper(std::string(Nom).replace(Place, Taille, std::to_string(I)), Appels);
    };
    if (Debut != Nom.npos) {
      for (const auto Mot : Decouper(std::string_view(Nom).substr(Debut + 1, Fin - Debut - 1), ',')) {
        const std::string Valeur(Mot);
        const auto Points = Valeur.find("..");
        if (Points == Valeur.npos) Frapper(std::string(Nom).replace(Debut, Fin + 1 - Debut, Valeur), Appels);
        if (Points != Valeur.npos)
          Garnir(Debut, Fin + 1 - Debut, std::stoi(Valeur), std::stoi(Valeur.substr(Points + 2)));
      }
    } else if (Diese != Nom.npos) {
      const auto Appel = Appels.find(Nom.substr(Nom.find('/') + 1, Diese - Nom.find('/') - 2));
      Garnir(Diese, 1, 1, Appel == Appels.end() ? 0 : Appel->second);
    } else if (Est_A_Moi()) {
      Passer(Nom);
    }
  }

  // Each action at each yield; then, where the choice of actions changes, each second action there
  // and at the next yield.
  void Operer(const std::string& Nom, const Choix_Offerts& Toutes) {
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
        for (const auto& Autre : Suites[I + 1]) {
          for (const std::size_t Second : {I, I + 1}) Passer(Debut + "," + Clic(Second, Autre));
        }
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
    std::printf("%ld s de processeur\n", std::clock() / CLOCKS_PER_SEC);
  }
  std::printf("%d passed, %d failed\n", C.Passes, C.Echecs);
  return C.Echecs != 0;
}
