#include "windows/fenetres/Fenetre_Native.h"

#include <commctrl.h>

#include <algorithm>

#include "windows/fenetres/Dessins.h"
#include "windows/fenetres/Fabrique_Pairs.h"
#include "windows/systeme/Systeme_Windows.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

DWORD Style_Fenetre(const Fenetre& Modele) {
  DWORD Style = WS_OVERLAPPED | WS_CAPTION | WS_CLIPCHILDREN;
  if (Modele.Depart().Fermable) Style |= WS_SYSMENU;
  if (!Modele.Menus().empty()) Style |= WS_MINIMIZEBOX;
  return Style;
}

RECT Surface_De_Travail(HMONITOR Ecran) {
  MONITORINFO Infos{};
  Infos.cbSize = sizeof Infos;
  GetMonitorInfoW(Ecran, &Infos);
  return Infos.rcWork;
}

void Remplir(HMENU Menu, const std::vector<Entree_Menu*>& Contenu) {
  for (const Entree_Menu* const Une : Contenu) {
    const std::wstring Texte = En_Utf16(Une->Texte());
    if (Texte == L"-") {
      AppendMenuW(Menu, MF_SEPARATOR, 0, nullptr);
    } else if (Une->Sous_Menu().empty()) {
      AppendMenuW(Menu, MF_STRING, static_cast<UINT_PTR>(Une->Numero()), Texte.c_str());
    } else {
      const HMENU Sous_Menu = CreatePopupMenu();
      Remplir(Sous_Menu, Une->Sous_Menu());
      AppendMenuW(Menu, MF_POPUP, reinterpret_cast<UINT_PTR>(Sous_Menu), Texte.c_str());
    }
  }
}

// Null when the system has no room for it. The window destroys it with itself.
HMENU Creer_Menu(const Fenetre& Modele) {
  const HMENU Barre = CreateMenu();
  if (Barre != nullptr) Remplir(Barre, Modele.Menus());
  return Barre;
}

}  // namespace

Fenetre_Native::Fenetre_Native(Hote& Ecran, Polices& Fontes, Fenetre& Modele, HWND Proprietaire,
                               HWND Voisine)
    : Modele_(Modele), Lieu_{.Ecran = Ecran, .Fontes = Fontes} {
  Prendre_Couleurs();
  Creer(Proprietaire, Voisine);
  try {
    Meubler();
  } catch (...) {
    Effacer();
    throw;
  }
}

void Fenetre_Native::Meubler() {
  if (!Modele_.Menus().empty()) SetMenu(Poignee(), Exiger(Creer_Menu(Modele_)));
  Lieu_.Mesure = Echelle_De_Fenetre(Poignee());
  Dimensionner({});
  Poser_Icones();
  Fabriquer_Pairs(Lieu_, Modele_);
  const Controle* const Premier = Modele_.Bouton_Entree;
  Lieu_.Clavier.Ouvrir(Poignee(),
                       Premier == nullptr ? nullptr : GetDlgItem(Poignee(), Premier->Numero()));
  // The focus is always shown, not only once the keyboard has been used.
  SendMessageW(Poignee(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  Actualiser_Active();
}

Fenetre_Native::~Fenetre_Native() {
  if (Poignee() != nullptr) Effacer();
}

void Fenetre_Native::Enregistrer_Classes() {
  WNDCLASSEXW Classe{};
  Classe.cbSize = sizeof Classe;
  Classe.lpfnWndProc = Aiguiller;
  Classe.hInstance = GetModuleHandleW(nullptr);
  Classe.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  for (const wchar_t* const Nom : {Classe_Fenetre, Classe_Fenetre_Principale}) {
    Classe.lpszClassName = Nom;
    RegisterClassExW(&Classe);
  }
}

void Fenetre_Native::Prendre_Couleurs() {
  HIGHCONTRASTW Reglage{sizeof Reglage, 0, nullptr};
  SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof Reglage, &Reglage, 0);
  Lieu_.Contraste_Eleve = (Reglage.dwFlags & HCF_HIGHCONTRASTON) != 0;
  Lieu_.Fond = Lieu_.Teinte(Modele_.Depart().Fond, COLOR_BTNFACE);
  Pinceau_.reset(CreateSolidBrush(Lieu_.Fond));
  Lieu_.Pinceau_Fond = Pinceau_.get();
}

void Fenetre_Native::Creer(HWND Proprietaire, HWND Voisine) {
  const HMONITOR Ecran = Voisine != nullptr ? MonitorFromWindow(Voisine, MONITOR_DEFAULTTONEAREST)
                                            : MonitorFromPoint({}, MONITOR_DEFAULTTOPRIMARY);
  const RECT Travail = Surface_De_Travail(Ecran);
  const wchar_t* const Classe =
      Modele_.Menus().empty() ? Classe_Fenetre : Classe_Fenetre_Principale;
  Lieu_.Fenetre = Exiger(CreateWindowExW(
      0, Classe, En_Utf16(Modele_.Depart().Titre).c_str(), Style_Fenetre(Modele_), Travail.left,
      Travail.top, 0, 0, Proprietaire, nullptr, GetModuleHandleW(nullptr), nullptr));
  // Messages sent during the creation have had the system's treatment.
  SetWindowLongPtrW(Poignee(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void Fenetre_Native::Dimensionner(std::optional<POINT> Coin) {
  const Conception_Fenetre& Depart = Modele_.Depart();
  const SIZE Voulue{Lieu_.Mesure.Pixels(Depart.Largeur), Lieu_.Mesure.Pixels(Depart.Hauteur)};
  RECT Dehors{0, 0, Voulue.cx, Voulue.cy};
  AdjustWindowRectEx(&Dehors, Style_Fenetre(Modele_), GetMenu(Poignee()) != nullptr, 0);
  SIZE Taille{Largeur_De(Dehors), Hauteur_De(Dehors)};
  // What the frame really takes at this DPI is only known once it is there.
  for (int Passe = 0; Passe < 3; ++Passe) {
    const POINT Ici = Coin.value_or(Centre(Taille));
    SetWindowPos(Poignee(), nullptr, Ici.x, Ici.y, Taille.cx, Taille.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    RECT Dedans{};
    GetClientRect(Poignee(), &Dedans);
    if (Dedans.right == Voulue.cx && Dedans.bottom == Voulue.cy) return;
    Taille.cx += Voulue.cx - Dedans.right;
    Taille.cy += Voulue.cy - Dedans.bottom;
  }
}

// Where a window of that size stands in the middle of its monitor; one that is too large for it
// keeps its title bar there.
POINT Fenetre_Native::Centre(SIZE Taille) const {
  const RECT T = Surface_De_Travail(MonitorFromWindow(Poignee(), MONITOR_DEFAULTTONEAREST));
  return {std::max(T.left, T.left + (Largeur_De(T) - Taille.cx) / 2),
          std::max(T.top, T.top + (Hauteur_De(T) - Taille.cy) / 2)};
}

void Fenetre_Native::Changer_Echelle(int Dpi, const RECT& Proposee) {
  Lieu_.Mesure = {Dpi};
  Dimensionner(POINT{Proposee.left, Proposee.top});
  Poser_Icones();
  for (const auto& Pair : Lieu_.Pairs) Pair->Disposer();
  InvalidateRect(Poignee(), nullptr, TRUE);
}

void Fenetre_Native::Poser_Icones() {
  const int Petit = Lieu_.Mesure.Depuis_96(16), Grand = Lieu_.Mesure.Depuis_96(32);
  Icone_Systeme Petite = Dessiner(Dessin::Programme, {Petit, Petit}).En_Icone();
  Icone_Systeme Grande = Dessiner(Dessin::Programme, {Grand, Grand}).En_Icone();
  SendMessageW(Poignee(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(Petite.get()));
  SendMessageW(Poignee(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(Grande.get()));
  Petite_ = std::move(Petite);
  Grande_ = std::move(Grande);
}

void Fenetre_Native::Actualiser(Propriete Quoi) {
  if (Quoi == Propriete::Active) Actualiser_Active();
  if (Quoi != Propriete::Pointeur) return;
  // The thread is about to be busy for long: what has just been shown is painted before.
  if (Modele_.Souris() == Pointeur::Sablier) {
    RedrawWindow(Poignee(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
  POINT Souris{};
  GetCursorPos(&Souris);
  // Nor does the pointer wait for the operator to move it.
  if (GetAncestor(WindowFromPoint(Souris), GA_ROOT) != Poignee()) return;
  if (!Poser_Pointeur(HTCLIENT)) SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

void Fenetre_Native::Actualiser_Active() {
  EnableWindow(Poignee(), Modele_.A_Portee() && !Lieu_.Ecran.Boite_Ouverte());
}

void Fenetre_Native::Rattraper() const {
  try {
    for (const auto& Pair : Lieu_.Pairs) Pair->Rattraper();
  } catch (...) {
    Lieu_.Ecran.Signaler_Exception();
  }
}

// What is not pending is on the screen already.
void Fenetre_Native::Repeindre() {
  Rattraper();
  RedrawWindow(Poignee(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void Fenetre_Native::Montrer() {
  Rattraper();
  const bool Deja_La = IsWindowVisible(Poignee()) && GetForegroundWindow() == Poignee();
  if (Deja_La && !IsIconic(Poignee())) return;
  ShowWindow(Poignee(), IsIconic(Poignee()) ? SW_RESTORE : SW_SHOWNORMAL);
  SetForegroundWindow(Poignee());
}

void Fenetre_Native::Premier_Plan() {
  if (IsIconic(Poignee())) ShowWindow(Poignee(), SW_RESTORE);
  SetForegroundWindow(Poignee());
}

void Fenetre_Native::Detruire() {
  if (Poignee() == nullptr) return;
  Lieu_.Ecran.Activer_Une_Autre(Poignee());
  Effacer();
  Lieu_.Ecran.Retirer(*this);
}

void Fenetre_Native::Effacer() {
  for (const auto& Pair : Lieu_.Pairs) Pair->Modele().Attacher(nullptr);
  SetWindowLongPtrW(Poignee(), GWLP_USERDATA, 0);
  Lieu_.Vif.reset();
  DestroyWindow(std::exchange(Lieu_.Fenetre, nullptr));
}
