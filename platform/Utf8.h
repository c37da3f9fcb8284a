#pragma once
// UTF-8, character by character.

#include <string>
#include <string_view>

/// What an invalid byte reads as.
inline constexpr char32_t Caractere_Invalide = 0xFFFD;

/// Takes the first character off a text that is not empty. An invalid sequence gives
/// Caractere_Invalide and takes one byte.
char32_t Prendre_Caractere(std::string_view& Texte);

void Ajouter_Utf8(std::string& Texte, char32_t Caractere);
