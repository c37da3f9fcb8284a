#include "platform/windows/Galss_Windows.h"

#include "platform/windows/Appel_Protege.h"
#include "platform/windows/Fonction_Module.h"
#include "platform/windows/Recherche_Dll.h"
#include "platform/windows/Tampon_Prete.h"
#include "platform/windows/Texte_Windows.h"

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

// The library may look for companions by their bare names, which the program's safe search would
// refuse: its own directory joins the search. Windows 7 without update has no such call, and no
// such refusal either.
void Admettre_Repertoire(const std::wstring& Chemin) {
  using Ajout = void* __stdcall(const wchar_t*);
  auto* const Ajouter =
      Fonction_Module<Ajout>(GetModuleHandleW(L"kernel32.dll"), "AddDllDirectory");
  if (Ajouter != nullptr) Ajouter(Chemin.substr(0, Chemin.rfind(L'\\')).c_str());
}

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

}  // namespace

void Galss_Windows::Charger() {
  constexpr const wchar_t* Nom = L"Galclw32.dll";
  const std::wstring Trouve = Trouver_Dll(Nom);
  if (Trouve.empty()) {
    throw Erreur(Numero_Erreur::Fichier_Introuvable, "Fichier introuvable : " + En_Utf8(Nom));
  }
  if (Trouve != Chemin_) Admettre_Repertoire(Trouve);
  Chemin_ = Trouve;
  const Calcul_Preserve Calcul;
  // Altered search: what the library depends on is looked for beside it.
  Module_ = LoadLibraryExW(Chemin_.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (Module_ == nullptr) {
    throw Erreur(
        Numero_Erreur::Bibliotheque_Non_Chargeable,
        "Bibliothèque non chargeable : " + En_Utf8(Chemin_) + " : " + Cause(GetLastError()));
  }
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

std::int16_t Galss_Windows::OuvrirSession(Octets& Application, Octets& LAD, std::int16_t& Session,
                                          std::int16_t& Info) {
  auto* const Appel = Operation<Ouvrir_Session>("OuvrirSession", "_OuvrirSession@16");
  Tampon_Prete Nom(Application, Zero);
  Tampon_Prete Nom_LAD(LAD, Zero);
  return Proteger([&] { return Appel(Nom.Adresse(), Nom_LAD.Adresse(), &Session, &Info); });
}

std::int16_t Galss_Windows::DebutExclusivite(Octets& Exclusivite_Texte, Octets& Application,
                                             Octets& LAD, std::int16_t& Exclusivite) {
  auto* const Appel = Operation<Debut_Exclusivite>("DebutExclusivite", "_DebutExclusivite@16");
  Tampon_Prete Texte(Exclusivite_Texte, Zero);
  Tampon_Prete Nom(Application, Zero);
  Tampon_Prete Nom_LAD(LAD, Zero);
  return Proteger(
      [&] { return Appel(Texte.Adresse(), Nom.Adresse(), Nom_LAD.Adresse(), &Exclusivite); });
}

std::int16_t Galss_Windows::Echange(std::int16_t Session, std::int16_t Nombre, Octets& Commande,
                                    std::int32_t& Longueur_Commande, Octets& Reponse,
                                    std::int32_t& Longueur_Reponse) {
  auto* const Appel = Operation<Un_Echange>("Echange", "_Echange@24");
  Tampon_Prete Aller(Commande, Nue);
  Tampon_Prete Retour(Reponse, Nue);
  return Proteger([&] {
    return Appel(Session, Nombre, Aller.Adresse(), &Longueur_Commande, Retour.Adresse(),
                 &Longueur_Reponse);
  });
}

std::int16_t Galss_Windows::FinExclusivite(std::int16_t Exclusivite) {
  auto* const Appel = Operation<Fin_Exclusivite>("FinExclusivite", "_FinExclusivite@4");
  return Proteger([&] { return Appel(Exclusivite); });
}

std::int16_t Galss_Windows::FermerSession(std::int16_t Session, std::int16_t& Exclusivite) {
  auto* const Appel = Operation<Fermer_Session>("FermerSession", "_FermerSession@8");
  return Proteger([&] { return Appel(Session, &Exclusivite); });
}
