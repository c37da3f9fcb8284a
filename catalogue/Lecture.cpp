#include "catalogue/Lecture.h"

#include <algorithm>

#include "platform/Texte.h"

namespace {

constexpr std::size_t Places = 26;  // per kind

struct Candidat {
  std::string Nom;
  double Version;
};

bool Plus_Ancien(const Candidat& A, const Candidat& B) {
  return A.Version < B.Version;
}

// Beyond the places of a kind the oldest version goes, the last found among equals: the newest file
// is never lost.
void Retenir(std::vector<Candidat>& Retenus, std::string_view Nom, double Version) {
  if (Retenus.size() == Places) {
    const auto Sortant = std::min_element(Retenus.rbegin(), Retenus.rend(), Plus_Ancien);
    if (Version <= Sortant->Version) return;
    Retenus.erase(std::next(Sortant).base());
  }
  Retenus.push_back({std::string(Nom), Version});
}

}  // namespace

std::string Lecture::Nettoyer(std::string_view Repertoire) {
  std::string Net = Rogner(Repertoire);
  if (Net.ends_with('\0')) Net.pop_back();
  return Net;
}

bool Lecture::Presence_Fichiers(std::string& Repertoire) {
  Repertoire = Nettoyer(Repertoire);
  for (const Genre Quoi : {Genre::Appli, Genre::Noyau}) {
    bool Trouve = false;
    Disque_.Chercher(Repertoire, Motif(Quoi), [&](std::string_view Nom) {
      Trouve = Est_Du_Genre(Nom, Quoi);
      return !Trouve;
    });
    if (Trouve) return true;
  }
  return false;
}

void Lecture::Lecture_Repertoire(const std::string& Repertoire) {
  Logiciels_.Liste_Applis = Chercher(Repertoire, Genre::Appli);
  Remplir_Liste(FMain_.CchosseAppli, Logiciels_.Liste_Applis, Genre::Appli);
  Logiciels_.Liste_Noyaux = Chercher(Repertoire, Genre::Noyau);
  Remplir_Liste(FMain_.CchooseNoyau, Logiciels_.Liste_Noyaux, Genre::Noyau);
}

std::vector<std::string> Lecture::Chercher(const std::string& Repertoire, Genre Quoi) {
  std::vector<Candidat> Retenus;
  Disque_.Chercher(Repertoire, Motif(Quoi), [&](std::string_view Nom) {
    if (Est_Du_Genre(Nom, Quoi)) {
      Retenir(Retenus, Nom, Valeur_Num(Version_Fichier(Nom, Quoi)));
    }
    return true;
  });
  std::vector<std::string> Noms;
  Noms.reserve(Retenus.size());
  for (Candidat& Un : Retenus) Noms.push_back(std::move(Un.Nom));
  return Noms;
}

// The newest is selected before the other entries exist: its handler runs on a list of one.
void Lecture::Remplir_Liste(Liste_Deroulante& Liste, const std::vector<std::string>& Noms,
                            Genre Quoi) {
  if (!Noms.empty()) {
    const auto Version = [Quoi](const std::string& Nom) {
      return Valeur_Num(Version_Fichier(Nom, Quoi));
    };
    const std::string& Recent = *std::max_element(
        Noms.begin(), Noms.end(),
        [&](const std::string& A, const std::string& B) { return Version(A) < Version(B); });
    Liste.Ajouter(Recent);
    Liste.Choisir(0);
    for (const std::string& Nom : Noms) {
      if (Nom != Recent) Liste.Ajouter(Nom);
    }
  }
  Liste.Ajouter(std::string(Pas_De_Mise_A_Jour));
}
