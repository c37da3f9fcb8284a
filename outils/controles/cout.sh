#!/bin/bash
# What the program may not come to cost: ratios of instruction counts, which no other load of the
# machine disturbs. Argument: the program of the benchmarks.
set -eu
mesures=$1 depasses=0
cd "$(dirname "$mesures")"

# compter FILTRE: runs each of these benchmarks once. instructions FONCTION: what that run spent in it.
compter() {
  TMPDIR=$PWD valgrind --tool=callgrind --callgrind-out-file=comptes.out "$mesures" \
    --benchmark_filter="$1" --benchmark_min_time=0.000000001 >/dev/null 2>&1
  callgrind_annotate --inclusive=yes --threshold=100 comptes.out >comptes.txt
}
instructions() {
  awk -v nom="$1" 'index($0, nom "(") && !/_Function_handler/ { gsub(",", ""); print $1; exit }' comptes.txt
}

# juger TITRE NUMERATEUR DENOMINATEUR AU_PLUS
juger() {
  awk -v t="$1" -v a="$2" -v b="$3" -v m="$4" 'BEGIN {
    printf "%-50s %6.2f, at most %s\n", t, (b > 0 ? a / b : 0), m
    exit !(a > 0 && b > 0 && a / b <= m) }' || depasses=$((depasses + 1))
}

for famille in 0 1; do
  compter "Transfert/chargement:$famille|Boucle_Nue"
  juger "blocks of family $((famille + 1)), beside the bare loop" "$(instructions ::Envoyer_Blocs)" "$(instructions Envoi_Nu)" 2.5
done
compter '(Catalogue|Enumeration_Nue)/100$'
cent=$(instructions Lecture::Chercher)
compter '(Catalogue|Enumeration_Nue)/1000$'
mille=$(instructions Lecture::Chercher)
juger "a catalogue of 1 000 files, beside one of 100" "$mille" "$cent" 10.5
juger "a catalogue, beside the bare enumeration" "$mille" "$(instructions Deux_Passages)" 8.5
exit $((depasses > 0))
