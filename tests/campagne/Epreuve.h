#pragma once
// One case of the campaign: a scenario played by the whole program, perturbed where the case's name
// says and judged; then a clean run of the same scenario in the same process, judged likewise.
//
// Name: "SCENARIO/PERTURBATION,PERTURBATION...". A perturbation is "APPEL_RANG:EFFET" or
// "APPEL_RANG!:EFFET" (from that call on); APPEL is a platform call (Lire_2:erreur_62) or a target
// of the simulated reader, whose own words follow (bloc_3:refus_50). "lecteur:LIGNE" adds a line to
// the reader's scenario.

#include "tests/Machine_De_Test.h"

/// An operator's action that the open windows allow. Nom: the control's number, with the entry for a
/// list ("204-1", "204-t" to type in it), or "fermer-" and the window's rank.
struct Action {
  std::string Nom;
  std::function<void()> Faire;
};
std::vector<Action> Actions_Permises(Fenetres& F);

struct Scenario_Campagne;

struct Bilan {
  std::vector<std::string> Plaintes;
  std::map<std::string_view, int> Appels;         ///< of the platform; of the library by its targets' names too
  std::vector<std::vector<std::string>> Actions;  ///< allowed at each yield, when asked for
  bool Impossible = false;                        ///< an action that the windows did not allow at that moment
};

class Epreuve : public Poste_De_Test {
 public:
  explicit Epreuve(const std::string& Nom);

  /// Before Passer: a file more, or other settings (cp1252 bytes).
  void Poser_Fichier(const std::string& Chemin, std::size_t Taille);
  void Poser_Reglage(const std::string& Texte);

  Bilan Passer();
  bool Relever_Actions = false;
  std::string Histoire;  ///< of both runs: all that the pane said, each box whole at its place

  /// What the operator does, as a window procedure runs it: a failure stops there.
  void Agir(const std::function<void()>& Action);
  void Mettre_A_Jour() {
    Agir([this] { FMain.CmdMaj.Cliquer(); });
  }
  void Tester() {
    Agir([this] { FMain.MnLecteur.Cliquer(); });
  }

  const Scenario_Campagne& Choix;
  Fenetre_Principale& FMain = App.F.FMain;

 private:
  struct Perturbation {
    std::string Appel, Effet;
    int Rang, Valeur;
    bool Toujours;
    bool Frappe = false;
  };
  /// Of one run.
  struct Faits {
    double Debut = 0;
    std::size_t Fautes = 0, Fichiers = 0;                 // of the reader, before it
    int Lectures = 0, Sans_Bibliotheque = 0;              // reads before it; failures 48
    int Echappees = 0;                                    // failures that came out of an operator's action
    std::map<std::string_view, int> Levees = {};          // raised, by call
    std::string Recit = {};                               // its story
    std::map<std::string, int, std::less<>> Lignes = {};  // that it says
  };

  void Retablir();
  void Tenter(const std::function<void()>& Action);
  void Passer_Appel(std::string_view Appel);
  void Frapper(const Perturbation& P, std::string_view Appel);
  void Voir_Details();
  void Voir_Annonce();
  void Jouer(const std::function<void(Epreuve&)>& Jeu);
  void Reprendre();

  void Exiger(bool Vrai, const std::string& Plainte);
  void Juger();
  void Juger_Poste();
  void Juger_Lecteur();
  void Juger_Mise_A_Jour();
  void Juger_Fin();
  void Juger_Test();
  int Dit(std::string_view Ligne) const;
  int Erreurs_Dites() const;

  std::vector<Perturbation> Perturbations_;
  Lecteur_Serie Serie_;
  const bool Operateur_, Melange_;  // clicks; several perturbations
  bool Ordinaire_;                  // the scenario's own reader and files
  bool Quitter_Offert_ = true, Reprise_ = false, Arrete_ = false;
  Cible Operation_ = Cible::Appel;
  std::string Details_;
  Octets Ancien_Reglage_;
  std::vector<std::string> Ordre_;
  std::map<std::string, Octets, std::less<>> Fichiers_;

  Faits Vus_;
  Bilan Bilan_;
  std::size_t Annonces_ = 0;  // to the reader
};

/// The beginning of a longer one; a kernel's differs from an application's in every byte.
Octets Contenu_De(std::string_view Chemin, std::size_t Taille);
bool Est_Noyau(std::string_view Chemin);

struct Scenario_Campagne {
  std::string_view Nom, Lecteur;
  std::size_t Noyau, Appli;  ///< sizes of the files in the directory, 0 for none
  std::function<void(Epreuve&)> Jouer = &Epreuve::Mettre_A_Jour, Preparer = &Epreuve::Demarrer;
};
extern const std::vector<Scenario_Campagne> Scenarios_Campagne;
