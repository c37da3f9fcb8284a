#pragma once
// Files, directories and drives. Paths are UTF-8, their separator is "\"; they may be longer than
// 260 characters or lie on a share. No call ever shows a system dialog box.

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A file open for reading; destroying it closes it.
class Fichier_Ouvert {
 public:
  virtual ~Fichier_Ouvert() = default;

  /// Fills the whole buffer from the current position. Raises 62 when the file ends before, the
  /// system's own error when it cannot be read.
  virtual void Lire(std::span<std::uint8_t> Tampon) = 0;
};

class Systeme_Fichiers {
 public:
  virtual ~Systeme_Fichiers() = default;

  /// Directory of the program's executable, without a final separator.
  virtual std::string Repertoire_Programme() = 0;

  /// Ordinary files (neither directories, nor hidden, nor system ones) whose name matches Motif,
  /// appended directly to Repertoire; bare names in the system's order, until Visiter answers
  /// false. A directory that cannot be searched has no file. The system may match a short alias.
  virtual void Chercher(std::string_view Repertoire, std::string_view Motif,
                        const std::function<bool(std::string_view Nom)>& Visiter) = 0;

  /// Size in bytes. Raises 53 or 76 when there is no such file.
  virtual std::int64_t Taille(std::string_view Chemin) = 0;

  /// Opens for reading, binary, shared with other readers. Raises 53, 76, 70 or 57.
  virtual std::unique_ptr<Fichier_Ouvert> Ouvrir(std::string_view Chemin) = 0;

  /// Roots of the drives, "C:\" first to last letter.
  virtual std::vector<std::string> Lecteurs() = 0;

  /// Names of the directory's subdirectories, sorted; empty when it cannot be read.
  virtual std::vector<std::string> Sous_Repertoires(std::string_view Repertoire) = 0;

  /// Current directory of a drive ("C:\"), or of the process when Lecteur is empty; without a
  /// final separator unless it is a root. A drive that is not ready answers its root.
  virtual std::string Repertoire_Courant(std::string_view Lecteur) = 0;
};
