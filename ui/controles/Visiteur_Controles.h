#pragma once
// One operation for every kind of control; the windowing makes its peers with it.

class Barre_Progression;
class Bouton;
class Cadre;
class Champ_Texte;
class Etiquette;
class Image;
class Liste_Deroulante;
class Liste_Lecteurs;
class Liste_Repertoires;
class Option;
class Trait;

class Visiteur_Controles {
 public:
  virtual ~Visiteur_Controles() = default;
  virtual void Visiter(Barre_Progression&) = 0;
  virtual void Visiter(Bouton&) = 0;
  virtual void Visiter(Cadre&) = 0;
  virtual void Visiter(Champ_Texte&) = 0;
  virtual void Visiter(Etiquette&) = 0;
  virtual void Visiter(Image&) = 0;
  virtual void Visiter(Liste_Deroulante&) = 0;
  virtual void Visiter(Liste_Lecteurs&) = 0;
  virtual void Visiter(Liste_Repertoires&) = 0;
  virtual void Visiter(Option&) = 0;
  virtual void Visiter(Trait&) = 0;
};
