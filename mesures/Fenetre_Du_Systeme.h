#pragma once
// The main window as the system makes one: from a dialog template with the same controls, fonts, texts and menus.

#include <windows.h>

#include <map>

#include "ui/FMain.h"
#include "windows/systeme/Texte_Windows.h"

class Fenetre_Du_Systeme : Visiteur_Controles, Fenetrage {
 public:
  /// Shown and painted, with so many entries in each list.
  void Ouvrir(int Entrees) {
    Entrees_ = Entrees;
    Entete();
    for (Controle* Un : FMain_.Controles()) Un->Accueillir(*this);
    const HWND Dialogue = CreateDialogIndirectParamW(nullptr, reinterpret_cast<const DLGTEMPLATE*>(Gabarit_.data()),
                                                     nullptr, Initialiser, reinterpret_cast<LPARAM>(this));
    ShowWindow(Dialogue, SW_SHOWNORMAL);
    SetForegroundWindow(Dialogue);
    RedrawWindow(Dialogue, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
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
      SendMessageW(Natif, WM_SETFONT, reinterpret_cast<WPARAM>(Police(Un->Depart())), FALSE);
      if (dynamic_cast<const Liste_Deroulante*>(Un) == nullptr) continue;
      for (int I = 0; I < Entrees_; ++I) {
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
  HFONT Police(const Conception& C) {
    HFONT& Faite = Polices_[{C.Points, C.Gras, C.Souligne}];
    if (Faite == nullptr) {
      Faite = CreateFontW(-static_cast<int>(C.Points * 96 / 72), 0, 0, 0, C.Gras ? FW_BOLD : FW_NORMAL, FALSE,
                          C.Souligne, FALSE, DEFAULT_CHARSET, 0, 0, CLEARTYPE_QUALITY, 0, L"Arial Narrow");
    }
    return Faite;
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
  void Ajouter(const Controle& C, WORD Classe, DWORD Style, DWORD Etendu = 0) {
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
  // The classes that a template names by number.
  static constexpr WORD Button = 0x80, Edit = 0x81, Static = 0x82, Combobox = 0x85;
  void Visiter(Bouton& C) override { Ajouter(C, Button, BS_OWNERDRAW | WS_TABSTOP); }
  void Visiter(Cadre& C) override { Ajouter(C, Button, BS_GROUPBOX); }
  void Visiter(Champ_Texte& C) override { Ajouter(C, Edit, ES_READONLY | WS_TABSTOP, WS_EX_CLIENTEDGE); }
  void Visiter(Etiquette& C) override { Ajouter(C, Static, C.Depart().Centre ? SS_CENTER : SS_LEFT); }
  void Visiter(Image& C) override { Ajouter(C, Static, SS_OWNERDRAW); }
  void Visiter(Liste_Deroulante& C) override { Ajouter(C, Combobox, CBS_DROPDOWN | WS_VSCROLL | WS_TABSTOP); }
  void Visiter(Option& C) override { Ajouter(C, Button, BS_RADIOBUTTON); }
  void Visiter(Trait& C) override { Ajouter(C, Static, SS_OWNERDRAW); }
  // Not in the main window.
  void Visiter(Barre_Progression&) override {}
  void Visiter(Liste_Lecteurs&) override {}
  void Visiter(Liste_Repertoires&) override {}
  // The model is asked what it holds, and never shown.
  Pair_Fenetre* Creer(Fenetre&) override { return nullptr; }
  Reponse Boite_Message(std::string_view, Boutons, Icone, std::string_view) override { return Reponse::Ok; }
  void Traiter_Evenements(std::chrono::milliseconds) override {}
  void Tenir_Eveille(bool) override {}
  [[noreturn]] void Quitter() override { ExitProcess(1); }

  int Entrees_ = 0;
  std::vector<WORD> Gabarit_;
  std::map<std::tuple<double, bool, bool>, HFONT> Polices_;
  Fenetre_Principale FMain_{*this};
};
