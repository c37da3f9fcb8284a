#include "windows/systeme/Galss_Windows.h"

#include <array>

#include "windows/systeme/Appel_Protege.h"
#include "windows/systeme/Fonction_Module.h"
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

std::wstring Repertoire_Systeme() {
  std::array<wchar_t, MAX_PATH> Tampon;
  return {Tampon.data(), GetSystemDirectoryW(Tampon.data(), MAX_PATH)};
}

// Not GetWindowsDirectory: on a terminal server that is a directory of the operator's.
void Ajouter_Repertoires_Windows(std::vector<std::wstring>& Repertoires) {
  std::array<wchar_t, MAX_PATH> Tampon;
  Repertoires.push_back(Repertoire_Systeme());
  const std::wstring Windows(Tampon.data(), GetSystemWindowsDirectoryW(Tampon.data(), MAX_PATH));
  Repertoires.push_back(Windows + L"\\system");
  Repertoires.push_back(Windows);
}

bool Est_Absolu(const std::wstring& Chemin) {
  return Chemin.starts_with(L"\\\\") || Chemin.find(L":\\") == 1;
}

void Ajouter_Path(std::vector<std::wstring>& Repertoires) {
  std::wstring Path(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
  Path.resize(GetEnvironmentVariableW(L"PATH", Path.data(), static_cast<DWORD>(Path.size())));
  Path += L';';
  std::wstring Entree;
  for (const wchar_t C : Path) {
    if (C == L';') {
      if (Est_Absolu(Entree)) Repertoires.push_back(Entree);
      Entree.clear();
    } else if (C != L'"') {
      Entree += C;
    }
  }
}

bool Est_Fichier(const std::wstring& Chemin) {
  const DWORD Attributs = GetFileAttributesW(Chemin.c_str());
  return Attributs != INVALID_FILE_ATTRIBUTES && (Attributs & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// The program's directory, the Windows system directories and the absolute entries of PATH, in
// this order; never the current directory.
std::vector<std::wstring> Repertoires_De_Recherche() {
  std::vector<std::wstring> Repertoires = {Repertoire_Executable()};
  Ajouter_Repertoires_Windows(Repertoires);
  Ajouter_Path(Repertoires);
  return Repertoires;
}

// Full path of the first file of this name in the directories; empty when there is none.
std::wstring Trouver_Dll(const std::vector<std::wstring>& Repertoires, const std::wstring& Nom) {
  for (const std::wstring& Repertoire : Repertoires) {
    std::wstring Chemin = Repertoire;
    if (!Chemin.ends_with(L'\\')) Chemin += L'\\';
    Chemin += Nom;
    if (Est_Fichier(Chemin)) return Chemin;
  }
  return {};
}

// While it lives, what a library depends on, or loads by its bare name, is found in these
// directories too: the program's safe search sees the system directory alone. Windows 7 without
// update has no such call, and no such search either.
class Recherche_Elargie {
 public:
  // The system directory is searched first, then these in their order, as far as the system keeps
  // one.
  explicit Recherche_Elargie(const std::vector<std::wstring>& Repertoires);
  ~Recherche_Elargie();
  Recherche_Elargie(const Recherche_Elargie&) = delete;
  Recherche_Elargie& operator=(const Recherche_Elargie&) = delete;

  // The directories stay, until the process ends.
  void Garder() { Admis_.clear(); }

 private:
  std::vector<void*> Admis_;
};

Recherche_Elargie::Recherche_Elargie(const std::vector<std::wstring>& Repertoires) {
  auto* const Ajouter = Fonction_Kernel32<void* __stdcall(const wchar_t*)>("AddDllDirectory");
  if (Ajouter == nullptr) return;
  // Windows promises no order among them. Where the latest added is asked first, the system's own
  // libraries stay ahead of any of their names that lie beside the program.
  std::vector<std::wstring> A_Rebours(Repertoires.rbegin(), Repertoires.rend());
  A_Rebours.push_back(Repertoire_Systeme());
  for (const std::wstring& Un : A_Rebours) {
    if (void* const Admis = Ajouter(Un.c_str())) Admis_.push_back(Admis);
  }
}

Recherche_Elargie::~Recherche_Elargie() {
  auto* const Retirer = Fonction_Kernel32<BOOL __stdcall(void*)>("RemoveDllDirectory");
  for (void* const Admis : Admis_) Retirer(Admis);
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
