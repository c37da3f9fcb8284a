#include "platform/Erreur.h"

#include <new>
#include <utility>

namespace {

// Every handler of the program names its exception by the function below, wherever it stands.
std::function<void(const Erreur&)> Temoin;

Erreur Nommer() {
  try {
    throw;
  } catch (const Erreur& Connue) {
    return Connue;
  } catch (const std::bad_alloc&) {
    return {Numero_Erreur::Memoire_Insuffisante, "Mémoire insuffisante"};
  } catch (const std::exception& Autre) {
    return {Numero_Erreur::Erreur_Interne, std::string("Erreur interne : ") + Autre.what()};
  }
}

}  // namespace

Erreur Erreur_En_Cours() {
  Erreur Nommee = Nommer();
  if (Temoin) Temoin(Nommee);
  return Nommee;
}

Ecoute_Erreurs::Ecoute_Erreurs(std::function<void(const Erreur&)> Suite) {
  Temoin = std::move(Suite);
}

Ecoute_Erreurs::~Ecoute_Erreurs() {
  Temoin = nullptr;
}
