#include "simulator/Journal_Lu.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "simulator/Lecture_Texte.h"

namespace {

constexpr std::string_view Premiere_Ligne = "Journal de Pavorin, format 1";
constexpr std::string_view Genres[] = {"POSTE",     "GALSS",   "SERIE",   "VOLET",
                                       "BOITE",     "FENETRE", "FICHIER", "REGLAGE",
                                       "PROCESSUS", "ERREUR",  "FIN"};
constexpr long Ms_Par_Jour = 24L * 60 * 60 * 1000;

using Champs = std::vector<Champ_Note>;

struct Ligne_Lue {
  int Numero = 0;
  long Heure_Ms = 0;
  std::string_view Genre, Mot;
  Champs Demande, Reponse;
};

[[noreturn]] void Refuser(const std::string& Raison) {
  throw std::invalid_argument(Raison);
}

/// Takes the text up to the separator off, and the separator too; all of it when there is none.
std::string_view Prendre(std::string_view& Texte, char Separateur) {
  const auto Fin = std::min(Texte.find(Separateur), Texte.size());
  const auto Pris = Texte.substr(0, Fin);
  Texte.remove_prefix(std::min(Fin + 1, Texte.size()));
  return Pris;
}

/// "HH:MM:SS.mmm"
long Lire_Heure(std::string_view Texte) {
  if (Texte.size() != 12 || Texte[2] != ':' || Texte[5] != ':' || Texte[8] != '.') {
    Refuser("heure attendue au lieu de \"" + std::string(Texte) + "\"");
  }
  return Lire_Nombre(Texte.substr(0, 2), 0, 23) * 3600000 +
         Lire_Nombre(Texte.substr(3, 2), 0, 59) * 60000 +
         Lire_Nombre(Texte.substr(6, 2), 0, 59) * 1000 + Lire_Nombre(Texte.substr(9, 3), 0, 999);
}

/// Length of the quoted text at the beginning, quotes included.
std::size_t Longueur_Citee(std::string_view Texte) {
  for (std::size_t I = 1; I < Texte.size(); ++I) {
    if (Texte[I] == '"') {
      return I + 1;
    }
    if (Texte[I] == '\\' &&
        std::string_view("\\\"rntx").find(Texte[++I]) == std::string_view::npos) {
      break;
    }
  }
  Refuser("texte mal cité");
}

std::string_view Prendre_Valeur(std::string_view& Texte) {
  if (Texte.empty() || (Texte.front() != '"' && Texte.front() != '[')) {
    return Prendre(Texte, ' ');
  }
  const auto Longueur = Texte.front() == '"' ? Longueur_Citee(Texte) : Texte.find(']') + 1;
  if (Longueur == 0 || (Longueur < Texte.size() && Texte[Longueur] != ' ')) {
    Refuser("valeur mal terminée");
  }
  const auto Valeur = Texte.substr(0, Longueur);
  Texte.remove_prefix(std::min(Longueur + 1, Texte.size()));
  return Valeur;
}

Ligne_Lue Analyser(std::string_view Texte, int Numero) {
  Ligne_Lue Lue;
  Lue.Numero = Numero;
  Lue.Heure_Ms = Lire_Heure(Prendre(Texte, ' '));
  Lue.Genre = Prendre(Texte, ' ');
  if (std::find(std::begin(Genres), std::end(Genres), Lue.Genre) == std::end(Genres)) {
    Refuser("genre inconnu \"" + std::string(Lue.Genre) + "\"");
  }
  if (Texte.substr(0, Texte.find(' ')).find('=') == std::string_view::npos) {
    Lue.Mot = Prendre(Texte, ' ');
  }
  bool Repondu = false;
  while (!Texte.empty()) {
    if (Texte.starts_with("-> ")) {
      Repondu = true;
      Texte.remove_prefix(3);
    }
    const auto Nom = Texte.find('=') == std::string_view::npos ? "" : Prendre(Texte, '=');
    if (Nom.empty() || Nom.find_first_of(" \"[") != std::string_view::npos) {
      Refuser("\"nom=valeur\" attendu");
    }
    (Repondu ? Lue.Reponse : Lue.Demande)
        .push_back({std::string(Nom), std::string(Prendre_Valeur(Texte))});
  }
  return Lue;
}

const std::string* Chercher(const Champs& Liste, std::string_view Nom) {
  const auto Trouve =
      std::find_if(Liste.begin(), Liste.end(), [&](const auto& C) { return C.Nom == Nom; });
  return Trouve == Liste.end() ? nullptr : &Trouve->Valeur;
}

const std::string& Exiger(const Champs& Liste, std::string_view Nom) {
  const auto* Valeur = Chercher(Liste, Nom);
  if (Valeur == nullptr) {
    Refuser("\"" + std::string(Nom) + "\" manque");
  }
  return *Valeur;
}

template <class Entier>
Entier Nombre(const Champs& Liste, std::string_view Nom) {
  return static_cast<Entier>(Lire_Nombre(Exiger(Liste, Nom), std::numeric_limits<Entier>::min(),
                                         std::numeric_limits<Entier>::max()));
}

std::string_view Entre(const Champs& Liste, std::string_view Nom, char Debut) {
  const std::string_view Valeur = Exiger(Liste, Nom);
  if (!Valeur.starts_with(Debut)) {
    Refuser("\"" + std::string(Nom) + "\" : valeur d'une autre forme");
  }
  return Valeur.substr(1, Valeur.size() - 2);
}

Octets Hexa(const Champs& Liste, std::string_view Nom) {
  return Lire_Hexa(Entre(Liste, Nom, '['));
}

/// A quoted text without its quotes and escapes.
std::string Texte_De(const Champs& Liste, std::string_view Nom) {
  const std::string_view Cite = Entre(Liste, Nom, '"');
  std::string Texte;
  for (std::size_t I = 0; I < Cite.size(); ++I) {
    if (Cite[I] != '\\') {
      Texte += Cite[I];
      continue;
    }
    constexpr std::string_view Abreges = "\\\"rnt";
    const auto Abrege = Abreges.find(Cite[++I]);
    if (Abrege < Abreges.size()) {
      Texte += "\\\"\r\n\t"[Abrege];
    } else {
      const auto Octet = Lire_Hexa(Cite.substr(I + 1, 2));
      Texte += static_cast<char>(Octet.empty() ? 0 : Octet.front());
      I += 2;
    }
  }
  return Texte;
}

Octets Nom(const Champs& Liste, std::string_view Lequel) {
  return Lire_Caracteres(Entre(Liste, Lequel, '"'));
}

void Lire_Echange(Appel_Note& Appel, const Champs& Rendus) {
  Appel.Longueur_Commande = Nombre<std::int32_t>(Rendus, "longueur");
  Appel.Recus = Nombre<std::int32_t>(Rendus, "recus");
  Appel.Reponse = Hexa(Rendus, "reponse");
  if (Chercher(Rendus, "retouche") != nullptr) {
    const auto Debut = Lire_Nombre(Exiger(Rendus, "retouche"), 0, INT32_MAX);
    Appel.Retouche = static_cast<std::size_t>(Debut);
    Appel.Retouches = Hexa(Rendus, "octets");
  }
}

void Lire_Rendus(Appel_Note& Appel, const Champs& Rendus) {
  switch (Appel.Operation) {
    case Cible::OuvrirSession:
      Appel.Noms = {Nom(Rendus, "application"), Nom(Rendus, "lad")};
      Appel.Session = Nombre<std::int16_t>(Rendus, "session");
      Appel.Info = Nombre<std::int16_t>(Rendus, "info");
      break;
    case Cible::DebutExclusivite:
      Appel.Noms = {Nom(Rendus, "texte"), Nom(Rendus, "application"), Nom(Rendus, "lad")};
      Appel.Exclusivite = Nombre<std::int16_t>(Rendus, "exclusivite");
      break;
    case Cible::FermerSession:
      Appel.Exclusivite = Nombre<std::int16_t>(Rendus, "exclusivite");
      break;
    case Cible::Echange:
      Lire_Echange(Appel, Rendus);
      break;
    default:
      break;
  }
}

Appel_Note Lire_Appel(const Ligne_Lue& Lue) {
  const auto Premier = Noms_Cibles.begin() + static_cast<int>(Cible::OuvrirSession);
  const auto Apres = Noms_Cibles.begin() + static_cast<int>(Cible::FermerSession) + 1;
  const auto Operation = std::find(Premier, Apres, Lue.Mot);
  if (Operation == Apres) {
    Refuser("opération inconnue \"" + std::string(Lue.Mot) + "\"");
  }
  Appel_Note Appel;
  Appel.Ligne = Lue.Numero;
  Appel.Operation = static_cast<Cible>(Operation - Noms_Cibles.begin());
  Appel.Demande = Lue.Demande;
  if (Appel.Operation == Cible::Echange) {
    Appel.Montres = Hexa(Lue.Demande, "commande").size();
    Appel.Abregee = Chercher(Lue.Demande, "donnees") != nullptr;
  }
  const std::string_view Duree = Exiger(Lue.Reponse, "duree_ms");
  Appel.Duree_Ms = static_cast<int>(Lire_Nombre(Duree.substr(0, Duree.find('.')), 0, INT32_MAX));
  if (Chercher(Lue.Reponse, "erreur") != nullptr) {
    Appel.Erreur = Nombre<int>(Lue.Reponse, "erreur");
    Appel.Description = Texte_De(Lue.Reponse, "description");
    return Appel;
  }
  Appel.Code = Nombre<std::int16_t>(Lue.Reponse, "code");
  Lire_Rendus(Appel, Lue.Reponse);
  return Appel;
}

/// What one line adds to the conversation on the serial line.
struct Suivi_Serie {
  int Vitesse = 0;
  long Heure_Ms = 0;  // of the last frame or piece

  void Lire(const Ligne_Lue& Lue, std::vector<Envoi_Note>& Envois) {
    if (Lue.Mot == "Regler") {
      const auto Reglages = Entre(Lue.Demande, "reglages", '"');
      Vitesse = static_cast<int>(Lire_Nombre(Reglages.substr(0, Reglages.find(',')), 1, INT32_MAX));
    } else if (Lue.Mot == "Ecrire") {
      Envois.push_back({Lue.Numero, Vitesse, Hexa(Lue.Demande, "octets"), {}});
      Heure_Ms = Lue.Heure_Ms;
    } else if (Lue.Mot == "Recevoir") {
      const auto Recus = Hexa(Lue.Demande, "octets");
      if (!Envois.empty()) {
        const auto Delai = (Lue.Heure_Ms - Heure_Ms + Ms_Par_Jour) % Ms_Par_Jour;
        Envois.back().Morceaux.push_back({Recus, static_cast<int>(Delai)});
        Heure_Ms = Lue.Heure_Ms;
      }
    } else if (Lue.Mot != "Ouvrir" && Lue.Mot != "Fermer") {
      Refuser("mot inconnu \"" + std::string(Lue.Mot) + "\"");
    }
  }
};

}  // namespace

Journal_Lu Lire_Journal(std::string_view Texte) {
  constexpr std::string_view Marque_Utf8 = "\xEF\xBB\xBF";
  Texte.remove_prefix(Texte.starts_with(Marque_Utf8) ? Marque_Utf8.size() : 0);
  Journal_Lu Lu;
  Suivi_Serie Serie;
  for (int Numero = 1; Numero == 1 || !Texte.empty(); ++Numero) {
    try {
      if (Texte.find('\n') == std::string_view::npos) {
        Refuser("ligne inachevée");
      }
      auto Ligne = Prendre(Texte, '\n');
      Ligne.remove_suffix(Ligne.ends_with('\r') ? 1 : 0);
      if (Numero == 1) {
        if (Ligne != Premiere_Ligne) {
          Refuser("ce n'est pas un journal de Pavorin");
        }
        continue;
      }
      const auto Lue = Analyser(Ligne, Numero);
      if (Lue.Genre == "GALSS") {
        Lu.Appels.push_back(Lire_Appel(Lue));
      } else if (Lue.Genre == "SERIE") {
        Serie.Lire(Lue, Lu.Envois);
      }
    } catch (const std::invalid_argument& Raison) {
      throw std::invalid_argument("ligne " + std::to_string(Numero) + " : " + Raison.what());
    }
  }
  return Lu;
}
