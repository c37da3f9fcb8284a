#include "windows/fenetres/Outils_Dessin.h"

#include <uxtheme.h>
#include <vssym32.h>

#include <algorithm>

#include "windows/systeme/Fonction_Module.h"

namespace {

// Since Windows 10, version 1607.
std::optional<int> Dpi_Par_Fenetre(HWND Fenetre) {
  static auto* const Demander =
      Fonction_Module<UINT __stdcall(HWND)>(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow");
  if (Demander == nullptr) return {};
  const UINT Dpi = Demander(Fenetre);
  return Dpi == 0 ? std::optional<int>() : static_cast<int>(Dpi);
}

// Since Windows 8.1.
std::optional<int> Dpi_Par_Ecran(HWND Fenetre) {
  static auto* const Demander = Fonction_Module<HRESULT __stdcall(HMONITOR, int, UINT*, UINT*)>(
      Bibliotheque_Systeme(L"shcore.dll"), "GetDpiForMonitor");
  if (Demander == nullptr) return {};
  UINT X = 0, Y = 0;
  constexpr int Effectif = 0;
  const HMONITOR Ecran = MonitorFromWindow(Fenetre, MONITOR_DEFAULTTONEAREST);
  if (FAILED(Demander(Ecran, Effectif, &X, &Y))) return {};
  return static_cast<int>(X);
}

int Dpi_Systeme() {
  const HDC Dc = GetDC(nullptr);
  const int Dpi = GetDeviceCaps(Dc, LOGPIXELSX);
  ReleaseDC(nullptr, Dc);
  return Dpi;
}

}  // namespace

Echelle Echelle_De_Fenetre(HWND Fenetre) {
  if (const auto Dpi = Dpi_Par_Fenetre(Fenetre)) return {*Dpi};
  if (const auto Dpi = Dpi_Par_Ecran(Fenetre)) return {*Dpi};
  return {Dpi_Systeme()};
}

namespace {

constexpr const wchar_t* Famille_Voulue = L"Arial Narrow";
constexpr const wchar_t* Famille_De_Repli = L"Arial";

// Below these the letters are no longer readable.
constexpr int Chasse_Minimale = 64;
constexpr int Corps_Minimal = 8;

int CALLBACK Trouvee(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM Reponse) {
  *reinterpret_cast<bool*>(Reponse) = true;
  return 0;
}

bool Famille_Presente(HDC Dc, const wchar_t* Nom) {
  LOGFONTW Cherchee{};
  Cherchee.lfCharSet = DEFAULT_CHARSET;
  std::copy_n(Nom, wcslen(Nom), Cherchee.lfFaceName);
  bool Presente = false;
  EnumFontFamiliesExW(Dc, &Cherchee, Trouvee, reinterpret_cast<LPARAM>(&Presente), 0);
  return Presente;
}

}  // namespace

Polices::Polices(const wchar_t* Famille) : Dc_(CreateCompatibleDC(nullptr)), Famille_(Famille) {}

const wchar_t* Polices::Famille_Du_Poste() {
  const Dc_Memoire Dc(CreateCompatibleDC(nullptr));
  return Famille_Presente(Dc.get(), Famille_Voulue) ? Famille_Voulue : Famille_De_Repli;
}

HFONT Polices::Normale(const Conception& Look, Echelle Mesure) {
  return Donner({.Corps = Mesure.Corps(Look.Points), .Gras = Look.Gras, .Souligne = Look.Souligne});
}

HFONT Polices::Ajustee(const Conception& Look, Echelle Mesure, const std::wstring& Texte,
                       SIZE Boite) {
  Cle Essai{.Corps = Mesure.Corps(Look.Points), .Gras = Look.Gras, .Souligne = Look.Souligne};
  Boite.cy = std::max<LONG>(Boite.cy, Hauteur_Ligne(Donner(Essai)));
  while (!Tient(Donner(Essai), Texte, Boite)) {
    if (Essai.Chasse > Chasse_Minimale) {
      Essai.Chasse -= 4;
    } else if (Essai.Corps > Corps_Minimal) {
      --Essai.Corps;
    } else {
      break;
    }
  }
  return Donner(Essai);
}

int Polices::Hauteur_Ligne(HFONT Police) const {
  const Selection_Gdi Choisie(Dc_.get(), Police);
  TEXTMETRICW Metrique{};
  GetTextMetricsW(Dc_.get(), &Metrique);
  return Metrique.tmHeight;
}

int Polices::Largeur_Texte(HFONT Police, const std::wstring& Texte) const {
  const Selection_Gdi Choisie(Dc_.get(), Police);
  SIZE Taille{};
  GetTextExtentPoint32W(Dc_.get(), Texte.c_str(), static_cast<int>(Texte.size()), &Taille);
  return Taille.cx;
}

bool Polices::Tient(HFONT Police, const std::wstring& Texte, SIZE Boite) const {
  const Selection_Gdi Choisie(Dc_.get(), Police);
  RECT Pris{0, 0, Boite.cx, 0};
  DrawTextW(Dc_.get(), Texte.c_str(), static_cast<int>(Texte.size()), &Pris,
            DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
  return Pris.right <= Boite.cx && Pris.bottom <= Boite.cy;
}

HFONT Polices::Donner(const Cle& Voulue) {
  auto& Place = Faites_[Voulue];
  if (!Place) Place.reset(Fabriquer(Voulue));
  return Place.get();
}

HFONT Polices::Fabriquer(const Cle& Voulue) {
  int Largeur = 0;  // the font's own
  if (Voulue.Chasse != 100) {
    Cle Pleine = Voulue;
    Pleine.Chasse = 100;
    const Selection_Gdi Choisie(Dc_.get(), Donner(Pleine));
    TEXTMETRICW Metrique{};
    GetTextMetricsW(Dc_.get(), &Metrique);
    Largeur = std::max(1, MulDiv(Metrique.tmAveCharWidth, Voulue.Chasse, 100));
  }
  return CreateFontW(-Voulue.Corps, Largeur, 0, 0, Voulue.Gras ? FW_BOLD : FW_NORMAL, FALSE,
                     Voulue.Souligne, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS,
                     CLEARTYPE_QUALITY, VARIABLE_PITCH | FF_SWISS, Famille_);
}

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
