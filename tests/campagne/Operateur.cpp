// Everything that the open windows allow the operator at this moment.

#include "tests/campagne/Epreuve.h"

namespace {

class Releve : public Visiteur_Controles {
 public:
  std::vector<Action> Liste;

  void Relever(Fenetre& F, int Rang) {
    if (!F.Ouverte() || !F.Active()) return;
    for (Controle* Un : F.Controles()) {
      if (Un->Accessible()) Un->Accueillir(*this);
    }
    for (Entree_Menu* Menu : F.Menus()) Relever(*Menu);
    if (F.Depart().Fermable) Offrir("fermer-", Rang, [&F] { F.Fermer_Par_Cadre(); });
  }

 private:
  void Offrir(std::string Nom, int Numero, std::function<void()> Faire) {
    Liste.push_back({std::move(Nom) + std::to_string(Numero), std::move(Faire)});
  }
  template <class Entrees>
  void Offrir_Entrees(const Controle& Liste_De, const Entrees& Toutes, auto Choisir) {
    const std::string Nom = std::to_string(Liste_De.Numero()) + "-";
    for (int I = 0; I < static_cast<int>(Toutes.size()); ++I) {
      Offrir(Nom, I, [Choisir, I] { Choisir(I); });
    }
  }
  void Relever(Entree_Menu& Menu) {
    if (Menu.Clic) Offrir("", Menu.Numero(), [&Menu] { Menu.Cliquer(); });
    for (Entree_Menu* Entree : Menu.Sous_Menu()) Relever(*Entree);
  }

  void Visiter(Barre_Progression&) override {}
  void Visiter(Cadre&) override {}
  void Visiter(Champ_Texte&) override {}
  void Visiter(Etiquette&) override {}
  void Visiter(Trait&) override {}
  void Visiter(Bouton& B) override {
    Offrir("", B.Numero(), [&B] { B.Cliquer(); });
  }
  void Visiter(Image& I) override {
    if (I.Clic) Offrir("", I.Numero(), [&I] { I.Cliquer(); });
  }
  void Visiter(Option& O) override {
    if (!O.Valeur()) Offrir("", O.Numero(), [&O] { O.Choisir(); });
  }
  void Visiter(Liste_Deroulante& L) override {
    Offrir_Entrees(L, L.Entrees(), [&L](int I) { L.Choisir_A_La_Main(I); });
    Liste.push_back({std::to_string(L.Numero()) + "-t", [&L] { L.Taper(); }});
  }
  void Visiter(Liste_Lecteurs& L) override {
    Offrir_Entrees(L, L.Entrees(), [&L](int I) { L.Choisir_A_La_Main(I); });
  }
  void Visiter(Liste_Repertoires& L) override {
    Offrir_Entrees(L, L.Lignes(), [&L](int I) { L.Ouvrir_A_La_Main(I); });
  }
};

}  // namespace

std::vector<Action> Actions_Permises(Fenetres& F) {
  Releve Toutes;
  Fenetre* const Fenetres_Du_Programme[] = {&F.FMain, &F.FDossierING, &F.FrmAnimCharg, &F.FrmResultParam, &F.frmAbout};
  for (int I = 0; I < 5; ++I) Toutes.Relever(*Fenetres_Du_Programme[I], I);
  return std::move(Toutes.Liste);
}
