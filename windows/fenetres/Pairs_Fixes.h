#pragma once
// The native side of what the operator only looks at: frames, labels, pictures, lines, the progress
// bar. A picture that has a click handler can also be reached and clicked from the keyboard.

#include "windows/fenetres/Dessins.h"
#include "windows/fenetres/Pair_Natif.h"

class Pair_Cadre : public Pair_Natif {
 public:
  Pair_Cadre(Surface& Lieu, Cadre& Sien);
  void Actualiser(Propriete Quoi) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  SIZE Place_Texte() const override;
};

class Pair_Etiquette : public Pair_Natif {
 public:
  Pair_Etiquette(Surface& Lieu, Etiquette& Sienne);
  void Disposer() override;

 protected:
  void Actualiser_Texte() override;
  SIZE Place_Texte() const override;
};

class Pair_Image : public Pair_Natif {
 public:
  Pair_Image(Surface& Lieu, Image& Sienne);
  void Disposer() override;
  void Commander(WORD Avis) override;
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  /// The name stands for the text, so that a screen reader says it.
  void Actualiser_Texte() override;

 private:
  Image& Image_;
  Image_Argb Dessin_;
};

class Pair_Trait : public Pair_Natif {
 public:
  Pair_Trait(Surface& Lieu, Trait& Sien);
  void Disposer() override;
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;
};

class Pair_Barre : public Pair_Natif {
 public:
  Pair_Barre(Surface& Lieu, Barre_Progression& Sienne);
  void Actualiser(Propriete Quoi) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  void Actualiser_Texte() override {}
  void Montrer_Dernier_Etat() override { Actualiser_Valeur(); }

 private:
  float Valeur() const;
  /// Pixels that the value fills inside the border.
  int Rempli() const;
  void Actualiser_Valeur();
  void Peindre(HDC Dc) const;

  Barre_Progression& Barre_;
  int Rempli_ = -1;  // when a new value was last painted
};
