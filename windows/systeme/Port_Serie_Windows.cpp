#include "windows/systeme/Port_Serie_Windows.h"

#include <charconv>
#include <optional>

#include "windows/systeme/Texte_Windows.h"

namespace {

enum class Parite : std::uint8_t { Aucune, Impaire, Paire, Marque, Espace };
enum class Bits_Stop : std::uint8_t { Un, Un_Et_Demi, Deux };

struct Reglages_Serie {
  std::uint32_t Bauds;
  Parite Controle;
  std::uint8_t Bits_Donnees;  ///< 5 to 8
  Bits_Stop Stop;
};

// Order of the enumerations.
constexpr std::string_view Lettres_Parite = "noems";
constexpr std::string_view Textes_Stop[] = {"1", "1.5", "2"};

std::optional<Bits_Stop> Lire_Stop(std::string_view Texte) {
  for (std::uint8_t Rang = 0; const std::string_view Possible : Textes_Stop) {
    if (Texte == Possible) return Bits_Stop{Rang};
    ++Rang;
  }
  return std::nullopt;
}

// Speed in bauds (1 to 7 digits, not 0), parity letter n, o, e, m or s, data bits 5 to 8, stop
// bits 1, 1.5 or 2, between commas and without blanks; absent for any other text.
std::optional<Reglages_Serie> Lire_Reglages(std::string_view Texte) {
  std::uint32_t Bauds = 0;
  const auto [Fin, Echec] = std::from_chars(Texte.data(), Texte.data() + Texte.size(), Bauds);
  const auto Chiffres = static_cast<std::size_t>(Fin - Texte.data());
  if (Echec != std::errc() || Bauds == 0 || Chiffres > 7) return std::nullopt;
  const std::string_view Suite = Texte.substr(Chiffres);  // ",n,8,1"
  if (Suite.size() < 6 || Suite[0] != ',' || Suite[2] != ',' || Suite[4] != ',')
    return std::nullopt;
  const std::size_t Rang_Parite = Lettres_Parite.find(Suite[1]);
  const auto Stop = Lire_Stop(Suite.substr(5));
  if (Rang_Parite == std::string_view::npos || Suite[3] < '5' || Suite[3] > '8' || !Stop) {
    return std::nullopt;
  }
  return Reglages_Serie{Bauds, static_cast<Parite>(Rang_Parite),
                        static_cast<std::uint8_t>(Suite[3] - '0'), *Stop};
}

Erreur Panne(const std::string& Nom, DWORD Code) {
  return {Numero_Erreur::Port_En_Panne,
          "Le port " + Nom + " ne répond plus : " + Texte_Systeme(Code)};
}

Erreur Ouverture_Refusee(const std::string& Nom, DWORD Code) {
  switch (Code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return {Numero_Erreur::Port_Inexistant, "Le port " + Nom + " n'existe pas"};
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
      return {Numero_Erreur::Port_Deja_Ouvert, "Le port " + Nom + " est déjà ouvert"};
    default:
      return Panne(Nom, Code);
  }
}

Reglages_Serie Exiger_Reglages(std::string_view Texte) {
  if (const auto Reglages = Lire_Reglages(Texte)) return *Reglages;
  throw Erreur(Numero_Erreur::Reglages_Incorrects,
               "Réglages de ligne incorrects : " + std::string(Texte));
}

DCB Etat_De_Ligne(HANDLE Port, const Reglages_Serie& Reglages, bool Lignes_De_Controle) {
  DCB Etat{};
  Etat.DCBlength = sizeof Etat;
  GetCommState(Port, &Etat);  // what a driver keeps of its own; a driver without it is no failure
  Etat.BaudRate = Reglages.Bauds;
  Etat.Parity = static_cast<BYTE>(Reglages.Controle);  // our enumerations are in Windows' order
  Etat.ByteSize = Reglages.Bits_Donnees;
  Etat.StopBits = static_cast<BYTE>(Reglages.Stop);
  Etat.fBinary = TRUE;
  Etat.fParity = Reglages.Controle != Parite::Aucune;
  Etat.fDtrControl = Lignes_De_Controle ? DTR_CONTROL_ENABLE : DTR_CONTROL_DISABLE;
  Etat.fRtsControl = Lignes_De_Controle ? RTS_CONTROL_ENABLE : RTS_CONTROL_DISABLE;
  Etat.fOutxCtsFlow = Etat.fOutxDsrFlow = Etat.fDsrSensitivity = FALSE;
  Etat.fOutX = Etat.fInX = Etat.fNull = Etat.fErrorChar = Etat.fAbortOnError = FALSE;
  Etat.XonChar = 0x11;  // unused, but some drivers refuse that they be equal
  Etat.XoffChar = 0x13;
  return Etat;
}

// A reader powered by the line needs DTR and RTS; a line without them is used as it is.
void Appliquer(HANDLE Port, const std::string& Nom, const Reglages_Serie& Reglages) {
  DCB Etat = Etat_De_Ligne(Port, Reglages, true);
  if (SetCommState(Port, &Etat)) return;
  Etat = Etat_De_Ligne(Port, Reglages, false);
  if (!SetCommState(Port, &Etat)) throw Panne(Nom, GetLastError());
}

}  // namespace

Port_Serie_Windows::Port_Serie_Windows(unsigned Numero) : Nom_("COM" + std::to_string(Numero)) {}

void Port_Serie_Windows::Regler(std::string_view Reglages) {
  const Reglages_Serie Valeurs = Exiger_Reglages(Reglages);
  if (Ouvert()) Appliquer(Port_.get(), Nom_, Valeurs);
  Reglages_ = Reglages;
}

std::string Port_Serie_Windows::Reglages() const {
  return Reglages_;
}

void Port_Serie_Windows::Ouvrir() {
  if (Ouvert()) throw Ouverture_Refusee(Nom_, ERROR_ACCESS_DENIED);
  const std::wstring Appel = En_Utf16("\\\\.\\" + Nom_);
  const HANDLE Obtenue = CreateFileW(Appel.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
  if (Obtenue == INVALID_HANDLE_VALUE) throw Ouverture_Refusee(Nom_, GetLastError());
  Poignee Port(Obtenue);
  Appliquer(Port.get(), Nom_, Exiger_Reglages(Reglages_));
  COMMTIMEOUTS Delais{};
  Delais.ReadIntervalTimeout = MAXDWORD;  // alone: a read answers at once with what waits
  Delais.WriteTotalTimeoutConstant = 1000;
  if (!SetCommTimeouts(Port.get(), &Delais)) throw Panne(Nom_, GetLastError());
  // What came before the opening answers nothing that we asked.
  PurgeComm(Port.get(), PURGE_RXCLEAR);
  Port_ = std::move(Port);
}

void Port_Serie_Windows::Fermer() {
  Port_.reset();
}

bool Port_Serie_Windows::Ouvert() const {
  return Port_ != nullptr;
}

HANDLE Port_Serie_Windows::Ligne() const {
  if (!Ouvert()) {
    throw Erreur(Numero_Erreur::Port_Non_Ouvert, "Le port " + Nom_ + " n'est pas ouvert");
  }
  return Port_.get();
}

void Port_Serie_Windows::Ecrire(Vue_Octets Donnees) {
  DWORD Ecrits = 0;
  if (!WriteFile(Ligne(), Donnees.data(), static_cast<DWORD>(Donnees.size()), &Ecrits, nullptr)) {
    throw Panne(Nom_, GetLastError());
  }
  if (Ecrits != Donnees.size()) throw Panne(Nom_, ERROR_TIMEOUT);
}

std::size_t Port_Serie_Windows::En_Attente() {
  DWORD Fautes = 0;
  COMSTAT Etat{};
  if (!ClearCommError(Ligne(), &Fautes, &Etat)) throw Panne(Nom_, GetLastError());
  return Etat.cbInQue;
}

Octets Port_Serie_Windows::Lire_Tout() {
  Octets Lus(En_Attente());
  DWORD Nombre = 0;
  if (!ReadFile(Ligne(), Lus.data(), static_cast<DWORD>(Lus.size()), &Nombre, nullptr)) {
    throw Panne(Nom_, GetLastError());
  }
  Lus.resize(Nombre);
  return Lus;
}
