#!/bin/bash
# What the shipped file itself must show: its imports, its protections, its size. Last line:
# "N passed, N failed".
set -u
cd "$(dirname "$0")/../.."
programme=${1:-build/windows/Pavorin.exe}
[ -e "$programme" ] || programme=build/windows64/Pavorin.exe
passes=0 echecs=0

# verifier TITRE COMMANDE...
verifier() {
  local titre=$1
  shift
  if "$@"; then
    passes=$((passes + 1))
  else
    echecs=$((echecs + 1))
    echo "manque : $titre"
  fi
}

entetes=$(objdump -x "$programme")
permis="advapi32 comctl32 gdi32 kernel32 msvcrt ole32 shell32 user32 uxtheme"
imports_permis() {
  local nom refuses=
  for nom in $(sed -n 's/.*DLL Name: //p' <<<"$entetes" | tr 'A-Z' 'a-z'); do
    grep -qw "${nom%.dll}" <<<"$permis" || refuses="$refuses $nom"
  done
  [ -z "$refuses" ] || { echo "import non prévu :$refuses" && false; }
}
contient() { grep -qE "$1" <<<"$entetes"; }
# Stripped of its symbols, the file still holds the texts of the guards that were linked in.
garde() { grep -qa "$1" "$programme"; }

verifier "imports" imports_permis
verifier "adresse aléatoire" contient 'DYNAMIC_BASE'
verifier "données non exécutables" contient 'NX_COMPAT'
verifier "Windows 7 accepté" contient 'MajorSubsystemVersion\s+6$'
verifier "Windows 7 accepté" contient 'MinorSubsystemVersion\s+1$'
verifier "programme à fenêtres" contient 'Windows GUI'
verifier "pile gardée" garde 'stack smashing detected'
verifier "tampons gardés" garde 'buffer overflow detected'
verifier "assertions de la bibliothèque" garde "Assertion '"
verifier "aucune date" contient 'Time/Date.*(1970|00000000)'
verifier "droits de l'opérateur" garde 'level="asInvoker"'
verifier "moins d'un mégaoctet" [ "$(stat -c %s "$programme")" -lt 1000000 ]
echo "$passes passed, $echecs failed"
[ $echecs = 0 ]
