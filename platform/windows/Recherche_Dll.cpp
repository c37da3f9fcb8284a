#include "platform/windows/Recherche_Dll.h"

#include <windows.h>

#include <array>
#include <utility>
#include <vector>

#include "platform/windows/Chemin_Windows.h"

namespace {

void Ajouter_Repertoires_Windows(std::vector<std::wstring>& Repertoires) {
  std::array<wchar_t, MAX_PATH> Tampon;
  Repertoires.emplace_back(Tampon.data(), GetSystemDirectoryW(Tampon.data(), MAX_PATH));
  const std::wstring Windows(Tampon.data(), GetWindowsDirectoryW(Tampon.data(), MAX_PATH));
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

std::wstring Trouver_Dll(const std::wstring& Nom) {
  std::vector<std::wstring> Repertoires = {Repertoire_Executable()};
  Ajouter_Repertoires_Windows(Repertoires);
  Ajouter_Path(Repertoires);
  for (std::wstring& Chemin : Repertoires) {
    if (!Chemin.ends_with(L'\\')) Chemin += L'\\';
    Chemin += Nom;
    if (Est_Fichier(Chemin)) return std::move(Chemin);
  }
  return {};
}
