#include "catalogue/Lecture_Ecriture_FichierINI.h"

#include "platform/Cp1252.h"
#include "platform/Texte.h"
#include "ui/controles/Sablier.h"

namespace {

constexpr const char* Section = "INIT_REPERTOIRE";
constexpr const char* Cle = "REP";
constexpr std::size_t Taille_Valeur = 200;  // 199 characters and their end

std::string Sans_Blancs_A_Droite(std::string Texte) {
  Texte.erase(Texte.find_last_not_of(' ') + 1);
  return Texte;
}

}  // namespace

void Lecture_Ecriture_FichierINI::Lire_Repertoire_INI() {
  const Sablier Recherche(FMain_);
  std::string Repertoire = Sans_Blancs_A_Droite(
      Texte_De_Cp1252(Profil_.Lire(Chemin_INI(), Section, Cle, Taille_Valeur)));
  if (Repertoire.ends_with('\0')) Repertoire.pop_back();
  if (Repertoire.empty()) Repertoire = Disque_.Repertoire_Programme() + "\\";
  FMain_.TxtChooseDirectory.Texte(Repertoire);
  // The field has just been processed: shown with its separator, searched, the panel set. The lists
  // alone are filled a second time, and no entry is selected after that: a kind without files ends
  // with an empty text, until the mode or the directory changes.
  FMain_.CchosseAppli.Vider();
  FMain_.CchooseNoyau.Vider();
  Catalogue_.Lecture_Repertoire(Lecture::Nettoyer(FMain_.TxtChooseDirectory.Texte()));
}

void Lecture_Ecriture_FichierINI::Ecrire_Repertoire_INI(const std::string& Repertoire) {
  Profil_.Ecrire(Chemin_INI(), Section, Cle, Cp1252_De_Texte(Repertoire));
}

void Lecture_Ecriture_FichierINI::Traitement_Repertoire() {
  const Sablier Recherche(FMain_);
  std::string Repertoire = FMain_.TxtChooseDirectory.Texte();
  if (!Repertoire.ends_with('\\')) {
    // Putting the text back runs this processing on it, to its end.
    FMain_.TxtChooseDirectory.Texte(Repertoire + "\\");
    return;
  }
  if (!Catalogue_.Presence_Fichiers(Repertoire)) {
    FMain_.lbltypedirectory.Texte("Fichier non présent");
    FMain_.lbltypedirectory.Encre(Couleurs::Rouge);
    Panneau_.Desactiver_Selection();
    return;
  }
  FMain_.lbltypedirectory.Texte("Fichier présent");
  FMain_.lbltypedirectory.Encre(Couleurs::Bleu);
  Panneau_.Activer_Selection();
  Catalogue_.Lecture_Repertoire(Repertoire);
  if (FMain_.OptAuto.Valeur()) {
    Panneau_.Listes_Auto();
  } else {
    Panneau_.Listes_Manuel();
  }
  Panneau_.Maj_Versions();
}

std::string Lecture_Ecriture_FichierINI::Chemin_INI() {
  return Disque_.Repertoire_Programme() + "\\telech.ini";
}
