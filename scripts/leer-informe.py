#!/usr/bin/env python3
"""Prints how many tests of a CTest report (JUnit) passed, failed and were skipped."""

import sys
import xml.etree.ElementTree as arbol


def contar(ruta):
    pasadas = falladas = omitidas = 0
    for caso in arbol.parse(ruta).getroot().iter("testcase"):
        estado = caso.get("status")
        if estado == "run":
            pasadas += 1
        elif estado in ("notrun", "disabled") and caso.find("failure") is None and caso.find("error") is None:
            omitidas += 1
        else:
            falladas += 1
    return pasadas, falladas, omitidas


if __name__ == "__main__":
    try:
        print(*contar(sys.argv[1]))
    except (OSError, arbol.ParseError):
        print(0, 0, 0)
