#!/bin/bash
# The archives, for operators and for testers: twice the same bytes, their content complete, the programs
# in them those that were built, signed when a certificate is given, and a training update that works.
set -u
cd "$(dirname "$0")/../.."
lieu=build/paquet
rm -rf $lieu && mkdir -p $lieu
passes=0 echecs=0
archive=Pavorin-$(sed -n 's/^project(Pavorin VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt).zip
verification=${archive%.zip}-verification.zip

verifier() {
  local titre=$1
  shift
  if "$@" >$lieu/sortie 2>&1; then passes=$((passes + 1)); else
    echecs=$((echecs + 1))
    echo "ÉCHEC : $titre"
    tail -n 20 $lieu/sortie
  fi
}

contenu() {
  diff - <(unzip -Z1 $lieu/1/$archive | sed 's|scenarios/.*|scenarios/|; s|[^/]*\.ing$|*.ing|' | sort -u) <<'FIN'
Guide.html
Guide.pdf
Nouveautes.txt
Pavorin.exe
simulateur/Galclw32.dll
simulateur/LISEZMOI.txt
simulateur/fichiers/*.ing
simulateur/scenarios/
FIN
}

contenu_verification() {
  diff - <(unzip -Z1 $lieu/1/$verification | sed 's|scenarios/.*|scenarios/|' | sort -u) <<'FIN' &&
Lisez-moi.txt
Treize-points.txt
programmes/Pavorin.exe
programmes/Pavorin_Garde.exe
programmes/bouchon/Galclw32.dll
programmes/bouchon/compagnon.dll
programmes/bout_en_bout_test.exe
programmes/decore/Galclw32.dll
programmes/fenetres_windows_test.exe
programmes/plateforme_windows_test.exe
programmes/simulateur/Galclw32.dll
programmes/simulateur/scenarios/
verifier.cmd
FIN
    unzip -q -o $lieu/1/$verification -d $lieu/verification &&
    cmp $lieu/verification/programmes/Pavorin.exe build/windows/Pavorin.exe &&
    [ "$(grep -c $'\r$' $lieu/verification/verifier.cmd)" = "$(wc -l <tests/windows/verifier.cmd)" ] &&
    ! LC_ALL=C grep -n '[^ -~]' tests/windows/verifier.cmd
}

identiques() {
  unzip -q -o $lieu/1/$archive -d $lieu/ouvert &&
    cmp $lieu/ouvert/Pavorin.exe build/windows/Pavorin.exe &&
    cmp $lieu/ouvert/simulateur/Galclw32.dll build/windows/simulateur/Galclw32.dll
}

# The date that a linker puts after "PE", 8 bytes from it.
sans_date() {
  local debut
  debut=$(od -An -tu4 -j60 -N4 "$1")
  [ "$(od -An -tu4 -j$((debut + 8)) -N4 "$1" | tr -d ' ')" = 0 ]
}

images_du_guide() {
  local attendues
  attendues=$(grep -c '^!\[' docs/guide.md)
  [ "$(grep -o 'src="data:image/png' $lieu/ouvert/Guide.html | wc -l)" = "$attendues" ]
}

signature() {
  openssl req -x509 -newkey rsa:2048 -nodes -subj /CN=Essai -days 2 -keyout $lieu/cle -out $lieu/cert &&
    openssl pkcs12 -export -inkey $lieu/cle -in $lieu/cert -passout pass:essai -out $lieu/essai.p12 &&
    PAVORIN_CERTIFICAT=$lieu/essai.p12 PAVORIN_MOT_DE_PASSE=essai ./package $lieu/signe &&
    unzip -q -o $lieu/signe/$archive Pavorin.exe -d $lieu/signe &&
    osslsigncode verify -CAfile $lieu/cert -in $lieu/signe/Pavorin.exe | grep -q 'CN *= *Essai'
}

essai() {
  cmake --build --preset windows --target bout_en_bout_test &&
    PAVORIN_PAQUET="Z:$PWD/$lieu/ouvert" outils/wine.sh build/windows/bout_en_bout_test.exe --gtest_filter='*Entrainement' |
    tee /dev/stderr | grep -q 'PASSED  ] 1 test'
}

# Another hour, another place in the world, other rights on new files.
ailleurs() { (umask 077 && TZ=Asia/Tokyo LANG=fr_FR.UTF-8 ./package $lieu/2); }

verifier "première archive" ./package $lieu/1
verifier "seconde archive" ailleurs
verifier "deux fois les mêmes octets" cmp $lieu/1/$archive $lieu/2/$archive
verifier "deux fois la même vérification" cmp $lieu/1/$verification $lieu/2/$verification
verifier "contenu" contenu
verifier "contenu de la vérification" contenu_verification
verifier "programmes livrés" identiques
verifier "programme sans date" sans_date build/windows/Pavorin.exe
verifier "bibliothèque sans date" sans_date build/windows/simulateur/Galclw32.dll
verifier "images du guide" images_du_guide
verifier "signature" signature
# The package is for 32 bits: without 32-bit Wine it cannot be tried.
if [ "$(outils/installer.sh)" = windows64 ]; then echo "Paquet non essayé : pas de Wine 32 bits."; else
  verifier "entraînement" essai
fi
echo "$passes passed, $echecs failed"
[ $echecs = 0 ]
