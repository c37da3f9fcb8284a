#pragma once
// A COM port of the PC, through the file calls. Only the calls that every serial driver has may
// make it fail: cheap adapters and pseudo-terminals lack the others.

#include "platform/Port_Serie.h"
#include "windows/systeme/Poignee.h"

class Port_Serie_Windows : public Port_Serie {
 public:
  /// Numero: 3 for COM3. Nothing is opened before Ouvrir.
  explicit Port_Serie_Windows(unsigned Numero);

  void Regler(std::string_view Reglages) override;
  std::string Reglages() const override;
  void Ouvrir() override;
  void Fermer() override;
  bool Ouvert() const override;
  void Ecrire(Vue_Octets Donnees) override;
  std::size_t En_Attente() override;
  Octets Lire_Tout() override;

 private:
  HANDLE Ligne() const;

  std::string Nom_;
  std::string Reglages_ = "9600,n,8,1";
  Poignee Port_;
};
