#include "app/Ligne_Commande.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "platform/Texte.h"

namespace {

constexpr std::string_view Debut_Port = "/port:COM";
constexpr std::string_view Debut_Journal = "/journal:";
constexpr int Dernier_Port = 256;

bool Prendre_Debut(std::string_view& Argument, std::string_view Debut) {
  if (!Egal_Sans_Casse(Argument.substr(0, Debut.size()), Debut)) return false;
  Argument.remove_prefix(Debut.size());
  return true;
}

std::optional<int> Lire_Port(std::string_view Argument) {
  if (!Prendre_Debut(Argument, Debut_Port)) return {};
  int Port = 0;
  // What is not a number, or too long for one, leaves 0.
  const char* const Fin = Argument.data() + Argument.size();
  const bool Entier = std::from_chars(Argument.data(), Fin, Port).ptr == Fin;
  return Entier && Port >= 1 && Port <= Dernier_Port ? std::optional(Port) : std::nullopt;
}

std::optional<std::string> Lire_Journal(std::string_view Argument) {
  if (Egal_Sans_Casse(Argument, "/journal")) return std::string();
  if (!Prendre_Debut(Argument, Debut_Journal) || Argument.empty()) return {};
  return std::string(Argument);
}

}  // namespace

Ligne_Commande Lire_Ligne_Commande(const std::vector<std::string>& Arguments) {
  Ligne_Commande Lue;
  for (const std::string& Argument : Arguments) {
    if (const std::optional<int> Port = Lire_Port(Argument)) {
      Lue.Port = *Port;
    } else if (const std::optional<std::string> Journal = Lire_Journal(Argument)) {
      Lue.Journal = *Journal;
    } else if (Lue.Avertissement.empty()) {
      Lue.Avertissement = "Argument non reconnu : " + Argument +
                          "\r\nLe port série s'indique ainsi : /port:COM3 (de COM1 à COM256)."
                          "\r\nLe port COM1 sera utilisé.";
    }
  }
  if (!Lue.Avertissement.empty()) Lue.Port = 1;
  return Lue;
}
