#pragma once
// Conversion between UTF-8 text and cp1252 bytes, at the borders where GALSS names, the settings
// file, a reader's fields and serial data become text or come from it.

#include <string>
#include <string_view>

#include "platform/Octets.h"

/// Every byte becomes one character; the five bytes that cp1252 leaves undefined become the
/// control characters of the same value, as on Windows.
std::string Texte_De_Cp1252(Vue_Octets Donnees);

/// Every character becomes one byte; "?" where cp1252 has none.
Octets Cp1252_De_Texte(std::string_view Texte);
