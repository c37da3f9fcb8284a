#include "tests/bout_en_bout/Poste_Windows.h"

#include <propidl.h>
// After what it needs.
#include <gdiplus.h>
#include <winternl.h>

#include <algorithm>
#include <array>
#include <map>
#include <sstream>

#include "windows/systeme/Texte_Windows.h"

namespace {

constexpr UINT Patience_Ms = 300;
constexpr const wchar_t* Classe_Boite = L"#32770";

/// Identifiers, each after its name, as the windows give them to their controls and menu entries.
struct Modele {
  const wchar_t* Titre;
  const char* Numeros;
};

const std::map<std::string_view, Modele> Modeles = {
    {"FMain",
     {L"Pavorin V3.01 Pour 650 Mono",
      "FrmChooseDirectory 100 TxtChooseDirectory 101 CmdChooseDirectory 102 OptManuel 201 OptAuto 202 CchosseAppli 204 "
      "CchooseNoyau 206 lblvers1 210 CmdMaj 301 CmdQuitter 302 FmDetails 400 TxtDetails 401 ImgRed 403 ImgYellow 404 "
      "ImgGreen 405 ImgRed2 407 ImgYellow2 408 ImgGreen2 409 LblVit 411 LblPart 413 LblBitDon 415 LblBitStop 417 "
      "MnLecteur 502 MnQuitter 504 MnApropos 511"}},
    {"FDossierING", {L"Séléction du répertoire", "DirDirectory 601 CmdOK 603 CmdAnnul 604"}},
    {"FrmAnimCharg", {L"Pavorin", "LblTitre 701 LblBlock 702 LblNumBlock 703 LblNumTaille 704 PgbExe 705 LblCom 706"}},
    {"FrmResultParam",
     {L"Configuration du lecteur",
      "LblConst 804 LblTypeLec 806 LblNumSerie 808 LblTypeOS 810 LblNameAppli 812 LblNumVersion 814 LblDate 816 "
      "LblHeure 818 LblCRC 820 CmdOK 821"}},
    {"frmAbout", {L"  À propos du Pavorin", "CmdOK 909"}},
};

/// 0 for a name that the window does not have.
int Numero_De(const Modele& M, std::string_view Voulu) {
  std::istringstream Mots(M.Numeros);
  int Numero = 0;
  for (std::string Nom; Mots >> Nom >> Numero;) {
    if (Nom == Voulu) return Numero;
  }
  return 0;
}

std::wstring Titre_De(HWND Fenetre) {
  wchar_t Titre[512];
  return {Titre, static_cast<std::size_t>(GetWindowTextW(Fenetre, Titre, 512))};
}

/// None when the window's program does not answer in time.
std::optional<LRESULT> Demander(HWND Fenetre, UINT Message, WPARAM W, LPARAM L) {
  DWORD_PTR Resultat = 0;
  if (!SendMessageTimeoutW(Fenetre, Message, W, L, SMTO_NORMAL, Patience_Ms, &Resultat)) return {};
  return static_cast<LRESULT>(Resultat);
}

/// Appends to the vector whose address is the parameter.
BOOL CALLBACK Noter(HWND Fenetre, LPARAM Liste) {
  reinterpret_cast<std::vector<Objet_Vu>*>(Liste)->push_back({Fenetre});
  return TRUE;
}

std::vector<Objet_Vu> Toutes_De(DWORD Processus) {
  std::vector<Objet_Vu> Toutes;
  EnumWindows(Noter, reinterpret_cast<LPARAM>(&Toutes));
  std::erase_if(Toutes, [&](const Objet_Vu& Une) {
    DWORD Auteur = 0;
    GetWindowThreadProcessId(Une.Poignee, &Auteur);
    return Auteur != Processus;
  });
  return Toutes;
}

/// Colours of a part of the screen, line by line from the top.
class Image {
 public:
  explicit Image(const RECT& Partie) : Largeur_(Partie.right - Partie.left), Hauteur_(Partie.bottom - Partie.top) {
    BITMAPINFO Forme{};
    Forme.bmiHeader = {sizeof Forme.bmiHeader, Largeur_, -Hauteur_, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC Ecran = GetDC(nullptr);
    Dc_ = CreateCompatibleDC(Ecran);
    void* Points = nullptr;
    Bits_ = CreateDIBSection(Ecran, &Forme, DIB_RGB_COLORS, &Points, nullptr, 0);
    Points_ = static_cast<const DWORD*>(Points);
    Ancien_ = SelectObject(Dc_, Bits_);
    BitBlt(Dc_, 0, 0, Largeur_, Hauteur_, Ecran, Partie.left, Partie.top, SRCCOPY);
    ReleaseDC(nullptr, Ecran);
    GdiFlush();
  }
  ~Image() {
    SelectObject(Dc_, Ancien_);
    DeleteObject(Bits_);
    DeleteDC(Dc_);
  }
  Image(const Image&) = delete;
  Image& operator=(const Image&) = delete;

  HBITMAP Bits() const { return Bits_; }
  /// Covers the picture with its first point, then with an icon of the system unless none is given.
  void Redessiner(const wchar_t* Icone) {
    const HBRUSH Fond = CreateSolidBrush(GetPixel(Dc_, 0, 0));
    const RECT Partout{0, 0, Largeur_, Hauteur_};
    FillRect(Dc_, &Partout, Fond);
    DeleteObject(Fond);
    if (Icone) DrawIconEx(Dc_, 0, 0, LoadIconW(nullptr, Icone), Largeur_, Hauteur_, 0, nullptr, DI_NORMAL);
    GdiFlush();
  }
  /// Sum over the points of what separates their colours.
  long Ecart(const Image& Autre) const {
    long Somme = 0;
    for (int I = 0; I < Largeur_ * Hauteur_; ++I) {
      for (const int Bits : {0, 8, 16}) {
        Somme +=
            std::abs(static_cast<int>(Points_[I] >> Bits & 255) - static_cast<int>(Autre.Points_[I] >> Bits & 255));
      }
    }
    return Somme;
  }

 private:
  int Largeur_, Hauteur_;
  HDC Dc_ = nullptr;
  HBITMAP Bits_ = nullptr;
  HGDIOBJ Ancien_ = nullptr;
  const DWORD* Points_ = nullptr;
};

// What is on the screen is nearest to one of the system's icons, or to nothing as long as the box is not painted.
std::string Icone_De(const Objet_Vu& Etiquette) {
  RECT Ici{};
  GetWindowRect(Etiquette.Poignee, &Ici);
  const Image Vue(Ici);
  Image Essai(Ici);
  std::string Meilleure;
  long Moindre = LONG_MAX;
  for (const auto& [Nom, Icone] : std::initializer_list<std::pair<const char*, const wchar_t*>>{
           {"", nullptr}, {"i", IDI_INFORMATION}, {"?", IDI_QUESTION}, {"!", IDI_WARNING}, {"x", IDI_ERROR}}) {
    Essai.Redessiner(Icone);
    const long Ecart = Vue.Ecart(Essai);
    if (Ecart < Moindre) Moindre = Ecart, Meilleure = Nom;
  }
  return Meilleure;
}

bool Est_Bouton(const Objet_Vu& O) {
  return O.Visible() && O.Classe() == "Button";
}

// The single button of a box is numbered in two ways.
std::string Nom_Bouton(const Objet_Vu& Bouton) {
  switch (GetDlgCtrlID(Bouton.Poignee)) {
    case IDYES:
      return "Oui";
    case IDNO:
      return "Non";
    case IDOK:
    case IDCANCEL:
      return "OK";
  }
  return Bouton.Texte();
}

// Wine does not count GDI objects, but keeps the process's table of them where Windows does.
DWORD Compter_Gdi(HANDLE Processus) {
  if (const DWORD Comptes = GetGuiResources(Processus, GR_GDIOBJECTS)) return Comptes;
  struct Case {
    ULONGLONG Objet;
    ULONG Proprietaire;
    USHORT Unique;
    UCHAR Type, Drapeaux;
    ULONGLONG Adresse;
  };
  constexpr std::size_t Place_Table = sizeof(void*) == 4 ? 0x94 : 0xF8;
  constexpr std::size_t Cases = 0x4000;
  PROCESS_BASIC_INFORMATION Infos{};
  const char* Table = nullptr;
  std::vector<Case> Copie(Cases);
  NtQueryInformationProcess(Processus, ProcessBasicInformation, &Infos, sizeof Infos, nullptr);
  ReadProcessMemory(Processus, reinterpret_cast<char*>(Infos.PebBaseAddress) + Place_Table, &Table, sizeof Table,
                    nullptr);
  if (!ReadProcessMemory(Processus, Table, Copie.data(), Cases * sizeof(Case), nullptr)) return 0;
  return static_cast<DWORD>(std::ranges::count_if(Copie, [](const Case& Une) { return Une.Type != 0; }));
}

// A session has room for so many USER handles: what is left is found by filling it up.
DWORD Compter_User_Libres() {
  std::vector<HMENU> Crees;
  while (const HMENU Un = CreateMenu()) Crees.push_back(Un);
  for (const HMENU Un : Crees) DestroyMenu(Un);
  return static_cast<DWORD>(Crees.size());
}

// Wine does not count a process's handles, but lists those of the whole session.
DWORD Compter_Poignees(HANDLE Processus, DWORD Numero) {
  DWORD Nombre = 0;
  if (GetProcessHandleCount(Processus, &Nombre) && Nombre > 0) return Nombre;
  struct Entree {
    ULONG Proprietaire;
    UCHAR Type, Drapeaux;
    USHORT Valeur;
    void* Objet;
    ULONG Acces;
  };
  struct Liste {
    ULONG Nombre;
    Entree Entrees[1];
  };
  std::vector<ULONG_PTR> Tampon(1 << 18);
  NtQuerySystemInformation(static_cast<SYSTEM_INFORMATION_CLASS>(16), Tampon.data(),
                           static_cast<ULONG>(Tampon.size() * sizeof Tampon[0]), nullptr);
  const auto* const Toutes = reinterpret_cast<const Liste*>(Tampon.data());
  for (ULONG I = 0; I < Toutes->Nombre; ++I) Nombre += Toutes->Entrees[I].Proprietaire == Numero;
  return Nombre;
}

}  // namespace

bool Objet_Vu::Foyer() const {
  GUITHREADINFO Infos{};
  Infos.cbSize = sizeof Infos;
  return GetGUIThreadInfo(GetWindowThreadProcessId(Poignee, nullptr), &Infos) && Infos.hwndFocus == Poignee;
}

std::string Objet_Vu::Classe() const {
  wchar_t Nom[64];
  return En_Utf8({Nom, static_cast<std::size_t>(GetClassNameW(Poignee, Nom, 64))});
}

// Of another process's control, only the control itself knows the text.
std::string Objet_Vu::Texte() const {
  if (GetAncestor(Poignee, GA_ROOT) == Poignee) return En_Utf8(Titre_De(Poignee));
  const auto Longueur = Demander(Poignee, WM_GETTEXTLENGTH, 0, 0);
  if (!Longueur) return "?";
  std::wstring Texte(static_cast<std::size_t>(*Longueur) + 1, L'\0');
  const auto Lus = Demander(Poignee, WM_GETTEXT, Texte.size(), reinterpret_cast<LPARAM>(Texte.data()));
  if (!Lus) return "?";
  Texte.resize(static_cast<std::size_t>(*Lus));
  return En_Utf8(Texte);
}

RECT Objet_Vu::Place() const {
  RECT Ici{};
  GetWindowRect(Poignee, &Ici);
  const HWND Fenetre = GetAncestor(Poignee, GA_ROOT);
  if (Fenetre != Poignee) MapWindowPoints(nullptr, Fenetre, reinterpret_cast<POINT*>(&Ici), 2);
  return Ici;
}

std::vector<Objet_Vu> Objet_Vu::Enfants() const {
  std::vector<Objet_Vu> Tous;
  EnumChildWindows(Poignee, Noter, reinterpret_cast<LPARAM>(&Tous));
  return Tous;
}

LRESULT Objet_Vu::Envoyer(UINT Message, WPARAM W, LPARAM L) const {
  return *Attendre(
      "réponse du programme", [&] { return Demander(Poignee, Message, W, L); }, 5);
}

bool Objet_Vu::Cliquer() const {
  const bool Possible = Visible() && Actif() && IsWindowEnabled(GetAncestor(Poignee, GA_ROOT));
  return Possible && PostMessageW(Poignee, BM_CLICK, 0, 0);
}

std::vector<std::string> Objet_Vu::Entrees() const {
  const bool Deroulante = Classe() == "ComboBox";
  const LRESULT Nombre = Envoyer(Deroulante ? CB_GETCOUNT : LB_GETCOUNT);
  std::vector<std::string> Toutes;
  for (LRESULT I = 0; I < Nombre; ++I) {
    const auto Rang = static_cast<WPARAM>(I);
    const LRESULT Longueur = Envoyer(Deroulante ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, Rang);
    std::wstring Texte(static_cast<std::size_t>(Longueur) + 1, L'\0');
    Envoyer(Deroulante ? CB_GETLBTEXT : LB_GETTEXT, Rang, reinterpret_cast<LPARAM>(Texte.data()));
    Texte.pop_back();
    Toutes.push_back(En_Utf8(Texte));
  }
  return Toutes;
}

namespace {
WPARAM Rang_De(const Objet_Vu& Liste, const std::string& Entree) {
  const auto Toutes = Liste.Entrees();
  const auto Ici = std::ranges::find(Toutes, Entree);
  if (Ici == Toutes.end()) throw Pas_Venu("pas dans la liste : " + Entree);
  return static_cast<WPARAM>(Ici - Toutes.begin());
}
}  // namespace

void Objet_Vu::Choisir(const std::string& Entree) const {
  Envoyer(CB_SETCURSEL, Rang_De(*this, Entree));
  const auto Numero = static_cast<WORD>(GetDlgCtrlID(Poignee));
  PostMessageW(GetAncestor(Poignee, GA_ROOT), WM_COMMAND, MAKEWPARAM(Numero, CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(Poignee));
}

void Objet_Vu::Ouvrir_Ligne(const std::string& Entree) const {
  Envoyer(LB_SETCURSEL, Rang_De(*this, Entree));
  Poster(WM_KEYDOWN, VK_RETURN);
}

Objet_Vu Fenetre_Vue::operator[](std::string_view Controle) const {
  for (const auto& [Nom, Modele] : Modeles) {
    if (Modele.Titre != Titre_De(Poignee)) continue;
    if (const HWND Trouve = GetDlgItem(Poignee, Numero_De(Modele, Controle))) return {Trouve};
  }
  throw Pas_Venu("pas de " + std::string(Controle) + " dans " + Texte());
}

// The entry itself cannot be looked at: another process's menus are its own affair under Wine.
bool Fenetre_Vue::Menu(std::string_view Entree) const {
  const int Numero = Numero_De(Modeles.at("FMain"), Entree);
  return Actif() && PostMessageW(Poignee, WM_COMMAND, static_cast<WPARAM>(Numero), 0);
}

void Boite_Vue::Repondre(std::string_view Bouton) const {
  for (const Objet_Vu& Un : Enfants()) {
    if (Est_Bouton(Un) && Nom_Bouton(Un) == Bouton) Un.Cliquer();
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
  auto Toutes = Toutes_De(GetProcessId(Processus()));
  std::erase_if(Toutes, [](const Objet_Vu& Une) { return !Une.Visible(); });
  return Toutes;
}

Fenetre_Vue Programme_Lance::Fenetre(std::string_view Nom) const {
  for (const Objet_Vu& Une : Fenetres()) {
    if (Une.Classe() != En_Utf8(Classe_Boite) && Titre_De(Une.Poignee) == Modeles.at(Nom).Titre) return {Une};
  }
  return {};
}

Boite_Vue Programme_Lance::Boite(std::string_view Titre) const {
  for (const Objet_Vu& Une : Fenetres()) {
    if (Une.Classe() != En_Utf8(Classe_Boite) || Une.Texte() != Titre) continue;
    std::string Icone, Boutons, Texte;
    for (const Objet_Vu& O : Une.Enfants()) {
      const bool Etiquette = O.Classe() == "Static";
      const bool Dessin = (GetWindowLongW(O.Poignee, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
      if (Etiquette && Dessin) Icone += Icone_De(O);
      if (Etiquette && !Dessin) Texte += O.Texte();
      if (Est_Bouton(O)) Boutons += " " + Nom_Bouton(O);
    }
    if (!Icone.empty()) return {Une, Icone + Boutons + " : " + Texte};
  }
  return {};
}

Consommation Mesurer(HANDLE Processus) {
  const DWORD Numero = GetProcessId(Processus);
  Consommation C;
  C.Poignees = Compter_Poignees(Processus, Numero);
  C.Gdi = Compter_Gdi(Processus);
  for (const Objet_Vu& Une : Toutes_De(Numero)) C.Fenetres += 1 + static_cast<DWORD>(Une.Enfants().size());
  C.User_Libres = Compter_User_Libres();
  return C;
}

void Preparer_Session() {
  SetConsoleOutputCP(CP_UTF8);
  SetProcessDPIAware();
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

// A hand waits for what it sees: keys come to a program that has dealt with what came before.
void Taper(std::initializer_list<WORD> Touches) {
  DWORD_PTR Repondu = 0;
  SendMessageTimeoutW(GetForegroundWindow(), WM_NULL, 0, 0, SMTO_NORMAL, 5000, &Repondu);
  Sleep(100);
  for (const WORD Touche : Touches) Toucher(Touche, 0);
  for (auto I = std::rbegin(Touches); I != std::rend(Touches); ++I) Toucher(*I, KEYEVENTF_KEYUP);
}

void Cliquer_Souris(POINT Ecran) {
  SetCursorPos(Ecran.x, Ecran.y);
  for (const DWORD Sens : {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
    INPUT Evenement{};
    Evenement.type = INPUT_MOUSE;
    Evenement.mi.dwFlags = Sens;
    SendInput(1, &Evenement, sizeof Evenement);
    Sleep(20);
  }
}

std::string Presse_Papiers() {
  std::string Texte;
  if (!OpenClipboard(nullptr)) return Texte;
  if (const HANDLE Donnees = GetClipboardData(CF_UNICODETEXT)) {
    Texte = En_Utf8(static_cast<const wchar_t*>(GlobalLock(Donnees)));
    GlobalUnlock(Donnees);
  }
  CloseClipboard();
  return Texte;
}

void Photographier(const RECT& Partie, const std::filesystem::path& Fichier) {
  constexpr CLSID Png = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  const Gdiplus::GdiplusStartupInput Depart;
  ULONG_PTR Jeton = 0;
  Gdiplus::GdiplusStartup(&Jeton, &Depart, nullptr);
  {
    // What has just changed is painted at the program's leisure; a progress window never stays still.
    auto Vue = std::make_unique<Image>(Partie);
    bool Immobile = false;
    for (int Essai = 0; Essai < 8 && !Immobile; ++Essai) {
      Sleep(Essai == 0 ? 500 : 200);
      auto Suivante = std::make_unique<Image>(Partie);
      Immobile = Essai > 0 && Vue->Ecart(*Suivante) == 0;
      Vue = std::move(Suivante);
    }
    Gdiplus::Bitmap(Vue->Bits(), nullptr).Save(Fichier.c_str(), &Png, nullptr);
  }
  Gdiplus::GdiplusShutdown(Jeton);
}
