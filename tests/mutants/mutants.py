#!/usr/bin/env python3
"""How much the native tests notice: docs/tests.md. Arguments: rooms, or files of them; all without.
Prints each survivor, then each room; last line: "N caught, N survived"."""

import json
import os
import re
import resource
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

RACINE = Path(__file__).resolve().parents[2]
COPIE = RACINE / "build/mutants/sources"
BATI = RACINE / "build/mutants/bati"
ECARTES = RACINE / "build/mutants/ecartes.json"  # what earlier builds found not to compile
PIECES = "app update catalogue galss download serial ui logiciel journal".split()
EXCLUS = ("app/Pavorin.cpp",)  # Windows' own
# The other tests run no line of these rooms.
FILTRE = "--gtest_filter=-Maison.*:Simulateur.*"
MEMOIRE = 2 << 30  # bytes: an endless loop that fills it is caught, not the machine
OUVRANTS, FERMANTS = "([{", ")]}"
DECLARATION = re.compile(r"(const|constexpr|auto|using|static|struct|friend)\b"
                         r"|[\w:]+(<[^;()]*>)?[&*]* [&*]*[\w:]+\s*([=;{(\[]|$)")


def masquer(texte):
    """Comments, strings, characters, preprocessor lines and assertions blanked, every position kept."""
    motif = (r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])+\''
             r"|^#[^\n]*|static_assert\(.*?\);")
    return re.sub(motif, lambda m: re.sub(r"[^\n]", "\x01" if m[0][0] in "\"'" else " ", m[0]), texte,
                  flags=re.S | re.M)


def fermante(m, debut):
    """Place of the bracket that closes the one at debut."""
    pile = 0
    for i in range(debut, len(m)):
        pile += (m[i] in OUVRANTS) - (m[i] in FERMANTS)
        if pile == 0:
            return i
    return len(m)


def instructions(m):
    """Every statement, as (genre, start, end): of the "code", or of the "declarations" around it."""
    pile = [["declarations", 0]]
    for i, c in enumerate(m):
        if c in "([":
            pile.append(["parenthese", i])
        elif c == "{":
            avant = m[pile[-1][1]:i].rstrip()
            if pile[-1][0] != "parenthese" and re.search(r"\b(namespace|class|struct)\b[^()=]*$", avant):
                genre = "declarations"
            else:
                genre = "code" if re.search(r"(\)( const| override)*|\]|\belse|\bdo|\btry|^)$", avant) else "valeurs"
            pile.append([genre, i + 1])
        elif c in FERMANTS:
            pile.pop()
            if c == "}" and not re.match(r"\s*[;,)]", m[i + 1:i + 99]):  # a block, and no value or lambda
                pile[-1][1] = i + 1
        elif c == ";" and pile[-1][0] != "parenthese":
            yield *pile[-1], i + 1
            pile[-1][1] = i + 1


def omission(m, debut, fin):
    """Where a statement that can be left out begins, or none."""
    sous_condition = False
    while True:
        debut += len(m[debut:fin]) - len(m[debut:fin].lstrip())
        tete = re.match(r"(?:else|do|case [^\n]*:|default:)\s|(if|for|while) (?=\()", m[debut:fin])
        if not tete:
            break
        debut += tete.end()
        if tete[1]:
            debut, sous_condition = fermante(m, debut) + 1, True
    texte = m[debut:fin]
    if texte == ";" or texte.startswith("return ") and not sous_condition:
        return None
    if not re.match(r"(return|throw|break|continue)\b", texte) and DECLARATION.match(texte):
        return None
    return debut


def borne(m, i, pas):
    """From i leftwards (pas -1) or rightwards, the end of the operand of a logical operator."""
    pile = 0
    while 0 <= i < len(m):
        c, a, b = m[i], m[i - 1], m[i + 1:i + 2]
        pile += (c in OUVRANTS) - (c in FERMANTS)
        if pile * pas < 0 or pile == 0 and (c in ",;?" or c == ":" and ":" not in (a, b) or c in "&|" and c in (a, b)
                                            or c == "=" and a not in "=!<>" and b != "=" or m[:i + 1][-6:] == "return"):
            return i + 1 if pas < 0 else i
        i += pas
    return i


def conditions(m):
    """Every condition and every operand of a logical operator, as (start, end)."""
    for tete in re.finditer(r"\b(if|while|for) \(", m):
        morceaux = m[tete.end():fermante(m, tete.end() - 1)].split(";")
        if tete[1] != "for":
            yield tete.end(), tete.end() + len(morceaux[0])
        elif len(morceaux) == 3:
            yield tete.end() + len(morceaux[0]) + 1, tete.end() + len(morceaux[0] + morceaux[1]) + 1
    for signe in re.finditer(r" (\?|&&|\|\|)\s", m):
        debut = borne(m, signe.start() - 1, -1)
        while signe[1] == "?" and m[debut - 1] in "&|":  # the whole condition, all its operands
            debut = borne(m, debut - 3, -1)
        yield debut, signe.start()
        if signe[1] != "?":
            yield signe.end(), borne(m, signe.end(), 1)


def mutations(m):
    """(start, end, kind, edits) of each; an edit is (start, end, text), "@" standing for the number."""
    membres = [(a, b) for genre, a, b in instructions(m)
               if genre == "declarations" and not re.search(r"\bconst(expr)?\b|\(", m[a:b])]
    for genre, debut, fin in instructions(m):
        place = omission(m, debut, fin) if genre == "code" else None
        if place is not None:
            yield place, fin, "left out", [(place, place, "if (!Mutant(@)) ")]
    for debut, fin in set((f - len(m[d:f].lstrip()), d + len(m[d:f].rstrip())) for d, f in conditions(m)):
        texte = m[debut:fin]
        # A single == or != is turned round below.
        seul = re.search(r" [=!]=\s", texte) and not re.search(r"&&|\|\|| \? |[()]", texte)
        if texte and not seul and not re.search(r"\w = ", texte):
            yield debut, fin, "turned round", [(debut, debut, "(Mutant(@) != bool("), (fin, fin, "))")]
    for signe in re.finditer(r"(?<= )(<=?|>=?|==|!=)(?=\s)", m):
        s, (debut, fin) = signe[0], signe.span()
        lettre, suite = {"<=": "l", ">=": "g"}.get(s, s[0]), ">" if s[0] in "<>" else s
        yield debut, fin, "moved", [(debut, fin, f"{s} Compare<'{lettre}'>{{@}} {suite}")]
    for nombre in re.finditer(r"(?<![\w.'\x01])(0[xX][0-9A-Fa-f]+|\d[\d']*)(?![\w.'\x01>])", m):
        debut, fin = nombre.span()
        pure = re.search(r"\)( const)? = $", m[:debut][-12:])
        # Only a reading before it is set would show a member's first value.
        premiere = re.search(r"(?<![.\w])\w+ = $", m[:debut][-40:]) and any(a <= debut < b for a, b in membres)
        if not pure and not (premiere and nombre[0] in "01"):
            yield debut, fin, "moved", [(debut, fin, f"({nombre[0]} + Mutant(@))")]


def calculer_a_l_execution(texte):
    """Without what the compiler would compute, and so never ask for."""
    def remplacer(mot):
        if mot[4] == "(":
            return (mot[1] or "inline ") + (mot[2] or "") + mot[3] + mot[4]
        return {"static ": "static inline ", "inline ": "inline "}.get(mot[1], "") + "const " + mot[3] + mot[4]
    texte = re.sub(r"static_assert\(.*?\);", lambda a: "\n" * a[0].count("\n"), texte, flags=re.S)
    return re.sub(r"\b(inline |static )?constexpr (const )?([^;={(]*)([={(])", remplacer, texte)


def muter(chemin, base, ecartes):
    """The mutated text of a file, and what each number in it is: (file, line, kind, text, key)."""
    texte = (RACINE / chemin).read_text()
    m = masquer(texte)
    retouches, liste, rangs = [], {}, {}
    for debut, fin, sorte, edits in sorted(mutations(m)):
        ligne = texte.count("\n", 0, debut)
        cle = f"{chemin}|{texte.splitlines()[ligne].strip()}|{sorte}"
        rangs[cle] = rangs.get(cle, 0) + 1
        cle += f"|{rangs[cle]}"
        if cle not in ecartes:
            numero = base + len(liste) + 1
            liste[numero] = (chemin, ligne + 1, sorte, " ".join(texte[debut:fin].split()), cle)
            retouches += [(a, b, t.replace("@", str(numero))) for a, b, t in edits]
    sortie, place = "", 0
    for a, b, t in sorted(retouches, key=lambda r: (r[0], r[1] > r[0])):
        sortie += texte[place:a] + t
        place = b
    return calculer_a_l_execution(sortie + texte[place:]), liste


def copier(ecartes):
    """The whole project, mutated where it is to be, with what each number is."""
    noms = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=RACINE, check=True,
                          stdout=subprocess.PIPE, text=True).stdout.split("\n")
    toutes, base = {}, 0
    for nom in sorted(n for n in noms if (RACINE / n).is_file()):
        contenu = (RACINE / nom).read_bytes()
        if nom.split("/")[0] in PIECES and nom.endswith((".cpp", ".h")) and nom not in EXCLUS:
            texte, liste = muter(nom, base, ecartes)
            contenu = texte.encode()
            toutes.update(liste)
            base += 1000
        but = COPIE / nom
        if not but.exists() or but.read_bytes() != contenu:
            but.parent.mkdir(parents=True, exist_ok=True)
            but.write_bytes(contenu)
    return toutes


def construire():
    options = f"-w -Wno-narrowing -fmax-errors=5 -include {COPIE}/tests/mutants/Mutant.h"
    subprocess.run(["cmake", "-S", COPIE, "-B", BATI, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DPAVORIN_MUTANTS=ON",
                    "-DCMAKE_CXX_FLAGS_DEBUG=-O1", f"-DCMAKE_CXX_FLAGS={options}"], check=True, stdout=subprocess.DEVNULL)
    return subprocess.run(["nice", "cmake", "--build", BATI, "-j2", "--target", "pavorin_test", "--", "-k", "0"],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)


def preparer():
    """Builds until all that is left compiles. The mutations, and how many were given up."""
    ecartes = set(json.loads(ECARTES.read_text())) if ECARTES.exists() else set()
    while True:
        toutes = copier(ecartes)
        bati = construire()
        if bati.returncode == 0:
            return toutes, len(ecartes)
        lignes = {(os.path.relpath(BATI / chemin, COPIE), int(ligne))
                  for chemin, ligne, message in re.findall(r"([^\s:]+):(\d+):\d+:\s+(.*)", bati.stdout)
                  if message.startswith(("error", "required from")) or " was not " in message}
        nouveaux = {t[4] for t in toutes.values() if t[:2] in lignes}
        if not nouveaux:
            sys.exit(bati.stdout[-4000:] + "\nthe mutated copy does not build")
        ecartes |= nouveaux
        ECARTES.write_text(json.dumps(sorted(ecartes)))


def limiter():
    os.nice(10)
    resource.setrlimit(resource.RLIMIT_AS, (MEMOIRE, MEMOIRE))


def passe(numero, delai):
    """Whether the tests pass well within that many seconds."""
    essai = subprocess.Popen([BATI / "tests/pavorin_test", "--gtest_fail_fast", FILTRE], preexec_fn=limiter,
                             env={**os.environ, "MUTANT": str(numero)}, stdout=subprocess.DEVNULL,
                             stderr=subprocess.DEVNULL)
    try:
        return essai.wait(delai) == 0
    except subprocess.TimeoutExpired:
        essai.kill()
        return essai.wait() == 0


def main():
    pieces = tuple(sys.argv[1:]) or ("",)
    toutes, ecartes = preparer()
    numeros = [n for n, t in toutes.items() if t[0].startswith(pieces)]
    debut = time.monotonic()
    if not passe(0, 300):
        sys.exit("the tests fail without any mutation")
    delai = 10 + 10 * (time.monotonic() - debut)
    with ThreadPoolExecutor(os.cpu_count()) as equipe:
        survivants = [n for n, survit in zip(numeros, equipe.map(lambda n: passe(n, delai), numeros)) if survit]
    for n in survivants:
        print("%s:%d: %s: %s  (%d)" % (*toutes[n][:4], n))
    for piece in sorted({toutes[n][0].split("/")[0] for n in numeros}):
        restants, tous = ([n for n in choix if toutes[n][0].startswith(piece + "/")] for choix in (survivants, numeros))
        print(f"{piece}: {len(tous) - len(restants)} of {len(tous)}")
    print(f"{ecartes} do not compile; {time.monotonic() - debut:.0f} s")
    print(f"{len(numeros) - len(survivants)} caught, {len(survivants)} survived")


if __name__ == "__main__":
    main()
