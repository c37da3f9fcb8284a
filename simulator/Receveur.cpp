#include "simulator/Receveur.h"

#include <algorithm>

namespace {

// The program gives up waiting for a reader that restarts after this many reads.
constexpr int Lectures_Au_Plus = 10000;

}  // namespace

void Receveur::Nouvelle_Session() {
  Dernier_ = Dernier::Aucun;
  Ouvert_ = false;
  Demandes_Session_ = 0;
}

bool Receveur::Juger(const Trame_Recue& Trame) {
  Irreprochable_ = true;
  if (Trame.Role == Role_Trame::Demande) {
    Juger_Demande(Trame);
    Dernier_ = Dernier::En_Cours;
    Ouvert_ = false;
  } else {
    Juger_Bloc(Trame);
  }
  return Irreprochable_;
}

void Receveur::Verifier(bool Correct, const std::string& Reproche) {
  if (!Correct) {
    Irreprochable_ = false;
    Faute_(Reproche);
  }
}

void Receveur::Juger_Ordre() {
  Verifier(Demandes_Session_ <= 2, "plus de deux fichiers dans une session");
  if (Demandes_Session_ == 1) {
    return;
  }
  Verifier(Dernier_ != Dernier::En_Cours, "demande avant la fin du fichier précédent");
  Verifier(Dernier_ != Dernier::Echoue, "demande après l'échec du fichier précédent");
  Verifier(Repondu_ || Lectures_ >= Lectures_Au_Plus, "demande sans avoir attendu le lecteur");
}

void Receveur::Juger_Demande(const Trame_Recue& Trame) {
  ++Demandes_Session_;
  Juger_Ordre();
  Verifier(Demandes_Session_ == 1 || Trame.Famille == Famille_Session_,
           "deux familles de trames dans une session");
  Famille_Session_ = Trame.Famille;
  Verifier(std::all_of(Trame.Version.begin(), Trame.Version.end(),
                       [](std::uint8_t Chiffre) { return Chiffre == '0'; }),
           "champ version différent de 0000");
  Verifier(!Regles_.Famille || Trame.Famille == *Regles_.Famille,
           "famille de trames que ce lecteur ne connaît pas");
  Verifier(Longueur_Declaree(Trame).has_value(),
           "longueur déclarée qui n'est pas faite de six chiffres");
}

void Receveur::Juger_Bloc(const Trame_Recue& Trame) {
  const bool Rien_D_Ouvert = Dernier_ == Dernier::En_Cours && !Ouvert_;
  Verifier(Dernier_ != Dernier::Aucun && !Rien_D_Ouvert, "bloc sans demande de chargement");
  Verifier(Dernier_ != Dernier::Echoue, "bloc après un échec");
  Verifier(Dernier_ != Dernier::Reussi, "bloc après la fin du fichier");
  if (!Irreprochable_) {
    return;
  }
  const auto& Fichier = Fichiers_.back();
  const auto Reste = static_cast<std::size_t>(Fichier.Longueur) - Fichier.Contenu.size();
  const auto Taille = std::min(Reste, Donnees_Par_Bloc_);
  Verifier(Trame.Famille == Fichier.Famille, "bloc d'une autre famille que la demande");
  Verifier((Trame.Type & ~0x11) == 0, "type de bloc inconnu");
  Verifier(((Trame.Type & 0x01) != 0) == Fichier.Contenu.empty(), "marque de premier bloc fausse");
  Verifier(((Trame.Type & 0x10) != 0) == (Trame.Donnees.size() >= Reste),
           "marque de dernier bloc fausse");
  Verifier(Trame.Donnees.size() == Taille, "bloc de " + std::to_string(Trame.Donnees.size()) +
                                               " octets au lieu de " + std::to_string(Taille));
}

void Receveur::Recevoir(const Trame_Recue& Trame) {
  if (Trame.Role == Role_Trame::Demande) {
    const bool Noyau = Regles_.Premier_Est_Noyau && Demandes_Session_ == 1 && !Noyau_Installe_;
    Fichiers_.push_back({Trame.Famille, Longueur_Declaree(Trame).value_or(0), Noyau, {}, false});
    Ouvert_ = true;
    return;
  }
  auto& Fichier = Fichiers_.back();
  Fichier.Accepte = false;  // until its answer goes out
  Fichier.Contenu.insert(Fichier.Contenu.end(), Trame.Donnees.begin(), Trame.Donnees.end());
  Noyau_Installe_ = Noyau_Installe_ || (Fichier.Complet() && Fichier.Noyau);
}

bool Receveur::Conclure(const Trame_Recue& Trame, bool Accord_Donne, std::uint8_t Taille) {
  if (Trame.Role == Role_Trame::Lecture) {
    ++Lectures_;
    Repondu_ = Repondu_ || Accord_Donne;
    return false;
  }
  // A grant without room for a block ends the file, however short it is.
  const bool Accorde = Accord_Donne && (Trame.Role != Role_Trame::Demande || Taille != 0);
  if (Ouvert_) {
    Fichiers_.back().Accepte = Accorde;
  }
  if (!Accorde || !Ouvert_) {
    Dernier_ = Dernier::Echoue;
    return false;
  }
  if (Trame.Role == Role_Trame::Demande) {
    // Half the size granted, less the five header bytes of the first family, in both families.
    Donnees_Par_Bloc_ = static_cast<std::size_t>(Taille) * 1024 / 2 - 5;
    Lectures_ = 0;
    Repondu_ = false;
  }
  if (Fichiers_.back().Complet()) {
    Dernier_ = Dernier::Reussi;
  }
  return Dernier_ == Dernier::Reussi;
}
