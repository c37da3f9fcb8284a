#!/bin/bash
# Runs a Windows program on a Windows PC of its own, and ends with its exit code: a Wine prefix and a
# virtual display taken from a pool, since the focus and the program's single instance belong to a
# session. Several may run at once; a PC is cleaned before it is used and leaves no process behind.
#   outils/wine.sh PROGRAM ARGUMENTS...
# Asked for through the environment:
#   PAVORIN_DPI=144       pixels per inch, 96 by default
#   PAVORIN_POLICE=non    a PC without Arial Narrow
#   PAVORIN_ECRAN=reel    the operator's own display, when there is one
# Told to the program the same way, as Unix paths:
#   PAVORIN_PREFIXE       the prefix: drive_c is C:, "serie" the file or link behind COM1
#   PAVORIN_LECTEUR_SERIE the simulated serial reader, a native program
set -eu
racine=$(cd "$(dirname "$0")/.." && pwd)
place=$racine/build/wine
taille=1920x1200
mkdir -p "$place"
langue=$racine/build/locale
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=d"
export PAVORIN_LECTEUR_SERIE=$racine/build/natif/simulateur/lecteur_serie

# The program tells by its header, "PE" and the machine, which Wine it needs; a batch file by those beside it.
modele=$1
[[ $1 != *.cmd ]] || modele=${1%/*}/programmes/Pavorin.exe
entete=$(od -An -tu4 -j60 -N4 "$modele")
wine=(env LC_ALL=fr_FR.UTF-8 LANG=fr_FR.UTF-8 LOCPATH="$langue" wine)
WINEARCH=win32
if [ "$(od -An -tx2 -j$((entete + 4)) -N2 "$modele")" = " 8664" ]; then
  WINEARCH=win64
  if [ -x /usr/lib/wine/wine64 ]; then
    wine[-1]=/usr/lib/wine/wine64
    export WINELOADER=${wine[-1]}
  fi
fi
export WINEARCH

# vider PREFIXE: ends every process that runs there, and no other.
vider() {
  local restes
  WINEPREFIX=$1 wineserver -k && WINEPREFIX=$1 wineserver -w || true
  restes=$(grep -lszx "PAVORIN_PREFIXE=$1" /proc/[0-9]*/environ | cut -d/ -f3 | grep -vx $$ || true)
  kill -9 $restes 2>/dev/null || true
}

# The first free place of the pool. Only this script holds it: what a killed one left is ended here.
prendre_place() {
  local n=0
  while exec 9>"$place/poste$n.verrou" && ! flock -n 9; do n=$((n + 1)); done
  export PAVORIN_PREFIXE=$place/poste$n WINEPREFIX=$place/poste$n
  vider "$WINEPREFIX"
  trap 'vider "$WINEPREFIX"' EXIT
  trap 'exit 143' TERM INT HUP
}

ouvrir_ecran() {
  local numero
  if [ "${PAVORIN_ECRAN:-}" = reel ] && [ -n "${DISPLAY:-}" ]; then return; fi
  PAVORIN_ECRAN=virtuel
  coproc ECRAN { exec 9>&- Xvfb -displayfd 1 -screen 0 ${taille}x24 -nolisten tcp 2>/dev/null; }
  read -r numero <&"${ECRAN[0]}"
  export DISPLAY=:$numero
}

# The system's locale may not be installed: it is compiled beside the build, without rights. The glyphs
# of the caption buttons are looked for in the prefix alone.
faire_base() {
  if [ -e "$1/pret" ]; then return; fi
  mkdir -p "$langue" && rm -rf "$1"
  [ -e "$langue/fr_FR.UTF-8" ] || localedef -i fr_FR -f UTF-8 "$langue/fr_FR.UTF-8" 2>/dev/null || true
  WINEPREFIX=$1 "${wine[@]}" wineboot -i >/dev/null 2>&1
  WINEPREFIX=$1 wineserver -w
  cp /usr/share/wine/fonts/marlett.ttf "$1/drive_c/windows/Fonts/" || true
  touch "$1/pret"
}

# No server runs: the registry is a text, in which the last value of a key counts.
completer() {
  cp "$WINEPREFIX/$1" "$WINEPREFIX/neuf" && cat >>"$WINEPREFIX/neuf" && mv "$WINEPREFIX/neuf" "$WINEPREFIX/$1"
}

# Hard links: the system files of a prefix, 600 MB of them, are never written again.
faire_poste() {
  local base=$place/base-$WINEARCH
  (flock 8 && faire_base "$base") 8>"$base.verrou" 9>&-
  rm -rf "$WINEPREFIX" && cp -al "$base" "$WINEPREFIX"
  completer system.reg <<FIN_SYSTEME

[Software\\\\Wine\\\\Ports]
"COM1"="$WINEPREFIX/serie"
$([ "${PAVORIN_POLICE:-}" = non ] || printf '%s\n' '[Software\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes]' \
    '"Arial Narrow"="Liberation Sans Narrow"')
FIN_SYSTEME
  completer user.reg <<FIN_OPERATEUR

[Control Panel\\\\Desktop]
"LogPixels"=dword:$(printf %08x "${PAVORIN_DPI:-96}")
$([ "${PAVORIN_ECRAN:-}" = reel ] || printf '%s\n' '[Software\\Wine\\Explorer]' '"Desktop"="Default"' \
    '[Software\\Wine\\Explorer\\Desktops]' "\"Default\"=\"$taille\"")
FIN_OPERATEUR
}

prendre_place
ouvrir_ecran
faire_poste
programme=$1
shift
# Waited for, a signal ends this script at once.
"${wine[@]}" "$programme" "$@" <&0 9>&- &
wait $!
