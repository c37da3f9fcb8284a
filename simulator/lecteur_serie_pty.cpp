// The serial end on a pseudo-terminal (Linux): a symbolic link stands for the port, for example
// the COM port of a Wine prefix. The scenario is read again whenever its file changes, so that a
// test can change the reader's behaviour, or plug it in again, while it runs.

// The kernel's own settings of a line, whose speed is a number; termios.h knows the old codes alone.
#include <asm/termbits.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "simulator/Lecteur_Serie.h"

namespace {

volatile sig_atomic_t Arret_Demande = 0;

struct Options {
  std::filesystem::path Lien, Scenario, Trace;
  std::string Lignes;  // "cle = valeur" of the command line, after those of the file
};

class Terminal {
 public:
  explicit Terminal(std::filesystem::path Lien) : Lien_(std::move(Lien)) {}
  ~Terminal() { Debrancher(); }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  void Brancher();
  void Debrancher();
  bool Branche() const { return Maitre_ >= 0; }
  /// In bauds.
  int Vitesse() const;
  /// What came in within 20 ms, perhaps nothing.
  Octets Lire();
  void Ecrire(Vue_Octets Donnees) const;

 private:
  void Vider_A_L_Ouverture() const;

  std::filesystem::path Lien_;
  // The slave is kept open here too: the program's own closing then is no hang-up.
  int Maitre_ = -1, Esclave_ = -1, Veille_ = -1;
};

void Terminal::Brancher() {
  if (Branche()) {
    return;
  }
  Maitre_ = posix_openpt(O_RDWR | O_NOCTTY);
  if (Maitre_ < 0 || grantpt(Maitre_) != 0 || unlockpt(Maitre_) != 0) {
    throw std::runtime_error("pas de pseudo-terminal");
  }
  const std::string Nom = ptsname(Maitre_);
  Esclave_ = open(Nom.c_str(), O_RDWR | O_NOCTTY);
  termios2 Mode{};
  ioctl(Esclave_, TCGETS2, &Mode);
  Mode.c_iflag = Mode.c_oflag = Mode.c_lflag = 0;  // bytes as they come, without echo
  ioctl(Esclave_, TCSETS2, &Mode);
  Veille_ = inotify_init1(IN_NONBLOCK);
  inotify_add_watch(Veille_, Nom.c_str(), IN_OPEN);
  std::filesystem::remove(Lien_);
  std::filesystem::create_symlink(Nom, Lien_);
}

void Terminal::Debrancher() {
  if (!Branche()) {
    return;
  }
  std::error_code Ignoree;
  std::filesystem::remove(Lien_, Ignoree);
  for (int* Fichier : {&Maitre_, &Esclave_, &Veille_}) {
    close(*Fichier);
    *Fichier = -1;
  }
}

int Terminal::Vitesse() const {
  termios2 Mode{};
  ioctl(Esclave_, TCGETS2, &Mode);
  return static_cast<int>(Mode.c_ospeed);
}

/// A real port that is opened holds nothing from before; a pseudo-terminal would keep it.
void Terminal::Vider_A_L_Ouverture() const {
  char Evenements[4096];
  if (read(Veille_, Evenements, sizeof Evenements) > 0) {
    ioctl(Esclave_, TCFLSH, TCIFLUSH);
  }
}

Octets Terminal::Lire() {
  pollfd Attente{Maitre_, POLLIN, 0};
  const bool Arrive = poll(&Attente, 1, 20) > 0;
  Vider_A_L_Ouverture();
  Octets Donnees(4096);
  const auto Lus = Arrive ? read(Maitre_, Donnees.data(), Donnees.size()) : 0;
  Donnees.resize(Lus > 0 ? static_cast<std::size_t>(Lus) : 0);
  return Donnees;
}

void Terminal::Ecrire(Vue_Octets Donnees) const {
  while (!Donnees.empty()) {
    const auto Ecrits = write(Maitre_, Donnees.data(), Donnees.size());
    if (Ecrits <= 0) {
      return;
    }
    Donnees = Donnees.subspan(static_cast<std::size_t>(Ecrits));
  }
}

Options Lire_Options(int Nombre, char** Arguments) {
  Options O;
  for (int i = 1; i < Nombre; ++i) {
    const std::string Argument = Arguments[i];
    const bool Valeur_Suit = i + 1 < Nombre;
    if (Argument == "--lien" && Valeur_Suit) {
      O.Lien = Arguments[++i];
    } else if (Argument == "--scenario" && Valeur_Suit) {
      O.Scenario = Arguments[++i];
    } else if (Argument == "--trace" && Valeur_Suit) {
      O.Trace = Arguments[++i];
    } else if (Argument.find('=') != std::string::npos) {
      O.Lignes += Argument + "\n";
    } else {
      throw std::invalid_argument("argument inconnu : " + Argument);
    }
  }
  if (O.Lien.empty()) {
    throw std::invalid_argument(
        "lecteur_serie --lien CHEMIN [--scenario FICHIER] "
        "[--trace FICHIER] [cle=valeur ...]");
  }
  return O;
}

class Programme {
 public:
  explicit Programme(Options O) : Options_(std::move(O)), Terminal_(Options_.Lien) {
    if (!Options_.Trace.empty()) {
      Fichier_Trace_.open(Options_.Trace, std::ios::app);
    }
  }

  void Tourner() {
    while (Arret_Demande == 0) {
      Relire_Scenario();
      if (!Terminal_.Branche()) {
        usleep(20000);
        continue;
      }
      const auto Donnees = Terminal_.Lire();
      if (!Donnees.empty()) {
        Relire_Scenario();
        Repondre(Lecteur_->Recevoir(Donnees, Terminal_.Vitesse()));
      }
    }
  }

 private:
  void Tracer(const std::string& Ligne) {
    (Fichier_Trace_.is_open() ? Fichier_Trace_ : std::cout) << Ligne << '\n' << std::flush;
  }

  /// A file beside the scenario, or in the current directory without one.
  std::string Lire_Voisin(const std::string& Nom) const {
    std::ifstream Fichier(Options_.Scenario.parent_path() / Nom);
    if (!Fichier) {
      throw std::invalid_argument("fichier introuvable");
    }
    std::ostringstream Contenu;
    Contenu << Fichier.rdbuf();
    return Contenu.str();
  }

  void Relire_Scenario() {
    std::ostringstream Texte;
    if (!Options_.Scenario.empty()) {
      Texte << std::ifstream(Options_.Scenario).rdbuf();
    }
    Texte << "\n" << Options_.Lignes;
    if (Lecteur_ && Texte.str() == Texte_) {
      return;
    }
    Texte_ = Texte.str();
    const auto Lu =
        Lire_Scenario(Texte_, [this](const std::string& Nom) { return Lire_Voisin(Nom); });
    for (const auto& Erreur : Lu.Erreurs) {
      Tracer("SCENARIO: " + Erreur);
    }
    Serie_ = Lu.Contenu.Serie;
    Lecteur_.emplace(Lu.Contenu);
    Lecteur_->Ecrire_Trace = [this](const std::string& Ligne) { Tracer(Ligne); };
    if (Serie_.Debranche_Apres == 0) {
      Debrancher();
    } else {
      Terminal_.Brancher();
      Tracer("branché sur " + Options_.Lien.string());
    }
  }

  void Repondre(const Lecteur_Serie::Reponse& Reponse) {
    if (Reponse.Debranche) {
      return Debrancher();
    }
    for (std::size_t i = 0; i < Reponse.Morceaux.size(); ++i) {
      const int Delai_Ms = !Reponse.Delais_Ms.empty() ? Reponse.Delais_Ms[i]
                           : i > 0                    ? Serie_.Delai_Morceaux_Ms
                                                      : 0;
      usleep(static_cast<useconds_t>(Delai_Ms) * 1000);
      Terminal_.Ecrire(Reponse.Morceaux[i]);
      Tracer("émis : " + std::to_string(Reponse.Morceaux[i].size()) + " octets");
    }
  }

  void Debrancher() {
    Terminal_.Debrancher();
    Tracer("débranché");
  }

  Options Options_;
  Terminal Terminal_;
  std::ofstream Fichier_Trace_;
  std::string Texte_;
  Reglages_Serie Serie_;
  std::optional<Lecteur_Serie> Lecteur_;
};

}  // namespace

int main(int Nombre, char** Arguments) try {
  struct sigaction Action {};
  Action.sa_handler = [](int) { Arret_Demande = 1; };
  sigaction(SIGTERM, &Action, nullptr);
  sigaction(SIGINT, &Action, nullptr);
  Programme(Lire_Options(Nombre, Arguments)).Tourner();
  return 0;
} catch (const std::exception& Erreur) {
  std::cerr << "lecteur_serie : " << Erreur.what() << "\n";
  return 1;
}
