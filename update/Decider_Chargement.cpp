#include "update/Decider_Chargement.h"

#include <optional>

#include "galss/Config_Lecteur.h"
#include "logiciel/Fichier_Logiciel.h"
#include "platform/Texte.h"

namespace {

using enum Issue_Decision;

enum class Lecteur_Admis { Lecteur_650, Lecteur_Bifente };

// What the rules look at.
struct Situation {
  // A list without a text, right after the start-up, chooses nothing either: a kernel never goes
  // alone to a reader that needs both.
  bool Noyau_Choisi;
  bool Appli_Choisie;
  // Versions in numbers: the reader's kernel level and application, then those of the kernel and of
  // the application last selected, which count even when their list chooses nothing.
  double OS;
  double NV;
  double VN;
  double VA;
};

std::optional<Lecteur_Admis> Admettre(Vue_Octets Reponse) {
  const auto Lire = [&](Champ_Config Lequel) {
    return Lire_Champ(Reponse, Avant_Config_Galss, Lequel);
  };
  if (Lire(Champ_Config::Constructeur) != "INGENICO       ") return {};
  const std::string Type = Lire(Champ_Config::TypeLecteur);
  const std::string TypeOS = Lire(Champ_Config::TypeOS);
  if (Type == "INGENICO  650                 " && TypeOS == "03" &&
      Lire(Champ_Config::NumVersion) == "0127") {
    return Lecteur_Admis::Lecteur_650;
  }
  const std::string Nom = Extraire(Type, 1, Type_Significatif);
  if ((Nom == "LECTEUR BIFENTE 2.0M-XA-V2" && Valeur_Num(TypeOS) >= 2) ||
      (Nom == "LEC-V03.00-0065 2.0M-XA-V2" && Valeur_Num(TypeOS) >= 4)) {
    return Lecteur_Admis::Lecteur_Bifente;
  }
  return {};
}

// Each rule answers which of the two files go, and the outcome; names and transfer are added later.

// A kernel and an application must go together.
Resultat_Decision Automatique_650(const Situation& S) {
  const bool Noyau = S.Noyau_Choisi || S.VN > 1;
  const bool Appli = S.Appli_Choisie || S.VA > 127;
  return {Noyau && Appli ? A_Charger : Noyau_Ou_Appli_Manquant, Noyau, Appli};
}

// What is newer than the reader's; a kernel of the same level is loaded again.
Resultat_Decision Automatique_Bifente(const Situation& S) {
  const bool Noyau = S.Noyau_Choisi && S.OS <= S.VN;
  const bool Appli = S.Appli_Choisie && S.NV < S.VA;
  return {Noyau || Appli ? A_Charger : Aucune_Nouvelle_Version, Noyau, Appli};
}

// Kernel 01 and application 0127 are the first generation: they go together or alone, while later
// files go in pairs.
Resultat_Decision Manuel_650(const Situation& S) {
  const bool Noyau_1 = S.VN == 1;
  const bool Appli_127 = S.VA == 127;
  if (!S.Noyau_Choisi && Appli_127) return {A_Charger, false, true};
  if (!S.Appli_Choisie && Noyau_1) return {A_Charger, true, false};
  if (S.Noyau_Choisi && S.VN > 1 && S.VA > 127) return {A_Charger, true, true};
  return {Noyau_1 || Appli_127 ? A_Charger : Chargement_Interdit_650, Noyau_1, Appli_127};
}

// At least one of the two must be a chosen file of the newer generation.
Resultat_Decision Manuel_Bifente(const Situation& S) {
  const bool Appli_Recente = S.Appli_Choisie && S.VA >= 128;
  const bool Noyau_Recent = S.Noyau_Choisi && S.VN >= 2;
  if (!Appli_Recente && !Noyau_Recent) return {Chargement_Interdit_Bifente};
  return {A_Charger, S.Noyau_Choisi, S.Appli_Choisie};
}

Resultat_Decision Appliquer(Lecteur_Admis Lecteur, bool Automatique, const Situation& S) {
  if (Lecteur == Lecteur_Admis::Lecteur_650)
    return Automatique ? Automatique_650(S) : Manuel_650(S);
  return Automatique ? Automatique_Bifente(S) : Manuel_Bifente(S);
}

// The names taken, kernel first.
std::string Lister(const Resultat_Decision& Resultat, const Selection& Choix) {
  const std::string_view Fin = Choix.Automatique ? "\n\r" : "\r\n";
  std::string Noms;
  if (Resultat.Charger_Noyau) Noms.append(Choix.Noyau).append(Fin);
  if (Resultat.Charger_Appli) Noms.append(Choix.Appli).append(Fin);
  return Noms;
}

constexpr double Premiere_Version_Chargement = 200;

}  // namespace

Resultat_Decision Decider_Chargement(Vue_Octets Reponse, const Selection& Choix,
                                     Variables_Globales& Globales) {
  const std::optional<Lecteur_Admis> Lecteur = Admettre(Reponse);
  if (!Lecteur) return {};
  const auto Valeur = [&](Champ_Config Lequel) {
    return Valeur_Num(Lire_Champ(Reponse, Avant_Config_Galss, Lequel));
  };
  const Situation S{Est_Fichier(Choix.Noyau),           Est_Fichier(Choix.Appli),
                    Valeur(Champ_Config::TypeOS),       Valeur(Champ_Config::NumVersion),
                    Valeur_Num(Globales.Version_Noyau), Valeur_Num(Globales.Version_Appli)};
  Resultat_Decision Resultat = Appliquer(*Lecteur, Choix.Automatique, S);
  Resultat.Liste_Fichiers = Lister(Resultat, Choix);
  if (Resultat.Issue == A_Charger && *Lecteur == Lecteur_Admis::Lecteur_Bifente &&
      S.NV >= Premiere_Version_Chargement) {
    Resultat.Famille_Transfert = Operation_Transfert::Charger_Fichier;
    Globales.Noyau_Et_Appli = Resultat.Charger_Noyau && Resultat.Charger_Appli;
  }
  return Resultat;
}
