#include "windows/fenetres/Foyer.h"

#include <utility>

void Foyer::Ouvrir(HWND Fenetre, HWND Premier_Choix) {
  Fenetre_ = Fenetre;
  Premier_Choix_ = Premier_Choix;
}

void Foyer::Memoriser() {
  if (const HWND Celui_Ci = Actuel()) Memoire_ = Celui_Ci;
}

void Foyer::Reprendre() {
  if (Cession_) return;
  for (const HWND Candidat : {Memoire_, Premier_Choix_, Suivant(nullptr)}) {
    if (Utilisable(Candidat)) {
      SetFocus(Candidat);
      return;
    }
  }
}

void Foyer::Ceder(HWND Controle) {
  const HWND Celui_Ci = Actuel();
  if (Celui_Ci == nullptr || (Celui_Ci != Controle && !IsChild(Controle, Celui_Ci))) return;
  const HWND Autre = Suivant(Controle);
  Delogee_ = Controle;
  Remplacante_ = Autre != nullptr && Autre != Controle ? Autre : Fenetre_;
  Cession_ = true;
  SetFocus(Remplacante_);
  Cession_ = false;
}

void Foyer::Rendre(HWND Controle) {
  if (Controle != Delogee_ || !Utilisable(Controle)) return;
  Delogee_ = nullptr;
  const HWND Tenante = std::exchange(Remplacante_, nullptr);
  if (GetFocus() == Tenante) {
    SetFocus(Controle);
  } else if (GetFocus() == nullptr && Memoire_ == Tenante) {
    Memoire_ = Controle;
  }
}

bool Foyer::Utilisable(HWND Controle) const {
  return Controle != nullptr && IsChild(Fenetre_, Controle) && IsWindowVisible(Controle) &&
         IsWindowEnabled(Controle);
}

// Null when the focus is not in this window.
HWND Foyer::Actuel() const {
  const HWND Celui_Ci = GetFocus();
  return IsChild(Fenetre_, Celui_Ci) ? Celui_Ci : nullptr;
}

HWND Foyer::Suivant(HWND Controle) const {
  return GetNextDlgTabItem(Fenetre_, Controle, FALSE);
}
