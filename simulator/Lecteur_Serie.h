#pragma once
// The reader's serial end: bytes in at some speed, bytes out. Check bytes are computed here and
// verified on everything that comes in. No port and no clock; the caller moves the bytes.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "simulator/Scenario.h"

/// CRC-16/KERMIT: polynomial 0x1021 reflected, initial value 0, no final exclusive or.
std::uint16_t Crc_Kermit(Vue_Octets Donnees);

class Lecteur_Serie {
 public:
  struct Reponse {
    std::vector<Octets> Morceaux;  ///< to be sent one by one, Delai_Morceaux_Ms apart
    std::vector<int> Delais_Ms;    ///< before each of them, of a replay; else empty
    bool Debranche = false;        ///< the cable is pulled instead of an answer
  };

  explicit Lecteur_Serie(const Scenario& Reglages) : Regles_(Reglages) {}

  std::function<void(const std::string& Ligne)> Ecrire_Trace;

  /// Vitesse: bauds at which the port is set. At a speed that it does not know the reader
  /// understands nothing. A journal to replay answers instead, as long as the frames are its own.
  Reponse Recevoir(Vue_Octets Donnees, int Vitesse);

  /// What the program did wrong, in French, in order.
  const std::vector<std::string>& Fautes() const { return Fautes_; }
  int Trames() const { return Trames_; }

 private:
  void Repondre(Vue_Octets Trame, Reponse& Sortie);
  void Rejouer(int Vitesse, Reponse& Sortie);
  void Emettre(std::uint8_t Controle, Octets Contenu, Reponse& Sortie) const;
  void Faute(const std::string& Reproche);
  void Tracer(const std::string& Ligne);

  Scenario Regles_;
  Octets Recus_;  // the beginning of a frame
  std::vector<std::string> Fautes_;
  int Trames_ = 0;
  bool Divergent_ = false;  // from what is replayed
};
