#!/bin/bash
# Installs the Debian packages that a task needs and that are missing. Groups: natif (build and
# native tests), windows (the 32-bit program and Wine), controles (analysis and fuzzing), couverture
# (branch coverage), paquet
# (the archive for operators, its guide in PDF).
# Without 32-bit Wine it leaves build/windows64.choix behind: the 64-bit program is used instead.
set -u
cd "$(dirname "$0")/.."

declare -A groupes=(
  [natif]="g++ cmake ninja-build libgtest-dev python3"
  [windows]="g++-mingw-w64-i686-posix googletest wine wine32:i386 fonts-wine fonts-liberation locales
             xvfb xauth imagemagick xdotool"
  [mesures]="libbenchmark-dev valgrind"
  [couverture]="gcovr"
  [controles]="clang clang-tidy clang-format cppcheck libclang-rt-14-dev"
  [paquet]="zip unzip weasyprint python3-markdown osslsigncode fonts-liberation"
)
paquets_64="g++-mingw-w64-x86-64-posix wine64"
[ "$(id -u)" = 0 ] && administrer=(env) || administrer=(sudo)

manquants() {
  local paquet
  for paquet in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}\n' "$paquet" 2>/dev/null | head -1)" = installed ] ||
      echo "$paquet"
  done
}

installer() {
  "${administrer[@]}" DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends -o APT::Default-Release=bookworm "$@" \
    >>build/installation.log 2>&1
}

mettre_a_jour() {
  "${administrer[@]}" dpkg --add-architecture i386
  # One source that does not answer must not stop the others.
  "${administrer[@]}" apt-get update >>build/installation.log 2>&1 ||
    echo "apt-get update : partiel, on continue" >&2
}

voulus=()
for groupe in "$@"; do
  read -r -d '' -a noms <<<"${groupes[$groupe]}"
  voulus+=("${noms[@]}")
done
mkdir -p build
rm -f build/windows64.choix
a_installer=($(manquants "${voulus[@]}"))
[ ${#a_installer[@]} = 0 ] && exit 0

echo "Installation de : ${a_installer[*]}"
mettre_a_jour
installer "${a_installer[@]}" && exit 0
# All at once failed: whatever can be had, one by one.
for paquet in "${a_installer[@]}"; do installer "$paquet"; done
a_installer=($(manquants "${voulus[@]}"))
if [ "${a_installer[*]}" = wine32:i386 ] && installer $paquets_64; then
  {
    echo "*****************************************************************"
    echo "*  PAS DE WINE 32 BITS SUR CETTE MACHINE : tout ce qui suit se  *"
    echo "*  fait avec le programme 64 bits, qui n'est PAS celui livré.   *"
    echo "*****************************************************************"
  } >&2
  touch build/windows64.choix
  exit 0
fi
[ ${#a_installer[@]} = 0 ] && exit 0
echo "Paquets introuvables : ${a_installer[*]} (voir build/installation.log)" >&2
exit 1
