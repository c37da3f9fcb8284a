#pragma once
// What the program asks of Windows itself: before its first window, around a load; the time, and
// the processes.

#include <windows.h>

#include <string>
#include <vector>

#include "platform/Horloge.h"
#include "platform/Liste_Processus.h"
#include "windows/systeme/Poignee.h"

/// Window class of the main window; a second start finds the first one by it.
inline constexpr const wchar_t* Classe_Fenetre_Principale = L"Pavorin_FMain";
/// Class of the other windows: one of them may outlive the main window.
inline constexpr const wchar_t* Classe_Fenetre = L"Pavorin_Fenetre";

/// To be called first of all: libraries come from the system directory only, a corrupt heap ends
/// the program, no system dialog box for a drive that is not ready, no "not responding" ghost.
/// Nothing of it passes to the processes that this one starts.
void Proteger_Programme();

/// No system dialog box in this thread for a drive that is not ready or a file that cannot be
/// opened. Part of Proteger_Programme; alone for the programs that need no more.
void Taire_Boites_Systeme();

/// The arguments that follow the program's name, UTF-8.
std::vector<std::string> Arguments_Programme();

/// One copy of the program per Windows session: two would fight for the reader.
class Instance_Unique {
 public:
  /// Becomes the first copy when there is none.
  Instance_Unique();

  bool Premiere() const { return Premiere_; }

  /// The program ends: a next copy may start, even if the end of this one drags on.
  void Ceder() { Verrou_.reset(); }

  /// Brings the first copy's window to the front; waits for it two seconds at most while that copy
  /// is still starting. False when it shows no window.
  static bool Montrer_Premiere();

 private:
  Poignee Verrou_;
  bool Premiere_ = true;
};

/// While it lives, the PC does not sleep and its display stays on, and Windows shows the reason
/// when it is asked to shut down. The window itself must also refuse WM_QUERYENDSESSION.
class Veille_Suspendue {
 public:
  /// Fenetre: top-level window of this thread, still there when the object ends.
  Veille_Suspendue(HWND Fenetre, std::string_view Raison);
  ~Veille_Suspendue();
  Veille_Suspendue(const Veille_Suspendue&) = delete;
  Veille_Suspendue& operator=(const Veille_Suspendue&) = delete;

 private:
  HWND Fenetre_;
};

/// The time and the months' names as the operator's regional settings have them.
class Horloge_Windows : public Horloge {
 public:
  std::string Heure_Du_Jour() override;
  double Secondes() override;
  /// Raises 5 when Mois is not from 1 to 12.
  std::string Nom_Mois(int Mois) override;
};

/// Through the toolhelp snapshot.
class Processus_Windows : public Liste_Processus {
 public:
  std::vector<Processus> Lister() override;
  void Terminer(std::uint32_t Id) override;
};
