#pragma once
// Files, drives and private profile files.

#include "platform/Profil_Prive.h"
#include "platform/Systeme_Fichiers.h"

/// Through the wide calls. A path near the classic limit of 260 characters goes under the "\\?\"
/// prefix, so that its length does not matter.
class Disque_Windows : public Systeme_Fichiers {
 public:
  std::string Repertoire_Programme() override;
  void Chercher(std::string_view Repertoire, std::string_view Motif,
                const std::function<bool(std::string_view Nom)>& Visiter) override;
  std::int64_t Taille(std::string_view Chemin) override;
  std::unique_ptr<Fichier_Ouvert> Ouvrir(std::string_view Chemin) override;
  std::vector<std::string> Lecteurs() override;
  std::vector<std::string> Sous_Repertoires(std::string_view Repertoire) override;
  std::string Repertoire_Courant(std::string_view Lecteur) override;
};

/// The ANSI calls define the format of the settings file and do the ordinary work; a path that they
/// cannot be told goes to their wide twins, which hold the same file.
class Profil_Windows : public Profil_Prive {
 public:
  /// Page_Systeme: the system's code page, as GetACP answers it; 0 for the one in use.
  explicit Profil_Windows(unsigned Page_Systeme = 0);

  Octets Lire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
              std::size_t Taille) override;
  void Ecrire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
              Vue_Octets Valeur) override;

 private:
  unsigned Page_;
};
