#include "ui/controles/Controle.h"

#include <utility>

Controle::Controle(Lieu_Controles& Maison, Cadre* Parent, int Numero, Position Place,
                   Conception&& Depart)
    : Maison_(Maison),
      Parent_(Parent),
      Numero_(Numero),
      Place_(Place),
      Depart_(std::move(Depart)),
      Etat_(Depart_) {
  Maison_.Controles_.push_back(this);
  if (Parent_ != nullptr) Parent_->Contenu_.push_back(this);
}

Controle::Controle(Lieu_Controles& Lieu, int Numero, Position Place, Conception Depart)
    : Controle(Lieu, nullptr, Numero, Place, std::move(Depart)) {}

Controle::Controle(Cadre& Lieu, int Numero, Position Place, Conception Depart)
    : Controle(Lieu.Maison_, &Lieu, Numero, Place, std::move(Depart)) {}

void Controle::Visible(bool Oui) {
  Etat_.Visible = Oui;
  Signaler(Propriete::Visible);
}

void Controle::Active(bool Oui) {
  Etat_.Active = Oui;
  Signaler(Propriete::Active);
}

void Controle::Encre(Couleur Nouvelle) {
  Etat_.Encre = Nouvelle;
  Signaler(Propriete::Encre);
}

void Controle::Repeindre() {
  if (Pair_ != nullptr) Pair_->Repeindre();
}

bool Controle::Accessible() const {
  const bool Cadre_Visible = Parent_ == nullptr || Parent_->Visible();
  return Visible() && Active() && Cadre_Visible && Maison_.A_Portee();
}

void Controle::Reinitialiser() {
  Etat_ = Depart_;
}

void Controle::Poser_Texte(std::string Nouveau) {
  Etat_.Texte = std::move(Nouveau);
  Signaler(Propriete::Texte);
}

void Controle::Signaler(Propriete Quoi) {
  if (Pair_ != nullptr) Pair_->Actualiser(Quoi);
}

void Declencher(const Evenement& Quoi) {
  if (!Quoi) return;
  const Evenement Copie = Quoi;
  Copie();
}
