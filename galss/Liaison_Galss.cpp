#include "galss/Liaison_Galss.h"

#include <algorithm>

namespace {

constexpr std::int16_t Transfert_Abandonne = 64;

std::int32_t Capacite_De(const Octets& Tampon) {
  return static_cast<std::int32_t>(Tampon.size());
}

}  // namespace

std::int16_t Liaison_Galss::Echanger(Vue_Octets Entete, Vue_Octets Donnees, std::size_t Capacite) {
  Commande_.assign(Entete.begin(), Entete.end());
  Commande_.insert(Commande_.end(), Donnees.begin(), Donnees.end());
  Reponse_.assign(Capacite, ' ');
  Longueur_Commande_ = static_cast<std::int32_t>(Commande_.size());
  Longueur_Reponse_ = static_cast<std::int32_t>(Capacite);
  if (Appeler() == Transfert_Abandonne) Appeler();
  return Session_.Code_Retour;
}

// The library may leave anything in the lengths: what it is lent in a second call stays within the
// buffers.
std::int16_t Liaison_Galss::Appeler() {
  Longueur_Commande_ = std::clamp(Longueur_Commande_, 0, Capacite_De(Commande_));
  Longueur_Reponse_ = std::clamp(Longueur_Reponse_, 0, Capacite_De(Reponse_));
  return Rendre(Galss_.Echange(Session_.Num_Session, 0, Commande_, Longueur_Commande_, Reponse_,
                               Longueur_Reponse_));
}
