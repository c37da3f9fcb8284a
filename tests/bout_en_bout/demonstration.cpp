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
    if (Ligne_Serie()) Brancher_Serie("vitesses = 9600, 19200");
    Lancer({.Scenario = Lecteur, .Logiciels = Grands});
    std::cout << "Pavorin est ouvert, avec un lecteur simulé ; fermez sa fenêtre pour finir." << std::endl;
    WaitForSingleObject(Programme.Processus(), INFINITE);
  }

  void Jouer(const fs::path& Images) {
    Images_ = Images;
    fs::remove_all(Images_);
    Lancer({.Scenario = Lecteur, .Logiciels = Grands, .Repertoire = "C:\\Pavorin"});
    Choisir_Le_Repertoire();
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

  void Choisir_Le_Repertoire() const {
    const Fenetre_Vue Dialogue = Ouvrir_Dossier({"Logiciels"});
    Photo("dossier", Dialogue);
    Dialogue["CmdOK"].Cliquer();
    Attendre_Absence("FDossierING");
    Attendre("listes remplies", [&] { return !FMain["CchooseNoyau"].Texte().empty(); });
    Photo("fenetre-principale", FMain);
  }

  void Montrer_Message_Manuel() const {
    FMain["OptManuel"].Cliquer();
    const Boite_Vue Message = Boite("Télécharger");
    Photo("message-manuel", Message);
    Message.Repondre();
    FMain["OptAuto"].Cliquer();
  }

  /// Of the file that is being sent.
  void Verdict(const std::string& Texte, const std::string& Image) const {
    const Fenetre_Vue Progression = Fenetre("FrmAnimCharg");
    Attendre(Texte, [&] { return Progression["LblTitre"].Texte() == Texte; });
    Photo(Image, Progression);
    Attendre_Absence("FrmAnimCharg");
  }

  void Mettre_A_Jour() const {
    Demander_Mise_A_Jour();
    const Boite_Vue Question = Boite("TELECHARGER");
    Photo("confirmation", Question);
    Question.Repondre("Oui");
    const Fenetre_Vue Progression = Fenetre("FrmAnimCharg");
    Sleep(4000);  // some thirty blocks
    Photo("progression-en-cours", Progression);
    Verdict("Chargement Réussi.", "progression-reussie");
    Attendre_Volet("Arrêt du Galss\n");
    Photo("mise-a-jour-terminee", FMain);
    std::cout << "\nDétails des opérations :\n\n" << FMain["TxtDetails"].Texte() << std::endl;
    if (Recus() != std::vector{Grands.at(Noyau), Grands.at(Appli)} || Trace().find("FAUTE") != std::string::npos)
      throw Pas_Venu("le lecteur simulé n'a pas reçu ce qu'il fallait :\n" + Trace());
    std::cout << "Le lecteur a reçu les deux fichiers, octet pour octet.\n" << std::endl;
  }

  void Montrer_Echec() const {
    Donner_Scenario(Lecteur + "defaut = bloc 3 fichier 1 : refus 52\n");
    Demander_Mise_A_Jour();
    Boite("TELECHARGER").Repondre("Oui");
    Verdict("Problème lors du Chargement.", "progression-echouee");
  }

  void Montrer_Apropos() const {
    FMain.Menu("MnApropos");
    const Fenetre_Vue Apropos = Fenetre("frmAbout");
    Photo("a-propos", Apropos);
    Apropos["CmdOK"].Cliquer();
  }

  void Tester_Lecteur() const {
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
  Nombre == 1 ? Demonstration().Ouvrir() : Demonstration().Jouer(Arguments[1]);
  return 0;
} catch (const std::exception& Erreur) {
  std::cerr << Erreur.what() << std::endl;
  return 1;
}
