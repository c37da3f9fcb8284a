#pragma once
// "Mise à jour": one complete update of the reader, from the click to its end.

#include <string>

#include "Variables_Globales.h"
#include "catalogue/Lecture_Ecriture_FichierINI.h"
#include "download/Mise_A_Jour.h"
#include "galss/Connect_Deconnect.h"
#include "galss/Liaison_Galss.h"
#include "platform/Machine.h"
#include "ui/Fenetres.h"
#include "ui/Volet_Details.h"
#include "update/Decider_Chargement.h"

class Procedure_Mise_A_Jour {
 public:
  Procedure_Mise_A_Jour(const Machine& Poste, Fenetres& F, Variables_Globales& Globales,
                        Lecture_Ecriture_FichierINI& Reglages);

  void CmdMaj_Click();

 private:
  /// One run.
  struct Deroulement {
    std::string Message;
    bool Connecte = false;
    Octets Reponse_Config;
  };

  void Derouler(Deroulement& Cours);
  void Lire_Lecteur(Deroulement& Cours);
  void Signaler_Echec(const Deroulement& Cours);
  void Refuser(Issue_Decision Pourquoi);
  bool Confirmer(const std::string& Liste_Fichiers);
  void Charger(const Resultat_Decision& Decision, Deroulement& Cours);
  bool Envoyer_Fichier(Operation_Transfert Operation, bool Noyau);
  void Attendre_Lecteur(Deroulement& Cours);
  void Arreter_Galss(std::string_view Annonce);
  void Traiter_Erreur(Deroulement& Cours);
  std::string Repertoire() const;
  void Informer(std::string_view Texte, std::string_view Titre);

  Liste_Processus& Processus_;
  Fenetrage& Ecran_;
  Fenetre_Principale& FMain_;
  Variables_Globales& Globales_;
  Lecture_Ecriture_FichierINI& Reglages_;
  Liaison_Galss Liaison_;
  Connect_Deconnect Connexions_;
  Mise_A_Jour Transferts_;
  Volet_Details Volet_;
};
