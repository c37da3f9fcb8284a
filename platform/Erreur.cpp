#include "platform/Erreur.h"

#include <new>

Erreur Erreur_En_Cours() {
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
