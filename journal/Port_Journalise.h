#pragma once
// The serial port, overheard: settings, opening and closing, and every byte with the time at which
// the program could have seen it, read by it or not.

#include "journal/Journal.h"
#include "platform/Port_Serie.h"

class Port_Journalise : public Port_Serie {
 public:
  Port_Journalise(Port_Serie& Vrai, Journal& Suivi) : Vrai_(Vrai), Journal_(Suivi) {}

  void Regler(std::string_view Reglages) override;
  std::string Reglages() const override { return Vrai_.Reglages(); }
  void Ouvrir() override;
  void Fermer() override;
  bool Ouvert() const override { return Vrai_.Ouvert(); }
  void Ecrire(Vue_Octets Donnees) override;
  std::size_t En_Attente() override;
  Octets Lire_Tout() override;

 private:
  Port_Serie& Vrai_;
  Journal& Journal_;
  Octets Venus_;  // taken from the port, not yet read by the program
};
