#pragma once
// Files, settings and processes, overheard.

#include "journal/Journal.h"
#include "platform/Liste_Processus.h"
#include "platform/Profil_Prive.h"
#include "platform/Releve_Poste.h"
#include "platform/Systeme_Fichiers.h"

/// Each file opened, with its size and the sum of its whole content.
class Disque_Journalise : public Systeme_Fichiers {
 public:
  Disque_Journalise(Systeme_Fichiers& Vrai, Journal& Suivi) : Vrai_(Vrai), Journal_(Suivi) {}

  std::unique_ptr<Fichier_Ouvert> Ouvrir(std::string_view Chemin) override;

  std::string Repertoire_Programme() override { return Vrai_.Repertoire_Programme(); }
  void Chercher(std::string_view Repertoire, std::string_view Motif,
                const std::function<bool(std::string_view Nom)>& Visiter) override {
    Vrai_.Chercher(Repertoire, Motif, Visiter);
  }
  std::int64_t Taille(std::string_view Chemin) override { return Vrai_.Taille(Chemin); }
  std::vector<std::string> Lecteurs() override { return Vrai_.Lecteurs(); }
  std::vector<std::string> Sous_Repertoires(std::string_view Repertoire) override {
    return Vrai_.Sous_Repertoires(Repertoire);
  }
  std::string Repertoire_Courant(std::string_view Lecteur) override {
    return Vrai_.Repertoire_Courant(Lecteur);
  }

 private:
  void Noter_Contenu(Ligne_Journal& Ligne, std::string_view Chemin);

  Systeme_Fichiers& Vrai_;
  Journal& Journal_;
};

/// Each key read or written, and whether its file can be written.
class Profil_Journalise : public Profil_Prive {
 public:
  Profil_Journalise(Profil_Prive& Vrai, Journal& Suivi, Releve_Poste& Releve)
      : Vrai_(Vrai), Journal_(Suivi), Releve_(Releve) {}

  Octets Lire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
              std::size_t Taille) override;
  void Ecrire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
              Vue_Octets Valeur) override;

 private:
  void Noter(std::string_view Mot, std::string_view Chemin, std::string_view Cle,
             Vue_Octets Valeur);

  Profil_Prive& Vrai_;
  Journal& Journal_;
  Releve_Poste& Releve_;
};

/// The processes of the GALSS server alone, each time they are listed or ended.
class Processus_Journalises : public Liste_Processus {
 public:
  Processus_Journalises(Liste_Processus& Vrais, Journal& Suivi, Releve_Poste& Releve)
      : Vrais_(Vrais), Journal_(Suivi), Releve_(Releve) {}

  std::vector<Processus> Lister() override;
  void Terminer(std::uint32_t Id) override;

 private:
  Liste_Processus& Vrais_;
  Journal& Journal_;
  Releve_Poste& Releve_;
};
