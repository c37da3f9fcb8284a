#pragma once
// What the driver sees and does on the Windows desktop: programs that it starts, their windows and
// controls, and what they use up. A call never waits for a program that is busy.

#include <optional>
#include <string>
#include <vector>

#include "platform/windows/Poignee.h"

struct Description_Fenetre {
  HWND Poignee = nullptr;
  int Numero = 0;  ///< control identifier, 0 for a top-level window
  std::wstring Classe;
  bool Visible = false, Active = false;
  bool Foyer = false;  ///< foreground window, or control with the keyboard
  RECT Place{};        ///< screen pixels for a top-level window, its client area's for a control
  std::wstring Texte;
};

/// What a process holds, to be compared before and after.
struct Consommation {
  DWORD Poignees = 0;
  DWORD Gdi = 0;          ///< GDI objects
  DWORD Fenetres = 0;     ///< windows and controls, hidden ones too
  DWORD User_Libres = 0;  ///< USER handles that the whole session can still create
};

/// Of a process opened with the right to query and to read it.
Consommation Mesurer(HANDLE Processus);

class Programme_Lance {
 public:
  /// Replaces a program started earlier, which is left to itself. False: not started.
  bool Lancer(std::wstring Commande, const std::wstring& Repertoire);
  /// Exit code, none while it runs (or was never started).
  std::optional<DWORD> Fin() const;
  void Tuer() const;
  HANDLE Processus() const { return Processus_.get(); }
  /// Top-level windows that are visible, from front to back.
  std::vector<Description_Fenetre> Fenetres() const;

 private:
  Poignee Processus_;
};

/// The controls of a window; only those with that identifier unless Numero is 0.
std::vector<Description_Fenetre> Enfants(HWND Fenetre, int Numero);

/// None when the window's program does not answer in time.
std::optional<LRESULT> Envoyer(HWND Fenetre, UINT Message, WPARAM W, LPARAM L);

/// The text entries of a list of either kind.
std::vector<std::wstring> Entrees(HWND Liste);

std::wstring Presse_Papiers();
