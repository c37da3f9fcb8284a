#pragma once
// Files and drives through the wide calls. A path near the classic limit of 260 characters goes
// under the "\\?\" prefix, so that its length does not matter.

#include "platform/Systeme_Fichiers.h"

class Disque_Windows : public Systeme_Fichiers {
 public:
  std::string Repertoire_Programme() override;
  void Chercher(std::string_view Repertoire, std::string_view Motif,
                const std::function<bool(std::string_view Nom)>& Visiter) override;
  std::int64_t Taille(std::string_view Chemin) override;
  std::unique_ptr<Fichier_Ouvert> Ouvrir(std::string_view Chemin) override;
  std::vector<std::string> Lecteurs() override;
  std::vector<std::string> Sous_Repertoires(std::string_view Repertoire) override;
  std::string Repertoire_Courant(std::string_view Lecteur) override;
};
