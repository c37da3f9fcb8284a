#include "journal/Poste_Journalise.h"

#include <cstdio>

namespace {

// Digits with leading zeros.
std::string Chiffres(int Valeur, int Nombre) {
  char Ecrits[16];
  std::snprintf(Ecrits, sizeof Ecrits, "%0*d", Nombre, Valeur);
  return Ecrits;
}

std::string Chemin_Du_Journal(std::string Repertoire, const Instant& I) {
  if (!Repertoire.ends_with('\\')) Repertoire += '\\';
  return Repertoire + "Pavorin-" + Chiffres(I.Annee, 4) + Chiffres(I.Mois, 2) +
         Chiffres(I.Jour, 2) + "-" + Chiffres(I.Heure, 2) + Chiffres(I.Minute, 2) +
         Chiffres(I.Seconde, 2) + ".journal";
}

std::string Date(const Instant& I) {
  return Chiffres(I.Annee, 4) + "-" + Chiffres(I.Mois, 2) + "-" + Chiffres(I.Jour, 2);
}

}  // namespace

Poste_Journalise::Poste_Journalise(const Machine& Vrai, Releve_Poste& Releve,
                                   std::string_view Repertoire)
    : Poste_Journalise(Vrai, Releve, Repertoire, Releve.Maintenant()) {}

Poste_Journalise::Poste_Journalise(const Machine& Vrai, Releve_Poste& Releve,
                                   std::string_view Repertoire, const Instant& Depart)
    : Journal_(
          Releve.Creer_Journal(Chemin_Du_Journal(
              Repertoire.empty() ? Vrai.Disque.Repertoire_Programme() : std::string(Repertoire),
              Depart)),
          Vrai.Temps, Depart),
      Galss_(Vrai.Galss, Journal_, Releve),
      Processus_(Vrai.Processus, Journal_, Releve),
      Profil_(Vrai.Profil, Journal_, Releve),
      Disque_(Vrai.Disque, Journal_),
      Serie_(Vrai.Serie, Journal_),
      Temps_(Vrai.Temps),
      Ecran_(Vrai.Ecran, Journal_),
      Erreurs_([this](const Erreur& Nommee) { Noter_Erreur(Nommee); }) {
  Journal_.Ecrire("POSTE", Ligne_Journal().Texte("date", Date(Depart)));
  for (const auto& [Nom, Valeur] : Releve.Poste()) {
    Journal_.Ecrire("POSTE", Ligne_Journal().Texte(Nom, Valeur));
  }
  Processus_.Lister();
  Journal_.Assurer();
}

Machine Poste_Journalise::Poste() {
  return {Galss_, Processus_, Profil_, Disque_, Serie_, Temps_, Ecran_};
}

void Poste_Journalise::Noter_Erreur(const Erreur& Nommee) {
  Ligne_Journal Ligne;
  Ligne.Nombre("numero", Nommee.Numero()).Texte("description", Nommee.Description());
  Journal_.Ecrire("ERREUR", Ligne);
  Journal_.Assurer();
}

std::unique_ptr<Poste_Journalise> Journaliser(const Machine& Vrai, Releve_Poste& Releve,
                                              std::string_view Repertoire, std::string& Avis) {
  try {
    return std::make_unique<Poste_Journalise>(Vrai, Releve, Repertoire);
  } catch (const std::exception&) {
    Avis = "Le journal demandé ne peut pas être écrit :\r\n" + Erreur_En_Cours().Description() +
           "\r\nLe programme continue sans journal.";
    return nullptr;
  }
}
