#pragma once
// The native windows around the whole program, whose machine is the tests' own: a simulated reader,
// time that jumps, message boxes that answer themselves.

#include <gtest/gtest.h>

#include "tests/Machine_De_Test.h"
#include "tests/bout_en_bout/Poste_Windows.h"
#include "windows/fenetres/Fenetrage_Windows.h"
#include "windows/systeme/Texte_Windows.h"

struct Ecran_Natif : Fenetrage_Windows {
  Ecran_Natif(const wchar_t* Famille, Horloge_De_Test& H) : Fenetrage_Windows(Famille), Temps(H) {}

  Reponse Boite_Message(std::string_view, Boutons Choix, Icone, std::string_view) override {
    return Choix == Boutons::Ok ? Reponse::Ok : Reponse::Oui;
  }
  // Wine does not have the program's own service.
  void Donner_Nom_Accessible(HWND Controle, const std::wstring& Nom) const override { Noms[Controle] = Nom; }
  void Traiter_Evenements(std::chrono::milliseconds Attente) override {
    Temps.Maintenant += std::chrono::duration<double>(Attente).count();
    Fenetrage_Windows::Traiter_Evenements(std::chrono::milliseconds(0));
    if (Au_Repos) Au_Repos();
  }

  Horloge_De_Test& Temps;
  std::function<void()> Au_Repos;
  mutable std::map<HWND, std::wstring> Noms;
};

inline HWND Poignee_De(const Fenetre& F) {
  return static_cast<Fenetre_Native*>(F.Pair())->Poignee();
}

struct Poste_Natif : Poste_De_Test {
  explicit Poste_Natif(const wchar_t* Famille = Polices::Famille_Du_Poste(), std::string_view Scenario = "")
      : Poste_De_Test(Scenario), Natif(Famille, Temps) {
    Disque.Poser("C:\\Pavorin\\Fexa0500.ing", Contenu(1300));
    Disque.Poser("C:\\Pavorin\\ER0300.ing", Contenu(1014));
    Profil.Repertoire() = {'C', ':', '\\', 'P', 'a', 'v', 'o', 'r', 'i', 'n'};
    Port.Brancher(Serie, 0.002);
    Programme.Form_Load();
  }
  void Mettre_A_Jour() {
    Lecteur.Rallumer();
    F.FMain.CmdMaj.Cliquer();
  }
  /// Every window in turn, an update, a test of the reader. Voir is called for each open window whenever it shows
  /// something new.
  void Tout_Montrer(const std::function<void(const Fenetre&)>& Voir) {
    const Fenetre* const Toutes[] = {&F.FMain, &F.FDossierING, &F.FrmAnimCharg, &F.FrmResultParam, &F.frmAbout};
    std::set<std::string> Vues;
    Natif.Au_Repos = [&] {
      for (const Fenetre* Une : Toutes) {
        std::string Vue = std::to_string(Une->Depart().Largeur);
        for (const Controle* C : Une->Controles()) Vue += C->Visible() ? C->Texte() + "|" : "";
        if (Une->Ouverte() && Vues.insert(Vue).second) Voir(*Une);
      }
    };
    F.FMain.MnApropos.Cliquer();
    F.FMain.CmdChooseDirectory.Cliquer();
    Natif.Traiter_Evenements({});
    Mettre_A_Jour();
    F.FMain.MnLecteur.Cliquer();
    Natif.Traiter_Evenements({});
    Natif.Au_Repos = {};
  }

  Lecteur_Serie Serie{Scenario_De("date = 20051013")};
  Ecran_Natif Natif;
  Application Programme{Machine{Galss, Processus, Profil, Disque, Port, Temps, Natif}};
  Fenetres& F = Programme.F;
};

struct Fenetres_Natives : testing::Test, Poste_Natif {};
