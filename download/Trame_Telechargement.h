#pragma once
// The four frame operations that carry a software file: a load request and a block operation in
// each of two families. Each builds its frame, exchanges it, decodes the reply, leaves its status
// in Code_Retour and its text in the caller's message. None shows anything.

#include <cstdint>
#include <string>
#include <string_view>

#include "download/Trames.h"

/// Version: 4 characters. Longueur: declared length, 0 to 999 999 bytes; beyond, raises 5 and sends
/// nothing. Taille_Bloc: block size the reader grants, bytes, written on acceptance only.
std::int16_t Demande_Telechargement(Liaison_Galss& Liaison, std::string_view Version,
                                    std::int64_t Longueur, std::int32_t& Taille_Bloc,
                                    std::string& Message);
std::int16_t Bloc_Telechargement(Liaison_Galss& Liaison, Rang_Bloc Rang, Vue_Octets Donnees,
                                 std::string& Message);
