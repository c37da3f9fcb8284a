#include "windows/fenetres/Menu_Natif.h"

#include "windows/systeme/Texte_Windows.h"

namespace {

using Entrees = std::vector<Entree_Menu*>;

void Remplir(HMENU Menu, const Entrees& Contenu) {
  for (const Entree_Menu* const Une : Contenu) {
    const std::wstring Texte = En_Utf16(Une->Texte());
    if (Texte == L"-") {
      AppendMenuW(Menu, MF_SEPARATOR, 0, nullptr);
    } else if (Une->Sous_Menu().empty()) {
      AppendMenuW(Menu, MF_STRING, static_cast<UINT_PTR>(Une->Numero()), Texte.c_str());
    } else {
      const HMENU Sous_Menu = CreatePopupMenu();
      Remplir(Sous_Menu, Une->Sous_Menu());
      AppendMenuW(Menu, MF_POPUP, reinterpret_cast<UINT_PTR>(Sous_Menu), Texte.c_str());
    }
  }
}

Entree_Menu* Trouver(const Entrees& Contenu, int Numero) {
  for (Entree_Menu* const Une : Contenu) {
    if (Une->Numero() == Numero) return Une;
    if (Entree_Menu* const Dessous = Trouver(Une->Sous_Menu(), Numero)) return Dessous;
  }
  return nullptr;
}

}  // namespace

HMENU Creer_Menu(const Fenetre& Modele) {
  const HMENU Barre = CreateMenu();
  if (Barre != nullptr) Remplir(Barre, Modele.Menus());
  return Barre;
}

Entree_Menu* Trouver_Entree(const Fenetre& Modele, int Numero) {
  return Trouver(Modele.Menus(), Numero);
}
