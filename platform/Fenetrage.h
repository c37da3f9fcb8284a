#pragma once
// The windowing system: native windows for our window models, message boxes, pending events.

#include <chrono>
#include <string_view>

class Fenetre;
class Pair_Fenetre;

enum class Boutons { Ok, Oui_Non };
enum class Icone { Information, Question, Exclamation };
enum class Reponse { Ok, Oui, Non };

class Fenetrage {
 public:
  virtual ~Fenetrage() = default;

  /// Makes the native window of a model and a peer for each of its controls, still hidden, and
  /// attaches them. The windowing owns the peers until Pair_Fenetre::Detruire. A null answer means
  /// that the window lives without peers.
  virtual Pair_Fenetre* Creer(Fenetre& Modele) = 0;

  /// Modal for the whole program; returns once dismissed. A box closed by its frame or by Esc
  /// answers Ok, or Non where it asks.
  virtual Reponse Boite_Message(std::string_view Texte, Boutons Choix, Icone Dessin,
                                std::string_view Titre) = 0;

  /// Processes all pending window events; when there is none, sleeps until one comes, for
  /// Attente at most.
  virtual void Traiter_Evenements(std::chrono::milliseconds Attente) = 0;

  /// While it holds, the PC neither sleeps nor turns its display off, and refuses to shut down
  /// unasked. To be used through Poste_Eveille; does not nest.
  virtual void Tenir_Eveille(bool Oui) = 0;

  /// Ends the program at once, without unwinding: nothing is asked, saved or closed.
  [[noreturn]] virtual void Quitter() = 0;
};

/// The PC stays awake while this lives.
class Poste_Eveille {
 public:
  explicit Poste_Eveille(Fenetrage& Ecran) : Ecran_(Ecran) { Ecran_.Tenir_Eveille(true); }
  ~Poste_Eveille() { Ecran_.Tenir_Eveille(false); }
  Poste_Eveille(const Poste_Eveille&) = delete;
  Poste_Eveille& operator=(const Poste_Eveille&) = delete;

 private:
  Fenetrage& Ecran_;
};
