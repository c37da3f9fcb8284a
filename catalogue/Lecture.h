#pragma once
// The catalogue: which kernels and applications the chosen directory holds, the newest of each kind
// first in its selection list. Built from file names alone; no file is opened.

#include <string>
#include <string_view>
#include <vector>

#include "Variables_Globales.h"
#include "logiciel/Fichier_Logiciel.h"
#include "platform/Systeme_Fichiers.h"
#include "ui/FMain.h"

class Lecture {
 public:
  Lecture(Systeme_Fichiers& Disque, Fenetre_Principale& FMain, Variables_Globales& Globales)
      : Disque_(Disque), FMain_(FMain), Logiciels_(Globales.Catalogue) {}

  /// A directory as it is searched: without blanks at both ends, then without one trailing NUL.
  static std::string Nettoyer(std::string_view Repertoire);

  /// True when the directory holds at least one software file. Repertoire ends with the separator;
  /// it is cleaned, for the caller to go on with.
  bool Presence_Fichiers(std::string& Repertoire);

  /// Replaces the catalogue and fills both selection lists, which the caller has emptied:
  /// applications first. Repertoire is clean and ends with the separator.
  void Lecture_Repertoire(const std::string& Repertoire);

 private:
  std::vector<std::string> Chercher(const std::string& Repertoire, Genre Quoi);
  void Remplir_Liste(Liste_Deroulante& Liste, const std::vector<std::string>& Noms, Genre Quoi);

  Systeme_Fichiers& Disque_;
  Fenetre_Principale& FMain_;
  Catalogue_Logiciels& Logiciels_;
};
