#pragma once
// The selection panel: automatic or manual mode, the two lists, the versions shown, and whether
// "Mise à jour" may be pressed.

#include "Variables_Globales.h"
#include "logiciel/Fichier_Logiciel.h"
#include "platform/Fenetrage.h"
#include "ui/FMain.h"

class Graphic {
 public:
  Graphic(Fenetre_Principale& FMain, Variables_Globales& Globales, Fenetrage& Ecran)
      : FMain_(FMain), Globales_(Globales), Ecran_(Ecran) {}

  // Display routines of the directory processing.
  void Desactiver_Selection();
  void Activer_Selection();
  void Listes_Manuel();
  void Listes_Auto();
  /// Version labels and shared version values follow the entries selected; the release type and
  /// "Mise à jour" are left alone.
  void Maj_Versions();

  // Handlers of the operator's actions.
  void CchooseNoyau_Click();
  void CchosseAppli_Click();
  void OptAuto_Click();
  void OptManuel_Click();

 private:
  void Activer_Panneau(bool Oui);
  void Choisir_Premieres_Entrees(bool Listes_Actives);
  void Montrer_Version(Genre Quoi);
  void Desactiver_Si_Rien();

  Fenetre_Principale& FMain_;
  Variables_Globales& Globales_;
  Fenetrage& Ecran_;
};
