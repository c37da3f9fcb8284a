#pragma once
// French texts of the codes that a caller already holds: GALSS results and the reader's download
// errors. A code without a text keeps the message's earlier content behind the new prefix.

#include <cstdint>
#include <string>
#include <string_view>

/// Codes 50 to 53 have texts. The message becomes "Erreur de Téléchargement 51:text".
/// Operation names what was being done; it does not appear in the message.
void Erreur_Telechargement(std::string_view Operation, std::int16_t Code, std::string& Message);

/// The message becomes "Erreur GALSS 4096 : text". Operation does not appear in the message.
void Erreur_Galss(std::string_view Operation, std::int16_t Code, std::string& Message);
