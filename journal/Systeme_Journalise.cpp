#include "journal/Systeme_Journalise.h"

#include "journal/Crc_32.h"
#include "platform/Cp1252.h"
#include "platform/Texte.h"

namespace {

std::string_view Oui_Non(bool Oui) {
  return Oui ? "oui" : "non";
}

bool Est_Galss(std::string_view Nom) {
  constexpr std::string_view Debut = "galsv";
  for (; !Nom.empty(); Nom.remove_prefix(1)) {
    if (Egal_Sans_Casse(Nom.substr(0, Debut.size()), Debut)) return true;
  }
  return false;
}

}  // namespace

std::unique_ptr<Fichier_Ouvert> Disque_Journalise::Ouvrir(std::string_view Chemin) {
  std::unique_ptr<Fichier_Ouvert> Ouvert = Vrai_.Ouvrir(Chemin);
  Ligne_Journal Ligne("Ouvrir");
  Ligne.Texte("chemin", Chemin);
  Noter_Contenu(Ligne, Chemin);
  Journal_.Ecrire("FICHIER", Ligne);
  return Ouvert;
}

// Read apart, as the program may leave out the end of the file. What fails here is not the
// program's failure.
void Disque_Journalise::Noter_Contenu(Ligne_Journal& Ligne, std::string_view Chemin) {
  constexpr std::int64_t Lisible_Au_Plus = 4'000'000;  // several times what a reader takes
  try {
    const std::int64_t Taille = Vrai_.Taille(Chemin);
    Ligne.Nombre("taille", Taille);
    if (Taille > Lisible_Au_Plus) return;
    Octets Contenu(static_cast<std::size_t>(Taille));
    Vrai_.Ouvrir(Chemin)->Lire(Contenu);
    Ligne.Somme("crc32", Crc_32(Contenu));
  } catch (const std::exception&) {
    Ligne.Mot("crc32", "illisible");
  }
}

Octets Profil_Journalise::Lire(std::string_view Chemin, std::string_view Section,
                               std::string_view Cle, std::size_t Taille) {
  Octets Valeur = Vrai_.Lire(Chemin, Section, Cle, Taille);
  Noter("Lire", Chemin, Cle, Valeur);
  return Valeur;
}

void Profil_Journalise::Ecrire(std::string_view Chemin, std::string_view Section,
                               std::string_view Cle, Vue_Octets Valeur) {
  Vrai_.Ecrire(Chemin, Section, Cle, Valeur);
  Noter("Ecrire", Chemin, Cle, Valeur);
}

void Profil_Journalise::Noter(std::string_view Mot, std::string_view Chemin, std::string_view Cle,
                              Vue_Octets Valeur) {
  Ligne_Journal Ligne(Mot);
  Ligne.Texte("fichier", Chemin).Mot("inscriptible", Oui_Non(Releve_.Inscriptible(Chemin)));
  Journal_.Ecrire("REGLAGE", Ligne.Texte("cle", Cle).Texte("valeur", Texte_De_Cp1252(Valeur)));
}

std::vector<Processus> Processus_Journalises::Lister() {
  std::vector<Processus> Tous = Vrais_.Lister();
  bool Absent = true;
  for (const auto& [Id, Nom] : Tous) {
    if (!Est_Galss(Nom)) continue;
    Absent = false;
    Ligne_Journal Ligne("present");
    Ligne.Nombre("id", Id).Caracteres("nom", Octets(Nom.begin(), Nom.end()));
    Journal_.Ecrire("PROCESSUS", Ligne.Mot("terminable", Oui_Non(Releve_.Terminable(Id))));
  }
  if (Absent) Journal_.Ecrire("PROCESSUS", Ligne_Journal("absent"));
  return Tous;
}

void Processus_Journalises::Terminer(std::uint32_t Id) {
  const bool Permis = Releve_.Terminable(Id);
  Vrais_.Terminer(Id);
  Ligne_Journal Ligne("Terminer");
  Journal_.Ecrire("PROCESSUS", Ligne.Nombre("id", Id).Mot("terminable", Oui_Non(Permis)));
}
