#pragma once
// The hourglass over a window while a directory is searched: one on a slow or vanished share can
// take long.

#include "ui/controles/Fenetre.h"

class Sablier {
 public:
  explicit Sablier(Fenetre& F) : F_(F), Avant_(F.Souris()) { Poser(Pointeur::Sablier); }
  /// The pointer is again what it was.
  ~Sablier() { Poser(Avant_); }
  Sablier(const Sablier&) = delete;
  Sablier& operator=(const Sablier&) = delete;

 private:
  void Poser(Pointeur Voulu) {
    if (F_.Souris() != Voulu) F_.Souris(Voulu);
  }

  Fenetre& F_;
  const Pointeur Avant_;
};
