#include "windows/fenetres/Fabrique_Pairs.h"

#include <utility>

#include "windows/fenetres/Pair_Champ_Texte.h"
#include "windows/fenetres/Pairs_Boutons.h"
#include "windows/fenetres/Pairs_Fixes.h"
#include "windows/fenetres/Pairs_Listes.h"

template <typename Pair, typename... Arguments>
Pair& Fabrique_Pairs::Ajouter(Arguments&&... Donnes) {
  auto Nouveau = std::make_unique<Pair>(Lieu_, std::forward<Arguments>(Donnes)...);
  Pair& Reference = *Nouveau;
  Reference.Modele().Attacher(&Reference);
  Lieu_.Pairs.push_back(std::move(Nouveau));
  return Reference;
}

void Fabrique_Pairs::Fabriquer() {
  for (Controle* const Un : Maison_.Controles()) {
    Un->Accueillir(*this);
    Dans_Groupe_ = dynamic_cast<Option*>(Un) != nullptr;
  }
  Superposer();
}

// Earlier controls lie above later ones; a frame must lie below its content, and a label below the
// control whose edge it touches.
void Fabrique_Pairs::Superposer() {
  for (const auto& Pair : Lieu_.Pairs) {
    if (dynamic_cast<Pair_Cadre*>(Pair.get()) != nullptr) Pair->Passer_Dessous(HWND_BOTTOM);
    if (dynamic_cast<Pair_Etiquette*>(Pair.get()) == nullptr) continue;
    for (const auto& Autre : Lieu_.Pairs) {
      const bool Dessus = Autre->Modele().Numero() > Pair->Modele().Numero();
      if (Dessus && Pair->Touche(*Autre)) Pair->Passer_Dessous(Autre->Poignee());
    }
  }
}

void Fabrique_Pairs::Visiter(Barre_Progression& C) {
  Ajouter<Pair_Barre>(C);
}

void Fabrique_Pairs::Visiter(Bouton& C) {
  Ajouter<Pair_Bouton>(C, Maison_.Bouton_Entree == &C);
}

void Fabrique_Pairs::Visiter(Cadre& C) {
  Ajouter<Pair_Cadre>(C);
}

void Fabrique_Pairs::Visiter(Champ_Texte& C) {
  Ajouter<Pair_Champ_Texte>(C);
}

void Fabrique_Pairs::Visiter(Etiquette& C) {
  Ajouter<Pair_Etiquette>(C);
}

void Fabrique_Pairs::Visiter(Image& C) {
  Ajouter<Pair_Image>(C);
}

void Fabrique_Pairs::Visiter(Liste_Deroulante& C) {
  Ajouter<Pair_Liste_Deroulante>(C);
}

void Fabrique_Pairs::Visiter(Liste_Lecteurs& C) {
  Ajouter<Pair_Lecteurs>(C);
}

void Fabrique_Pairs::Visiter(Liste_Repertoires& C) {
  Ajouter<Pair_Repertoires>(C);
}

void Fabrique_Pairs::Visiter(Option& C) {
  Ajouter<Pair_Option>(C, !Dans_Groupe_);
}

void Fabrique_Pairs::Visiter(Trait& C) {
  Ajouter<Pair_Trait>(C);
}
