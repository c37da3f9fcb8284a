#include "simulator/Lecteur_Simule.h"

#include <algorithm>
#include <utility>

#include "simulator/Lecture_Texte.h"

namespace {

constexpr std::int16_t LAD_Refuse = 8192;

/// The spellings that the program tries, in order, while the answer is LAD_Refuse.
constexpr std::array<std::string_view, 3> Orthographes_LAD = {"Log_SV", "LOG_SV", "log_SV"};

std::string Texte(Vue_Octets Nom) {
  std::string Cite = "\"";
  Cite += Ecrire_Caracteres(Nom);
  return Cite += '"';
}

/// A name as a C library reads it.
Octets Jusqu_Au_Zero(Vue_Octets Nom) {
  return {Nom.begin(), std::find(Nom.begin(), Nom.end(), 0)};
}

}  // namespace

Lecteur_Simule::Lecteur_Simule(Scenario Reglages)
    : Regles_(std::move(Reglages)),
      Receveur_(Regles_, [this](const std::string& Reproche) { Faute(Reproche); }) {
  if (Regles_.Rejeu) {
    Rejeu_.emplace(Regles_.Rejeu->Appels, Regles_.Contenu, Suites_Rejeu());
  }
}

Rejeu::Accroches Lecteur_Simule::Suites_Rejeu() {
  return {.Faute = [this](const std::string& Reproche) { Faute(Reproche); },
          .Attendre =
              [this](int Millisecondes) {
                if (Attendre && Regles_.Durees) {
                  Attendre(Millisecondes);
                }
              },
          .Lever =
              [this](int Numero, const std::string& Description) {
                Tracer("REJEU: erreur " + std::to_string(Numero) + " : " + Description);
                if (Lever) {
                  Lever(Numero, Description);
                }
              }};
}

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

Effet Lecteur_Simule::Effet_Sur(Cible Operation, std::optional<Cible> Role) {
  for (auto& D : Regles_.Defauts) {
    const bool Vise = D.Vise == Cible::Appel || D.Vise == Operation || D.Vise == Role;
    const bool Dans_Fichier = D.Fichier == 0 || D.Fichier == Nombre(Cible::Demande);
    if (Vise && Dans_Fichier && D.Reste > 0 && Nombre(D.Vise) >= D.Rang) {
      D.Reste -= D.Reste == Toujours ? 0 : 1;
      return D.Consequence;
    }
  }
  return {};
}

// From try to try the application name goes on as the reader left it; the LAD is spelled anew.
void Lecteur_Simule::Juger_Session(Vue_Octets Application, Vue_Octets LAD, std::size_t Essai) {
  static const Octets Nom_Voulu = Lire_Caracteres("Téléchargement");
  if (Jusqu_Au_Zero(Application) != (Essai == 0 ? Nom_Voulu : Application_Laissee_)) {
    Faute("nom d'application " + Texte(Application));
  }
  const std::string Voulu(Orthographes_LAD[Essai]);
  if (!Egaux(LAD, Octets(Voulu.begin(), Voulu.end()))) {
    Faute("LAD " + Texte(LAD) + " au lieu de " + Voulu);
  }
}

std::int16_t Lecteur_Simule::OuvrirSession(Tampon Application, Tampon LAD, std::int16_t& Session,
                                           std::int16_t& Info) {
  if (Rejeu_) {
    return Rejeu_->OuvrirSession(Application, LAD, Session, Info);
  }
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
    Recopier(*E.Noms, Application);
    Recopier(*E.Noms, LAD);
  }
  Application_Laissee_ = Jusqu_Au_Zero(Application);
  LAD_Laisse_ = Jusqu_Au_Zero(LAD);
  Essai_LAD_ = Code == LAD_Refuse && Essai + 1 < Orthographes_LAD.size() ? Essai + 1 : 0;
  return Code;
}

std::int16_t Lecteur_Simule::DebutExclusivite(Tampon Exclusivite_Texte, Tampon Application,
                                              Tampon LAD, std::int16_t& Exclusivite) {
  if (Rejeu_) {
    return Rejeu_->DebutExclusivite(Exclusivite_Texte, Application, LAD, Exclusivite);
  }
  Entrer(Cible::DebutExclusivite);
  const std::string Voulu = std::to_string(Regles_.Session) + ":1";
  if (!Session_Ouverte_ || Exclusivite_Tenue_) {
    Faute("exclusivité demandée hors de son moment");
  }
  if (!Egaux(Exclusivite_Texte, Octets(Voulu.begin(), Voulu.end()))) {
    Faute("texte d'exclusivité " + Texte(Exclusivite_Texte) + " au lieu de " + Voulu);
  }
  if (Jusqu_Au_Zero(Application) != Application_Laissee_ || Jusqu_Au_Zero(LAD) != LAD_Laisse_) {
    Faute("exclusivité demandée sous d'autres noms que la session");
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
  if (Rejeu_) {
    return Rejeu_->FinExclusivite(Exclusivite);
  }
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
  if (Rejeu_) {
    return Rejeu_->FermerSession(Session, Exclusivite);
  }
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
