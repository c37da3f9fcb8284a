#include "windows/systeme/Recherche_Dll.h"

#include <windows.h>

#include <array>

#include "windows/systeme/Texte_Windows.h"

namespace {

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

}  // namespace

std::vector<std::wstring> Repertoires_De_Recherche() {
  std::vector<std::wstring> Repertoires = {Repertoire_Executable()};
  Ajouter_Repertoires_Windows(Repertoires);
  Ajouter_Path(Repertoires);
  return Repertoires;
}

std::wstring Trouver_Dll(const std::vector<std::wstring>& Repertoires, const std::wstring& Nom) {
  for (const std::wstring& Repertoire : Repertoires) {
    std::wstring Chemin = Repertoire;
    if (!Chemin.ends_with(L'\\')) Chemin += L'\\';
    Chemin += Nom;
    if (Est_Fichier(Chemin)) return Chemin;
  }
  return {};
}

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
