#pragma once
// Galclw32.dll, the GALSS client library, loaded when the first operation is called and not before:
// a PC without GALSS starts the program as any other. A load that failed is tried again at the next
// operation, and a library once loaded stays until the process ends, as it may run threads.

#include <functional>
#include <string>

#include "platform/Bibliotheque_Galss.h"

struct HINSTANCE__;

class Galss_Windows : public Bibliotheque_Galss {
 public:
  using Temoin_Appel = std::function<void(bool En_Cours)>;

  /// Temoin is told true before each call into the library, its loading included, and false after
  /// it, however it ends: a library may process the program's window messages meanwhile.
  explicit Galss_Windows(Temoin_Appel Temoin = [](bool) {}) : Temoin_(std::move(Temoin)) {}

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
  template <typename Fonction, typename... Valeurs>
  std::int16_t Appeler(const char* Nom, const char* Nom_Decore, Valeurs... Arguments);
  template <typename Fonction>
  Fonction* Operation(const char* Nom, const char* Nom_Decore);
  void Charger();

  Temoin_Appel Temoin_;
  HINSTANCE__* Module_ = nullptr;
  std::wstring Chemin_;
};
