#!/usr/bin/env python3
"""Unpacks the archive on a new Windows PC and, as its read-me says, runs a copy of the program in the
training folder: an application must reach the simulated reader whole. Usage: paquet_essai.py ZIP"""

import shutil
import sys
import zipfile

from exemples import LOGICIELS
from poste import Poste, attendre


def entrainer(poste, archive):
    paquet = poste.c / "Paquet"
    with zipfile.ZipFile(archive) as contenu:
        contenu.extractall(paquet)
    poste.dossier = paquet / "simulateur"
    shutil.copy(paquet / "Pavorin.exe", poste.dossier)
    # A kernel too recent for the folder's own: the application alone, the shortest pause.
    pret = (poste.dossier / "scenarios" / "bifente-avant-200.txt").read_text("utf-8")
    (poste.dossier / "scenario.txt").write_text(pret + "type_os = 05\n", "utf-8")
    poste.demander("lancer", "C:\\Paquet\\simulateur", '"C:\\Paquet\\simulateur\\Pavorin.exe"')
    fmain = poste.fenetre("FMain")
    fmain.cliquer("CmdChooseDirectory")
    dossier = poste.fenetre("FDossierING")
    dossier.ouvrir_ligne("DirDirectory", "fichiers")
    attendre(lambda: dossier["CmdOK"].actif, 5, "OK actif")
    dossier.cliquer("CmdOK")
    poste.absente("FDossierING")
    attendre(lambda: fmain.cliquer("CmdMaj"), 5, "« Mise à jour » actif")
    poste.boite("TELECHARGER").repondre("Oui")
    attendre(lambda: "Arrêt du Galss" in fmain.texte("TxtDetails"), 60, "fin de la mise à jour")
    if poste.recus() != [LOGICIELS["ELITER0210.ing"]] or "FAUTE" in poste.trace():
        sys.exit("Le lecteur simulé n'a pas reçu l'application :\n" + fmain.texte("TxtDetails"))
    fmain.cliquer("CmdQuitter")
    poste.fin()


with Poste("paquet") as poste:
    entrainer(poste, sys.argv[1])
