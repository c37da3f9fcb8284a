#pragma once
// Words, numbers and bytes read from a scenario's text, and bytes written for a trace.
// Every reading function raises std::invalid_argument with a French text on a malformed value.

#include <string>
#include <string_view>
#include <vector>

#include "platform/Octets.h"

/// Without blanks at both ends.
std::string_view Sans_Blancs(std::string_view Texte);

/// Parts between separators, blanks removed at both ends of each; an empty text gives none.
std::vector<std::string_view> Decouper(std::string_view Texte, char Separateur);

/// Decimal or 0x-prefixed number within the bounds.
long Lire_Nombre(std::string_view Texte, long Minimum, long Maximum);

/// "oui" or "non".
bool Lire_Oui_Non(std::string_view Texte);

/// The cp1252 bytes of a UTF-8 text; \xHH gives any byte.
Octets Lire_Caracteres(std::string_view Texte);

/// "01 00 94": bytes in hexadecimal, separated by blanks.
Octets Lire_Hexa(std::string_view Texte);

/// At most Maximum bytes in hexadecimal, followed by "..." when there are more.
std::string Ecrire_Hexa(Vue_Octets Donnees, std::size_t Maximum);

/// UTF-8 text of bytes below and above 0x7F alike, each taken as the character of its value.
std::string Ecrire_Caracteres(Vue_Octets Donnees);
