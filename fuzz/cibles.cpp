// The fuzz targets, by their names; CIBLE is the one that this program searches.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>

#include "simulator/Lecteur_Serie.h"
#include "tests/campagne/Epreuve.h"

namespace {

using Source = FuzzedDataProvider;

Octets Reste_De(Source& Donnees) {
  return Donnees.ConsumeRemainingBytes<std::uint8_t>();
}

/// Plays the case and stops the fuzzer at the first complaint.
void Passer(Epreuve& E, const std::string& Nom) {
  E.Passer();
  for (const auto& Plainte : E.Plaintes) {
    std::fprintf(stderr, "%s : %s\n", Nom.c_str(), Plainte.c_str());
    std::abort();
  }
}

/// An update in which the library's replies follow the fuzzer: up to 12 exchanges, each with its
/// rank, its result code, its announced length and its bytes.
void Repondre(Source& Donnees, std::string Nom) {
  for (int I = 0; I < 12 && Donnees.remaining_bytes() > 0; ++I) {
    Nom += (I == 0 ? "/Echange_" : ",Echange_") + std::to_string(Donnees.ConsumeIntegralInRange(1, 16)) + ":";
    if (Donnees.ConsumeBool()) Nom += "code_" + std::to_string(Donnees.ConsumeIntegral<std::int8_t>()) + "_";
    if (Donnees.ConsumeBool()) Nom += "longueur_" + std::to_string(Donnees.ConsumeIntegral<std::int16_t>()) + "_";
    Nom += "octets";
    const auto Rendus = Donnees.ConsumeBytes<std::uint8_t>(Donnees.ConsumeIntegralInRange(0U, 3U));
    for (const auto Octet : Rendus) Nom += "_" + Hexadecimal(Octet);
    if (Rendus.empty()) Nom += "_00";
  }
  Epreuve E(Nom);
  Passer(E, Nom);
}

/// The reader's configuration as the library answers it: admission, decision, family.
void Configuration(Source& Donnees) {
  const int Longueur = Donnees.ConsumeIntegralInRange(0, 4095);
  std::string Nom = "650/lecteur:trace=non,lecture_1:longueur_" + std::to_string(Longueur) + "_octets_00";
  for (const auto Octet : Donnees.ConsumeBytes<std::uint8_t>(200)) Nom += "_" + Hexadecimal(Octet);
  Epreuve E(Nom);
  Passer(E, Nom);
}

/// Serial bytes into the reader test, at any moment and in any pieces.
void Liaison_Serie(Source& Donnees) {
  Epreuve E("serie-9600");
  E.Port.Repondre = [&](Vue_Octets, const std::string&) {
    for (int Morceaux = Donnees.ConsumeIntegralInRange(0, 3); Morceaux > 0; --Morceaux) {
      const double Delai = Donnees.ConsumeFloatingPointInRange(0.0, 2.55);
      E.Port.Envoyer(Donnees.ConsumeBytes<std::uint8_t>(Donnees.ConsumeIntegral<std::uint8_t>()), Delai);
    }
  };
  Passer(E, "serie-9600");
}

/// A configuration answer of the right size, whatever it holds, into the configuration window.
void Configuration_Serie(Source& Donnees) {
  Octets Config = Reste_De(Donnees);
  const std::string_view Constructeur = "INGENICO";
  const bool Lisible = Config.size() % 8 != 0;
  Config.resize(123, ' ');
  if (Lisible) std::ranges::copy(Constructeur, Config.begin() + 4);
  Epreuve E("serie-9600");
  const auto Du_Lecteur = E.Port.Repondre;
  E.Port.Repondre = [&](Vue_Octets Trame, const std::string& Reglages) {
    Trame[1] == 0x40 ? E.Port.Envoyer(Config) : Du_Lecteur(Trame, Reglages);
  };
  Passer(E, "serie-9600");
}

/// File names into the catalogue and the selection panel, in both modes, then an update.
void Noms(Source& Donnees) {
  Epreuve E(Donnees.ConsumeBool() ? "tele/lecteur:trace=non" : "manuel/lecteur:trace=non");
  for (int I = 0; I < 40 && Donnees.remaining_bytes() > 0; ++I) {
    const std::string Debut = Donnees.PickValueInArray({"Fexa", "E", ""});
    const std::string Fin = Donnees.ConsumeBool() ? ".ing" : "";
    std::string Nom = Debut + Donnees.ConsumeBytesAsString(Donnees.ConsumeIntegralInRange(0U, 31U)) + Fin;
    std::ranges::replace(Nom, '\\', '_');
    E.Disque.Poser("C:\\Pavorin\\" + Nom, Contenu_De(Nom, 600));
  }
  Passer(E, E.Pane());
}

/// The settings file's text into the start-up.
void Reglages(Source& Donnees) {
  Epreuve E("demarrage");
  E.Profil.Repertoire() = Reste_De(Donnees);
  Passer(E, "demarrage");
}

/// A journal's lines into the simulated reader that replays them: the reading, then the first call
/// and every frame against what was read.
void Journal(Source& Donnees) {
  const std::string Texte = "Journal de Pavorin, format 1\r\n" + Donnees.ConsumeRemainingBytesAsString();
  const Scenario_Lu Lu = Lire_Scenario("rejouer = a", [&](const std::string&) { return Texte; });
  const Journal_Lu& Rejeu = *Lu.Contenu.Rejeu;
  Octets Nom = {'T'}, LAD = {'L', 'o', 'g'}, Commande = {1, 0, 0, 0x94, 0x11}, Reponse(4, ' ');
  for (const Cible Operation : {Cible::OuvrirSession, Cible::DebutExclusivite, Cible::Echange, Cible::FermerSession}) {
    Lecteur_Simule Lecteur(Lu.Contenu);
    std::int16_t Session = 3, Exclusivite = 7;
    std::int32_t Aller = 5, Retour = 4;
    // As often as there are calls: those that match go through.
    for (std::size_t I = 0; I <= Rejeu.Appels.size(); ++I) {
      if (Operation == Cible::OuvrirSession) Lecteur.OuvrirSession(Nom, LAD, Session, Exclusivite);
      if (Operation == Cible::DebutExclusivite) Lecteur.DebutExclusivite(LAD, Nom, LAD, Exclusivite);
      if (Operation == Cible::Echange) Lecteur.Echange(3, 0, Commande, Aller, Reponse, Retour);
      if (Operation == Cible::FermerSession) Lecteur.FermerSession(Session, Exclusivite);
    }
  }
  Lecteur_Serie Serie(Lu.Contenu);
  for (const auto& Envoi : Rejeu.Envois) Serie.Recevoir(Envoi.Envoyes, Envoi.Vitesse);
}

const std::map<std::string_view, void (*)(Source&)> Cibles = {
    {"telechargement", [](Source& Donnees) { Repondre(Donnees, "tele"); }},
    {"chargement", [](Source& Donnees) { Repondre(Donnees, "charge"); }},
    {"configuration", Configuration},
    {"liaison_serie", Liaison_Serie},
    {"configuration_serie", Configuration_Serie},
    {"noms", Noms},
    {"reglages", Reglages},
    {"journal", Journal}};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Donnees, std::size_t Taille) {
  Source Lue(Donnees, Taille);
  Cibles.at(CIBLE)(Lue);
  return 0;
}
