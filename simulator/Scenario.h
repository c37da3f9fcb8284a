#pragma once
// A scenario: which reader is simulated and what goes wrong with it. Lines "cle = valeur" in UTF-8
// (";" also ends a line, "#" opens a comment); LISEZMOI.md and BOUT_SERIE.md describe every key.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/Defaut.h"
#include "simulator/Identification.h"
#include "simulator/Journal_Lu.h"
#include "simulator/Trame_Recue.h"

enum class Mutisme { Aucun, Test, Config, Tout };

/// The serial end alone.
struct Reglages_Serie {
  std::vector<int> Vitesses = {9600};  ///< bauds at which the reader understands
  std::size_t Morceaux = 0;            ///< bytes per piece of an answer; 0 sends it whole
  int Delai_Morceaux_Ms = 20;          ///< between two pieces
  Octets Bruit_Avant, Bruit_Apres;     ///< around every answer
  Mutisme Silence = Mutisme::Aucun;    ///< frames left without an answer
  int Longueur_Config = 123;           ///< bytes of the whole configuration answer
  int Debranche_Apres = -1;            ///< unplugged at the n-th frame, 0 at once, -1 never
};

struct Scenario {
  Identification Identite;
  Changements Apres_Noyau{}, Apres_Appli{};  ///< fields that change once the file is installed
  std::uint8_t Octet_Etat = 0;               ///< first byte of the configuration reply
  std::uint8_t Taille_Bloc = 4;              ///< block size granted, in units of 1024 bytes
  int Delai_Ms = 0;                          ///< before every answer to an exchange
  int Lectures_Muettes = 2;                  ///< exchanges left without an answer after a kernel
  std::int16_t Code_Muet = 1024;             ///< result code meanwhile
  bool Premier_Est_Noyau = true;             ///< of a session, until a kernel has been installed
  std::optional<Famille_Trames> Famille;     ///< the only family understood; any when absent
  std::string LAD = "Log_SV";                ///< the only spelling known
  std::int16_t Session = 3, Exclusivite = 7, Info = 1;  ///< numbers given out
  bool Trace = true;
  std::vector<Defaut> Defauts;
  Reglages_Serie Serie;
  std::string Rejouer;              ///< name of a journal that answers instead of the reader
  std::optional<Journal_Lu> Rejeu;  ///< that journal; without any call when it was refused
  bool Durees = true;               ///< the journal's answers take their time
  bool Contenu = true;              ///< the blocks' data must be those of the journal
};

struct Scenario_Lu {
  Scenario Contenu;
  std::vector<std::string> Erreurs;  ///< "ligne 3 : ...", in French; bad lines have no effect
};

/// Content of a file by its name in the scenario; raises std::invalid_argument when there is none.
using Lecture_Fichier = std::function<std::string(const std::string& Nom)>;

Scenario_Lu Lire_Scenario(std::string_view Texte, const Lecture_Fichier& Lire = {});

/// For tests: raises std::invalid_argument when the text has a bad line.
Scenario Scenario_De(std::string_view Texte, const Lecture_Fichier& Lire = {});
