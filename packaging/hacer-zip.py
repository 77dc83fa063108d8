#!/usr/bin/env python3
"""Packs a folder, whose files it holds under a folder named after the archive, in the order of their names and all of
the age of SOURCE_DATE_EPOCH: the same files give the same bytes.

    hacer-zip.py FOLDER ARCHIVE.zip
"""

import os
import sys
import time
import zipfile
from pathlib import Path


def empaquetar(carpeta, archivo):
    fecha = time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))[:6]
    with zipfile.ZipFile(archivo, "w") as zip_:
        for ruta in sorted(carpeta.iterdir()):
            entrada = zipfile.ZipInfo(f"{archivo.stem}/{ruta.name}", fecha)
            entrada.create_system = 0  # no rights of another system are kept
            zip_.writestr(entrada, ruta.read_bytes(), zipfile.ZIP_DEFLATED, 9)


if __name__ == "__main__":
    empaquetar(Path(sys.argv[1]), Path(sys.argv[2]))
