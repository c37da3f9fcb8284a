#pragma once
// Small operations on UTF-8 text. Positions and lengths count characters, never bytes; positions
// start at 1. A position outside the text gives a shorter result, never an error. A byte that is
// not valid UTF-8 counts as one character.

#include <cstddef>
#include <string>
#include <string_view>

inline constexpr std::string_view Retour_Ligne = "\r\n";

std::size_t Nombre_Caracteres(std::string_view Texte);

/// Nombre characters from position Debut.
std::string Extraire(std::string_view Texte, std::size_t Debut, std::size_t Nombre);

/// The last Nombre characters.
std::string Fin_De(std::string_view Texte, std::size_t Nombre);

/// Without leading and trailing spaces (the space character only).
std::string Rogner(std::string_view Texte);

/// ASCII letters compared without regard to case.
bool Egal_Sans_Casse(std::string_view A, std::string_view B);

/// Upper-case hexadecimal digits without leading zeros; 0 gives "0".
std::string Hexadecimal(unsigned Valeur);

/// Value of a version text: leading blanks skipped, then the longest decimal number (optional
/// sign, digits, optional point and fraction); 0 when there is none. Versions are compared by this
/// value, never as text.
double Valeur_Num(std::string_view Texte);
