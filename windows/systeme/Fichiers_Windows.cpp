#include "windows/systeme/Fichiers_Windows.h"

#include <algorithm>
#include <optional>

#include "windows/systeme/Poignee.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

struct Fermer_Recherche {
  using pointer = HANDLE;
  void operator()(HANDLE Recherche) const { FindClose(Recherche); }
};

HANDLE Debut_Recherche(const std::wstring& Modele, WIN32_FIND_DATAW& Entree) {
  // Without short names and by large buffers: many times faster, above all on a share.
  const HANDLE Rapide = FindFirstFileExW(Modele.c_str(), FindExInfoBasic, &Entree,
                                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
  // Some old file servers refuse what they do not know.
  const bool Refus = Rapide == INVALID_HANDLE_VALUE && GetLastError() == ERROR_INVALID_PARAMETER;
  return Refus ? FindFirstFileW(Modele.c_str(), &Entree) : Rapide;
}

// Visiter takes each WIN32_FIND_DATAW and answers whether to go on.
template <typename Visite>
void Parcourir(const std::wstring& Modele, const Visite& Visiter) {
  WIN32_FIND_DATAW Entree;
  const HANDLE Debut = Debut_Recherche(Modele, Entree);
  if (Debut == INVALID_HANDLE_VALUE) return;
  const std::unique_ptr<void, Fermer_Recherche> Recherche(Debut);
  while (Visiter(Entree) && FindNextFileW(Recherche.get(), &Entree)) {
  }
}

bool Avant(const std::wstring& A, const std::wstring& B) {
  return CompareStringEx(LOCALE_NAME_USER_DEFAULT, NORM_IGNORECASE, A.c_str(), -1, B.c_str(), -1,
                         nullptr, nullptr, 0) == CSTR_LESS_THAN;
}

bool Est_Sous_Repertoire(const WIN32_FIND_DATAW& Entree) {
  // Hidden and system at once: the system's own, such as the recycle bin.
  constexpr DWORD Protege = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  const std::wstring_view Nom = Entree.cFileName;
  return (Entree.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
         (Entree.dwFileAttributes & Protege) != Protege && Nom != L"." && Nom != L"..";
}

// Nobody may write the file meanwhile: what goes to the reader is one state of it.
class Fichier_Windows : public Fichier_Ouvert {
 public:
  explicit Fichier_Windows(std::string_view Chemin);

  void Lire(std::span<std::uint8_t> Tampon) override;

 private:
  std::string Chemin_;
  Poignee Fichier_;
};

Fichier_Windows::Fichier_Windows(std::string_view Chemin) : Chemin_(Chemin) {
  const std::wstring Appel = Chemin_Appel(Chemin);
  const HANDLE Obtenue = CreateFileW(Appel.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                     OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (Obtenue == INVALID_HANDLE_VALUE) throw Erreur_Fichier(GetLastError(), Chemin);
  Fichier_.reset(Obtenue);
}

void Fichier_Windows::Lire(std::span<std::uint8_t> Tampon) {
  while (!Tampon.empty()) {
    DWORD Obtenu = 0;
    if (!ReadFile(Fichier_.get(), Tampon.data(), static_cast<DWORD>(Tampon.size()), &Obtenu,
                  nullptr)) {
      throw Erreur_Fichier(GetLastError(), Chemin_);
    }
    if (Obtenu == 0) {
      throw Erreur(Numero_Erreur::Lecture_Apres_Fin,
                   "Lecture au-delà de la fin du fichier : " + Chemin_);
    }
    Tampon = Tampon.subspan(Obtenu);
  }
}

}  // namespace

std::string Disque_Windows::Repertoire_Programme() {
  return En_Utf8(Repertoire_Executable());
}

void Disque_Windows::Chercher(std::string_view Repertoire, std::string_view Motif,
                              const std::function<bool(std::string_view Nom)>& Visiter) {
  constexpr DWORD Ecarte = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  std::string Nom;
  Parcourir(Chemin_Appel(std::string(Repertoire).append(Motif)), [&](const auto& Entree) {
    if ((Entree.dwFileAttributes & Ecarte) != 0) return true;
    Ecrire_Utf8(Entree.cFileName, Nom);
    return Visiter(Nom);
  });
}

std::int64_t Disque_Windows::Taille(std::string_view Chemin) {
  const std::wstring Appel = Chemin_Appel(Chemin);
  WIN32_FILE_ATTRIBUTE_DATA Attributs;
  if (!GetFileAttributesExW(Appel.c_str(), GetFileExInfoStandard, &Attributs)) {
    throw Erreur_Fichier(GetLastError(), Chemin);
  }
  if ((Attributs.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    throw Erreur_Fichier(ERROR_FILE_NOT_FOUND, Chemin);
  }
  return std::int64_t{Attributs.nFileSizeHigh} << 32 | Attributs.nFileSizeLow;
}

std::unique_ptr<Fichier_Ouvert> Disque_Windows::Ouvrir(std::string_view Chemin) {
  return std::make_unique<Fichier_Windows>(Chemin);
}

std::vector<std::string> Disque_Windows::Lecteurs() {
  std::vector<std::string> Racines;
  const DWORD Presents = GetLogicalDrives();
  for (char Lettre = 'A'; Lettre <= 'Z'; ++Lettre) {
    if ((Presents >> (Lettre - 'A') & 1) != 0) Racines.push_back(std::string(1, Lettre) + ":\\");
  }
  return Racines;
}

std::vector<std::string> Disque_Windows::Sous_Repertoires(std::string_view Repertoire) {
  std::vector<std::wstring> Noms;
  const char* const Suite = Repertoire.ends_with('\\') ? "*" : "\\*";
  Parcourir(Chemin_Appel(std::string(Repertoire) + Suite), [&](const auto& Entree) {
    if (Est_Sous_Repertoire(Entree)) Noms.emplace_back(Entree.cFileName);
    return true;
  });
  std::sort(Noms.begin(), Noms.end(), Avant);
  std::vector<std::string> Resultat(Noms.size());
  std::transform(Noms.begin(), Noms.end(), Resultat.begin(), En_Utf8);
  return Resultat;
}

std::string Disque_Windows::Repertoire_Courant(std::string_view Lecteur) {
  // "C:" without separator means the current directory of that drive.
  const std::wstring Relatif = Lecteur.empty() ? L"." : En_Utf16(Lecteur.substr(0, 2));
  std::wstring Courant = Chemin_Complet(Relatif);
  if (!Lecteur.empty() && GetFileAttributesW(Courant.c_str()) == INVALID_FILE_ATTRIBUTES) {
    Courant = Relatif + L"\\";
  }
  if (Courant.size() > 3 && Courant.ends_with(L'\\')) Courant.pop_back();
  return En_Utf8(Courant);
}

namespace {

constexpr UINT Cp1252 = 1252;

bool Un_Octet_Par_Caractere(UINT Page) {
  CPINFO Infos;
  return GetCPInfo(Page, &Infos) && Infos.MaxCharSize == 1;
}

// The directory and not the file: a short path exists only for what exists. Empty when it has none.
std::wstring Repertoire_Court(const std::wstring& Repertoire) {
  std::wstring Court(GetShortPathNameW(Repertoire.c_str(), nullptr, 0), L'\0');
  Court.resize(GetShortPathNameW(Repertoire.c_str(), Court.data(), DWORD(Court.size())));
  return Court;
}

// Never a bare name, which the profile calls would look for in the Windows directory.
std::wstring Chemin_Profil(std::string_view Chemin) {
  std::wstring Large = En_Utf16(Chemin);
  if (Large.size() < MAX_PATH) return Large;
  const std::size_t Nom = Large.rfind(L'\\') + 1;
  const std::wstring Court = Repertoire_Court(Large.substr(0, Nom));
  const bool Convient = !Court.empty() && Court.size() + Large.size() - Nom < MAX_PATH;
  return Convient ? Court + Large.substr(Nom) : Chemin_Appel(Chemin);
}

// Absent when the ANSI calls cannot take this path. Nor can they be trusted with a value where a
// character of the system's code page may be several bytes (UTF-8, Far East): they would take our
// cp1252 bytes for broken characters.
std::optional<std::string> Chemin_Ansi(const std::wstring& Chemin, UINT Page) {
  if (Chemin.size() >= MAX_PATH || !Un_Octet_Par_Caractere(Page)) return std::nullopt;
  std::string Ansi = En_Page(Chemin, Page);
  return En_Utf16(Ansi, Page) == Chemin ? std::optional(Ansi) : std::nullopt;
}

// By this page the ANSI calls would turn the value's bytes into the characters of the wide ones.
UINT Page_Valeur(UINT Page) {
  return Un_Octet_Par_Caractere(Page) ? Page : Cp1252;
}

}  // namespace

Profil_Windows::Profil_Windows(unsigned Page_Systeme)
    : Page_(Page_Systeme == 0 ? GetACP() : Page_Systeme) {}

Octets Profil_Windows::Lire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
                            std::size_t Taille) {
  const std::wstring Fichier = Chemin_Profil(Chemin);
  std::string Valeur(Taille, '\0');
  if (const auto Ansi = Chemin_Ansi(Fichier, Page_)) {
    Valeur.resize(GetPrivateProfileStringA(std::string(Section).c_str(), std::string(Cle).c_str(),
                                           "", Valeur.data(), DWORD(Taille), Ansi->c_str()));
  } else {
    std::wstring Lue(Taille, L'\0');
    Lue.resize(GetPrivateProfileStringW(En_Utf16(Section).c_str(), En_Utf16(Cle).c_str(), L"",
                                        Lue.data(), DWORD(Taille), Fichier.c_str()));
    Valeur = En_Page(Lue, Page_Valeur(Page_));
  }
  return {Valeur.begin(), Valeur.end()};
}

void Profil_Windows::Ecrire(std::string_view Chemin, std::string_view Section, std::string_view Cle,
                            Vue_Octets Valeur) {
  const std::wstring Fichier = Chemin_Profil(Chemin);
  const std::string Texte(Valeur.begin(), Valeur.end());
  if (const auto Ansi = Chemin_Ansi(Fichier, Page_)) {
    WritePrivateProfileStringA(std::string(Section).c_str(), std::string(Cle).c_str(),
                               Texte.c_str(), Ansi->c_str());
  } else {
    WritePrivateProfileStringW(En_Utf16(Section).c_str(), En_Utf16(Cle).c_str(),
                               En_Utf16(Texte, Page_Valeur(Page_)).c_str(), Fichier.c_str());
  }
}
