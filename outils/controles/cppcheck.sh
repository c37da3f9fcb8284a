#!/bin/bash
# cppcheck over all the sources together. It knows no accented identifiers: it reads a copy without them.
set -eu
pieces="app catalogue download galss journal logiciel platform serial simulator ui update windows"
copie=$(mktemp -d)
trap 'rm -rf "$copie"' EXIT
git ls-files $pieces Variables_Globales.h | grep -E '\.(cpp|h)$' | xargs cp --parents -t "$copie"
grep -rlE 'Lbl[A-Za-z]*é' "$copie" | xargs -r sed -i -E '/Lbl/s/(Lbl[A-Za-z]*)é/\1e/g'
cd "$copie"
cppcheck --quiet --std=c++20 --language=c++ --enable=warning,performance,portability -I. -j"$(nproc)" \
  --suppress=missingInclude --suppress=normalCheckLevelMaxBranches --inline-suppr --error-exitcode=1 .
