#include "journal/Journal.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/Utf8.h"

namespace {

constexpr std::string_view Marque_Utf8 = "\xEF\xBB\xBF";
constexpr std::string_view Premiere_Ligne = "Journal de Pavorin, format 1";
constexpr std::string_view Fin_Ligne = "\r\n";
constexpr std::int64_t Ms_Par_Jour = 24LL * 60 * 60 * 1000;

void Ajouter_Nombre(std::string& Texte, std::int64_t Valeur, std::size_t Chiffres = 1) {
  char Ecrit[24];
  const auto Fin = std::to_chars(Ecrit, Ecrit + sizeof Ecrit, Valeur).ptr;
  const auto Longueur = static_cast<std::size_t>(Fin - Ecrit);
  Texte.append(std::max(Chiffres, Longueur) - Longueur, '0');
  Texte.append(Ecrit, Longueur);
}

void Ajouter_Hexa(std::string& Texte, std::uint8_t Octet) {
  constexpr char Chiffres[] = "0123456789ABCDEF";
  Texte += Chiffres[Octet >> 4];
  Texte += Chiffres[Octet & 15];
}

}  // namespace

void Ligne_Journal::Nommer(std::string_view Nom) {
  if (!Texte_.empty()) Texte_ += ' ';
  Texte_ += Nom;
  Texte_ += '=';
}

Ligne_Journal& Ligne_Journal::Mot(std::string_view Nom, std::string_view Valeur) {
  Nommer(Nom);
  Texte_ += Valeur;
  return *this;
}

Ligne_Journal& Ligne_Journal::Nombre(std::string_view Nom, std::int64_t Valeur) {
  Nommer(Nom);
  Ajouter_Nombre(Texte_, Valeur);
  return *this;
}

Ligne_Journal& Ligne_Journal::Duree(std::string_view Nom, double Secondes) {
  const std::int64_t Microsecondes = std::llround(Secondes * 1e6);
  Nombre(Nom, Microsecondes / 1000);
  Texte_ += '.';
  Ajouter_Nombre(Texte_, Microsecondes % 1000, 3);
  return *this;
}

Ligne_Journal& Ligne_Journal::Somme(std::string_view Nom, std::uint32_t Crc) {
  Nommer(Nom);
  for (int Decalage = 24; Decalage >= 0; Decalage -= 8) {
    Ajouter_Hexa(Texte_, static_cast<std::uint8_t>(Crc >> Decalage));
  }
  return *this;
}

void Ligne_Journal::Echapper(std::uint8_t Octet) {
  Texte_ += "\\x";
  Ajouter_Hexa(Texte_, Octet);
}

Ligne_Journal& Ligne_Journal::Texte(std::string_view Nom, std::string_view Valeur) {
  Nommer(Nom);
  Texte_ += '"';
  for (const char C : Valeur) {
    const auto Octet = static_cast<std::uint8_t>(C);
    const std::size_t Abrege = std::string_view("\"\\\r\n\t").find(C);
    if (Abrege != std::string_view::npos) {
      Texte_ += '\\';
      Texte_ += "\"\\rnt"[Abrege];
    } else if (Octet < 0x20 || Octet == 0x7F) {
      Echapper(Octet);
    } else {
      Texte_ += C;
    }
  }
  Texte_ += '"';
  return *this;
}

// From A0 on, cp1252 and Unicode have the same numbers.
Ligne_Journal& Ligne_Journal::Caracteres(std::string_view Nom, Vue_Octets Valeur) {
  Nommer(Nom);
  Texte_ += '"';
  for (const std::uint8_t Octet : Valeur) {
    const bool Lisible = (Octet >= 0x20 && Octet < 0x7F) || Octet >= 0xA0;
    if (Lisible && Octet != '"' && Octet != '\\') {
      Ajouter_Utf8(Texte_, Octet);
    } else {
      Echapper(Octet);
    }
  }
  Texte_ += '"';
  return *this;
}

Ligne_Journal& Ligne_Journal::Hexa(std::string_view Nom, Vue_Octets Valeur) {
  Nommer(Nom);
  Texte_ += '[';
  for (const std::uint8_t Octet : Valeur) {
    if (Texte_.back() != '[') Texte_ += ' ';
    Ajouter_Hexa(Texte_, Octet);
  }
  Texte_ += ']';
  return *this;
}

Ligne_Journal& Ligne_Journal::Fleche() {
  Texte_ += " ->";
  return *this;
}

Journal::Journal(std::unique_ptr<Fichier_Journal> Sortie, Horloge& Temps, const Instant& Depart)
    : Sortie_(std::move(Sortie)),
      Temps_(Temps),
      Minuit_(Temps.Secondes() - (Depart.Heure * 3600 + Depart.Minute * 60 + Depart.Seconde +
                                  Depart.Milliseconde / 1000.0)) {
  // Beyond any line, so that memory running out does not reach the journal.
  Tampon_.reserve(std::size_t{64} * 1024);
  Tampon_ = Marque_Utf8;
  Tampon_ += Premiere_Ligne;
  Sortir();
}

void Journal::Ecrire(std::string_view Genre, const Ligne_Journal& Ligne) {
  if (Perdu_) return;
  const std::int64_t Ms = std::llround((Temps_.Secondes() - Minuit_) * 1000) % Ms_Par_Jour;
  Tampon_.clear();
  Ajouter_Nombre(Tampon_, Ms / 3'600'000, 2);
  Tampon_ += ':';
  Ajouter_Nombre(Tampon_, Ms / 60'000 % 60, 2);
  Tampon_ += ':';
  Ajouter_Nombre(Tampon_, Ms / 1000 % 60, 2);
  Tampon_ += '.';
  Ajouter_Nombre(Tampon_, Ms % 1000, 3);
  Tampon_ += ' ';
  Tampon_ += Genre;
  Tampon_ += ' ';
  Tampon_ += Ligne.Contenu();
  Sortir();
}

void Journal::Sortir() {
  Tampon_ += Fin_Ligne;
  Perdu_ = !Sortie_->Ecrire(Tampon_);
}
