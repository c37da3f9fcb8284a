"""The program's windows as the driver sees them. Controls go by the names of ui/*.cpp, where their
identifiers and places are read."""

import re
import time
from dataclasses import dataclass
from pathlib import Path

UI = Path(__file__).resolve().parent.parent / "ui"
WM_CLOSE, WM_KEYDOWN, WM_CHAR, WM_COMMAND = 0x10, 0x100, 0x102, 0x111
CB_SETCURSEL, CBN_SELCHANGE, LB_SETCURSEL, VK_RETURN = 0x14E, 1, 0x186, 0x0D
BOUTONS = {"OK": 1, "Oui": 6, "Non": 7}


def attendre(condition, delai, quoi):
    """What condition() gives once it is true (or not empty); fails after delai seconds."""
    fin = time.monotonic() + delai
    while True:
        valeur = condition()
        if valeur:
            return valeur
        if time.monotonic() > fin:
            raise AssertionError(f"pas venu en {delai} s : {quoi}")
        time.sleep(0.04)


@dataclass
class Modele:
    titre: str
    taille: tuple  # client area, twips
    numeros: dict  # control or menu entry -> identifier
    places: dict  # control -> (left, top, width, height), twips, within its parent
    parents: dict  # control -> frame


def _lire_modele(fichier):
    source = fichier.read_text("utf-8")
    titre = re.search(r'\.Titre = "([^"]*)"', source)
    if not titre:
        return None
    taille = re.search(r"\.Largeur = (\d+), \.Hauteur = (\d+)", source)
    constantes = dict(re.findall(r"constexpr Position (\w+)\{([\d, ]+)\}", source))
    modele = Modele(titre[1], (int(taille[1]), int(taille[2])), {}, {}, {})
    for nom, parent, numero, place in re.findall(r"(\w+)\((\*this|\w+), (\d{3}), *(?:(?=\")|(\{[\d, ]+\}|\w+))", source):
        modele.numeros[nom] = int(numero)
        place = constantes.get(place, place).strip("{}")
        if "," in place:
            modele.places[nom] = tuple(map(int, place.split(",")))
        if parent != "*this":
            modele.parents[nom] = parent
    return modele


MODELES = {f.stem: m for f in sorted(UI.glob("*.cpp")) if (m := _lire_modele(f))}
PAR_TITRE = {m.titre: nom for nom, m in MODELES.items()}


@dataclass
class Controle:
    poignee: str
    numero: int
    visible: bool
    actif: bool
    foyer: bool
    place: tuple  # left, top, right, bottom in pixels: of the client area, or of the screen for a window
    classe: str
    texte: str


def _controle(poignee, numero, visible, actif, foyer, gauche, haut, droite, bas, classe, texte):
    place = (int(gauche), int(haut), int(droite), int(bas))
    return Controle(poignee, int(numero), visible == "1", actif == "1", foyer == "1", place, classe, texte)


class Fenetre:
    def __init__(self, poste, *article):
        self.poste = poste
        self._prendre(_controle(*article))

    def _prendre(self, vue):
        self.poignee, self.place, self.classe, self.titre = vue.poignee, vue.place, vue.classe, vue.texte
        self.active, self.devant = vue.actif, vue.foyer
        self.modele = None if self.classe == "#32770" else PAR_TITRE.get(self.titre)

    def relire(self):
        for autre in self.poste.fenetres():
            if autre.poignee == self.poignee:
                self.__dict__.update(autre.__dict__)
                return self
        raise AssertionError(f"fenêtre {self.titre!r} fermée")

    def controles(self, numero=0):
        """Everything inside by identifier, or that one control."""
        articles = self.poste.demander("enfants", self.poignee, numero) or []
        return {c.numero: c for c in (_controle(*a) for a in articles if len(a) > 1)}

    def numero(self, nom):
        return MODELES[self.modele].numeros[nom]

    def __getitem__(self, nom):
        """A control as it stands now."""
        numero = self.numero(nom)
        return self.controles(numero)[numero]

    def texte(self, nom):
        return self[nom].texte

    def cliquer(self, nom):
        """False when the operator could not have clicked."""
        return self.poste.demander("cliquer", self[nom].poignee) is not None

    def menu(self, nom):
        return self.poste.demander("menu", self.poignee, self.numero(nom)) is not None

    def envoyer(self, nom, message, w=0, l=0):
        reponse = self.poste.demander("envoyer", self[nom].poignee, message, w, l)
        return None if reponse is None else int(reponse[0][0])

    def poster(self, nom, message, w=0, l=0):
        self.poste.demander("poster", self[nom].poignee, message, w, l)

    def entrees(self, nom):
        return [a[0] for a in self.poste.demander("entrees", self[nom].poignee)]

    def choisir(self, nom, entree):
        """Selects an entry of a drop-down list by its text."""
        liste = self[nom]
        self.envoyer(nom, CB_SETCURSEL, self.entrees(nom).index(entree))
        self.poste.demander("poster", self.poignee, WM_COMMAND, CBN_SELCHANGE << 16 | liste.numero, liste.poignee)

    def ouvrir_ligne(self, nom, entree):
        """Opens a line of a directory list with the Enter key."""
        self.envoyer(nom, LB_SETCURSEL, self.entrees(nom).index(entree))
        self.poster(nom, WM_KEYDOWN, VK_RETURN)

    def fermer(self):
        """The close box of the frame."""
        self.poste.demander("poster", self.poignee, WM_CLOSE, 0, 0)

    def image(self, chemin):
        self.poste.image(chemin, self)


class Boite:
    """A message box."""

    def __init__(self, fenetre):
        self.fenetre, self.titre = fenetre, fenetre.titre
        controles = fenetre.controles().values()
        self.texte = "".join(c.texte for c in controles if c.classe == "Static").replace("\r\n", "\n")
        self.boutons = [c.texte.replace("&", "") for c in controles if c.classe == "Button" and c.visible]

    def repondre(self, bouton="OK"):
        poste, poignee = self.fenetre.poste, self.fenetre.poignee
        numero = BOUTONS[bouton]
        poste.demander("cliquer", self.fenetre.controles(numero)[numero].poignee)
        attendre(lambda: all(f.poignee != poignee for f in poste.fenetres()), 5, f"fermeture de {self.titre!r}")
