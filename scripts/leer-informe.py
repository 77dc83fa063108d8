#!/usr/bin/env python3
"""Prints how many tests of a report by CTest (JUnit) or by GoogleTest passed, failed and were skipped."""

import sys
import xml.etree.ElementTree as arbol


def contar(ruta):
    pasadas = falladas = omitidas = 0
    for caso in arbol.parse(ruta).getroot().iter("testcase"):
        estado = caso.get("status")
        if caso.find("failure") is not None or caso.find("error") is not None or estado == "fail":
            falladas += 1
        elif estado in ("notrun", "disabled") or caso.find("skipped") is not None:
            omitidas += 1
        elif estado == "run":
            pasadas += 1
        else:
            falladas += 1
    return pasadas, falladas, omitidas


if __name__ == "__main__":
    try:
        print(*contar(sys.argv[1]))
    except (OSError, arbol.ParseError):
        print(0, 0, 0)
