#pragma once
// CRC-32 as archives and most tools compute it: reflected polynomial EDB88320, initial value and
// final exclusive or FFFFFFFF.

#include <cstdint>

#include "platform/Octets.h"

std::uint32_t Crc_32(Vue_Octets Donnees);
