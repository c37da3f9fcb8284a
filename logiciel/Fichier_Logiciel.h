#pragma once
// A software file, known by its bare name alone. Positions are counted from the end of the name,
// the last character being the first, so that ".ing" fills positions 4 to 1.

#include <string>
#include <string_view>

enum class Genre { Appli, Noyau };

/// The list entry by which nothing of a kind is to be loaded.
inline constexpr std::string_view Pas_De_Mise_A_Jour = "Pas de mise à jour";

/// True for the text of a list that shows a file: neither empty nor "Pas de mise à jour".
bool Est_Fichier(std::string_view Texte_Liste);

/// Search pattern of a kind: "E*.ing" or "Fexa*.ing".
std::string_view Motif(Genre Quoi);

/// True when the name itself matches the kind's pattern, letter case aside. A directory search also
/// answers files that match by their short alias only.
bool Est_Du_Genre(std::string_view Nom, Genre Quoi);

/// Application: positions 8 to 5. Kernel: positions 8 and 7. Clipped when the name is too short.
std::string Version_Fichier(std::string_view Nom, Genre Quoi);

/// "0302" is shown "03.02" for an application, "03" is shown "03.00" for a kernel.
std::string Afficher_Version(std::string_view Version, Genre Quoi);

/// Position 9 of an application's name is "T" or "t".
bool Est_Version_Test(std::string_view Nom);
