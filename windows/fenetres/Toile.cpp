#include "windows/fenetres/Dessins.h"

#include <cmath>
#include <vector>

namespace {

constexpr int Surfacage = 4;

Objet_Gdi<HBITMAP> Nouveau_Bitmap(SIZE Taille, std::uint32_t*& Points) {
  BITMAPINFO Format{};
  Format.bmiHeader = {.biSize = sizeof(BITMAPINFOHEADER),
                      .biWidth = Taille.cx,
                      .biHeight = -Taille.cy,  // first row on top
                      .biPlanes = 1,
                      .biBitCount = 32,
                      .biCompression = BI_RGB,
                      .biSizeImage = 0,
                      .biXPelsPerMeter = 0,
                      .biYPelsPerMeter = 0,
                      .biClrUsed = 0,
                      .biClrImportant = 0};
  void* Memoire = nullptr;
  Objet_Gdi<HBITMAP> Bitmap(
      CreateDIBSection(nullptr, &Format, DIB_RGB_COLORS, &Memoire, nullptr, 0));
  Points = static_cast<std::uint32_t*>(Memoire);
  return Bitmap;
}

// The picture four times too large on a plain ground. GDI knows no transparency: what differs
// between a black and a white ground is what lets the ground through.
class Epreuve {
 public:
  Epreuve(SIZE Taille, double Grille_Largeur, const std::function<void(Toile&)>& Peindre,
          int Fond) {
    Largeur_ = Taille.cx * Surfacage;
    Bitmap_ = Nouveau_Bitmap({Largeur_, Taille.cy * Surfacage}, Points_);
    const Dc_Memoire Dc(CreateCompatibleDC(nullptr));
    const Selection_Gdi Choisi(Dc.get(), Bitmap_.get());
    PatBlt(Dc.get(), 0, 0, Largeur_, Taille.cy * Surfacage, Fond == 0 ? BLACKNESS : WHITENESS);
    Toile Surface(Dc.get(), Largeur_ / Grille_Largeur);
    Peindre(Surface);
    GdiFlush();
  }

  // Mean of one colour over the small square of a pixel.
  std::uint32_t Moyenne(int X, int Y, int Decalage) const {
    std::uint32_t Somme = 0;
    for (int I = 0; I < Surfacage * Surfacage; ++I) {
      const int Ligne = Y * Surfacage + I / Surfacage, Colonne = X * Surfacage + I % Surfacage;
      Somme += Points_[Ligne * Largeur_ + Colonne] >> Decalage & 0xFF;
    }
    return Somme / (Surfacage * Surfacage);
  }

 private:
  int Largeur_;
  std::uint32_t* Points_ = nullptr;
  Objet_Gdi<HBITMAP> Bitmap_;
};

std::uint32_t Melange(const Epreuve& Sur_Noir, const Epreuve& Sur_Blanc, int X, int Y) {
  const std::uint32_t Rouge = Sur_Noir.Moyenne(X, Y, 16);
  const std::uint32_t Vert = Sur_Noir.Moyenne(X, Y, 8);
  const std::uint32_t Bleu = Sur_Noir.Moyenne(X, Y, 0);
  const std::uint32_t Opacite = 255 - (Sur_Blanc.Moyenne(X, Y, 8) - Vert);
  return Opacite << 24 | Rouge << 16 | Vert << 8 | Bleu;
}

// Icons want their colours without the transparency multiplied in.
std::uint32_t Demultiplier(std::uint32_t Point) {
  const std::uint32_t Opacite = Point >> 24;
  if (Opacite == 0) return 0;
  std::uint32_t Resultat = Opacite << 24;
  for (int Decalage = 0; Decalage < 24; Decalage += 8) {
    Resultat |= (Point >> Decalage & 0xFF) * 255 / Opacite << Decalage;
  }
  return Resultat;
}

}  // namespace

int Toile::Longueur(double Unites) const {
  return static_cast<int>(std::lround(Unites * Echelle_));
}

POINT Toile::Point(Point_Grille P) const {
  return {Longueur(P.X), Longueur(P.Y)};
}

void Toile::Polygone(std::initializer_list<Point_Grille> Sommets, Couleur Teinte) {
  std::vector<POINT> Points;
  for (const Point_Grille& Un : Sommets) Points.push_back(Point(Un));
  const Objet_Gdi<HBRUSH> Pinceau(CreateSolidBrush(En_Colorref(Teinte)));
  const Selection_Gdi Rempli(Dc_, Pinceau.get()), Sans_Bord(Dc_, GetStockObject(NULL_PEN));
  Polygon(Dc_, Points.data(), static_cast<int>(Points.size()));
}

void Toile::Disque(Point_Grille Centre, double Rayon, Couleur Teinte) {
  Pave({Centre.X - Rayon, Centre.Y - Rayon}, {Centre.X + Rayon, Centre.Y + Rayon}, Rayon, Teinte);
}

void Toile::Pave(Point_Grille Coin, Point_Grille Oppose, double Rayon, Couleur Teinte) {
  const POINT A = Point(Coin), B = Point(Oppose);
  const int Diametre = Longueur(2 * Rayon);
  const Objet_Gdi<HBRUSH> Pinceau(CreateSolidBrush(En_Colorref(Teinte)));
  const Selection_Gdi Rempli(Dc_, Pinceau.get()), Sans_Bord(Dc_, GetStockObject(NULL_PEN));
  // Without a border GDI leaves the last row and column out.
  RoundRect(Dc_, A.x, A.y, B.x + 1, B.y + 1, Diametre, Diametre);
}

void Toile::Trace(std::initializer_list<Point_Grille> Points, double Epaisseur, Couleur Teinte) {
  std::vector<POINT> Sommets;
  for (const Point_Grille& Un : Points) Sommets.push_back(Point(Un));
  const LOGBRUSH Encre{BS_SOLID, En_Colorref(Teinte), 0};
  // Alone: solid, with round ends and joins.
  const Objet_Gdi<HPEN> Plume(
      ExtCreatePen(PS_GEOMETRIC, static_cast<DWORD>(Longueur(Epaisseur)), &Encre, 0, nullptr));
  const Selection_Gdi Choisie(Dc_, Plume.get());
  Polyline(Dc_, Sommets.data(), static_cast<int>(Sommets.size()));
}

void Toile::Mot(const wchar_t* Texte, Point_Grille Coin, Point_Grille Oppose, double Corps,
                Couleur Teinte) {
  const Objet_Gdi<HFONT> Police(CreateFontW(
      -Longueur(Corps), 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS,
      CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, VARIABLE_PITCH | FF_SWISS, L"Arial"));
  const Selection_Gdi Choisie(Dc_, Police.get());
  SetBkMode(Dc_, TRANSPARENT);
  SetTextColor(Dc_, En_Colorref(Teinte));
  const POINT A = Point(Coin), B = Point(Oppose);
  RECT Cadre_Mot{A.x, A.y, B.x, B.y};
  DrawTextW(Dc_, Texte, -1, &Cadre_Mot, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

Image_Argb::Image_Argb(SIZE Taille, double Grille_Largeur,
                       const std::function<void(Toile&)>& Peindre)
    : Taille_(Taille), Bitmap_(Nouveau_Bitmap(Taille, Points_)) {
  if (!Bitmap_) return;
  const Epreuve Sur_Noir(Taille, Grille_Largeur, Peindre, 0);
  const Epreuve Sur_Blanc(Taille, Grille_Largeur, Peindre, 255);
  for (int Y = 0; Y < Taille.cy; ++Y) {
    for (int X = 0; X < Taille.cx; ++X) {
      Points_[Y * Taille.cx + X] = Melange(Sur_Noir, Sur_Blanc, X, Y);
    }
  }
}

void Image_Argb::Poser(HDC Dc, int X, int Y, BYTE Opacite) const {
  if (!Bitmap_) return;
  const Dc_Memoire Source(CreateCompatibleDC(Dc));
  const Selection_Gdi Choisi(Source.get(), Bitmap_.get());
  GdiAlphaBlend(Dc, X, Y, Taille_.cx, Taille_.cy, Source.get(), 0, 0, Taille_.cx, Taille_.cy,
                {AC_SRC_OVER, 0, Opacite, AC_SRC_ALPHA});
}

Icone_Systeme Image_Argb::En_Icone() const {
  if (!Bitmap_) return {};
  std::uint32_t* Points = nullptr;
  const Objet_Gdi<HBITMAP> Couleurs_Icone = Nouveau_Bitmap(Taille_, Points);
  if (!Couleurs_Icone) return {};
  for (int I = 0; I < Taille_.cx * Taille_.cy; ++I) Points[I] = Demultiplier(Points_[I]);
  const Objet_Gdi<HBITMAP> Masque(CreateBitmap(Taille_.cx, Taille_.cy, 1, 1, nullptr));
  ICONINFO Parties{TRUE, 0, 0, Masque.get(), Couleurs_Icone.get()};
  return Icone_Systeme(CreateIconIndirect(&Parties));
}
