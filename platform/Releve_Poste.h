#pragma once
// What the support journal asks of its machine, and nobody else: facts about the PC, and the file
// that it writes.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// One fact. Nom: letters and "_" alone.
struct Fait {
  std::string Nom;
  std::string Valeur;
};

/// Local time. Mois and Jour from 1.
struct Instant {
  int Annee, Mois, Jour, Heure, Minute, Seconde, Milliseconde;
};

/// A file open for writing at its end; destroying it closes it. Neither call ever raises: the
/// journal must not disturb what it describes.
class Fichier_Journal {
 public:
  virtual ~Fichier_Journal() = default;

  /// Hands the text to the system, which keeps it even if the program dies. False when it fails.
  virtual bool Ecrire(std::string_view Texte) = 0;

  /// Waits until what was written is on the disk.
  virtual void Assurer() = 0;
};

class Releve_Poste {
 public:
  virtual ~Releve_Poste() = default;

  virtual Instant Maintenant() = 0;

  /// The program, Windows, the screen, the ports.
  virtual std::vector<Fait> Poste() = 0;

  /// The access library and the modules that the process has loaded since the last call; empty as
  /// long as the library is not loaded.
  virtual std::vector<Fait> Bibliotheque() = 0;

  /// Whether this user may write the file, or create it where it is missing. Changes nothing.
  virtual bool Inscriptible(std::string_view Chemin) = 0;

  /// Whether this user may end the process. Changes nothing.
  virtual bool Terminable(std::uint32_t Id) = 0;

  /// Raises the system's own error when the file exists already or cannot be created.
  virtual std::unique_ptr<Fichier_Journal> Creer_Journal(std::string_view Chemin) = 0;
};
