// Everything that the open windows allow the operator at this moment.

#include "tests/campagne/Epreuve.h"

namespace {

using Actions = std::vector<Action>;

/// One for each entry of a list. Choisir: its member function that takes the entry's rank.
void Offrir_Entrees(Actions& Toutes, auto& Liste, std::size_t Nombre, auto Choisir) {
  for (int I = 0; I < static_cast<int>(Nombre); ++I) {
    Toutes.push_back(
        {std::to_string(Liste.Numero()) + "-" + std::to_string(I), [&Liste, Choisir, I] { (Liste.*Choisir)(I); }});
  }
}

void Offrir(Actions& Toutes, Controle& Un) {
  const std::string Nom = std::to_string(Un.Numero());
  if (auto* const B = dynamic_cast<Bouton*>(&Un)) {
    Toutes.push_back({Nom, [B] { B->Cliquer(); }});
  } else if (auto* const I = dynamic_cast<Image*>(&Un); I && I->Clic) {
    Toutes.push_back({Nom, [I] { I->Cliquer(); }});
  } else if (auto* const O = dynamic_cast<Option*>(&Un); O && !O->Valeur()) {
    Toutes.push_back({Nom, [O] { O->Choisir(); }});
  } else if (auto* const L = dynamic_cast<Liste_Deroulante*>(&Un)) {
    Offrir_Entrees(Toutes, *L, L->Entrees().size(), &Liste_Deroulante::Choisir_A_La_Main);
    Toutes.push_back({Nom + "-t", [L] { L->Taper(); }});
  } else if (auto* const D = dynamic_cast<Liste_Lecteurs*>(&Un)) {
    Offrir_Entrees(Toutes, *D, D->Entrees().size(), &Liste_Lecteurs::Choisir_A_La_Main);
  } else if (auto* const R = dynamic_cast<Liste_Repertoires*>(&Un)) {
    Offrir_Entrees(Toutes, *R, R->Lignes().size(), &Liste_Repertoires::Ouvrir_A_La_Main);
  }
}

void Offrir(Actions& Toutes, Entree_Menu& Menu) {
  if (Menu.Clic) Toutes.push_back({std::to_string(Menu.Numero()), [&Menu] { Menu.Cliquer(); }});
  for (Entree_Menu* Entree : Menu.Sous_Menu()) Offrir(Toutes, *Entree);
}

}  // namespace

Actions Actions_Permises(Fenetres& F) {
  Actions Toutes;
  int Rang = 0;
  for (Fenetre* Une :
       std::vector<Fenetre*>{&F.FMain, &F.FDossierING, &F.FrmAnimCharg, &F.FrmResultParam, &F.frmAbout}) {
    ++Rang;
    if (!Une->A_Portee()) continue;
    for (Controle* Un : Une->Controles()) {
      if (Un->Accessible()) Offrir(Toutes, *Un);
    }
    for (Entree_Menu* Menu : Une->Menus()) Offrir(Toutes, *Menu);
    if (Une->Depart().Fermable)
      Toutes.push_back({"fermer-" + std::to_string(Rang), [Une] { Une->Fermer_Par_Cadre(); }});
  }
  return Toutes;
}
