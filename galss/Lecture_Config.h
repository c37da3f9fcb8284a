#pragma once
// Reads the reader's configuration through GALSS.

#include <cstdint>
#include <string>

#include "galss/Liaison_Galss.h"

/// Returns 0 with the reply buffer (2048 bytes, record from the second one, spaces beyond the
/// answer) in Reponse; otherwise a GALSS code, or the error code of a reader that answers two
/// bytes, with its text in Message. A two-byte answer of code 0 counts as a success. The length of
/// any other answer is not examined.
std::int16_t Lecture_Config_Lecteur(Liaison_Galss& Liaison, Octets& Reponse, std::string& Message);
