#include "windows/fenetres/Echelle.h"

#include <optional>

#include "windows/systeme/Fonction_Module.h"

namespace {

// Since Windows 10, version 1607.
std::optional<int> Dpi_Par_Fenetre(HWND Fenetre) {
  static auto* const Demander =
      Fonction_Module<UINT __stdcall(HWND)>(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow");
  if (Demander == nullptr) return {};
  const UINT Dpi = Demander(Fenetre);
  return Dpi == 0 ? std::optional<int>() : static_cast<int>(Dpi);
}

// Since Windows 8.1.
std::optional<int> Dpi_Par_Ecran(HWND Fenetre) {
  static auto* const Demander = Fonction_Module<HRESULT __stdcall(HMONITOR, int, UINT*, UINT*)>(
      Bibliotheque_Systeme(L"shcore.dll"), "GetDpiForMonitor");
  if (Demander == nullptr) return {};
  UINT X = 0, Y = 0;
  constexpr int Effectif = 0;
  const HMONITOR Ecran = MonitorFromWindow(Fenetre, MONITOR_DEFAULTTONEAREST);
  if (FAILED(Demander(Ecran, Effectif, &X, &Y))) return {};
  return static_cast<int>(X);
}

int Dpi_Systeme() {
  const HDC Dc = GetDC(nullptr);
  const int Dpi = GetDeviceCaps(Dc, LOGPIXELSX);
  ReleaseDC(nullptr, Dc);
  return Dpi;
}

}  // namespace

Echelle Echelle_De_Fenetre(HWND Fenetre) {
  if (const auto Dpi = Dpi_Par_Fenetre(Fenetre)) return {*Dpi};
  if (const auto Dpi = Dpi_Par_Ecran(Fenetre)) return {*Dpi};
  return {Dpi_Systeme()};
}
