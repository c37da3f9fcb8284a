#!/usr/bin/python3
"""Checks that every text the program can put before the operator has its entry in the guide: a
title, or a line of a table. Texts are the string literals of the sources below, and every code of
their tables must stand in the same line as its text. Ends with "N passed, N failed"."""

import pathlib
import re
import sys

RACINE = pathlib.Path(__file__).resolve().parent.parent
SOURCES = ["update/*.cpp", "download/*.cpp", "galss/*.cpp", "serial/*.cpp", "app/*.cpp",
           "ui/Graphic.cpp", "ui/FrmAnimCharg.cpp", "platform/Erreur.cpp",
           "windows/systeme/Galss_Windows.cpp", "windows/systeme/Fichiers_Windows.cpp",
           "windows/systeme/Appel_Protege.cpp", "windows/fenetres/Fenetrage_Windows.cpp",
           "windows/fenetres/Fenetre_Native.cpp"]

# What no operator reads: names given to GALSS, commands, file names, a reader's fixed texts, what
# a handler replaces before it shows, names for screen readers. Each must still stand in a source.
MUETS = {
    "INGENICO", "INGENICO  650                 ", "INGENICO       ", "LECTEUR BIFENTE 2.0M-XA-V2",
    "LEC-V03.00-0065 2.0M-XA-V2", "0000", "OUVERTURE SESSION GALSS", "POSE D'UNE EXCLUSIVITE",
    "SUPPRESSION DE L'EXCLUSIVITE", "FERMETURE SESSION GALSS", "LECTURE CONFIGURATION LECTEUR",
    "Log_SV", "LOG_SV", "log_SV", "C:\\WINDOWS\\GALSVW32.EXE", "GALSVW32.EXE", "F2E040140C859A3",
    "Galclw32.dll", "/port:COM", "/journal", "/journal:", "Mois incorrect : ",
    "_OuvrirSession@16", "_DebutExclusivite@16", "_Echange@24", "_FinExclusivite@4",
    "_FermerSession@8", "OuvrirSession", "DebutExclusivite", "Echange", "FinExclusivite",
    "FermerSession", "AddDllDirectory", "RemoveDllDirectory", "PATH", "\\system",
    "Chargement en cours...", "Progression du chargement"}

LITTERAL = r'"(?:[^"\\\n]|\\.)*"'
# A code and its text in a table, or a text alone.
MESSAGE = re.compile(rf"(?:\{{(-?\d+|0x[0-9A-F]+),\s*)?((?:{LITTERAL}\s*)+)")
# Comments, and literals that are no texts of the program.
ECARTES = re.compile(rf"({LITTERAL})|//[^\n]*|asm volatile\(.*?\);|^\s*(?:#include|static_assert|extern)[^\n]*$",
                     flags=re.S | re.M)


def lire(chemin):
    return chemin.read_text(encoding="utf-8")


def nu(texte):
    return re.sub(r"\s+", " ", texte.replace("`", "")).strip()


def messages(source):
    """Pairs (text, code as the operator reads it, or "")."""
    for code, suite in MESSAGE.findall(ECARTES.sub(lambda m: m[1] or "", source)):
        texte = "".join(morceau[1:-1] for morceau in re.findall(LITTERAL, suite))
        texte = re.sub(r"\\(.)", lambda m: {"n": "\n", "r": "\r", "t": "\t"}.get(m[1], m[1]), texte)
        yield texte, f"{int(code, 16):X}" if code.startswith("0x") else code


def manquants(tous, guide):
    """Messages that no entry of the guide tells."""
    entrees = [nu(ligne) for ligne in guide.splitlines() if re.match(r"#{2,} |\| ", ligne)]
    corps = nu(guide)  # the words that stand inside an entry's own text are told there
    for texte, code in tous:
        if code:
            trouve = any(e.startswith(f"| {code} | {nu(texte)} |") for e in entrees)
        else:
            trouve = any(nu(texte) in e for e in entrees) or f"« {nu(texte)}" in corps
        if not trouve:
            yield texte, code


def main():
    lus = {m for motif in SOURCES for f in RACINE.glob(motif) for m in messages(lire(f))}
    guide = lire(RACINE / "docs/guide.md")
    erreurs = re.findall(r"^inline constexpr int \w+ = (\d+);", lire(RACINE / "platform/Erreur.h"), flags=re.M)
    tous = {(t, c) for t, c in lus if t not in MUETS and re.search(r"[^\W\d_]{3}", t)}
    absents = set(manquants(tous, guide))
    fautes = [f"sans entrée dans le guide : {c} {t!r}" for t, c in sorted(absents)]
    fautes += [f"texte muet absent des sources : {m!r}" for m in sorted(MUETS - {t for t, _ in lus})]
    fautes += [f"numéro d'erreur sans ligne : {n}" for n in erreurs
               if f"\n| {n} | " not in guide.partition("### Les numéros d'erreur")[2]]

    # The check must fire: on a message that the guide does not know, on a code whose line is gone,
    # and on an entry that has lost its title.
    epreuves = [({("Message que personne ne connaît", "")}, guide), ({("Problème de mémoire", "7")}, guide),
                (tous, guide.replace("### Impossible de télécharger ce type", "Impossible de ce type")),
                (tous, guide.replace("| 1024 | Pas de réponse", "| 1025 | Pas de réponse"))]
    fautes += [f"l'épreuve {rang} n'est pas signalée" for rang, (textes, essai) in enumerate(epreuves, 1)
               if len(set(manquants(textes, essai)) - absents) != 1]
    for faute in fautes:
        print(faute)
    total = len(tous) + len(MUETS) + len(erreurs) + len(epreuves)
    print(f"{total - len(fautes)} passed, {len(fautes)} failed")
    return bool(fautes)


sys.exit(main())
