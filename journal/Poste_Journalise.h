#pragma once
// The machine, overheard: what /journal puts between the program and its machine. No procedure
// knows of it.

#include <memory>
#include <string>
#include <string_view>

#include "journal/Ecran_Journalise.h"
#include "journal/Galss_Journalisee.h"
#include "journal/Port_Journalise.h"
#include "journal/Systeme_Journalise.h"
#include "platform/Erreur.h"
#include "platform/Machine.h"

class Poste_Journalise {
 public:
  /// Opens Pavorin-YYYYMMDD-HHMMSS.journal in Repertoire, in the program's directory when empty,
  /// and writes its head. Raises when the file cannot be created.
  Poste_Journalise(const Machine& Vrai, Releve_Poste& Releve, std::string_view Repertoire);

  /// The machine for the program; valid as long as this object.
  Machine Poste();

 private:
  Poste_Journalise(const Machine& Vrai, Releve_Poste& Releve, std::string_view Repertoire,
                   const Instant& Depart);
  void Noter_Erreur(const Erreur& Nommee);

  Journal Journal_;
  Galss_Journalisee Galss_;
  Processus_Journalises Processus_;
  Profil_Journalise Profil_;
  Disque_Journalise Disque_;
  Port_Journalise Serie_;
  Horloge& Temps_;
  Ecran_Journalise Ecran_;
  Ecoute_Erreurs Erreurs_;
};

/// The same, or null with what to tell the operator in Avis.
std::unique_ptr<Poste_Journalise> Journaliser(const Machine& Vrai, Releve_Poste& Releve,
                                              std::string_view Repertoire, std::string& Avis);
