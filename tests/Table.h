#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "simulator/Lecture_Texte.h"

/// The lines of a table of tests/, in fields: bars stand between them, "-" for an empty one; "#" opens a comment.
inline std::vector<std::vector<std::string>> Lire_Table(const std::string& Nom) {
  std::vector<std::vector<std::string>> Lignes;
  std::ifstream Fichier(RACINE "/tests/" + Nom);
  for (std::string Ligne; std::getline(Fichier, Ligne);) {
    if (Ligne.starts_with('#')) continue;
    auto& Champs = Lignes.emplace_back();
    for (const auto Un : Decouper(Ligne, '|')) Champs.emplace_back(Un == "-" ? "" : Un);
  }
  return Lignes;
}
