// The Windows door: the five operations as the GALSS library exports them, answered by the
// simulated reader. Beside the library: scenario.txt (read), trace.txt and recu-N.bin (written).
// Nothing thrown crosses this border, and no odd argument may harm the caller.

#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "simulator/Lecteur_Simule.h"

namespace {

namespace fs = std::filesystem;

constexpr std::int16_t Erreur_Gestionnaire = 1;
constexpr std::size_t Nom_Au_Plus = 260;
// Header and data of the longest block that any granted size allows, rounded up.
constexpr std::int32_t Trame_Au_Plus = 131072;
constexpr std::int32_t Reponse_Au_Plus = 65536;

fs::path Dossier_Bibliotheque() {
  HMODULE Module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&Dossier_Bibliotheque), &Module);
  std::wstring Chemin(32768, L'\0');
  Chemin.resize(GetModuleFileNameW(Module, Chemin.data(), static_cast<DWORD>(Chemin.size())));
  return fs::path(Chemin).parent_path();
}

// A journal tells a fault of the library by the system's code, at the end of its description. Other
// errors are of the loading, which has already succeeded here.
void Commettre_De_Nouveau(int Numero, const std::string& Description) {
  constexpr int Faute_Commise = 51;
  if (Numero == Faute_Commise) {
    const auto Code = std::strtoul(Description.c_str() + Description.rfind(' ') + 1, nullptr, 16);
    RaiseException(Code, EXCEPTION_NONCONTINUABLE, 0, nullptr);
  }
}

class Simulateur {
 public:
  /// The reader keeps its memory as long as the scenario stays the same.
  Lecteur_Simule& Lecteur_Au_Depart() {
    std::ostringstream Texte;
    std::ifstream Fichier(Dossier_ / "scenario.txt", std::ios::binary);
    if (Fichier) {
      Texte << Fichier.rdbuf();
    }
    Trace_.close();
    if (!Lecteur_ || Texte.str() != Texte_) {
      Installer(Texte.str(), Fichier.is_open());
    } else {
      Ouvrir_Trace();
    }
    return *Lecteur_;
  }

  Lecteur_Simule& Lecteur() { return Lecteur_ ? *Lecteur_ : Lecteur_Au_Depart(); }

  ~Simulateur() { Retirer_Lecteur(); }

 private:
  // Opened anew at each session: the file may have been taken away in between.
  void Ouvrir_Trace() {
    if (Tracee_) {
      Trace_.open(Dossier_ / "trace.txt", std::ios::app | std::ios::binary);
    }
  }

  void Retirer_Lecteur() {
    if (!Lecteur_) {
      return;
    }
    Lecteur_->Clore_Fichier();
    if (const auto Restants = Lecteur_->Restants(); Restants > 0) {
      Tracer("REJEU: appels du journal restés sans demande : " + std::to_string(Restants));
    }
  }

  std::string Lire_Voisin(const std::string& Nom) const {
    std::ifstream Fichier(Dossier_ / fs::path(std::u8string(Nom.begin(), Nom.end())),
                          std::ios::binary);
    if (!Fichier) {
      throw std::invalid_argument("fichier introuvable");
    }
    std::ostringstream Contenu;
    Contenu << Fichier.rdbuf();
    return Contenu.str();
  }

  void Installer(const std::string& Texte, bool Present) {
    Retirer_Lecteur();
    Texte_ = Texte;
    auto Lu = Lire_Scenario(Texte, [this](const std::string& Nom) { return Lire_Voisin(Nom); });
    Tracee_ = Lu.Contenu.Trace;
    Ouvrir_Trace();
    Tracer(Present ? "SCENARIO: scenario.txt" : "SCENARIO: absent, lecteur 650 par défaut");
    for (const auto& Erreur : Lu.Erreurs) {
      Tracer("SCENARIO: " + Erreur);
    }
    Lecteur_ = std::make_unique<Lecteur_Simule>(std::move(Lu.Contenu));
    Lecteur_->Attendre = [](int Duree) { Sleep(static_cast<DWORD>(Duree)); };
    Lecteur_->Lever = Commettre_De_Nouveau;
    if (Tracee_) {
      Lecteur_->Ecrire_Trace = [this](const std::string& Ligne) { Tracer(Ligne); };
    }
    Lecteur_->Fichier_Clos = [this](const Fichier_Recu& Recu, std::size_t) {
      std::ofstream Sortie(Dossier_ / ("recu-" + std::to_string(++Recus_) + ".bin"),
                           std::ios::binary);
      Sortie.write(reinterpret_cast<const char*>(Recu.Contenu.data()),
                   static_cast<std::streamsize>(Recu.Contenu.size()));
    };
  }

  void Tracer(const std::string& Ligne) { Trace_ << Ligne << '\n' << std::flush; }

  const fs::path Dossier_ = Dossier_Bibliotheque();
  std::string Texte_;
  bool Tracee_ = true;
  std::ofstream Trace_;
  int Recus_ = 0;
  std::unique_ptr<Lecteur_Simule> Lecteur_;
};

Simulateur& Instance() {
  static Simulateur Unique;
  return Unique;
}

/// What a null pointer is replaced by.
template <class Valeur>
Valeur& Ou_Rebut(Valeur* Adresse) {
  static Valeur Rebut;
  Rebut = 0;
  return Adresse != nullptr ? *Adresse : Rebut;
}

Tampon Nom(char* Texte) {
  const std::size_t Longueur = Texte != nullptr ? strnlen(Texte, Nom_Au_Plus) : 0;
  return {reinterpret_cast<std::uint8_t*>(Texte), Longueur};
}

Tampon Zone(std::uint8_t* Debut, std::int32_t Longueur, std::int32_t Au_Plus) {
  const bool Sensee = Debut != nullptr && Longueur >= 0 && Longueur <= Au_Plus;
  return {Debut, Sensee ? static_cast<std::size_t>(Longueur) : 0};
}

template <class Action>
std::int16_t Proteger(Action Appel) {
  try {
    return Appel();
  } catch (...) {
    return Erreur_Gestionnaire;
  }
}

}  // namespace

#define OPERATION extern "C" __declspec(dllexport) std::int16_t __stdcall

OPERATION OuvrirSession(char* Application, char* LAD, std::int16_t* Session, std::int16_t* Info) {
  return Proteger([&] {
    return Instance().Lecteur_Au_Depart().OuvrirSession(Nom(Application), Nom(LAD),
                                                        Ou_Rebut(Session), Ou_Rebut(Info));
  });
}

OPERATION DebutExclusivite(char* Texte, char* Application, char* LAD, std::int16_t* Exclusivite) {
  return Proteger([&] {
    return Instance().Lecteur().DebutExclusivite(Nom(Texte), Nom(Application), Nom(LAD),
                                                 Ou_Rebut(Exclusivite));
  });
}

OPERATION Echange(std::int16_t Session, std::int16_t Nombre, std::uint8_t* Commande,
                  std::int32_t* Longueur_Commande, std::uint8_t* Reponse,
                  std::int32_t* Longueur_Reponse) {
  return Proteger([&] {
    std::int32_t Sans_Commande = 0;
    std::int32_t Sans_Reponse = 0;
    auto& Envoi = Longueur_Commande != nullptr ? *Longueur_Commande : Sans_Commande;
    auto& Retour = Longueur_Reponse != nullptr ? *Longueur_Reponse : Sans_Reponse;
    return Instance().Lecteur().Echange(Session, Nombre, Zone(Commande, Envoi, Trame_Au_Plus),
                                        Envoi, Zone(Reponse, Retour, Reponse_Au_Plus), Retour);
  });
}

OPERATION FinExclusivite(std::int16_t Exclusivite) {
  return Proteger([&] { return Instance().Lecteur().FinExclusivite(Exclusivite); });
}

OPERATION FermerSession(std::int16_t Session, std::int16_t* Exclusivite) {
  return Proteger(
      [&] { return Instance().Lecteur().FermerSession(Session, Ou_Rebut(Exclusivite)); });
}
