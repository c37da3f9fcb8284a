"""What the end-to-end tests share: a PC per class, an operator's gestures, and the reader's judgement."""

import re
import unittest

from exemples import LOGICIELS, contenu
from fenetres import MODELES, attendre
from poste import Poste

NOYAU, APPLI = "Fexa0400.ing", "ELITER0210.ing"
PETITS = {NOYAU: contenu("NOYAU", 5000), APPLI: contenu("APPLICATION", 4086)}
ENTETE = "PROCEDURE DE CHARGEMENT\n=========================\nConnexion en cours ... \n"
INSTALLATION = "Vérifiez l'installation du service SESAM-Vitale (GALSS)."
SERVICE = ("Vérifiez le service SESAM-Vitale (GALSS)n'est pas déjà ouvert, si le service est ouvert veuillez "
           "supprimer cette tache ATL+CTRL+SUPP et séléctionnez galsvw32.exe et faite terminer la tache.")
TERMINAL = "Impossible de télécharger ce type de terminal !"


class Cas(unittest.TestCase):
    reglages_poste = {}

    @classmethod
    def setUpClass(cls):
        cls.poste = Poste("essai-" + cls.__name__.lower(), **cls.reglages_poste)
        cls.addClassCleanup(cls.poste.fermer)

    def tearDown(self):
        self.poste.tuer()

    def lancer(self, scenario="", fichiers=None, arguments="", repertoire=None, **installation):
        self.poste.installer(self._testMethodName, scenario, PETITS if fichiers is None else fichiers, **installation)
        self.fmain = self.poste.lancer(arguments, repertoire)
        return self.fmain

    def volet(self):
        """The details pane, times of day as HH."""
        return re.sub(r"\t\d\d:\d\d:\d\d\n", "\tHH\n", self.fmain.texte("TxtDetails").replace("\r\n", "\n"))

    def attendre_volet(self, fin, delai=10):
        attendre(lambda: self.volet().endswith(fin), delai, f"{fin!r} à la fin de {self.volet()!r}")
        return self.volet()

    def demander_mise_a_jour(self):
        attendre(lambda: self.fmain.cliquer("CmdMaj"), 10, "« Mise à jour » actif")

    def mettre_a_jour(self, reponse="Oui"):
        """Presses "Mise à jour" and answers the confirmation; its text."""
        self.demander_mise_a_jour()
        boite = self.poste.boite("TELECHARGER")
        self.assertEqual(boite.boutons, ["Oui", "Non"])
        boite.repondre(reponse)
        return boite.texte

    def repondre(self, titre, texte):
        boite = self.poste.boite(titre)
        self.assertEqual(boite.texte, texte)
        boite.repondre()

    def choisir_manuellement(self, appli=None, noyau=None):
        self.fmain.cliquer("OptManuel")
        self.poste.boite("Télécharger").repondre()
        for liste, fichier in (("CchosseAppli", appli), ("CchooseNoyau", noyau)):
            attendre(lambda: self.fmain.texte(liste) == "Pas de mise à jour", 5, "dernières entrées")
            if fichier:
                self.fmain.choisir(liste, fichier)
        attendre(lambda: self.fmain["CmdMaj"].actif, 5, "« Mise à jour » actif")

    def juger(self, recus):
        """The reader's record: these files, and no fault of the program."""
        attendre(lambda: len(self.poste.recus()) == len(recus), 5, "fichiers reçus")
        self.assertEqual(self.poste.recus(), recus)
        self.assertNotIn("FAUTE", self.poste.trace())
        self.assertNotIn("SCENARIO: ligne", self.poste.trace())

    def verifier_utilisable(self):
        self.assertTrue(self.fmain.relire().active and self.fmain["CmdQuitter"].actif)

    def verifier_place(self, nom, lue, voulue, dpi):
        """Pixels read against twips, within 2 pixels at 96 DPI."""
        for pixels, twips in zip(lue, voulue):
            self.assertAlmostEqual(pixels, twips * dpi / 1440, delta=dpi / 48, msg=f"{nom} {voulue} {lue}")

    def verifier_places(self, fenetre, dpi=96):
        """Every control where the window's table puts it."""
        modele, controles = MODELES[fenetre.modele], fenetre.controles()
        self.assertGreater(len(modele.places), 2)
        for nom, place in modele.places.items():
            gauche, haut = modele.places[modele.parents[nom]][:2] if nom in modele.parents else (0, 0)
            voulue = (gauche + place[0], haut + place[1], gauche + place[0] + place[2], haut + place[1] + place[3])
            self.verifier_place(f"{fenetre.modele}.{nom}", controles[modele.numeros[nom]].place, voulue, dpi)
