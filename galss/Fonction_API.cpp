#include "galss/Fonction_API.h"

#include <array>

#include "galss/Textes_Codes.h"

namespace {

constexpr std::array<Texte_Code, 4> Textes_Telechargement = {{
    {50, "Problème de chargement"},
    {51, "Version logicielle déjà chargée ou incorrecte"},
    {52, "Format de logiciel incorrect"},
    {53, "Taille de logiciel incorrecte"},
}};
static_assert(Est_Triee(Textes_Telechargement));

// The two lowest are the 16-bit patterns 8004 and 8008.
constexpr std::array<Texte_Code, 17> Textes_Galss = {{
    {-32764, "Pas de numéro de session disponible"},
    {-32760, "Ressource non accessible"},
    {-1, "Longueur de message reçue incorrecte"},
    {1, "Erreur dans le gestionnaire"},
    {2, "Plus de ressource dans la table des gestionnaires"},
    {4, "LAD pris en exclusivité par une autre application"},
    {8, "Une exclusivité est déjà en cours pour cette application"},
    {16, "Taille du message de réponse trop petite"},
    {64, "Transfert abandonné par le matériel"},
    {128, "Transfert abandonné par le gestionnaire"},
    {256, "Temps alloué pour l'application insuffisantepour cette commande"},
    {512, "Erreur protocole"},
    {1024,
     "Pas de réponse du matériel, vérifez :\r\n"
     "la connexion entre le PC et le lecteur\r\n"
     " que le lecteur est en attente d'un ordre\r\n"
     "la configuration de la liaison série(Port COM, vitesse, ...)"},
    {2048, "La session est déjà ouverte"},
    {4096, "La session est inconnue"},
    {8196, "LAD non définie dans le fichier de configuration"},
    {16384, "Erreur de parametre"},
}};
static_assert(Est_Triee(Textes_Galss));

void Composer(std::string_view Prefixe, std::string_view Separateur,
              std::span<const Texte_Code> Table, std::int16_t Code, std::string& Message) {
  if (const std::string_view* Texte = Texte_De(Table, Code)) Message = *Texte;
  Message.insert(0, std::string(Prefixe) + std::to_string(Code) + std::string(Separateur));
}

}  // namespace

void Erreur_Telechargement(std::string_view /*Operation*/, std::int16_t Code,
                           std::string& Message) {
  Composer("Erreur de Téléchargement ", ":", Textes_Telechargement, Code, Message);
}

void Erreur_Galss(std::string_view /*Operation*/, std::int16_t Code, std::string& Message) {
  Composer("Erreur GALSS ", " : ", Textes_Galss, Code, Message);
}
