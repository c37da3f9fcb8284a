#pragma once
// What the operator, the reader and the PC could tell of a run: its facts in order, and the windows'
// peers, which see what the program shows. A peer knows of a change only what it was told; wherever
// the operator can look, what it knows must be what the model holds.

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "ui/Fenetres.h"

#ifndef RACINE
#define RACINE "."  // nobody looks at the windows there
#endif

inline std::vector<std::pair<Fenetre*, std::string>> Fenetres_Nommees(Fenetres& F) {
  return {{&F.FMain, "FMain"},
          {&F.FDossierING, "FDossierING"},
          {&F.FrmAnimCharg, "FrmAnimCharg"},
          {&F.FrmResultParam, "FrmResultParam"},
          {&F.frmAbout, "frmAbout"}};
}

/// What disposition.txt tells of a window's controls: for each, in its tab order, its name and all that follows.
inline const std::vector<std::string>& Lignes_Disposition(const std::string& Nom_Fenetre) {
  static const auto Toutes = [] {
    std::map<std::string, std::vector<std::string>> Lues;
    std::ifstream Fichier(RACINE "/tests/disposition.txt");
    for (std::string Nom, Ligne; Fichier >> Nom && std::getline(Fichier >> std::ws, Ligne);) Lues[Nom].push_back(Ligne);
    return Lues;
  }();
  return Toutes.at(Nom_Fenetre);
}

/// CR LF as ¶, a tab as →, LF and CR alone as ↓ and ←.
inline std::string Lisible(std::string_view Texte) {
  std::string Lu;
  for (std::size_t I = 0; I < Texte.size(); ++I) {
    const bool Fin = Texte.substr(I, 2) == "\r\n";
    const char C = Texte[I];
    Lu += Fin ? "¶" : C == '\t' ? "→" : C == '\n' ? "↓" : C == '\r' ? "←" : std::string(1, C);
    I += Fin ? 1 : 0;
  }
  return Lu;
}

/// Facts as a test writes them, one after another: a semicolon ends each, blanks or a line's end follow.
/// One a line, as Chronique gives them.
inline std::string Recit(std::string_view Ecrit) {
  std::string Faits;
  for (bool Debut = true; const char C : Ecrit) {
    if (Debut && (C == ' ' || C == '\n')) continue;
    Faits += (Debut = C == ';') ? '\n' : C;
  }
  return Faits;
}

/// The facts, one a line. One that comes again at once is counted ("lecture ×3"), and so is the time that
/// passes without any, from half a second on ("25 s").
class Chronique {
 public:
  void Noter(const std::string& Fait) {
    if (Muette) return;
    if (const auto Secondes = std::lround(std::exchange(Passe_, 0)); Secondes > 0)
      Ajouter(std::to_string(Secondes) + " s");
    Ajouter(Fait);
  }
  void Attendre(double Secondes) { Passe_ += Secondes; }
  /// Takes them all.
  std::string Prendre() {
    Clore();
    return std::exchange(Faits_, {});
  }
  std::size_t Nombre() const { return Nombre_; }
  bool Muette = false;

 private:
  void Ajouter(const std::string& Fait) {
    ++Nombre_;
    if (Fait != Dernier_) Clore();
    Dernier_ = Fait;
    ++Fois_;
  }
  void Clore() {
    if (Fois_ > 0) Faits_ += Dernier_ + (Fois_ > 1 ? " ×" + std::to_string(Fois_) : "") + "\n";
    Fois_ = 0;
  }
  std::string Faits_, Dernier_;
  std::size_t Nombre_ = 0;
  int Fois_ = 0;
  double Passe_ = 0;
};

struct Pannes {
  int Appels = 0;  // of those that may fail, and of the yields; none that tells the time or closes
  /// Called with each such call's name and its rank among them, before it has any effect; may throw.
  std::function<void(std::string_view Appel, int Rang)> Avant;
  void Passer(std::string_view Appel) {
    ++Appels;
    if (Avant) Avant(Appel, Appels);
  }
  Chronique Faits;
};

/// Goes through every handler of the program, up to the test.
struct Temoin_Trompe {};
inline void Exiger_Vu(bool Vrai, const std::string& Plainte) {
  if (Vrai) return;
  std::fprintf(stderr, "%s\n", Plainte.c_str());
  throw Temoin_Trompe();
}

/// A control's kind and its state, a text for each Propriete.
struct Lecture_Controle : Visiteur_Controles {
  using Etats = std::array<std::string, 8>;
  explicit Lecture_Controle(Controle& C) {
    De(Propriete::Texte) = "= " + Lisible(C.Texte());
    De(Propriete::Encre) = "encre" + (C.Encre() ? Couleur_Lisible(*C.Encre()) : std::string());
    De(Propriete::Visible) = C.Visible() ? "visible" : "caché";
    De(Propriete::Active) = C.Active() ? "actif" : "inactif";
    C.Accueillir(*this);
  }
  void Visiter(Barre_Progression& B) override {
    Genre = "barre", De(Propriete::Valeur) = std::to_string(B.Valeur()).substr(0, 7);
  }
  void Visiter(Bouton&) override { Genre = "bouton"; }
  void Visiter(Cadre&) override { Genre = "cadre"; }
  void Visiter(Champ_Texte& C) override { Genre = C.Combien() == Champ_Texte::Lignes::Une ? "champ" : "pane"; }
  void Visiter(Etiquette&) override { Genre = "etiquette"; }
  void Visiter(Image&) override { Genre = "image"; }
  void Visiter(Liste_Deroulante& L) override { Genre = "liste", Lire_Liste(L); }
  void Visiter(Liste_Lecteurs& L) override { Genre = "lecteurs", Lire_Liste(L); }
  void Visiter(Liste_Repertoires& L) override {
    Genre = "repertoires";
    for (const auto& Une : L.Lignes())
      De(Propriete::Contenu).append(static_cast<std::size_t>(Une.Niveau), '.') += Une.Nom + "|";
    De(Propriete::Choix) = std::to_string(L.Indice());
  }
  void Visiter(Option& O) override { Genre = "option", De(Propriete::Valeur) = O.Valeur() ? "choisi" : "libre"; }
  void Visiter(Trait&) override { Genre = "trait"; }

  std::string& De(Propriete Quoi) { return Vus.at(static_cast<std::size_t>(Quoi)); }
  static std::string Couleur_Lisible(Couleur C) {
    return " " + std::to_string(C.Rouge) + " " + std::to_string(C.Vert) + " " + std::to_string(C.Bleu);
  }

  std::string_view Genre;
  Etats Vus;

 private:
  void Lire_Liste(auto& L) {
    for (const auto& Entree : L.Entrees()) De(Propriete::Contenu) += Entree + "|";
    De(Propriete::Choix) = std::to_string(L.Indice());
  }
};

class Temoin_Controle : public Pair_Controle {
 public:
  Temoin_Controle(Pannes& P, std::string_view Nom, Controle& C)
      : Pannes_(P), Nom_(Nom), C_(C), Conception_(Lecture_Controle(C_).Vus) {}

  /// The control opens with its window: tells what is not as designed.
  void Naitre() {
    Ouvert_ = true;
    Vus_ = Conception_;
    for (std::size_t Quoi = 0; Quoi < Vus_.size(); ++Quoi) Voir(static_cast<Propriete>(Quoi));
    C_.Attacher(this);
  }
  void Mourir() {
    Verifier();
    Ouvert_ = false;
  }
  void Verifier() const {
    if (!Ouvert_) return;
    const auto Vrais = Lecture_Controle(C_).Vus;
    for (std::size_t I = 0; I < Vrais.size(); ++I) {
      Exiger_Vu(Vrais[I] == Vus_[I], Nom_ + " montre " + Vus_[I] + " et vaut " + Vrais[I]);
    }
  }
  void Actualiser(Propriete Quoi) override {
    Exiger_Vu(Ouvert_, Nom_ + " changé une fois fermé");
    Voir(Quoi);
    Pannes_.Passer("Actualiser");
  }
  void Repeindre() override {
    Verifier();
    Pannes_.Faits.Noter(Nom_ + " peint");
  }

 private:
  void Voir(Propriete Quoi) {
    std::string& Vu = Vus_.at(static_cast<std::size_t>(Quoi));
    const std::string Avant = std::exchange(Vu, Lecture_Controle(C_).De(Quoi));
    if (Quoi == Propriete::Contenu) return Voir(Propriete::Choix);  // filled anew, a list chooses anew
    if (Vu == Avant || Quoi == Propriete::Choix) return;
    const bool Suite = Avant.size() > 2 && Vu.starts_with(Avant);
    Pannes_.Faits.Noter(Nom_ + " " + (Suite ? "+ " + Vu.substr(Avant.size()) : Vu));
  }

  Pannes& Pannes_;
  const std::string Nom_;
  Controle& C_;
  const Lecture_Controle::Etats Conception_;
  Lecture_Controle::Etats Vus_;
  bool Ouvert_ = false;
};

class Temoin_Fenetre : public Pair_Fenetre {
 public:
  using Temoins = std::map<const Controle*, Temoin_Controle>;
  Temoin_Fenetre(Chronique& Faits, Temoins& Controles, std::string_view Nom, Fenetre& F)
      : Faits_(Faits), Controles_(Controles), Nom_(Nom), F_(F) {}

  void Naitre() {
    for (const Controle* Un : F_.Controles()) Controles_.at(Un).Naitre();
    Ouverte_ = A_Portee_ = true;
    Souris_ = Pointeur::Defaut;
    Actualiser(Propriete::Active);
    Actualiser(Propriete::Pointeur);
  }
  void Verifier() const {
    Exiger_Vu(!Ouverte_ || (A_Portee_ == F_.A_Portee() && Souris_ == F_.Souris()),
              Nom_ + " n'est pas comme elle se montre");
  }
  void Actualiser(Propriete Quoi) override {
    Exiger_Vu(Ouverte_, Nom_ + " changée une fois fermée");
    if (Quoi == Propriete::Active && std::exchange(A_Portee_, F_.A_Portee()) != A_Portee_)
      Faits_.Noter(Nom_ + (A_Portee_ ? " active" : " inactive"));
    if (Quoi == Propriete::Pointeur && std::exchange(Souris_, F_.Souris()) != Souris_) {
      Faits_.Noter(Souris_ == Pointeur::Sablier ? "sablier" : "flèche");
    }
  }
  void Repeindre() override { Faits_.Noter(Nom_ + " peinte"); }
  void Montrer() override { Faits_.Noter(Nom_ + " montrée"); }
  void Premier_Plan() override { Faits_.Noter(Nom_ + " devant"); }
  void Detruire() override {
    Faits_.Noter(Nom_ + " fermée");
    for (const Controle* Un : F_.Controles()) Controles_.at(Un).Mourir();
    Ouverte_ = false;
  }

 private:
  Chronique& Faits_;
  Temoins& Controles_;
  const std::string Nom_;
  Fenetre& F_;
  bool Ouverte_ = false, A_Portee_ = true;
  Pointeur Souris_ = Pointeur::Defaut;
};
