#!/bin/bash
# Installs what the named groups of the table need and this machine lacks; Debian 12 and 13, and what
# descends from them. Prints the preset of the Windows program used on this machine.
#   outils/installer.sh natif windows
# It is "windows", or "windows64" where 32-bit programs or 32-bit Wine cannot be had: chosen once, kept
# in build/cible, and known to everybody through this script. Remove that file to choose anew.
set -u
cd "$(dirname "$0")/.."
mkdir -p build
journal=build/installation.log

# Group, what it is for, its packages. A package with a question mark is taken where the release has it.
table="
natif      compiler le programme et lancer les tests natifs        : g++ cmake ninja-build libgtest-dev
windows    compiler le programme Windows de 32 bits et l'exécuter  : g++-mingw-w64-i686-posix wine32:i386
windows64  compiler le programme Windows de 64 bits et l'exécuter  : g++-mingw-w64-x86-64-posix wine64
poste      faire un PC Windows sur un écran virtuel                : wine fonts-wine fonts-liberation fonts-liberation-sans-narrow? locales googletest xvfb
mesures    mesurer le programme                                    : libbenchmark-dev valgrind
controles  analyser les sources et chercher des défauts au hasard  : clang clang-tidy cppcheck libclang-rt-dev python3 git
couverture dire quelles branches les tests parcourent              : gcovr
paquet     faire l'archive des opérateurs et son guide             : g++-mingw-w64-i686-posix googletest zip unzip pandoc weasyprint fonts-liberation osslsigncode openssl
"

paquets_de() { sed -n "s/^$1 .* : //p" <<<"$table"; }
usage_de() {
  awk -v p="$1" 'index($0 " ", " " p " ") || index($0, " " p "?") { sub(/^[^ ]+ +/, ""); sub(/ * : .*/, ""); print }' <<<"$table" |
    paste -sd, | sed 's/,/, /g'
}
present() { [ "$(dpkg-query -W -f='${db:Status-Status}\n' "$1" 2>/dev/null | head -1)" = installed ]; }

# manquants GROUPE...
manquants() {
  local paquet
  for paquet in $(for groupe in "$@"; do paquets_de "$groupe"; done); do
    if [[ $paquet == *\? ]] && ! apt-cache show "${paquet%\?}" >/dev/null 2>&1; then continue; fi
    present "${paquet%\?}" || echo "${paquet%\?}"
  done | sort -u
}

administrer() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi >>$journal 2>&1; }

# Where several releases or a late mirror leave two architectures with unequal versions, the release
# that this machine runs decides.
obtenir() {
  local pose="env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends" VERSION_CODENAME=
  . /etc/os-release
  administrer $pose "$@" || administrer $pose -o APT::Default-Release="$VERSION_CODENAME" "$@"
}

a_jour=non
mettre_a_jour() {
  [ $a_jour = non ] || return 0
  a_jour=oui
  administrer dpkg --add-architecture i386
  # One source that does not answer must not stop the others.
  administrer apt-get update || echo "apt-get update : partiel, on continue" >&2
}

# installer GROUPE...: all at once, else whatever can be had, one by one.
installer() {
  local paquet absents
  absents=$(manquants "$@")
  [ -n "$absents" ] || return 0
  mettre_a_jour
  absents=$(manquants "$@")
  echo "Installation de :" $absents >&2
  obtenir $absents && return
  for paquet in $absents; do
    obtenir "$paquet" || echo "Paquet introuvable : $paquet, pour $(usage_de "$paquet") (voir $journal)" >&2
  done
  [ -z "$(manquants "$@")" ]
}

# A program of seven bytes of 32-bit code, which ends with 0: not every kernel runs it.
executer_32_bits() {
  base64 -d >build/essai32 <<<f0VMRgEBAQAAAAAAAAAAAAIAAwABAAAAVIAECDQAAAAAAAAAAAAAADQAIAABAAAAAAAAAAEAAAAAAAAAAIAECACABAhbAAAAWwAAAAUAAAAAEAAAMduNQwHNgA==
  chmod +x build/essai32 && build/essai32 2>>$journal
}

choisir_cible() {
  if executer_32_bits && installer windows; then echo windows >build/cible && return; fi
  echo "PAS DE WINE 32 BITS SUR CETTE MACHINE : tout ce qui suit se fait avec le programme 64 bits, qui n'est PAS celui livré." >&2
  echo windows64 >build/cible
}

groupes=()
for groupe in "$@"; do
  if [ "$groupe" = windows ]; then
    [ -s build/cible ] || choisir_cible
    groupes+=("$(<build/cible)" poste)
  else
    groupes+=("$groupe")
  fi
done
installer ${groupes[@]+"${groupes[@]}"} || exit 1
if [ -s build/cible ]; then cat build/cible; fi
