#pragma once
// What a native window and the peers of its controls ask of the windowing that holds them. It
// stands below both: they know nothing else of it.

#include <windows.h>

class Pair_Fenetre;

class Hote {
 public:
  virtual ~Hote() = default;
  /// The exception being handled stops here. Only inside a catch block.
  virtual void Signaler_Exception() noexcept = 0;
  /// A message box is up.
  virtual bool Boite_Ouverte() const = 0;
  /// A foreign library is being called: nothing of the operator's counts.
  virtual bool Operateur_Ignore() const = 0;
  /// The PC is kept awake: it is not to be shut down either.
  virtual bool Eveille() const = 0;
  /// The window is about to go: if it is the active one, another window of ours takes over.
  virtual void Activer_Une_Autre(HWND Partante) const = 0;
  /// The window is gone; its peers stay until no event of theirs can be running any more.
  virtual void Retirer(const Pair_Fenetre& Partie) = 0;
};
