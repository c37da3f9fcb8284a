"""A Windows PC for the program under Linux: a virtual display, a Wine prefix of its own, the program
with the simulated reader beside it, COM1 wired to the simulated serial reader, and the driver that
acts as the operator. As a command: runs the rest of its command line on such a PC."""

import atexit
import fcntl
import os
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

from fenetres import Boite, Fenetre, attendre

RACINE = Path(__file__).resolve().parent.parent
CONSTRUIT = RACINE / "build"
SIMULATEUR = RACINE / "simulator" / "scenarios"
BITS_64 = (CONSTRUIT / "windows64.choix").exists()
CIBLE = CONSTRUIT / ("windows64" if BITS_64 else "windows")
GARDE = CIBLE if BITS_64 else CONSTRUIT / "windows-gardees"
ECRAN = "1920x1200"
LECTEUR_C = "C:\\"


def terminer(processus):
    if processus and processus.poll() is None:
        processus.terminate()
        try:
            processus.wait(5)
        except subprocess.TimeoutExpired:
            processus.kill()
            processus.wait()


def _langue_francaise():
    """The system's locale may not be installed: it is compiled beside the build, without rights."""
    dossier = CONSTRUIT / "locale"
    if not (dossier / "fr_FR.UTF-8").exists():
        dossier.mkdir(parents=True, exist_ok=True)
        subprocess.run(["localedef", "-i", "fr_FR", "-f", "UTF-8", dossier / "fr_FR.UTF-8"],
                       stderr=subprocess.DEVNULL, check=False)
    return str(dossier)


def _symboles(prefixe):
    """The glyphs of the caption buttons, which Wine looks for in the prefix alone."""
    police = Path("/usr/share/wine/fonts/marlett.ttf")
    if police.exists():
        shutil.copy(police, prefixe / "drive_c" / "windows" / "Fonts")


class Poste:
    """nom: its Wine prefix, build/wine/<nom>. dpi: pixels per inch. reel: on the operator's own
    display, without a virtual desktop. police: False for a PC without Arial Narrow."""

    def __init__(self, nom="poste", dpi=96, reel=False, police=True):
        self.prefixe = CONSTRUIT / "wine" / nom
        self.c = self.prefixe / "drive_c"
        self._ecran = self._pilote = self._serie = None
        self.dossier = None
        self.env = {**os.environ, "WINEPREFIX": str(self.prefixe), "WINEDEBUG": "-all",
                    "WINEARCH": "win64" if BITS_64 else "win32",
                    "WINEDLLOVERRIDES": "mscoree,mshtml=d", "LC_ALL": "fr_FR.UTF-8",
                    "LANG": "fr_FR.UTF-8", "LOCPATH": _langue_francaise()}
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
        atexit.register(self.fermer)
        try:
            if not reel:
                self._ouvrir_ecran()
            self._preparer_prefixe(dpi, reel, police)
            self._ouvrir_pilote()
        except BaseException:
            self.fermer()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.fermer()

    def fermer(self):
        """Ends every process of this PC, and no other."""
        atexit.unregister(self.fermer)
        if self._pilote:
            self._pilote.stdin.close()
        if self.prefixe.exists():
            subprocess.run(["wineserver", "-k"], env=self.env, check=False)
            subprocess.run(["wineserver", "-w"], env=self.env, check=False)
        for processus in (self._pilote, self._serie, self._ecran):
            terminer(processus)

    # The PC itself

    def _ouvrir_ecran(self):
        lecture, ecriture = os.pipe()
        self._ecran = subprocess.Popen(
            ["Xvfb", "-displayfd", str(ecriture), "-screen", "0", ECRAN + "x24", "-nolisten", "tcp"],
            pass_fds=[ecriture], stderr=subprocess.DEVNULL)
        os.close(ecriture)
        with os.fdopen(lecture) as tube:
            self.env["DISPLAY"] = ":" + tube.readline().strip()

    def _preparer_prefixe(self, dpi, reel, police):
        base = self.prefixe.with_name("base")
        base.parent.mkdir(parents=True, exist_ok=True)
        with open(base.with_suffix(".verrou"), "w") as verrou:
            fcntl.flock(verrou, fcntl.LOCK_EX)
            if not (base / "pret").exists():
                shutil.rmtree(base, ignore_errors=True)
                env = {**self.env, "WINEPREFIX": str(base)}
                subprocess.run(["wineboot", "-i"], env=env, check=True,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                subprocess.run(["wineserver", "-w"], env=env, check=True)
                _symboles(base)
                (base / "pret").touch()
        shutil.rmtree(self.prefixe, ignore_errors=True)
        # Hard links: the system files of a prefix, 600 MB of them, are never written again.
        subprocess.run(["cp", "-al", base, self.prefixe], check=True)
        reglages = {"system.reg": {"Software\\Wine\\Ports": {"COM1": str(self.prefixe / "serie")}},
                    "user.reg": {"Control Panel\\Desktop": {"LogPixels": dpi}}}
        if police:
            reglages["system.reg"]["Software\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes"] = {
                "Arial Narrow": "Liberation Sans Narrow"}
        if not reel:
            reglages["user.reg"]["Software\\Wine\\Explorer"] = {"Desktop": "Default"}
            reglages["user.reg"]["Software\\Wine\\Explorer\\Desktops"] = {"Default": ECRAN}
        for fichier, sections in reglages.items():
            self._completer_registre(fichier, sections)

    def _completer_registre(self, fichier, sections):
        """No server runs: the registry is a text, in which the last value of a key counts."""
        texte = (self.prefixe / fichier).read_text("utf-8", "surrogateescape")
        for section, valeurs in sections.items():
            texte += "\n[" + section.replace("\\", "\\\\") + "]\n"
            for cle, valeur in valeurs.items():
                ecrite = f"dword:{valeur:08x}" if isinstance(valeur, int) else f'"{valeur}"'
                texte += f'"{cle}"={ecrite}\n'
        (self.prefixe / fichier).unlink()
        (self.prefixe / fichier).write_text(texte, "utf-8", "surrogateescape")

    def _ouvrir_pilote(self):
        self._pilote = subprocess.Popen(["wine", str(CIBLE / "pilote.exe")], env=self.env,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL)
        self.demander("fin")

    def demander(self, *champs):
        """One command of the driver; the records of its answer, each a list of texts, or None."""
        self._pilote.stdin.write(("\t".join(map(str, champs)) + "\n").encode())
        self._pilote.stdin.flush()
        reponse = self._pilote.stdout.readline().decode().rstrip("\r\n")
        if not reponse:
            raise AssertionError("le pilote ne répond plus")
        if not reponse.startswith("OK"):
            return None
        return [[_lire(champ) for champ in article.split("\t")]
                for article in reponse[2:].lstrip("\t\x1e").split("\x1e")]

    # The program

    def installer(self, nom, scenario="", fichiers=None, ini=None, dll=None, programme=CIBLE / "Pavorin.exe"):
        """A directory C:\\nom with the program and the simulated reader. fichiers: software files by
        name, in C:\\nom\\Logiciels. ini: the directory remembered (that one when None). dll: other
        content for the library, b"" for none."""
        self.dossier = self.c / nom
        shutil.rmtree(self.dossier, ignore_errors=True)
        logiciels = self.dossier / "Logiciels"
        logiciels.mkdir(parents=True)
        shutil.copy(programme, self.dossier)
        if dll is None:
            shutil.copy(CIBLE / "simulateur" / "Galclw32.dll", self.dossier)
        elif dll:
            (self.dossier / "Galclw32.dll").write_bytes(dll)
        for fichier, contenu in (fichiers or {}).items():
            (logiciels / fichier).write_bytes(contenu)
        self.scenario(scenario)
        repertoire = f"{LECTEUR_C}{nom}\\Logiciels" if ini is None else ini
        (self.dossier / "telech.ini").write_bytes(
            f"[INIT_REPERTOIRE]\r\nREP={repertoire}\r\n".encode("cp1252"))

    def scenario(self, texte):
        """Text of a scenario, or the name of a ready one."""
        pret = SIMULATEUR / (texte + ".txt")
        texte = pret.read_text("utf-8") if texte and pret.exists() else texte
        (self.dossier / "scenario.txt").write_text(texte, "utf-8")

    def lancer(self, arguments="", repertoire=None):
        """Starts the installed program; its main window."""
        programme = LECTEUR_C + self.dossier.name + "\\Pavorin.exe"
        if self.demander("lancer", repertoire or LECTEUR_C, f'"{programme}" {arguments}') is None:
            raise AssertionError("le programme ne démarre pas")
        return self.fenetre("FMain")

    def fin(self, delai=10):
        """Waits for the program's end; its exit code."""
        return int(attendre(lambda: self.demander("fin"), delai, "fin du programme")[0][0])

    def tuer(self):
        if self.demander("fin") is None:
            self.demander("tuer")

    def processeur(self):
        """Processor time that the program has taken, in seconds. Wine's own figure is of no use."""
        for processus in Path("/proc").glob("[0-9]*"):
            try:
                if (b"Pavorin.exe" in (processus / "cmdline").read_bytes()
                        and f"WINEPREFIX={self.prefixe}\0".encode() in (processus / "environ").read_bytes()):
                    champs = (processus / "stat").read_text().rsplit(")", 1)[1].split()
                    return (int(champs[11]) + int(champs[12])) / os.sysconf("SC_CLK_TCK")
            except OSError:
                continue  # ended in the meantime
        raise AssertionError("le programme ne tourne pas")

    def consommation(self):
        """What the program holds. USER handles are counted by what is left for it, hence negative."""
        poignees, gdi, fenetres, libres = map(int, self.demander("mesurer")[0])
        return {"poignées": poignees, "GDI": gdi, "fenêtres": fenetres, "USER": -libres}

    def fenetres(self):
        return [Fenetre(self, *article) for article in self.demander("fenetres") or [] if len(article) > 1]

    def fenetre(self, modele, delai=20):
        """A window of the program by the name of its model in ui/."""
        return attendre(lambda: next((f for f in self.fenetres() if f.modele == modele), None),
                        delai, f"{modele} (fenêtres : {[f.titre for f in self.fenetres()]})")

    def absente(self, modele, delai=10):
        attendre(lambda: all(f.modele != modele for f in self.fenetres()), delai, f"fermeture de {modele}")

    def boite(self, titre, delai=20):
        """The message box with that title."""
        trouvee = attendre(lambda: next((f for f in self.fenetres() if f.classe == "#32770" and f.titre == titre), None),
                           delai, f"boîte {titre!r} (fenêtres : {[f.titre for f in self.fenetres()]})")
        return Boite(trouvee)

    def taper(self, *touches):
        """Real key strokes, as xdotool names them."""
        subprocess.run(["xdotool", "key", "--delay", "40", *touches], env=self.env, check=True)

    def image(self, chemin, fenetre=None):
        """A picture of the whole screen, or of a window's place on it."""
        Path(chemin).parent.mkdir(parents=True, exist_ok=True)
        decoupe = []
        if fenetre:
            g, h, d, b = fenetre.relire().place
            decoupe = ["-crop", f"{d - g}x{b - h}+{g}+{h}", "+repage"]
        subprocess.run(["import", "-window", "root", *decoupe, str(chemin)], env=self.env, check=True)

    # The reader's own record

    def trace(self):
        fichier = self.dossier / "trace.txt"
        return fichier.read_text("utf-8") if fichier.exists() else ""

    def recus(self):
        """The files as the reader received them, in order."""
        noms = sorted(self.dossier.glob("recu-*.bin"), key=lambda f: int(f.stem[5:]))
        return [f.read_bytes() for f in noms]

    def serie(self, texte="", delai=5):
        """The serial reader behind COM1, plugged in with this scenario."""
        regles, lien = self.prefixe / "serie.txt", self.prefixe / "serie"
        regles.write_text(texte + "\n", "utf-8")
        if not self._serie:
            self._serie = subprocess.Popen(
                [CONSTRUIT / "natif" / "simulateur" / "lecteur_serie", "--lien", lien, "--scenario", regles,
                 "--trace", self.prefixe / "serie.log"])
        absent = "debranche_apres = 0" in texte
        attendre(lambda: lien.is_symlink() != absent, delai, "lecteur série")
        time.sleep(0.1)  # an unchanged link tells nothing: the reader looks at its scenario every 20 ms


def _lire(champ):
    """Undoes the driver's escapes."""
    sortie, suite = [], iter(champ)
    for c in suite:
        sortie.append({"t": "\t", "n": "\n", "r": "\r", "\\": "\\"}[next(suite)] if c == "\\" else c)
    return "".join(sortie)


if __name__ == "__main__":
    with Poste("commande") as poste:
        sys.exit(subprocess.run(sys.argv[1:], env=poste.env, check=False).returncode)
