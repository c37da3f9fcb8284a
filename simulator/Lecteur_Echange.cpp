// The exchange: judged, answered as the scenario wants, repeated once after 64.

#include <algorithm>
#include <utility>

#include "simulator/Lecteur_Simule.h"
#include "simulator/Lecture_Texte.h"

namespace {

constexpr std::int16_t Abandon_Materiel = 64;
constexpr std::int16_t Reponse_Trop_Petite = 16;
constexpr std::int16_t Erreur_Protocole = 512;

Cible Cible_De(Role_Trame Role) {
  return Role == Role_Trame::Demande ? Cible::Demande
         : Role == Role_Trame::Bloc  ? Cible::Bloc
                                     : Cible::Lecture;
}

/// What a scenario makes of the reader's own answer.
void Deformer(const Trame_Recue& Trame, const Effet& E, std::int16_t& Code, Octets& Donnees) {
  if (E.Refus || E.Technique || E.Reponse) {
    Code = 0;
    Donnees = E.Reponse     ? *E.Reponse
              : E.Technique ? Erreur_Technique_Lecteur(*E.Technique)
                            : Refus(Trame, *E.Refus);
  }
  if (E.Nature) {
    Donnees.resize(std::max<std::size_t>(Donnees.size(), 1));
    Donnees.front() = *E.Nature;
  }
  Code = E.Code.value_or(Code);
}

}  // namespace

bool Lecteur_Simule::Juger_Acces(std::int16_t Session, std::int16_t Nombre) {
  const bool Bonne_Session = Session_Ouverte_ && Session == Regles_.Session;
  if (!Bonne_Session) {
    Faute("échange hors session (numéro " + std::to_string(Session) + ")");
  }
  if (!Exclusivite_Tenue_) {
    Faute("échange sans exclusivité");
  }
  if (Nombre != 0) {
    Faute("argument numérique " + std::to_string(Nombre) + " au lieu de 0");
  }
  return Bonne_Session && Exclusivite_Tenue_;
}

void Lecteur_Simule::Juger_Tampons(const Trame_Recue& Trame, Vue_Octets Reponse,
                                   std::int32_t Longueur) {
  if (Trame.Role != Role_Trame::Inconnu && Longueur != Capacite_Voulue(Trame.Role)) {
    Faute("capacité de réponse " + std::to_string(Longueur) + " au lieu de " +
          std::to_string(Capacite_Voulue(Trame.Role)));
  }
  if (!std::all_of(Reponse.begin(), Reponse.end(),
                   [](std::uint8_t Octet) { return Octet == ' '; })) {
    Faute("tampon de réponse qui n'est pas rempli d'espaces");
  }
}

bool Lecteur_Simule::Juger_Trame(const Trame_Recue& Trame) {
  if (Trame.Role == Role_Trame::Inconnu) {
    Faute("trame inconnue");
    return false;
  }
  auto& Rang_Bloc = Compteurs_[static_cast<std::size_t>(Cible::Bloc)];
  ++Compteurs_[static_cast<std::size_t>(Cible_De(Trame.Role))];
  if (Trame.Role == Role_Trame::Demande) {
    Clore_Fichier();
    Rang_Bloc = 0;
  }
  return Trame.Role == Role_Trame::Lecture || Receveur_.Juger(Trame);
}

Lecteur_Simule::Resultat Lecteur_Simule::Reponse_Propre(const Trame_Recue& Trame, const Suivi& S) {
  // The last block of a kernel may be repeated after 64 although the restart has begun.
  if (Lectures_Muettes_ > 0 && !S.Livre) {
    Lectures_Muettes_ -= Trame.Role == Role_Trame::Lecture ? 1 : 0;
    return {Regles_.Code_Muet, {}};
  }
  if (Trame.Role == Role_Trame::Inconnu) {
    return {Erreur_Protocole, {}};
  }
  if (Trame.Role == Role_Trame::Lecture) {
    Octets Donnees = Regles_.Identite.Enregistrement();
    Donnees.insert(Donnees.begin(), Regles_.Octet_Etat);
    return {0, Donnees};
  }
  return {0, S.Irreprochable ? Accord(Trame, Regles_.Taille_Bloc) : Refus(Trame, Code_Usuel)};
}

void Lecteur_Simule::Ecrire(Resultat& R, const Effet& E, Tampon Reponse, std::int32_t& Longueur) {
  if (R.Code == 0 && R.Donnees.size() > Reponse.size() && !E.Reponse) {
    R.Code = Reponse_Trop_Petite;
  }
  if ((R.Code == 0 || E.Reponse) && !E.Vide) {
    const bool Ecourtee = E.Longueur && !E.Depuis_Capacite;
    R.Donnees.resize(Borner(Ecourtee ? *E.Longueur : INT32_MAX, R.Donnees.size()));
    Longueur = static_cast<std::int32_t>(R.Donnees.size());
    Recopier(R.Donnees, Reponse);
  } else {
    R.Donnees.clear();
  }
  if (E.Longueur) {
    Longueur = *E.Longueur + (E.Depuis_Capacite ? static_cast<std::int32_t>(Reponse.size()) : 0);
  }
}

Lecteur_Simule::Resultat Lecteur_Simule::Repondre(const Trame_Recue& Trame, const Effet& E,
                                                  Suivi& S, Tampon Reponse,
                                                  std::int32_t& Longueur) {
  auto R = S.Acces ? Reponse_Propre(Trame, S) : Resultat{Session_Inconnue, {}};
  Deformer(Trame, E, R.Code, R.Donnees);
  Ecrire(R, E, Reponse.first(Borner(Longueur, Reponse.size())), Longueur);
  const bool Refusee = (E.Refus || E.Technique) && !Vaut_Accord(Trame, R.Code, Reponse, Longueur);
  if (S.Acces && S.Irreprochable && !S.Livre && !Refusee && (R.Code == 0 || E.Livre)) {
    S.Livre = true;
    Garder(Trame);
  }
  return R;
}

void Lecteur_Simule::Tracer_Echange(const Suivi& S, const Resultat& R, std::int32_t Longueur) {
  if (Ecrire_Trace) {
    Tracer("Echange([" + std::to_string(S.Origine.size()) + "] " + Ecrire_Hexa(S.Origine, 17) +
           (S.Repetee ? ", répété) -> " : ") -> ") + std::to_string(R.Code) + " [" +
           std::to_string(Longueur) + "] " + Ecrire_Hexa(R.Donnees, 17));
  }
}

void Lecteur_Simule::Garder(const Trame_Recue& Trame) {
  if (Trame.Role != Role_Trame::Demande && Trame.Role != Role_Trame::Bloc) {
    return;
  }
  Receveur_.Recevoir(Trame);
  const auto& Fichier = Fichiers().back();
  if (Trame.Role == Role_Trame::Bloc && Fichier.Complet()) {
    Lectures_Muettes_ = Fichier.Noyau ? Regles_.Lectures_Muettes : 0;
    Regles_.Identite.Changer(Fichier.Noyau ? Regles_.Apres_Noyau : Regles_.Apres_Appli);
  }
}

void Lecteur_Simule::Terminer(const Trame_Recue& Trame, bool Accorde, Vue_Octets Reponse) {
  if (Trame.Role == Role_Trame::Inconnu) {
    return;
  }
  const auto Taille = Reponse.size() > 2 ? Reponse[2] : std::uint8_t{0};
  if (Receveur_.Conclure(Trame, Accorde, Taille)) {
    Clore_Fichier();
  }
}

Lecteur_Simule::Suivi Lecteur_Simule::Commencer(const Pret& Lent) {
  Suivi S;
  const auto Envoyee = Lent.Commande.first(Borner(Lent.Longueur_Commande, Lent.Commande.size()));
  S.Origine.assign(Envoyee.begin(), Envoyee.end());
  S.Capacite = Lent.Reponse.size();
  const auto Trame = Reconnaitre(S.Origine);
  Juger_Tampons(Trame, Lent.Reponse, Lent.Longueur_Reponse);
  S.Irreprochable = Juger_Trame(Trame);
  return S;
}

// The call after an answer 64. False: another command, which is an exchange of its own.
bool Lecteur_Simule::Juger_Reprise(const Suivi& Laisse, const Pret& Lent) {
  const bool Meme_Commande = Egaux(Lent.Commande, Laisse.Commande);
  // The library only knows as much of the reply buffer as it is lent.
  const auto Vue = std::min(Lent.Reponse.size(), Laisse.Reponse.size());
  if (!Meme_Commande || Lent.Longueur_Commande != Laisse.Longueur_Commande ||
      Lent.Longueur_Reponse != Laisse.Longueur_Reponse ||
      !Egaux(Lent.Reponse.first(Vue), Vue_Octets(Laisse.Reponse).first(Vue))) {
    Faute("échange non répété après 64, ou pas comme il avait été laissé");
  }
  return Meme_Commande;
}

void Lecteur_Simule::Suspendre(Suivi S, const Pret& Lent) {
  S.Repetee = true;
  S.Commande.assign(Lent.Commande.begin(), Lent.Commande.end());
  S.Longueur_Commande = Lent.Longueur_Commande;
  S.Reponse.assign(Lent.Reponse.begin(), Lent.Reponse.end());
  // The program lends no more than its buffer, whatever it was left.
  S.Longueur_Reponse =
      static_cast<std::int32_t>(Borner(Lent.Longueur_Reponse, Lent.Reponse.size()));
  Suspendu_ = std::move(S);
}

std::int16_t Lecteur_Simule::Echange(std::int16_t Session, std::int16_t Nombre_Fixe,
                                     Tampon Commande, std::int32_t& Longueur_Commande,
                                     Tampon Reponse, std::int32_t& Longueur_Reponse) {
  if (Rejeu_) {
    return Rejeu_->Echange(Session, Nombre_Fixe, Commande, Longueur_Commande, Reponse,
                           Longueur_Reponse);
  }
  auto Precedent = Entrer(Cible::Echange);
  const Pret Lent{Commande, Longueur_Commande, Reponse, Longueur_Reponse};
  if (Longueur_Commande != static_cast<std::int64_t>(Commande.size())) {
    Faute("longueur de commande " + std::to_string(Longueur_Commande) + " au lieu de " +
          std::to_string(Commande.size()));
  }
  Suivi S = Precedent && Juger_Reprise(*Precedent, Lent) ? *std::move(Precedent) : Commencer(Lent);
  S.Acces = Juger_Acces(Session, Nombre_Fixe);
  if (Attendre && Regles_.Delai_Ms > 0) {
    Attendre(Regles_.Delai_Ms);
  }
  const auto Trame = Reconnaitre(S.Origine);
  const auto E = Effet_Sur(Cible::Echange, Cible_De(Trame.Role));
  const auto R =
      Repondre(Trame, E, S, Reponse.first(std::min(S.Capacite, Reponse.size())), Longueur_Reponse);
  Tracer_Echange(S, R, Longueur_Reponse);
  if (E.Noms) {
    Recopier(*E.Noms, Commande);
  }
  if (R.Code == Abandon_Materiel && !S.Repetee) {
    Suspendre(std::move(S), Lent);
  } else {
    Terminer(Trame, Vaut_Accord(Trame, R.Code, Reponse, Longueur_Reponse), Reponse);
  }
  return R.Code;
}
