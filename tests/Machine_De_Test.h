#pragma once
// A machine for tests: every interface of the program has its double here. Time jumps, the windows'
// peers are witnesses, the reader is the simulated one. The calls that may fail pass through Pannes, and
// what they do goes to its chronicle.

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "app/Application.h"
#include "platform/Cp1252.h"
#include "platform/Erreur.h"
#include "platform/Horloge.h"
#include "platform/Liste_Processus.h"
#include "platform/Texte.h"
#include "simulator/Galss_Simulee.h"
#include "simulator/Lecteur_Serie.h"
#include "tests/Temoins.h"

/// Quitter: goes through every handler, like the end of the process would.
struct Programme_Arrete {};

struct Horloge_De_Test : Horloge {
  double Maintenant = 0;
  std::string Heure_Du_Jour() override { return "14:30:05"; }
  double Secondes() override { return Maintenant; }
  std::string Nom_Mois(int Mois) override {
    constexpr const char* Noms[] = {"janvier", "février", "mars",      "avril",   "mai",      "juin",
                                    "juillet", "août",    "septembre", "octobre", "novembre", "décembre"};
    return Noms[Mois - 1];
  }
};

struct Ecran_De_Test : Fenetrage {
  explicit Ecran_De_Test(Horloge_De_Test& H, Pannes& P) : Temps(H), Pannes_(P) {}

  /// From now on the windows have witnesses.
  void Regarder(Fenetres& F) {
    for (const auto& [Une, Nom] : Fenetres_Nommees(F)) {
      auto Ligne = Lignes_Disposition(Nom).begin();
      for (Controle* Un : Une->Controles()) {
        const std::string Le_Nom = Ligne->substr(0, Ligne->find(' '));
        Controles_.try_emplace(Un, Pannes_, Le_Nom, *Un);
        ++Ligne;
      }
      Fenetres_.try_emplace(Une, Pannes_.Faits, Controles_, Nom, *Une);
    }
  }
  void Ne_Plus_Regarder() {
    Fenetres_.clear();
    Pannes_.Faits.Muette = true;
  }
  /// The operator looks: every window shows what its model holds.
  void Verifier() {
    if (std::exchange(Deja_Vus_, Pannes_.Faits.Nombre()) == Pannes_.Faits.Nombre()) return;
    for (auto& [Un, Temoin] : Controles_) Temoin.Verifier();
    for (auto& [Une, Temoin] : Fenetres_) Temoin.Verifier();
  }
  Pair_Fenetre* Creer(Fenetre& Modele) override {
    Pannes_.Passer("Creer");
    const auto Trouvee = Fenetres_.find(&Modele);
    if (Trouvee == Fenetres_.end()) return nullptr;
    Trouvee->second.Naitre();
    return &Trouvee->second;
  }
  Reponse Boite_Message(std::string_view Texte, Boutons Choix, Icone Dessin, std::string_view Titre) override {
    constexpr const char* Icones[] = {"", " | question", " | exclamation"};
    Boites.push_back(std::string(Titre) + " | " + std::string(Texte) + Icones[static_cast<int>(Dessin)] +
                     (Choix == Boutons::Oui_Non ? " | oui, non" : ""));
    Pannes_.Faits.Noter("[" + Lisible(Boites.back()) + "]");
    Verifier();
    Pannes_.Passer("Boite_Message");
    if (A_La_Boite) A_La_Boite();
    return Choix == Boutons::Ok ? Reponse::Ok : Confirmation;
  }
  void Traiter_Evenements(std::chrono::milliseconds Attente) override {
    Plus_Longue = std::max(Plus_Longue, Attente);
    const double Secondes = std::chrono::duration<double>(Attente).count();
    Temps.Maintenant = std::round((Temps.Maintenant + Secondes) * 1000) / 1000;
    Pannes_.Faits.Attendre(Secondes);
    Verifier();
    Pannes_.Passer("Traiter_Evenements");
    if (Au_Repos) Au_Repos();
  }
  void Tenir_Eveille(bool Oui) override {
    Eveille = Oui;
    Pannes_.Faits.Noter(Oui ? "éveillé" : "peut dormir");
  }
  [[noreturn]] void Quitter() override {
    Pannes_.Faits.Noter("fin");
    throw Programme_Arrete();
  }

  Horloge_De_Test& Temps;
  Pannes& Pannes_;
  std::vector<std::string> Boites;
  Reponse Confirmation = Reponse::Oui;
  std::function<void()> A_La_Boite, Au_Repos;
  std::chrono::milliseconds Plus_Longue{0};
  bool Eveille = false;

 private:
  Temoin_Fenetre::Temoins Controles_;
  std::map<const Fenetre*, Temoin_Fenetre> Fenetres_;
  std::size_t Deja_Vus_ = 0;
};

struct Disque_De_Test : Systeme_Fichiers {
  explicit Disque_De_Test(Pannes& P) : Pannes_(P) {}

  struct Lecteur_Fichier : Fichier_Ouvert {
    Lecteur_Fichier(Disque_De_Test& D, std::string C) : Disque(D), Chemin(std::move(C)) {
      Disque.Pannes_.Faits.Noter("ouvre " + Chemin);
      ++Disque.Ouverts;
    }
    ~Lecteur_Fichier() override {
      Disque.Pannes_.Faits.Noter("ferme " + Chemin);
      --Disque.Ouverts;
    }
    void Lire(std::span<std::uint8_t> Donnees) override {
      Disque.Pannes_.Passer("Lire");
      Disque.Pannes_.Faits.Noter("lit " + std::to_string(Donnees.size()));
      const Octets& Contenu = Disque.Trouver(Chemin);
      if (Place + Donnees.size() > Contenu.size()) throw Erreur(62, "Lecture au-delà de la fin");
      std::copy_n(Contenu.begin() + static_cast<std::ptrdiff_t>(Place), Donnees.size(), Donnees.begin());
      Place += Donnees.size();
    }
    Disque_De_Test& Disque;
    std::string Chemin;
    std::size_t Place = 0;
  };

  std::string Repertoire_Programme() override { return "C:\\Pavorin"; }
  void Chercher(std::string_view Repertoire, std::string_view Motif,
                const std::function<bool(std::string_view)>& Visiter) override {
    Pannes_.Passer("Chercher");
    Pannes_.Faits.Noter("cherche " + std::string(Repertoire).append(Motif));
    for (const auto& Chemin : Ordre) {
      const auto Coupe = Chemin.rfind('\\') + 1;
      if (Chemin.substr(0, Coupe) == Repertoire && !Visiter(std::string_view(Chemin).substr(Coupe))) return;
    }
  }
  std::int64_t Taille(std::string_view Chemin) override {
    Pannes_.Passer("Taille");
    return Derniere_Taille = static_cast<std::int64_t>(Trouver(Chemin).size());
  }
  std::unique_ptr<Fichier_Ouvert> Ouvrir(std::string_view Chemin) override {
    Pannes_.Passer("Ouvrir_Fichier");
    Trouver(Chemin);
    return std::make_unique<Lecteur_Fichier>(*this, std::string(Chemin));
  }
  std::vector<std::string> Lecteurs() override {
    Pannes_.Passer("Lecteurs");
    return {"C:\\", "D:\\"};
  }
  std::vector<std::string> Sous_Repertoires(std::string_view Repertoire) override {
    Pannes_.Passer("Sous_Repertoires");
    return Repertoire == "C:\\Pavorin" ? std::vector<std::string>{"Logiciels", "Vide"} : std::vector<std::string>();
  }
  std::string Repertoire_Courant(std::string_view Lecteur) override {
    Pannes_.Passer("Repertoire_Courant");
    return Lecteur.empty() || Lecteur == "C:\\" ? "C:\\Pavorin" : std::string(Lecteur);
  }

  /// Adds a file; the search finds files in the order of their adding.
  void Poser(const std::string& Chemin, Octets Contenu = {}) {
    Ordre.push_back(Chemin);
    Fichiers[Chemin] = std::move(Contenu);
  }
  const Octets& Trouver(std::string_view Chemin) const {
    const auto Trouve = Fichiers.find(Chemin);
    if (Trouve == Fichiers.end()) throw Erreur(53, "Fichier introuvable");
    return Trouve->second;
  }

  Pannes& Pannes_;
  std::vector<std::string> Ordre;
  std::map<std::string, Octets, std::less<>> Fichiers;
  std::int64_t Derniere_Taille = 0;
  int Ouverts = 0;
};

struct Profil_De_Test : Profil_Prive {
  explicit Profil_De_Test(Pannes& P) : Pannes_(P) {}
  Octets Lire(std::string_view Chemin, std::string_view Section, std::string_view Cle, std::size_t Taille) override {
    Pannes_.Passer("Lire_Profil");
    Octets Valeur = Valeurs[Lieu(Chemin, Section, Cle)];
    Valeur.resize(std::min(Valeur.size(), Taille - 1));
    return Valeur;
  }
  void Ecrire(std::string_view Chemin, std::string_view Section, std::string_view Cle, Vue_Octets Valeur) override {
    Pannes_.Passer("Ecrire_Profil");
    Valeurs[Lieu(Chemin, Section, Cle)] = Octets(Valeur.begin(), Valeur.end());
    Pannes_.Faits.Noter("réglages " + Texte_De_Cp1252(Valeur));
  }
  static std::string Lieu(std::string_view Chemin, std::string_view Section, std::string_view Cle) {
    return std::string(Chemin) + "|" + std::string(Section) + "|" + std::string(Cle);
  }
  Octets& Repertoire() { return Valeurs["C:\\Pavorin\\telech.ini|INIT_REPERTOIRE|REP"]; }

  Pannes& Pannes_;
  std::map<std::string, Octets> Valeurs;
};

struct Processus_De_Test : Liste_Processus {
  explicit Processus_De_Test(Pannes& P) : Pannes_(P) {}
  std::vector<Processus> Lister() override {
    Pannes_.Passer("Lister");
    return Actifs;
  }
  void Terminer(std::uint32_t Id) override {
    Termines.push_back(Id);
    Pannes_.Faits.Noter("termine " + std::to_string(Id));
  }

  Pannes& Pannes_;
  std::vector<Processus> Actifs;
  std::vector<std::uint32_t> Termines;
};

/// A scripted line: each frame written is looked up in Reponses by its rank; the answer arrives
/// after Delai seconds.
struct Port_De_Test : Port_Serie {
  Port_De_Test(Horloge_De_Test& H, Pannes& P) : Temps(H), Pannes_(P) {}
  void Regler(std::string_view R) override {
    Pannes_.Passer("Regler");
    Reglages_ = R;
    Pannes_.Faits.Noter("port " + Reglages_);
  }
  std::string Reglages() const override { return Reglages_; }
  void Ouvrir() override {
    Pannes_.Passer("Ouvrir_Port");
    if (Ouvert_) throw Erreur(Numero_Erreur::Port_Deja_Ouvert, "Port déjà ouvert");
    if (Absent) throw Erreur(Numero_Erreur::Port_Inexistant, "Port inexistant");
    Ouvert_ = true;
    Pannes_.Faits.Noter("port ouvert");
  }
  void Fermer() override {
    if (std::exchange(Ouvert_, false)) Pannes_.Faits.Noter("port fermé");
  }
  bool Ouvert() const override { return Ouvert_; }
  void Ecrire(Vue_Octets Donnees) override {
    Exiger_Ouvert("Ecrire_Port");
    std::string Trame = ">";
    for (const auto Octet : Donnees) Trame += " " + Hexadecimal(Octet);
    Pannes_.Faits.Noter(Trame);
    if (Repondre) Repondre(Donnees, Reglages_);
  }
  std::size_t En_Attente() override {
    Exiger_Ouvert("En_Attente");
    while (!Arrivees.empty() && Arrivees.front().first <= Temps.Maintenant) {
      Tampon_.insert(Tampon_.end(), Arrivees.front().second.begin(), Arrivees.front().second.end());
      Arrivees.pop_front();
    }
    return Tampon_.size();
  }
  Octets Lire_Tout() override {
    Exiger_Ouvert("Lire_Port");
    return std::exchange(Tampon_, {});
  }
  void Envoyer(Octets Donnees, double Delai = 0.005) {
    Arrivees.emplace_back(Temps.Maintenant + Delai, std::move(Donnees));
  }
  /// The simulated reader answers; so many seconds go before each piece.
  void Brancher(Lecteur_Serie& Lecteur, double Entre_Morceaux) {
    Repondre = [this, &Lecteur, Entre_Morceaux](Vue_Octets Trame, const std::string& Reglages) {
      double Delai = 0;
      auto Reponse = Lecteur.Recevoir(Trame, std::atoi(Reglages.c_str()));
      for (std::size_t I = 0; I < Reponse.Morceaux.size(); ++I) {
        Delai += Reponse.Delais_Ms.empty() ? Entre_Morceaux : Reponse.Delais_Ms[I] / 1000.0;
        Envoyer(std::move(Reponse.Morceaux[I]), Delai);
      }
    };
  }
  void Exiger_Ouvert(std::string_view Appel) {
    Pannes_.Passer(Appel);
    if (!Ouvert_) throw Erreur(Numero_Erreur::Port_Non_Ouvert, "Port fermé");
  }

  Horloge_De_Test& Temps;
  Pannes& Pannes_;
  std::function<void(Vue_Octets Trame, const std::string& Reglages)> Repondre;
  std::deque<std::pair<double, Octets>> Arrivees;
  Octets Tampon_;
  std::string Reglages_;
  bool Ouvert_ = false, Absent = false;
};

/// The simulated reader, overheard.
struct Galss_De_Test : Galss_Simulee {
  Galss_De_Test(Lecteur_Simule& Lecteur, Pannes& P) : Galss_Simulee(Lecteur), Pannes_(P) {}
  std::int16_t Echange(std::int16_t Session, std::int16_t Nombre, Octets& Commande, std::int32_t& Longueur_Commande,
                       Octets& Reponse, std::int32_t& Longueur_Reponse) override {
    constexpr const char* Roles[] = {"trame inconnue", "lecture", "demande", "bloc"};
    Pannes_.Faits.Noter(Roles[static_cast<int>(Reconnaitre(Commande).Role)]);
    const Octets Envoyee = Apres_Echange ? Commande : Octets();
    const auto Code = Galss_Simulee::Echange(Session, Nombre, Commande, Longueur_Commande, Reponse, Longueur_Reponse);
    if (Apres_Echange) Apres_Echange(Envoyee, Code, Reponse, Longueur_Reponse);
    return Code;
  }
  /// Told of every exchange that returned: the command as sent, then what came back.
  std::function<void(Vue_Octets, std::int16_t, Vue_Octets, std::int32_t)> Apres_Echange;

  Pannes& Pannes_;
};

/// The whole program on its machine, started by Demarrer.
struct Poste_De_Test {
  explicit Poste_De_Test(std::string_view Texte_Scenario = "", const Lecture_Fichier& Lire = {})
      : Lecteur(Scenario_De(Texte_Scenario, Lire)) {
    Lecteur.Avant_Appel = [this](Cible Operation, int) {
      if (Operation != Cible::Echange)
        Pannes_.Faits.Noter(std::string(Noms_Cibles.at(static_cast<std::size_t>(Operation))));
      Pannes_.Passer("Galss");
    };
  }
  void Demarrer() {
    if (!Pannes_.Faits.Muette) Ecran.Regarder(App.F);
    App.Form_Load();
  }
  std::string Pane() const { return App.F.FMain.TxtDetails.Texte(); }
  /// What happened since the last call.
  std::string Faits() {
    Ecran.Verifier();
    return Pannes_.Faits.Prendre();
  }

  Pannes Pannes_;
  Horloge_De_Test Temps;
  Ecran_De_Test Ecran{Temps, Pannes_};
  Disque_De_Test Disque{Pannes_};
  Profil_De_Test Profil{Pannes_};
  Processus_De_Test Processus{Pannes_};
  Port_De_Test Port{Temps, Pannes_};
  Lecteur_Simule Lecteur;
  Galss_De_Test Galss{Lecteur, Pannes_};
  Application App{Machine{Galss, Processus, Profil, Disque, Port, Temps, Ecran}};
};

/// Recognisable content of a file of the given size.
inline Octets Contenu(std::size_t Taille) {
  Octets Donnees(Taille);
  for (std::size_t I = 0; I < Taille; ++I) Donnees[I] = static_cast<std::uint8_t>(I * 7 + I / 251);
  return Donnees;
}
