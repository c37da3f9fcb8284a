"""Whole loads, with the real pauses: what the operator sees and what the reader holds."""

from cas import APPLI, ENTETE, LOGICIELS, NOYAU, PETITS, Cas
from fenetres import attendre

CONNEXION = ENTETE + "Connexion Réussie.\n"
UN_FICHIER = "Début du chargement.\tHH\nChargement Réussi.\tHH\n"


class Automatique_650(Cas):
    def test_noyau_puis_application(self):
        self.lancer("lecteur-650")
        self.assertEqual(self.mettre_a_jour(), "Confirmez-vous la mise à jour du ou des fichiers ci-dessous :\n"
                         f"{NOYAU}\n\r{APPLI}\n\r")
        progression = self.poste.fenetre("FrmAnimCharg")
        attendre(lambda: progression.texte("LblTitre") == "Chargement Réussi.", 20, "noyau chargé")
        self.verifier_places(progression)
        visibles = {n for n in ("LblBlock", "LblNumBlock", "LblNumTaille", "PgbExe", "LblCom") if progression[n].visible}
        self.assertEqual((visibles, progression.texte("LblCom")), ({"LblCom"}, "Attendre l'écran de repos du lecteur Elite 650"))
        # Nothing but the load's end takes the window away, and nothing else may start meanwhile.
        progression.fermer()
        self.fmain.fermer()
        self.assertEqual([self.fmain.cliquer(n) for n in ("CmdMaj", "CmdQuitter", "OptManuel")], [False] * 3)
        self.assertFalse(self.fmain.menu("MnLecteur"))
        volet = self.attendre_volet("Arrêt du Galss\n", 60)
        self.assertEqual(volet, CONNEXION + f"Ouverture du fichier {NOYAU} 5000 Octets.\n" + UN_FICHIER
                         + f"Ouverture du fichier {APPLI} 4086 Octets.\n" + UN_FICHIER + "Arrêt du Galss\n")
        self.poste.absente("FrmAnimCharg")
        self.verifier_utilisable()
        self.juger([PETITS[NOYAU], PETITS[APPLI]])


class Automatique_Bifente(Cas):
    def test_noyau_puis_application_sans_leurs_trois_derniers_octets(self):
        self.lancer("bifente-depuis-200", LOGICIELS)
        self.mettre_a_jour()
        volet = self.attendre_volet("Arrêt du Galss\n", 60)
        self.assertEqual(volet, CONNEXION + ("Ouverture du fichier. \n" + UN_FICHIER) * 2 + "Arrêt du Galss\n")
        self.juger([LOGICIELS[NOYAU][:-3], LOGICIELS[APPLI][:-3]])


class Chargements(Cas):
    def test_manuel_depuis_un_long_chemin_accentue(self):
        noms = ["Données de l'été", *(f"sous-répertoire numéro {n} très long œ" for n in range(7))]
        self.lancer("bifente-avant-200", ini="C:\\test_manuel_depuis_un_long_chemin_accentue",
                    repertoire="C:\\test_manuel_depuis_un_long_chemin_accentue")
        profond = self.poste.dossier.joinpath(*noms)
        profond.mkdir(parents=True)
        (profond / "Été 2.0 é.R0205.ing").write_bytes(b"intrus")
        (profond / "E l'été R0206.ing").write_bytes(PETITS[APPLI])
        self.assertTrue(self.fmain.cliquer("CmdChooseDirectory"))
        dossier = self.poste.fenetre("FDossierING")
        self.verifier_places(dossier)
        for nom in noms:
            self.assertFalse(dossier["CmdOK"].actif)
            attendre(lambda: nom in dossier.entrees("DirDirectory"), 5, nom)
            dossier.ouvrir_ligne("DirDirectory", nom)
        attendre(lambda: dossier.cliquer("CmdOK"), 5, "OK actif")
        self.poste.absente("FDossierING")
        chemin = self.fmain.texte("TxtChooseDirectory")
        self.assertGreater(len(chemin), 260)
        self.assertTrue(chemin.endswith("\\" + noms[-1] + "\\"), chemin)
        self.assertEqual(self.fmain.entrees("CchosseAppli"), ["E l'été R0206.ing", "Pas de mise à jour"])
        self.choisir_manuellement("E l'été R0206.ing")
        self.assertEqual(self.mettre_a_jour().strip().split("\n")[1:], ["E l'été R0206.ing"])
        self.attendre_volet("Chargement Réussi.\tHH\nArrêt du Galss\n", 30)
        self.juger([PETITS[APPLI]])
        ini = (self.poste.dossier / "telech.ini").read_bytes().decode("cp1252")
        self.assertIn("[INIT_REPERTOIRE]", ini)
        self.assertIn(f"REP={chemin}\r\n", ini)

    def test_bloc_refuse_puis_nouvel_essai(self):
        self.lancer("bloc-refuse", LOGICIELS)
        self.mettre_a_jour()
        progression = self.poste.fenetre("FrmAnimCharg")
        attendre(lambda: progression.texte("LblTitre") == "Problème lors du Chargement.", 10, "échec")
        self.assertEqual(progression.texte("LblCom"), "Chargement Echoué ...")
        volet = self.attendre_volet("Arrêt du Galss\n")
        self.assertEqual(volet, CONNEXION + f"Ouverture du fichier {NOYAU} 122880 Octets.\nDébut du chargement.\tHH\n"
                         "Problème lors du Chargement.\tHH\n\nDéconnexion RéussieArrêt du Galss\n")
        self.poste.absente("FrmAnimCharg")
        self.poste.scenario("bifente-avant-200")
        self.juger([LOGICIELS[NOYAU][: 2 * 2043]])
        self.choisir_manuellement(APPLI)
        self.mettre_a_jour()
        self.attendre_volet("Chargement Réussi.\tHH\nArrêt du Galss\n", 30)
        self.assertEqual(self.poste.recus()[1:], [LOGICIELS[APPLI]])

    def test_deux_cents_confirmations_refusees_ne_consomment_rien(self):
        self.lancer("trace = non")
        for tour in range(205):
            if tour == 5:
                avant = self.poste.consommation()
            self.mettre_a_jour("Non")
        volet = self.attendre_volet("Arrêt du Galss\n")
        self.assertEqual(volet, CONNEXION + "mise à jour stoppée par l'utilisateur\nArrêt du Galss\n")
        apres = self.poste.consommation()
        for quoi in ("poignées", "GDI", "fenêtres", "USER"):
            self.assertLessEqual(apres[quoi], avant[quoi] + 2, f"{quoi} : {avant} puis {apres}")
