"""Runs the end-to-end tests, one class per simulated PC, several PCs side by side: most of the time
goes into the pauses of the loads. Ends with "N passed, N failed". Arguments: names of classes."""

import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ICI = Path(__file__).parent
ENV = {**os.environ, "PYTHONPATH": f"{ICI.parent.parent / 'outils'}:{ICI}", "PYTHONDONTWRITEBYTECODE": "1"}
DE_FRONT = 6


def classes():
    for module in sorted(ICI.glob("essai_*.py")):
        for nom in re.findall(r"^class (\w+)\((?:Cas|Mise_En_Page|Defauts_\w+)\)", module.read_text("utf-8"), re.M):
            if len(sys.argv) == 1 or nom in sys.argv[1:]:
                yield f"{module.stem}.{nom}"


def executer(classe):
    fini = subprocess.run([sys.executable, "-m", "unittest", "-v", classe],
                          env=ENV, cwd=ICI, capture_output=True, text=True, check=False)
    print(fini.stdout + fini.stderr, flush=True)
    executes = int(re.search(r"^Ran (\d+) test", fini.stderr, re.M)[1])
    echecs = len(re.findall(r"^(?:ERROR|FAIL): ", fini.stderr, re.M))
    return max(0, executes - echecs), max(echecs, int(fini.returncode != 0))


with ThreadPoolExecutor(DE_FRONT) as equipe:
    resultats = list(equipe.map(executer, classes()))
reussis, echecs = (sum(colonne) for colonne in zip(*resultats))
print(f"{reussis} passed, {echecs} failed")
sys.exit(echecs != 0)
