#pragma once
// A buffer lent to a foreign library: a copy of our bytes, whose content replaces them when the
// loan ends. Built with PAVORIN_PAGES_GARDEES, it ends against a forbidden page, so that a library
// that writes past it is caught in the act.

#include <cstddef>

#include "platform/Octets.h"

class Tampon_Prete {
 public:
  /// What follows the bytes: names end with one zero, exchange buffers with nothing.
  enum class Fin : std::size_t { Nue = 0, Zero = 1 };

  Tampon_Prete(Octets& Origine, Fin Suite);
  ~Tampon_Prete();
  Tampon_Prete(const Tampon_Prete&) = delete;
  Tampon_Prete& operator=(const Tampon_Prete&) = delete;

  std::uint8_t* Adresse() { return Debut_; }

 private:
  Octets& Origine_;
#ifdef PAVORIN_PAGES_GARDEES
  void* Pages_ = nullptr;
#else
  Octets Copie_;
#endif
  std::uint8_t* Debut_ = nullptr;
};
