#pragma once
// A PC for the program under test, and its operator: a directory of its own that holds the program, the simulated
// reader and software files; the serial reader behind COM1; the reader's own record. Beside the test's program lie
// Pavorin.exe and the folder "simulateur".

#include <map>

#include "tests/bout_en_bout/Poste_Windows.h"

namespace fs = std::filesystem;

/// Content by name.
using Fichiers = std::map<std::string, std::string>;

/// So many bytes, every line different: a block lost, doubled or displaced is seen.
std::string Contenu(std::string_view Texte, std::size_t Taille);

/// Empty when there is no such file.
std::string Lire(const fs::path& Fichier);
void Ecrire(const fs::path& Fichier, std::string_view Texte);
/// Of UTF-8 text, and back for a command line.
fs::path Chemin(std::string_view Texte);
std::string Entre_Guillemets(const fs::path& Fichier);
/// Empty when the environment has none.
std::string Variable(const wchar_t* Nom);

inline const std::string Noyau = "Fexa0400.ing", Appli = "ELITER0210.ing";
/// As large as real ones.
extern const Fichiers Grands;
/// Two or three blocks each.
extern const Fichiers Petits;

struct Installation {
  std::string Scenario = "";  ///< text of a scenario, or the name of a ready one
  Fichiers Logiciels = Petits;
  std::string Arguments = "";
  std::optional<std::string> Repertoire = {};    ///< remembered; the folder of the software files unless given
  std::optional<std::string> Bibliotheque = {};  ///< other content for Galclw32.dll
  bool Gardee = false;  ///< the build whose buffers lent to the library end at a forbidden page
};

class Poste {
 public:
  /// Where the test's program lies.
  static fs::path Programmes();

  explicit Poste(fs::path Ou) : Dossier(std::move(Ou)) {}
  ~Poste() { Programme.Tuer(); }
  Poste(const Poste&) = delete;
  Poste& operator=(const Poste&) = delete;

  /// Ends the program and starts it anew as told, up to its main window.
  void Lancer(const Installation& Voulue = {});
  /// The same without touching its directory. The current directory is the one above.
  void Relancer(const std::string& Arguments = "");
  void Donner_Scenario(const std::string& Texte) const;
  Fenetre_Vue Fenetre(std::string_view Nom) const;
  void Attendre_Absence(std::string_view Nom) const;
  Boite_Vue Boite(std::string_view Titre) const;
  DWORD Attendre_Fin() const;

  /// The details pane: lines ended by LF, times of day as HH.
  std::string Volet() const;
  void Attendre_Volet(std::string_view Fin) const;
  void Demander_Mise_A_Jour() const;
  /// Opens the dialog, then one folder after the other from the program's own.
  Fenetre_Vue Ouvrir_Dossier(const std::vector<std::string>& Sous_Dossiers) const;
  /// Manual mode with that application.
  void Choisir_Manuellement(const std::string& Application) const;

  std::string Trace() const { return Lire(Dossier / "trace.txt"); }
  /// The files as the reader received them, in order.
  std::vector<std::string> Recus() const;

  /// A pseudo-terminal in the place of COM1 takes Wine.
  static bool Ligne_Serie();
  /// The serial reader behind COM1, plugged in (or out) with this scenario.
  void Brancher_Serie(const std::string& Scenario) const;
  std::string Journal_Serie() const;

  fs::path Dossier;
  Programme_Lance Programme;
  Fenetre_Vue FMain;
};
