#pragma once
// May this reader be loaded, and which of the two selected files go to it, by which transfer. Shows
// nothing.

#include <string>
#include <string_view>

#include "Variables_Globales.h"
#include "platform/Octets.h"

enum class Issue_Decision {
  Terminal_Refuse,
  Noyau_Ou_Appli_Manquant,
  Aucune_Nouvelle_Version,
  Chargement_Interdit_650,
  Chargement_Interdit_Bifente,
  A_Charger
};

/// The operation by which the files go to the reader.
enum class Operation_Transfert { Telecharger_Fichier, Charger_Fichier };

struct Resultat_Decision {
  Issue_Decision Issue = Issue_Decision::Terminal_Refuse;
  bool Charger_Noyau = false;
  bool Charger_Appli = false;
  /// The names to load, one per line: LF CR in automatic mode, CR LF in manual mode.
  std::string Liste_Fichiers = {};
  Operation_Transfert Famille_Transfert = Operation_Transfert::Telecharger_Fichier;
};

/// What the operator chose: the mode, and the texts of the two selection lists.
struct Selection {
  bool Automatique = true;
  std::string_view Noyau;
  std::string_view Appli;
};

/// Reponse: the configuration reply, whatever its length. Reads the two shared version values; sets
/// Noyau_Et_Appli when the operation is Charger_Fichier.
Resultat_Decision Decider_Chargement(Vue_Octets Reponse, const Selection& Choix,
                                     Variables_Globales& Globales);
