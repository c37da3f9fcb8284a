#include "ui/controles/Listes.h"

#include <algorithm>
#include <utility>

#include "platform/Systeme_Fichiers.h"
#include "platform/Texte.h"
#include "ui/controles/Sablier.h"

namespace {

constexpr std::size_t Taille_Racine = 3;  // "C:\"

// Characters before the first directory name: a drive's root, or a share "\\server\share\".
std::size_t Longueur_Racine(const std::string& Chemin) {
  if (!Chemin.starts_with("\\\\")) return std::min(Chemin.size(), Taille_Racine);
  const std::size_t Serveur = Chemin.find('\\', 2);
  const std::size_t Partage =
      Serveur == std::string::npos ? Serveur : Chemin.find('\\', Serveur + 1);
  return Partage == std::string::npos ? Chemin.size() : Partage + 1;
}

std::string Joindre(const std::string& Repertoire, const std::string& Nom) {
  return Repertoire.ends_with('\\') ? Repertoire + Nom : Repertoire + '\\' + Nom;
}

}  // namespace

void Liste_Deroulante::Vider() {
  Entrees_.clear();
  Indice_ = Aucun;
  Signaler(Propriete::Contenu);
  Poser_Texte({});
}

void Liste_Deroulante::Ajouter(std::string Entree) {
  Entrees_.push_back(std::move(Entree));
  Signaler(Propriete::Contenu);
}

void Liste_Deroulante::Choisir(int Indice) {
  if (Indice < 0 || Indice > Derniere()) return;
  std::string Choisie = Entrees_[static_cast<std::size_t>(Indice)];
  Indice_ = Indice;
  Poser_Texte(std::move(Choisie));
  Signaler(Propriete::Choix);
  Declencher(Clic);
}

void Liste_Deroulante::Choisir_A_La_Main(int Indice) {
  if (Accessible()) Choisir(Indice);
}

void Liste_Deroulante::Taper() {
  if (Accessible()) Declencher(Saisie);
}

void Liste_Deroulante::Reinitialiser() {
  Controle::Reinitialiser();
  Entrees_.clear();
  Indice_ = Aucun;
}

Liste_Lecteurs::Liste_Lecteurs(Lieu_Controles& Lieu, int Numero, Position Place, Conception Depart,
                               Systeme_Fichiers& Disque)
    : Controle(Lieu, Numero, Place, std::move(Depart)), Disque_(Disque) {}

void Liste_Lecteurs::Montrer(const std::string& Repertoire) {
  Entrees_ = Disque_.Lecteurs();
  const auto Trouve = std::find_if(Entrees_.begin(), Entrees_.end(), [&](const std::string& E) {
    return Egal_Sans_Casse(E, Repertoire.substr(0, Taille_Racine));
  });
  Indice_ = Trouve == Entrees_.end() ? -1 : static_cast<int>(Trouve - Entrees_.begin());
  Signaler(Propriete::Contenu);
}

void Liste_Lecteurs::Choisir_A_La_Main(int Indice) {
  if (!Accessible() || Indice < 0 || Indice >= static_cast<int>(Entrees_.size())) return;
  Indice_ = Indice;
  Signaler(Propriete::Choix);
  Declencher(Changement);
}

std::string Liste_Lecteurs::Lecteur() const {
  return Indice_ < 0 ? std::string() : Entrees_[static_cast<std::size_t>(Indice_)];
}

void Liste_Lecteurs::Reinitialiser() {
  Controle::Reinitialiser();
  Entrees_.clear();
  Indice_ = -1;
}

Liste_Repertoires::Liste_Repertoires(Lieu_Controles& Lieu, int Numero, Position Place,
                                     Conception Depart, Systeme_Fichiers& Disque)
    : Controle(Lieu, Numero, Place, std::move(Depart)), Disque_(Disque) {}

void Liste_Repertoires::Montrer(std::string Nouveau) {
  const Sablier Lecture(Maison());
  std::vector<Ligne> Arbre;
  const std::size_t Racine = Longueur_Racine(Nouveau);
  std::string Chemin = Nouveau.substr(0, Racine);
  if (!Chemin.empty()) Arbre.push_back({Chemin, Chemin, 0});
  for (std::size_t Debut = Racine; Debut < Nouveau.size();) {
    const std::size_t Fin = std::min(Nouveau.find('\\', Debut), Nouveau.size());
    const std::string Nom = Nouveau.substr(Debut, Fin - Debut);
    Chemin = Joindre(Chemin, Nom);
    Arbre.push_back({Nom, Chemin, Arbre.back().Niveau + 1});
    Debut = Fin + 1;
  }
  const int Niveau = static_cast<int>(Arbre.size());
  for (const std::string& Nom : Disque_.Sous_Repertoires(Nouveau)) {
    Arbre.push_back({Nom, Joindre(Nouveau, Nom), Niveau});
  }
  // Only now: a drive or a memory that fails leaves the model as its peer shows it.
  Repertoire_ = std::move(Nouveau);
  Lignes_ = std::move(Arbre);
  Signaler(Propriete::Contenu);
}

void Liste_Repertoires::Repertoire(std::string Nouveau) {
  if (Nouveau == Repertoire_) return;
  const Sablier Lecture(Maison());
  Montrer(std::move(Nouveau));
  Declencher(Changement);
}

void Liste_Repertoires::Ouvrir_A_La_Main(int Indice) {
  if (!Accessible() || Indice < 0 || Indice >= static_cast<int>(Lignes_.size())) return;
  Repertoire(Lignes_[static_cast<std::size_t>(Indice)].Chemin);
}

int Liste_Repertoires::Indice() const {
  const auto Trouve = std::find_if(Lignes_.begin(), Lignes_.end(),
                                   [this](const Ligne& L) { return L.Chemin == Repertoire_; });
  return Trouve == Lignes_.end() ? -1 : static_cast<int>(Trouve - Lignes_.begin());
}

void Liste_Repertoires::Reinitialiser() {
  Controle::Reinitialiser();
  Repertoire_.clear();
  Lignes_.clear();
}
