#pragma once
// A journal that the program wrote, read back: the calls of the access library and what went over
// the serial line, in order. docs/formats.md describes the lines.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/Defaut.h"

/// One item of a line. Valeur as written: a word, "..." or [...].
struct Champ_Note {
  std::string Nom, Valeur;
};

/// One call of an operation.
struct Appel_Note {
  int Ligne = 0;  ///< in the journal, from 1
  Cible Operation = Cible::Echange;
  std::vector<Champ_Note> Demande;
  std::size_t Montres = 0;  ///< bytes of the command that the journal shows
  bool Abregee = false;     ///< the others are a count and a sum
  int Duree_Ms = 0;
  std::optional<int> Erreur;  ///< number of what was raised instead of an answer
  std::string Description;    ///< of what was raised
  std::int16_t Code = 0;
  std::vector<Octets> Noms;  ///< as they were left, in the order of the arguments
  std::int16_t Session = 0, Info = 0, Exclusivite = 0;
  std::int32_t Longueur_Commande = 0, Recus = 0;
  std::size_t Retouche = 0;  ///< from where Retouches replace the command's bytes
  Octets Retouches;
  Octets Reponse;  ///< the buffer up to its trailing spaces
};

/// One frame sent by the program, and what came in before the next one.
struct Envoi_Note {
  struct Morceau {
    Octets Recus;
    int Delai_Ms = 0;  ///< since the frame or the piece before
  };
  int Ligne = 0;
  int Vitesse = 0;  ///< bauds
  Octets Envoyes;
  std::vector<Morceau> Morceaux;
};

struct Journal_Lu {
  std::vector<Appel_Note> Appels;
  std::vector<Envoi_Note> Envois;
};

/// Raises std::invalid_argument "ligne 12 : ..." on a text that is no journal, or a damaged one.
Journal_Lu Lire_Journal(std::string_view Texte);
