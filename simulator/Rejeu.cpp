#include "simulator/Rejeu.h"

#include <algorithm>
#include <array>

#include "simulator/Lecture_Texte.h"

namespace {

constexpr std::int16_t Erreur_Gestionnaire = 1;

using Champs = std::vector<Champ_Note>;

/// A name as the journal writes it, up to the zero that ends it for a library.
std::string Citer(Vue_Octets Nom) {
  std::string Cite = "\"";
  for (const auto Octet : Nom) {
    if (Octet == 0) {
      break;
    }
    const bool Lisible = (Octet >= 0x20 && Octet < 0x7F) || Octet >= 0xA0;
    const std::array<std::uint8_t, 1> Seul = {Octet};
    Cite += Lisible && Octet != '"' && Octet != '\\' ? Ecrire_Caracteres(Seul)
                                                     : "\\x" + Ecrire_Hexa(Seul, 1);
  }
  return Cite + '"';
}

std::string Crocheter(Vue_Octets Donnees) {
  return "[" + Ecrire_Hexa(Donnees, Donnees.size()) + "]";
}

std::string Crc_32(Vue_Octets Donnees) {
  std::uint32_t Reste = 0xFFFFFFFF;
  for (const auto Octet : Donnees) {
    Reste ^= Octet;
    for (int Bit = 0; Bit < 8; ++Bit) {
      Reste = (Reste & 1) != 0 ? Reste >> 1 ^ 0xEDB88320 : Reste >> 1;
    }
  }
  std::string Texte;
  for (int Decalage = 24; Decalage >= 0; Decalage -= 8) {
    const std::array<std::uint8_t, 1> Octet = {static_cast<std::uint8_t>(~Reste >> Decalage)};
    Texte += Ecrire_Hexa(Octet, 1);
  }
  return Texte;
}

std::string Ecrire(const Champ_Note& Champ) {
  return Champ.Nom + "=" + Champ.Valeur;
}

}  // namespace

/// Empty when the call that came is the one of the journal. The rank of a block follows from the
/// order of the calls.
std::string Rejeu::Difference(Cible Operation, const Champs& Venus) const {
  const std::string Venue(Noms_Cibles[static_cast<std::size_t>(Operation)]);
  if (Restants() == 0) {
    return "rien de plus dans le journal, venu " + Venue;
  }
  const auto& Prevu = Appels_[Rang_];
  const std::string Ou = "ligne " + std::to_string(Prevu.Ligne) + " : ";
  if (Prevu.Operation != Operation) {
    return Ou + "attendu " + std::string(Noms_Cibles[static_cast<std::size_t>(Prevu.Operation)]) +
           ", venu " + Venue;
  }
  auto Attendus = Prevu.Demande;
  for (auto& [Nom, Valeur] : Attendus) {
    const auto Zero = Valeur.find("\\x00");
    if (Zero != std::string::npos) {
      Valeur.replace(Zero, std::string::npos, "\"");
    }
  }
  auto Compares = Venus;
  for (auto* Liste : {&Attendus, &Compares}) {
    std::erase_if(*Liste, [&](const Champ_Note& C) {
      return C.Nom == "bloc" || (C.Nom == "crc32" && !Contenu_Compare_);
    });
    Liste->resize(std::max(Attendus.size(), Compares.size()));
  }
  for (std::size_t I = 0; I < Attendus.size(); ++I) {
    if (Ecrire(Attendus[I]) != Ecrire(Compares[I])) {
      return Ou + Venue + ", attendu " + Ecrire(Attendus[I]) + ", venu " + Ecrire(Compares[I]);
    }
  }
  return {};
}

/// Null when the journal has no answer.
const Appel_Note* Rejeu::Suivant(Cible Operation, const Champs& Venus) {
  if (Divergent_) {
    return nullptr;
  }
  const auto Reproche = Difference(Operation, Venus);
  Divergent_ = !Reproche.empty();
  if (Divergent_) {
    Suites_.Faute("rejeu, " + Reproche);
    return nullptr;
  }
  const auto& Appel = Appels_[Rang_++];
  Suites_.Attendre(Appel.Duree_Ms);
  if (Appel.Erreur) {
    Suites_.Lever(*Appel.Erreur, Appel.Description);
    return nullptr;
  }
  return &Appel;
}

std::int16_t Rejeu::OuvrirSession(Tampon Application, Tampon LAD, std::int16_t& Session,
                                  std::int16_t& Info) {
  const auto* Appel =
      Suivant(Cible::OuvrirSession, {{"application", Citer(Application)}, {"lad", Citer(LAD)}});
  if (Appel == nullptr) {
    return Erreur_Gestionnaire;
  }
  Recopier(Appel->Noms.at(0), Application);
  Recopier(Appel->Noms.at(1), LAD);
  Session = Appel->Session;
  Info = Appel->Info;
  return Appel->Code;
}

std::int16_t Rejeu::DebutExclusivite(Tampon Texte, Tampon Application, Tampon LAD,
                                     std::int16_t& Exclusivite) {
  const auto* Appel =
      Suivant(Cible::DebutExclusivite,
              {{"texte", Citer(Texte)}, {"application", Citer(Application)}, {"lad", Citer(LAD)}});
  if (Appel == nullptr) {
    return Erreur_Gestionnaire;
  }
  Recopier(Appel->Noms.at(0), Texte);
  Recopier(Appel->Noms.at(1), Application);
  Recopier(Appel->Noms.at(2), LAD);
  Exclusivite = Appel->Exclusivite;
  return Appel->Code;
}

std::int16_t Rejeu::FinExclusivite(std::int16_t Exclusivite) {
  const auto* Appel =
      Suivant(Cible::FinExclusivite, {{"exclusivite", std::to_string(Exclusivite)}});
  return Appel == nullptr ? Erreur_Gestionnaire : Appel->Code;
}

std::int16_t Rejeu::FermerSession(std::int16_t Session, std::int16_t& Exclusivite) {
  const auto* Appel = Suivant(Cible::FermerSession, {{"session", std::to_string(Session)},
                                                     {"exclusivite", std::to_string(Exclusivite)}});
  if (Appel == nullptr) {
    return Erreur_Gestionnaire;
  }
  Exclusivite = Appel->Exclusivite;
  return Appel->Code;
}

/// What the journal shows of a command tells how much of this one to show.
std::int16_t Rejeu::Echange(std::int16_t Session, std::int16_t Nombre, Tampon Commande,
                            std::int32_t& Longueur_Commande, Tampon Reponse,
                            std::int32_t& Longueur_Reponse) {
  const auto Envoyee = Vue_Octets(Commande).first(Borner(Longueur_Commande, Commande.size()));
  Champs Venus = {{"session", std::to_string(Session)}, {"nombre", std::to_string(Nombre)}};
  const auto Montres = std::min(Envoyee.size(), Restants() == 0 ? 0 : Appels_[Rang_].Montres);
  Venus.push_back({"commande", Crocheter(Envoyee.first(Montres))});
  if (Restants() > 0 && Appels_[Rang_].Abregee) {
    const auto Caches = Envoyee.subspan(Montres);
    Venus.push_back({"donnees", std::to_string(Caches.size())});
    Venus.push_back({"crc32", Crc_32(Caches)});
  }
  Venus.push_back({"longueur", std::to_string(Longueur_Commande)});
  Venus.push_back({"capacite", std::to_string(Longueur_Reponse)});
  const auto* Appel = Suivant(Cible::Echange, Venus);
  if (Appel == nullptr) {
    return Erreur_Gestionnaire;
  }
  Recopier(Appel->Retouches, Commande.subspan(std::min(Appel->Retouche, Commande.size())));
  Longueur_Commande = Appel->Longueur_Commande;
  std::fill(Reponse.begin(), Reponse.end(), ' ');
  Recopier(Appel->Reponse, Reponse);
  Longueur_Reponse = Appel->Recus;
  return Appel->Code;
}
