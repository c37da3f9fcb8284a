#include "galss/Gestion_Erreur.h"

#include <array>

#include "galss/Textes_Codes.h"
#include "platform/Texte.h"

namespace {

constexpr std::array<Texte_Code, 12> Textes_Etat_Final = {{
    {0x00, "Fin de dialogue lecteur"},
    {0x01, "OK"},
    {0x02, "Accord de mise à jour"},
    {0x91, "Refus d'une application"},
    {0x92, "Refus du propriétaire"},
    {0x93, "Refus, version de logicielle incorrecte"},
    {0x94, "Refus de l'application"},
    {0x95, "Refus mémoire insuffisante"},
    {0x96, "Echec authenticité logiciel"},
    {0x97, "Echec intégrité"},
    {0x98, "Echec erreur code position"},
    {0x99, "Echec message de mise à jour non précédé d'un message de mise à jour"},
}};
static_assert(Est_Triee(Textes_Etat_Final));

constexpr std::array<Texte_Code, 9> Textes_Erreur_Technique = {{
    {0x81, "Application inconnue"},
    {0x82, "Time out"},
    {0x83, "Problème de mémoire"},
    {0x84, "Problème d'installation logiciel"},
    {0x85, "Problème coupleur"},
    {0x86, "Autre problème"},
    {0x87, "service Inconnu"},
    {0x88, "Paramètre incorrect"},
    {0x89, "Abandon suite à un refus d'allongement de temps"},
}};
static_assert(Est_Triee(Textes_Erreur_Technique));

// Written in place: it runs once a block, and the message's storage serves again.
std::int16_t Traduire(std::string_view Prefixe, std::span<const Texte_Code> Table,
                      Vue_Octets Reponse, std::string& Message) {
  const std::int16_t Code = Reponse[1];
  const std::string_view* Texte = Texte_De(Table, Code);
  Message = Prefixe;
  Message += Hexadecimal(Reponse[1]);
  Message += " : ";
  Message += Texte != nullptr ? *Texte : "Incorrect";
  return Code;
}

}  // namespace

std::int16_t Etat_Final(Vue_Octets Reponse, std::string& Message) {
  return Traduire("Etat Final", Textes_Etat_Final, Reponse, Message);
}

std::int16_t Erreur_Technique(Vue_Octets Reponse, std::string& Message) {
  return Traduire("Erreur Technique", Textes_Erreur_Technique, Reponse, Message);
}
