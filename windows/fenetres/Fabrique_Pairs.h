#pragma once
// Makes the native peer that suits each kind of control.

#include "ui/controles/Fenetre.h"
#include "ui/controles/Visiteur_Controles.h"
#include "windows/fenetres/Pair_Natif.h"

class Fabrique_Pairs : public Visiteur_Controles {
 public:
  Fabrique_Pairs(Surface& Lieu, Fenetre& Maison) : Lieu_(Lieu), Maison_(Maison) {}

  /// Peers of all the controls of the window, attached, in its surface.
  void Fabriquer();

  void Visiter(Barre_Progression&) override;
  void Visiter(Bouton&) override;
  void Visiter(Cadre&) override;
  void Visiter(Champ_Texte&) override;
  void Visiter(Etiquette&) override;
  void Visiter(Image&) override;
  void Visiter(Liste_Deroulante&) override;
  void Visiter(Liste_Lecteurs&) override;
  void Visiter(Liste_Repertoires&) override;
  void Visiter(Option&) override;
  void Visiter(Trait&) override;

 private:
  template <typename Pair, typename... Arguments>
  Pair& Ajouter(Arguments&&... Donnes);

  void Superposer();

  Surface& Lieu_;
  Fenetre& Maison_;
  bool Dans_Groupe_ = false;  // the control before is an option
};
