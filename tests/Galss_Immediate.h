#pragma once
// A library that accepts everything at once, and a transfer through it: what the program itself
// costs.

#include "download/Mise_A_Jour.h"
#include "tests/Machine_De_Test.h"

struct Galss_Immediate : Bibliotheque_Galss {
  std::int16_t OuvrirSession(Octets&, Octets&, std::int16_t&, std::int16_t&) override { return 0; }
  std::int16_t DebutExclusivite(Octets&, Octets&, Octets&, std::int16_t&) override { return 0; }
  std::int16_t FinExclusivite(std::int16_t) override { return 0; }
  std::int16_t FermerSession(std::int16_t, std::int16_t&) override { return 0; }
  std::int16_t Echange(std::int16_t, std::int16_t, Octets&, std::int32_t&, Octets& Reponse, std::int32_t&) override {
    ++Echanges;
    Reponse[0] = 0;
    Reponse[1] = Reponse.size() == 3 ? 2 : 0;  // accepts requests and blocks of both families
    if (Reponse.size() == 3) Reponse[2] = 4;
    return 0;
  }
  int Echanges = 0;
};

struct Transfert_Immediat : Poste_De_Test {
  explicit Transfert_Immediat(std::size_t Taille) {
    Ecran.Ne_Plus_Regarder();
    Disque.Poser(Chemin, Contenu(Taille));
    Demarrer();
    App.Globales.Version_Requete = "0000";
  }
  bool Executer(bool Chargement) {
    App.F.FMain.TxtDetails.Texte("");
    return Chargement ? Transferts.Charger_Fichier(Chemin) : Transferts.Telecharger_Fichier(Chemin, false);
  }
  const std::string Chemin = "C:\\Pavorin\\E0300.ing";
  Galss_Immediate Immediate;
  Session_Galss Session;
  Liaison_Galss Liaison{Immediate, Session};
  Connect_Deconnect Connexions{Immediate, Session, App.F.FMain.TxtDetails};
  Mise_A_Jour Transferts{Machine{Immediate, Processus, Profil, Disque, Port, Temps, Ecran}, App.F, App.Globales,
                         Liaison, Connexions};
};
