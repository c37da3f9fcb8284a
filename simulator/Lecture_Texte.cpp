#include "simulator/Lecture_Texte.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace {

constexpr std::string_view Blancs = " \t\r";

std::uint8_t Lire_Octet_Hexa(std::string_view Texte) {
  unsigned Valeur = 0;
  const auto [Fin, Erreur] = std::from_chars(Texte.data(), Texte.data() + Texte.size(), Valeur, 16);
  if (Erreur != std::errc() || Fin != Texte.data() + Texte.size() || Texte.size() > 2) {
    throw std::invalid_argument("octet hexadécimal attendu au lieu de \"" + std::string(Texte) +
                                "\"");
  }
  return static_cast<std::uint8_t>(Valeur);
}

}  // namespace

std::string_view Sans_Blancs(std::string_view Texte) {
  const auto Debut = std::min(Texte.find_first_not_of(Blancs), Texte.size());
  Texte.remove_prefix(Debut);
  return Texte.substr(0, Texte.find_last_not_of(Blancs) + 1);
}

std::vector<std::string_view> Decouper(std::string_view Texte, char Separateur) {
  std::vector<std::string_view> Parties;
  while (!Sans_Blancs(Texte).empty()) {
    const auto Fin = std::min(Texte.find(Separateur), Texte.size());
    const auto Partie = Sans_Blancs(Texte.substr(0, Fin));
    if (!Partie.empty()) {
      Parties.push_back(Partie);
    }
    Texte.remove_prefix(std::min(Fin + 1, Texte.size()));
  }
  return Parties;
}

long Lire_Nombre(std::string_view Texte, long Minimum, long Maximum) {
  const bool Hexa = Texte.starts_with("0x");
  const auto Chiffres = Texte.substr(Hexa ? 2 : 0);
  const char* const Bout = Chiffres.data() + Chiffres.size();
  long Valeur = 0;
  const auto [Fin, Erreur] = std::from_chars(Chiffres.data(), Bout, Valeur, Hexa ? 16 : 10);
  if (Erreur != std::errc() || Fin != Bout || Valeur < Minimum || Valeur > Maximum) {
    throw std::invalid_argument("nombre de " + std::to_string(Minimum) + " à " +
                                std::to_string(Maximum) + " attendu au lieu de \"" +
                                std::string(Texte) + "\"");
  }
  return Valeur;
}

bool Lire_Oui_Non(std::string_view Texte) {
  if (Texte != "oui" && Texte != "non") {
    throw std::invalid_argument("oui ou non attendu au lieu de \"" + std::string(Texte) + "\"");
  }
  return Texte == "oui";
}

Octets Lire_Caracteres(std::string_view Texte) {
  Octets Resultat;
  for (std::size_t i = 0; i < Texte.size(); ++i) {
    const auto Octet = static_cast<std::uint8_t>(Texte[i]);
    if (Texte.substr(i).starts_with("\\x")) {
      Resultat.push_back(Lire_Octet_Hexa(Texte.substr(i + 2, 2)));
      i += 3;
    } else if ((Octet == 0xC2 || Octet == 0xC3) && i + 1 < Texte.size()) {
      // U+0080 to U+00FF: the second byte holds the low six bits.
      const auto Suite = static_cast<std::uint8_t>(Texte[++i]);
      Resultat.push_back(static_cast<std::uint8_t>((Octet << 6) | (Suite & 0x3F)));
    } else {
      Resultat.push_back(Octet);
    }
  }
  return Resultat;
}

Octets Lire_Hexa(std::string_view Texte) {
  Octets Resultat;
  for (const auto Mot : Decouper(Texte, ' ')) {
    Resultat.push_back(Lire_Octet_Hexa(Mot));
  }
  return Resultat;
}

std::string Ecrire_Hexa(Vue_Octets Donnees, std::size_t Maximum) {
  constexpr char Chiffres[] = "0123456789ABCDEF";
  std::string Texte;
  for (const auto Octet : Donnees.first(std::min(Donnees.size(), Maximum))) {
    Texte += Texte.empty() ? "" : " ";
    Texte += {Chiffres[Octet >> 4], Chiffres[Octet & 15]};
  }
  return Donnees.size() > Maximum ? Texte + " ..." : Texte;
}

std::string Ecrire_Caracteres(Vue_Octets Donnees) {
  std::string Texte;
  for (const auto Octet : Donnees) {
    if (Octet < 0x80) {
      Texte += static_cast<char>(Octet);
    } else {
      Texte += static_cast<char>(0xC0 | (Octet >> 6));
      Texte += static_cast<char>(0x80 | (Octet & 0x3F));
    }
  }
  return Texte;
}
