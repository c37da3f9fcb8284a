#pragma once
// The transfer of one software file, in either family of frames: reads it, announces it, sends its
// bytes block by block, shows the progress, pauses while the reader installs it. The session and
// its exclusivity are open; a failed transfer closes them.

#include <memory>
#include <string>

#include "Variables_Globales.h"
#include "galss/Connect_Deconnect.h"
#include "galss/Liaison_Galss.h"
#include "platform/Machine.h"
#include "platform/Systeme_Fichiers.h"
#include "ui/Fenetres.h"
#include "ui/Volet_Details.h"

/// What the two transfers, and the kernel and the application, do not have in common.
struct Variante_Transfert;

class Mise_A_Jour {
 public:
  Mise_A_Jour(const Machine& Poste, Fenetres& F, Variables_Globales& Globales,
              Liaison_Galss& Liaison, Connect_Deconnect& Connexions);

  /// Sends the whole file with the Trame_Telechargement frames. True when the reader accepted all
  /// of it. After a kernel's success the pointer and "Quitter" stay as they are.
  bool Telecharger_Fichier(const std::string& Chemin, bool Noyau);

  /// Sends all but the last 3 bytes of the file, which are never read, with the Chargement frames.
  /// True when the reader accepted all of them.
  bool Charger_Fichier(const std::string& Chemin);

 private:
  struct Transfert;

  bool Transferer(const Variante_Transfert& Variante, const std::string& Chemin,
                  const std::string& Version, const std::string& Premiere_Ligne);
  void Ouvrir(Transfert& T, const std::string& Chemin, const std::string& Premiere_Ligne);
  void Lire_Fichier(Transfert& T);
  bool Envoyer(Transfert& T, const std::string& Version);
  std::int16_t Envoyer_Blocs(Transfert& T, std::size_t Taille_Donnees);
  void Montrer_Bloc(const Transfert& T, std::size_t Restant, std::int16_t Compteur);
  void Reussir(Transfert& T);
  void Echouer(Transfert& T);
  bool Finir(Transfert& T, bool Reussi);
  bool Abandonner(Transfert& T);
  void Annoncer_Abandon(Transfert& T);
  void Pause(double Secondes);

  Systeme_Fichiers& Disque_;
  Horloge& Temps_;
  Fenetrage& Ecran_;
  Fenetre_Principale& FMain_;
  Fenetre_Progression& FrmAnimCharg_;
  Variables_Globales& Globales_;
  Liaison_Galss& Liaison_;
  Connect_Deconnect& Connexions_;
  Volet_Details Volet_;
};
