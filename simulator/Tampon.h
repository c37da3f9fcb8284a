#pragma once
// Bytes lent by the caller of an operation: rewritten in place, never past their end.

#include <algorithm>
#include <span>

#include "platform/Octets.h"

using Tampon = std::span<std::uint8_t>;

inline bool Egaux(Vue_Octets A, Vue_Octets B) {
  return std::equal(A.begin(), A.end(), B.begin(), B.end());
}

/// A length that may be anything, brought between 0 and the capacity.
inline std::size_t Borner(std::int64_t Longueur, std::size_t Capacite) {
  return std::min(static_cast<std::size_t>(std::max<std::int64_t>(Longueur, 0)), Capacite);
}

/// As much of the source as fits.
inline void Recopier(Vue_Octets Source, Tampon Destination) {
  std::copy_n(Source.begin(), std::min(Source.size(), Destination.size()), Destination.begin());
}
