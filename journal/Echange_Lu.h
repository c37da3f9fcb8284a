#pragma once
// An exchange as the journal tells it: what the command is, how much of it may be shown, and what
// the program makes of the answer.

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/Octets.h"

enum class Genre_Commande {
  Autre,
  Configuration,
  Demande_Telechargement,
  Bloc_Telechargement,
  Demande_Chargement,
  Bloc_Chargement
};

struct Commande_Lue {
  Genre_Commande Genre = Genre_Commande::Autre;
  /// Bytes from the beginning that may be written down; what follows is a software file's.
  std::size_t Montrables = 0;
  bool Premier = false;  ///< block of its file
  bool Dernier = false;
  /// A request or a block: part of a transfer.
  bool Charge() const {
    return Genre != Genre_Commande::Autre && Genre != Genre_Commande::Configuration;
  }
  bool Est_Bloc() const {
    return Genre == Genre_Commande::Bloc_Telechargement || Genre == Genre_Commande::Bloc_Chargement;
  }
};

Commande_Lue Lire_Commande(Vue_Octets Commande);

struct Sens_Reponse {
  std::string Texte;  ///< French
  bool Accepte = false;
};

/// Code, Reponse (the whole buffer) and Longueur: as the library left them.
Sens_Reponse Sens_De(Genre_Commande Genre, std::int16_t Code, Vue_Octets Reponse,
                     std::int32_t Longueur);
