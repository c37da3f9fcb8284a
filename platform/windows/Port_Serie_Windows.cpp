#include "platform/windows/Port_Serie_Windows.h"

#include "platform/windows/Reglages_Serie.h"
#include "platform/windows/Texte_Windows.h"

namespace {

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
  Poignee Port =
      Prendre_Poignee(CreateFileW(En_Utf16("\\\\.\\" + Nom_).c_str(), GENERIC_READ | GENERIC_WRITE,
                                  0, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!Port) throw Ouverture_Refusee(Nom_, GetLastError());
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
