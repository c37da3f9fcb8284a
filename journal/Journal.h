#pragma once
// The support journal: one event a line, for a person and for the simulated reader's replay.
// docs/formats.md describes the lines; they are written here and nowhere else.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Horloge.h"
#include "platform/Octets.h"
#include "platform/Releve_Poste.h"

/// What follows the time and the kind on one line: a word, then items "nom=valeur".
class Ligne_Journal {
 public:
  explicit Ligne_Journal(std::string_view Mot = {}) : Texte_(Mot) {}

  Ligne_Journal& Mot(std::string_view Nom, std::string_view Valeur);
  Ligne_Journal& Nombre(std::string_view Nom, std::int64_t Valeur);
  Ligne_Journal& Duree(std::string_view Nom, double Secondes);
  Ligne_Journal& Somme(std::string_view Nom, std::uint32_t Crc);
  /// UTF-8.
  Ligne_Journal& Texte(std::string_view Nom, std::string_view Valeur);
  /// Bytes that are mostly cp1252 characters.
  Ligne_Journal& Caracteres(std::string_view Nom, Vue_Octets Valeur);
  Ligne_Journal& Hexa(std::string_view Nom, Vue_Octets Valeur);
  /// Between what is asked and what is answered.
  Ligne_Journal& Fleche();

  const std::string& Contenu() const { return Texte_; }

 private:
  void Nommer(std::string_view Nom);
  void Echapper(std::uint8_t Octet);

  std::string Texte_;
};

class Journal {
 public:
  /// Depart: the time now.
  Journal(std::unique_ptr<Fichier_Journal> Sortie, Horloge& Temps, const Instant& Depart);

  /// One event, at the time of the call. Never raises for a disk that is full or gone: see Perdu.
  void Ecrire(std::string_view Genre, const Ligne_Journal& Ligne);
  /// What was written reaches the disk.
  void Assurer() { Sortie_->Assurer(); }

  double Secondes() { return Temps_.Secondes(); }
  /// A line could not be written; nothing more is.
  bool Perdu() const { return Perdu_; }

 private:
  void Sortir();

  std::unique_ptr<Fichier_Journal> Sortie_;
  Horloge& Temps_;
  double Minuit_;  // of the first day, on the clock of Temps_
  std::string Tampon_;
  bool Perdu_ = false;
};
