// The fault campaign. Without argument every case, on all processors; with a case's name, that case
// alone, told in full; "--graine N" changes the seed of the random mixtures.

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <random>
#include <thread>
#include <unordered_set>

#include "tests/campagne/Epreuve.h"

extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace {

enum Sorte {
  Sain,
  Codes,
  Longueurs,
  Reponses,
  Levees,
  Fichiers,
  Poste,
  Ligne,
  Lecteurs,
  Operateur,
  Paires,
  Doubles,
  Hasard,
  Repetition,
  Nombre_Sortes
};
constexpr std::array<const char*, Nombre_Sortes> Titres = {
    "sain",  "codes",    "longueurs", "réponses", "levées",  "fichiers", "poste",
    "ligne", "lecteurs", "opérateur", "paires",   "doubles", "hasard",   "répétition"};
constexpr int Equipiers_Au_Plus = 16, Secondes_Par_Cas = 60;

/// What the processes share.
struct Tableau {
  std::atomic<int> Passes[32][Nombre_Sortes], Echecs[32][Nombre_Sortes];
  std::atomic<int> Traces;
  char En_Cours[Equipiers_Au_Plus][512];
};

using Noms = std::vector<std::string>;

/// What is done once stays done.
bool Dure_De_Soi(std::string_view Effet) {
  const std::string_view Debuts[] = {"tronquer", "effacer", "vider",    "remplir",
                                     "profil",   "muet",    "arracher", "processus"};
  return std::any_of(std::begin(Debuts), std::end(Debuts),
                     [&](auto Debut) { return Effet.starts_with(Debut); });
}

class Campagne {
 public:
  Campagne(Tableau& T, int Rang, int Equipe, unsigned Graine)
      : T_(T), Rang_(Rang), Equipe_(Equipe), Tirage_(Graine) {}

  void Tout() {
    for (const auto& S : Scenarios_Campagne) {
      if (const char* e = getenv("SEUL"); e && S.Nom != e) {
        ++Scenario_;
        continue;
      }
      Parcourir(S);
    }
    T_.Traces += static_cast<int>(Empreintes_.size());
  }

 private:
  /// Every process knows all the cases of the first rank and plays its share of them.
  bool A_Moi() { return Suivant_++ % Equipe_ == Rang_; }

  Bilan Passer(Sorte Quoi, const std::string& Nom) {
    std::strncpy(T_.En_Cours[Rang_], Nom.c_str(), sizeof T_.En_Cours[0] - 1);
    alarm(Secondes_Par_Cas);
    Bilan B = Epreuve(Nom).Passer();
    if (B.Impossible) return B;
    ++(B.Plaintes.empty() ? T_.Passes : T_.Echecs)[Scenario_][Quoi];
    for (const auto& Plainte : B.Plaintes) {
      std::printf("ECHEC %s : %s\n", Nom.c_str(), Plainte.c_str());
    }
    Empreintes_.insert(B.Empreinte);
    return B;
  }

  /// Once, then from then on when the same call comes again.
  void Essayer(Sorte Quoi, const std::string& Appel, int Rang, const std::string& Effet) {
    if (!A_Moi()) return;
    const std::string Debut = Nom_ + "/" + Appel + "_" + std::to_string(Rang);
    const Bilan B = Passer(Quoi, Debut + ":" + Effet);
    const auto Compte = B.Appels.find(Appel == "appel" ? "Galss" : Appel);
    if (Compte->second <= Rang || Dure_De_Soi(Effet)) return;
    // Where the program waits for a restarting reader, "from then on" takes 10 000 exchanges.
    int& Longues = Longues_[Nom_ + std::to_string(Rang)];
    const bool Bornee = Appel == "appel" && Longues > 3;
    const Bilan Toujours = Passer(Quoi, Debut + (Bornee ? "_fois_30:" : "!:") + Effet);
    Longues += Toujours.Operations.size() > 5000 ? 1 : 0;
  }

  void Parcourir(const Scenario_Campagne& S);
  void Frapper_Galss(const Bilan& Clair);
  void Frapper_Echange(int Rang);
  void Frapper_Appels(const Bilan& Clair);
  void Doubler(const Bilan& Clair);
  void Operer(const Bilan& Clair);
  void Meler(const Bilan& Clair);
  void Changer_Lecteur(bool Serie);
  void Repeter();

  Tableau& T_;
  const int Rang_, Equipe_;
  std::mt19937 Tirage_;
  int Suivant_ = 0, Scenario_ = -1;
  std::string Nom_;
  std::map<std::string, int> Longues_;
  std::unordered_set<std::size_t> Empreintes_;
};

Noms Liste(const std::string& Debut, const std::vector<long>& Valeurs,
           const std::string& Fin = "") {
  Noms Toutes;
  for (const long V : Valeurs) Toutes.push_back(Debut + std::to_string(V) + Fin);
  return Toutes;
}
std::vector<long> Suite(long Premier, long Dernier) {
  std::vector<long> Valeurs;
  for (long V = Premier; V <= Dernier; ++V) Valeurs.push_back(V);
  return Valeurs;
}
Noms operator+(Noms A, const Noms& B) {
  A.insert(A.end(), B.begin(), B.end());
  return A;
}

const std::vector<long> Codes_Resultat = {-32764, -32760, -1,  1,   2,    4,    8,     16,
                                          64,     128,    256, 512, 1024, 2048, 4096,  8192,
                                          8196,   16384,  3,   52,  255,  -2,   32767, -32768};
const std::vector<long> Codes_Lecteur = {0,   1,   2,   3,   50,  51,  52,  53,  54,  127, 128,
                                         129, 130, 131, 132, 133, 134, 135, 136, 137, 138, 145,
                                         146, 147, 148, 149, 150, 151, 152, 153, 154, 255};
const std::vector<long> Longueurs_Hostiles = {
    0, 1, 2, 3, 4, 117, 118, 119, 2047, 2048, 2049, -1, -32768, 65536, INT32_MAX, INT32_MIN};
const Noms Levees_Galss = Liste("erreur_", {48, 51, 53, 453}) + Noms{"memoire", "inconnue"};
const Noms Coups_Disque = Liste("tronquer_", {0, 1, 2, 3, 4, 506, 507, 508, 600, 1013, 1014, 1015,
                                              1017, 1299, 1301, 5000, 1000002, 1000003}) +
                          Noms{"effacer", "vider", "remplir"};

/// What fits each call of the platform.
struct Coups {
  std::string_view Appel;
  Sorte Quoi;
  Noms Effets;
};
const std::vector<Coups> Coups_Par_Appel = {
    {"Galss", Levees, Levees_Galss},
    {"Galss", Fichiers, Coups_Disque},
    {"Lire", Fichiers,
     Liste("erreur_", {5, 57, 62, 70}) + Noms{"memoire", "inconnue"} + Coups_Disque},
    {"Taille", Fichiers,
     Liste("erreur_", {53, 57, 70, 76}) + Noms{"memoire"} + Coups_Disque +
         Liste("tronquer_", Suite(5, 60)) + Liste("tronquer_", Suite(2020, 2060))},
    {"Ouvrir_Fichier", Fichiers,
     Liste("erreur_", {53, 57, 70, 76}) + Noms{"memoire"} + Coups_Disque},
    {"Chercher", Fichiers, {"vider", "remplir", "effacer", "memoire", "inconnue"}},
    {"Sous_Repertoires", Fichiers, {"vider", "remplir", "memoire", "inconnue"}},
    {"Lecteurs", Poste, {"memoire", "inconnue"}},
    {"Repertoire_Courant", Poste, {"memoire", "inconnue"}},
    {"Lire_Profil", Poste, Liste("profil_", Suite(0, 13)) + Noms{"memoire", "inconnue"}},
    {"Ecrire_Profil", Poste, {"memoire", "inconnue", "vider", "effacer"}},
    {"Lister", Poste, Liste("processus_", {0, 1, 3, 500}) + Noms{"memoire", "inconnue"}},
    {"Boite_Message", Poste, {"non", "memoire", "inconnue", "effacer", "vider"}},
    {"Traiter_Evenements", Poste, {"memoire"}},
    {"Regler", Ligne, Liste("erreur_", {380, 8020}) + Noms{"memoire", "arracher", "muet"}},
    {"Ouvrir_Port", Ligne, Liste("erreur_", {8002, 8005, 8020}) + Noms{"memoire", "inconnue"}},
    {"Ecrire_Port", Ligne,
     Liste("erreur_", {8018, 8020}) + Noms{"memoire", "arracher", "muet"} +
         Liste("inonder_", {1, 9, 122, 123, 124, 5000})},
    {"En_Attente", Ligne,
     Liste("erreur_", {8018, 8020}) + Noms{"memoire", "arracher", "muet"} +
         Liste("inonder_", {1, 9, 122, 123, 124, 5000})},
    {"Lire_Port", Ligne,
     Liste("erreur_", {8018, 8020}) + Noms{"memoire", "arracher", "muet"} +
         Liste("inonder_", {1, 9, 122, 123, 124, 5000})},
    {"Traiter_Evenements", Ligne, Liste("inonder_", {1, 123}) + Noms{"arracher", "muet"}}};

void Campagne::Frapper_Echange(int Rang) {
  for (const auto& E : Liste("code_", Codes_Resultat, "_livre")) Essayer(Codes, "appel", Rang, E);
  for (const std::string Debut : {"", "code_64_", "code_1024_", "vide_"}) {
    for (const auto& L :
         Liste("longueur_", Longueurs_Hostiles) +
             Noms{"longueur_capacite", "longueur_capacite+1", "longueur_capacite-1"}) {
      Essayer(Longueurs, "appel", Rang, Debut + L);
    }
  }
  Essayer(Longueurs, "appel", Rang, "vide");
  for (const auto& E : Liste("refus_", Codes_Lecteur) + Liste("technique_", Codes_Lecteur)) {
    Essayer(Reponses, "appel", Rang, E);
  }
  const bool Toutes = Nom_ == "charge";
  for (const auto& E :
       Liste("nature_", Toutes ? Suite(0, 255) : std::vector<long>{1, 2, 26, 255})) {
    Essayer(Reponses, "appel", Rang, E);
  }
  for (const std::string A : {"00", "01", "02", "FF"}) {
    for (const std::string B : {"_00", "_01", "_02", "_20", "_32", "_82", "_91", "_FF"}) {
      for (const std::string C : {"", "_00", "_01", "_02", "_FF"}) {
        Essayer(Reponses, "appel", Rang, "octets_" + A + B + C);
      }
    }
  }
}

void Campagne::Frapper_Galss(const Bilan& Clair) {
  for (int Rang = 1; Rang <= static_cast<int>(Clair.Operations.size()); ++Rang) {
    for (const auto& E : Liste("code_", Codes_Resultat)) Essayer(Codes, "appel", Rang, E);
    for (const auto& E : {"noms_AAAA", "code_64_noms_AAAA", "code_8192_noms_\\x80\\xFF"}) {
      Essayer(Reponses, "appel", Rang, E);
    }
    if (A_Moi()) {  // the box that announces the failure fails in its turn
      Passer(Doubles,
             Nom_ + "/Galss_" + std::to_string(Rang) + ":erreur_48,Boite_Message_2:memoire");
    }
    if (Clair.Operations[static_cast<std::size_t>(Rang) - 1] == Cible::Echange)
      Frapper_Echange(Rang);
  }
}

void Campagne::Frapper_Appels(const Bilan& Clair) {
  for (const auto& C : Coups_Par_Appel) {
    const auto Compte = Clair.Appels.find(C.Appel);
    if (Compte == Clair.Appels.end()) continue;
    if (C.Quoi == Ligne && !Clair.Appels.contains("Regler")) continue;
    for (int Rang = 1; Rang <= Compte->second; ++Rang) {
      for (const auto& E : C.Effets) Essayer(C.Quoi, std::string(C.Appel), Rang, E);
    }
  }
}

// A second fault after a first one, at each later call of the library.
void Campagne::Doubler(const Bilan& Clair) {
  const Noms Premiers = {"code_64", "code_64_livre", "code_1024", "refus_50", "vide", "longueur_0"};
  const Noms Seconds = {"appel_R_fois_30:code_64",
                        "appel_R_fois_30:code_1024_livre",
                        "Galss_R!:erreur_48",
                        "Galss_R:memoire",
                        "appel_R_fois_30:longueur_2147483647",
                        "appel_R:octets_00_02_FF",
                        "appel_R:refus_50",
                        "Galss_R:tronquer_600"};
  for (int I = 1; I <= static_cast<int>(Clair.Operations.size()); ++I) {
    for (const auto& P : Premiers) {
      if (!A_Moi()) continue;
      const std::string Debut = Nom_ + "/appel_" + std::to_string(I) + ":" + P;
      const Bilan Seul = Epreuve(Debut).Passer();
      const int Dernier = std::min(Seul.Appels.find("Galss")->second, I + 14);
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
void Campagne::Operer(const Bilan& Clair) {
  const auto Clic = [](std::size_t Rang, const std::string& Action) {
    return "Traiter_Evenements_" + std::to_string(Rang + 1) + ":clic_" + Action;
  };
  for (std::size_t I = 0; I < Clair.Actions.size(); ++I) {
    const bool Nouveau = I == 0 || Clair.Actions[I] != Clair.Actions[I - 1] ||
                         I + 1 == Clair.Actions.size() || Clair.Actions[I] != Clair.Actions[I + 1];
    for (const auto& A : Clair.Actions[I]) {
      if (!A_Moi()) continue;
      const std::string Debut = Nom_ + "/" + Clic(I, A);
      Passer(Operateur, Debut);
      if (!Nouveau) continue;
      Epreuve Ensuite(Debut);
      Ensuite.Relever_Actions = true;
      const Bilan B = Ensuite.Passer();
      for (const std::size_t Second : {I, I + 1}) {
        if (I + 1 >= B.Actions.size()) continue;
        for (const auto& Autre : B.Actions[I + 1])
          Passer(Paires, Debut + "," + Clic(Second, Autre));
      }
    }
  }
}

void Campagne::Meler(const Bilan& Clair) {
  const auto Un_De = [&](const auto& Choix) { return Choix[Tirage_() % std::size(Choix)]; };
  for (int I = 0; I < 300; ++I) {
    std::string Nom = Nom_ + "/";
    const int Combien = 2 + static_cast<int>(Tirage_() % 3);
    for (int J = 0; J < Combien; ++J) {
      const auto& C = Un_De(Coups_Par_Appel);
      const auto Compte = Clair.Appels.find(C.Appel);
      const int Rangs = Compte == Clair.Appels.end() ? 0 : Compte->second;
      if (Rangs > 0) {
        Nom += std::string(C.Appel) + "_" +
               std::to_string(1 + Tirage_() % static_cast<unsigned>(Rangs)) + ":" +
               Un_De(C.Effets) + ",";
      }
      if (!Clair.Operations.empty()) {
        Nom += "appel_" + std::to_string(1 + Tirage_() % Clair.Operations.size()) + ":code_" +
               std::to_string(Un_De(Codes_Resultat)) + "_longueur_" +
               std::to_string(Un_De(Longueurs_Hostiles)) + ",";
      }
    }
    if (A_Moi()) Passer(Hasard, Nom);
  }
}

void Campagne::Changer_Lecteur(bool Serie) {
  Noms Lignes = Liste("longueur_config=", Suite(5, 260)) + Liste("morceaux=", Suite(1, 130)) +
                Liste("bruit_avant=", {10, 20, 99}) + Liste("bruit_apres=", {10, 20, 99}) +
                Liste("debranche_apres=", Suite(0, 5)) +
                Noms{"silence=test",
                     "silence=config",
                     "silence=tout",
                     "vitesses=115200",
                     "date=20051305",
                     "date=2005xx05",
                     "date=",
                     "constructeur=INGENICA",
                     "constructeur=\\xFF\\x00",
                     "num_serie=\\x81\\x8D"};
  if (!Serie) {
    Lignes = Liste("type_os=", Suite(0, 99)) + Liste("num_version=0", Suite(100, 400)) +
             Liste("taille_bloc=", Suite(0, 255)) + Liste("octet_etat=", {1, 2, 255}) +
             Liste("lectures_muettes=", {0, 1, 2, 50, 9999, 10000}) +
             Liste("session=", {0, -5, 12, 32767, -32768}) + Liste("exclusivite=", {0, -1, 32767}) +
             Noms{"lad=LOG_SV",
                  "lad=log_SV",
                  "lad=autre",
                  "constructeur=Ingenico",
                  "type_lecteur=INGENICO 650",
                  "constructeur=\\xFF\\x00"};
  }
  for (const auto& L : Lignes) {
    if (A_Moi()) Passer(Lecteurs, Nom_ + "/lecteur:" + L);
  }
}

// Updates and tests over and over: what the program holds must not grow.
void Campagne::Repeter() {
  if (__sanitizer_get_current_allocated_bytes == nullptr || !A_Moi()) return;
  Epreuve E(Nom_);
  E.Passer();
  E.Pannes_.Avant = {};
  E.Lecteur.Avant_Appel = {};
  const auto Vivants = [&E](int Fois) {
    for (int I = 0; I < Fois; ++I) {
      E.Retablir();
      E.App.F.FrmResultParam.CmdOK.Cliquer();
      E.Rechoisir_Repertoire();
      E.Mettre_A_Jour();
      E.Tester();
    }
    for (auto* Journal : {&E.Ecran.Boites, &E.Port.Conversation, &E.Disque.Ouvertures}) {
      std::vector<std::string>().swap(*Journal);
    }
    std::vector<std::uint32_t>().swap(E.Processus.Termines);
    std::deque<std::pair<double, Octets>>().swap(E.Port.Arrivees);
    std::size_t Recus = E.Lecteur.Fichiers().capacity() * sizeof(Fichier_Recu);
    for (const auto& F : E.Lecteur.Fichiers()) Recus += F.Contenu.capacity();
    return __sanitizer_get_current_allocated_bytes() - Recus;
  };
  const auto Avant = Vivants(5), Apres = Vivants(50);
  ++(Avant == Apres ? T_.Passes : T_.Echecs)[Scenario_][Repetition];
  if (Avant != Apres) std::printf("ECHEC %s : %zu octets, puis %zu\n", Nom_.c_str(), Avant, Apres);
}

void Campagne::Parcourir(const Scenario_Campagne& S) {
  ++Scenario_;
  Nom_ = S.Nom;
  Epreuve Seine(Nom_);
  Seine.Relever_Actions = true;
  const Bilan Clair = Seine.Passer();
  if (A_Moi()) Passer(Sain, Nom_);
  const bool Serie = Clair.Appels.contains("Regler");
  Frapper_Galss(Clair);
  Frapper_Appels(Clair);
  Doubler(Clair);
  Operer(Clair);
  Meler(Clair);
  Repeter();
  if (Serie || Nom_ == "tele" || Nom_ == "charge" || Nom_ == "650") Changer_Lecteur(Serie);
}

int Afficher(const Tableau& T, int Perdus, double Secondes) {
  int Passes = 0, Echecs = Perdus;
  std::printf("%-16s", "");
  for (const auto* Titre : Titres) std::printf(" %10s", Titre);
  for (std::size_t I = 0; I < Scenarios_Campagne.size(); ++I) {
    std::printf("\n%-16s", std::string(Scenarios_Campagne[I].Nom).c_str());
    for (int J = 0; J < Nombre_Sortes; ++J) {
      Passes += T.Passes[I][J];
      Echecs += T.Echecs[I][J];
      std::printf(" %10d", T.Passes[I][J] + T.Echecs[I][J]);
    }
  }
  std::printf("\n%d traces distinctes, %.0f s\n%d passed, %d failed\n", T.Traces.load(), Secondes,
              Passes, Echecs);
  return Echecs == 0 ? 0 : 1;
}

int Tout_Passer(unsigned Graine) {
  auto* const T = static_cast<Tableau*>(
      mmap(nullptr, sizeof(Tableau), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  const auto Debut = std::chrono::steady_clock::now();
  const int Equipe =
      std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 2, Equipiers_Au_Plus);
  std::printf("graine %u, %d processus\n", Graine, Equipe);
  std::fflush(stdout);
  for (int Rang = 0; Rang < Equipe; ++Rang) {
    if (fork() == 0) {
      Campagne(*T, Rang, Equipe, Graine).Tout();
      std::exit(0);
    }
  }
  int Perdus = 0, Etat = 0;
  while (wait(&Etat) > 0) Perdus += Etat != 0;
  for (int Rang = 0; Rang < Equipe && Perdus != 0; ++Rang) {
    std::printf("ECHEC : un processus s'est arrêté, dernier cas %s\n", T->En_Cours[Rang]);
  }
  return Afficher(*T, Perdus,
                  std::chrono::duration<double>(std::chrono::steady_clock::now() - Debut).count());
}

int Passer_Seul(const std::string& Nom) {
  Epreuve E(Nom);
  const Bilan B = E.Passer();
  for (const auto& Plainte : B.Plaintes) std::printf("ECHEC %s\n", Plainte.c_str());
  for (const auto& Boite : E.Ecran.Boites) std::printf("[boîte] %s\n", Boite.c_str());
  std::printf("%s\n%d passed, %d failed\n", E.Pane().c_str(), B.Plaintes.empty(),
              !B.Plaintes.empty());
  return B.Plaintes.empty() ? 0 : 1;
}

}  // namespace

int main(int Nombre, char** Arguments) {
  const std::string Premier = Nombre > 1 ? Arguments[1] : "";
  const std::string Dernier = Nombre > 1 ? Arguments[Nombre - 1] : "";
  if (Premier == "--graine") return Tout_Passer(static_cast<unsigned>(std::stoul(Dernier)));
  return Premier.empty() ? Tout_Passer(20) : Passer_Seul(Dernier);
}
