#pragma once
// The simple kinds of controls.

#include <string>
#include <utility>

#include "ui/controles/Controle.h"

class Etiquette : public Controle {
 public:
  using Controle::Controle;
  using Controle::Texte;
  void Texte(std::string Nouveau) { Poser_Texte(std::move(Nouveau)); }
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }
};

/// A text field, read-only to the operator, who can select and copy.
class Champ_Texte : public Controle {
 public:
  enum class Lignes { Une, Plusieurs };
  Champ_Texte(Cadre& Lieu, int Numero, Position Place, Conception Depart, Lignes Combien);

  using Controle::Texte;
  /// A text other than the current one runs Changement at once.
  void Texte(std::string Nouveau);
  /// The text becomes the current one, then Suite.
  void Ajouter(std::string_view Suite);

  Lignes Combien() const { return Combien_; }
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }

  Evenement Changement;

 private:
  Lignes Combien_;
};

class Bouton : public Controle {
 public:
  using Controle::Controle;
  /// The operator's click: nothing happens unless the button is accessible.
  void Cliquer();
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }

  Evenement Clic;
};

/// One of the mutually exclusive options of its frame.
class Option : public Controle {
 public:
  Option(Cadre& Lieu, int Numero, Position Place, Conception Depart, bool Choisie = false);

  bool Valeur() const { return Valeur_; }
  /// The operator's choice: nothing happens unless the option is accessible and not yet set.
  void Choisir();
  void Reinitialiser() override;
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }

  Evenement Clic;

 private:
  void Poser(bool Nouvelle);

  bool Valeur_;
  bool Valeur_Depart_;
};

/// A picture; its size on the screen follows its place.
class Image : public Controle {
 public:
  using Controle::Controle;
  /// The operator's click: nothing happens unless the picture is accessible.
  void Cliquer();
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }

  Evenement Clic;
};

/// A line from (Gauche, Haut) to (Gauche + Largeur, Haut + Hauteur), two pixels wide at 96 DPI.
class Trait : public Controle {
 public:
  using Controle::Controle;
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }
};

/// Values from 0 to 100.
class Barre_Progression : public Controle {
 public:
  using Controle::Controle;
  float Valeur() const { return Valeur_; }
  void Valeur(float Nouvelle);
  void Reinitialiser() override;
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }

 private:
  float Valeur_ = 0;
};
