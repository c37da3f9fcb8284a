#pragma once
// The access library, overheard: every call with its arguments, its result and its duration, and
// what the library is once the first call has loaded it.

#include "journal/Echange_Lu.h"
#include "journal/Journal.h"
#include "platform/Bibliotheque_Galss.h"

class Galss_Journalisee : public Bibliotheque_Galss {
 public:
  Galss_Journalisee(Bibliotheque_Galss& Vraie, Journal& Suivi, Releve_Poste& Releve)
      : Vraie_(Vraie), Journal_(Suivi), Releve_(Releve) {}

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
  /// Makes the call, whose arguments Ligne holds already; Rendre(Code) adds what came back.
  template <typename Appel, typename Suite>
  std::int16_t Noter(Ligne_Journal& Ligne, Appel Appeler, Suite Rendre);
  void Noter_Bibliotheque();
  void Noter_Commande(Ligne_Journal& Ligne, const Commande_Lue& Lue, Vue_Octets Commande);

  Bibliotheque_Galss& Vraie_;
  Journal& Journal_;
  Releve_Poste& Releve_;
  bool Bibliotheque_Notee_ = false;
  int Rang_Bloc_ = 0;         // in its file, from 1
  bool A_Reprendre_ = false;  // the exchange to come repeats the last one
};
