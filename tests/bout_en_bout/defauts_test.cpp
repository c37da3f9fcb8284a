// Faults of the library and of the reader through the real program, built so that the buffers lent to the library
// end at a forbidden page. After each, the window is usable and a clean update goes through.

#include <algorithm>

#include "tests/bout_en_bout/Cas.h"

namespace {

struct Famille {
  const char* Nom;
  std::string Base;    // of the reader's scenario
  std::size_t Jamais;  // last bytes of a file, which are never sent
  /// Ends of the odd answers that this family takes for an agreement; the second does not look at lengths.
  std::vector<std::string> Admises;
};

const Famille Telechargement = {
    "telechargement",
    "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2\nfamille = telechargement\nnum_version = 0150\n",
    0,
    {"nature 99", "vide", "bloc 2 toujours : longueur 1"}};
const Famille Chargement = {"chargement",
                            "type_lecteur = LECTEUR BIFENTE 2.0M-XA-V2\nfamille = chargement\nnum_version = 0200\n",
                            3,
                            {"longueur capacite+1", "longueur 2147483647"}};

/// The reader is refused, the transfer fails, or it succeeds.
enum class Fin { Refus, Echec, Succes };

// Several groups, so that several PCs share them.
constexpr std::size_t Groupes = 3;

std::vector<std::pair<std::string, Fin>> Tous_Les_Cas(const Famille& F) {
  std::vector<std::pair<std::string, Fin>> Tous;
  for (const std::string Appel : {"OuvrirSession", "DebutExclusivite"})
    for (const char* Code : {"64", "2048", "8192", "-1", "12345"})
      Tous.push_back({Appel + " 1 toujours : code " + Code, Fin::Refus});
  for (const std::string Effet : {"silence", "code 64", "code 64 longueur 0", "code 64 longueur capacite+1", "vide",
                                  "technique", "octets 00 35", "octets FF", "longueur 0", "longueur 2", "longueur 50"})
    Tous.push_back({"lecture 1 toujours : " + Effet, Fin::Refus});
  for (const char* Reprise : {"demande 1 : code 64", "bloc 2 : code 64 livre", "appel 1 toujours : noms \\xFF\\xFF"})
    Tous.push_back({Reprise, Fin::Succes});
  const auto Repondre = [&](const std::string& Trame, const std::vector<std::string>& Effets) {
    for (const std::string& Effet : Effets) {
      const std::string Defaut = Trame + Effet;
      const bool Admise = Effet.find("code") == std::string::npos &&
                          std::ranges::any_of(F.Admises, [&](const auto& A) { return Defaut.ends_with(A); });
      Tous.push_back({Defaut, Admise ? Fin::Succes : Fin::Echec});
    }
  };
  Repondre("demande 1 toujours : ",
           {"silence", "code 64", "code 64 longueur -1", "refus", "technique", "nature 99", "longueur 1",
            "longueur capacite+1", "longueur -1", "longueur -2147483648", "vide"});
  Repondre("bloc 2 toujours : ", {"silence", "code 64", "code 64 longueur capacite+1", "refus", "technique",
                                  "nature 99", "longueur 1", "longueur 2147483647", "longueur -1", "octets 01"});
  return Tous;
}

struct Defauts : Cas, testing::WithParamInterface<std::tuple<const Famille*, std::size_t>> {
  const Famille& F = *std::get<0>(GetParam());
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
  const auto Tous = Tous_Les_Cas(F);
  for (std::size_t I = std::get<1>(GetParam()); I < Tous.size(); I += Groupes) {
    Etape = Tous[I].first;
    Charger(Tous[I].first, Tous[I].second);
    Verifier_Calme();
  }
}

INSTANTIATE_TEST_SUITE_P(Familles, Defauts,
                         testing::Combine(testing::Values(&Telechargement, &Chargement),
                                          testing::Range(std::size_t{0}, Groupes)),
                         [](const auto& Info) {
                           return std::get<0>(Info.param)->Nom + std::to_string(std::get<1>(Info.param));
                         });

}  // namespace
