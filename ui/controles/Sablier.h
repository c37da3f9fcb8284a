#pragma once
// The hourglass over a window while a directory is read: one on a slow or vanished share can take
// long.

#include "ui/controles/Controle.h"

class Sablier {
 public:
  explicit Sablier(Lieu_Controles& Lieu) : Lieu_(Lieu), Avant_(Lieu.Souris()) {
    Poser(Pointeur::Sablier);
  }
  /// The pointer is again what it was.
  ~Sablier() { Poser(Avant_); }
  Sablier(const Sablier&) = delete;
  Sablier& operator=(const Sablier&) = delete;

 private:
  void Poser(Pointeur Voulu) {
    if (Lieu_.Souris() != Voulu) Lieu_.Souris(Voulu);
  }

  Lieu_Controles& Lieu_;
  const Pointeur Avant_;
};
