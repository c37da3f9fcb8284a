// The exchange: judged, answered as the scenario wants, repeated once after 64.

#include <algorithm>
#include <utility>

#include "simulator/Lecteur_Simule.h"
#include "simulator/Lecture_Texte.h"

namespace {

constexpr std::int16_t Abandon_Materiel = 64;
constexpr std::int16_t Reponse_Trop_Petite = 16;
constexpr std::int16_t Erreur_Protocole = 512;
constexpr std::int16_t Session_Inconnue = 4096;

Cible Cible_De(Role Genre) {
  return Genre == Role::Demande ? Cible::Demande
         : Genre == Role::Bloc  ? Cible::Bloc
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
  if (Trame.Genre != Role::Inconnu && Longueur != Capacite_Voulue(Trame.Genre)) {
    Faute("capacité de réponse " + std::to_string(Longueur) + " au lieu de " +
          std::to_string(Capacite_Voulue(Trame.Genre)));
  }
  if (!std::all_of(Reponse.begin(), Reponse.end(),
                   [](std::uint8_t Octet) { return Octet == ' '; })) {
    Faute("tampon de réponse qui n'est pas rempli d'espaces");
  }
}

bool Lecteur_Simule::Juger_Trame(const Trame_Recue& Trame) {
  if (Trame.Genre == Role::Inconnu) {
    Faute("trame inconnue");
    return false;
  }
  auto& Rang_Bloc = Compteurs_[static_cast<std::size_t>(Cible::Bloc)];
  ++Compteurs_[static_cast<std::size_t>(Cible_De(Trame.Genre))];
  if (Trame.Genre == Role::Demande) {
    Clore_Fichier();
    Rang_Bloc = 0;
  }
  return Trame.Genre == Role::Lecture || Receveur_.Juger(Trame);
}

Lecteur_Simule::Resultat Lecteur_Simule::Reponse_Propre(const Trame_Recue& Trame, const Suivi& S) {
  // The last block of a kernel may be repeated after 64 although the restart has begun.
  if (Lectures_Muettes_ > 0 && !S.Livre) {
    Lectures_Muettes_ -= Trame.Genre == Role::Lecture ? 1 : 0;
    return {Regles_.Code_Muet, {}};
  }
  if (Trame.Genre == Role::Inconnu) {
    return {Erreur_Protocole, {}};
  }
  if (Trame.Genre == Role::Lecture) {
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
  if (R.Code == 0 && !E.Vide) {
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
  if (Trame.Genre != Role::Demande && Trame.Genre != Role::Bloc) {
    return;
  }
  Receveur_.Recevoir(Trame);
  const auto& Fichier = Fichiers().back();
  if (Trame.Genre == Role::Bloc && Fichier.Complet()) {
    Lectures_Muettes_ = Fichier.Noyau ? Regles_.Lectures_Muettes : 0;
    Regles_.Identite.Changer(Fichier.Noyau ? Regles_.Apres_Noyau : Regles_.Apres_Appli);
  }
}

void Lecteur_Simule::Terminer(const Trame_Recue& Trame, bool Accorde, Vue_Octets Reponse) {
  if (Trame.Genre == Role::Inconnu) {
    return;
  }
  const auto Taille = Reponse.size() > 2 ? Reponse[2] : std::uint8_t{0};
  if (Receveur_.Conclure(Trame, Accorde, Taille)) {
    Clore_Fichier();
  }
}

Lecteur_Simule::Suivi Lecteur_Simule::Suivre(const std::optional<Suivi>& Precedent,
                                             Vue_Octets Envoyee, Vue_Octets Reponse,
                                             std::int32_t Longueur) {
  const bool Repetee = Precedent && Egaux(Envoyee, Precedent->Laissee);
  if (Precedent && (!Repetee || Longueur != Precedent->Longueur_Reponse)) {
    Faute("échange non répété après 64, ou pas comme il avait été laissé");
  }
  if (Repetee) {
    Suivi S = *Precedent;
    S.Repetee = true;
    return S;
  }
  Suivi S;
  S.Origine.assign(Envoyee.begin(), Envoyee.end());
  S.Capacite = Reponse.size();
  const auto Trame = Reconnaitre(S.Origine);
  Juger_Tampons(Trame, Reponse, Longueur);
  S.Irreprochable = Juger_Trame(Trame);
  return S;
}

std::int16_t Lecteur_Simule::Echange(std::int16_t Session, std::int16_t Nombre_Fixe,
                                     Tampon Commande, std::int32_t& Longueur_Commande,
                                     Tampon Reponse, std::int32_t& Longueur_Reponse) {
  const auto Precedent = Entrer(Cible::Echange);
  const auto Envoyee = Vue_Octets(Commande).first(Borner(Longueur_Commande, Commande.size()));
  if (Longueur_Commande != static_cast<std::int64_t>(Envoyee.size())) {
    Faute("longueur de commande " + std::to_string(Longueur_Commande) + " hors du tampon");
  }
  auto S = Suivre(Precedent, Envoyee, Reponse, Longueur_Reponse);
  S.Acces = Juger_Acces(Session, Nombre_Fixe);
  if (Attendre && Regles_.Delai_Ms > 0) {
    Attendre(Regles_.Delai_Ms);
  }
  const auto Trame = Reconnaitre(S.Origine);
  const auto E = Effet_Sur(Cible::Echange, Cible_De(Trame.Genre));
  const auto Prete = Reponse.first(std::min(S.Capacite, Reponse.size()));
  const auto R = Repondre(Trame, E, S, Prete, Longueur_Reponse);
  Tracer_Echange(S, R, Longueur_Reponse);
  if (E.Noms) {
    Recopier(*E.Noms, Commande);
  }
  if (R.Code == Abandon_Materiel && !S.Repetee) {
    S.Laissee.assign(Envoyee.begin(), Envoyee.end());
    // The program lends no more than its buffer, whatever it was left.
    S.Longueur_Reponse = static_cast<std::int32_t>(Borner(Longueur_Reponse, Reponse.size()));
    Suspendu_ = std::move(S);
  } else {
    Terminer(Trame, Vaut_Accord(Trame, R.Code, Reponse, Longueur_Reponse), Reponse);
  }
  return R.Code;
}
