"""Software files for the demonstration and the tests: right names, contents that can be recognised
in what the reader received. No reader accepts them."""


def contenu(texte, taille):
    """taille bytes, every line different: a block lost, doubled or displaced is seen."""
    lignes = b"".join(f"{texte} {n:06d}\r\n".encode() for n in range(taille // len(texte) + 1))
    return lignes[:taille]


LOGICIELS = {
    "Fexa0300.ing": contenu("NOYAU 03.00", 61440),
    "Fexa0400.ing": contenu("NOYAU 04.00", 122880),
    "ELITER0127.ing": contenu("APPLICATION 01.27", 90112),
    "ELITET0205.ing": contenu("APPLICATION D'ESSAI 02.05", 91000),
    "ELITER0210.ing": contenu("APPLICATION 02.10", 184320),
}
