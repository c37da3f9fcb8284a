#include "tests/bout_en_bout/Poste_Windows.h"

#include <propidl.h>
// After what it needs.
#include <gdiplus.h>

#include <algorithm>
#include <map>

#include "windows/systeme/Texte_Windows.h"

namespace {

// Of whatever program looks at windows: places in real pixels, output in UTF-8 where there is a console, before it
// does anything.
[[maybe_unused]] const bool Session_Prete = SetProcessDPIAware() && SetConsoleOutputCP(CP_UTF8);

constexpr const char* Classe_Boite = "#32770";

const std::map<std::string_view, std::string_view> Titres = {{"FMain", "Pavorin V3.01 Pour 650 Mono"},
                                                             {"FDossierING", "Séléction du répertoire"},
                                                             {"FrmAnimCharg", "Pavorin"},
                                                             {"FrmResultParam", "Configuration du lecteur"},
                                                             {"frmAbout", "  À propos du Pavorin"}};

/// Of the controls and the menu entries; no two windows have one in common.
// clang-format off
const std::multimap<std::string_view, int> Numeros = {
    {"TxtChooseDirectory", 101}, {"CmdChooseDirectory", 102}, {"OptManuel", 201}, {"OptAuto", 202},
    {"CchosseAppli", 204}, {"CchooseNoyau", 206}, {"CmdMaj", 301}, {"CmdQuitter", 302},
    {"TxtDetails", 401}, {"ImgRed", 403}, {"MnLecteur", 502}, {"MnQuitter", 504}, {"MnApropos", 511},
    {"DirDirectory", 601}, {"CmdOK", 603}, {"LblTitre", 701}, {"LblDate", 816}, {"CmdOK", 821}, {"CmdOK", 909}};
// clang-format on

/// None when the window's program does not answer in five seconds, many for a PC that is not busy.
std::optional<LRESULT> Demander(HWND Fenetre, UINT Message, WPARAM W, LPARAM L) {
  DWORD_PTR Resultat = 0;
  if (!SendMessageTimeoutW(Fenetre, Message, W, L, SMTO_NORMAL, 5000, &Resultat)) return {};
  return static_cast<LRESULT>(Resultat);
}

/// Appends to the vector whose address is the parameter.
BOOL CALLBACK Noter(HWND Fenetre, LPARAM Liste) {
  reinterpret_cast<std::vector<Objet_Vu>*>(Liste)->push_back({Fenetre});
  return TRUE;
}

// The single button of a box is numbered in two ways.
std::string Nom_Bouton(const Objet_Vu& Bouton) {
  const int Numero = GetDlgCtrlID(Bouton.Poignee);
  return Numero == IDYES ? "Oui" : Numero == IDNO ? "Non" : Numero == IDOK || Numero == IDCANCEL ? "OK" : "?";
}

}  // namespace

std::string Objet_Vu::Classe() const {
  wchar_t Nom[64];
  return En_Utf8({Nom, static_cast<std::size_t>(GetClassNameW(Poignee, Nom, 64))});
}

// Of another process's control, only the control itself knows the text.
std::string Objet_Vu::Texte() const {
  std::wstring Texte(10'000, L'\0');
  const bool Fenetre = GetAncestor(Poignee, GA_ROOT) == Poignee;
  const auto Place = static_cast<int>(Texte.size());
  const auto Lus = Fenetre ? GetWindowTextW(Poignee, Texte.data(), Place)
                           : Demander(Poignee, WM_GETTEXT, Texte.size(), reinterpret_cast<LPARAM>(Texte.data()));
  return Lus ? En_Utf8(Texte.substr(0, static_cast<std::size_t>(*Lus))) : "?";
}

std::vector<Objet_Vu> Objet_Vu::Enfants() const {
  std::vector<Objet_Vu> Tous;
  EnumChildWindows(Poignee, Noter, reinterpret_cast<LPARAM>(&Tous));
  return Tous;
}

LRESULT Objet_Vu::Envoyer(UINT Message, WPARAM W, LPARAM L) const {
  return *Attendre("réponse du programme", [&] { return Demander(Poignee, Message, W, L); });
}

bool Objet_Vu::Cliquer() const {
  const bool Possible = Visible() && Actif() && IsWindowEnabled(GetAncestor(Poignee, GA_ROOT));
  return Possible && PostMessageW(Poignee, BM_CLICK, 0, 0);
}

WPARAM Objet_Vu::Rang_De(const std::string& Entree, UINT Recherche) const {
  const std::wstring Voulue = En_Utf16(Entree);
  constexpr auto Toutes = static_cast<WPARAM>(-1);
  const auto Chercher = [&] { return Envoyer(Recherche, Toutes, reinterpret_cast<LPARAM>(Voulue.c_str())); };
  Attendre("dans la liste : " + Entree, [&] { return Chercher() >= 0; });
  return static_cast<WPARAM>(Chercher());
}

void Objet_Vu::Choisir(const std::string& Entree) const {
  Envoyer(CB_SETCURSEL, Rang_De(Entree, CB_FINDSTRINGEXACT));
  const auto Numero = static_cast<WORD>(GetDlgCtrlID(Poignee));
  PostMessageW(GetAncestor(Poignee, GA_ROOT), WM_COMMAND, MAKEWPARAM(Numero, CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(Poignee));
}

void Objet_Vu::Ouvrir_Ligne(const std::string& Entree) const {
  Envoyer(LB_SETCURSEL, Rang_De(Entree, LB_FINDSTRINGEXACT));
  Poster(WM_KEYDOWN, VK_RETURN);
}

Objet_Vu Fenetre_Vue::operator[](std::string_view Controle) const {
  const auto [Debut, Fin] = Numeros.equal_range(Controle);
  for (auto Un = Debut; Un != Fin; ++Un) {
    if (const HWND Trouve = GetDlgItem(Poignee, Un->second)) return {Trouve};
  }
  throw Pas_Venu("pas de " + std::string(Controle) + " dans " + Texte());
}

// The entry itself cannot be looked at: another process's menus are its own affair under Wine.
bool Fenetre_Vue::Menu(std::string_view Entree) const {
  const auto Numero = static_cast<WPARAM>(Numeros.find(Entree)->second);
  return Actif() && PostMessageW(Poignee, WM_COMMAND, Numero, 0);
}

Boite_Vue::Boite_Vue(Objet_Vu Boite) : Objet_Vu(Boite) {
  std::string Texte;
  for (const Objet_Vu& O : Enfants()) {
    const bool Etiquette = O.Classe() == "Static";
    const bool Icone = Etiquette && (GetWindowLongW(O.Poignee, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
    if (Icone) Dessin = O;
    if (Etiquette && !Icone) Texte += O.Texte();
    if (O.Classe() == "Button" && O.Visible()) Tout += Nom_Bouton(O) + " ";
  }
  Tout += ": " + Texte;
}

void Boite_Vue::Repondre(std::string_view Bouton) const {
  for (const Objet_Vu& Un : Enfants()) {
    if (Nom_Bouton(Un) == Bouton) Un.Cliquer();
  }
  Attendre("fermeture de la boîte " + Tout, [&] { return !IsWindow(Poignee); });
}

void Programme_Lance::Lancer(const std::string& Commande, const std::filesystem::path& Repertoire) {
  STARTUPINFOW Depart{};
  Depart.cb = sizeof Depart;
  PROCESS_INFORMATION Infos{};
  std::wstring Ligne = En_Utf16(Commande);
  if (!CreateProcessW(nullptr, Ligne.data(), nullptr, nullptr, FALSE, 0, nullptr, Repertoire.c_str(), &Depart,
                      &Infos)) {
    throw Pas_Venu("ne démarre pas : " + Commande);
  }
  CloseHandle(Infos.hThread);
  Processus_.reset(Infos.hProcess);
}

std::optional<DWORD> Programme_Lance::Fin() const {
  DWORD Code = 0;
  if (WaitForSingleObject(Processus(), 0) != WAIT_OBJECT_0) return {};
  GetExitCodeProcess(Processus(), &Code);
  return Code;
}

void Programme_Lance::Tuer() const {
  TerminateProcess(Processus(), 99);
  WaitForSingleObject(Processus(), 5000);
}

std::vector<Objet_Vu> Programme_Lance::Fenetres() const {
  std::vector<Objet_Vu> Toutes;
  EnumWindows(Noter, reinterpret_cast<LPARAM>(&Toutes));
  std::erase_if(Toutes, [Le_Notre = GetProcessId(Processus())](const Objet_Vu& Une) {
    DWORD Auteur = 0;
    GetWindowThreadProcessId(Une.Poignee, &Auteur);
    return Auteur != Le_Notre || !Une.Visible();
  });
  return Toutes;
}

Fenetre_Vue Programme_Lance::Fenetre(std::string_view Nom) const {
  for (const Objet_Vu& Une : Fenetres()) {
    if (Une.Classe() != Classe_Boite && Une.Texte() == Titres.at(Nom)) return {Une};
  }
  return {};
}

Boite_Vue Programme_Lance::Boite(std::string_view Titre) const {
  for (const Objet_Vu& Une : Fenetres()) {
    if (Une.Classe() == Classe_Boite && Une.Texte() == Titre) return Boite_Vue(Une);
  }
  return {};
}

void Toucher(WORD Touche, DWORD Sens) {
  INPUT Evenement{};
  Evenement.type = INPUT_KEYBOARD;
  Evenement.ki.wVk = Touche;
  Evenement.ki.wScan = static_cast<WORD>(MapVirtualKeyW(Touche, MAPVK_VK_TO_VSC));
  Evenement.ki.dwFlags = Sens;
  SendInput(1, &Evenement, sizeof Evenement);
  Sleep(20);
}

void Photographier(const Objet_Vu& Quoi, const std::filesystem::path& Fichier) {
  constexpr CLSID Png = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  Sleep(700);  // what has just changed is painted at the program's leisure
  create_directories(absolute(Fichier).parent_path());
  RECT Ici{};
  GetWindowRect(Quoi.Poignee, &Ici);
  const int Largeur = Ici.right - Ici.left, Hauteur = Ici.bottom - Ici.top;
  [[maybe_unused]] static const ULONG_PTR Gdi_Plus = [] {
    const Gdiplus::GdiplusStartupInput Depart;
    ULONG_PTR Jeton = 0;
    Gdiplus::GdiplusStartup(&Jeton, &Depart, nullptr);
    return Jeton;
  }();
  Gdiplus::Bitmap Vue(Largeur, Hauteur, PixelFormat32bppRGB);
  Gdiplus::Graphics Toile(&Vue);
  const HDC Ecran = GetDC(nullptr), Dc = Toile.GetHDC();
  BitBlt(Dc, 0, 0, Largeur, Hauteur, Ecran, Ici.left, Ici.top, SRCCOPY);
  Toile.ReleaseHDC(Dc);
  ReleaseDC(nullptr, Ecran);
  Vue.Save(Fichier.c_str(), &Png, nullptr);
}
