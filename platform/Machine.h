#pragma once
// All that the program asks of its machine, handed over once by the entry point or by a test.

class Bibliotheque_Galss;
class Liste_Processus;
class Profil_Prive;
class Systeme_Fichiers;
class Port_Serie;
class Horloge;
class Fenetrage;

struct Machine {
  Bibliotheque_Galss& Galss;
  Liste_Processus& Processus;
  Profil_Prive& Profil;
  Systeme_Fichiers& Disque;
  Port_Serie& Serie;
  Horloge& Temps;
  Fenetrage& Ecran;
};
