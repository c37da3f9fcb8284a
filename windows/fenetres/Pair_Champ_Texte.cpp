// The native text field: read-only, its text can be selected and copied. The pane of several lines
// follows its newest line; a text that goes on from the one shown is appended, without flicker.

#include "windows/fenetres/Fabrique_Pairs.h"

#include <commctrl.h>

#include "windows/systeme/Texte_Windows.h"

namespace {

class Pair_Champ_Texte : public Pair_Natif {
 public:
  Pair_Champ_Texte(Surface& Lieu, Champ_Texte& Sien);
  HBRUSH Colorer(HDC Dc) override;

 protected:
  void Habiller() override;
  LRESULT Recevoir(UINT Message, WPARAM W, LPARAM L) override;
  void Poser_Texte(const std::wstring& Texte) override;

 private:
  bool Plusieurs_Lignes() const;
  void Allonger(const std::wstring& Suite);

  Champ_Texte& Champ_;
};

constexpr WPARAM Controle_A = 1;  // the character that Ctrl+A types

DWORD Style_Champ(Champ_Texte::Lignes Combien) {
  constexpr DWORD Commun = WS_TABSTOP | static_cast<DWORD>(ES_READONLY);
  if (Combien == Champ_Texte::Lignes::Une) return Commun | static_cast<DWORD>(ES_AUTOHSCROLL);
  return Commun | WS_VSCROLL | static_cast<DWORD>(ES_MULTILINE | ES_AUTOVSCROLL);
}

}  // namespace

Pair_Champ_Texte::Pair_Champ_Texte(Surface& Lieu, Champ_Texte& Sien)
    : Pair_Natif(Lieu, Sien), Champ_(Sien) {
  Creer(WC_EDITW, Style_Champ(Champ_.Combien()), WS_EX_CLIENTEDGE);
  Envoyer(EM_SETLIMITTEXT, 0);  // the most that the control can hold
}

void Pair_Champ_Texte::Habiller() {
  Pair_Natif::Habiller();
  if (Plusieurs_Lignes() && !Texte_Montre().empty()) Allonger({});
}

bool Pair_Champ_Texte::Plusieurs_Lignes() const {
  return Champ_.Combien() == Champ_Texte::Lignes::Plusieurs;
}

HBRUSH Pair_Champ_Texte::Colorer(HDC Dc) {
  return Look().Fond ? Pair_Natif::Colorer(Dc) : nullptr;
}

LRESULT Pair_Champ_Texte::Recevoir(UINT Message, WPARAM W, LPARAM L) {
  switch (Message) {
    case WM_CHAR:
      if (W != Controle_A) break;
      Envoyer(EM_SETSEL, 0, -1);
      return 0;
    case WM_GETDLGCODE: {
      // In a pane Tab, Enter and Esc belong to the window, and arriving there selects nothing.
      const LRESULT Touches = Pair_Natif::Recevoir(Message, W, L);
      return Plusieurs_Lignes() ? Touches & ~(DLGC_WANTALLKEYS | DLGC_WANTTAB | DLGC_HASSETSEL)
                                : Touches;
    }
  }
  return Pair_Natif::Recevoir(Message, W, L);
}

void Pair_Champ_Texte::Poser_Texte(const std::wstring& Texte) {
  const std::wstring& Avant = Texte_Montre();
  if (Plusieurs_Lignes() && !Avant.empty() && Texte.starts_with(Avant)) {
    Allonger(Texte.substr(Avant.size()));
  } else {
    Pair_Natif::Poser_Texte(Texte);
    if (Plusieurs_Lignes()) Allonger({});
  }
  Repeindre();
}

// What the operator has selected stays selected.
void Pair_Champ_Texte::Allonger(const std::wstring& Suite) {
  DWORD Debut = 0, Fin = 0;
  Envoyer(EM_GETSEL, reinterpret_cast<WPARAM>(&Debut), reinterpret_cast<LPARAM>(&Fin));
  const int Longueur = GetWindowTextLengthW(Poignee());
  // This message also shows a hidden control.
  const bool Visible = (GetWindowLongW(Poignee(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (Visible) Envoyer(WM_SETREDRAW, FALSE);
  Envoyer(EM_SETSEL, static_cast<WPARAM>(Longueur), Longueur);
  Envoyer(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(Suite.c_str()));
  Envoyer(EM_SCROLLCARET);
  if (Debut != Fin) Envoyer(EM_SETSEL, Debut, static_cast<LPARAM>(Fin));
  if (!Visible) return;
  Envoyer(WM_SETREDRAW, TRUE);
  Invalider();
}

std::unique_ptr<Pair_Natif> Nouveau_Pair(Surface& Lieu, Champ_Texte& C) {
  return std::make_unique<Pair_Champ_Texte>(Lieu, C);
}
