#pragma once
// A reader behind the five GALSS operations. It answers as its scenario says, judges strictly what
// the program sends, keeps every file it receives, and knows nothing of the program's own code.

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "simulator/Receveur.h"
#include "simulator/Rejeu.h"
#include "simulator/Scenario.h"
#include "simulator/Tampon.h"

/// What the library answers to whatever needs an open session when there is none.
inline constexpr std::int16_t Session_Inconnue = 4096;

class Lecteur_Simule {
 public:
  explicit Lecteur_Simule(Scenario Reglages = {});
  Lecteur_Simule(const Lecteur_Simule&) = delete;
  Lecteur_Simule& operator=(const Lecteur_Simule&) = delete;

  /// Hooks, all optional. Avant_Appel: operation and rank among all calls (from 1); may throw, the
  /// call is then counted and has no other effect. Attendre: milliseconds before an answer.
  /// Ecrire_Trace: one line, UTF-8. Fichier_Clos: a file, complete or given up, and its rank.
  std::function<void(Cible Operation, int Rang)> Avant_Appel;
  std::function<void(int Millisecondes)> Attendre;
  /// Raises again what a journal recorded instead of an answer; without it the call answers 1.
  std::function<void(int Numero, const std::string& Description)> Lever;
  std::function<void(const std::string& Ligne)> Ecrire_Trace;
  std::function<void(const Fichier_Recu& Fichier, std::size_t Rang)> Fichier_Clos;

  /// The five operations; each returns its 16-bit result code. Names come without their
  /// terminating zero.
  std::int16_t OuvrirSession(Tampon Application, Tampon LAD, std::int16_t& Session,
                             std::int16_t& Info);
  std::int16_t DebutExclusivite(Tampon Texte, Tampon Application, Tampon LAD,
                                std::int16_t& Exclusivite);
  std::int16_t Echange(std::int16_t Session, std::int16_t Nombre, Tampon Commande,
                       std::int32_t& Longueur_Commande, Tampon Reponse,
                       std::int32_t& Longueur_Reponse);
  std::int16_t FinExclusivite(std::int16_t Exclusivite);
  std::int16_t FermerSession(std::int16_t Session, std::int16_t& Exclusivite);

  /// Calls of a replayed journal that were not asked for.
  std::size_t Restants() const { return Rejeu_ ? Rejeu_->Restants() : 0; }

  /// Off and on again: no session, no restart under way; what is installed stays.
  void Rallumer();
  /// From now on every answer is the reader's own.
  void Oublier_Defauts() { Regles_.Defauts.clear(); }
  /// Hands the file being received to Fichier_Clos, as incomplete as it may be.
  void Clore_Fichier();

  /// What the program did wrong, in French, in order.
  const std::vector<std::string>& Fautes() const { return Fautes_; }
  const std::vector<Fichier_Recu>& Fichiers() const { return Receveur_.Fichiers(); }
  /// Calls of an operation (or of any); exchanges of a role, a repeat after 64 not counted again
  /// (blocks since the last load request).
  int Nombre(Cible Compte) const { return Compteurs_[static_cast<std::size_t>(Compte)]; }
  bool Session_Ouverte() const { return Session_Ouverte_; }
  bool Exclusivite_Tenue() const { return Exclusivite_Tenue_; }
  const Identification& Identite() const { return Regles_.Identite; }

 private:
  /// What one call of Echange lends.
  struct Pret {
    Tampon Commande;
    std::int32_t& Longueur_Commande;
    Tampon Reponse;
    std::int32_t& Longueur_Reponse;
  };
  /// One exchange: one call, or two when the first is answered 64. It is judged, counted and taken
  /// by the reader once, whichever of the calls brings it through; the last answer ends it.
  struct Suivi {
    Octets Origine;              // the frame as first sent: what is judged and taken
    std::size_t Capacite = 0;    // of the reply buffer first lent
    bool Irreprochable = false;  // the frame is right
    bool Acces = false;          // so are session and exclusivity
    bool Livre = false;          // the reader has taken it
    bool Repetee = false;
    // As the first call left them, which is how the second must lend them.
    Octets Commande, Reponse;
    std::int32_t Longueur_Commande = 0, Longueur_Reponse = 0;
  };
  struct Resultat {
    std::int16_t Code = 0;
    Octets Donnees;
  };

  std::optional<Suivi> Entrer(Cible Operation);
  Effet Effet_Sur(Cible Operation, std::optional<Cible> Role = {});
  void Juger_Session(Vue_Octets Application, Vue_Octets LAD, std::size_t Essai);
  Suivi Commencer(const Pret& Lent);
  bool Juger_Reprise(const Suivi& Laisse, const Pret& Lent);
  void Suspendre(Suivi S, const Pret& Lent);
  bool Juger_Acces(std::int16_t Session, std::int16_t Nombre);
  void Juger_Tampons(const Trame_Recue& Trame, Vue_Octets Reponse, std::int32_t Longueur);
  bool Juger_Trame(const Trame_Recue& Trame);
  Resultat Reponse_Propre(const Trame_Recue& Trame, const Suivi& S);
  Resultat Repondre(const Trame_Recue& Trame, const Effet& E, Suivi& S, Tampon Reponse,
                    std::int32_t& Longueur);
  void Tracer_Echange(const Suivi& S, const Resultat& R, std::int32_t Longueur);
  void Ecrire(Resultat& R, const Effet& E, Tampon Reponse, std::int32_t& Longueur);
  void Garder(const Trame_Recue& Trame);
  void Terminer(const Trame_Recue& Trame, bool Accorde, Vue_Octets Reponse);
  void Faute(const std::string& Texte);
  void Tracer(const std::string& Ligne);
  Rejeu::Accroches Suites_Rejeu();

  Scenario Regles_;
  std::optional<Rejeu> Rejeu_;
  std::vector<std::string> Fautes_;
  Receveur Receveur_;
  std::array<int, Noms_Cibles.size()> Compteurs_{};
  std::optional<Suivi> Suspendu_;
  std::size_t Essai_LAD_ = 0;
  Octets Application_Laissee_, LAD_Laisse_;  // by the last try to open a session
  bool Session_Ouverte_ = false, Exclusivite_Tenue_ = false, Liberation_Essayee_ = false;
  int Lectures_Muettes_ = 0;
  std::size_t Fichiers_Clos_ = 0;
};
