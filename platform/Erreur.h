#pragma once
// The one exception of the program: a run-time failure with the number and the description that the
// error handlers show. Expected results are 16-bit codes and never travel this way.

#include <functional>
#include <stdexcept>
#include <string>

/// Numbers of the run-time failures, in the classic numbering of Visual Basic that operators and
/// their support desk know.
namespace Numero_Erreur {
inline constexpr int Appel_Incorrect = 5;
inline constexpr int Memoire_Insuffisante = 7;
inline constexpr int Type_Incompatible = 13;
inline constexpr int Bibliotheque_Non_Chargeable = 48;
inline constexpr int Erreur_Interne = 51;
inline constexpr int Fichier_Introuvable = 53;
inline constexpr int Erreur_Peripherique = 57;
inline constexpr int Lecture_Apres_Fin = 62;
inline constexpr int Acces_Refuse = 70;
inline constexpr int Chemin_Introuvable = 76;
inline constexpr int Operation_Absente = 453;
// Serial port: the numbers of the communications control.
inline constexpr int Port_Inexistant = 8002;
inline constexpr int Port_Deja_Ouvert = 8005;
inline constexpr int Reglages_Incorrects = 380;
inline constexpr int Port_Non_Ouvert = 8018;
inline constexpr int Port_En_Panne = 8020;
}  // namespace Numero_Erreur

class Erreur : public std::runtime_error {
 public:
  Erreur(int Numero, const std::string& Description)
      : std::runtime_error(Description), Numero_(Numero) {}

  int Numero() const { return Numero_; }
  std::string Description() const { return what(); }

 private:
  int Numero_;
};

/// The exception being handled, as the one type the handlers show: an Erreur as it is, memory
/// exhaustion and any other standard exception under their numbers. Only inside a catch block.
/// What is not a standard exception goes through.
Erreur Erreur_En_Cours();

/// While it lives, it is told of every exception that Erreur_En_Cours names. One at a time.
class Ecoute_Erreurs {
 public:
  explicit Ecoute_Erreurs(std::function<void(const Erreur&)> Suite);
  ~Ecoute_Erreurs();
  Ecoute_Erreurs(const Ecoute_Erreurs&) = delete;
  Ecoute_Erreurs& operator=(const Ecoute_Erreurs&) = delete;
};
