#include "platform/Texte.h"

#include <algorithm>
#include <charconv>

#include "platform/Utf8.h"

namespace {

std::string_view Sans_Debut(std::string_view Texte, std::size_t Nombre) {
  for (; Nombre > 0 && !Texte.empty(); --Nombre) Prendre_Caractere(Texte);
  return Texte;
}

char Minuscule(char C) {
  return C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C;
}

bool Est_Ascii(char C) {
  return static_cast<unsigned char>(C) < 0x80;
}

bool Est_Chiffre(char C) {
  return C >= '0' && C <= '9';
}

std::size_t Fin_Des_Chiffres(std::string_view Texte, std::size_t Debut) {
  while (Debut < Texte.size() && Est_Chiffre(Texte[Debut])) ++Debut;
  return Debut;
}

}  // namespace

std::size_t Nombre_Caracteres(std::string_view Texte) {
  std::size_t Nombre = 0;
  for (; !Texte.empty(); ++Nombre) Prendre_Caractere(Texte);
  return Nombre;
}

std::string Extraire(std::string_view Texte, std::size_t Debut, std::size_t Nombre) {
  const std::string_view Suite = Sans_Debut(Texte, Debut - 1);
  return std::string(Suite.substr(0, Suite.size() - Sans_Debut(Suite, Nombre).size()));
}

// An ASCII byte is a character wherever it stands: such an end needs no count from the start. A
// directory's names are nearly all of this kind.
std::string Fin_De(std::string_view Texte, std::size_t Nombre) {
  const std::string_view Fin = Texte.substr(Texte.size() - std::min(Texte.size(), Nombre));
  if (std::all_of(Fin.begin(), Fin.end(), Est_Ascii)) return std::string(Fin);
  const std::size_t Total = Nombre_Caracteres(Texte);
  return std::string(Sans_Debut(Texte, Total - std::min(Total, Nombre)));
}

std::string Rogner(std::string_view Texte) {
  const std::size_t Debut = Texte.find_first_not_of(' ');
  if (Debut == std::string_view::npos) return {};
  return std::string(Texte.substr(Debut, Texte.find_last_not_of(' ') - Debut + 1));
}

bool Egal_Sans_Casse(std::string_view A, std::string_view B) {
  return std::equal(A.begin(), A.end(), B.begin(), B.end(),
                    [](char X, char Y) { return Minuscule(X) == Minuscule(Y); });
}

std::string Hexadecimal(unsigned Valeur) {
  std::string Chiffres;
  do {
    Chiffres.insert(Chiffres.begin(), "0123456789ABCDEF"[Valeur % 16]);
    Valeur /= 16;
  } while (Valeur != 0);
  return Chiffres;
}

double Valeur_Num(std::string_view Texte) {
  Texte.remove_prefix(std::min(Texte.find_first_not_of(" \t"), Texte.size()));
  // from_chars would also read an exponent or "inf": only the number's own characters reach it.
  const bool Negatif = Texte.starts_with('-');
  if (Negatif || Texte.starts_with('+')) Texte.remove_prefix(1);
  std::size_t Fin = Fin_Des_Chiffres(Texte, 0);
  if (Fin < Texte.size() && Texte[Fin] == '.') Fin = Fin_Des_Chiffres(Texte, Fin + 1);
  double Valeur = 0;
  std::from_chars(Texte.data(), Texte.data() + Fin, Valeur, std::chars_format::fixed);
  return Negatif ? -Valeur : Valeur;
}
