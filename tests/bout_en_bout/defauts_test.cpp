// Faults of the library and of the reader through the real program, built so that the buffers lent to the library
// end at a forbidden page. After each, the window is usable and a clean update goes through.

#include "tests/bout_en_bout/Cas.h"

namespace {

struct Famille {
  const char* Nom;
  std::string Base;    // of the reader's scenario
  std::size_t Jamais;  // last bytes of a file, which are never sent
};

const Famille Familles[] = {
    {"telechargement", "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2\nfamille = telechargement\nnum_version = 0150\n", 0},
    {"chargement", "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2\nfamille = chargement\nnum_version = 0200\n", 3}};

/// The reader is refused, the transfer fails, or it succeeds.
enum class Fin { Refus, Echec, Succes };
using enum Fin;

/// How an update ends in each family; the second does not look at lengths. Of every kind that the library's own
/// boundary takes part in: the fault campaign has them all.
const struct {
  std::string Defaut;
  Fin Voulues[2];
} Tous_Les_Defauts[] = {{"OuvrirSession 1 toujours : code 8192", {Refus, Refus}},
                        {"DebutExclusivite 1 toujours : code -1", {Refus, Refus}},
                        {"lecture 1 toujours : code 64 longueur capacite+1", {Refus, Refus}},
                        {"lecture 1 toujours : vide", {Refus, Refus}},
                        {"lecture 1 toujours : octets FF", {Refus, Refus}},
                        {"lecture 1 toujours : longueur 50", {Refus, Refus}},
                        {"demande 1 : code 64", {Succes, Succes}},
                        {"bloc 2 : code 64 livre", {Succes, Succes}},
                        {"appel 1 toujours : noms \\xFF\\xFF", {Succes, Succes}},
                        {"demande 1 toujours : refus", {Echec, Echec}},
                        {"demande 1 toujours : code 64 longueur -1", {Echec, Echec}},
                        {"demande 1 toujours : longueur capacite+1", {Echec, Succes}},
                        {"demande 1 toujours : longueur -2147483648", {Echec, Echec}},
                        {"bloc 2 toujours : silence", {Echec, Echec}},
                        {"bloc 2 toujours : technique", {Echec, Echec}},
                        {"bloc 2 toujours : code 64 longueur capacite+1", {Echec, Echec}},
                        {"bloc 2 toujours : longueur 2147483647", {Echec, Succes}},
                        {"bloc 2 toujours : longueur 1", {Succes, Echec}},
                        {"bloc 2 toujours : nature 99", {Succes, Echec}}};

struct Defauts : Cas, testing::WithParamInterface<std::size_t> {
  const Famille& F = Familles[GetParam()];
  const std::string Entier = Petits.at(Appli).substr(0, Petits.at(Appli).size() - F.Jamais);

  /// One update under a fault, which must end like this: a refusal shows a box, and nothing else does.
  void Charger(const std::string& Defaut, Fin Voulue) {
    const std::size_t Deja = Recus().size(), Deja_Trace = Trace().size();
    Donner_Scenario(F.Base + "defaut = " + Defaut + "\n");
    FMain["CchosseAppli"].Choisir(Appli);
    Demander_Mise_A_Jour();
    Attendre("premier appel",
             [&] { return Trace().size() > Deja_Trace; });  // until then the pane is that of the update before
    if (Voulue == Fin::Refus) {
      Repondre("attention", Terminal);
    } else {
      Repondre("TELECHARGER", Confirmation + Appli + "\r\n", "Oui");
      Attendre_Volet("Arrêt du Galss\n", 40);
    }
    Verifier_Utilisable();
    const bool Reussi = Volet().find("Chargement Réussi.") != std::string::npos;
    EXPECT_EQ(Reussi, Voulue == Fin::Succes);
    const auto Tous = Recus();
    for (std::size_t I = Deja; I < Tous.size(); ++I) EXPECT_TRUE(Entier.starts_with(Tous[I]));
    EXPECT_TRUE(!Reussi || (Tous.size() == Deja + 1 && Tous.back() == Entier)) << "succès annoncé à tort";
  }

  void Verifier_Calme() {
    EXPECT_EQ(Trace().find("FAUTE"), std::string::npos);
    EXPECT_TRUE(FMain["TxtDetails"].Visible());
    EXPECT_TRUE(Volet().starts_with(Entete));
    Donner_Scenario(F.Base);
    FMain["CchosseAppli"].Choisir(Appli);
    Mettre_A_Jour(Appli + "\r\n", "Non");
    Attendre_Volet("mise à jour stoppée par l'utilisateur\nArrêt du Galss\n");
  }
};

TEST_P(Defauts, Sans_Suite) {
  Lancer({.Gardee = true});
  Choisir_Manuellement(Appli);
  for (const auto& [Defaut, Voulues] : Tous_Les_Defauts) {
    Etape = Defaut;
    Charger(Defaut, Voulues[GetParam()]);
    Verifier_Calme();
  }
}

INSTANTIATE_TEST_SUITE_P(Familles, Defauts, testing::Values(0U, 1U),
                         [](const auto& Info) { return Familles[Info.param].Nom; });

}  // namespace
