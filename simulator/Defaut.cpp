#include "simulator/Defaut.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "simulator/Lecture_Texte.h"

namespace {

/// The words of one side of the colon, taken one after the other.
class Mots {
 public:
  explicit Mots(std::string_view Texte) : Mots_(Decouper(Texte, ' ')) {}

  bool Vide() const { return Suivant_ == Mots_.size(); }
  std::string_view Prendre() {
    if (Vide()) {
      throw std::invalid_argument("défaut incomplet");
    }
    return Mots_[Suivant_++];
  }
  bool Nombre_Suit() const { return !Vide() && Mots_[Suivant_].find_first_of("0123456789") <= 1; }
  long Nombre(long Minimum, long Maximum) { return Lire_Nombre(Prendre(), Minimum, Maximum); }

 private:
  std::vector<std::string_view> Mots_;
  std::size_t Suivant_ = 0;
};

std::invalid_argument Mot_Inconnu(std::string_view Mot) {
  return std::invalid_argument("mot inconnu dans un défaut : \"" + std::string(Mot) + "\"");
}

void Lire_Visee(Mots Suite, Defaut& D) {
  const auto Nom = Suite.Prendre();
  const auto Trouve = std::find(Noms_Cibles.begin(), Noms_Cibles.end(), Nom);
  if (Trouve == Noms_Cibles.end()) {
    throw std::invalid_argument("cible inconnue : \"" + std::string(Nom) + "\"");
  }
  D.Vise = static_cast<Cible>(Trouve - Noms_Cibles.begin());
  while (!Suite.Vide()) {
    if (Suite.Nombre_Suit()) {
      D.Rang = static_cast<int>(Suite.Nombre(1, INT_MAX));
      continue;
    }
    const auto Mot = Suite.Prendre();
    if (Mot == "toujours") {
      D.Reste = Toujours;
    } else if (Mot == "fois") {
      D.Reste = static_cast<int>(Suite.Nombre(1, INT_MAX));
    } else if (Mot == "fichier") {
      D.Fichier = static_cast<int>(Suite.Nombre(1, INT_MAX));
    } else {
      throw Mot_Inconnu(Mot);
    }
  }
}

int Lire_Code(Mots& Suite) {
  return Suite.Nombre_Suit() ? static_cast<int>(Suite.Nombre(0, 255)) : Code_Usuel;
}

/// 0x8004 and -32764 are the same code.
std::int16_t Lire_Resultat(Mots& Suite) {
  return static_cast<std::int16_t>(Suite.Nombre(INT16_MIN, UINT16_MAX));
}

void Lire_Longueur(Mots& Suite, Effet& E) {
  E.Depuis_Capacite = !Suite.Nombre_Suit();
  if (!E.Depuis_Capacite) {
    E.Longueur = static_cast<std::int32_t>(Suite.Nombre(INT32_MIN, INT32_MAX));
    return;
  }
  const auto Mot = Suite.Prendre();
  constexpr std::string_view Base = "capacite";
  if (!Mot.starts_with(Base)) {
    throw Mot_Inconnu(Mot);
  }
  const auto Ecart = Mot.substr(Base.size());
  const auto Sans_Plus = Ecart.substr(Ecart.starts_with('+') ? 1 : 0);
  E.Longueur = Ecart.empty() ? 0 : static_cast<std::int32_t>(Lire_Nombre(Sans_Plus, -9999, 9999));
}

Octets Lire_Octets(Mots& Suite) {
  Octets Resultat;
  while (!Suite.Vide()) {
    for (const auto Octet : Lire_Hexa(Suite.Prendre())) {
      Resultat.push_back(Octet);
    }
  }
  return Resultat;
}

void Lire_Effet(Mots Suite, Effet& E) {
  do {
    const auto Mot = Suite.Prendre();
    if (Mot == "code") {
      E.Code = Lire_Resultat(Suite);
    } else if (Mot == "silence") {
      E.Code = 1024;
    } else if (Mot == "livre") {
      E.Livre = true;
    } else if (Mot == "refus") {
      E.Refus = Lire_Code(Suite);
    } else if (Mot == "technique") {
      E.Technique = Lire_Code(Suite);
    } else if (Mot == "nature") {
      E.Nature = static_cast<std::uint8_t>(Suite.Nombre(0, 255));
    } else if (Mot == "vide") {
      E.Vide = true;
    } else if (Mot == "longueur") {
      Lire_Longueur(Suite, E);
    } else if (Mot == "noms") {
      E.Noms = Lire_Caracteres(Suite.Prendre());
    } else if (Mot == "octets") {
      E.Reponse = Lire_Octets(Suite);
    } else {
      throw Mot_Inconnu(Mot);
    }
  } while (!Suite.Vide());
}

}  // namespace

Defaut Lire_Defaut(std::string_view Texte) {
  const auto Deux_Points = Texte.find(':');
  if (Deux_Points == std::string_view::npos) {
    throw std::invalid_argument("un défaut s'écrit CIBLE [RANG] : EFFET");
  }
  Defaut D;
  Lire_Visee(Mots(Texte.substr(0, Deux_Points)), D);
  Lire_Effet(Mots(Texte.substr(Deux_Points + 1)), D.Consequence);
  return D;
}
