#include "galss/Liaison_Galss.h"

#include <algorithm>

namespace {

constexpr std::int16_t Transfert_Abandonne = 64;

// A length as the first call left it may go into the second one only within the buffer: the library
// would read or write beyond it.
std::int32_t Borner(std::int32_t Longueur, const Octets& Tampon) {
  return std::clamp(Longueur, 0, static_cast<std::int32_t>(Tampon.size()));
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

std::int16_t Liaison_Galss::Appeler() {
  Longueur_Commande_ = Borner(Longueur_Commande_, Commande_);
  Longueur_Reponse_ = Borner(Longueur_Reponse_, Reponse_);
  return Rendre(Galss_.Echange(Session_.Num_Session, 0, Commande_, Longueur_Commande_, Reponse_,
                               Longueur_Reponse_));
}
