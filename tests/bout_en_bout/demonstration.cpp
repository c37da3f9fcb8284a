// Opens the program with the simulated reader and sample files, for the operator to use. Given a folder for its
// pictures, plays instead an update, the boxes and the serial test.

#include <iostream>

#include "tests/bout_en_bout/Poste.h"

namespace {

// Slow enough to be watched: some ten seconds for a file.
const std::string Lecteur =
    "type_lecteur = INGENICO  650\ntype_os_apres_noyau = 04\nnum_version_apres_appli = 0210\n"
    "lectures_muettes = 3\ndelai_ms = 120\n";

class Demonstration : Poste {
 public:
  Demonstration() : Poste("C:\\Pavorin") {}

  void Ouvrir() {
    if (Sans_Ligne_Serie().empty()) Brancher_Serie("vitesses = 9600, 19200");
    Lancer({.Scenario = Lecteur, .Logiciels = Grands});
    std::cout << "Pavorin est ouvert, avec un lecteur simulé ; fermez sa fenêtre pour finir." << std::endl;
    WaitForSingleObject(Programme.Processus(), INFINITE);
  }

  void Jouer(const fs::path& Images) {
    Images_ = Images;
    fs::remove_all(Images_);
    Lancer({.Scenario = Lecteur, .Logiciels = Grands, .Repertoire = "C:\\Pavorin", .Courant = true});
    Choisir_Dossier();
    Montrer_Message_Manuel();
    Mettre_A_Jour();
    Montrer_Echec();
    Montrer_Apropos();
    Tester_Lecteur();
    FMain["CmdQuitter"].Cliquer();
    Attendre_Fin();
  }

 private:
  void Photo(const std::string& Nom, const Objet_Vu& Quoi) const {
    Photographier(Quoi, Images_ / (Nom + ".png"));
    std::cout << "  image : " << Nom << ".png" << std::endl;
  }

  void Choisir_Dossier() const {
    std::cout << "Choix du répertoire" << std::endl;
    FMain["CmdChooseDirectory"].Cliquer();
    const Fenetre_Vue Dialogue = Fenetre("FDossierING");
    Dialogue["DirDirectory"].Ouvrir_Ligne("Logiciels");
    Attendre("OK actif", [&] { return Dialogue["CmdOK"].Actif(); });
    Photo("dossier", Dialogue);
    Dialogue["CmdOK"].Cliquer();
    Attendre_Absence("FDossierING");
    Attendre("listes remplies", [&] { return !FMain["CchooseNoyau"].Texte().empty(); });
    Photo("fenetre-principale", FMain);
  }

  void Montrer_Message_Manuel() const {
    std::cout << "Mode manuel" << std::endl;
    FMain["OptManuel"].Cliquer();
    const Boite_Vue Message = Boite("Télécharger");
    Photo("message-manuel", Message);
    Message.Repondre();
    FMain["CchosseAppli"].Choisir(Appli);
    Attendre("version choisie", [&] { return FMain["lblvers1"].Texte() == "02.10"; });
    Photo("mode-manuel", FMain);
    FMain["OptAuto"].Cliquer();
  }

  Fenetre_Vue Lancer_Chargement(const std::string& Image = "") const {
    Demander_Mise_A_Jour();
    const Boite_Vue Question = Boite("TELECHARGER");
    if (!Image.empty()) Photo(Image, Question);
    Question.Repondre("Oui");
    return Fenetre("FrmAnimCharg", 60);
  }

  void Verdict(const Fenetre_Vue& Progression, const std::string& Texte, const std::string& Image) const {
    Attendre(
        Texte, [&] { return Progression["LblTitre"].Texte() == Texte; }, 60);
    Photo(Image, Progression);
    Attendre_Absence("FrmAnimCharg", 60);
  }

  void Mettre_A_Jour() const {
    std::cout << "Mise à jour : noyau et application" << std::endl;
    const Fenetre_Vue Progression = Lancer_Chargement("confirmation");
    Sleep(4000);  // some thirty blocks
    Photo("progression-en-cours", Progression);
    Verdict(Progression, "Chargement Réussi.", "progression-reussie");
    Verdict(Fenetre("FrmAnimCharg", 60), "Chargement Réussi.", "progression-reussie-application");
    Attendre_Volet("Arrêt du Galss\n");
    Photo("mise-a-jour-terminee", FMain);
    std::cout << "\nDétails des opérations :\n\n" << FMain["TxtDetails"].Texte() << std::endl;
    if (Recus() != std::vector{Grands.at(Noyau), Grands.at(Appli)} || Trace().find("FAUTE") != std::string::npos)
      throw Pas_Venu("le lecteur simulé n'a pas reçu ce qu'il fallait :\n" + Trace());
    std::cout << "Le lecteur a reçu les deux fichiers, octet pour octet.\n" << std::endl;
  }

  void Montrer_Echec() const {
    std::cout << "Bloc refusé" << std::endl;
    Donner_Scenario(Lecteur + "defaut = bloc 3 fichier 1 : refus 52\n");
    Verdict(Lancer_Chargement(), "Problème lors du Chargement.", "progression-echouee");
  }

  void Montrer_Apropos() const {
    std::cout << "À propos" << std::endl;
    FMain.Menu("MnApropos");
    const Fenetre_Vue Apropos = Fenetre("frmAbout");
    Photo("a-propos", Apropos);
    Apropos["CmdOK"].Cliquer();
  }

  void Tester_Lecteur() const {
    std::cout << "Test du lecteur sur la ligne série" << std::endl;
    Brancher_Serie("vitesses = 9600");
    FMain.Menu("MnLecteur");
    const Fenetre_Vue Configuration = Fenetre("FrmResultParam");
    Photo("configuration", Configuration);
    Configuration["CmdOK"].Cliquer();
    Attendre_Absence("FrmResultParam");
    Photo("voyants-verts", FMain);
    Brancher_Serie("silence = tout");
    FMain.Menu("MnLecteur");
    Attendre("voyants rouges", [&] { return FMain["ImgRed"].Visible(); });
    Photo("voyants-rouges", FMain);
  }

  fs::path Images_;
};

}  // namespace

int wmain(int Nombre, wchar_t** Arguments) try {
  Preparer_Session();
  Nombre == 1 ? Demonstration().Ouvrir() : Demonstration().Jouer(Arguments[1]);
  return 0;
} catch (const std::exception& Erreur) {
  std::cerr << Erreur.what() << std::endl;
  return 1;
}
