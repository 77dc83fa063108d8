#!/usr/bin/env python3
"""Holds the layers of src/ in place.

A room includes only itself and rooms below it, and so does a room of platform/win32/ among its own;
system headers occur only under platform/win32/ and in app/main.cpp; only app/main.cpp includes
platform/win32/; project headers are written "room/file.h" and exist; no file includes itself, by
whatever way round.

    comprobar-inclusiones.py [SRC]     checks that folder (the tree's src/ by default)
    comprobar-inclusiones.py --prueba  checks the check: planted violations must be found
"""

import re
import sys
import tempfile
from pathlib import Path

# From the ground up.
SALAS = ["platform", "config", "screen", "grid", "links", "display", "message", "dialogs", "app"]
EXTENSIONES = {".h", ".hpp", ".cpp", ".cc", ".c", ".inl"}
ENTRADA = "app/main.cpp"
WIN32 = "platform/win32/"
# Its rooms, from the ground up.
SALAS_WIN32 = ["base", "painting", "controls", "windows", "network", "system"]

# All of the standard library up to C++20. Whatever else stands between <> is the system's.
ESTANDAR = set(
    """
    algorithm any array atomic barrier bit bitset charconv chrono compare complex concepts
    condition_variable coroutine deque exception execution filesystem format forward_list fstream
    functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list
    locale map memory memory_resource mutex new numbers numeric optional ostream queue random ranges
    ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack
    stdexcept stop_token streambuf string string_view strstream syncstream system_error thread tuple
    type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector version
    cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef
    cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype
    """.split()
)

# Of the line that the preprocessor sees: blanks before and after "#", comments between.
INCLUSION = re.compile(r'^\s*#\s*(?:include|include_next|import)\b\s*(.*)$')
DESTINO = re.compile(r'^(?:"([^"]*)"|<([^>]*)>)')


def sin_comentarios(texto):
    """Comments become blanks, strings stay, lines keep their numbers; joined lines are joined."""
    patron = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.S)

    def cambiar(hallado):
        parte = hallado.group(0)
        return parte if parte.startswith('"') else re.sub(r"[^\n]", " ", parte)

    return patron.sub(cambiar, texto.replace("\\\n", ""))


def inclusiones(ruta):
    """(line, text between the marks, is it a system include); the text is None for a macro."""
    lineas = sin_comentarios(ruta.read_text(encoding="utf-8")).split("\n")
    for numero, linea in enumerate(lineas, 1):
        hallada = INCLUSION.match(linea)
        if not hallada:
            continue
        destino = DESTINO.match(hallada.group(1))
        if not destino:
            yield numero, None, False
        elif destino.group(1) is not None:
            yield numero, destino.group(1), False
        else:
            yield numero, destino.group(2), True


def sala(nombre):
    primera = nombre.split("/", 1)[0]
    return primera if "/" in nombre and primera in SALAS else None


def sala_win32(nombre):
    """Its number from the ground up; None outside, -1 in no room of its."""
    if not nombre.startswith(WIN32):
        return None
    primera = nombre[len(WIN32):].split("/", 1)
    return SALAS_WIN32.index(primera[0]) if len(primera) == 2 and primera[0] in SALAS_WIN32 else -1


def juzgar_sistema(archivo, destino):
    if destino in ESTANDAR or archivo == ENTRADA or archivo.startswith(WIN32):
        return None
    return f"system header <{destino}> outside {WIN32} and {ENTRADA}"


def juzgar_proyecto(src, archivo, destino):
    if destino == "version_sorvanel.h" and archivo in (ENTRADA,):
        return None  # made by CMake
    arriba = sala(destino)
    if arriba is None or ".." in destino.split("/") or "\\" in destino:
        return f'"{destino}" is not written "room/file.h"'
    if not (src / destino).is_file():
        return f'"{destino}" does not exist'
    if destino.startswith(WIN32) and archivo != ENTRADA and not archivo.startswith(WIN32):
        return f'"{destino}": only {ENTRADA} may include {WIN32}'
    if SALAS.index(arriba) > SALAS.index(sala(archivo)):
        return f'"{destino}": {sala(archivo)} lies below {arriba}'
    desde, hasta = sala_win32(archivo), sala_win32(destino)
    if desde is not None and hasta is not None and hasta > desde:
        return f'"{destino}": {SALAS_WIN32[desde]} lies below {SALAS_WIN32[hasta]}'
    return None


def circulos(grafo):
    """One line a circle, found by walking depth first."""
    blanco, gris, negro = 0, 1, 2
    color = dict.fromkeys(grafo, blanco)
    hallados = []

    def andar(nodo, camino):
        color[nodo] = gris
        for siguiente in grafo.get(nodo, ()):
            if color.get(siguiente, negro) == gris:
                hallados.append(" -> ".join(camino[camino.index(siguiente):] + [siguiente]))
            elif color.get(siguiente, negro) == blanco:
                andar(siguiente, camino + [siguiente])
        color[nodo] = negro

    for nodo in grafo:
        if color[nodo] == blanco:
            andar(nodo, [nodo])
    return hallados


def comprobar(src):
    faltas, grafo = [], {}
    archivos = sorted(r for r in src.rglob("*") if r.suffix in EXTENSIONES and r.is_file())
    if not archivos:
        return [f"{src}: no source files"]
    for ruta in archivos:
        archivo = ruta.relative_to(src).as_posix()
        grafo[archivo] = []
        if sala(archivo) is None or sala_win32(archivo) == -1:
            faltas.append(f"{archivo}: in no room")
            continue
        for linea, destino, de_sistema in inclusiones(ruta):
            if destino is None:
                falta = "an include must name its file"
            elif de_sistema:
                falta = juzgar_sistema(archivo, destino)
            else:
                falta = juzgar_proyecto(src, archivo, destino)
                grafo[archivo].append(destino)
            if falta:
                faltas.append(f"{archivo}:{linea}: {falta}")
    faltas += [f"circle: {circulo}" for circulo in circulos(grafo)]
    return faltas


BUENOS = {
    "platform/a.h": "#include <vector>\n",
    "platform/win32/painting/v.h": '#include <windows.h>\n#include "platform/a.h"\n',
    "config/c.h": '#include "platform/a.h"\n// #include <windows.h>\n/* #include "app/base.h" */\n',
    "grid/g.cpp": '#include "grid/g.h"\n#include "config/c.h"\n',
    "grid/g.h": "#include <string>\n",
    "links/l.h": "",
    "app/base.h": '#include "grid/g.h"\n',
    "app/main.cpp": '#include <winsock2.h>\n#include <windows.h>\n#include "platform/win32/painting/v.h"\n',
}

# What is planted, and a piece of the complaint that it must cause.
MALOS = [
    ("grid/m.cpp", "#include <windows.h>\n", "system header <windows.h>"),
    ("config/m.h", "  #  include   <winsock2.h>\n", "system header <winsock2.h>"),
    ("app/m.cpp", "#include <commctrl.h>\n", "system header <commctrl.h>"),
    ("platform/m.h", "#include <sys/socket.h>\n", "system header <sys/socket.h>"),
    ("config/m.h", "#include /* x */ <stdint.h>\n", "system header <stdint.h>"),
    ("grid/m.cpp", '#include "windows.h"\n', 'not written "room/file.h"'),
    ("grid/m.cpp", '#include "g.h"\n', 'not written "room/file.h"'),
    ("grid/m.cpp", '#include "grid/../config/c.h"\n', 'not written "room/file.h"'),
    ("grid/m.cpp", '#include "grid/nada.h"\n', "does not exist"),
    ("grid/m.cpp", '#include "links/l.h"\n', "grid lies below links"),
    ("platform/m.h", '#inc\\\nlude "config/c.h"\n', "platform lies below config"),
    ("platform/win32/base/m.cpp", '#include "app/base.h"\n', "platform lies below app"),
    ("platform/win32/base/m.h", '#include "platform/win32/painting/v.h"\n', "base lies below painting"),
    ("platform/win32/suelta.h", "", "in no room"),
    ("app/m.cpp", '#include "platform/win32/painting/v.h"\n', "only app/main.cpp"),
    ("platform/m.h", '#include "platform/win32/painting/v.h"\n', "only app/main.cpp"),
    ("links/l.h", '#include "links/l.h"\n', "circle: links/l.h -> links/l.h"),
    ("grid/g.h", '#include "grid/h.h"\n', "circle"),
    ("grid/m.cpp", "#define CUAL <vector>\n#include CUAL\n", "must name its file"),
    ("suelta.cpp", "", "in no room"),
]


def plantar(carpeta, archivos):
    for nombre, texto in archivos.items():
        ruta = carpeta / nombre
        ruta.parent.mkdir(parents=True, exist_ok=True)
        ruta.write_text(texto, encoding="utf-8")


def prueba():
    fallos = []
    with tempfile.TemporaryDirectory() as temporal:
        limpio = Path(temporal) / "limpio"
        plantar(limpio, BUENOS)
        fallos += [f"complains without cause: {falta}" for falta in comprobar(limpio)]
        for i, (archivo, texto, queja) in enumerate(MALOS):
            src = Path(temporal) / str(i)
            plantar(src, BUENOS | {"grid/h.h": '#include "grid/g.h"\n'} | {archivo: texto})
            quejas = comprobar(src)
            if len(quejas) != 1 or queja not in quejas[0]:
                fallos.append(f"{archivo} with {texto!r}: expected one complaint {queja!r}, got {quejas}")
    return fallos


def principal(argumentos):
    if argumentos == ["--prueba"]:
        faltas, hecho = prueba(), f"{len(MALOS)} planted violations found"
    else:
        src = Path(argumentos[0]) if argumentos else Path(__file__).resolve().parent.parent / "src"
        faltas, hecho = comprobar(src), "includes keep to the layers"
    print("\n".join(faltas) if faltas else hecho)
    return 1 if faltas else 0


if __name__ == "__main__":
    sys.exit(principal(sys.argv[1:]))
