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
  std::string Histoire;                            ///< all that the pane said, each box whole at its place
  std::map<std::string_view, int> Appels;          ///< the first run's: of the platform, and of the library's targets
  std::vector<std::vector<std::string>> Permises;  ///< the actions at each yield of the first run, when asked for

  /// What the operator does, as a window procedure runs it: a failure stops there, not the program's end.
  void Agir(const std::function<void()>& Action);
  void Mettre_A_Jour() { Agir(std::bind_front(&Bouton::Cliquer, &FMain.CmdMaj)); }
  void Tester() { Agir(std::bind_front(&Entree_Menu::Cliquer, &FMain.MnLecteur)); }

  Fenetre_Principale& FMain = App.F.FMain;

 private:
  void Retablir();
  void Passer_Appel(std::string_view Appel);
  void Jouer(const std::function<void(Epreuve&)>& Jeu);
  void Reprendre();
  void Exiger(bool Vrai, const std::string& Plainte);
  void Juger();
  void Juger_Lecteur();
  void Juger_Mise_A_Jour();

  Lecteur_Serie Serie_{Scenario_De(Texte_Lecteur)};
  bool Relever_ = false, Reprise_ = false, Arrete_ = false;
  std::string Details_;
  /// Of one run.
  struct Faits {
    std::size_t Fichiers, Fautes;          // that the reader had received, and reproached, before it
    std::string_view Frappe = {};          // the call struck last
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
