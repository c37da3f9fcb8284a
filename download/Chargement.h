#pragma once
// The second family of frames, for readers whose application version is 200 or later. Their
// arguments are those of the first family; their replies tell the nature of the answer.

#include "download/Trame_Telechargement.h"

std::int16_t Demande_Chargement(Liaison_Galss& Liaison, std::string_view Version,
                                std::int64_t Longueur, std::int32_t& Taille_Bloc,
                                std::string& Message);
std::int16_t Bloc_Chargement(Liaison_Galss& Liaison, Rang_Bloc Rang, Vue_Octets Donnees,
                             std::string& Message);
