#pragma once
// Galclw32.dll, the GALSS client library, loaded when the first operation is called and not before:
// a PC without GALSS starts the program as any other. A load that failed is tried again at the next
// operation, and a library once loaded stays until the process ends, as it may run threads.

#include <string>

#include "platform/Bibliotheque_Galss.h"

struct HINSTANCE__;

class Galss_Windows : public Bibliotheque_Galss {
 public:
  std::int16_t OuvrirSession(Octets& Application, Octets& LAD, std::int16_t& Session,
                             std::int16_t& Info) override;
  std::int16_t DebutExclusivite(Octets& Exclusivite_Texte, Octets& Application, Octets& LAD,
                                std::int16_t& Exclusivite) override;
  std::int16_t Echange(std::int16_t Session, std::int16_t Nombre, Octets& Commande,
                       std::int32_t& Longueur_Commande, Octets& Reponse,
                       std::int32_t& Longueur_Reponse) override;
  std::int16_t FinExclusivite(std::int16_t Exclusivite) override;
  std::int16_t FermerSession(std::int16_t Session, std::int16_t& Exclusivite) override;

 private:
  template <typename Fonction>
  Fonction* Operation(const char* Nom, const char* Nom_Decore);
  void Charger();

  HINSTANCE__* Module_ = nullptr;
  std::wstring Chemin_;
};
