#!/usr/bin/python3
"""Makes the operator's guide, docs/guide.md, into one HTML file and one PDF.
Usage: guide_pdf.py VERSION DIRECTORY. The same sources give the same bytes: the caller sets
SOURCE_DATE_EPOCH, which dates the fonts inside the PDF."""

import base64
import logging
import pathlib
import re
import sys

import markdown
from markdown.extensions.toc import slugify_unicode
import weasyprint

DOCS = pathlib.Path(__file__).resolve().parent.parent / "docs"
PIXELS_PAR_POUCE = 96 * 1.25  # pictures are screen captures: a little smaller than on the screen

LIGNES_COURTE = 11

PAGE = """<!DOCTYPE html>
<html lang="fr">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Pavorin {version} - Guide de l'opérateur</title>
<style>
{style}
</style>
</head>
<body>
{corps}
</body>
</html>
"""


def largeur_png(contenu):
    return int.from_bytes(contenu[16:20], "big")


def incorporer(image):
    contenu = (DOCS / image["src"]).read_bytes()
    pouces = min(largeur_png(contenu) / PIXELS_PAR_POUCE, 6.8)
    donnees = base64.b64encode(contenu).decode()
    return f'<img alt="{image["alt"]}" style="width:{pouces:.2f}in" src="data:image/png;base64,{donnees}"'


def composer_a_la_francaise(html):
    """Spaces that must not end or begin a line; tables short enough to stay on one page."""
    for avant, apres in (("« ", "«\u00a0"), (" »", "\u00a0»"), (" :", "\u00a0:"), (" ;", "\u00a0;"),
                         (" !", "\u00a0!"), (" ?", "\u00a0?")):
        html = html.replace(avant, apres)
    return re.sub(r"<table>.*?</table>", lambda t: t[0].replace("<table>", '<table class="courte">')
                  if t[0].count("<tr>") <= LIGNES_COURTE else t[0], html, flags=re.S)


def composer(version):
    texte = (DOCS / "guide.md").read_text(encoding="utf-8").replace("<!-- sommaire -->", "[TOC]")
    corps = markdown.markdown(
        texte, extensions=["tables", "toc", "sane_lists"],
        extension_configs={"toc": {"toc_depth": "2-3", "slugify": slugify_unicode}}, output_format="html5")
    corps = composer_a_la_francaise(corps)
    corps = re.sub(r'<img alt="(?P<alt>[^"]*)" src="(?P<src>[^"]*)"', incorporer, corps)
    corps = corps.replace("</h1>", f'</h1>\n<p class="version">Version {version}</p>', 1)
    style = (DOCS / "guide.css").read_text(encoding="utf-8")
    return PAGE.format(version=version, corps=corps,
                       style=style.replace("attr(data-version)", f'"{version}"'))


def main():
    version, sortie = sys.argv[1], pathlib.Path(sys.argv[2])
    html = composer(version)
    plaintes = []
    suivi = logging.Handler()
    suivi.emit = lambda r: plaintes.append(r.getMessage())
    weasyprint.LOGGER.addHandler(suivi)
    (sortie / "Guide.html").write_text(html, encoding="utf-8", newline="\n")
    weasyprint.HTML(string=html).write_pdf(sortie / "Guide.pdf")
    perdus = [p for p in plaintes if "No anchor" in p]
    sys.exit("\n".join(perdus) or 0)


main()
