#include "windows/fenetres/Theme.h"

#include <uxtheme.h>
#include <vssym32.h>

#include "windows/systeme/Fonction_Module.h"

namespace {

// A function of uxtheme.dll; null where there is none.
template <typename Fonction>
Fonction* Du_Theme(const char* Nom) {
  static const HMODULE Module = Bibliotheque_Systeme(L"uxtheme.dll");
  return Module == nullptr ? nullptr : Fonction_Module<Fonction>(Module, Nom);
}

}  // namespace

void Fermer_Theme::operator()(void* Ouvert) const {
  static auto* const Fermer = Du_Theme<decltype(CloseThemeData)>("CloseThemeData");
  Fermer(Ouvert);
}

Theme::Theme(HWND Controle, const wchar_t* Classe) {
  static auto* const Ouvrir = Du_Theme<decltype(OpenThemeData)>("OpenThemeData");
  if (Ouvrir != nullptr) Ouvert_.reset(Ouvrir(Controle, Classe));
}

void Theme::Peindre_Fond(HDC Dc, int Partie, int Etat, const RECT& Ici) const {
  static auto* const Peindre = Du_Theme<decltype(DrawThemeBackground)>("DrawThemeBackground");
  Peindre(Ouvert_.get(), Dc, Partie, Etat, &Ici, nullptr);
}

std::optional<COLORREF> Theme::Couleur_Texte(int Partie, int Etat) const {
  static auto* const Demander = Du_Theme<decltype(GetThemeColor)>("GetThemeColor");
  COLORREF Teinte = 0;
  const bool Dite = SUCCEEDED(Demander(Ouvert_.get(), Partie, Etat, TMT_TEXTCOLOR, &Teinte));
  return Dite ? std::optional(Teinte) : std::nullopt;
}

void Theme::Retirer(HWND Controle) {
  static auto* const Poser = Du_Theme<decltype(SetWindowTheme)>("SetWindowTheme");
  if (Poser != nullptr) Poser(Controle, L"", L"");
}
