#pragma once
// The windowing, overheard: windows opened and closed, message boxes with their answer, what each
// text field of several lines comes to show, and the end of the program.

#include <map>
#include <set>
#include <string>

#include "journal/Journal.h"
#include "platform/Fenetrage.h"
#include "ui/controles/Controles.h"
#include "ui/controles/Fenetre.h"

class Ecran_Journalise : public Fenetrage {
 public:
  Ecran_Journalise(Fenetrage& Vrai, Journal& Suivi) : Vrai_(Vrai), Journal_(Suivi) {}

  Pair_Fenetre* Creer(Fenetre& Modele) override;
  Reponse Boite_Message(std::string_view Texte, Boutons Choix, Icone Dessin,
                        std::string_view Titre) override;
  /// Tells the operator, once, of a journal that cannot be written any more.
  void Traiter_Evenements(std::chrono::milliseconds Attente) override;
  void Tenir_Eveille(bool Oui) override { Vrai_.Tenir_Eveille(Oui); }
  [[noreturn]] void Quitter() override;

 private:
  void Suivre(Fenetre& Modele);
  void Noter_Volet(const Champ_Texte& Volet);

  Fenetrage& Vrai_;
  Journal& Journal_;
  std::set<const Fenetre*> Suivies_;
  std::map<const Champ_Texte*, std::string> Vus_;  // what each field last showed
  bool Perte_Dite_ = false;
};
