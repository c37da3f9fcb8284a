#include "windows/systeme/Galss_Windows.h"

#include "windows/systeme/Appel_Protege.h"
#include "windows/systeme/Recherche_Dll.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

using Octet = std::uint8_t;
using Entier_16 = std::int16_t;
using Entier_32 = std::int32_t;
using enum Tampon_Prete::Fin;

using Ouvrir_Session = Entier_16 __stdcall(Octet*, Octet*, Entier_16*, Entier_16*);
using Debut_Exclusivite = Entier_16 __stdcall(Octet*, Octet*, Octet*, Entier_16*);
using Un_Echange = Entier_16 __stdcall(Entier_16, Entier_16, Octet*, Entier_32*, Octet*,
                                       Entier_32*);
using Fin_Exclusivite = Entier_16 __stdcall(Entier_16);
using Fermer_Session = Entier_16 __stdcall(Entier_16, Entier_16*);

std::string Cause(DWORD Code) {
  switch (Code) {
    case ERROR_BAD_EXE_FORMAT:
      return "fichier endommagé, ou qui n'est pas une bibliothèque 32 bits";
    case ERROR_MOD_NOT_FOUND:
      return "une bibliothèque dont elle dépend est introuvable";
    default:
      return Texte_Systeme(Code);
  }
}

class Appel_Signale {
 public:
  explicit Appel_Signale(const Galss_Windows::Temoin_Appel& Temoin) : Temoin_(Temoin) {
    Temoin_(true);
  }
  ~Appel_Signale() { Temoin_(false); }
  Appel_Signale(const Appel_Signale&) = delete;
  Appel_Signale& operator=(const Appel_Signale&) = delete;

 private:
  const Galss_Windows::Temoin_Appel& Temoin_;
};

}  // namespace

void Galss_Windows::Charger() {
  constexpr const wchar_t* Nom = L"Galclw32.dll";
  std::vector<std::wstring> Repertoires = Repertoires_De_Recherche();
  Chemin_ = Trouver_Dll(Repertoires, Nom);
  if (Chemin_.empty()) {
    throw Erreur(Numero_Erreur::Fichier_Introuvable, "Fichier introuvable : " + En_Utf8(Nom));
  }
  // Its companions lie beside it, or wherever it might have lain itself.
  Repertoires.insert(Repertoires.begin(), Chemin_.substr(0, Chemin_.rfind(L'\\')));
  Recherche_Elargie Compagnons(Repertoires);
  const Calcul_Preserve Calcul;
  // Altered search: what the library depends on is looked for beside it first.
  Module_ = LoadLibraryExW(Chemin_.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  const DWORD Code = GetLastError();
  if (Module_ == nullptr) {
    throw Erreur(Numero_Erreur::Bibliotheque_Non_Chargeable,
                 "Bibliothèque non chargeable : " + En_Utf8(Chemin_) + " : " + Cause(Code));
  }
  Compagnons.Garder();
}

template <typename Fonction>
Fonction* Galss_Windows::Operation(const char* Nom, const char* Nom_Decore) {
  if (Module_ == nullptr) Charger();
  auto* Trouvee = Fonction_Module<Fonction>(Module_, Nom);
  if (Trouvee == nullptr) Trouvee = Fonction_Module<Fonction>(Module_, Nom_Decore);
  if (Trouvee != nullptr) return Trouvee;
  throw Erreur(Numero_Erreur::Operation_Absente,
               "Opération " + std::string(Nom) + " absente de la bibliothèque " + En_Utf8(Chemin_));
}

// A decorated name ends with the bytes of the arguments.
template <typename Fonction, typename... Valeurs>
std::int16_t Galss_Windows::Appeler(const char* Nom, const char* Nom_Decore, Valeurs... Arguments) {
  const Appel_Signale En_Cours(Temoin_);
  auto* const Appel = Operation<Fonction>(Nom, Nom_Decore);
  return Proteger([&] { return Appel(Arguments...); });
}

std::int16_t Galss_Windows::OuvrirSession(Octets& Application, Octets& LAD, std::int16_t& Session,
                                          std::int16_t& Info) {
  Tampon_Prete Nom(Application, Zero);
  Tampon_Prete Nom_LAD(LAD, Zero);
  return Appeler<Ouvrir_Session>("OuvrirSession", "_OuvrirSession@16", Nom.Adresse(),
                                 Nom_LAD.Adresse(), &Session, &Info);
}

std::int16_t Galss_Windows::DebutExclusivite(Octets& Exclusivite_Texte, Octets& Application,
                                             Octets& LAD, std::int16_t& Exclusivite) {
  Tampon_Prete Texte(Exclusivite_Texte, Zero);
  Tampon_Prete Nom(Application, Zero);
  Tampon_Prete Nom_LAD(LAD, Zero);
  return Appeler<Debut_Exclusivite>("DebutExclusivite", "_DebutExclusivite@16", Texte.Adresse(),
                                    Nom.Adresse(), Nom_LAD.Adresse(), &Exclusivite);
}

std::int16_t Galss_Windows::Echange(std::int16_t Session, std::int16_t Nombre, Octets& Commande,
                                    std::int32_t& Longueur_Commande, Octets& Reponse,
                                    std::int32_t& Longueur_Reponse) {
  Tampon_Prete Aller(Commande, Nue);
  Tampon_Prete Retour(Reponse, Nue);
  return Appeler<Un_Echange>("Echange", "_Echange@24", Session, Nombre, Aller.Adresse(),
                             &Longueur_Commande, Retour.Adresse(), &Longueur_Reponse);
}

std::int16_t Galss_Windows::FinExclusivite(std::int16_t Exclusivite) {
  return Appeler<Fin_Exclusivite>("FinExclusivite", "_FinExclusivite@4", Exclusivite);
}

std::int16_t Galss_Windows::FermerSession(std::int16_t Session, std::int16_t& Exclusivite) {
  return Appeler<Fermer_Session>("FermerSession", "_FermerSession@8", Session, &Exclusivite);
}
