#pragma once
// The GALSS client library of the SESAM-Vitale system: the five operations that the program uses.
// Every operation blocks until the library answers and returns its 16-bit result code, 0 for
// success. Errors raised: 53 when the library is not found, 48 when it is found and cannot be
// loaded, 453 when it lacks the operation.

#include <cstdint>

#include "platform/Octets.h"

class Bibliotheque_Galss {
 public:
  virtual ~Bibliotheque_Galss() = default;

  /// Names are cp1252 bytes without their terminating zero; the library may rewrite them in place,
  /// never lengthen them. Session and Info are written by the library.
  virtual std::int16_t OuvrirSession(Octets& Application, Octets& LAD, std::int16_t& Session,
                                     std::int16_t& Info) = 0;

  /// Exclusivite_Texte: decimal session number and ":1". Exclusivite is written by the library.
  virtual std::int16_t DebutExclusivite(Octets& Exclusivite_Texte, Octets& Application, Octets& LAD,
                                        std::int16_t& Exclusivite) = 0;

  /// One command to the reader and its answer. Longueur_Commande: at most Commande.size().
  /// Longueur_Reponse: capacity lent to the library on entry (at most Reponse.size()), on return
  /// whatever the library announced, unchecked. Neither buffer changes its size.
  virtual std::int16_t Echange(std::int16_t Session, std::int16_t Nombre, Octets& Commande,
                               std::int32_t& Longueur_Commande, Octets& Reponse,
                               std::int32_t& Longueur_Reponse) = 0;

  virtual std::int16_t FinExclusivite(std::int16_t Exclusivite) = 0;

  virtual std::int16_t FermerSession(std::int16_t Session, std::int16_t& Exclusivite) = 0;
};
