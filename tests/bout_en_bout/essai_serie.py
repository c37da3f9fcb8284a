"""The serial reader test, on a pseudo-terminal in the place of COM1."""

import time

from cas import Cas
from fenetres import attendre

VOYANTS = ("ImgGreen", "ImgGreen2", "ImgRed", "ImgRed2", "ImgYellow", "ImgYellow2")
VERTS, ROUGES = [True, True, False, False, False, False], [False, False, True, True, False, False]
REGLAGES = ("LblVit", "LblPart", "LblBitDon", "LblBitStop")


class Serie(Cas):
    def setUp(self):
        self.journal = self.poste.prefixe / "serie.log"
        self.poste.serie("date = 20051013")
        self.journal.write_text("")
        self.lancer()

    def demander_test(self, scenario=None):
        if scenario is not None:
            self.poste.serie(scenario)
        self.assertTrue(self.fmain.menu("MnLecteur"))

    def voyants(self):
        return [self.fmain[n].visible for n in VOYANTS]

    def reussir(self, vitesse="9600", date="13 octobre 2005", scenario="date = 20051013"):
        """A test that succeeds, up to OK in the configuration window."""
        self.demander_test(scenario)
        if vitesse != "9600":
            self.repondre("Attention", "Attention vous etes en 19200 Bauds!!")
        configuration = self.poste.fenetre("FrmResultParam")
        lus = {n: configuration.texte(n) for n in ("LblConst", "LblNumVersion", "LblDate", "LblHeure", "LblCRC")}
        self.assertEqual(lus, {"LblConst": "INGENICO", "LblNumVersion": "1.27", "LblDate": date, "LblHeure": "14:30", "LblCRC": "A1B2"})
        self.assertFalse(self.fmain.relire().active)
        self.assertEqual([self.fmain.texte(n) for n in REGLAGES], [f"{vitesse} bauds", "n", "8", "1"])
        self.assertEqual(self.voyants(), VERTS)
        self.assertFalse(self.fmain["TxtDetails"].visible)
        self.assertTrue(self.fmain.texte("TxtDetails").endswith("\r\n\tTEST RÉUSSI"))
        configuration.cliquer("CmdOK")
        self.poste.absente("FrmResultParam")
        attendre(lambda: self.fmain.relire().active and self.fmain.devant, 5, "fenêtre principale devant")
        self.assertNotIn("FAUTE", self.journal.read_text("utf-8"))

    def test_9600_puis_19200_puis_fermeture_par_le_cadre(self):
        self.reussir()
        envois = [l for l in self.journal.read_text("utf-8").splitlines() if "reçu à" in l]
        self.assertEqual([l.split(" bauds")[0] for l in envois], ["reçu à 9600"] * 4)
        self.reussir("19200", "15 mars 2005", "vitesses = 19200")
        self.demander_test("morceaux = 3\ndelai_morceaux_ms = 15")
        configuration = self.poste.fenetre("FrmResultParam")
        configuration.fermer()
        self.poste.absente("FrmResultParam")
        attendre(lambda: self.fmain.relire().active, 5, "fenêtre principale active")

    def test_muet_puis_reponse(self):
        self.poste.serie("silence = tout")
        avant = self.poste.processeur()
        self.demander_test()
        time.sleep(2.9)  # looking at the windows would cost them processor time
        self.assertLess(self.poste.processeur() - avant, 0.05 * 2.9, "secondes de processeur")
        attendre(lambda: self.voyants() == ROUGES, 0.6, "voyants rouges en 3,5 s")
        self.assertEqual([self.fmain.texte(n) for n in REGLAGES], ["---"] * 4)
        self.reussir()

    def test_echecs_puis_reponse(self):
        erreurs = ("debranche_apres = 0", "date = 20051313", "date = 2005AB13")
        for scenario in (*erreurs, "longueur_config = 122", "longueur_config = 124", "constructeur = AUTRE",
                         "silence = config", "bruit_avant = 55", "debranche_apres = 2"):
            with self.subTest(scenario):
                self.demander_test(scenario)
                attendre(lambda: self.voyants() == ROUGES or self.volet().startswith("Erreur n° : "), 10, "échec")
                if scenario in erreurs:
                    self.assertRegex(self.volet(), r"^Erreur n° : \d+\nErreur : $")
                self.assertTrue(self.fmain.relire().active)
                self.reussir()

    def test_operateur_pendant_l_attente(self):
        self.demander_test("silence = tout")
        self.demander_test()
        attendre(lambda: self.voyants() == ROUGES, 8, "voyants rouges")
        self.reussir()
        for geste in (lambda: self.fmain.cliquer("CmdQuitter"), lambda: self.fmain.fermer()):
            self.poste.tuer()
            self.fmain = self.poste.lancer()
            self.demander_test("silence = tout")
            time.sleep(0.3)
            geste()
            self.assertEqual(self.poste.fin(8), 0)

    def test_ligne_de_commande(self):
        self.poste.tuer()
        self.fmain = self.poste.lancer("/port:COM9")
        self.demander_test()
        attendre(lambda: self.volet().startswith("Erreur n° : "), 5, "port absent")
        self.poste.tuer()
        self.fmain = self.poste.lancer("/port:9")
        boite = self.poste.boite("Pavorin")
        self.assertIn("/port:COM3", boite.texte)
        boite.repondre()
        self.reussir()
