#pragma once
// The lists: the drop-down list of a selection, and the drive and directory choosers. A selection
// made by the program runs the handler at once, before the next statement, exactly as one made by
// the operator. Filling or emptying a list runs none.

#include <string>
#include <vector>

#include "ui/controles/Controle.h"
#include "ui/controles/Visiteur_Controles.h"

class Systeme_Fichiers;

/// An editable drop-down list. Its text is the selected entry, or empty.
class Liste_Deroulante : public Controle {
 public:
  using Controle::Controle;
  static constexpr int Aucun = -1;

  void Vider();
  void Ajouter(std::string Entree);
  /// Selects an entry (0 is the first) and runs Clic, even when it is selected already. An entry
  /// that does not exist is ignored.
  void Choisir(int Indice);
  /// The operator's selection: ignored unless the list is accessible.
  void Choisir_A_La_Main(int Indice);
  /// The operator typed in the edit part: runs Saisie; the text stays that of the selected entry.
  void Taper();

  int Indice() const { return Indice_; }
  const std::vector<std::string>& Entrees() const { return Entrees_; }
  int Derniere() const { return static_cast<int>(Entrees_.size()) - 1; }
  void Reinitialiser() override;
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }

  Evenement Clic;
  Evenement Saisie;

 private:
  std::vector<std::string> Entrees_;
  int Indice_ = Aucun;
};

/// The platform's drives, as a drop-down list of roots ("C:\").
class Liste_Lecteurs : public Controle {
 public:
  Liste_Lecteurs(Lieu_Controles& Lieu, int Numero, Position Place, Conception Depart,
                 Systeme_Fichiers& Disque);

  /// Reads the drives again and shows the one of the given directory, without running Changement.
  void Montrer(const std::string& Repertoire);
  /// The operator's choice: runs Changement; ignored unless the list is accessible.
  void Choisir_A_La_Main(int Indice);

  /// Root of the drive shown, "C:\"; empty when there is none.
  std::string Lecteur() const;
  int Indice() const { return Indice_; }
  const std::vector<std::string>& Entrees() const { return Entrees_; }
  void Reinitialiser() override;
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }

  Evenement Changement;

 private:
  Systeme_Fichiers& Disque_;
  std::vector<std::string> Entrees_;
  int Indice_ = -1;
};

/// The directory tree around one directory: the directories that lead to it, itself, and its
/// subdirectories.
class Liste_Repertoires : public Controle {
 public:
  /// Niveau: depth in the tree, 0 for the root.
  struct Ligne {
    std::string Nom;
    std::string Chemin;
    int Niveau;
  };

  Liste_Repertoires(Lieu_Controles& Lieu, int Numero, Position Place, Conception Depart,
                    Systeme_Fichiers& Disque);

  /// Shows a directory without running Changement. One that cannot be read leaves all as it was.
  void Montrer(std::string Repertoire);
  /// Moves to a directory and runs Changement at once when it is another one.
  void Repertoire(std::string Nouveau);
  /// The operator opened a line (0 is the root); ignored unless the list is accessible.
  void Ouvrir_A_La_Main(int Indice);

  /// No final separator unless it is a drive's root.
  const std::string& Repertoire() const { return Repertoire_; }
  const std::vector<Ligne>& Lignes() const { return Lignes_; }
  /// Line of the directory shown.
  int Indice() const;
  void Reinitialiser() override;
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }

  Evenement Changement;

 private:
  Systeme_Fichiers& Disque_;
  std::string Repertoire_;
  std::vector<Ligne> Lignes_;
};
