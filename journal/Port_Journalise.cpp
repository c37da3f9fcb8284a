#include "journal/Port_Journalise.h"

#include <utility>

namespace {

constexpr std::string_view Genre = "SERIE";

}  // namespace

void Port_Journalise::Regler(std::string_view Reglages) {
  Vrai_.Regler(Reglages);
  Journal_.Ecrire(Genre, Ligne_Journal("Regler").Texte("reglages", Reglages));
}

void Port_Journalise::Ouvrir() {
  Vrai_.Ouvrir();
  Venus_.clear();
  Journal_.Ecrire(Genre, Ligne_Journal("Ouvrir"));
}

void Port_Journalise::Fermer() {
  if (Ouvert()) Journal_.Ecrire(Genre, Ligne_Journal("Fermer"));
  Vrai_.Fermer();
}

void Port_Journalise::Ecrire(Vue_Octets Donnees) {
  Vrai_.Ecrire(Donnees);
  Journal_.Ecrire(Genre, Ligne_Journal("Ecrire").Hexa("octets", Donnees));
}

// An answer that is too long for the program is never read by it: it is taken here.
std::size_t Port_Journalise::En_Attente() {
  if (Vrai_.En_Attente() > 0) {
    const Octets Lus = Vrai_.Lire_Tout();
    Venus_.insert(Venus_.end(), Lus.begin(), Lus.end());
    Journal_.Ecrire(Genre, Ligne_Journal("Recevoir").Hexa("octets", Lus));
  }
  return Venus_.size();
}

Octets Port_Journalise::Lire_Tout() {
  En_Attente();
  return std::exchange(Venus_, {});
}
