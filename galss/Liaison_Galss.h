#pragma once
// One exchange with the reader through the access library, as every caller makes it. The buffers
// are kept from one exchange to the next, so that a transfer allocates nothing per block.

#include <cstddef>
#include <cstdint>
#include <span>

#include "Variables_Globales.h"
#include "platform/Bibliotheque_Galss.h"

class Liaison_Galss {
 public:
  Liaison_Galss(Bibliotheque_Galss& Galss, Session_Galss& Session)
      : Galss_(Galss), Session_(Session) {}

  /// Sends the command Entete followed by Donnees, and repeats it once when the result is 64. The
  /// reply buffer has Capacite bytes, spaces before the first call. Leaves the result in
  /// Code_Retour and returns it.
  std::int16_t Echanger(Vue_Octets Entete, Vue_Octets Donnees, std::size_t Capacite);

  /// The whole reply buffer of the last exchange. Beyond what the library wrote it holds spaces, or
  /// what an answer 64 had left there.
  Vue_Octets Reponse() const { return Reponse_; }

  /// The number of bytes that the library announced in the last exchange, as it stands: it may be
  /// negative or beyond the capacity. To be compared only; nothing is ever read by this length.
  std::int32_t Longueur_Reponse() const { return Longueur_Reponse_; }

  /// Shared status of the operations: stores it and returns it.
  std::int16_t Rendre(std::int16_t Code) { return Session_.Code_Retour = Code; }

 private:
  std::int16_t Appeler();

  Bibliotheque_Galss& Galss_;
  Session_Galss& Session_;
  Octets Commande_;
  Octets Reponse_;
  std::int32_t Longueur_Commande_ = 0;
  std::int32_t Longueur_Reponse_ = 0;
};
