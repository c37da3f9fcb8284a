#pragma once
// A journal instead of a reader: each call is compared with the one recorded, and answered as it
// was then. From the first difference on, the access manager answers an error and nothing else.

#include <functional>
#include <string>

#include "simulator/Journal_Lu.h"
#include "simulator/Tampon.h"

class Rejeu {
 public:
  /// Told of the first difference, of how long an answer took, and of what was raised; the last one
  /// is to raise it again.
  struct Accroches {
    std::function<void(const std::string& Reproche)> Faute;
    std::function<void(int Millisecondes)> Attendre;
    std::function<void(int Numero, const std::string& Description)> Lever;
  };

  /// Contenu_Compare: the blocks' data too, and not their length alone.
  Rejeu(std::vector<Appel_Note> Appels, bool Contenu_Compare, Accroches Suites)
      : Appels_(std::move(Appels)), Contenu_Compare_(Contenu_Compare), Suites_(std::move(Suites)) {}

  /// The five operations, as Lecteur_Simule has them.
  std::int16_t OuvrirSession(Tampon Application, Tampon LAD, std::int16_t& Session,
                             std::int16_t& Info);
  std::int16_t DebutExclusivite(Tampon Texte, Tampon Application, Tampon LAD,
                                std::int16_t& Exclusivite);
  std::int16_t Echange(std::int16_t Session, std::int16_t Nombre, Tampon Commande,
                       std::int32_t& Longueur_Commande, Tampon Reponse,
                       std::int32_t& Longueur_Reponse);
  std::int16_t FinExclusivite(std::int16_t Exclusivite);
  std::int16_t FermerSession(std::int16_t Session, std::int16_t& Exclusivite);

  /// Calls of the journal that have not been asked for.
  std::size_t Restants() const { return Appels_.size() - Rang_; }

 private:
  const Appel_Note* Suivant(Cible Operation, const std::vector<Champ_Note>& Venus);
  std::string Difference(Cible Operation, const std::vector<Champ_Note>& Venus) const;

  std::vector<Appel_Note> Appels_;
  bool Contenu_Compare_;
  Accroches Suites_;
  std::size_t Rang_ = 0;
  bool Divergent_ = false;
};
