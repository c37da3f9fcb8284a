#include "journal/Ecran_Journalise.h"

#include <algorithm>
#include <utility>

#include "platform/Texte.h"

namespace {

std::string_view Mot_De(Reponse Donnee) {
  switch (Donnee) {
    case Reponse::Ok:
      return "ok";
    case Reponse::Oui:
      return "oui";
    case Reponse::Non:
      return "non";
  }
  return {};
}

}  // namespace

Pair_Fenetre* Ecran_Journalise::Creer(Fenetre& Modele) {
  Journal_.Ecrire("FENETRE", Ligne_Journal("ouverte").Texte("titre", Modele.Depart().Titre));
  if (Suivies_.insert(&Modele).second) Suivre(Modele);
  return Vrai_.Creer(Modele);
}

// A model lives as long as the program: what the journal wants to know joins its handlers once.
void Ecran_Journalise::Suivre(Fenetre& Modele) {
  Modele.Dechargement = [this, &Modele, Suite = Modele.Dechargement] {
    Journal_.Ecrire("FENETRE", Ligne_Journal("fermee").Texte("titre", Modele.Depart().Titre));
    Declencher(Suite);
  };
  for (Controle* Un : Modele.Controles()) {
    auto* const Volet = dynamic_cast<Champ_Texte*>(Un);
    if (Volet == nullptr || Volet->Combien() != Champ_Texte::Lignes::Plusieurs) continue;
    Volet->Changement = [this, Volet] { Noter_Volet(*Volet); };  // no procedure listens to it
  }
}

void Ecran_Journalise::Noter_Volet(const Champ_Texte& Volet) {
  std::string& Vu = Vus_[&Volet];
  std::string_view Ajout = Volet.Texte();
  if (Ajout.starts_with(Vu)) {
    Ajout.remove_prefix(Vu.size());
  } else {
    Journal_.Ecrire("VOLET", Ligne_Journal("efface"));
  }
  while (!Ajout.empty()) {
    const std::size_t Fin = std::min(Ajout.find(Retour_Ligne), Ajout.size());
    const std::string_view Ligne = Ajout.substr(0, Fin);
    if (!Ligne.empty()) Journal_.Ecrire("VOLET", Ligne_Journal().Texte("texte", Ligne));
    Ajout.remove_prefix(std::min(Fin + Retour_Ligne.size(), Ajout.size()));
  }
  Vu = Volet.Texte();
}

Reponse Ecran_Journalise::Boite_Message(std::string_view Texte, Boutons Choix, Icone Dessin,
                                        std::string_view Titre) {
  Journal_.Ecrire("BOITE", Ligne_Journal("ouverte")
                               .Texte("titre", Titre)
                               .Texte("texte", Texte)
                               .Mot("boutons", Choix == Boutons::Ok ? "ok" : "oui_non"));
  Journal_.Assurer();
  const Reponse Donnee = Vrai_.Boite_Message(Texte, Choix, Dessin, Titre);
  Journal_.Ecrire("BOITE", Ligne_Journal("fermee").Mot("reponse", Mot_De(Donnee)));
  return Donnee;
}

void Ecran_Journalise::Traiter_Evenements(std::chrono::milliseconds Attente) {
  if (Journal_.Perdu() && !std::exchange(Perte_Dite_, true)) {
    Vrai_.Boite_Message(
        "Le journal ne peut plus être écrit : disque plein ou retiré."
        "\r\nLe programme continue sans journal.",
        Boutons::Ok, Icone::Exclamation, "Pavorin");
  }
  Vrai_.Traiter_Evenements(Attente);
}

void Ecran_Journalise::Quitter() {
  Journal_.Ecrire("FIN", Ligne_Journal("quitter"));
  Journal_.Assurer();
  while (true) Vrai_.Quitter();  // the compiler does not see that a virtual call never returns
}
