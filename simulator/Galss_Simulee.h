#pragma once
// The native door: the program's own interface to the GALSS library, answered by the simulated
// reader in the same process.

#include "platform/Bibliotheque_Galss.h"
#include "simulator/Lecteur_Simule.h"

class Galss_Simulee : public Bibliotheque_Galss {
 public:
  explicit Galss_Simulee(Lecteur_Simule& Lecteur) : Lecteur_(Lecteur) {}

  std::int16_t OuvrirSession(Octets& Application, Octets& LAD, std::int16_t& Session,
                             std::int16_t& Info) override {
    return Lecteur_.OuvrirSession(Application, LAD, Session, Info);
  }

  std::int16_t DebutExclusivite(Octets& Exclusivite_Texte, Octets& Application, Octets& LAD,
                                std::int16_t& Exclusivite) override {
    return Lecteur_.DebutExclusivite(Exclusivite_Texte, Application, LAD, Exclusivite);
  }

  std::int16_t Echange(std::int16_t Session, std::int16_t Nombre, Octets& Commande,
                       std::int32_t& Longueur_Commande, Octets& Reponse,
                       std::int32_t& Longueur_Reponse) override {
    return Lecteur_.Echange(Session, Nombre, Commande, Longueur_Commande, Reponse,
                            Longueur_Reponse);
  }

  std::int16_t FinExclusivite(std::int16_t Exclusivite) override {
    return Lecteur_.FinExclusivite(Exclusivite);
  }

  std::int16_t FermerSession(std::int16_t Session, std::int16_t& Exclusivite) override {
    return Lecteur_.FermerSession(Session, Exclusivite);
  }

 private:
  Lecteur_Simule& Lecteur_;
};
