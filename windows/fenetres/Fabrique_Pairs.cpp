#include "windows/fenetres/Fabrique_Pairs.h"

#include <utility>

namespace {

class Fabrique : public Visiteur_Controles {
 public:
  Fabrique(Surface& Lieu, const Fenetre& Maison) : Lieu_(Lieu), Maison_(Maison) {}

  void Visiter(Barre_Progression& C) override { Ajouter(Nouveau_Pair(Lieu_, C)); }
  void Visiter(Bouton& C) override { Ajouter(Nouveau_Pair(Lieu_, C, Maison_.Bouton_Entree == &C)); }
  void Visiter(Cadre& C) override { Ajouter(Nouveau_Pair(Lieu_, C)); }
  void Visiter(Champ_Texte& C) override { Ajouter(Nouveau_Pair(Lieu_, C)); }
  void Visiter(Etiquette& C) override { Ajouter(Nouveau_Pair(Lieu_, C)); }
  void Visiter(Image& C) override { Ajouter(Nouveau_Pair(Lieu_, C)); }
  void Visiter(Liste_Deroulante& C) override { Ajouter(Nouveau_Pair(Lieu_, C)); }
  void Visiter(Liste_Lecteurs& C) override { Ajouter(Nouveau_Pair(Lieu_, C)); }
  void Visiter(Liste_Repertoires& C) override { Ajouter(Nouveau_Pair(Lieu_, C)); }
  void Visiter(Option& C) override { Ajouter(Nouveau_Pair(Lieu_, C, !Dans_Groupe_)); }
  void Visiter(Trait& C) override { Ajouter(Nouveau_Pair(Lieu_, C)); }

 private:
  void Ajouter(std::unique_ptr<Pair_Natif> Nouveau) {
    Nouveau->Modele().Attacher(Nouveau.get());
    Dans_Groupe_ = dynamic_cast<Option*>(&Nouveau->Modele()) != nullptr;
    Lieu_.Pairs.push_back(std::move(Nouveau));
  }

  Surface& Lieu_;
  const Fenetre& Maison_;
  bool Dans_Groupe_ = false;  // the control before is an option
};

// Earlier controls lie above later ones; a frame must lie below its content, and a label below the
// control whose edge it touches.
void Superposer(const Surface& Lieu) {
  for (const auto& Pair : Lieu.Pairs) {
    if (dynamic_cast<Cadre*>(&Pair->Modele()) != nullptr) Pair->Passer_Dessous(HWND_BOTTOM);
    if (dynamic_cast<Etiquette*>(&Pair->Modele()) == nullptr) continue;
    for (const auto& Autre : Lieu.Pairs) {
      const bool Dessus = Autre->Modele().Numero() > Pair->Modele().Numero();
      if (Dessus && Pair->Touche(*Autre)) Pair->Passer_Dessous(Autre->Poignee());
    }
  }
}

}  // namespace

void Fabriquer_Pairs(Surface& Lieu, const Fenetre& Maison) {
  Fabrique Atelier(Lieu, Maison);
  for (Controle* const Un : Maison.Controles()) Un->Accueillir(Atelier);
  Superposer(Lieu);
}
