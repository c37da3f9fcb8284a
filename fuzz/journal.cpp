// A journal's lines into the simulated reader that replays them: the reading, then the first call
// and every frame against what was read.

#include "simulator/Galss_Simulee.h"
#include "simulator/Lecteur_Serie.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  std::string Texte = "Journal de Pavorin, format 1\r\n" + std::string(Donnees, Donnees + Taille);
  const Scenario_Lu Lu = Lire_Scenario("rejouer = a", [&](const std::string&) { return Texte; });
  const Journal_Lu& Journal = *Lu.Contenu.Rejeu;
  Octets Nom = {'T'}, LAD = {'L', 'o', 'g'}, Commande = {1, 0, 0, 0x94, 0x11}, Reponse(4, ' ');
  for (const Cible Operation : {Cible::OuvrirSession, Cible::DebutExclusivite, Cible::Echange, Cible::FermerSession}) {
    Lecteur_Simule Lecteur(Lu.Contenu);
    Galss_Simulee Galss(Lecteur);
    std::int16_t Session = 3, Exclusivite = 7;
    std::int32_t Aller = 5, Retour = 4;
    // As often as there are calls: those that match go through.
    for (std::size_t I = 0; I <= Journal.Appels.size(); ++I) {
      if (Operation == Cible::OuvrirSession) Galss.OuvrirSession(Nom, LAD, Session, Exclusivite);
      if (Operation == Cible::DebutExclusivite) Galss.DebutExclusivite(LAD, Nom, LAD, Exclusivite);
      if (Operation == Cible::Echange) Galss.Echange(3, 0, Commande, Aller, Reponse, Retour);
      if (Operation == Cible::FermerSession) Galss.FermerSession(Session, Exclusivite);
    }
  }
  Lecteur_Serie Serie(Lu.Contenu);
  for (const auto& Envoi : Journal.Envois) Serie.Recevoir(Envoi.Envoyes, Envoi.Vitesse);
  return 0;
}
