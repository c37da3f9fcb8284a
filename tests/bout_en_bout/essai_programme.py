"""The program on its PC: the access library, start and end, keyboard, layout."""

import subprocess

from cas import APPLI, ENTETE, INSTALLATION, NOYAU, SERVICE, TERMINAL, Cas
from fenetres import attendre
from poste import BITS_64, CIBLE, CONSTRUIT

GALCLW32 = (CIBLE / "simulateur" / "Galclw32.dll").read_bytes()
PE = int.from_bytes(GALCLW32[0x3C:0x40], "little")
# Another processor's: machine type, then the optional header's own mark.
MACHINE, MARQUE = (b"\x4c\x01", b"\x0b\x01") if BITS_64 else (b"\x64\x86", b"\x0b\x02")
AUTRE_MACHINE = GALCLW32[: PE + 4] + MACHINE + GALCLW32[PE + 6 : PE + 24] + MARQUE + GALCLW32[PE + 26 :]

# What the windows' tables hold, in twips, whatever the program's own sources say: left, top, right, bottom.
PLACES = {
    "FMain": {"FrmChooseDirectory": (240, 120, 5535, 1815), "FmDetails": (5709, 2085, 11001, 5820),
              "CmdMaj": (6069, 720, 8964, 1452), "TxtDetails": (5829, 2565, 10881, 5580),
              "CchooseNoyau": (3000, 3480, 5055, 3840), "LblBitStop": (8709, 4485, 10041, 4737)},
    "FrmResultParam": {"LblConst": (2640, 1080), "LblTypeLec": (2640, 1680), "LblNumSerie": (2640, 2280),
                       "LblTypeOS": (2640, 2880), "LblNameAppli": (2640, 3480), "LblNumVersion": (8040, 1080),
                       "LblDate": (8040, 1680), "LblHeure": (8040, 2280), "LblCRC": (8040, 2880)},
}


class Bibliotheque(Cas):
    def test_absente_abimee_ou_incomplete(self):
        cas = {
            "absente": (b"", SERVICE),
            "n'est pas une bibliothèque": (b"MZ" + b"\0" * 3000, INSTALLATION),
            "vide de tout": (b"\0", INSTALLATION),
            "tronquée": (GALCLW32[:40000], INSTALLATION),
            "d'un autre processeur": (AUTRE_MACHINE, INSTALLATION),
            "dépend d'une absente": (GALCLW32.replace(b"KERNEL32.dll\0", b"KERNEL99.dll\0"), INSTALLATION),
            **{f"sans {nom}": (GALCLW32.replace(f"\0{nom}\0".encode(), f"\0{nom[:-1]}_\0".encode()), SERVICE)
               for nom in ("OuvrirSession", "DebutExclusivite", "Echange")},
        }
        for nom, (dll, texte) in cas.items():
            with self.subTest(nom):
                self.assertFalse(dll == GALCLW32, "rien de changé")
                self.lancer(dll=dll)
                for _ in range(2):  # the second try must end alike
                    self.demander_mise_a_jour()
                    self.repondre("Télécharger", texte)
                self.assertTrue(self.volet().startswith(ENTETE), self.volet())
                self.verifier_utilisable()
            self.poste.tuer()


class Vie(Cas):
    def test_fins(self):
        self.lancer()
        self.assertTrue(self.fmain.menu("MnQuitter") and self.fmain.menu("MnApropos"))
        apropos = self.poste.fenetre("frmAbout")
        self.verifier_places(apropos)
        self.fmain.fermer()
        self.poste.absente("FMain")
        self.assertIsNone(self.poste.demander("fin"))
        apropos.fermer()
        self.assertEqual(self.poste.fin(), 0)

    def test_second_depart_ramene_le_premier(self):
        self.lancer()
        self.poste.demander("poster", self.fmain.poignee, 0x112, 0xF020, 0)  # WM_SYSCOMMAND, SC_MINIMIZE
        largeur = self.fmain.place[2] - self.fmain.place[0]
        attendre(lambda: self.fmain.relire().place[2] - self.fmain.place[0] < largeur, 5, "réduction")
        second = subprocess.run(["wine", self.poste.dossier / "Pavorin.exe"], env=self.poste.env, timeout=20, check=False)
        self.assertEqual(second.returncode, 0)
        attendre(lambda: self.fmain.relire().devant and self.fmain.place[2] - self.fmain.place[0] == largeur, 5, "premier plan")
        self.assertEqual(len(self.poste.fenetres()), 1)

    def test_volet_se_copie_et_suit_la_derniere_ligne(self):
        self.lancer("defaut = OuvrirSession 1 toujours : code 4096")
        for _ in range(2):
            self.demander_mise_a_jour()
            self.repondre("attention", TERMINAL)
        lignes, premiere = self.fmain.envoyer("TxtDetails", 0xBA), self.fmain.envoyer("TxtDetails", 0xCE)  # EM_GET...
        hauteur = self.fmain["TxtDetails"].place
        if lignes > (hauteur[3] - hauteur[1]) // 15:
            self.assertGreater(premiere, 0)
        g, h, _, _ = self.fmain.place
        x, y = hauteur[0] + g + 30, hauteur[1] + h + 80
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], env=self.poste.env, check=True)
        attendre(lambda: self.fmain["TxtDetails"].foyer, 5, "volet actif")
        self.poste.taper("ctrl+a", "ctrl+c")
        texte = self.fmain.texte("TxtDetails")
        attendre(lambda: self.poste.demander("presse-papiers")[0][0] == texte, 5, "copie du volet")
        self.poste.taper("x", "Delete")
        self.assertEqual(self.fmain.texte("TxtDetails"), texte)

    def test_clavier(self):
        self.lancer()
        self.poste.serie("debranche_apres = 0")
        self.poste.taper("alt+f", "c", "t")
        attendre(lambda: self.volet().startswith("Erreur n° : "), 10, "test lancé par les menus")
        self.poste.taper("alt+a", "a")
        self.poste.fenetre("frmAbout")
        self.poste.taper("Escape")
        self.poste.absente("frmAbout")
        ordre = ("TxtChooseDirectory", "CmdChooseDirectory", "OptAuto", "CmdMaj", "CmdQuitter", "TxtDetails")
        attendre(lambda: any(self.fmain[n].foyer for n in ordre), 5, "focus après À propos")
        depart = next(i for i, n in enumerate(ordre) if self.fmain[n].foyer)
        for pas in range(1, 7):
            self.poste.taper("Tab")
            nom = ordre[(depart + pas) % 6]
            attendre(lambda: self.fmain[nom].foyer, 5, f"focus sur {nom}")
        self.assertEqual(self.fmain.entrees("CchooseNoyau"), [NOYAU, "Pas de mise à jour"])
        self.assertEqual(self.fmain.texte("CchosseAppli"), APPLI)


class Mise_En_Page(Cas):
    dpi = 96

    def test_places_et_images(self):
        """The pictures, for the eye: build/bout_en_bout/."""
        images = CONSTRUIT / "bout_en_bout"
        self.lancer("bloc-refuse")
        self.poste.serie("date = 20051013")
        self.verifier(self.fmain, images)
        self.fmain.cliquer("OptManuel")
        boite = self.poste.boite("Télécharger")
        boite.fenetre.image(images / f"message-manuel-{self.dpi}.png")
        self.assertEqual(boite.texte, "\tSélectionnez les fichiers que vous désirez mettre à jour.\n\t\t\tATTENTION\n"
                         "Les fichiers sélectionnés seront chargés même s'ils sont présents dans le lecteur !!!")
        boite.repondre()
        self.fmain.cliquer("OptAuto")
        self.mettre_a_jour()
        self.verifier(self.poste.fenetre("FrmAnimCharg"), images)
        self.poste.absente("FrmAnimCharg")
        self.attendre_volet("Arrêt du Galss\n")
        for ouvrir, modele in ((lambda: self.fmain.menu("MnApropos"), "frmAbout"),
                               (lambda: self.fmain.cliquer("CmdChooseDirectory"), "FDossierING"),
                               (lambda: self.fmain.menu("MnLecteur"), "FrmResultParam")):
            ouvrir()
            fenetre = self.poste.fenetre(modele)
            self.verifier(fenetre, images)
            fenetre.fermer()
            self.poste.absente(modele)

    def verifier(self, fenetre, images):
        attendre(lambda: "?" not in [c.texte for c in fenetre.controles().values()], 10, "fenêtre peinte")
        suffixe = f"{self.dpi}" + ("" if self.reglages_poste.get("police", True) else "-arial")
        fenetre.image(images / f"{fenetre.modele}-{suffixe}.png")
        self.verifier_places(fenetre, self.dpi)
        for nom, place in PLACES.get(fenetre.modele, {}).items():
            self.verifier_place(nom, fenetre[nom].place, place, self.dpi)


class Mise_En_Page_144(Mise_En_Page):
    dpi = 144
    reglages_poste = {"dpi": 144, "police": False}


class Mise_En_Page_192(Mise_En_Page):
    dpi = 192
    reglages_poste = {"dpi": 192}
