#!/usr/bin/env python3
"""Runs clang-tidy over the program, and remembers what was clean.

A file is looked at again only when it, a header of the project that it includes (by whatever way),
the list of checks, or clang-tidy itself has changed. The portable rooms and the tools are compiled
as for this machine; platform/win32, the entry point, tools/escenas and
what ends in Win32.cpp as for Windows.

    analizar.py [--todo] [FILE...]   --todo forgets what is remembered
"""

import concurrent.futures
import hashlib
import os
import re
import subprocess
import sys
from pathlib import Path

RAIZ = Path(__file__).resolve().parent.parent
SRC = RAIZ / "src"
CARPETAS = [SRC, RAIZ / "tools", RAIZ / "tests" / "system"]  # where includes are looked for
MEMORIA = RAIZ / "build" / "analisis"
INCLUSION = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.M)

COMUNES = ["-std=c++20", "-Wall", "-Wextra", *(f"-I{carpeta}" for carpeta in CARPETAS)]
DEFINICIONES_WINDOWS = [
    "-DUNICODE", "-D_UNICODE", "-DWIN32_LEAN_AND_MEAN", "-DNOMINMAX", "-DWINVER=0x0601", "-D_WIN32_WINNT=0x0601",
]


def de_windows(ruta):
    nombre = ruta.relative_to(RAIZ).as_posix()
    return (nombre.startswith(("src/platform/win32/", "tools/escenas/", "tools/encajes/")) or nombre == "src/app/main.cpp"
            or nombre.endswith("Win32.cpp"))


def carpetas_mingw():
    """Where the cross-compiler looks; clang does not find a compiler with two thread models itself."""
    orden = ["x86_64-w64-mingw32-g++-posix", "-xc++", "-E", "-v", "-"]
    salida = subprocess.run(orden, input="", capture_output=True, text=True, check=True).stderr
    lista = salida.split("#include <...> search starts here:")[1].split("End of search list.")[0]
    # GCC's own headers of compiler built-ins would hide clang's.
    propias = re.compile(r"/lib/gcc/[^/]+/[^/]+/include(-fixed)?$")
    carpetas = [os.path.realpath(c) for c in lista.split()]
    return [opcion for c in carpetas if not propias.search(c) for opcion in ("-isystem", c)]


def opciones(ruta, mingw):
    if de_windows(ruta):
        return ["--target=x86_64-w64-mingw32", "-nostdinc++", *mingw, *COMUNES, *DEFINICIONES_WINDOWS]
    return COMUNES


class Huellas:
    """What a file's verdict depends on, as one number."""

    def __init__(self, herramienta):
        self.base = herramienta + (RAIZ / ".clang-tidy").read_bytes() + Path(__file__).read_bytes()
        self.textos = {}

    def texto(self, ruta):
        if ruta not in self.textos:
            self.textos[ruta] = ruta.read_bytes()
        return self.textos[ruta]

    def alcance(self, ruta, visto):
        if ruta in visto or not ruta.is_file():
            return
        visto.add(ruta)
        for nombre in INCLUSION.findall(self.texto(ruta).decode("utf-8")):
            for carpeta in CARPETAS:
                if (carpeta / nombre).is_file():
                    self.alcance(carpeta / nombre, visto)
                    break

    def huella(self, ruta):
        visto = set()
        self.alcance(ruta, visto)
        suma = hashlib.sha256(self.base)
        for parte in sorted(visto):
            suma.update(str(parte.relative_to(RAIZ)).encode() + b"\0" + self.texto(parte) + b"\0")
        return suma.hexdigest()


def analizar(ruta, mingw):
    orden = ["clang-tidy", "--quiet", str(ruta), "--", *opciones(ruta, mingw)]
    hecho = subprocess.run(orden, capture_output=True, text=True, stdin=subprocess.DEVNULL)
    return hecho.returncode == 0, hecho.stdout + "\n".join(
        l for l in hecho.stderr.splitlines() if not re.match(r"\d+ warnings? ", l) and "Suppressed" not in l)


def pendientes(rutas, huellas, todo):
    for ruta in rutas:
        huella = huellas.huella(ruta)
        if todo or not (MEMORIA / huella).exists():
            yield ruta, huella


def olvidar_lo_viejo(vigentes):
    for marca in MEMORIA.iterdir():
        if marca.name not in vigentes:
            marca.unlink()


def principal(argumentos):
    todo = "--todo" in argumentos
    pedidas = [Path(a).resolve() for a in argumentos if a != "--todo"]
    rutas = pedidas or sorted([*SRC.rglob("*.cpp"), *(RAIZ / "tools").rglob("*.cpp")])
    MEMORIA.mkdir(parents=True, exist_ok=True)
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    huellas = Huellas(version)
    mingw = carpetas_mingw()
    trabajo = list(pendientes(rutas, huellas, todo))
    malas = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 2) as equipo:
        for (ruta, huella), (limpia, texto) in zip(trabajo, equipo.map(lambda t: analizar(t[0], mingw), trabajo)):
            if limpia:
                (MEMORIA / huella).touch()
            else:
                malas += 1
                print(texto)
    if not pedidas:
        olvidar_lo_viejo({huellas.huella(ruta) for ruta in rutas})
    print(f"clang-tidy: {len(rutas)} files, {len(trabajo)} looked at, {malas} with findings")
    return 1 if malas else 0


if __name__ == "__main__":
    sys.exit(principal(sys.argv[1:]))
