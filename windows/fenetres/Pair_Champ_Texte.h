#pragma once
// The native text field: read-only, its text can be selected and copied. The pane of several lines
// follows its newest line; a text that goes on from the one shown is appended, without flicker.

#include "windows/fenetres/Pair_Natif.h"

class Pair_Champ_Texte : public Pair_Natif {
 public:
  Pair_Champ_Texte(Surface& Lieu, Champ_Texte& Sien);
  void Disposer() override;
  HBRUSH Colorer(HDC Dc) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  void Actualiser_Texte() override;

 private:
  bool Plusieurs_Lignes() const;
  void Allonger(const std::wstring& Suite);

  Champ_Texte& Champ_;
  std::string Montre_;  // the text that the native control shows
};
