#include "journal/Echange_Lu.h"

#include <algorithm>
#include <span>

#include "download/Chargement.h"
#include "download/Trames.h"
#include "galss/Config_Lecteur.h"
#include "galss/Fonction_API.h"
#include "galss/Lecture_Config.h"
#include "platform/Texte.h"

namespace {

struct Entete {
  Genre_Commande Genre;
  Vue_Octets Octets;
};

constexpr Entete Entetes[] = {
    {Genre_Commande::Configuration, Commande_Configuration},
    {Genre_Commande::Demande_Telechargement, Entete_Demande_Telechargement},
    {Genre_Commande::Bloc_Telechargement, Entete_Bloc_Telechargement},
    {Genre_Commande::Demande_Chargement, Entete_Demande_Chargement},
    {Genre_Commande::Bloc_Chargement, Entete_Bloc_Chargement},
};

// Whatever a command is, more than a request is long might be a software file.
constexpr std::size_t Montrables_Au_Plus = 32;

// A library whose one answer is already here.
class Reponse_Connue : public Bibliotheque_Galss {
 public:
  Reponse_Connue(std::int16_t Code, Vue_Octets Donnees, std::int32_t Longueur)
      : Code_(Code), Donnees_(Donnees), Longueur_(Longueur) {}

  std::int16_t OuvrirSession(Octets&, Octets&, std::int16_t&, std::int16_t&) override { return 0; }
  std::int16_t DebutExclusivite(Octets&, Octets&, Octets&, std::int16_t&) override { return 0; }
  std::int16_t Echange(std::int16_t, std::int16_t, Octets&, std::int32_t&, Octets& Reponse,
                       std::int32_t& Longueur) override {
    std::copy_n(Donnees_.begin(), std::min(Donnees_.size(), Reponse.size()), Reponse.begin());
    Longueur = Longueur_;
    return Code_;
  }
  std::int16_t FinExclusivite(std::int16_t) override { return 0; }
  std::int16_t FermerSession(std::int16_t, std::int16_t&) override { return 0; }

 private:
  std::int16_t Code_;
  Vue_Octets Donnees_;
  std::int32_t Longueur_;
};

std::string Fiche(Vue_Octets Reponse) {
  std::string Texte = "Configuration lue";
  for (std::size_t I = 0; I < Longueurs_Champs.size(); ++I) {
    Texte += I == 0 ? " : " : " | ";
    Texte += Rogner(Lire_Champ(Reponse, Avant_Config_Galss, static_cast<Champ_Config>(I)));
  }
  return Texte;
}

}  // namespace

Commande_Lue Lire_Commande(Vue_Octets Commande) {
  Commande_Lue Lue{.Montrables = std::min(Commande.size(), Montrables_Au_Plus)};
  for (const auto& [Genre, Debut] : Entetes) {
    if (Commande.size() < Debut.size() ||
        !std::equal(Debut.begin(), Debut.end(), Commande.begin())) {
      continue;
    }
    Lue.Genre = Genre;
    if (!Lue.Est_Bloc()) continue;
    Lue.Montrables = std::min(Commande.size(), Debut.size() + 1);
    const std::uint8_t Type = Commande[Lue.Montrables - 1];
    Lue.Premier = (Type & Type_Bloc({.Premier = true})) != 0;
    Lue.Dernier = (Type & Type_Bloc({.Dernier = true})) != 0;
  }
  return Lue;
}

// The program's own operations are asked, on a library that repeats the answer: whatever they come
// to say, the journal says the same.
Sens_Reponse Sens_De(Genre_Commande Genre, std::int16_t Code, Vue_Octets Reponse,
                     std::int32_t Longueur) {
  Reponse_Connue Recue(Code, Reponse, Longueur);
  Session_Galss Session;
  Liaison_Galss Liaison(Recue, Session);
  Octets Configuration;
  std::string Texte;
  std::int32_t Taille = 0;
  std::int16_t Statut = Code;
  switch (Genre) {
    case Genre_Commande::Autre:
      if (Code != 0) Erreur_Galss({}, Code, Texte);
      break;
    case Genre_Commande::Configuration:
      Statut = Lecture_Config_Lecteur(Liaison, Configuration, Texte);
      if (Statut == 0) Texte = Fiche(Configuration);
      break;
    case Genre_Commande::Demande_Telechargement:
      Statut = Demande_Telechargement(Liaison, {}, {}, Taille, Texte);
      break;
    case Genre_Commande::Bloc_Telechargement:
      Statut = Bloc_Telechargement(Liaison, {}, {}, Texte);
      break;
    case Genre_Commande::Demande_Chargement:
      Statut = Demande_Chargement(Liaison, {}, {}, Taille, Texte);
      break;
    case Genre_Commande::Bloc_Chargement:
      Statut = Bloc_Chargement(Liaison, {}, {}, Texte);
  }
  if (Texte.empty()) Texte = "Accepté";
  if (Taille != 0) Texte += ", blocs de " + std::to_string(Taille) + " octets";
  return {Texte, Statut == 0};
}
