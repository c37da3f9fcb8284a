#pragma once
// The directory of the software files: the field that shows it, the processing of each of its
// changes, and the settings file "telech.ini" beside the program that remembers it.

#include <string>

#include "catalogue/Lecture.h"
#include "platform/Machine.h"
#include "platform/Profil_Prive.h"
#include "ui/Graphic.h"

class Lecture_Ecriture_FichierINI {
 public:
  Lecture_Ecriture_FichierINI(const Machine& Poste, Fenetre_Principale& FMain, Graphic& Panneau,
                              Lecture& Catalogue)
      : Disque_(Poste.Disque),
        Profil_(Poste.Profil),
        FMain_(FMain),
        Panneau_(Panneau),
        Catalogue_(Catalogue) {}

  /// Shows the remembered directory, or the program's own, which runs the processing; then fills
  /// both lists once more.
  void Lire_Repertoire_INI();

  /// Writes the directory as the field shows it; a failure is ignored.
  void Ecrire_Repertoire_INI(const std::string& Repertoire);

  /// Runs at each change of the directory field.
  void Traitement_Repertoire();

 private:
  std::string Chemin_INI();

  Systeme_Fichiers& Disque_;
  Profil_Prive& Profil_;
  Fenetre_Principale& FMain_;
  Graphic& Panneau_;
  Lecture& Catalogue_;
};
