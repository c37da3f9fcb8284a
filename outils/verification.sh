#!/bin/bash
# Lays out what a tester unzips on a Windows PC: the programs of a build, their tests, and verifier.cmd.
#   outils/verification.sh BUILD DIRECTORY
set -euo pipefail
construit=$1 sortie=$2
cd "$(dirname "$0")/.."
rm -rf "$sortie"
mkdir -p "$sortie/programmes"
cp -r "$construit"/{Pavorin,Pavorin_Garde,{plateforme_windows,fenetres_windows,bout_en_bout}_test}.exe \
  "$construit"/{simulateur,bouchon,decore} "$sortie/programmes/"
for texte in tests/windows/verifier.cmd docs/verification/*.txt; do
  sed 's/$/\r/' "$texte" >"$sortie/${texte##*/}"
done
