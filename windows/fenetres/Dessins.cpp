#include "windows/fenetres/Dessins.h"

#include <array>

namespace {

constexpr Couleur Blanc{255, 255, 255};
constexpr Couleur Encre{38, 50, 66};
constexpr Couleur Gris_Clair{222, 227, 233};
constexpr Couleur Gris_Moyen{150, 160, 172};
constexpr Couleur Bleu_Profond{28, 78, 140};
constexpr Couleur Bleu_Vif{60, 130, 205};
constexpr Couleur Vert_Vif{40, 155, 75};
constexpr Couleur Vert_Sombre{18, 105, 48};
constexpr Couleur Rouge_Vif{215, 45, 45};
constexpr Couleur Rouge_Sombre{140, 20, 20};
constexpr Couleur Jaune_Vif{250, 200, 40};
constexpr Couleur Jaune_Sombre{160, 115, 0};
constexpr Couleur Ocre{214, 158, 46};
constexpr Couleur Bois{150, 98, 52};

// The grid is 32 units wide, but for the banner's 100.

void Fleche_Bas(Toile& T, double X, double Haut, double Bas, double Demi, Couleur Teinte) {
  const double Cou = Bas - Demi;
  T.Polygone({{X - Demi / 2.2, Haut},
              {X + Demi / 2.2, Haut},
              {X + Demi / 2.2, Cou},
              {X + Demi, Cou},
              {X, Bas},
              {X - Demi, Cou},
              {X - Demi / 2.2, Cou}},
             Teinte);
}

// The reader: a body, its screen, its keys, and a card in the slot below.
void Peindre_Lecteur(Toile& T) {
  T.Pave({11, 19}, {21, 31}, 1.5, Bleu_Vif);
  T.Pave({13, 26}, {16.5, 29}, 0.6, Jaune_Vif);
  T.Pave({6, 1}, {26, 24}, 3, Encre);
  T.Pave({7.2, 2.2}, {24.8, 22.8}, 2, Gris_Clair);
  T.Pave({9.5, 4.5}, {22.5, 10.5}, 0.8, Bleu_Profond);
  T.Trace({{11.5, 7.5}, {18, 7.5}}, 1.4, Blanc);
  for (int Touche = 0; Touche < 6; ++Touche) {
    const int Rangee = Touche / 3;
    const double X = 10 + 4.5 * (Touche % 3), Y = 12.5 + 3.4 * Rangee;
    T.Pave({X, Y}, {X + 3, Y + 2.2}, 0.6, Gris_Moyen);
  }
  T.Trace({{10, 21}, {22, 21}}, 1.2, Encre);
}

void Peindre_Programme(Toile& T) {
  T.Pave({0.5, 0.5}, {31.5, 31.5}, 6, Bleu_Profond);
  T.Pave({4, 14}, {28, 28}, 2.5, Blanc);
  T.Trace({{7.5, 24}, {17, 24}}, 1.8, Gris_Moyen);
  T.Pave({20.5, 21}, {25.5, 25.5}, 1, Jaune_Vif);
  Fleche_Bas(T, 14, 3, 20.5, 7, Blanc);
  Fleche_Bas(T, 14, 4, 19, 5.4, Vert_Vif);
}

void Peindre_Dossier(Toile& T) {
  T.Polygone({{2, 6}, {12, 6}, {15, 9.5}, {29, 9.5}, {29, 14}, {2, 27}}, Ocre);
  T.Polygone({{7, 14}, {31, 14}, {27, 27}, {2, 27}}, Jaune_Vif);
  T.Trace({{2, 27},
           {7, 14},
           {31, 14},
           {27, 27},
           {2, 27},
           {2, 6},
           {12, 6},
           {15, 9.5},
           {29, 9.5},
           {29, 14}},
          1.2, Jaune_Sombre);
}

void Peindre_Mise_A_Jour(Toile& T) {
  T.Disque({16, 16}, 15, Vert_Sombre);
  T.Disque({16, 16}, 13.6, Vert_Vif);
  T.Polygone({{16, 5}, {25, 15}, {19.5, 15}, {19.5, 21.5}, {12.5, 21.5}, {12.5, 15}, {7, 15}},
             Blanc);
  T.Pave({12.5, 23.3}, {19.5, 26}, 0, Blanc);
}

// An open door and the way out.
void Peindre_Quitter(Toile& T) {
  T.Pave({3, 1}, {20, 31}, 1, Encre);
  T.Pave({5, 3}, {18, 31}, 0, Gris_Clair);
  T.Polygone({{5, 3}, {13, 6}, {13, 31}, {5, 31}}, Bois);
  T.Disque({11, 18}, 1.3, Jaune_Vif);
  T.Polygone({{15, 13.5}, {22, 13.5}, {22, 8.5}, {31, 16.5}, {22, 24.5}, {22, 19.5}, {15, 19.5}},
             Rouge_Vif);
}

// A file goes down into the reader.
void Peindre_Chargement(Toile& T) {
  Fleche_Bas(T, 16, 1, 19, 8, Vert_Vif);
  T.Polygone({{2, 16}, {6, 16}, {6, 25}, {26, 25}, {26, 16}, {30, 16}, {30, 30}, {2, 30}}, Encre);
  T.Polygone({{3.4, 17.4},
              {4.6, 17.4},
              {4.6, 26.4},
              {27.4, 26.4},
              {27.4, 17.4},
              {28.6, 17.4},
              {28.6, 28.6},
              {3.4, 28.6}},
             Gris_Moyen);
}

void Peindre_Bandeau(Toile& T) {
  T.Pave({0, 0}, {100, 29}, 4, Bleu_Profond);
  T.Pave({8, 22.5}, {92, 24}, 0.7, Jaune_Vif);
  T.Mot(L"PAVORIN", {0, 2}, {100, 22}, 16, Blanc);
}

// A light tells its state by its sign as much as by its colour.
void Globe(Toile& T, Couleur Bord, Couleur Coeur) {
  T.Disque({16, 16}, 15.5, Encre);
  T.Disque({16, 16}, 14, Bord);
  T.Disque({16, 16}, 12.2, Coeur);
}

void Peindre_Rouge(Toile& T) {
  Globe(T, Rouge_Sombre, Rouge_Vif);
  T.Trace({{10.5, 10.5}, {21.5, 21.5}}, 3.6, Blanc);
  T.Trace({{21.5, 10.5}, {10.5, 21.5}}, 3.6, Blanc);
}

void Peindre_Jaune(Toile& T) {
  Globe(T, Jaune_Sombre, Jaune_Vif);
  T.Trace({{10, 16}, {22, 16}}, 3.6, Encre);
}

void Peindre_Vert(Toile& T) {
  Globe(T, Vert_Sombre, Vert_Vif);
  T.Trace({{9, 16.5}, {14, 21.5}, {23, 11}}, 3.6, Blanc);
}

struct Modele_Dessin {
  Dessin Quoi;
  SIZE Taille_96;  // pixels at 96 DPI
  double Grille;
  void (*Peindre)(Toile&);
};

constexpr std::array Modeles{
    Modele_Dessin{Dessin::Programme, {48, 48}, 32, Peindre_Programme},
    Modele_Dessin{Dessin::Dossier, {16, 16}, 32, Peindre_Dossier},
    Modele_Dessin{Dessin::Mise_A_Jour, {32, 32}, 32, Peindre_Mise_A_Jour},
    Modele_Dessin{Dessin::Quitter, {20, 20}, 32, Peindre_Quitter},
    Modele_Dessin{Dessin::Bandeau, {100, 29}, 100, Peindre_Bandeau},
    Modele_Dessin{Dessin::Chargement, {32, 32}, 32, Peindre_Chargement},
    Modele_Dessin{Dessin::Lecteur, {32, 32}, 32, Peindre_Lecteur},
    Modele_Dessin{Dessin::Voyant_Rouge, {32, 32}, 32, Peindre_Rouge},
    Modele_Dessin{Dessin::Voyant_Jaune, {32, 32}, 32, Peindre_Jaune},
    Modele_Dessin{Dessin::Voyant_Vert, {32, 32}, 32, Peindre_Vert},
};

const Modele_Dessin* Modele_De(Dessin Quoi) {
  for (const Modele_Dessin& Un : Modeles) {
    if (Un.Quoi == Quoi) return &Un;
  }
  return nullptr;
}

}  // namespace

SIZE Taille_Dessin(Dessin Quoi, Echelle Mesure) {
  const Modele_Dessin* const Modele = Modele_De(Quoi);
  if (Modele == nullptr) return {};
  return {Mesure.Depuis_96(Modele->Taille_96.cx), Mesure.Depuis_96(Modele->Taille_96.cy)};
}

Image_Argb Dessiner(Dessin Quoi, SIZE Taille) {
  const Modele_Dessin* const Modele = Modele_De(Quoi);
  if (Modele == nullptr || Taille.cx <= 0 || Taille.cy <= 0) return {};
  return Image_Argb(Taille, Modele->Grille, Modele->Peindre);
}
