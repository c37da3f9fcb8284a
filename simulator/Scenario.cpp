#include "simulator/Scenario.h"

#include <functional>
#include <map>
#include <stdexcept>

#include "simulator/Lecture_Texte.h"

namespace {

using Lecture_Cle = std::function<void(Scenario&, std::string_view)>;

template <class Entier>
Lecture_Cle Nombre(Entier Scenario::*Membre, long Minimum, long Maximum) {
  return [=](Scenario& S, std::string_view Valeur) {
    S.*Membre = static_cast<Entier>(Lire_Nombre(Valeur, Minimum, Maximum));
  };
}

template <class Entier>
Lecture_Cle Nombre(Entier Reglages_Serie::*Membre, long Minimum, long Maximum) {
  return [=](Scenario& S, std::string_view Valeur) {
    S.Serie.*Membre = static_cast<Entier>(Lire_Nombre(Valeur, Minimum, Maximum));
  };
}

Lecture_Cle Hexa(Octets Reglages_Serie::*Membre) {
  return [=](Scenario& S, std::string_view Valeur) { S.Serie.*Membre = Lire_Hexa(Valeur); };
}

template <class Valeur_Nommee>
Valeur_Nommee Choisir(const std::map<std::string_view, Valeur_Nommee>& Choix,
                      std::string_view Valeur) {
  const auto Trouve = Choix.find(Valeur);
  if (Trouve == Choix.end()) {
    std::string Noms;
    for (const auto& [Nom, _] : Choix) {
      Noms += (Noms.empty() ? "" : ", ") + std::string(Nom);
    }
    throw std::invalid_argument("valeur inconnue \"" + std::string(Valeur) + "\" (" + Noms + ")");
  }
  return Trouve->second;
}

void Lire_Vitesses(Scenario& S, std::string_view Valeur) {
  S.Serie.Vitesses.clear();
  for (const auto Vitesse : Decouper(Valeur, ',')) {
    S.Serie.Vitesses.push_back(static_cast<int>(Lire_Nombre(Vitesse, 1, 4000000)));
  }
}

void Lire_Famille(Scenario& S, std::string_view Valeur) {
  using Choix = std::optional<Famille_Trames>;
  S.Famille = Choisir<Choix>({{"telechargement", Famille_Trames::Telechargement},
                              {"chargement", Famille_Trames::Chargement},
                              {"toutes", std::nullopt}},
                             Valeur);
}

void Lire_Silence(Scenario& S, std::string_view Valeur) {
  S.Serie.Silence = Choisir<Mutisme>({{"non", Mutisme::Aucun},
                                      {"test", Mutisme::Test},
                                      {"config", Mutisme::Config},
                                      {"tout", Mutisme::Tout}},
                                     Valeur);
}

const std::map<std::string_view, Lecture_Cle>& Cles() {
  static const std::map<std::string_view, Lecture_Cle> Table = {
      {"octet_etat", Nombre(&Scenario::Octet_Etat, 0, 255)},
      {"taille_bloc", Nombre(&Scenario::Taille_Bloc, 0, 255)},
      {"delai_ms", Nombre(&Scenario::Delai_Ms, 0, 3600000)},
      {"lectures_muettes", Nombre(&Scenario::Lectures_Muettes, 0, INT_MAX)},
      {"code_muet", Nombre(&Scenario::Code_Muet, INT16_MIN, INT16_MAX)},
      {"premier_fichier",
       [](Scenario& S, std::string_view Valeur) {
         S.Premier_Est_Noyau = Choisir<bool>({{"noyau", true}, {"appli", false}}, Valeur);
       }},
      {"famille", Lire_Famille},
      {"lad", [](Scenario& S, std::string_view Valeur) { S.LAD = Valeur; }},
      {"session", Nombre(&Scenario::Session, INT16_MIN, INT16_MAX)},
      {"exclusivite", Nombre(&Scenario::Exclusivite, INT16_MIN, INT16_MAX)},
      {"info", Nombre(&Scenario::Info, INT16_MIN, INT16_MAX)},
      {"trace", [](Scenario& S, std::string_view Valeur) { S.Trace = Lire_Oui_Non(Valeur); }},
      {"defaut",
       [](Scenario& S, std::string_view Valeur) { S.Defauts.push_back(Lire_Defaut(Valeur)); }},
      {"rejouer", [](Scenario& S, std::string_view Valeur) { S.Rejouer = Valeur; }},
      {"durees", [](Scenario& S, std::string_view Valeur) { S.Durees = Lire_Oui_Non(Valeur); }},
      {"contenu", [](Scenario& S, std::string_view Valeur) { S.Contenu = Lire_Oui_Non(Valeur); }},
      {"vitesses", Lire_Vitesses},
      {"morceaux", Nombre(&Reglages_Serie::Morceaux, 0, 1000)},
      {"delai_morceaux_ms", Nombre(&Reglages_Serie::Delai_Morceaux_Ms, 0, 60000)},
      {"bruit_avant", Hexa(&Reglages_Serie::Bruit_Avant)},
      {"bruit_apres", Hexa(&Reglages_Serie::Bruit_Apres)},
      {"silence", Lire_Silence},
      {"longueur_config", Nombre(&Reglages_Serie::Longueur_Config, 5, 260)},
      {"debranche_apres", Nombre(&Reglages_Serie::Debranche_Apres, -1, INT_MAX)},
  };
  return Table;
}

/// "type_os" is the reader's at power-up, "type_os_apres_noyau" and "_apres_appli" what it becomes.
bool Lire_Champ(Scenario& S, std::string_view Cle, std::string_view Valeur) {
  for (std::size_t i = 0; i < Champs_Identification.size(); ++i) {
    const auto Nom = Champs_Identification[i].Cle;
    if (!Cle.starts_with(Nom)) {
      continue;
    }
    Changements Initiaux;
    const auto Suite = Cle.substr(Nom.size());
    Changements* const Cible = Suite.empty()             ? &Initiaux
                               : Suite == "_apres_noyau" ? &S.Apres_Noyau
                               : Suite == "_apres_appli" ? &S.Apres_Appli
                                                         : nullptr;
    if (Cible != nullptr) {
      (*Cible)[i] = Lire_Caracteres(Valeur);
      S.Identite.Changer(Initiaux);
      return true;
    }
  }
  return false;
}

void Lire_Ligne(Scenario& S, std::string_view Ligne) {
  const auto Egal = Ligne.find('=');
  if (Egal == std::string_view::npos) {
    throw std::invalid_argument("\"cle = valeur\" attendu au lieu de \"" + std::string(Ligne) +
                                "\"");
  }
  const auto Cle = Sans_Blancs(Ligne.substr(0, Egal));
  const auto Valeur = Sans_Blancs(Ligne.substr(Egal + 1));
  const auto Trouvee = Cles().find(Cle);
  if (Trouvee != Cles().end()) {
    Trouvee->second(S, Valeur);
  } else if (!Lire_Champ(S, Cle, Valeur)) {
    throw std::invalid_argument("clé inconnue \"" + std::string(Cle) + "\"");
  }
}

/// A refused journal answers nothing: the reader would answer something else.
void Charger_Rejeu(Scenario_Lu& Lu, const Lecture_Fichier& Lire) {
  Lu.Contenu.Rejeu.emplace();
  try {
    if (!Lire) {
      throw std::invalid_argument("aucun journal ne peut être lu ici");
    }
    Lu.Contenu.Rejeu = Lire_Journal(Lire(Lu.Contenu.Rejouer));
  } catch (const std::invalid_argument& Erreur) {
    Lu.Erreurs.push_back(Lu.Contenu.Rejouer + ", " + Erreur.what());
  }
}

}  // namespace

Scenario_Lu Lire_Scenario(std::string_view Texte, const Lecture_Fichier& Lire) {
  constexpr std::string_view Marque_Utf8 = "\xEF\xBB\xBF";
  Texte.remove_prefix(Texte.starts_with(Marque_Utf8) ? Marque_Utf8.size() : 0);
  Scenario_Lu Lu;
  for (int Numero = 1; !Texte.empty(); ++Numero) {
    const auto Fin = std::min(Texte.find('\n'), Texte.size());
    const auto Ligne = Texte.substr(0, Fin);
    Texte.remove_prefix(std::min(Fin + 1, Texte.size()));
    for (const auto Partie : Decouper(Ligne.substr(0, Ligne.find('#')), ';')) {
      try {
        Lire_Ligne(Lu.Contenu, Partie);
      } catch (const std::invalid_argument& Erreur) {
        Lu.Erreurs.push_back("ligne " + std::to_string(Numero) + " : " + Erreur.what());
      }
    }
  }
  if (!Lu.Contenu.Rejouer.empty()) {
    Charger_Rejeu(Lu, Lire);
  }
  return Lu;
}

Scenario Scenario_De(std::string_view Texte, const Lecture_Fichier& Lire) {
  auto Lu = Lire_Scenario(Texte, Lire);
  if (!Lu.Erreurs.empty()) {
    throw std::invalid_argument(Lu.Erreurs.front());
  }
  return Lu.Contenu;
}
