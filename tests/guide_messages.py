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
SUITE = rf"(?:{LITTERAL}\s*)+"
CODE_ET_TEXTE = re.compile(rf"\{{(-?\d+|0x[0-9A-F]+),\s*({SUITE})\}}")


def nu(texte):
    return re.sub(r"\s+", " ", texte.replace("`", "")).strip()


def valeur(suite):
    morceaux = re.findall(LITTERAL, suite)
    return re.sub(r"\\(.)", lambda m: {"n": "\n", "r": "\r", "t": "\t"}.get(m[1], m[1]),
                  "".join(m[1:-1] for m in morceaux))


def sans_code_muet(source):
    source = re.sub(rf"({LITTERAL})|//[^\n]*", lambda m: m[1] or "", source)
    source = re.sub(r"asm volatile\(.*?\);", "", source, flags=re.S)
    return re.sub(r"^\s*(#include|static_assert|extern).*$", "", source, flags=re.M)


def messages(source):
    """Pairs (text, code as the operator reads it, or None)."""
    source = sans_code_muet(source)
    for code, suite in CODE_ET_TEXTE.findall(source):
        yield valeur(suite), f"{int(code, 16):X}" if code.startswith("0x") else code
    for suite in re.findall(SUITE, CODE_ET_TEXTE.sub("", source)):
        yield valeur(suite), None


def a_lire(texte):
    return texte not in MUETS and re.search(r"[^\W\d_]{3}", texte)


def manquants(sources, guide):
    """Messages of the sources, and those that no entry of the guide tells."""
    entrees = [nu(ligne) for ligne in guide.splitlines() if re.match(r"#{2,} |\| ", ligne)]
    # The words that stand inside an entry's own text are told there.
    corps = nu(guide)
    tous = {(t, c) for s in sources for t, c in messages(s) if a_lire(t)}
    absents = set()
    for texte, code in tous:
        if code is not None:
            ligne = f"| {code} | {nu(texte)} |"
            trouve = any(e.startswith(ligne) for e in entrees)
        else:
            trouve = any(nu(texte) in e for e in entrees) or f"« {nu(texte)}" in corps
        if not trouve:
            absents.add((texte, code))
    return tous, absents


def numeros(entete):
    return re.findall(r"^inline constexpr int \w+ = (\d+);", entete, flags=re.M)


def main():
    lus = [f.read_text(encoding="utf-8") for motif in SOURCES for f in sorted(RACINE.glob(motif))]
    guide = (RACINE / "docs/guide.md").read_text(encoding="utf-8")
    tous, absents = manquants(lus, guide)
    fautes = [f"sans entrée dans le guide : {c or ''} {t!r}" for t, c in sorted(absents, key=str)]
    perimes = [m for m in MUETS if not any(m in valeur(s) for f in lus
                                            for s in re.findall(SUITE, sans_code_muet(f)))]
    fautes += [f"texte muet absent des sources : {m!r}" for m in sorted(perimes)]
    erreurs = numeros((RACINE / "platform/Erreur.h").read_text(encoding="utf-8"))
    fautes += [f"numéro d'erreur sans ligne : {n}" for n in erreurs
               if f"\n| {n} | " not in guide.partition("### Les numéros d'erreur")[2]]

    # The check must fire: on a message that the guide does not know, on a code whose line is gone,
    # and on an entry that has lost its title.
    epreuves = [(['Boite("Message que personne ne connaît");'], guide),
                (['{{7, "Problème de mémoire"}}'], guide),
                (lus, guide.replace("### Impossible de télécharger ce type", "Impossible de ce type")),
                (lus, guide.replace("| 1024 | Pas de réponse", "| 1025 | Pas de réponse"))]
    for rang, (sources, texte) in enumerate(epreuves, 1):
        if len(manquants(sources, texte)[1] - absents) != 1:
            fautes.append(f"l'épreuve {rang} n'est pas signalée")
    for faute in fautes:
        print(faute)
    total = len(tous) + len(MUETS) + len(erreurs) + len(epreuves)
    print(f"{total - len(fautes)} passed, {len(fautes)} failed")
    return bool(fautes)


sys.exit(main())
