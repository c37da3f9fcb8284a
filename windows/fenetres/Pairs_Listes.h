#pragma once
// The native lists: the drop-down ones of the selections and of the drives, and the directory tree.

#include "ui/controles/Listes.h"
#include "windows/fenetres/Dessins.h"
#include "windows/fenetres/Pair_Natif.h"

/// What the two drop-down lists share.
class Pair_Deroulant : public Pair_Natif {
 public:
  using Pair_Natif::Pair_Natif;
  void Disposer() override;
  void Actualiser(Propriete Quoi) override;

 protected:
  /// The text is the selected entry's.
  void Actualiser_Texte() override;
  virtual const std::vector<std::string>& Entrees() const = 0;
  virtual int Indice() const = 0;

  void Actualiser_Contenu();
  void Actualiser_Choix();
  void Effacer_Surbrillance();
  /// Index of the entry that the operator selected.
  int Indice_Natif() const { return static_cast<int>(Envoyer(CB_GETCURSEL)); }
  /// Room for the longest entry.
  void Elargir();

 private:
  std::vector<std::string> Montrees_;  // entries of the native list
};

class Pair_Liste_Deroulante : public Pair_Deroulant {
 public:
  Pair_Liste_Deroulante(Surface& Lieu, Liste_Deroulante& Sienne);
  void Commander(WORD Avis) override;

 protected:
  const std::vector<std::string>& Entrees() const override { return Liste_.Entrees(); }
  int Indice() const override { return Liste_.Indice(); }

 private:
  Liste_Deroulante& Liste_;
};

class Pair_Lecteurs : public Pair_Deroulant {
 public:
  Pair_Lecteurs(Surface& Lieu, Liste_Lecteurs& Sienne);
  void Commander(WORD Avis) override;

 protected:
  const std::vector<std::string>& Entrees() const override { return Liste_.Entrees(); }
  int Indice() const override { return Liste_.Indice(); }

 private:
  Liste_Lecteurs& Liste_;
};

class Pair_Repertoires : public Pair_Natif {
 public:
  Pair_Repertoires(Surface& Lieu, Liste_Repertoires& Sienne);
  void Disposer() override;
  void Actualiser(Propriete Quoi) override;
  void Commander(WORD Avis) override;
  void Dessiner_Article(const DRAWITEMSTRUCT& Demande) override;

 protected:
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  void Actualiser_Texte() override;

 private:
  void Actualiser_Contenu();
  void Ouvrir();
  int Retrait(int Niveau) const;

  Liste_Repertoires& Liste_;
  Image_Argb Dessin_;
};
