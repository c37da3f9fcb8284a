#pragma once
// Bytes exchanged with a reader or its access library. A type apart from text, so that the compiler
// refuses to mix the two: text is UTF-8 std::string, bytes are Octets.

#include <cstdint>
#include <span>
#include <vector>

using Octets = std::vector<std::uint8_t>;
using Vue_Octets = std::span<const std::uint8_t>;
