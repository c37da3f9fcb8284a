#pragma once
// The windowing system of the program on Windows: native windows for the window models, message
// boxes, and the event loop.

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Fenetrage.h"
#include "windows/fenetres/Fenetre_Native.h"
#include "windows/fenetres/Outils_Dessin.h"
#include "windows/systeme/Systeme_Windows.h"

class Fenetrage_Windows : public Fenetrage, public Hote {
 public:
  /// Famille: typeface of the windows.
  explicit Fenetrage_Windows(const wchar_t* Famille = Polices::Famille_Du_Poste());

  Pair_Fenetre* Creer(Fenetre& Modele) override;
  Reponse Boite_Message(std::string_view Texte, Boutons Choix, Icone Dessin,
                        std::string_view Titre) override;
  void Traiter_Evenements(std::chrono::milliseconds Attente) override;
  void Tenir_Eveille(bool Oui) override;
  [[noreturn]] void Quitter() override;

  /// Called by Quitter once no window is to be seen any more.
  std::function<void()> Avant_De_Finir;

  /// Around a call of a foreign library, which may process window messages: meanwhile our windows
  /// take no click, key, menu or closing, so that nothing starts within the call. Painting goes on.
  void Ignorer_Operateur(bool Oui) { Operateur_Ignore_ = Oui; }

  /// The exception being handled stops here: shown in a message box, and the program goes on,
  /// unless it has no window left. Only inside a catch block. While such a box is up further ones
  /// are dropped.
  void Signaler_Exception() noexcept override;

  /// Its box goes through Ecran, which comes back here; without this call, directly.
  void Signaler_Par(Fenetrage& Ecran) { Signalement_ = &Ecran; }

 private:
  bool Boite_Ouverte() const override { return Boites_ > 0; }
  bool Operateur_Ignore() const override { return Operateur_Ignore_; }
  bool Eveille() const override { return Veille_.has_value(); }
  /// A system that has no such service is left as it is.
  void Donner_Nom_Accessible(HWND Controle, const std::wstring& Nom) const override;
  void Activer_Une_Autre(HWND Partante) const override;
  void Retirer(const Pair_Fenetre& Partie) override;

  HWND Poignee_De(const Fenetre* Modele) const;
  /// A window of ours that is shown, the active one if possible.
  HWND Fenetre_Visible() const;
  bool Est_A_Nous(HWND Candidate) const;
  /// Before the operator may look for long: every window shows its model's last state.
  void Rattraper() const;
  void Distribuer(MSG& Message);
  void Actualiser_Activations(HWND Sauf) const;

  Crochet Tri_Des_Messages_;
  Polices Fontes_;
  std::vector<std::unique_ptr<Fenetre_Native>> Ouvertes_;
  std::vector<std::unique_ptr<Fenetre_Native>> Retirees_;
  int Profondeur_ = 0;  // of event loops within event handlers
  int Boites_ = 0;
  bool Operateur_Ignore_ = false;
  std::optional<Veille_Suspendue> Veille_;
  bool Exception_Montree_ = false;
  Fenetrage* Signalement_ = this;
};
