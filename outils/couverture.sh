#!/bin/bash
# Branches of the portable rooms that the native tests and the fault campaign take, room by room.
# Branches that only an exception takes are left out: the compiler adds one to every call.
# The lines of the missing ones are in build/couverture/lignes.txt; docs/couverture.md explains them.
set -eu
cd "$(dirname "$0")/.."
outils/installer.sh natif couverture
bati=build/couverture
cmake -S . -B $bati -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-g -O0" \
  -DPAVORIN_MUTANTS=ON -DCMAKE_CXX_FLAGS="--coverage" >$bati.log
cmake --build $bati --target pavorin_test campagne >>$bati.log
find $bati -name '*.gcda' -delete
$bati/tests/pavorin_test >>$bati.log
$bati/tests/campagne >>$bati.log
filtres=()
for piece in app catalogue download galss journal logiciel platform serial ui update; do filtres+=(-f "$piece/"); done
gcovr -r . $bati "${filtres[@]}" -e 'windows/' -e app/Pavorin.cpp -e ui/FMain.cpp --exclude-throw-branches \
  --exclude-unreachable-branches --csv "$bati/branches.csv" --branches --txt "$bati/lignes.txt"
awk -F, 'NR > 1 { split($1, p, "/"); b[p[1]] += $5; c[p[1]] += $6; l[p[1]] += $2; m[p[1]] += $3; tb += $5; tc += $6 }
  END { for (r in b) printf "%-10s lines %5.1f %%  branches %4d of %4d  %5.1f %%\n", r, 100 * m[r] / l[r], c[r], b[r], (b[r] ? 100 * c[r] / b[r] : 100)
        printf "%-10s               branches %4d of %4d  %5.1f %%\n", "all", tc, tb, 100 * tc / tb }' "$bati/branches.csv"
