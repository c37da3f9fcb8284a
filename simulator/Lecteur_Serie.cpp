#include "simulator/Lecteur_Serie.h"

#include <algorithm>

#include "simulator/Lecture_Texte.h"

namespace {

constexpr std::uint8_t Debut_Recu = 0x2F, Debut_Emis = 0xF2;
constexpr std::size_t Entete = 3;  // start, control and payload length
constexpr std::size_t Controles = 2;
constexpr std::uint8_t Reponse_A = 0x20;  // added to the control byte of what is answered

const Octets Contenu_Test = {0x00, 0x14, 0x00, 0xC8};
const Octets Contenu_Config = {0x01, 0x00, 0x00, 0x94};

void Ajouter_Crc(Octets& Trame) {
  const auto Crc = Crc_Kermit(Trame);
  Trame.push_back(static_cast<std::uint8_t>(Crc & 0xFF));
  Trame.push_back(static_cast<std::uint8_t>(Crc >> 8));
}

}  // namespace

std::uint16_t Crc_Kermit(Vue_Octets Donnees) {
  unsigned Crc = 0;
  for (const auto Octet : Donnees) {
    Crc ^= Octet;
    for (int Bit = 0; Bit < 8; ++Bit) {
      Crc = (Crc & 1) != 0 ? (Crc >> 1) ^ 0x8408 : Crc >> 1;
    }
  }
  return static_cast<std::uint16_t>(Crc);
}

void Lecteur_Serie::Tracer(const std::string& Ligne) {
  if (Ecrire_Trace) {
    Ecrire_Trace(Ligne);
  }
}

void Lecteur_Serie::Faute(const std::string& Reproche) {
  Fautes_.push_back(Reproche);
  Tracer("FAUTE: " + Reproche);
}

Lecteur_Serie::Reponse Lecteur_Serie::Recevoir(Vue_Octets Donnees, int Vitesse) {
  Reponse Sortie;
  Tracer("reçu à " + std::to_string(Vitesse) + " bauds : " + Ecrire_Hexa(Donnees, 32));
  if (Regles_.Rejeu) {
    Recus_.insert(Recus_.end(), Donnees.begin(), Donnees.end());
    Rejouer(Vitesse, Sortie);
    return Sortie;
  }
  const auto& Connues = Regles_.Serie.Vitesses;
  if (std::find(Connues.begin(), Connues.end(), Vitesse) == Connues.end()) {
    Recus_.clear();
    return Sortie;
  }
  Recus_.insert(Recus_.end(), Donnees.begin(), Donnees.end());
  while (!Recus_.empty()) {
    if (Recus_.front() != Debut_Recu) {
      Faute("octet hors trame");
      Recus_.erase(Recus_.begin());
      continue;
    }
    const std::size_t Taille = Recus_.size() < Entete ? SIZE_MAX : Entete + Recus_[2] + Controles;
    if (Recus_.size() < Taille) {
      break;
    }
    const Octets Trame(Recus_.begin(), Recus_.begin() + static_cast<std::ptrdiff_t>(Taille));
    Recus_.erase(Recus_.begin(), Recus_.begin() + static_cast<std::ptrdiff_t>(Taille));
    Repondre(Trame, Sortie);
  }
  return Sortie;
}

void Lecteur_Serie::Rejouer(int Vitesse, Reponse& Sortie) {
  const auto& Envois = Regles_.Rejeu->Envois;
  if (Divergent_) {
    return;
  }
  const auto Rang = static_cast<std::size_t>(Trames_);
  const auto Attendus = Rang < Envois.size() ? Vue_Octets(Envois[Rang].Envoyes) : Vue_Octets();
  const auto Communs = std::min(Attendus.size(), Recus_.size());
  const bool Semblables = std::equal(
      Recus_.begin(), Recus_.begin() + static_cast<std::ptrdiff_t>(Communs), Attendus.begin());
  if (Semblables && Recus_.size() < Attendus.size()) {
    return;  // the rest is still to come
  }
  Divergent_ = !Semblables || Recus_.size() != Attendus.size() || Envois[Rang].Vitesse != Vitesse;
  if (Divergent_) {
    const auto Dire = [](Vue_Octets Trame, int Bauds) {
      return Ecrire_Hexa(Trame, 32) + " à " + std::to_string(Bauds) + " bauds";
    };
    return Faute(Attendus.empty()
                     ? "rejeu, rien de plus dans le journal, venu " + Dire(Recus_, Vitesse)
                     : "rejeu, ligne " + std::to_string(Envois[Rang].Ligne) + " : attendu " +
                           Dire(Attendus, Envois[Rang].Vitesse) + ", venu " +
                           Dire(Recus_, Vitesse));
  }
  Recus_.clear();
  ++Trames_;
  for (const auto& Morceau : Envois[Rang].Morceaux) {
    Sortie.Morceaux.push_back(Morceau.Recus);
    Sortie.Delais_Ms.push_back(Regles_.Durees ? Morceau.Delai_Ms : 0);
  }
}

void Lecteur_Serie::Repondre(Vue_Octets Trame, Reponse& Sortie) {
  Octets Verifiee(Trame.begin(), Trame.end() - static_cast<std::ptrdiff_t>(Controles));
  Ajouter_Crc(Verifiee);
  if (!std::equal(Trame.begin(), Trame.end(), Verifiee.begin())) {
    return Faute("octets de contrôle faux");
  }
  if (++Trames_ == Regles_.Serie.Debranche_Apres) {
    Sortie.Debranche = true;
    return;
  }
  const auto Muet = Regles_.Serie.Silence;
  const std::uint8_t Controle = Trame[1];
  const auto Contenu = Trame.subspan(Entete, Trame.size() - Entete - Controles);
  const auto Est = [&](std::uint8_t Attendu, const Octets& Voulu) {
    return Controle == Attendu &&
           std::equal(Contenu.begin(), Contenu.end(), Voulu.begin(), Voulu.end());
  };
  if (Est(0xC0, Contenu_Test)) {
    if (Muet != Mutisme::Test && Muet != Mutisme::Tout) {
      Emettre(Controle, Contenu_Test, Sortie);
    }
  } else if (Est(0x40, Contenu_Config)) {
    if (Muet != Mutisme::Config && Muet != Mutisme::Tout) {
      auto Config = Regles_.Identite.Enregistrement();
      Config.insert(Config.begin(), Regles_.Octet_Etat);
      const auto Taille = static_cast<std::size_t>(Regles_.Serie.Longueur_Config);
      Config.resize(Taille - Entete - Controles, ' ');
      Emettre(Controle, Config, Sortie);
    }
  } else {
    Faute("trame inconnue");
  }
}

void Lecteur_Serie::Emettre(std::uint8_t Controle, Octets Contenu, Reponse& Sortie) const {
  const auto& Serie = Regles_.Serie;
  Octets Trame = {Debut_Emis, static_cast<std::uint8_t>(Controle | Reponse_A),
                  static_cast<std::uint8_t>(Contenu.size())};
  Trame.insert(Trame.end(), Contenu.begin(), Contenu.end());
  Ajouter_Crc(Trame);
  Trame.insert(Trame.begin(), Serie.Bruit_Avant.begin(), Serie.Bruit_Avant.end());
  Trame.insert(Trame.end(), Serie.Bruit_Apres.begin(), Serie.Bruit_Apres.end());
  const auto Pas = Serie.Morceaux == 0 ? Trame.size() : Serie.Morceaux;
  for (std::size_t i = 0; i < Trame.size(); i += Pas) {
    const auto Morceau = Vue_Octets(Trame).subspan(i, std::min(Pas, Trame.size() - i));
    Sortie.Morceaux.emplace_back(Morceau.begin(), Morceau.end());
  }
}
