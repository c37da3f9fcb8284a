#pragma once
// The process-wide values, one instance each, handed to those who need them. Nothing of them
// outlives the process.

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Octets.h"

/// The names of the last scan, in the order of the directory search, at most 26 of each kind.
struct Catalogue_Logiciels {
  std::vector<std::string> Liste_Applis;
  std::vector<std::string> Liste_Noyaux;
};

/// No flag says whether a session is open: the numbers keep their last values until the next
/// connection overwrites them.
struct Session_Galss {
  std::string Nom_Application;
  std::string Nom_LAD;
  std::int16_t Num_Session = 0;
  std::int16_t Info_Session = 0;  ///< given by the library, never read
  std::int16_t Num_Exclusivite = 0;
  std::int16_t Code_Retour = 0;  ///< result of the last operation or reader status, 0 for success
};

struct Variables_Globales {
  Catalogue_Logiciels Catalogue;
  /// Version characters of the file last selected in each list: 4 and 2 characters. They keep their
  /// value when the list moves to "Pas de mise à jour".
  std::string Version_Appli;
  std::string Version_Noyau;
  /// Version field of the Chargement load request, 4 characters.
  std::string Version_Requete;
  /// An application transfer follows the kernel transfer.
  bool Noyau_Et_Appli = false;
  Session_Galss Session;
  /// The bytes last read from the serial line.
  Octets Reponse_Serie;
  /// The directory shown by the directory dialog; outlives it.
  std::string Chemin_Dossier;
};
