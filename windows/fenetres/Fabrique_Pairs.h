#pragma once
// Makes the native peers of a window's controls.

#include <memory>

#include "ui/controles/Fenetre.h"
#include "windows/fenetres/Pair_Natif.h"

/// Peers of all the controls of the window, attached, in its surface.
void Fabriquer_Pairs(Surface& Lieu, const Fenetre& Maison);

// The peer of each kind of control, not attached yet; defined beside its class.

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Barre_Progression& C);
/// Par_Defaut: pressed by Enter from the whole window.
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Bouton& C, bool Par_Defaut);
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Cadre& C);
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Champ_Texte& C);
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Etiquette& C);
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Image& C);
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Liste_Deroulante& C);
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Liste_Lecteurs& C);
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Liste_Repertoires& C);
/// Premiere: opens the group of options among which the arrow keys move.
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Option& C, bool Premiere);
std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Trait& C);
