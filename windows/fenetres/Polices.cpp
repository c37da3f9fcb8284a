#include "windows/fenetres/Polices.h"

#include <algorithm>

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
