#pragma once
// The frames as the reader sees them: recognised by their first bytes, cut into fields, and the
// answers that each deserves in its family's own form.

#include <optional>

#include "platform/Octets.h"

enum class Famille_Trames { Telechargement, Chargement };

enum class Role_Trame { Inconnu, Lecture, Demande, Bloc };

/// Views into the frame that was recognised.
struct Trame_Recue {
  Role_Trame Role = Role_Trame::Inconnu;
  Famille_Trames Famille = Famille_Trames::Telechargement;
  Vue_Octets Version, Longueur;  ///< of a load request: 4 and 6 bytes
  std::uint8_t Type = 0;         ///< of a block: 0x01 first, 0x10 last, both combine
  Vue_Octets Donnees;            ///< of a block
};

Trame_Recue Reconnaitre(Vue_Octets Trame);

/// The number that the length field declares; none when it is not six digits.
std::optional<int> Longueur_Declaree(const Trame_Recue& Trame);

/// Reply capacity that the program must lend for this role, in bytes.
std::int32_t Capacite_Voulue(Role_Trame Role);

/// Taille: size byte of a load request's answer.
Octets Accord(const Trame_Recue& Trame, std::uint8_t Taille);

/// Code: Code_Usuel for the family's usual one.
Octets Refus(const Trame_Recue& Trame, int Code);
Octets Erreur_Technique_Lecteur(int Code);

/// Whether an answer, as the program received it, tells it to go on.
/// Reponse: the whole buffer lent. Longueur: as announced, whatever the capacity.
bool Vaut_Accord(const Trame_Recue& Trame, std::int16_t Code, Vue_Octets Reponse,
                 std::int32_t Longueur);
