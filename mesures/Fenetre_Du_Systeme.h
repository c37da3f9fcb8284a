#pragma once
// The main window as the system makes one: from a dialog template with the same controls, fonts, texts and menus.

#include <windows.h>

#include "ui/FMain.h"
#include "windows/fenetres/Outils_Dessin.h"
#include "windows/systeme/Texte_Windows.h"

class Fenetre_Du_Systeme : Fenetrage {
 public:
  /// Shown and painted; until the process is ended.
  int Montrer() {
    Entete();
    for (const Controle* Un : FMain_.Controles()) Ajouter(*Un);
    const HWND Dialogue = CreateDialogIndirectParamW(nullptr, reinterpret_cast<const DLGTEMPLATE*>(Gabarit_.data()),
                                                     nullptr, Initialiser, reinterpret_cast<LPARAM>(this));
    ShowWindow(Dialogue, SW_SHOWNORMAL);
    SetForegroundWindow(Dialogue);
    RedrawWindow(Dialogue, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    for (MSG Message; GetMessageW(&Message, nullptr, 0, 0) > 0;) DispatchMessageW(&Message);
    return 0;
  }

 private:
  // A DLGTEMPLATEEX.
  void Entete() {
    Gabarit_ = {1, 0xFFFF, 0, 0, 0, 0};
    Double(WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN | DS_SETFONT | DS_CENTER);
    Gabarit_.push_back(static_cast<WORD>(FMain_.Controles().size()));
    Placer({0, 0, FMain_.Depart().Largeur, FMain_.Depart().Hauteur});
    Gabarit_.insert(Gabarit_.end(), {0, 0});
    Ecrire(FMain_.Depart().Titre);
    Gabarit_.insert(Gabarit_.end(), {9, FW_NORMAL, DEFAULT_CHARSET << 8});
    Ecrire("Arial Narrow");
  }
  static INT_PTR CALLBACK Initialiser(HWND Dialogue, UINT Message, WPARAM, LPARAM L) {
    if (Message == WM_INITDIALOG) reinterpret_cast<Fenetre_Du_Systeme*>(L)->Garnir(Dialogue);
    return Message == WM_INITDIALOG;
  }
  void Garnir(HWND Dialogue) {
    for (const Controle* Un : FMain_.Controles()) {
      const HWND Natif = GetDlgItem(Dialogue, Un->Numero());
      SendMessageW(Natif, WM_SETFONT, reinterpret_cast<WPARAM>(Fontes_.Normale(Un->Depart(), {})), FALSE);
      if (dynamic_cast<const Liste_Deroulante*>(Un) == nullptr) continue;
      for (int I = 0; I < 27; ++I) {  // 26 files, and none
        SendMessageW(Natif, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Fexa1000.ing"));
      }
      SendMessageW(Natif, CB_SETCURSEL, 0, 0);
    }
    const HMENU Barre = CreateMenu();
    Remplir(Barre, FMain_.Menus());
    SetMenu(Dialogue, Barre);
  }
  static void Remplir(HMENU Menu, const std::vector<Entree_Menu*>& Contenu) {
    for (const Entree_Menu* Une : Contenu) {
      const HMENU Sous_Menu = Une->Sous_Menu().empty() ? nullptr : CreatePopupMenu();
      if (Sous_Menu != nullptr) Remplir(Sous_Menu, Une->Sous_Menu());
      AppendMenuW(Menu, Sous_Menu != nullptr ? MF_POPUP : MF_STRING, reinterpret_cast<UINT_PTR>(Sous_Menu),
                  En_Utf16(Une->Texte()).c_str());
    }
  }
  void Double(DWORD Valeur) { Gabarit_.insert(Gabarit_.end(), {LOWORD(Valeur), HIWORD(Valeur)}); }
  void Ecrire(const std::string& Texte) {
    for (const wchar_t C : En_Utf16(Texte)) Gabarit_.push_back(static_cast<WORD>(C));
    Gabarit_.push_back(0);
  }
  // Twips to dialog units, which are about a pixel and a half in this font.
  void Placer(const Position& P) {
    for (const int Twips : {P.Gauche, P.Haut, P.Largeur, P.Hauteur}) Gabarit_.push_back(static_cast<WORD>(Twips / 23));
  }
  // The classes that a template names by number.
  static std::pair<WORD, DWORD> Classe_Et_Style(const Controle* C) {
    constexpr WORD Button = 0x80, Edit = 0x81, Static = 0x82, Combobox = 0x85;
    if (dynamic_cast<const Bouton*>(C)) return {Button, BS_OWNERDRAW | WS_TABSTOP};
    if (dynamic_cast<const Cadre*>(C)) return {Button, BS_GROUPBOX};
    if (dynamic_cast<const Option*>(C)) return {Button, BS_RADIOBUTTON};
    if (dynamic_cast<const Champ_Texte*>(C)) return {Edit, ES_READONLY | WS_TABSTOP};
    if (dynamic_cast<const Liste_Deroulante*>(C)) return {Combobox, CBS_DROPDOWN | WS_VSCROLL | WS_TABSTOP};
    if (dynamic_cast<const Etiquette*>(C)) return {Static, C->Depart().Centre ? SS_CENTER : SS_LEFT};
    return {Static, SS_OWNERDRAW};
  }
  void Ajouter(const Controle& C) {
    const auto [Classe, Style] = Classe_Et_Style(&C);
    const DWORD Etendu = dynamic_cast<const Champ_Texte*>(&C) ? WS_EX_CLIENTEDGE : 0;
    if (Gabarit_.size() % 2 != 0) Gabarit_.push_back(0);
    for (const DWORD Un : {DWORD{0}, Etendu, Style | WS_CHILD | WS_VISIBLE}) Double(Un);
    const Position Cadre_Sien = C.Parent() == nullptr ? Position{} : C.Parent()->Place();
    Placer(
        {C.Place().Gauche + Cadre_Sien.Gauche, C.Place().Haut + Cadre_Sien.Haut, C.Place().Largeur, C.Place().Hauteur});
    Double(static_cast<DWORD>(C.Numero()));
    Gabarit_.insert(Gabarit_.end(), {0xFFFF, Classe});
    Ecrire(C.Texte());
    Gabarit_.push_back(0);
  }
  // The model is asked what it holds, and never shown.
  Pair_Fenetre* Creer(Fenetre&) override { return nullptr; }
  Reponse Boite_Message(std::string_view, Boutons, Icone, std::string_view) override { return Reponse::Ok; }
  void Traiter_Evenements(std::chrono::milliseconds) override {}
  void Tenir_Eveille(bool) override {}
  [[noreturn]] void Quitter() override { ExitProcess(1); }

  std::vector<WORD> Gabarit_;
  Polices Fontes_{L"Arial Narrow"};
  Fenetre_Principale FMain_{*this};
};
