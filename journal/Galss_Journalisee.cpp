#include "journal/Galss_Journalisee.h"

#include <algorithm>

#include "journal/Crc_32.h"
#include "platform/Erreur.h"

namespace {

constexpr std::int16_t Transfert_Abandonne = 64;

Vue_Octets Debut_De(const Octets& Tampon, std::int64_t Longueur) {
  const auto Taille = static_cast<std::int64_t>(Tampon.size());
  return Vue_Octets(Tampon).first(
      static_cast<std::size_t>(std::clamp<std::int64_t>(Longueur, 0, Taille)));
}

// What the library wrote into the command, from the first byte changed to the last; cut short where
// it might be a software file in another form.
void Noter_Retouche(Ligne_Journal& Ligne, Vue_Octets Avant, const Octets& Apres) {
  constexpr std::size_t Retouche_Au_Plus = 32;
  const auto Premier = std::mismatch(Avant.begin(), Avant.end(), Apres.begin()).first;
  if (Premier == Avant.end()) return;
  std::size_t Fin = Avant.size();
  while (Avant[Fin - 1] == Apres[Fin - 1]) --Fin;
  const auto Debut = static_cast<std::size_t>(Premier - Avant.begin());
  const Vue_Octets Changes = Vue_Octets(Apres).subspan(Debut, Fin - Debut);
  Ligne.Nombre("retouche", static_cast<std::int64_t>(Debut));
  Ligne.Hexa("octets", Changes.first(std::min(Changes.size(), Retouche_Au_Plus)));
}

// The buffer up to its last byte that is not a space, or to the announced length.
Vue_Octets Utile(const Octets& Reponse, std::int32_t Longueur) {
  std::size_t Fin = Reponse.size();
  const std::size_t Annonces = Debut_De(Reponse, Longueur).size();
  while (Fin > Annonces && Reponse[Fin - 1] == ' ') --Fin;
  return Vue_Octets(Reponse).first(Fin);
}

void Noter_Code(Ligne_Journal& Ligne, std::int16_t Code) {
  if (Code != 0) Ligne.Texte("sens", Sens_De(Genre_Commande::Autre, Code, {}, {}).Texte);
}

}  // namespace

// The duration stands before what came back: it belongs to the call, the rest to its reading.
template <typename Appel, typename Suite>
std::int16_t Galss_Journalisee::Noter(Ligne_Journal& Ligne, Appel Appeler, Suite Rendre) {
  if (!Bibliotheque_Notee_) Releve_.Bibliotheque();  // the modules there before the library comes
  const double Debut = Journal_.Secondes();
  try {
    const std::int16_t Code = Appeler();
    Ligne.Fleche().Duree("duree_ms", Journal_.Secondes() - Debut).Nombre("code", Code);
    Rendre(Code);
    Journal_.Ecrire("GALSS", Ligne);
    if (!Bibliotheque_Notee_) Noter_Bibliotheque();
    return Code;
  } catch (const Erreur& Levee) {
    Ligne.Fleche().Duree("duree_ms", Journal_.Secondes() - Debut);
    Ligne.Nombre("erreur", Levee.Numero()).Texte("description", Levee.Description());
    Journal_.Ecrire("GALSS", Ligne);
    throw;
  }
}

void Galss_Journalisee::Noter_Bibliotheque() {
  for (const auto& [Nom, Valeur] : Releve_.Bibliotheque()) {
    Journal_.Ecrire("POSTE", Ligne_Journal().Texte(Nom, Valeur));
    Bibliotheque_Notee_ = true;
  }
}

std::int16_t Galss_Journalisee::OuvrirSession(Octets& Application, Octets& LAD,
                                              std::int16_t& Session, std::int16_t& Info) {
  Ligne_Journal Ligne("OuvrirSession");
  Ligne.Caracteres("application", Application).Caracteres("lad", LAD);
  return Noter(
      Ligne, [&] { return Vraie_.OuvrirSession(Application, LAD, Session, Info); },
      [&](std::int16_t Code) {
        Ligne.Caracteres("application", Application).Caracteres("lad", LAD);
        Ligne.Nombre("session", Session).Nombre("info", Info);
        Noter_Code(Ligne, Code);
      });
}

std::int16_t Galss_Journalisee::DebutExclusivite(Octets& Exclusivite_Texte, Octets& Application,
                                                 Octets& LAD, std::int16_t& Exclusivite) {
  Ligne_Journal Ligne("DebutExclusivite");
  const auto Noms = [&] {
    Ligne.Caracteres("texte", Exclusivite_Texte);
    Ligne.Caracteres("application", Application).Caracteres("lad", LAD);
  };
  Noms();
  return Noter(
      Ligne,
      [&] { return Vraie_.DebutExclusivite(Exclusivite_Texte, Application, LAD, Exclusivite); },
      [&](std::int16_t Code) {
        Noms();
        Ligne.Nombre("exclusivite", Exclusivite);
        Noter_Code(Ligne, Code);
      });
}

std::int16_t Galss_Journalisee::FinExclusivite(std::int16_t Exclusivite) {
  Ligne_Journal Ligne("FinExclusivite");
  Ligne.Nombre("exclusivite", Exclusivite);
  return Noter(
      Ligne, [&] { return Vraie_.FinExclusivite(Exclusivite); },
      [&](std::int16_t Code) { Noter_Code(Ligne, Code); });
}

std::int16_t Galss_Journalisee::FermerSession(std::int16_t Session, std::int16_t& Exclusivite) {
  Ligne_Journal Ligne("FermerSession");
  Ligne.Nombre("session", Session).Nombre("exclusivite", Exclusivite);
  return Noter(
      Ligne, [&] { return Vraie_.FermerSession(Session, Exclusivite); },
      [&](std::int16_t Code) {
        Ligne.Nombre("exclusivite", Exclusivite);
        Noter_Code(Ligne, Code);
      });
}

void Galss_Journalisee::Noter_Commande(Ligne_Journal& Ligne, const Commande_Lue& Lue,
                                       Vue_Octets Commande) {
  Ligne.Hexa("commande", Commande.first(Lue.Montrables));
  if (Lue.Est_Bloc()) {
    if (Lue.Premier) Rang_Bloc_ = 0;
    if (Lue.Premier || !A_Reprendre_) ++Rang_Bloc_;
    Ligne.Nombre("bloc", Rang_Bloc_);
  }
  const Vue_Octets Caches = Commande.subspan(Lue.Montrables);
  if (!Lue.Est_Bloc() && Caches.empty()) return;
  Ligne.Nombre("donnees", std::ssize(Caches)).Somme("crc32", Crc_32(Caches));
}

std::int16_t Galss_Journalisee::Echange(std::int16_t Session, std::int16_t Nombre, Octets& Commande,
                                        std::int32_t& Longueur_Commande, Octets& Reponse,
                                        std::int32_t& Longueur_Reponse) {
  const Octets Envoyee = Commande;
  const Commande_Lue Lue = Lire_Commande(Debut_De(Envoyee, Longueur_Commande));
  Ligne_Journal Ligne("Echange");
  Ligne.Nombre("session", Session).Nombre("nombre", Nombre);
  Noter_Commande(Ligne, Lue, Debut_De(Envoyee, Longueur_Commande));
  Ligne.Nombre("longueur", Longueur_Commande).Nombre("capacite", Longueur_Reponse);
  bool Transfert_Fini = false;
  const auto Rendre = [&](std::int16_t Code) {
    A_Reprendre_ = Code == Transfert_Abandonne;
    Ligne.Nombre("longueur", Longueur_Commande);
    Noter_Retouche(Ligne, Envoyee, Commande);
    Ligne.Nombre("recus", Longueur_Reponse).Hexa("reponse", Utile(Reponse, Longueur_Reponse));
    const auto [Texte, Accepte] = Sens_De(Lue.Genre, Code, Reponse, Longueur_Reponse);
    Ligne.Texte("sens", Texte);
    Transfert_Fini = Lue.Charge() && (Lue.Dernier || !Accepte);
  };
  const std::int16_t Code = Noter(
      Ligne,
      [&] {
        return Vraie_.Echange(Session, Nombre, Commande, Longueur_Commande, Reponse,
                              Longueur_Reponse);
      },
      Rendre);
  if (Transfert_Fini) Journal_.Assurer();
  return Code;
}
