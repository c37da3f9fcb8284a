#pragma once
// An operator's eyes and hands on the Windows desktop: the windows of a program that runs in another process, what
// they show, real keys, pictures. Texts are UTF-8. No call waits for ever for a program that is stuck.

#include <chrono>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "windows/systeme/Poignee.h"

/// What is awaited did not come, or what is to be used is not there.
struct Pas_Venu : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What Condition gives as soon as it is true; raises Pas_Venu after so many seconds, many for a PC that is busy.
template <class Question>
auto Attendre(const std::string& Quoi, Question Condition, double Secondes = 60) {
  const auto Maintenant = [] { return std::chrono::steady_clock::now(); };
  const auto Limite = Maintenant() + std::chrono::duration<double>(Secondes);
  while (true) {
    if (auto Reponse = Condition()) return Reponse;
    if (Maintenant() > Limite) throw Pas_Venu("pas venu en " + std::to_string(Secondes) + " s : " + Quoi);
    Sleep(50);
  }
}

/// A window or a control: looked at anew by every question.
struct Objet_Vu {
  HWND Poignee = nullptr;

  explicit operator bool() const { return Poignee != nullptr; }
  bool Visible() const { return IsWindowVisible(Poignee) != 0; }
  bool Actif() const { return IsWindowEnabled(Poignee) != 0; }
  std::string Classe() const;
  /// "?" when the program does not answer.
  std::string Texte() const;
  /// Everything inside.
  std::vector<Objet_Vu> Enfants() const;
  /// Raises Pas_Venu when the program does not answer.
  LRESULT Envoyer(UINT Message, WPARAM W = 0, LPARAM L = 0) const;
  void Poster(UINT Message, WPARAM W = 0, LPARAM L = 0) const { PostMessageW(Poignee, Message, W, L); }
  /// False when an operator could not have clicked: hidden, disabled, or within a disabled window.
  bool Cliquer() const;
  /// Chooses in a drop-down list, once it has that entry.
  void Choisir(const std::string& Entree) const;
  /// Opens a line of a directory list with the Enter key, once it is there.
  void Ouvrir_Ligne(const std::string& Entree) const;

 private:
  WPARAM Rang_De(const std::string& Entree, UINT Recherche) const;
};

/// A window of the program, whose controls go by the names of its tables.
struct Fenetre_Vue : Objet_Vu {
  /// Raises Pas_Venu when the window has no such control.
  Objet_Vu operator[](std::string_view Controle) const;
  bool Devant() const { return GetForegroundWindow() == Poignee; }
  /// False when an operator could not have opened the menu.
  bool Menu(std::string_view Entree) const;
  /// The close box of the frame.
  void Fermer() const { Poster(WM_CLOSE); }
};

struct Boite_Vue : Objet_Vu {
  Boite_Vue() = default;
  explicit Boite_Vue(Objet_Vu Boite);
  /// Its buttons and its text in one, for example "Oui Non : Confirmez-vous...".
  std::string Tout;
  Objet_Vu Dessin;
  /// Presses "OK", "Oui" or "Non" and waits until the box is gone.
  void Repondre(std::string_view Bouton = "OK") const;
};

class Programme_Lance {
 public:
  /// Replaces a program started earlier, which is left to itself.
  void Lancer(const std::string& Commande, const std::filesystem::path& Repertoire);
  /// Exit code, none while it runs (or was never started).
  std::optional<DWORD> Fin() const;
  void Tuer() const;
  HANDLE Processus() const { return Processus_.get(); }
  /// Top-level windows that are visible, from front to back.
  std::vector<Objet_Vu> Fenetres() const;
  /// A window by its name, a message box by its title; empty when it is not there.
  Fenetre_Vue Fenetre(std::string_view Nom) const;
  Boite_Vue Boite(std::string_view Titre) const;

 private:
  Poignee Processus_;
};

/// Presses a real key, or releases it (KEYEVENTF_KEYUP).
void Toucher(WORD Touche, DWORD Sens);
/// A picture of that part of the screen, as a PNG file.
void Photographier(const Objet_Vu& Quoi, const std::filesystem::path& Fichier);
