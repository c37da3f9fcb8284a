// The Windows layer against the real calls. Runs in its build directory, where bouchon/ holds the
// foreign library.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "platform/windows/Demarrage_Windows.h"
#include "platform/windows/Disque_Windows.h"
#include "platform/windows/Galss_Windows.h"
#include "platform/windows/Horloge_Windows.h"
#include "platform/windows/Port_Serie_Windows.h"
#include "platform/windows/Processus_Windows.h"
#include "platform/windows/Profil_Windows.h"
#include "platform/windows/Texte_Windows.h"

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

TEST(Windows, Profil) {
  Profil_Windows Profil;
  const Octets Valeur = {'C', ':', '\\', 0xE9, 0x80};
  // The second directory has no name in the system's code page: its short name serves.
  for (const std::string Sous : {"é", "Ωμέγα", "absent"}) {
    if (Sous != "absent") Creer_Repertoire(Ici + Sous);
    const std::string Chemin = Ici + Sous + "\\telech.ini";
    Profil.Ecrire(Chemin, "INIT", "REP", Valeur);
    EXPECT_EQ(Profil.Lire(Chemin, "INIT", "REP", 200), Sous == "absent" ? Octets{} : Valeur);
    EXPECT_EQ(Profil.Lire(Chemin, "INIT", "REP", 3).size(), Sous == "absent" ? 0U : 2U);
    EXPECT_TRUE(Profil.Lire(Chemin, "AUTRE", "REP", 200).empty());
  }
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

TEST(Windows, Bibliotheque_Absente_Fautive_Incomplete) {
  Proteger_Programme();
  Galss_Windows Galss;
  Octets Nom = {'a', 0xE9}, LAD = {'L'}, Reponse(5);
  std::int16_t A = 0, B = 0;
  const std::string Bouchon = Programme + "\\bouchon";
  for (const char* Sous : {"abime", "seule"}) Creer_Repertoire(Ici + Sous);
  Creer_Fichier(Ici + "abime\\Galclw32.dll");
  CopyFileW(En_Utf16(Bouchon + "\\Galclw32.dll").c_str(), En_Utf16(Ici + "seule\\Galclw32.dll").c_str(), FALSE);
  SetCurrentDirectoryW(En_Utf16(Bouchon).c_str());
  // Never from the current directory; garbage; without what it depends on; as it should be.
  for (const auto& [Path, Attendu] :
       {std::pair(std::string(".;;C:;\\"), 53), {Ici + "abime", 48}, {Ici + "seule", 48}, {'"' + Bouchon + '"', 0}}) {
    SetEnvironmentVariableW(L"PATH", En_Utf16(Path).c_str());
    EXPECT_EQ(Numero([&] { Galss.OuvrirSession(Nom, LAD, A, B); }), Attendu) << Path;
  }
  EXPECT_EQ(std::tuple(A, B, LAD), std::tuple(2, 42, Octets{'!'}));
  EXPECT_EQ(Numero([&] { Galss.FermerSession(1, A); }), 453);
#ifdef __i386__  // the guard against the library's own faults
  for (int I = 0; I < 1000; ++I) ASSERT_EQ(Numero([&] { Galss.DebutExclusivite(Nom, Nom, LAD, A); }), 51);
#endif
  EXPECT_EQ(Galss.FinExclusivite(-5), -4);
  EXPECT_GT(1.0 / double(Reponse[0]), 1.0);  // would trap if the library's state had stayed
  std::int32_t Aller = 2, Retour = 5;
  EXPECT_EQ(Galss.Echange(1, 0, Nom, Aller, Reponse, Retour), 64);
  EXPECT_EQ(std::tuple(Reponse, Retour), std::tuple(Octets(5, 0xE9), -7));
#ifdef PAVORIN_PAGES_GARDEES
  EXPECT_EQ(Numero([&] { Galss.Echange(1, 0, Nom, Aller, Reponse, Retour = 6); }), 51);
#endif
}

TEST(Windows, Processus_Heure_Mois_Arguments) {
  EXPECT_TRUE(std::ranges::any_of(Processus_Windows().Lister(), [](const Processus& P) {
    return P.Id == GetCurrentProcessId() && P.Nom.ends_with("plateforme_windows_test.exe");
  }));
  Horloge_Windows Temps;
  EXPECT_EQ(std::ranges::count(Temps.Heure_Du_Jour(), ':'), 2);
  std::set<std::string> Mois;
  for (int I = 1; I <= 12; ++I) Mois.insert(Temps.Nom_Mois(I));
  EXPECT_TRUE(Mois.size() == 12 && Mois.begin()->size() > 3);
  for (const int Hors : {0, 13}) EXPECT_EQ(Numero([&] { Temps.Nom_Mois(Hors); }), 5);
  EXPECT_EQ(Arguments_Programme(), (std::vector<std::string>{"/port:COM3", "deux mots"}));
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
  testing::InitGoogleTest(&Nombre, Arguments);
  Creer_Repertoire(Ici);
  return RUN_ALL_TESTS();
}
