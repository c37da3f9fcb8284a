#pragma once
// The reader's memory for software: takes load requests and blocks one by one, keeps every byte,
// and says in French what the program did wrong.

#include <functional>
#include <string>
#include <vector>

#include "simulator/Scenario.h"
#include "simulator/Trame_Recue.h"

struct Fichier_Recu {
  Famille_Trames Famille = Famille_Trames::Telechargement;
  int Longueur = 0;  ///< declared
  bool Noyau = false;
  Octets Contenu;
  bool Accepte = false;  ///< every answer so far, as it went out, told the program to go on
  bool Complet() const { return static_cast<int>(Contenu.size()) == Longueur; }
};

class Receveur {
 public:
  using Juge = std::function<void(const std::string&)>;

  Receveur(const Scenario& Regles, Juge Faute) : Regles_(Regles), Faute_(std::move(Faute)) {}

  void Nouvelle_Session();

  /// Judges a request or a block, once per exchange, whether or not it reaches the reader.
  /// False: the reader will refuse it.
  bool Juger(const Trame_Recue& Trame);

  /// Keeps what was judged right.
  void Recevoir(const Trame_Recue& Trame);

  /// Told once an exchange is over, a configuration read included. Accord_Donne: its answer tells
  /// the program to go on. Taille: size byte of a request's answer. True: a file ended well.
  bool Conclure(const Trame_Recue& Trame, bool Accord_Donne, std::uint8_t Taille);

  const std::vector<Fichier_Recu>& Fichiers() const { return Fichiers_; }

 private:
  enum class Dernier { Aucun, En_Cours, Reussi, Echoue };

  void Juger_Ordre();
  void Juger_Demande(const Trame_Recue& Trame);
  void Juger_Bloc(const Trame_Recue& Trame);
  void Verifier(bool Correct, const std::string& Reproche);

  const Scenario& Regles_;
  Juge Faute_;
  std::vector<Fichier_Recu> Fichiers_;
  Dernier Dernier_ = Dernier::Aucun;
  bool Ouvert_ = false;  // the last file is the one being received
  Famille_Trames Famille_Session_ = Famille_Trames::Telechargement;
  std::size_t Donnees_Par_Bloc_ = 0;
  int Demandes_Session_ = 0;
  int Lectures_ = 0;      // since the last request
  bool Repondu_ = false;  // one of them got its answer
  bool Noyau_Installe_ = false;
  bool Irreprochable_ = true;  // the frame being judged
};
