#pragma once
// French texts of the status that a reader puts in the second byte of its reply. Both routines
// need a reply of two bytes at least, replace the message, and return the status, 0 to 255.

#include <cstdint>
#include <string>

#include "platform/Octets.h"

/// Final state: the message becomes "Etat Final92 : text".
std::int16_t Etat_Final(Vue_Octets Reponse, std::string& Message);

/// Technical error: the message becomes "Erreur Technique82 : text".
std::int16_t Erreur_Technique(Vue_Octets Reponse, std::string& Message);
