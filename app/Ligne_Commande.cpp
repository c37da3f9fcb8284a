#include "app/Ligne_Commande.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "platform/Texte.h"

namespace {

constexpr std::string_view Debut = "/port:COM";
constexpr int Dernier_Port = 256;

std::optional<int> Lire_Port(std::string_view Argument) {
  if (!Egal_Sans_Casse(Argument.substr(0, Debut.size()), Debut)) return {};
  Argument.remove_prefix(Debut.size());
  int Port = 0;
  const auto [Fin, Etat] =
      std::from_chars(Argument.data(), Argument.data() + Argument.size(), Port);
  const bool Entier = Etat == std::errc() && Fin == Argument.data() + Argument.size();
  return Entier && Port >= 1 && Port <= Dernier_Port ? std::optional(Port) : std::nullopt;
}

}  // namespace

Ligne_Commande Lire_Ligne_Commande(const std::vector<std::string>& Arguments) {
  Ligne_Commande Lue;
  for (const std::string& Argument : Arguments) {
    if (const std::optional<int> Port = Lire_Port(Argument)) {
      Lue.Port = *Port;
      continue;
    }
    Lue.Port = 1;
    Lue.Avertissement = "Argument non reconnu : " + Argument +
                        "\r\nLe port série s'indique ainsi : /port:COM3 (de COM1 à COM256)."
                        "\r\nLe port COM1 sera utilisé.";
    break;
  }
  return Lue;
}
