#pragma once
// The windowing system of the program on Windows: native windows for the window models, message
// boxes, and the event loop.

#include <windows.h>

#include <memory>
#include <vector>

#include "platform/Fenetrage.h"
#include "platform/windows/Fenetre_Native.h"
#include "platform/windows/Polices.h"

class Fenetrage_Windows : public Fenetrage {
 public:
  /// Famille: typeface of the windows.
  explicit Fenetrage_Windows(const wchar_t* Famille = Polices::Famille_Du_Poste());

  Pair_Fenetre* Creer(Fenetre& Modele) override;
  Reponse Boite_Message(std::string_view Texte, Boutons Choix, Icone Dessin,
                        std::string_view Titre) override;
  void Traiter_Evenements(std::chrono::milliseconds Attente) override;
  [[noreturn]] void Quitter() override;

  /// The exception being handled stops here: shown in a message box, and the program goes on. Only
  /// inside a catch block. While such a box is up further ones are dropped.
  void Signaler_Exception() noexcept;

  /// A message box is up.
  bool Boite_Ouverte() const { return Boites_ > 0; }
  /// A window is open that keeps the PC awake.
  bool Veille_Suspendue_Quelque_Part() const;
  /// The window is about to go: if it is the active one, another window of ours takes over.
  void Activer_Une_Autre(const Fenetre_Native& Partante) const;
  /// The window is gone; its peers stay until no event of theirs can be running any more.
  void Retirer(const Fenetre_Native& Partie);

 private:
  HWND Poignee_De(const Fenetre* Modele) const;
  /// A window of ours that is shown, the active one if possible.
  HWND Fenetre_Visible() const;
  bool Est_A_Nous(HWND Candidate) const;
  bool Pomper();
  void Distribuer(MSG& Message);
  void Actualiser_Activations(HWND Sauf) const;

  Polices Fontes_;
  std::vector<std::unique_ptr<Fenetre_Native>> Ouvertes_;
  std::vector<std::unique_ptr<Fenetre_Native>> Retirees_;
  int Profondeur_ = 0;  // of event loops within event handlers
  int Boites_ = 0;
  bool Exception_Montree_ = false;
};
