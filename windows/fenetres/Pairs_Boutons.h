#pragma once
// The native buttons and options. A button with a picture is drawn here, in the look of the
// operator's theme; the others are the system's.

#include "windows/fenetres/Dessins.h"
#include "windows/fenetres/Outils_Dessin.h"
#include "windows/fenetres/Pair_Natif.h"

class Pair_Bouton : public Pair_Natif {
 public:
  /// Par_Defaut: pressed by Enter from the whole window.
  Pair_Bouton(Surface& Lieu, Bouton& Sien, bool Par_Defaut);
  void Disposer() override;
  void Commander(WORD Avis) override;
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  SIZE Place_Texte() const override;

 private:
  bool Illustre() const { return Look().Image != Dessin::Aucun; }
  void Survoler(bool Oui);
  void Peindre(HDC Dc, const RECT& Cadre_Bouton, UINT Etat);
  void Peindre_Fond(HDC Dc, const Theme& Look_Du_Poste, RECT Cadre_Bouton, UINT Etat) const;
  int Peindre_Contenu(HDC Dc, const Theme& Look_Du_Poste, const RECT& Cadre_Bouton, UINT Etat);
  COLORREF Encre(const Theme& Look_Du_Poste, UINT Etat) const;

  Bouton& Bouton_;
  Image_Argb Dessin_;
  bool Survole_ = false;
};

class Pair_Option : public Pair_Natif {
 public:
  /// Premiere: opens the group of options among which the arrow keys move.
  Pair_Option(Surface& Lieu, Option& Sienne, bool Premiere);
  void Actualiser(Propriete Quoi) override;
  void Commander(WORD Avis) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  SIZE Place_Texte() const override;

 private:
  void Actualiser_Valeur();
  void Aller(bool Avant);

  Option& Option_;
};
