#include "simulator/Trame_Recue.h"

#include <algorithm>
#include <array>
#include <limits>

#include "simulator/Defaut.h"

namespace {

constexpr std::size_t Sans_Maximum = std::numeric_limits<std::size_t>::max();
constexpr std::size_t Taille_Version = 4;
constexpr std::size_t Taille_Longueur = 6;

struct Modele {
  Role_Trame Role;
  Famille_Trames Famille;
  std::size_t Taille_Entete;
  std::array<std::uint8_t, 7> Entete;
  std::size_t Minimum, Maximum;  // of the whole frame
};

constexpr auto Telechargement = Famille_Trames::Telechargement;
constexpr auto Chargement = Famille_Trames::Chargement;

constexpr Modele Modeles[] = {
    {Role_Trame::Lecture, Telechargement, 4, {0x01, 0, 0, 0x94}, 4, 4},
    {Role_Trame::Demande, Telechargement, 4, {0x01, 0, 0, 0x99}, 4 + 4 + 6, 4 + 4 + 6},
    {Role_Trame::Bloc, Telechargement, 4, {0x01, 0, 0, 0x98}, 4 + 1, Sans_Maximum},
    {Role_Trame::Demande, Chargement, 7, {0xFF, 1, 3, 1, 1, 0xFF, 0xFF}, 7 + 4 + 6, 7 + 4 + 6},
    {Role_Trame::Bloc, Chargement, 7, {0xFF, 1, 3, 2, 1, 0xFF, 0xFF}, 7 + 1, Sans_Maximum},
};

bool Convient(const Modele& M, Vue_Octets Trame) {
  return Trame.size() >= M.Minimum && Trame.size() <= M.Maximum &&
         std::equal(M.Entete.begin(), M.Entete.begin() + static_cast<int>(M.Taille_Entete),
                    Trame.begin());
}

std::uint8_t Octet_De(int Code, std::uint8_t Usuel) {
  return Code == Code_Usuel ? Usuel : static_cast<std::uint8_t>(Code);
}

}  // namespace

Trame_Recue Reconnaitre(Vue_Octets Trame) {
  const auto Trouve = std::find_if(std::begin(Modeles), std::end(Modeles),
                                   [&](const Modele& M) { return Convient(M, Trame); });
  if (Trouve == std::end(Modeles)) {
    return {};
  }
  Trame_Recue Recue{Trouve->Role, Trouve->Famille, {}, {}, 0, {}};
  const auto Corps = Trame.subspan(Trouve->Taille_Entete);
  if (Recue.Role == Role_Trame::Demande) {
    Recue.Version = Corps.first(Taille_Version);
    Recue.Longueur = Corps.last(Taille_Longueur);
  } else if (Recue.Role == Role_Trame::Bloc) {
    Recue.Type = Corps.front();
    Recue.Donnees = Corps.subspan(1);
  }
  return Recue;
}

std::optional<int> Longueur_Declaree(const Trame_Recue& Trame) {
  int Valeur = 0;
  for (const auto Chiffre : Trame.Longueur) {
    if (Chiffre < '0' || Chiffre > '9') {
      return std::nullopt;
    }
    Valeur = Valeur * 10 + (Chiffre - '0');
  }
  return Valeur;
}

std::int32_t Capacite_Voulue(Role_Trame Role) {
  constexpr std::array<std::int32_t, 4> Capacites = {0, 2048, 3, 2};
  return Capacites[static_cast<std::size_t>(Role)];
}

Octets Accord(const Trame_Recue& Trame, std::uint8_t Taille) {
  if (Trame.Famille == Telechargement) {
    return Trame.Role == Role_Trame::Demande ? Octets{0, 0, Taille} : Octets{0, 0};
  }
  // State 2 grants the update, 1 is "OK", 0 ends the dialogue.
  const bool Dernier = (Trame.Type & 0x10) != 0;
  return Trame.Role == Role_Trame::Demande ? Octets{0, 2, Taille}
                                           : Octets{0, static_cast<std::uint8_t>(Dernier ? 0 : 1)};
}

Octets Refus(const Trame_Recue& Trame, int Code) {
  return Trame.Famille == Chargement ? Octets{0, Octet_De(Code, 0x92)}
                                     : Octets{1, Octet_De(Code, 50)};
}

Octets Erreur_Technique_Lecteur(int Code) {
  return {1, Octet_De(Code, 0x82)};
}

bool Vaut_Accord(const Trame_Recue& Trame, std::int16_t Code, Vue_Octets Reponse,
                 std::int32_t Longueur) {
  if (Code != 0 || Reponse.size() < 2) {
    return false;
  }
  if (Trame.Role == Role_Trame::Lecture) {
    return Longueur != 2 || Reponse[1] == 0;
  }
  const bool Demande = Trame.Role == Role_Trame::Demande;
  if (Trame.Famille == Telechargement) {
    return Demande ? Longueur == 3
                   : (Longueur == 1 || Longueur == 2) && (Reponse[0] != 1 || Reponse[1] == 0);
  }
  return Reponse[0] == 0 && (Demande ? Reponse[1] == 2 : Reponse[1] <= 1);
}
