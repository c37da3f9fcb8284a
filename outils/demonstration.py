#!/usr/bin/env python3
"""Opens the program with the simulated reader and sample files. On a display the operator uses it;
without one, plays an update, the boxes and the serial test, and leaves pictures in build/demo/."""

import os
import shutil

from exemples import LOGICIELS
from fenetres import attendre
from poste import CONSTRUIT, Poste

IMAGES = CONSTRUIT / "demo"
# Slow enough to be watched: some ten seconds for a file.
LECTEUR = (
    "type_lecteur = INGENICO  650\ntype_os_apres_noyau = 04\nnum_version_apres_appli = 0210\n"
    "lectures_muettes = 3\ndelai_ms = 120\n"
)
LECTEUR_QUI_REFUSE = LECTEUR + "defaut = bloc 3 fichier 1 : refus 52\n"


def a_la_main():
    with Poste("demo", reel=True) as poste:
        poste.installer("Pavorin", LECTEUR, LOGICIELS)
        poste.serie("vitesses = 9600, 19200")
        poste.lancer()
        print("Pavorin est ouvert, avec un lecteur simulé ; fermez sa fenêtre pour finir.")
        attendre(lambda: poste.demander("fin"), 1e9, "fin du programme")


class Demonstration:
    def __init__(self, poste):
        self.poste = poste
        poste.installer("Pavorin", LECTEUR, LOGICIELS, ini="C:\\Pavorin")
        self.fmain = poste.lancer(repertoire="C:\\Pavorin")

    def jouer(self):
        self.choisir_dossier()
        self.montrer_message_manuel()
        self.mettre_a_jour()
        self.montrer_echec()
        self.montrer_apropos()
        self.tester_lecteur()
        self.fmain.cliquer("CmdQuitter")
        self.poste.fin()

    def photographier(self, nom, fenetre=None):
        (fenetre or self.fmain).image(IMAGES / (nom + ".png"))
        print("  image :", nom + ".png", flush=True)

    def choisir_dossier(self):
        print("Choix du répertoire")
        self.fmain.cliquer("CmdChooseDirectory")
        dossier = self.poste.fenetre("FDossierING")
        dossier.ouvrir_ligne("DirDirectory", "Logiciels")
        attendre(lambda: dossier["CmdOK"].actif, 5, "OK actif")
        self.photographier("dossier", dossier)
        dossier.cliquer("CmdOK")
        self.poste.absente("FDossierING")
        attendre(lambda: self.fmain.texte("CchooseNoyau"), 5, "listes remplies")
        self.photographier("fenetre-principale")

    def montrer_message_manuel(self):
        print("Mode manuel")
        self.fmain.cliquer("OptManuel")
        boite = self.poste.boite("Télécharger")
        self.photographier("message-manuel", boite.fenetre)
        boite.repondre()
        self.fmain.choisir("CchosseAppli", "ELITER0210.ing")
        attendre(lambda: self.fmain.texte("lblvers1") == "02.10", 5, "version choisie")
        self.photographier("mode-manuel")
        self.fmain.cliquer("OptAuto")

    def lancer_chargement(self, image=None):
        attendre(lambda: self.fmain.cliquer("CmdMaj"), 5, "« Mise à jour » actif")
        boite = self.poste.boite("TELECHARGER")
        if image:
            self.photographier(image, boite.fenetre)
        boite.repondre("Oui")
        return self.poste.fenetre("FrmAnimCharg")

    def verdict(self, fenetre, texte, image):
        attendre(lambda: fenetre.texte("LblTitre") == texte, 60, texte)
        self.photographier(image, fenetre)

    def mettre_a_jour(self):
        print("Mise à jour : noyau et application")
        progression = self.lancer_chargement("confirmation")
        attendre(lambda: "Bloc" in self.poste.trace() or self.poste.trace().count("Echange") > 25, 30, "blocs")
        self.photographier("progression-en-cours", progression)
        self.verdict(progression, "Chargement Réussi.", "progression-reussie")
        self.poste.absente("FrmAnimCharg", 60)
        application = self.poste.fenetre("FrmAnimCharg", 60)
        self.verdict(application, "Chargement Réussi.", "progression-reussie-application")
        self.poste.absente("FrmAnimCharg", 60)
        attendre(lambda: "Arrêt du Galss" in self.fmain.texte("TxtDetails"), 10, "fin de la mise à jour")
        self.photographier("mise-a-jour-terminee")
        print("\nDétails des opérations :\n")
        print(self.fmain.texte("TxtDetails").replace("\r\n", "\n"))
        attendus = [LOGICIELS["Fexa0400.ing"], LOGICIELS["ELITER0210.ing"]]
        if self.poste.recus() != attendus or "FAUTE" in self.poste.trace():
            raise SystemExit("Le lecteur simulé n'a pas reçu ce qu'il fallait : voir trace.txt")
        print("Le lecteur a reçu les deux fichiers, octet pour octet.\n")

    def montrer_echec(self):
        print("Bloc refusé")
        self.poste.scenario(LECTEUR_QUI_REFUSE)
        progression = self.lancer_chargement()
        self.verdict(progression, "Problème lors du Chargement.", "progression-echouee")
        self.poste.absente("FrmAnimCharg", 30)

    def montrer_apropos(self):
        print("À propos")
        self.fmain.menu("MnApropos")
        apropos = self.poste.fenetre("frmAbout")
        self.photographier("a-propos", apropos)
        apropos.cliquer("CmdOK")

    def tester_lecteur(self):
        print("Test du lecteur sur la ligne série")
        self.poste.serie("vitesses = 9600")
        self.fmain.menu("MnLecteur")
        configuration = self.poste.fenetre("FrmResultParam")
        self.photographier("configuration", configuration)
        configuration.cliquer("CmdOK")
        self.poste.absente("FrmResultParam")
        self.photographier("voyants-verts")
        self.poste.serie("silence = tout")
        self.fmain.menu("MnLecteur")
        attendre(lambda: self.fmain["ImgRed"].visible, 10, "voyants rouges")
        self.photographier("voyants-rouges")


def jouer():
    shutil.rmtree(IMAGES, ignore_errors=True)
    with Poste("demo") as poste:
        Demonstration(poste).jouer()
    print(f"Images dans {IMAGES.relative_to(CONSTRUIT.parent)}/")


if __name__ == "__main__":
    a_la_main() if os.environ.get("DISPLAY") else jouer()
