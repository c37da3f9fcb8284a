#!/bin/bash
# Makes the operator's guide, docs/guide.md, into one HTML file and one PDF.
#   outils/guide.sh VERSION DIRECTORY
# The same sources give the same bytes: the caller sets SOURCE_DATE_EPOCH, which dates the PDF.
set -euo pipefail
version=$1 sortie=$(realpath "$2")
cd "$(dirname "$0")/../docs"
travail=$(mktemp -d)
trap 'rm -rf "$travail"' EXIT

# Spaces that must not begin or end a line.
sed -E 's/« /«\xC2\xA0/g; s/ ([»:;!?])($|[] .,)»*|])/\xC2\xA0\1\2/g' guide.md >"$travail/guide.md"
sed "s/attr(data-version)/\"$version\"/" guide.css >"$travail/guide.css"
echo '$toc$' >"$travail/sommaire.html"
{ echo '<nav class="toc">'; pandoc -f gfm --metadata pagetitle=x --toc --template="$travail/sommaire.html" "$travail/guide.md"; echo '</nav>'; } >"$travail/toc"
sed -i -e "/<!-- sommaire -->/{r $travail/toc" -e 'd}' -e "1a\\\n<p class=\"version\">Version $version</p>" "$travail/guide.md"

pandoc -f gfm -t html5 --self-contained --css="$travail/guide.css" --metadata lang=fr \
  --metadata pagetitle="Pavorin $version - Guide de l'opérateur" -o "$sortie/Guide.html" "$travail/guide.md" 2>"$travail/plaintes"
weasyprint -q "$sortie/Guide.html" "$sortie/Guide.pdf" 2>>"$travail/plaintes"
if grep -E 'No anchor|Could not' "$travail/plaintes" >&2; then exit 1; fi
