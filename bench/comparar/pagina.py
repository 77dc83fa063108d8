#!/usr/bin/env python3
# Writes the page from the figures that medir.py left, into the text of pagina.md, and says which limits were met; ends
# with 1 where one was not.
#   pagina.py SORVANEL.EXE PAGE FIGURES...
import json
import math
import os
import pathlib
import re
import statistics
import string
import subprocess
import sys

EJECUTABLE, PAGINA = sys.argv[1:3]
MEDIDAS = [una for archivo in sys.argv[3:] for una in json.loads(pathlib.Path(archivo).read_text(encoding="utf-8"))]
NOMBRES = {"sorvanel": "Sorvanel", "desnudo": "bare program", "tk": "Python with Tk", "kiosco": "browser kiosk"}
ESCENAS = {"uno": "1 display, 1280 x 800", "ocho": "8 displays, 1280 x 800", "todos": "64 displays, 1280 x 800",
           "grande": "1 display, 3840 x 2160", "compartido": "64 displays, shared link"}
RITMOS = ("10", "50")


def serie(escena, par, que):
    return [que(una) for una in MEDIDAS if una["escena"] == escena and una["par"] == par]


def entre(unas, otras):
    """Round by round: so what slows the machine for a while slows both."""
    return [a / b for a, b in zip(unas, otras, strict=True)]


def razones(escena, par, otro, que):
    return entre(serie(escena, par, que), serie(escena, otro, que))


def cifra(valor):
    return f"{valor:.0f}" if abs(valor) >= 100 else f"{valor:.3g}" if abs(valor) >= 1 else f"{valor:.2f}"


def abanico(valores, unidad=""):
    return f"{cifra(statistics.median(valores))}{unidad} ({cifra(min(valores))} .. {cifra(max(valores))})"


def gasto(ritmo, *grupos):
    return lambda una: sum(una["cpu"][ritmo][grupo] for grupo in grupos)


def arranque(cual):
    return lambda una: una["arranque"][cual]


def tabla(cabeza, filas):
    lineas = [cabeza, ["---"] * len(cabeza), *filas]
    return "\n".join("| " + " | ".join(map(str, linea)) + " |" for linea in lineas)


def multiplos(filas):
    """Of (name, scene, figure, unit): Sorvanel's own figure, and how many times that the peers' are."""
    return tabla(["", "Sorvanel", "bare program", "Python with Tk", "browser kiosk"],
                 [[nombre, f"1 = {cifra(statistics.median(serie(escena, 'sorvanel', que)))} {unidad}"] +
                  [abanico(razones(escena, par, "sorvanel", que)) if serie(escena, par, que) else "-"
                   for par in list(NOMBRES)[1:]] for nombre, escena, que, unidad in filas])


def tardanzas(escena, par, ritmo):
    """Median and 95 % of each round. What never came to be seen took for ever."""
    vueltas = [sorted(una["ms"] + [math.inf] * una["sin_ver"]) for una in serie(escena, par, lambda u: u["tardanza"][ritmo])]
    centil = lambda parte: [una[math.ceil(len(una) * parte) - 1] for una in vueltas]
    return centil(.5), centil(.95)


def parejas(escenas, ritmos=RITMOS):
    return [(f"{ESCENAS[e]}, {r}/s", e, r) for e in escenas for r in ritmos]


def tabla_tardanza():
    filas = []
    for nombre, escena, ritmo in parejas(ESCENAS):
        fila = [nombre]
        for par in NOMBRES:
            medianas, altas = tardanzas(escena, par, ritmo)
            fila.append(f"{cifra(statistics.median(medianas))} / {abanico(altas)}" if altas else "-")
        filas.append(fila)
    return tabla(["ms, median / 95 %", *NOMBRES.values()], filas)


def tabla_absoluta():
    filas = []
    for nombre, escena, ritmo in parejas(("ocho", "todos", "grande", "compartido")):
        for par in NOMBRES:
            if serie(escena, par, len):
                filas.append([nombre, NOMBRES[par]] + [abanico(serie(escena, par, gasto(ritmo, grupo))) if grupo != "wine" or
                              par in ("sorvanel", "desnudo") else "-" for grupo in ("propio", "wine", "x")])
    return tabla(["", "", "its own processes, s", "Wine's server and services, s", "X server, s"], filas)


def tabla_perdidas():
    return tabla(["", "datagrams thrown away", "displays without the last reading"],
                 [[f"{ESCENAS[e]}: {NOMBRES[p]}", max(serie(e, p, lambda u: u["inunda"][0])) if e == "todos" else "-",
                   max(serie(e, p, lambda u: u["inunda"][1]))]
                  for e in ("todos", "compartido") for p in NOMBRES if serie(e, p, len)])


def instalado(*nombres):
    """Megabytes of packages and all that they depend on, without what every Debian has."""
    texto = subprocess.run(["dpkg-query", "-W", "-f=${Package}\t${Installed-Size}\t${Priority}\t${Provides}\t"
                            "${Pre-Depends},${Depends}\n"], capture_output=True, text=True, check=True).stdout
    paquetes, de_quien = {}, {}
    for linea in texto.splitlines():
        nombre, tamano, prioridad, ofrece, pide = linea.split("\t")
        paquetes[nombre] = (int(tamano or 0), prioridad in ("required", "important"), pide)
        for uno in [nombre, *re.findall(r"[a-z0-9][a-z0-9+.-]+(?![^(]*\))", ofrece)]:
            de_quien.setdefault(uno, nombre)
    hechos, cola = set(), list(nombres)
    while cola:
        nombre = cola.pop()
        if nombre in hechos or paquetes[nombre][1]:
            continue
        hechos.add(nombre)
        for opciones in paquetes[nombre][2].split(","):
            hay = [de_quien[o] for o in re.findall(r"(?:^|\|)\s*([a-z0-9+.-]+)", opciones) if o in de_quien]
            cola += hay[:1]
    return sum(paquetes[uno][0] for uno in hechos) / 1024


def tamanos():
    aqui = pathlib.Path(__file__).parent
    propio = lambda *archivos: sum((aqui / uno).stat().st_size for uno in archivos) / 1024
    return tabla(["", "its own", "what it needs besides"], [
        ["Sorvanel", f"{os.path.getsize(EJECUTABLE) / 2**20:.2f} MB", "Windows; here, standing for it, Wine: "
         f"{instalado('wine', 'wine64'):.0f} MB"],
        ["Python with Tk", f"{propio('conTk.py'):.1f} KB", f"{instalado('python3-tk', 'fonts-liberation'):.0f} MB"],
        ["browser kiosk", f"{propio('kiosco.py', 'kiosco.html'):.1f} KB",
         f"{instalado('chromium', 'python3', 'fonts-liberation'):.0f} MB"]])


def limites():
    """(what, measured, whether it is met)"""
    mediana = lambda *que: statistics.median(razones(*que))
    alguna = lambda texto, valor, limite, mas=False: (
        f"{texto}: {cifra(valor)}, {'at least' if mas else 'at most'} {limite}",
        valor >= limite if mas else valor <= limite)
    todo = {ritmo: gasto(ritmo, "propio", "wine") for ritmo in RITMOS}
    salida = [alguna(f"processor at {r}/s, own ports, over the bare program's", mediana("todos", "sorvanel", "desnudo",
              todo[r]), 0.9) for r in RITMOS]
    salida += [alguna(f"processor at {r}/s, shared link, over the bare program's", mediana("compartido", "sorvanel",
               "desnudo", todo[r]), 1.5) for r in RITMOS]
    # Those run natively: what Wine's server takes, which on Windows is part of the system, is told beside.
    salida += [alguna(f"processor at 10/s, {NOMBRES[p]} over Sorvanel, their own processes (with Wine's server "
                      f"{cifra(mediana('todos', p, 'sorvanel', todo['10']))})",
                      mediana("todos", p, "sorvanel", gasto("10", "propio")), n, True)
               for p, n in (("kiosco", 10), ("tk", 2))]
    salida += [alguna(f"latency at 95 %, {nombre}, ms", statistics.median(tardanzas(e, "sorvanel", r)[1]), 16)
               for nombre, e, r in parejas(ESCENAS)]
    salida += [alguna(f"latency at the median, {nombre}, ms", statistics.median(tardanzas(e, "sorvanel", r)[0]), 2)
               for nombre, e, r in parejas(("uno", "grande"))]
    for texto, escena, cual, limite in (("first weight, 1 display", "uno", "primera", 1.6),
                                        ("the 64th weight", "todos", "todas", 2.5)):
        sobre_vacia = entre(serie(escena, "sorvanel", arranque(cual)), serie("ventana", "ventana", arranque("primera")))
        cuales = f"{cifra(min(sobre_vacia))} .. {cifra(max(sobre_vacia))} in the rounds"
        salida.append(alguna(f"{texto}, over an empty window's start ({cuales})", statistics.median(sobre_vacia), limite))
    salida.append(alguna("memory with 64 displays, MB", statistics.median(
        serie("todos", "sorvanel", lambda u: u["pss"]["propio"])), 14))
    perdidas = sum(serie("todos", "sorvanel", lambda u: sum(u["inunda"])) + serie("compartido", "sorvanel", lambda u: u["inunda"][1]))
    return salida + [alguna("lost at 6 400 readings a second", perdidas, 0)]


def main():
    cumplidos = limites()
    for texto, bien in cumplidos:
        print(f"   {'met    ' if bien else 'NOT MET'} {texto}")
    udp = parejas(("ocho", "todos", "grande"))
    memoria = lambda una: una["pss"]["propio"]
    latencias = [una["tardanza"][r] for una in MEDIDAS if "tardanza" in una for r in RITMOS]
    intentadas = latencias + [una["arranque"] for una in MEDIDAS]
    campos = {
        "veces": len(serie("todos", "sorvanel", len)), "nucleos": os.cpu_count(),
        "gigas": round(os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") / 2**30),
        "hueco": cifra(statistics.median(una["hueco"] for una in latencias)),
        "sin_ver": sum(una["sin_ver"] for una in latencias), "intentadas": len(intentadas),
        "repetidas": sum(una["intentos"] > 1 for una in intentadas),
        "robadas": sum(una["robada"] for una in intentadas),
        "procesador": multiplos([(n, e, gasto(r, "propio", "wine"), "s") for n, e, r in udp]),
        "solo": multiplos([(n, e, gasto(r, "propio"), "s") for n, e, r in udp]),
        "enlace": multiplos([(n, e, gasto(r, "propio", "wine"), "s") for n, e, r in parejas(["compartido"])]),
        "absoluta": tabla_absoluta(), "tardanza": tabla_tardanza(), "perdidas": tabla_perdidas(), "tamanos": tamanos(),
        "memoria": multiplos([(ESCENAS[e], e, memoria, "MB") for e in ESCENAS]),
        "fondo": cifra(statistics.median(serie("todos", "sorvanel", lambda u: u["pss"]["wine"]))),
        "procesos": cifra(statistics.median(serie("todos", "kiosco", lambda u: u["pss"]["procesos"]))),
        "arranque": multiplos([(f"{ESCENAS[e]}, {'first' if c == 'primera' else 'all'}", e, arranque(c), "ms")
                               for e in ("uno", "todos", "grande") for c in ("primera", "todas")
                               if e == "todos" or c == "primera"]),
        "vacia": cifra(statistics.median(serie("ventana", "ventana", arranque("primera")))),
        "limites": tabla(["limit", "met"], [[texto, "yes" if bien else "**no**"] for texto, bien in cumplidos]),
    }
    plantilla = pathlib.Path(__file__).with_name("pagina.md").read_text(encoding="utf-8")
    pathlib.Path(PAGINA).write_text(string.Template(plantilla).substitute(campos), encoding="utf-8")
    return 0 if all(bien for _, bien in cumplidos) else 1


if __name__ == "__main__":
    sys.exit(main())
