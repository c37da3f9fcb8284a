#pragma once
// One case of the campaign: a scenario played by the whole program, perturbed where the case's name
// says, then judged by the simulated reader and by the calls seen, and at last a clean run of the
// same scenario in the same process.
//
// Name: "SCENARIO/PERTURBATION,PERTURBATION...". A perturbation is "APPEL_RANG:EFFET" or
// "APPEL_RANG!:EFFET" (from that call on); APPEL is a platform call (Lire_2:erreur_62) or a target
// of the simulated reader, whose own words follow (bloc_3:refus_50). "lecteur:LIGNE" adds a line to
// the reader's scenario.
//
// A file whose last acknowledgement is lost is in the reader although nobody can know it: there,
// "Chargement Réussi." is wrong. It must be shown exactly when the reader holds the whole file and
// its consent reached the program.

#include "tests/Machine_De_Test.h"

class Epreuve;

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
  /// Everything but the program's memory as it was: the machine, the windows, the directory chosen.
  void Recommencer();

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
  bool Arrete = false;

 private:
  struct Perturbation {
    std::string Appel, Effet;
    int Rang, Valeur;
    bool Toujours;
    bool Frappe = false;
  };
  struct Faits {
    double Debut = 0;
    std::size_t Fautes = 0;                                                         // before this run
    int Refus = 0, Reussis = 0, Noyaux_Sans_Suite = 0, Lectures = 0;                // of the reader
    int Levees_Dehors = 0, Levees_Connecte = 0, Levees_Dedans = 0, Levees_Fin = 0;  // to the program
    int Succes_Montres = 0, Echappees = 0;
    bool Connecte = false, Sans_Traitant = false;
  };

  void Retablir();
  void Tenter(const std::function<void()>& Action);
  void Passer_Appel(std::string_view Appel);
  void Frapper(Perturbation& P, std::string_view Appel);
  [[noreturn]] void Lever(const Perturbation& P, std::string_view Appel);
  void Voir_Echange(Vue_Octets Commande, std::int16_t Code, Vue_Octets Reponse, std::int32_t Long);
  void Voir_Details();
  void Jouer(const std::function<void(Epreuve&)>& Jeu);
  void Exiger(bool Vrai, const std::string& Plainte);
  void Juger_Lecteur();
  void Juger_Session();
  void Juger_Poste();
  void Reprendre();

  std::vector<Perturbation> Perturbations_;
  Lecteur_Serie Serie_;
  const bool Lecteur_Change_, Melange_;
  bool Operateur_;  // clicks in this run
  bool Quitter_Offert_ = true, Reprise_ = false;
  Faits Vus_;
  Bilan Bilan_;
  Octets A_Repeter_;
  Cible Operation_ = Cible::Appel;
  std::string Details_;
  Octets Ancien_Reglage_;
  std::vector<std::string> Ordre_;
  std::map<std::string, Octets, std::less<>> Fichiers_;
};

struct Scenario_Campagne {
  std::string_view Nom, Lecteur;
  std::size_t Noyau, Appli;  ///< sizes of the files in the directory, 0 for none
  std::function<void(Epreuve&)> Jouer = &Epreuve::Mettre_A_Jour, Preparer = &Epreuve::Demarrer;
};
extern const std::vector<Scenario_Campagne> Scenarios_Campagne;
