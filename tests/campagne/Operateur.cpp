// Everything that the open windows allow the operator at this moment.

#include "tests/campagne/Epreuve.h"

namespace {

void Offrir(Actions& Toutes, Entree_Menu& Menu) {
  if (Menu.Clic) Toutes.emplace_back(std::to_string(Menu.Numero()), [&Menu] { Menu.Cliquer(); });
  for (Entree_Menu* Entree : Menu.Sous_Menu()) Offrir(Toutes, *Entree);
}

void Offrir(Actions& Toutes, Controle& Un) {
  const std::string Nom = std::to_string(Un.Numero());
  const auto Offrir_Entrees = [&]<class Genre>(const auto& (Genre::*Entrees)() const, void (Genre::*Choisir)(int)) {
    auto* const C = dynamic_cast<Genre*>(&Un);
    for (int I = 0; C != nullptr && I < std::ssize((C->*Entrees)()); ++I)
      Toutes.emplace_back(Nom + "-" + std::to_string(I), [=] { (C->*Choisir)(I); });
  };
  if (auto* const C = dynamic_cast<Bouton*>(&Un)) Toutes.emplace_back(Nom, [C] { C->Cliquer(); });
  if (auto* const C = dynamic_cast<Option*>(&Un)) Toutes.emplace_back(Nom, [C] { C->Choisir(); });
  if (auto* const C = dynamic_cast<Image*>(&Un); C && C->Clic) Toutes.emplace_back(Nom, [C] { C->Cliquer(); });
  if (auto* const C = dynamic_cast<Liste_Deroulante*>(&Un)) Toutes.emplace_back(Nom, [C] { C->Taper(); });
  Offrir_Entrees(&Liste_Deroulante::Entrees, &Liste_Deroulante::Choisir_A_La_Main);
  Offrir_Entrees(&Liste_Lecteurs::Entrees, &Liste_Lecteurs::Choisir_A_La_Main);
  Offrir_Entrees(&Liste_Repertoires::Lignes, &Liste_Repertoires::Ouvrir_A_La_Main);
}

}  // namespace

Actions Actions_Permises(Fenetres& F) {
  Actions Toutes;
  for (const auto& [Une, Nom] : Fenetres_Nommees(F)) {
    if (!Une->A_Portee()) continue;
    for (Controle* Un : Une->Controles())
      if (Un->Accessible()) Offrir(Toutes, *Un);
    for (Entree_Menu* Menu : Une->Menus()) Offrir(Toutes, *Menu);
    if (Une->Depart().Fermable)
      Toutes.emplace_back("fermer-" + std::string(Nom), [Ouverte = Une] { Ouverte->Fermer_Par_Cadre(); });
  }
  return Toutes;
}
