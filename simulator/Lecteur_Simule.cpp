#include "simulator/Lecteur_Simule.h"

#include <algorithm>
#include <utility>

#include "simulator/Lecture_Texte.h"

namespace {

constexpr std::int16_t Abandon_Materiel = 64;
constexpr std::int16_t Reponse_Trop_Petite = 16;
constexpr std::int16_t Erreur_Protocole = 512;
constexpr std::int16_t Session_Inconnue = 4096;
constexpr std::int16_t LAD_Refuse = 8192;

/// The spellings that the program tries, in order, while the answer is LAD_Refuse.
constexpr std::array<std::string_view, 3> Orthographes_LAD = {"Log_SV", "LOG_SV", "log_SV"};

bool Egaux(Vue_Octets A, Vue_Octets B) {
  return std::equal(A.begin(), A.end(), B.begin(), B.end());
}

std::size_t Borner(std::int64_t Longueur, std::size_t Capacite) {
  return std::min(static_cast<std::size_t>(std::max<std::int64_t>(Longueur, 0)), Capacite);
}

void Recopier(const Octets& Source, Tampon Destination) {
  std::copy_n(Source.begin(), std::min(Source.size(), Destination.size()), Destination.begin());
}

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

std::string Texte(Vue_Octets Nom) {
  std::string Cite = "\"";
  Cite += Ecrire_Caracteres(Nom);
  return Cite += '"';
}

}  // namespace

Lecteur_Simule::Lecteur_Simule(Scenario Reglages)
    : Regles_(std::move(Reglages)),
      Receveur_(Regles_, [this](const std::string& Reproche) { Faute(Reproche); }) {}

void Lecteur_Simule::Faute(const std::string& Reproche) {
  Fautes_.push_back(Reproche);
  Tracer("FAUTE: " + Reproche);
}

void Lecteur_Simule::Tracer(const std::string& Ligne) {
  if (Ecrire_Trace) {
    Ecrire_Trace(Ligne);
  }
}

std::optional<Lecteur_Simule::Suivi> Lecteur_Simule::Entrer(Cible Operation) {
  auto Precedent = std::exchange(Suspendu_, std::nullopt);
  const int Rang = ++Compteurs_[static_cast<std::size_t>(Cible::Appel)];
  ++Compteurs_[static_cast<std::size_t>(Operation)];
  if (Avant_Appel) {
    Avant_Appel(Operation, Rang);
  }
  if (Precedent && Operation != Cible::Echange) {
    Faute("échange non répété après 64");
  }
  return Precedent;
}

Effet Lecteur_Simule::Effet_Sur(Cible Operation, std::optional<Cible> Genre) {
  for (auto& D : Regles_.Defauts) {
    const bool Vise = D.Vise == Cible::Appel || D.Vise == Operation || D.Vise == Genre;
    const bool Dans_Fichier = D.Fichier == 0 || D.Fichier == Nombre(Cible::Demande);
    if (Vise && Dans_Fichier && D.Reste > 0 && Nombre(D.Vise) >= D.Rang) {
      D.Reste -= D.Reste == Toujours ? 0 : 1;
      return D.Consequence;
    }
  }
  return {};
}

void Lecteur_Simule::Juger_Session(Vue_Octets Application, Vue_Octets LAD, std::size_t Essai) {
  static const Octets Nom_Voulu = Lire_Caracteres("Téléchargement");
  if (Essai == 0) {
    Noms_Changes_ = false;
  }
  if (!Noms_Changes_ && !Egaux(Application, Nom_Voulu)) {
    Faute("nom d'application " + Texte(Application));
  }
  const std::string Voulu(Orthographes_LAD[Essai]);
  if (!Egaux(LAD, Octets(Voulu.begin(), Voulu.end()))) {
    Faute("LAD " + Texte(LAD) + " au lieu de " + Voulu);
  }
}

std::int16_t Lecteur_Simule::OuvrirSession(Tampon Application, Tampon LAD, std::int16_t& Session,
                                           std::int16_t& Info) {
  const auto Essai = std::exchange(Essai_LAD_, 0);
  Entrer(Cible::OuvrirSession);
  Juger_Session(Application, LAD, Essai);
  const auto E = Effet_Sur(Cible::OuvrirSession);
  const bool Connu = Egaux(LAD, Octets(Regles_.LAD.begin(), Regles_.LAD.end()));
  const std::int16_t Code = E.Code.value_or(Connu ? 0 : LAD_Refuse);
  Tracer("OuvrirSession(" + Texte(Application) + ", " + Texte(LAD) + ") -> " +
         std::to_string(Code));
  if (Code == 0) {
    Clore_Fichier();
    Receveur_.Nouvelle_Session();
    Session_Ouverte_ = true;
    Exclusivite_Tenue_ = Liberation_Essayee_ = false;
    Session = Regles_.Session;
    Info = Regles_.Info;
  }
  if (E.Noms) {
    Noms_Changes_ = true;
    Recopier(*E.Noms, Application);
    Recopier(*E.Noms, LAD);
  }
  LAD_Session_.assign(LAD.begin(), LAD.end());
  Essai_LAD_ = Code == LAD_Refuse && Essai + 1 < Orthographes_LAD.size() ? Essai + 1 : 0;
  return Code;
}

std::int16_t Lecteur_Simule::DebutExclusivite(Tampon Exclusivite_Texte, Tampon Application,
                                              Tampon LAD, std::int16_t& Exclusivite) {
  Entrer(Cible::DebutExclusivite);
  const std::string Voulu = std::to_string(Regles_.Session) + ":1";
  if (!Session_Ouverte_ || Exclusivite_Tenue_) {
    Faute("exclusivité demandée hors de son moment");
  }
  if (!Egaux(Exclusivite_Texte, Octets(Voulu.begin(), Voulu.end()))) {
    Faute("texte d'exclusivité " + Texte(Exclusivite_Texte) + " au lieu de " + Voulu);
  }
  if (!Egaux(LAD, LAD_Session_)) {
    Faute("exclusivité demandée sur un autre LAD que la session");
  }
  const auto E = Effet_Sur(Cible::DebutExclusivite);
  const std::int16_t Code = E.Code.value_or(Session_Ouverte_ ? 0 : Session_Inconnue);
  Tracer("DebutExclusivite(" + Texte(Exclusivite_Texte) + ", " + Texte(Application) + ", " +
         Texte(LAD) + ") -> " + std::to_string(Code));
  if (Code == 0) {
    Exclusivite_Tenue_ = true;
    Exclusivite = Regles_.Exclusivite;
  }
  if (E.Noms) {
    for (const auto Nom : {Exclusivite_Texte, Application, LAD}) {
      Recopier(*E.Noms, Nom);
    }
  }
  return Code;
}

std::int16_t Lecteur_Simule::FinExclusivite(std::int16_t Exclusivite) {
  Entrer(Cible::FinExclusivite);
  if (!Exclusivite_Tenue_ || Exclusivite != Regles_.Exclusivite) {
    Faute("libération d'une exclusivité qui n'est pas tenue");
  }
  Liberation_Essayee_ = true;
  const auto Code =
      Effet_Sur(Cible::FinExclusivite).Code.value_or(Exclusivite_Tenue_ ? 0 : Session_Inconnue);
  Tracer("FinExclusivite(" + std::to_string(Exclusivite) + ") -> " + std::to_string(Code));
  Exclusivite_Tenue_ = Exclusivite_Tenue_ && Code != 0;
  return Code;
}

std::int16_t Lecteur_Simule::FermerSession(std::int16_t Session, std::int16_t& Exclusivite) {
  Entrer(Cible::FermerSession);
  if (!Session_Ouverte_ || Session != Regles_.Session) {
    Faute("fermeture d'une session qui n'est pas ouverte");
  }
  if (!Liberation_Essayee_ || Exclusivite != Regles_.Exclusivite) {
    Faute("fermeture sans avoir libéré l'exclusivité");
  }
  const auto Code =
      Effet_Sur(Cible::FermerSession).Code.value_or(Session_Ouverte_ ? 0 : Session_Inconnue);
  Tracer("FermerSession(" + std::to_string(Session) + ", " + std::to_string(Exclusivite) + ") -> " +
         std::to_string(Code));
  Clore_Fichier();
  if (Code == 0) {
    Session_Ouverte_ = Exclusivite_Tenue_ = false;
  }
  return Code;
}

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
  Receveur_.Conclure(Trame, Accorde, Reponse.size() > 2 ? Reponse[2] : std::uint8_t{0});
  if (Trame.Genre != Role::Lecture && Accorde && Fichiers().back().Complet()) {
    Clore_Fichier();
  }
}

std::int16_t Lecteur_Simule::Echange(std::int16_t Session, std::int16_t Nombre_Fixe,
                                     Tampon Commande, std::int32_t& Longueur_Commande,
                                     Tampon Reponse, std::int32_t& Longueur_Reponse) {
  const auto Precedent = Entrer(Cible::Echange);
  const auto Envoyee = Vue_Octets(Commande).first(Borner(Longueur_Commande, Commande.size()));
  if (Longueur_Commande != static_cast<std::int64_t>(Envoyee.size())) {
    Faute("longueur de commande " + std::to_string(Longueur_Commande) + " hors du tampon");
  }
  Suivi S;
  S.Repetee = Precedent && Egaux(Envoyee, Precedent->Laissee);
  if (Precedent && (!S.Repetee || Longueur_Reponse != Precedent->Longueur_Reponse)) {
    Faute("échange non répété après 64, ou pas comme il avait été laissé");
  }
  if (S.Repetee) {
    S = *Precedent;
    S.Repetee = true;
  } else {
    S.Origine.assign(Envoyee.begin(), Envoyee.end());
    S.Capacite = Reponse.size();
  }
  const auto Trame = Reconnaitre(S.Origine);
  if (!S.Repetee) {
    Juger_Tampons(Trame, Reponse, Longueur_Reponse);
    S.Irreprochable = Juger_Trame(Trame);
  }
  S.Acces = Juger_Acces(Session, Nombre_Fixe);
  if (Attendre && Regles_.Delai_Ms > 0) {
    Attendre(Regles_.Delai_Ms);
  }
  const auto E = Effet_Sur(Cible::Echange, Cible_De(Trame.Genre));
  const auto R =
      Repondre(Trame, E, S, Reponse.first(Borner(S.Capacite, Reponse.size())), Longueur_Reponse);
  Tracer_Echange(S, R, Longueur_Reponse);
  if (E.Noms) {
    Recopier(*E.Noms, Commande);
  }
  if (R.Code == Abandon_Materiel && !S.Repetee) {
    S.Laissee.assign(Envoyee.begin(), Envoyee.end());
    S.Longueur_Reponse = Longueur_Reponse;
    Suspendu_ = std::move(S);
  } else {
    Terminer(Trame, Vaut_Accord(Trame, R.Code, Reponse, Longueur_Reponse), Reponse);
  }
  return R.Code;
}

void Lecteur_Simule::Clore_Fichier() {
  if (Fichiers_Clos_ == Fichiers().size()) {
    return;
  }
  Fichiers_Clos_ = Fichiers().size();
  const auto& Fichier = Fichiers().back();
  if (Ecrire_Trace) {
    const bool Premiere = Fichier.Famille == Famille_Trames::Telechargement;
    Tracer("FICHIER " + std::to_string(Fichiers_Clos_) + ": " +
           (Fichier.Noyau ? "noyau" : "application") + ", famille " +
           (Premiere ? "Telechargement" : "Chargement") + ", annoncé " +
           std::to_string(Fichier.Longueur) + ", reçu " + std::to_string(Fichier.Contenu.size()) +
           (Fichier.Complet() ? ", complet" : ", INCOMPLET"));
  }
  if (Fichier_Clos) {
    Fichier_Clos(Fichier, Fichiers_Clos_);
  }
}

void Lecteur_Simule::Rallumer() {
  Clore_Fichier();
  Receveur_.Nouvelle_Session();
  Suspendu_.reset();
  Essai_LAD_ = 0;
  Lectures_Muettes_ = 0;
  Session_Ouverte_ = Exclusivite_Tenue_ = Liberation_Essayee_ = false;
}
