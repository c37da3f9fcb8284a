#include "windows/fenetres/Fenetrage_Windows.h"

#include <commctrl.h>
#include <objbase.h>
// After objbase.h, which declares the interfaces that it extends.
#include <oleacc.h>

#include <algorithm>

#include "windows/systeme/Texte_Windows.h"

namespace {

constexpr const char* Titre_Programme = "Pavorin";
constexpr const char* Raison_Veille =
    "Un fichier est en cours d'envoi vers le lecteur. L'arrêter maintenant peut rendre le lecteur "
    "inutilisable.";

// Counts up for the time of a block, whatever way it is left.
class Niveau {
 public:
  explicit Niveau(int& Compteur) : Compteur_(Compteur) { ++Compteur_; }
  ~Niveau() { --Compteur_; }
  Niveau(const Niveau&) = delete;
  Niveau& operator=(const Niveau&) = delete;

 private:
  int& Compteur_;
};

UINT Style_Boite(Boutons Choix, Icone Dessin) {
  const UINT Style = Choix == Boutons::Ok ? MB_OK : MB_YESNO;
  switch (Dessin) {
    case Icone::Information:
      return Style | MB_ICONINFORMATION;
    case Icone::Question:
      return Style | MB_ICONQUESTION;
    case Icone::Exclamation:
      return Style | MB_ICONEXCLAMATION;
  }
  return Style;
}

// What a hand does to a window, as it is taken from the queue.
bool De_L_Operateur(UINT Message) {
  return (Message >= WM_KEYFIRST && Message <= WM_KEYLAST) ||
         (Message >= WM_MOUSEFIRST && Message <= WM_MOUSELAST) ||
         (Message >= WM_NCMOUSEMOVE && Message <= WM_NCXBUTTONDBLCLK) || Message == WM_COMMAND ||
         Message == WM_SYSCOMMAND || Message == WM_CLOSE || Message == BM_CLICK;
}

// A key held down comes again and again.
bool Frappe_Repetee(const MSG& M) {
  constexpr WORD Touche = KF_REPEAT | KF_UP;
  return (HIWORD(M.lParam) & Touche) == KF_REPEAT;
}

bool Presse_Un_Bouton(WPARAM Touche) {
  return Touche == VK_RETURN || Touche == VK_SPACE || Touche == VK_ESCAPE;
}

// What the operator never meant. A box is asked before it is on the screen whether keys are for it;
// and whoever holds a key down presses one button, not the next one that comes.
bool Sans_Objet(const MSG& M) {
  const HWND Racine = GetAncestor(M.hwnd, GA_ROOT);
  const Fenetre_Native* const Notre = Fenetre_Native::De(Racine);
  if (Notre != nullptr && Notre->Ecran().Operateur_Ignore()) return true;
  if (M.message < WM_KEYFIRST || M.message > WM_KEYLAST) return false;
  if (!IsWindowVisible(Racine)) return true;
  return Frappe_Repetee(M) && (Notre == nullptr || Presse_Un_Bouton(M.wParam));
}

// Every message that this thread takes from its queue passes here, whoever takes it: our own loop,
// that of a message box or of a menu, a foreign library inside a call.
LRESULT CALLBACK Trier(int Code, WPARAM Retire, LPARAM L) {
  auto& M = *reinterpret_cast<MSG*>(L);
  if (Code == HC_ACTION && De_L_Operateur(M.message) && Sans_Objet(M)) M.message = WM_NULL;
  return CallNextHookEx(nullptr, Code, Retire, L);
}

void Oublier_Les_Frappes() {
  for (MSG M; PeekMessageW(&M, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE);) continue;
}

DWORD Duree(std::chrono::milliseconds Attente) {
  return static_cast<DWORD>(std::clamp<long long>(Attente.count(), 0, INFINITE));
}

std::string Texte_Exception() {
  try {
    const Erreur Survenue = Erreur_En_Cours();
    return "Erreur n° " + std::to_string(Survenue.Numero()) + " : " + Survenue.Description();
  } catch (...) {
    return "Erreur inconnue";
  }
}

struct Liberer {
  void operator()(IUnknown* Objet) const { Objet->Release(); }
};

BOOL CALLBACK Cacher(HWND Une, LPARAM) {
  ShowWindow(Une, SW_HIDE);
  return TRUE;
}

}  // namespace

Fenetrage_Windows::Fenetrage_Windows(const wchar_t* Famille)
    : Tri_Des_Messages_(SetWindowsHookExW(WH_GETMESSAGE, Trier, nullptr, GetCurrentThreadId())),
      Fontes_(Famille) {
  const INITCOMMONCONTROLSEX Voulues{sizeof Voulues, ICC_STANDARD_CLASSES | ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&Voulues);
  Fenetre_Native::Enregistrer_Classes();
}

Pair_Fenetre* Fenetrage_Windows::Creer(Fenetre& Modele) {
  Ouvertes_.push_back(std::make_unique<Fenetre_Native>(
      *this, Fontes_, Modele, Poignee_De(Modele.Depart().Devant), Fenetre_Visible()));
  return Ouvertes_.back().get();
}

HWND Fenetrage_Windows::Poignee_De(const Fenetre* Modele) const {
  for (const auto& Une : Ouvertes_) {
    if (&Une->Modele() == Modele) return Une->Poignee();
  }
  return nullptr;
}

bool Fenetrage_Windows::Est_A_Nous(HWND Candidate) const {
  return std::any_of(Ouvertes_.begin(), Ouvertes_.end(),
                     [&](const auto& Une) { return Une->Poignee() == Candidate; });
}

HWND Fenetrage_Windows::Fenetre_Visible() const {
  const HWND Active = GetActiveWindow();
  if (Est_A_Nous(Active) && IsWindowVisible(Active)) return Active;
  for (auto Une = Ouvertes_.rbegin(); Une != Ouvertes_.rend(); ++Une) {
    if (IsWindowVisible((*Une)->Poignee())) return (*Une)->Poignee();
  }
  return nullptr;
}

// In the name of the main window, which is open as long as files are sent.
void Fenetrage_Windows::Tenir_Eveille(bool Oui) {
  Veille_.reset();
  if (Oui)
    Veille_.emplace(Ouvertes_.empty() ? nullptr : Ouvertes_.front()->Poignee(), Raison_Veille);
}

void Fenetrage_Windows::Donner_Nom_Accessible(HWND Controle, const std::wstring& Nom) const {
  // Never undone: the names live as long as the windows, and so must the library that keeps them.
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return;
  void* Objet = nullptr;
  if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IAccPropServices, &Objet))) {
    return;
  }
  const std::unique_ptr<IAccPropServices, Liberer> Service(static_cast<IAccPropServices*>(Objet));
  Service->SetHwndPropStr(Controle, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                          Nom.c_str());
}

void Fenetrage_Windows::Activer_Une_Autre(HWND Partante) const {
  if (GetActiveWindow() != Partante) return;
  const HWND Proprietaire = GetWindow(Partante, GW_OWNER);
  HWND Suivante = IsWindowEnabled(Proprietaire) ? Proprietaire : nullptr;
  // From front to back.
  for (HWND Une = GetTopWindow(nullptr); Une != nullptr && Suivante == nullptr;
       Une = GetWindow(Une, GW_HWNDNEXT)) {
    const bool Convient = Une != Partante && Est_A_Nous(Une) && IsWindowVisible(Une) &&
                          IsWindowEnabled(Une) && !IsIconic(Une);
    if (Convient) Suivante = Une;
  }
  if (Suivante != nullptr) SetActiveWindow(Suivante);
}

// A window is often unloaded by an event of one of its own controls ("OK"), whose peer is then
// still on the stack. So it goes in three steps: its native windows are destroyed and its peers
// detached at once, the objects wait in Retirees_, and only the outermost event loop lets them go,
// where no handler can be running below: not while a box is up, which a handler is waiting for.
void Fenetrage_Windows::Retirer(const Pair_Fenetre& Partie) {
  const auto Place = std::find_if(Ouvertes_.begin(), Ouvertes_.end(),
                                  [&](const auto& Une) { return Une.get() == &Partie; });
  if (Place == Ouvertes_.end()) return;
  Retirees_.push_back(std::move(*Place));
  Ouvertes_.erase(Place);
}

Reponse Fenetrage_Windows::Boite_Message(std::string_view Texte, Boutons Choix, Icone Dessin,
                                         std::string_view Titre) {
  // A box that is already up is the active window: the new one stands in front of it.
  Rattraper();
  const HWND Active = GetActiveWindow();
  const HWND Proprietaire = Active != nullptr ? Active : Fenetre_Visible();
  int Bouton_Presse = 0;
  {
    const Niveau Ouverte(Boites_);
    // The system disables the owner itself, and enables it again before the box goes: the focus
    // returns there and not to another program.
    Actualiser_Activations(Proprietaire);
    Oublier_Les_Frappes();
    Bouton_Presse = MessageBoxW(Proprietaire, En_Utf16(Texte).c_str(), En_Utf16(Titre).c_str(),
                                Style_Boite(Choix, Dessin));
  }
  Actualiser_Activations(nullptr);
  if (Est_A_Nous(Proprietaire) && IsWindowEnabled(Proprietaire)) SetActiveWindow(Proprietaire);
  if (Choix == Boutons::Ok) return Reponse::Ok;
  return Bouton_Presse == IDYES ? Reponse::Oui : Reponse::Non;
}

void Fenetrage_Windows::Rattraper() const {
  for (const auto& Une : Ouvertes_) Une->Rattraper();
}

void Fenetrage_Windows::Actualiser_Activations(HWND Sauf) const {
  for (const auto& Une : Ouvertes_) {
    if (Une->Poignee() != Sauf) Une->Actualiser_Active();
  }
}

void Fenetrage_Windows::Signaler_Exception() noexcept {
  if (Exception_Montree_) return;
  Exception_Montree_ = true;
  try {
    Signalement_->Boite_Message(Texte_Exception(), Boutons::Ok, Icone::Exclamation,
                                Titre_Programme);
  } catch (...) {
    // Not even memory for a message: going on in silence is all that is left.
  }
  Exception_Montree_ = false;
  if (Ouvertes_.empty()) Quitter();
}

void Fenetrage_Windows::Traiter_Evenements(std::chrono::milliseconds Attente) {
  if (Profondeur_ == 0 && !Boite_Ouverte()) Retirees_.clear();
  const Niveau Boucle(Profondeur_);
  Rattraper();
  // Does not wait while there is something in the queue, new or not.
  const DWORD Fin =
      MsgWaitForMultipleObjectsEx(0, nullptr, Duree(Attente), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  if (Fin == WAIT_TIMEOUT) return;
  for (MSG Message{}; PeekMessageW(&Message, nullptr, 0, 0, PM_REMOVE);) {
    if (Message.message == WM_QUIT) Quitter();
    Distribuer(Message);
    Rattraper();
  }
}

void Fenetrage_Windows::Distribuer(MSG& Message) {
  const HWND Racine = GetAncestor(Message.hwnd, GA_ROOT);
  if (Est_A_Nous(Racine) && IsDialogMessageW(Racine, &Message)) return;
  TranslateMessage(&Message);
  DispatchMessageW(&Message);
}

// A library's clean-up may hang in ExitProcess: nothing of this copy is left on the screen by then.
void Fenetrage_Windows::Quitter() {
  EnumThreadWindows(GetCurrentThreadId(), Cacher, 0);
  if (Avant_De_Finir) Avant_De_Finir();
  ExitProcess(0);
}
