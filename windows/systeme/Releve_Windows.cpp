#include "windows/systeme/Releve_Windows.h"

#include "windows/systeme/Poignee.h"
// After Poignee.h, which brings windows.h.
#include <psapi.h>
#include <winver.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "windows/systeme/Fonction_Module.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

class Journal_Windows : public Fichier_Journal {
 public:
  explicit Journal_Windows(Poignee Fichier) : Fichier_(std::move(Fichier)) {}

  bool Ecrire(std::string_view Texte) override {
    DWORD Ecrits = 0;
    return WriteFile(Fichier_.get(), Texte.data(), static_cast<DWORD>(Texte.size()), &Ecrits,
                     nullptr) != FALSE &&
           Ecrits == Texte.size();
  }
  void Assurer() override { FlushFileBuffers(Fichier_.get()); }

 private:
  Poignee Fichier_;
};

std::string Chemin_Module(HMODULE Module) {
  std::wstring Chemin(32768, L'\0');
  Chemin.resize(GetModuleFileNameW(Module, Chemin.data(), static_cast<DWORD>(Chemin.size())));
  return En_Utf8(Chemin);
}

std::string Version_En_Texte(DWORD Haut, DWORD Bas) {
  return std::to_string(HIWORD(Haut)) + "." + std::to_string(LOWORD(Haut)) + "." +
         std::to_string(HIWORD(Bas)) + "." + std::to_string(LOWORD(Bas));
}

// The version record lies in the version resource on a 32-bit boundary, known by its signature.
std::string Version_Module(HMODULE Module) {
  const HRSRC Ressource =
      FindResourceW(Module, MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(16));  // RT_VERSION
  const HGLOBAL Chargee = Ressource != nullptr ? LoadResource(Module, Ressource) : nullptr;
  if (Chargee == nullptr) return "sans version";
  const std::span<const std::uint8_t> Octets(
      static_cast<const std::uint8_t*>(LockResource(Chargee)), SizeofResource(Module, Ressource));
  VS_FIXEDFILEINFO Fixe{};
  for (std::size_t I = 0; I + sizeof Fixe <= Octets.size(); I += 4) {
    std::memcpy(&Fixe, &Octets[I], sizeof Fixe);
    if (Fixe.dwSignature == VS_FFI_SIGNATURE) {
      return Version_En_Texte(Fixe.dwFileVersionMS, Fixe.dwFileVersionLS);
    }
  }
  return "sans version";
}

std::string Decrire_Module(HMODULE Module) {
  if (Module == nullptr) return "absent";
  return Chemin_Module(Module) + " (" + Version_Module(Module) + ")";
}

// GetVersionEx tells programs what their manifest wants to hear.
std::string Version_Windows() {
  const HMODULE Ntdll = GetModuleHandleW(L"ntdll.dll");
  OSVERSIONINFOW Version{};
  Version.dwOSVersionInfoSize = sizeof Version;
  if (auto* const Lire = Fonction_Module<LONG __stdcall(OSVERSIONINFOW*)>(Ntdll, "RtlGetVersion")) {
    Lire(&Version);
  }
  std::string Texte = std::to_string(Version.dwMajorVersion) + "." +
                      std::to_string(Version.dwMinorVersion) + "." +
                      std::to_string(Version.dwBuildNumber);
  if (Version.szCSDVersion[0] != L'\0') Texte += " " + En_Utf8(Version.szCSDVersion);
  if (auto* const Wine = Fonction_Module<const char* __cdecl()>(Ntdll, "wine_get_version")) {
    Texte += std::string(" (Wine ") + Wine() + ")";
  }
  return Texte;
}

std::string Bits_Du_Poste() {
  BOOL Sous_64 = sizeof(void*) == 8;
  if (sizeof(void*) == 4) IsWow64Process(GetCurrentProcess(), &Sous_64);
  return std::string(Sous_64 ? "64" : "32") + " (programme " + std::to_string(8 * sizeof(void*)) +
         ")";
}

std::string Langues() {
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> Usager{};
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> Systeme{};
  GetUserDefaultLocaleName(Usager.data(), static_cast<int>(Usager.size()));
  GetSystemDefaultLocaleName(Systeme.data(), static_cast<int>(Systeme.size()));
  return En_Utf8(Usager.data()) + ", système " + En_Utf8(Systeme.data());
}

std::string Ecran() {
  const HDC Contexte = GetDC(nullptr);
  const int Points = GetDeviceCaps(Contexte, LOGPIXELSX);
  ReleaseDC(nullptr, Contexte);
  return std::to_string(GetSystemMetrics(SM_CXSCREEN)) + " x " +
         std::to_string(GetSystemMetrics(SM_CYSCREEN)) + ", " + std::to_string(Points) +
         " points par pouce, moniteurs : " + std::to_string(GetSystemMetrics(SM_CMONITORS));
}

std::string Ports() {
  std::string Liste;
  std::array<wchar_t, 1024> Cible;
  for (int Numero = 1; Numero <= 256; ++Numero) {
    const std::string Nom = "COM" + std::to_string(Numero);
    if (QueryDosDeviceW(En_Utf16(Nom).c_str(), Cible.data(), DWORD(Cible.size())) == 0) continue;
    Liste += (Liste.empty() ? "" : ", ") + Nom + " (" + En_Utf8(Cible.data()) + ")";
  }
  return Liste.empty() ? "aucun" : Liste;
}

std::vector<HMODULE> Modules() {
  constexpr DWORD Nombre = 1024;
  constexpr DWORD Capacite = Nombre * sizeof(HMODULE);
  std::vector<HMODULE> Liste(Nombre);
  DWORD Taille = 0;
  if (!K32EnumProcessModules(GetCurrentProcess(), Liste.data(), Capacite, &Taille)) Taille = 0;
  Liste.resize(std::min(Taille, Capacite) / sizeof(HMODULE));
  return Liste;
}

// As the library itself spells them, decorated or not.
std::string Operations_Exportees(HMODULE Module) {
  const auto* const Base = reinterpret_cast<const std::uint8_t*>(Module);
  const auto* const Dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(Base);
  const auto* const Nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(Base + Dos->e_lfanew);
  const auto& Place = Nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
  if (Place.VirtualAddress == 0) return "aucune";
  const auto* const Table =
      reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(Base + Place.VirtualAddress);
  const auto* const Noms = reinterpret_cast<const DWORD*>(Base + Table->AddressOfNames);
  std::string Liste;
  for (DWORD I = 0; I < Table->NumberOfNames; ++I) {
    const std::string Nom = reinterpret_cast<const char*>(Base + Noms[I]);
    for (const char* Operation :
         {"OuvrirSession", "DebutExclusivite", "Echange", "FinExclusivite", "FermerSession"}) {
      if (Nom.find(Operation) == std::string::npos) continue;
      Liste += (Liste.empty() ? "" : ", ") + Nom;
      break;
    }
  }
  return Liste.empty() ? "aucune" : Liste;
}

}  // namespace

Instant Releve_Windows::Maintenant() {
  SYSTEMTIME T{};
  GetLocalTime(&T);
  return {T.wYear, T.wMonth, T.wDay, T.wHour, T.wMinute, T.wSecond, T.wMilliseconds};
}

std::vector<Fait> Releve_Windows::Poste() {
  return {{"programme", Decrire_Module(GetModuleHandleW(nullptr))},
          {"windows", Version_Windows()},
          {"bits", Bits_Du_Poste()},
          {"pages_de_codes",
           "ANSI " + std::to_string(GetACP()) + ", OEM " + std::to_string(GetOEMCP())},
          {"langue", Langues()},
          {"ecran", Ecran()},
          {"controles", Decrire_Module(GetModuleHandleW(L"comctl32.dll"))},
          {"ports", Ports()}};
}

std::vector<Fait> Releve_Windows::Bibliotheque() {
  std::vector<Fait> Faits;
  const HMODULE Galss = GetModuleHandleW(L"Galclw32.dll");
  if (Galss != nullptr) {
    Faits.push_back({"bibliotheque", Decrire_Module(Galss)});
    Faits.push_back({"operations", Operations_Exportees(Galss)});
  }
  for (const HMODULE Module : Modules()) {
    const bool Nouveau = Connus_.insert(Module).second;
    if (Nouveau && Galss != nullptr && Module != Galss) {
      Faits.push_back({"module", Decrire_Module(Module)});
    }
  }
  return Faits;
}

bool Releve_Windows::Inscriptible(std::string_view Chemin) {
  const std::wstring Large = Chemin_Appel(Chemin);
  constexpr DWORD Partage = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  if (Prendre_Poignee(
          CreateFileW(Large.c_str(), GENERIC_WRITE, Partage, nullptr, OPEN_EXISTING, 0, nullptr))) {
    return true;
  }
  if (GetLastError() != ERROR_FILE_NOT_FOUND) return false;
  const std::wstring Repertoire = Large.substr(0, Large.rfind(L'\\') + 1);
  return Prendre_Poignee(CreateFileW(Repertoire.c_str(), FILE_ADD_FILE, Partage, nullptr,
                                     OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) !=
         nullptr;
}

bool Releve_Windows::Terminable(std::uint32_t Id) {
  return Poignee(OpenProcess(PROCESS_TERMINATE, FALSE, Id)) != nullptr;
}

std::unique_ptr<Fichier_Journal> Releve_Windows::Creer_Journal(std::string_view Chemin) {
  Poignee Fichier = Prendre_Poignee(CreateFileW(Chemin_Appel(Chemin).c_str(), GENERIC_WRITE,
                                                FILE_SHARE_READ, nullptr, CREATE_NEW, 0, nullptr));
  if (!Fichier) throw Erreur_Fichier(GetLastError(), Chemin);
  return std::make_unique<Journal_Windows>(std::move(Fichier));
}
