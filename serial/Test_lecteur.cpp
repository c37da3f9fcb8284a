#include "serial/Test_lecteur.h"

#include <array>
#include <utility>

#include "galss/Config_Lecteur.h"
#include "platform/Erreur.h"
#include "platform/Fenetrage.h"
#include "platform/Horloge.h"
#include "platform/Texte.h"

namespace {

// Start, control and length bytes, payload, then CRC-16/KERMIT of all that precedes, low byte
// first.
constexpr std::array<std::uint8_t, 9> Trame_Test = {0x2F, 0xC0, 0x04, 0x00, 0x14,
                                                    0x00, 0xC8, 0xA4, 0xFC};
constexpr std::array<std::uint8_t, 9> Demande_Configuration = {0x2F, 0x40, 0x04, 0x01, 0x00,
                                                               0x00, 0x94, 0xA0, 0x9B};

// The answer F2 E0 04 00 14 00 C8 59 A3, each byte in hexadecimal without its leading zero.
constexpr const char* Reponse_Test = "F2E040140C859A3";

// Start, control and length bytes, status byte, record, check bytes.
constexpr std::size_t Taille_Reponse_Configuration = 3 + 1 + Taille_Config_Lecteur + 2;

constexpr const char* Reglages_Lents = "9600,n,8,1";
constexpr const char* Reglages_Rapides = "19200,n,8,1";

// The answers take a few milliseconds and about 130 ms at 9600 bauds.
constexpr double Attente_Test = 1;
constexpr double Attente_Configuration = 2;
// Between two looks at a silent line. What the operator does is answered at once, not after it.
constexpr std::chrono::milliseconds Sommeil{15};
// While an answer is coming in: its last byte is not left waiting.
constexpr std::chrono::milliseconds Sommeil_Court{2};

}  // namespace

Test_lecteur::Test_lecteur(const Machine& Poste, Fenetres& F, Variables_Globales& Globales)
    : MSComm1_(Poste.Serie),
      Temps_(Poste.Temps),
      Ecran_(Poste.Ecran),
      FMain_(F.FMain),
      FrmResultParam_(F.FrmResultParam),
      Reponse_Serie_(Globales.Reponse_Serie) {}

void Test_lecteur::MnLecteur_Click() {
  FMain_.FmDetails.Visible(true);
  FMain_.TxtDetails.Texte("");
  Tester_Lecteur();
}

// An error closes the port too: GALSS drives the same line, and an adapter that was unplugged must
// be able to come back.
void Test_lecteur::Tester_Lecteur() {
  try {
    Derouler();
  } catch (const std::exception&) {
    MSComm1_.Fermer();
    FMain_.TxtDetails.Texte("Erreur n° : " + std::to_string(Erreur_En_Cours().Numero()) +
                            std::string(Retour_Ligne) + "Erreur : ");
  }
}

void Test_lecteur::Derouler() {
  MSComm1_.Fermer();  // of the test within whose waits this one was started
  MSComm1_.Regler(Reglages_Lents);
  MSComm1_.Ouvrir();
  bool Vitesse_Changee = false;
  bool Configuration_Recue = false;
  if (Etablir_Liaison(Vitesse_Changee)) {
    Montrer_Reglages(Vitesse_Changee);
    Configuration_Recue = Lire_Configuration();
  } else {
    Montrer_Absence();
  }
  Conclure(Configuration_Recue);
  MSComm1_.Fermer();
}

// Three test frames: the first decides the speed, the second settles the line and is ignored, the
// third decides.
bool Test_lecteur::Etablir_Liaison(bool& Vitesse_Changee) {
  if (!Test_Liaison()) {
    MSComm1_.Regler(Reglages_Rapides);
    Vitesse_Changee = true;
  }
  Test_Liaison();
  return Test_Liaison();
}

// What was received is never cleared within one wait: a stray byte makes it fail.
bool Test_lecteur::Test_Liaison() {
  MSComm1_.Ecrire(Trame_Test);
  std::string Recus;
  const double Debut = Temps_.Secondes();
  do {
    Ecran_.Traiter_Evenements(Sommeil);
    if (MSComm1_.En_Attente() != 0) {
      Recus += Prendre_Recus();
      FMain_.TxtDetails.Texte(Recus);
    }
  } while (Recus != Reponse_Test && Temps_.Secondes() - Debut < Attente_Test);
  return Recus == Reponse_Test;
}

std::string Test_lecteur::Prendre_Recus() {
  Reponse_Serie_ = MSComm1_.Lire_Tout();
  std::string Chiffres;
  for (const std::uint8_t Octet : Reponse_Serie_) Chiffres += Hexadecimal(Octet);
  return Chiffres;
}

void Test_lecteur::Montrer_Absence() {
  Montrer_Voyants(false);
  FMain_.TxtDetails.Visible(false);
  Reponse_Serie_.clear();
  Poser_Reglages("---", "---", "---", "---");
}

void Test_lecteur::Montrer_Reglages(bool Vitesse_Changee) {
  Montrer_Voyants(true);
  const std::string Reglages = MSComm1_.Reglages();
  FMain_.TxtDetails.Visible(false);
  if (Vitesse_Changee) {
    Ecran_.Boite_Message("Attention vous etes en 19200 Bauds!!", Boutons::Ok, Icone::Exclamation,
                         "Attention");
  }
  // "9600,n,8,1": every field after the speed is one character.
  const std::size_t Chiffres = Vitesse_Changee ? 5 : 4;
  Poser_Reglages(Extraire(Reglages, 1, Chiffres) + " bauds", Extraire(Reglages, Chiffres + 2, 1),
                 Extraire(Reglages, Chiffres + 4, 1), Extraire(Reglages, Chiffres + 6, 1));
}

// True when an answer of exactly the right size came in time; any other is never read.
bool Test_lecteur::Lire_Configuration() {
  MSComm1_.Ecrire(Demande_Configuration);
  const double Debut = Temps_.Secondes();
  std::size_t Venus = 0;
  do {
    const bool En_Cours = Venus > 0 && Venus < Taille_Reponse_Configuration;
    Ecran_.Traiter_Evenements(En_Cours ? Sommeil_Court : Sommeil);
    Venus = MSComm1_.En_Attente();
    if (Venus == Taille_Reponse_Configuration) {
      Reponse_Serie_ = MSComm1_.Lire_Tout();
      return true;
    }
  } while (Temps_.Secondes() - Debut < Attente_Configuration);
  return false;
}

void Test_lecteur::Conclure(bool Configuration_Recue) {
  const std::string Constructeur =
      Lire_Champ(Reponse_Serie_, Avant_Config_Serie, Champ_Config::Constructeur);
  if (!Configuration_Recue || !Constructeur.starts_with("INGENICO")) {
    Montrer_Voyants(false);
    return;
  }
  FMain_.TxtDetails.Ajouter(std::string(Retour_Ligne) + "\tTEST RÉUSSI");
  Afficher_Config();
  FrmResultParam_.Montrer();
  FMain_.Active(false);
}

void Test_lecteur::Afficher_Config() {
  const std::pair<Etiquette&, Champ_Config> Valeurs[] = {
      {FrmResultParam_.LblConst, Champ_Config::Constructeur},
      {FrmResultParam_.LblTypeLec, Champ_Config::TypeLecteur},
      {FrmResultParam_.LblNumSerie, Champ_Config::NumSerie},
      {FrmResultParam_.LblTypeOS, Champ_Config::TypeOS},
      {FrmResultParam_.LblNameAppli, Champ_Config::NomAppli},
      {FrmResultParam_.LblNumVersion, Champ_Config::NumVersion},
      {FrmResultParam_.LblDate, Champ_Config::Date},
      {FrmResultParam_.LblHeure, Champ_Config::Heure},
      {FrmResultParam_.LblCRC, Champ_Config::NumCRC},
  };
  for (const auto& [Valeur, Lequel] : Valeurs) {
    Valeur.Texte(Afficher_Champ(Reponse_Serie_, Avant_Config_Serie, Lequel, Temps_));
  }
}

void Test_lecteur::CmdOK_Click() {
  FMain_.Active(true);
  FrmResultParam_.Decharger();
  FMain_.Premier_Plan();
}

void Test_lecteur::Montrer_Voyants(bool Verts) {
  FMain_.ImgRed.Visible(!Verts);
  FMain_.ImgRed2.Visible(!Verts);
  FMain_.ImgGreen.Visible(Verts);
  FMain_.ImgGreen2.Visible(Verts);
}

void Test_lecteur::Poser_Reglages(std::string Vitesse, std::string Parite, std::string Donnees,
                                  std::string Stop) {
  FMain_.LblVit.Texte(std::move(Vitesse));
  FMain_.LblPart.Texte(std::move(Parite));
  FMain_.LblBitDon.Texte(std::move(Donnees));
  FMain_.LblBitStop.Texte(std::move(Stop));
}
