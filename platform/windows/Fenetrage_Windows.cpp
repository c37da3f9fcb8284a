#include "platform/windows/Fenetrage_Windows.h"

#include <commctrl.h>

#include <algorithm>
#include <limits>

#include "platform/windows/Texte_Windows.h"

namespace {

constexpr const char* Titre_Programme = "Pavorin";

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

}  // namespace

Fenetrage_Windows::Fenetrage_Windows(const wchar_t* Famille) : Fontes_(Famille) {
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

bool Fenetrage_Windows::Veille_Suspendue_Quelque_Part() const {
  return std::any_of(Ouvertes_.begin(), Ouvertes_.end(),
                     [](const auto& Une) { return Une->Modele().Depart().Garde_Eveille; });
}

void Fenetrage_Windows::Activer_Une_Autre(const Fenetre_Native& Partante) const {
  if (GetActiveWindow() != Partante.Poignee()) return;
  const HWND Proprietaire = GetWindow(Partante.Poignee(), GW_OWNER);
  HWND Suivante = IsWindowEnabled(Proprietaire) ? Proprietaire : nullptr;
  // From front to back.
  for (HWND Une = GetTopWindow(nullptr); Une != nullptr && Suivante == nullptr;
       Une = GetWindow(Une, GW_HWNDNEXT)) {
    const bool Convient = Une != Partante.Poignee() && Est_A_Nous(Une) && IsWindowVisible(Une) &&
                          IsWindowEnabled(Une) && !IsIconic(Une);
    if (Convient) Suivante = Une;
  }
  if (Suivante != nullptr) SetActiveWindow(Suivante);
}

void Fenetrage_Windows::Retirer(const Fenetre_Native& Partie) {
  const auto Place = std::find_if(Ouvertes_.begin(), Ouvertes_.end(),
                                  [&](const auto& Une) { return Une.get() == &Partie; });
  if (Place == Ouvertes_.end()) return;
  Retirees_.push_back(std::move(*Place));
  Ouvertes_.erase(Place);
}

Reponse Fenetrage_Windows::Boite_Message(std::string_view Texte, Boutons Choix, Icone Dessin,
                                         std::string_view Titre) {
  // A box that is already up is the active window: the new one stands in front of it.
  const HWND Active = GetActiveWindow();
  const HWND Proprietaire = Active != nullptr ? Active : Fenetre_Visible();
  int Bouton_Presse = 0;
  {
    const Niveau Ouverte(Boites_);
    // The system disables the owner itself, and enables it again before the box goes: the focus
    // returns there and not to another program.
    Actualiser_Activations(Proprietaire);
    Bouton_Presse = MessageBoxW(Proprietaire, En_Utf16(Texte).c_str(), En_Utf16(Titre).c_str(),
                                Style_Boite(Choix, Dessin));
  }
  Actualiser_Activations(nullptr);
  if (Est_A_Nous(Proprietaire) && IsWindowEnabled(Proprietaire)) SetActiveWindow(Proprietaire);
  if (Choix == Boutons::Ok) return Reponse::Ok;
  return Bouton_Presse == IDYES ? Reponse::Oui : Reponse::Non;
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
    Boite_Message(Texte_Exception(), Boutons::Ok, Icone::Exclamation, Titre_Programme);
  } catch (...) {
    // Not even memory for a message: going on in silence is all that is left.
  }
  Exception_Montree_ = false;
}

void Fenetrage_Windows::Traiter_Evenements(std::chrono::milliseconds Attente) {
  if (Profondeur_ == 0 && !Boite_Ouverte()) Retirees_.clear();
  const Niveau Boucle(Profondeur_);
  if (Pomper()) return;
  MsgWaitForMultipleObjectsEx(0, nullptr, Duree(Attente), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  Pomper();
}

// True when there was something to do.
bool Fenetrage_Windows::Pomper() {
  bool Travail = false;
  for (MSG Message{}; PeekMessageW(&Message, nullptr, 0, 0, PM_REMOVE); Travail = true) {
    if (Message.message == WM_QUIT) Quitter();
    Distribuer(Message);
  }
  return Travail;
}

void Fenetrage_Windows::Distribuer(MSG& Message) {
  const HWND Racine = GetAncestor(Message.hwnd, GA_ROOT);
  if (Est_A_Nous(Racine) && IsDialogMessageW(Racine, &Message)) return;
  TranslateMessage(&Message);
  DispatchMessageW(&Message);
}

void Fenetrage_Windows::Quitter() {
  ExitProcess(0);
}
