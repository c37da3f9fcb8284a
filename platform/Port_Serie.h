#pragma once
// The serial port of the reader test, opened for this program alone.

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Octets.h"

class Port_Serie {
 public:
  virtual ~Port_Serie() = default;

  /// Line settings "speed,parity,data bits,stop bits", for example "9600,n,8,1"; on an open port
  /// they take effect at once. Raises 380 on a malformed text, 8020 when the line refuses them.
  virtual void Regler(std::string_view Reglages) = 0;

  /// The settings in use, in the same form.
  virtual std::string Reglages() const = 0;

  /// Raises 8002 when there is no such port, 8005 when it is in use, here or elsewhere.
  virtual void Ouvrir() = 0;

  /// Does nothing on a closed port.
  virtual void Fermer() = 0;

  virtual bool Ouvert() const = 0;

  /// The three below raise 8018 on a closed port, 8020 when the line fails. Ecrire waits until the
  /// bytes are handed to the line, one second at most; the other two never wait.
  virtual void Ecrire(Vue_Octets Donnees) = 0;
  virtual std::size_t En_Attente() = 0;
  virtual Octets Lire_Tout() = 0;
};
