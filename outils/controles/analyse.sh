#!/bin/bash
# clang-tidy over every source of the program and of the simulated reader, cppcheck over all of them
# together. Last line: "N passed, N failed", one case a file and one for cppcheck.
set -u
cd "$(dirname "$0")/../.."
outils/installer.sh natif windows controles || exit 1
pieces="app catalogue download galss platform serial simulator ui update"
mkdir -p build/journaux
journal=$(mktemp -d build/journaux/analyse.XXXX)
trap 'rm -rf "$journal"' EXIT
[ -e build/natif/compile_commands.json ] || cmake --preset natif >/dev/null || exit 1

# What the Windows build compiles alone is read as the cross compiler reads it.
mingw=$(i686-w64-mingw32-g++-posix -E -x c++ -v /dev/null 2>&1 |
  sed -n '/^#include </,/^End/s/^ \(.*\)/-isystem\1/p' | tr '\n' ' ')
export mingw journal

# examiner FICHIER: silent when it is clean.
examiner() {
  local trace unicode=
  grep -q "$(basename "$1")" platform/windows/fenetrage.cmake && unicode=-DUNICODE
  trace=$journal/$(tr / _ <<<"$1").txt
  if grep -q "/$1\"" build/natif/compile_commands.json; then
    clang-tidy -p build/natif --quiet "$1" >"$trace" 2>/dev/null
  else
    clang-tidy --quiet "$1" -- --target=i686-w64-mingw32 -nostdinc -nostdinc++ $mingw -std=c++20 -I. \
      -D_WIN32_WINNT=0x0601 -DWINVER=0x0601 -DWIN32_LEAN_AND_MEAN -DNOMINMAX $unicode >"$trace" 2>/dev/null
  fi && return
  grep -E 'error|warning' "$trace" | sed "s|$PWD/||"
  echo "$1" >>"$journal/echecs"
}
export -f examiner

touch "$journal/echecs"
mapfile -t fichiers < <(git ls-files $pieces | grep '\.cpp$')
printf '%s\n' "${fichiers[@]}" | xargs -P "$(nproc)" -I{} bash -c 'examiner {}'
echecs=$(wc -l <"$journal/echecs")

# cppcheck knows no accented identifiers: it reads a copy without them.
git ls-files $pieces Variables_Globales.h | grep -E '\.(cpp|h)$' | xargs cp --parents -t "$journal"
grep -rlE 'Lbl[A-Za-z]*é' "$journal" | xargs -r sed -i -E '/Lbl/s/(Lbl[A-Za-z]*)é/\1e/g'
(cd "$journal" && cppcheck --quiet --std=c++20 --language=c++ --enable=warning,performance,portability \
  -I. -j"$(nproc)" --suppress=missingInclude --inline-suppr --error-exitcode=1 $pieces) ||
  echecs=$((echecs + 1))
echo "$((${#fichiers[@]} + 1 - echecs)) passed, $echecs failed"
[ "$echecs" = 0 ]
