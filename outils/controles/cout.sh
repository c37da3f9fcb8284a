#!/bin/bash
# What the program may not come to cost: ratios of instruction counts, which no other load of the
# machine disturbs, and the size of its file. Last line: "N passed, N failed".
set -eu
cd "$(dirname "$0")/../.."
dossier=$PWD/build/mesures passes=0 echecs=0
outils/installer.sh natif mesures
{ cmake --preset mesures && cmake --build --preset mesures --target mesures; } >"$dossier.log" 2>&1 || {
  tail -n 40 "$dossier.log"
  exit 1
}

# compter FILTRE: runs each of these benchmarks once. instructions FONCTION: what that run spent in it.
compter() {
  TMPDIR=$dossier valgrind --tool=callgrind --callgrind-out-file="$dossier/comptes.out" \
    "$dossier/mesures/mesures" --benchmark_filter="$1" --benchmark_min_time=0.000000001 >/dev/null 2>&1
  callgrind_annotate --inclusive=yes --threshold=100 "$dossier/comptes.out" >"$dossier/comptes.txt"
}
instructions() {
  awk -v nom="$1" 'index($0, nom "(") && !/_Function_handler/ { gsub(",", ""); print $1; exit }' "$dossier/comptes.txt"
}

# juger TITRE NUMERATEUR DENOMINATEUR AU_PLUS
juger() {
  if awk -v a="$2" -v b="$3" -v m="$4" 'BEGIN { exit !(a > 0 && b > 0 && a / b <= m) }'; then
    passes=$((passes + 1))
  else
    echecs=$((echecs + 1))
  fi
  awk -v t="$1" -v a="$2" -v b="$3" -v m="$4" \
    'BEGIN { printf "%-58s %6.2f, at most %s\n", t, (b > 0 ? a / b : 0), m }'
}

compter 'Transfert|Boucle_Nue'
nue=$(instructions Envoi_Nu)
juger "a block, first family, beside the bare loop" "$(instructions ::Telecharger_Fichier)" "$nue" 5
juger "a block, second family, beside the bare loop" "$(instructions ::Charger_Fichier)" "$nue" 6
compter '(Catalogue|Enumeration_Nue)/100$'
cent=$(instructions Lecture_Repertoire)
compter '(Catalogue|Enumeration_Nue)/1000$'
mille=$(instructions Lecture_Repertoire)
juger "a catalogue of 1 000 files, beside one of 100" "$mille" "$cent" 10.5
juger "a catalogue, beside the bare enumeration" "$mille" "$(instructions Deux_Passages)" 12
for programme in build/windows/Pavorin.exe build/windows64/Pavorin.exe; do
  if [ -e "$programme" ]; then juger "$programme, in MB" "$(stat -c %s "$programme")" 1000000 1; fi
done
echo "$passes passed, $echecs failed"
[ $echecs = 0 ]
