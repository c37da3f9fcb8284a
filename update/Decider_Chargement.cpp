#include "update/Decider_Chargement.h"

#include <optional>

#include "catalogue/Fichier_Logiciel.h"
#include "galss/Config_Lecteur.h"
#include "platform/Texte.h"

namespace {

enum class Lecteur { Lecteur_650, Lecteur_Bifente };

// Versions in numbers: the reader's, and those of the files last selected.
struct Versions {
  double OS;
  double NV;
  double VN;
  double VA;
};

struct Regles {
  const Selection& Choix;
  const Versions& V;
  Resultat_Decision& Resultat;

  bool Noyau_Choisi() const { return Choix.Noyau != Pas_De_Mise_A_Jour; }
  bool Appli_Choisie() const { return Choix.Appli != Pas_De_Mise_A_Jour; }

  void Prendre_Noyau(bool Oui) const { Prendre(Oui, Choix.Noyau, Resultat.Charger_Noyau); }
  void Prendre_Appli(bool Oui) const { Prendre(Oui, Choix.Appli, Resultat.Charger_Appli); }

  // The lines stand in the order in which the files are taken.
  void Prendre(bool Oui, std::string_view Nom, bool& Charger) const {
    Charger = Oui;
    if (Oui) Resultat.Liste_Fichiers.append(Nom).append(Choix.Automatique ? "\n\r" : "\r\n");
  }

  bool Rien() const { return !Resultat.Charger_Noyau && !Resultat.Charger_Appli; }
};

std::optional<Lecteur> Admettre(Vue_Octets Reponse) {
  const auto Lire = [&](Champ_Config Lequel) {
    return Lire_Champ(Reponse, Avant_Config_Galss, Lequel);
  };
  if (Lire(Champ_Config::Constructeur) != "INGENICO       ") return {};
  const std::string Type = Lire(Champ_Config::TypeLecteur);
  const std::string TypeOS = Lire(Champ_Config::TypeOS);
  if (Type == "INGENICO  650                 " && TypeOS == "03" &&
      Lire(Champ_Config::NumVersion) == "0127") {
    return Lecteur::Lecteur_650;
  }
  const std::string Nom = Extraire(Type, 1, Type_Significatif);
  if ((Nom == "LECTEUR BIFENTE 2.0M-XA-V2" && Valeur_Num(TypeOS) >= 2) ||
      (Nom == "LEC-V03.00-0065 2.0M-XA-V2" && Valeur_Num(TypeOS) >= 4)) {
    return Lecteur::Lecteur_Bifente;
  }
  return {};
}

// A kernel and an application must go together.
Issue Automatique_650(const Regles& R) {
  R.Prendre_Noyau(R.Noyau_Choisi() || R.V.VN > 1);
  R.Prendre_Appli(R.Appli_Choisie() || R.V.VA > 127);
  return R.Resultat.Charger_Noyau && R.Resultat.Charger_Appli ? Issue::A_Charger
                                                              : Issue::Noyau_Ou_Appli_Manquant;
}

// What is newer than the reader's; a kernel of the same level is loaded again.
Issue Automatique_Bifente(const Regles& R) {
  R.Prendre_Noyau(R.Noyau_Choisi() && R.V.OS <= R.V.VN);
  R.Prendre_Appli(R.Appli_Choisie() && R.V.NV < R.V.VA);
  return R.Rien() ? Issue::Aucune_Nouvelle_Version : Issue::A_Charger;
}

Issue Manuel_650(const Regles& R) {
  const bool Appli_127 = R.V.VA == 127;
  const bool Noyau_1 = R.V.VN == 1;
  if (!R.Noyau_Choisi() && Appli_127) {
    R.Prendre_Appli(true);
  } else if (!R.Appli_Choisie() && Noyau_1) {
    R.Prendre_Noyau(true);
  } else if ((Noyau_1 && Appli_127) || (R.Noyau_Choisi() && R.V.VA > 127 && R.V.VN > 1)) {
    R.Prendre_Noyau(true);
    R.Prendre_Appli(true);
  } else {
    R.Prendre_Appli(Appli_127);
    R.Prendre_Noyau(Noyau_1);
  }
  return R.Rien() ? Issue::Chargement_Interdit_650 : Issue::A_Charger;
}

// At least one of the two must be a chosen file of the newer generation.
Issue Manuel_Bifente(const Regles& R) {
  const bool Appli_Recente = R.Appli_Choisie() && R.V.VA >= 128;
  const bool Noyau_Recent = R.Noyau_Choisi() && R.V.VN >= 2;
  if (!Appli_Recente && !Noyau_Recent) return Issue::Chargement_Interdit_Bifente;
  R.Prendre_Noyau(R.Noyau_Choisi());
  R.Prendre_Appli(R.Appli_Choisie());
  return Issue::A_Charger;
}

Issue Appliquer(const Regles& R, Lecteur Genre) {
  if (Genre == Lecteur::Lecteur_650) {
    return R.Choix.Automatique ? Automatique_650(R) : Manuel_650(R);
  }
  return R.Choix.Automatique ? Automatique_Bifente(R) : Manuel_Bifente(R);
}

constexpr double Premiere_Version_Chargement = 200;

}  // namespace

Resultat_Decision Decider_Chargement(Vue_Octets Reponse, const Selection& Choix,
                                     Variables_Globales& Globales) {
  Resultat_Decision Resultat;
  const std::optional<Lecteur> Genre = Admettre(Reponse);
  if (!Genre) return Resultat;
  const auto Valeur = [&](Champ_Config Lequel) {
    return Valeur_Num(Lire_Champ(Reponse, Avant_Config_Galss, Lequel));
  };
  const Versions V{Valeur(Champ_Config::TypeOS), Valeur(Champ_Config::NumVersion),
                   Valeur_Num(Globales.Version_Noyau), Valeur_Num(Globales.Version_Appli)};
  Resultat.Issue = Appliquer({Choix, V, Resultat}, *Genre);
  if (Resultat.Issue == Issue::A_Charger && *Genre == Lecteur::Lecteur_Bifente &&
      V.NV >= Premiere_Version_Chargement) {
    Resultat.Famille_Transfert = Famille_Transfert::Charger_Fichier;
    Globales.Noyau_Et_Appli = Resultat.Charger_Noyau && Resultat.Charger_Appli;
  }
  return Resultat;
}
