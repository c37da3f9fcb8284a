// The Windows layer against the real calls. Beside the test's program, bouchon/ and decore/ hold the foreign library.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <set>

#include "galss/End_Process_Galls.h"
#include "tests/bout_en_bout/Poste.h"
#include "windows/systeme/Fichiers_Windows.h"
#include "windows/systeme/Galss_Windows.h"
#include "windows/systeme/Port_Serie_Windows.h"
#include "windows/systeme/Releve_Windows.h"
#include "windows/systeme/Systeme_Windows.h"
#include "windows/systeme/Texte_Windows.h"

namespace {

// Number of the Erreur that Action raises, 0 for none.
template <typename Action>
int Numero(const Action& A) try {
  A();
  return 0;
} catch (const Erreur& Levee) {
  return Levee.Description().empty() ? -1 : Levee.Numero();
}

void Creer_Repertoire(const std::string& Chemin) {
  CreateDirectoryW(En_Utf16("\\\\?\\" + Chemin).c_str(), nullptr);
}

void Creer_Fichier(const std::string& Chemin, DWORD Attributs = 0) {
  const Poignee F = Prendre_Poignee(
      CreateFileW(En_Utf16("\\\\?\\" + Chemin).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, Attributs, nullptr));
  DWORD Ecrits = 0;
  WriteFile(F.get(), "abcde", 5, &Ecrits, nullptr);
}

Disque_Windows Disque;
const std::string Programme = Disque.Repertoire_Programme();
const std::string Ici = Programme + "\\essai\\";

// Never anywhere but in the directory told: one without a name in the system's code page, one too long
// for the profile calls, and one that does not exist. A UTF-8 system has its own way to the same file.
TEST(Windows, Profil) {
  const Octets Valeur = {'C', ':', '\\', 0xE9, 0x80};
  const auto Dans_Windows = [] { Disque.Taille("C:\\windows\\telech.ini"); };
  const int Avant = Numero(Dans_Windows);  // one may lie there from another program
  std::string Long = Ici;
  for (int I = 0; I < 5; ++I) Creer_Repertoire(Long += std::string(50, 'y') + "Ω\\");
  for (const std::string& Ou : {Ici + "é", Ici + "Ωμέγα", Long + "fin", Ici + "absent", Ici + "Ωabsent"}) {
    const bool Present = !Ou.ends_with("absent");
    if (Present) Creer_Repertoire(Ou);
    const std::string Chemin = Ou + "\\telech.ini";
    for (const unsigned Page : {1252U, 65001U, 932U}) {
      Profil_Windows Celui_Ci(Page), Autre;
      Celui_Ci.Ecrire(Chemin, "INIT", "REP" + std::to_string(Page), Valeur);
      EXPECT_EQ(Autre.Lire(Chemin, "INIT", "REP" + std::to_string(Page), 200), Present ? Valeur : Octets{}) << Chemin;
      Autre.Ecrire(Chemin, "INIT", "REP", Valeur);
      EXPECT_EQ(Celui_Ci.Lire(Chemin, "INIT", "REP", 200), Present ? Valeur : Octets{}) << Chemin;
      EXPECT_EQ(Celui_Ci.Lire(Chemin, "INIT", "REP", 3).size(), Present ? 2U : 0U);
      EXPECT_TRUE(Celui_Ci.Lire(Chemin, "AUTRE", "REP", 200).empty());
    }
  }
  EXPECT_EQ(Numero(Dans_Windows), Avant);
  EXPECT_EQ(En_Page(L"é€", 65001), "é€");
  EXPECT_EQ(En_Page(L"é€", 1252), "\xE9\x80");
}

TEST(Windows, Recherche_Et_Lecture_Meme_Au_Dela_De_260_Caracteres) {
  std::string Long = Ici;
  for (int I = 0; I < 6; ++I) Creer_Repertoire(Long += std::string(50, 'x') + "é\\");
  for (const std::string& Ou : {Ici, Long}) {
    for (const char* Nom : {"E1é 2.x.ing", "Ë2.ing", "F.ing", "E alias.ingot"}) Creer_Fichier(Ou + Nom);
    Creer_Fichier(Ou + "Ecache.ing", FILE_ATTRIBUTE_HIDDEN);
    Creer_Repertoire(Ou + "Edossier.ing");
    std::set<std::string> Noms;
    Disque.Chercher(Ou, "E*.ing", [&](std::string_view N) { return Noms.emplace(N).second; });
    Noms.erase("E alias.ingot");  // matches where the volume gives it a short name
    EXPECT_EQ(Noms, std::set<std::string>{"E1é 2.x.ing"});
    EXPECT_EQ(std::ranges::count(Disque.Sous_Repertoires(Ou), "Edossier.ing"), 1);
    EXPECT_EQ(Disque.Taille(Ou + "Ë2.ing"), 5);
    Octets Lus(3);
    const auto Fichier = Disque.Ouvrir(Ou + "Ë2.ing");
    Fichier->Lire(Lus);
    EXPECT_EQ(Lus, (Octets{'a', 'b', 'c'}));
    EXPECT_EQ(Numero([&] { Fichier->Lire(Lus); }), 62);
    EXPECT_EQ(Numero([&] { Disque.Ouvrir(Ou + "absent"); }), 53);
    EXPECT_EQ(Numero([&] { Disque.Taille(Ou + "absent\\E.ing"); }), 76);
    EXPECT_EQ(Numero([&] { Disque.Ouvrir(Ou + "Edossier.ing"); }), 70);
  }
  Disque.Chercher(Ici + "absent\\", "*", [](std::string_view) { return ADD_FAILURE(), false; });
  EXPECT_EQ(Disque.Repertoire_Courant("Q:\\"), "Q:\\");
}

// A copied file lies in its place for the time of a test.
class Depot {
 public:
  Depot(const std::string& Origine, const std::string& Place) : Place_(En_Utf16(Place)) {
    EXPECT_TRUE(CopyFileW(En_Utf16(Origine).c_str(), Place_.c_str(), FALSE)) << Place;
  }
  ~Depot() { DeleteFileW(Place_.c_str()); }

 private:
  std::wstring Place_;
};

// The program keeps a library to its end; the next test is another program.
void Decharger_Bibliotheques() {
  for (const wchar_t* Nom : {L"nu.dll", L"Galclw32.dll"}) {
    while (const HMODULE Module = GetModuleHandleW(Nom)) FreeLibrary(Module);
  }
}

const std::string Bouchon = Programme + "\\bouchon\\";
const std::string Compagnon = Bouchon + "compagnon.dll";
const bool Galss_Installe = SearchPathW(nullptr, L"Galclw32.dll", nullptr, 0, nullptr, nullptr) != 0;

struct Essai_Galss : testing::Test {
  std::int16_t En_Appel = 0;
  std::string Vu;
  Galss_Windows Galss{[this](bool En_Cours) { Vu += (En_Appel = En_Cours) ? '(' : ')'; }};
  Octets Nom = {'a', 0xE9}, LAD = {'L'};
  std::int16_t A = 0, B = 0;

  Essai_Galss() { Proteger_Programme(); }
  void SetUp() override {
    if (Galss_Installe) GTEST_SKIP() << "a real access library is installed, which would be called";
  }
  ~Essai_Galss() override { Decharger_Bibliotheques(); }

  int Ouvrir(const std::string& Path) {
    SetEnvironmentVariableW(L"PATH", En_Utf16(Path).c_str());
    return Numero([&] { Galss.OuvrirSession(Nom, LAD, A, B); });
  }

  /// Result of the stand-in's caprice, or -Erreur::Numero.
  int Demander(const std::string& Caprice) {
    Octets Texte(Caprice.begin(), Caprice.end());
    int Resultat = 0;
    const int Echec = Numero([&] { Resultat = Galss.DebutExclusivite(Texte, Nom, LAD, A); });
    return Echec == 0 ? Resultat : -Echec;
  }
};

// Wherever the library may lie, its companions may: the Windows directory, another entry of PATH; not
// the current directory. First of its kind: a library that was loaded leaves its directories to the process.
TEST_F(Essai_Galss, Compagnons_Lies_Ou_Charges_Par_Leur_Nom_Nu) {
  std::array<wchar_t, MAX_PATH> Windows;
  const std::string Systeme = En_Utf8({Windows.data(), GetSystemWindowsDirectoryW(Windows.data(), MAX_PATH)}) + "\\";
  for (const char* Sous : {"nue", "ailleurs", "courant"}) Creer_Repertoire(Ici + Sous);
  const Depot Nue(Bouchon + "Galclw32.dll", Ici + "nue\\Galclw32.dll");
  const Depot Piege(Compagnon, Ici + "courant\\intrus.dll");
  SetCurrentDirectoryW(En_Utf16(Ici + "courant").c_str());
  const std::string Path = Ici + "nue;.;" + Ici + "ailleurs";
  EXPECT_EQ(Ouvrir(Path), 48);
  const std::wstring Essai = En_Utf16(Systeme + "compagnon.dll");
  const bool Refus = !CopyFileW(En_Utf16(Compagnon).c_str(), Essai.c_str(), FALSE);
  for (const std::string& Place : {Systeme, Ici + "ailleurs\\"}) {
    if (Refus && Place == Systeme) continue;
    const Depot Lie(Compagnon, Place + "compagnon.dll"), Nu(Compagnon, Place + "nu.dll");
    Galss = Galss_Windows();
    EXPECT_EQ(Ouvrir(Path), 0) << Place;
    EXPECT_EQ(Demander("cnu.dll"), 1) << Place;
    EXPECT_EQ(Demander("cintrus.dll"), 0);
    Decharger_Bibliotheques();
  }
  if (Refus) GTEST_SKIP() << "no right to write in the Windows directory";
}

// A library for ARM64, which neither program can take: the machine type stands behind the address at 3C.
std::string D_Un_Autre_Processeur(std::string Dll) {
  std::int32_t Entete = 0;
  std::memcpy(&Entete, Dll.data() + 0x3C, sizeof Entete);
  return Dll.replace(static_cast<std::size_t>(Entete) + 4, 2, "\x64\xAA");
}

TEST_F(Essai_Galss, Absente_Fautive_Incomplete) {
  const fs::path Place = Chemin(Ici + "abime");
  const std::string Dll = Lire(Chemin(Bouchon + "Galclw32.dll"));
  fs::create_directories(Place);
  SetCurrentDirectoryW(En_Utf16(Bouchon).c_str());
  EXPECT_EQ(Ouvrir(".;;C:;\\"), 53) << "never from the current directory";
  // The last one lacks what it depends on.
  for (const std::string& Fautive : {std::string(), std::string(1, '\0'), "MZ" + std::string(3000, '\0'),
                                     Dll.substr(0, 1000), D_Un_Autre_Processeur(Dll), Dll}) {
    Ecrire(Place / "Galclw32.dll", Fautive);
    EXPECT_EQ(Ouvrir(Ici + "abime"), 48) << Fautive.size();
  }
  EXPECT_EQ(Ouvrir('"' + Bouchon + '"'), 0);
  EXPECT_EQ(std::tuple(A, B, LAD), std::tuple(2, 42, Octets{'!'}));
  EXPECT_EQ(Numero([&] { Galss.FermerSession(1, A); }), 453);
  EXPECT_EQ(Vu, "()()()()()()()()()");
  EXPECT_EQ(Galss.FinExclusivite(-5), -4);
  std::int32_t Aller = 2, Retour = 5;
  Octets Reponse(5);
  EXPECT_GT(1.0 / double(Reponse[0]), 1.0);  // would trap if the library's state had stayed
  EXPECT_EQ(Galss.Echange(1, 0, Nom, Aller, Reponse, Retour), 64);
  EXPECT_EQ(std::tuple(Reponse, Retour), std::tuple(Octets(5, 0xE9), -7));
  EXPECT_EQ(std::tuple(Demander("z"), A, LAD), std::tuple(0, 256, Octets{'!'}));
  EXPECT_EQ(Demander("l" + std::to_string(reinterpret_cast<std::uintptr_t>(&En_Appel))), 0);
  EXPECT_EQ(std::pair(A, En_Appel), std::pair(std::int16_t{1}, std::int16_t{0}));
}

#ifdef __i386__  // the guard against the library's own faults, and the decorated names
TEST_F(Essai_Galss, Ce_Qui_Finirait_Le_Programme_Devient_Une_Erreur) {
  ASSERT_EQ(Ouvrir(Bouchon), 0);
  EXPECT_EQ(Demander("h"), 7);
  for (int I = 0; I < 1000; ++I) ASSERT_EQ(Demander("trappe"), -51);
  // Delphi, C++, .NET, RPC; a fault, a warning, a code of nobody.
  for (const char* Code : {"0EEDFADE", "E06D7363", "E0434352", "6BA", "C0000005", "80000002", "12345"}) {
    EXPECT_EQ(Demander(std::string("E") + Code), -51) << Code;
    EXPECT_EQ(Demander(std::string("e") + Code), -51) << Code;
  }
  EXPECT_EQ(Demander("h"), 7);
  EXPECT_EQ(En_Appel, 0);
}

TEST_F(Essai_Galss, Noms_Decores) {
  ASSERT_EQ(Ouvrir(Programme + "\\decore;" + Bouchon), 0);
  EXPECT_EQ(std::tuple(A, B), std::tuple(2, 42));
  EXPECT_EQ(Demander("h"), 7);
  EXPECT_EQ(Galss.FinExclusivite(3), 4);
  EXPECT_EQ(Galss.FermerSession(5, A), 9);
  EXPECT_EQ(A, 5);
}
#endif

// A process of this name, which waits; ended with the test in any case.
struct Serveur : Programme_Lance {
  explicit Serveur(const char* Nom) : Copie(Programme + "\\plateforme_windows_test.exe", Ici + Nom) {
    Lancer('"' + Ici + Nom + "\" --dormir", "C:\\");
  }
  ~Serveur() { Tuer(); }
  Depot Copie;
};

TEST(Windows, Le_Serveur_Galss_Est_Termine_Et_Lui_Seul) {
  const Serveur Sien("GalsVW32.exe"), Long("galsvw32.exe.exe"), Autre("xgalsvw32.exe");
  Processus_Windows Liste;
  Arret_Galss(Liste);
  Attendre("fin du serveur", [&] { return Sien.Fin(); });
  Sleep(100);
  EXPECT_FALSE(Long.Fin() || Autre.Fin());
}

// A server that the library starts inherits the process's error mode, not its thread's.
TEST(Windows, Rien_Ne_Passe_Aux_Programmes_Lances) {
  SetErrorMode(0);
  Proteger_Programme();
  EXPECT_EQ(GetErrorMode(), 0U);
  EXPECT_NE(GetThreadErrorMode() & SEM_FAILCRITICALERRORS, 0U);
}

TEST(Windows, Heure_Mois_Arguments) {
  Horloge_Windows Temps;
  EXPECT_EQ(std::ranges::count(Temps.Heure_Du_Jour(), ':'), 2);
  std::set<std::string> Mois;
  for (int I = 1; I <= 12; ++I) Mois.insert(Temps.Nom_Mois(I));
  EXPECT_TRUE(Mois.size() == 12 && Mois.begin()->size() > 3);
  for (const int Hors : {0, 13}) EXPECT_EQ(Numero([&] { Temps.Nom_Mois(Hors); }), 5);
  EXPECT_EQ(Arguments_Programme(), (std::vector<std::string>{"/port:COM3", "deux mots"}));
}

TEST(Windows, Releve_Et_Fichier_Du_Journal) {
  Releve_Windows Releve;
  const auto Valeur = [](const std::vector<Fait>& Faits, std::string_view Nom) {
    const auto Trouve = std::ranges::find(Faits, Nom, &Fait::Nom);
    return Trouve == Faits.end() ? "absent" : Trouve->Valeur;
  };
  EXPECT_EQ(Valeur(Releve.Poste(), "controles"), "absent");
  LoadLibraryW(L"comctl32.dll");
  const auto Poste = Releve.Poste();
  EXPECT_EQ(std::ranges::count(Valeur(Poste, "controles"), '.'), 4)
      << "a name and a version: " << Valeur(Poste, "controles");
  for (const auto& [Nom, Texte] : Poste) EXPECT_NE(Texte, "") << Nom;
  EXPECT_TRUE(Releve.Bibliotheque().empty());
  const std::wstring Dll = En_Utf16(Programme + "\\bouchon\\Galclw32.dll");
  const HMODULE Module = LoadLibraryExW(Dll.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  const auto Galss = Releve.Bibliotheque();
  EXPECT_EQ(Valeur(Galss, "bibliotheque"), En_Utf8(Dll) + " (sans version)");
  EXPECT_TRUE(Valeur(Galss, "module").ends_with("compagnon.dll (sans version)"));
  FreeLibrary(Module);
  EXPECT_TRUE(Releve.Terminable(GetCurrentProcessId()) && !Releve.Terminable(0));
  EXPECT_TRUE(Releve.Inscriptible(Ici + "absent.ini") && !Releve.Inscriptible(Ici + "absent\\absent.ini"));
  EXPECT_EQ(GetFileAttributesW(En_Utf16(Ici + "absent.ini").c_str()), INVALID_FILE_ATTRIBUTES);
  const std::string Chemin = Ici + "é.journal";
  DeleteFileW(En_Utf16(Chemin).c_str());
  const auto Journal = Releve.Creer_Journal(Chemin);
  EXPECT_TRUE(Journal->Ecrire("ab") && Journal->Ecrire("cde"));
  Journal->Assurer();
  EXPECT_EQ(Disque.Taille(Chemin), 5);
  EXPECT_NE(Numero([&] { Releve.Creer_Journal(Chemin); }), 0) << "an older journal is never written over";
  EXPECT_EQ(Numero([&] { Releve.Creer_Journal(Ici + "absent\\x.journal"); }), 76);
}

// Wine does not count a process's handles, but gives a new one the first number that is free.
DWORD Poignees() {
  DWORD Nombre = 0;
  GetProcessHandleCount(GetCurrentProcess(), &Nombre);
  return Nombre > 0 ? Nombre : HandleToULong(Poignee(CreateEventW(nullptr, FALSE, FALSE, nullptr)).get()) / 4;
}

TEST(Windows, Aucune_Poignee_Ne_Reste) {
  Creer_Fichier(Ici + "lu.ing");
  DWORD Avant = 0;
  for (int Fois = 0; Fois < 100; ++Fois) {
    Disque.Chercher(Ici, "*", [](std::string_view) { return false; });
    Disque.Ouvrir(Ici + "lu.ing");
    Disque.Sous_Repertoires(Ici);
    Profil_Windows().Ecrire(Ici + "telech.ini", "INIT", "REP", Octets{'a'});
    Processus_Windows().Lister();
    Releve_Windows().Poste();
    EXPECT_FALSE(Releve_Windows().Terminable(0));
    Instance_Unique();
    EXPECT_EQ(Numero([] { Port_Serie_Windows(250).Ouvrir(); }), 8002);
    if (Fois == 10) Avant = Poignees();
  }
  EXPECT_LE(Poignees(), Avant + 10);
}

TEST(Windows, Port_Serie_Sans_Port) {
  Port_Serie_Windows Port(250);
  for (const char* Mauvais : {"", "9600", "9600,n,8,", "9600,x,8,1", "9600,n,9,1", "9600,n,8,3", "0,n,8,1",
                              "-9600,n,8,1", "9600 ,n,8,1", "9600,n,8,1 ", "99999999,n,8,1"}) {
    EXPECT_EQ(Numero([&] { Port.Regler(Mauvais); }), 380) << Mauvais;
  }
  Port.Regler("19200,e,7,1.5");
  EXPECT_EQ(Port.Reglages(), "19200,e,7,1.5");
  EXPECT_EQ(Numero([&] { Port.Ouvrir(); }), 8002);
  EXPECT_EQ(Numero([&] { Port.Lire_Tout(); }), 8018);
}

}  // namespace

int main(int Nombre, char** Arguments) {
  if (Nombre == 2 && Arguments[1] == std::string_view("--dormir")) Sleep(60000);
  testing::InitGoogleTest(&Nombre, Arguments);
  Creer_Repertoire(Ici);
  return RUN_ALL_TESTS();
}
