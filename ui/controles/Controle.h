#pragma once
// A control as a model: its properties live here, complete without any window on the screen. A
// native peer, when there is one, is told of every change at once and passes the operator's actions
// on to the model.

#include <functional>
#include <vector>

#include "ui/controles/Conception.h"
#include "ui/controles/Visiteur_Controles.h"

class Cadre;
class Controle;

/// What the operator or the program makes happen; an empty one does nothing.
using Evenement = std::function<void()>;

/// What changed in a model; the peer reads the new state from it.
enum class Propriete { Texte, Encre, Visible, Active, Valeur, Contenu, Choix, Pointeur };

/// The native side of a control or of a window. The windowing owns it.
class Pair_Controle {
 public:
  virtual ~Pair_Controle() = default;
  virtual void Actualiser(Propriete Quoi) = 0;
  /// Paints at once, without waiting for the event loop.
  virtual void Repeindre() = 0;
};

enum class Pointeur { Defaut, Sablier };

/// What a control asks of the window that holds it.
class Lieu_Controles {
 public:
  virtual ~Lieu_Controles() = default;
  /// The operator can act on it.
  virtual bool A_Portee() const = 0;
  /// The mouse pointer over it.
  virtual Pointeur Souris() const = 0;
  virtual void Souris(Pointeur Nouveau) = 0;
  /// In declaration order.
  const std::vector<Controle*>& Controles() const { return Controles_; }

 private:
  friend class Controle;
  std::vector<Controle*> Controles_;
};

class Controle {
 public:
  /// Numero: the native control identifier, stable from one version to the next.
  Controle(Lieu_Controles& Lieu, int Numero, Position Place, Conception Depart);
  Controle(Cadre& Lieu, int Numero, Position Place, Conception Depart);
  virtual ~Controle() = default;
  Controle(const Controle&) = delete;
  Controle& operator=(const Controle&) = delete;

  const std::string& Texte() const { return Etat_.Texte; }
  bool Visible() const { return Etat_.Visible; }
  bool Active() const { return Etat_.Active; }
  const std::optional<Couleur>& Encre() const { return Etat_.Encre; }

  void Visible(bool Oui);
  void Active(bool Oui);
  void Encre(Couleur Nouvelle);
  void Repeindre();

  /// True when the operator can act on it: shown and enabled, in a window within reach.
  bool Accessible() const;

  int Numero() const { return Numero_; }
  const Position& Place() const { return Place_; }
  const Conception& Depart() const { return Depart_; }
  /// Null for a control placed directly in its window.
  Cadre* Parent() const { return Parent_; }

  virtual void Accueillir(Visiteur_Controles& Visiteur) = 0;
  /// Back to the design state, without running any handler.
  virtual void Reinitialiser();
  /// Null detaches.
  void Attacher(Pair_Controle* Pair) { Pair_ = Pair; }

 protected:
  /// Kinds whose text changes give it a public face of their own.
  void Poser_Texte(std::string Nouveau);
  void Signaler(Propriete Quoi);

  Lieu_Controles& Maison() const { return Maison_; }

 private:
  Controle(Lieu_Controles& Maison, Cadre* Parent, int Numero, Position Place, Conception&& Depart);

  Lieu_Controles& Maison_;
  Cadre* Parent_;
  int Numero_;
  Position Place_;
  Conception Depart_;
  Conception Etat_;
  Pair_Controle* Pair_ = nullptr;
};

/// A frame with a caption; its controls are placed relative to it.
class Cadre : public Controle {
 public:
  using Controle::Controle;
  /// The controls placed in it, in their order.
  const std::vector<Controle*>& Contenu() const { return Contenu_; }
  void Accueillir(Visiteur_Controles& V) override { V.Visiter(*this); }

 private:
  friend class Controle;
  std::vector<Controle*> Contenu_;
};

/// Runs an event, if it has a handler. The handler may replace or clear the event itself.
void Declencher(const Evenement& Quoi);
