#!/bin/bash
# What the shipped file itself must show: its imports, its protections, its size.
set -u
programme=$1 manques=0
entetes=$(objdump -x "$programme")

# exiger TITRE COMMANDE...
exiger() {
  if ! "${@:2}"; then
    manques=$((manques + 1))
    echo "manque : $1"
  fi
}
contient() { grep -qE "$1" <<<"$entetes"; }
# Stripped of its symbols, the file still holds the texts of the guards that were linked in.
garde() { grep -qa "$1" "$programme"; }
imports_permis() {
  ! sed -n 's/.*DLL Name: //p' <<<"$entetes" |
    grep -viE '^(advapi32|comctl32|gdi32|kernel32|msvcrt|ole32|shell32|user32)\.dll$'
}

exiger "imports" imports_permis
exiger "adresse aléatoire" contient 'DYNAMIC_BASE'
exiger "bureau à distance" contient 'TERMINAL_SERVICE_AWARE'
exiger "données non exécutables" contient 'NX_COMPAT'
exiger "Windows 7 accepté" contient 'MajorSubsystemVersion\s+6$'
exiger "Windows 7 accepté" contient 'MinorSubsystemVersion\s+1$'
exiger "programme à fenêtres" contient 'Windows GUI'
exiger "pile gardée" garde 'stack smashing detected'
exiger "tampons gardés" garde 'buffer overflow detected'
exiger "assertions de la bibliothèque" garde "Assertion '"
exiger "aucune date" contient 'Time/Date.*(1970|00000000)'
exiger "droits de l'opérateur" garde 'level="asInvoker"'
exiger "moins d'un mégaoctet" [ "$(stat -c %s "$programme")" -lt 1000000 ]
exit $((manques > 0))
