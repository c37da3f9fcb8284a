#pragma once
// One case of the campaign: a scenario played by the whole program, struck where the case's name says
// and judged; then a clean run of the same scenario in the same process, judged likewise.
//
// Name: "SCENARIO/COUP,COUP...". A blow is "APPEL_RANG:EFFET" or "APPEL_RANG_fois_N:EFFET" (N times from
// that call on); APPEL is a platform call (Lire_2:erreur_62) or a target of the simulated reader, whose
// own words follow (bloc_3:refus_50). "lecteur:LIGNE" adds a line to the reader's scenario.

#include "tests/Machine_De_Test.h"

/// What the open windows allow the operator. A name is the control's number, with the entry for a list
/// ("204-1", "204" to type in it), or "fermer-" and the window's name.
using Actions = std::vector<std::pair<std::string, std::function<void()>>>;
Actions Actions_Permises(Fenetres& F);

using Choix_Offerts = std::vector<std::vector<std::string>>;  ///< their names, at each yield
using Comptes = std::map<std::string_view, int>;              ///< of calls, by name

class Epreuve;
struct Scenario_Campagne;

/// A case's name, read. What strikes the reader is in its scenario's text.
struct Cas {
  explicit Cas(std::string_view Nom);

  struct Coup {
    std::string Appel;
    int Rang, Dernier;
    void (*Porter)(Epreuve& E, const std::string& Suite);
    std::string Suite;
  };
  const bool Operateur, Ordinaire;  ///< clicks; the scenario's own reader and files
  const std::string Nom_Scenario;
  const Scenario_Campagne& Choix;
  std::string Texte_Lecteur;
  std::vector<Coup> Au_Poste;
};

class Epreuve : private Cas, public Poste_De_Test {
 public:
  explicit Epreuve(std::string_view Nom);

  /// Plays and judges both runs; what follows tells of them.
  void Passer(bool Relever_Actions = false);
  std::vector<std::string> Plaintes;
  std::string Histoire;    ///< all that the pane said, each box whole at its place
  Comptes Appels;          ///< of the first run's platform; of the library by its targets' names too
  Choix_Offerts Permises;  ///< in the first run, when asked for

  /// What the operator does, as a window procedure runs it: a failure stops there, not the program's end.
  void Agir(const std::function<void()>& Action);
  void Agir_Si_Permis(const std::string& Nom);
  void Mettre_A_Jour() {
    Agir([this] { FMain.CmdMaj.Cliquer(); });
  }
  void Tester() {
    Agir([this] { FMain.MnLecteur.Cliquer(); });
  }

  Fenetre_Principale& FMain = App.F.FMain;

 private:
  void Retablir();
  void Passer_Appel(std::string_view Appel);
  void Jouer(const std::function<void(Epreuve&)>& Jeu);
  void Reprendre();

  void Exiger(bool Vrai, const std::string& Plainte);
  void Juger();
  void Juger_Poste();
  void Juger_Lecteur();
  void Juger_Mise_A_Jour();
  void Juger_Test();
  int Dit(std::string_view Lettres) const;

  Lecteur_Serie Serie_{Scenario_De(Texte_Lecteur)};
  bool Relever_ = false, Quitter_Offert_ = true, Reprise_ = false, Arrete_ = false;
  std::string Details_;
  Octets Ancien_Reglage_;
  /// Of one run.
  struct Faits {
    double Debut;
    std::size_t Fautes, Fichiers;          // of the reader, before it
    int Echappees = 0;                     // failures that came out of an operator's action
    Comptes Levees = {};                   // failures raised
    std::string Recit = {}, Lettres = {};  // its story; the same, a letter a line
  } Vus_;
};

/// The beginning of a longer one; a kernel's differs from an application's in every byte.
Octets Contenu_De(std::string_view Chemin, std::size_t Taille);

struct Scenario_Campagne {
  std::string_view Lecteur;
  std::size_t Noyau, Appli;  ///< sizes of the files in the directory, 0 for none
  std::function<void(Epreuve&)> Jouer = &Epreuve::Mettre_A_Jour, Preparer = &Epreuve::Demarrer;
};
extern const std::map<std::string, Scenario_Campagne> Scenarios_Campagne;
