#!/bin/bash
# Every fuzz target on its corpus, then on its own for 30 seconds, two at a time. Last line:
# "N passed, N failed", one case a target. PAVORIN_FUZZ_SECONDES=3600 for a long run.
set -u
cd "$(dirname "$0")/../.."
outils/installer.sh natif controles || exit 1
{ cmake --preset fuzz && cmake --build --preset fuzz; } >build/fuzz.log 2>&1 || {
  tail -n 40 build/fuzz.log
  exit 1
}
export secondes=${PAVORIN_FUZZ_SECONDES:-30}

# eprouver CIBLE: what the fuzzer finds stays in build/fuzz/trouve/CIBLE.
eprouver() {
  local cible=$1 trouve=build/fuzz/trouve/$1
  mkdir -p "$trouve"
  if build/fuzz/fuzz/fuzz_"$cible" -runs=0 fuzz/corpus/"$cible" &&
    build/fuzz/fuzz/fuzz_"$cible" -max_total_time="$secondes" -timeout=20 -max_len=400 \
      -artifact_prefix="$trouve/defaut-" "$trouve" fuzz/corpus/"$cible"; then
    echo "$cible : $(ls fuzz/corpus/"$cible" | wc -l) exemples, $(sed -n 's/^#\([0-9]*\)\tDONE.*/\1/p' "$trouve.log" | tail -1) cas"
  else
    echo "ECHEC $cible : $trouve.log"
    tail -n 20 "$trouve.log"
  fi
}
export -f eprouver

cibles=$(ls fuzz/corpus)
mkdir -p build/fuzz/trouve
resultats=$(echo "$cibles" | xargs -P 2 -I{} bash -c 'eprouver {} 2>build/fuzz/trouve/{}.log')
echo "$resultats"
echecs=$(grep -c '^ECHEC' <<<"$resultats")
echo "$(($(wc -w <<<"$cibles") - echecs)) passed, $echecs failed"
[ "$echecs" = 0 ]
