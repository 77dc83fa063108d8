#!/usr/bin/env python3
"""Keeps the programs that users get startable on Windows 7 SP1.

Windows starts no program that imports a function which it lacks. packaging/windows7.txt names every function that
Sorvanel.exe and simulador.exe import, at the start or at the first call, each looked up as present in Windows 7; this
fails for an import that is not there, and for a line that nothing imports any more. What the sources look up by name at
run time is in the same list, with what stands in for it. Sorvanel.exe also stays below 2 MB.

    comprobar-importaciones.py [FOLDER]   checks the programs built there (build/windows)
    comprobar-importaciones.py --prueba   checks the check: what is planted in copies of them must be found
"""

import re
import struct
import sys
from pathlib import Path

RAIZ = Path(__file__).resolve().parent.parent
OBRA = RAIZ / "build/windows"
LISTA = RAIZ / "packaging/windows7.txt"
RETRASADAS = RAIZ / "cmake/retrasadas.cmake"
PROGRAMA, SIMULADOR = "src/Sorvanel.exe", "tools/simulador/simulador.exe"
MAXIMO = 2 * 1024 * 1024
WINDOWS_7 = (6, 1)

DIRECTORIO_IMPORTADAS, DIRECTORIO_RETRASADAS = 1, 13
PASO_IMPORTADAS, PASO_RETRASADAS = 20, 32  # bytes of one library's entry
POR_NUMERO = 1 << 63
BIBLIOTECA = re.compile(r"[\w.-]+\.dll", re.I)


class Ejecutable:
    """The tables of a 64-bit program, read as the loader reads them."""

    def __init__(self, datos):
        self.datos = datos
        pe = self.entero(0x3C)
        if datos[:2] != b"MZ" or datos[pe : pe + 4] != b"PE\0\0" or self.entero(pe + 24, "H") != 0x20B:
            raise ValueError("no 64-bit Windows program")
        self.opcional = pe + 24
        tabla = self.opcional + self.entero(pe + 20, "H")
        self.secciones = []
        for i in range(self.entero(pe + 6, "H")):
            _, rva, tamano, lugar = struct.unpack_from("<4I", datos, tabla + 40 * i + 8)
            self.secciones.append((rva, tamano, lugar))

    def entero(self, lugar, clase="I"):
        return struct.unpack_from("<" + clase, self.datos, lugar)[0]

    def lugar(self, rva):
        """Where in the file that address lies; None outside of it."""
        for inicio, tamano, lugar in self.secciones:
            if inicio <= rva < inicio + tamano:
                return rva - inicio + lugar
        return None

    def texto(self, rva):
        lugar = self.lugar(rva)
        return "" if lugar is None else self.datos[lugar : self.datos.index(b"\0", lugar)].decode("latin-1")

    def directorio(self, cual):
        return self.lugar(self.entero(self.opcional + 112 + 8 * cual))

    def funciones(self, biblioteca, tabla):
        biblioteca = biblioteca.lower().removesuffix(".dll")
        lugar = self.lugar(tabla)
        while (entrada := self.entero(lugar, "Q")) != 0:
            yield f"{biblioteca}: " + (f"#{entrada & 0xFFFF}" if entrada & POR_NUMERO else self.texto(entrada + 2))
            lugar += 8

    def al_empezar(self):
        lugar = self.directorio(DIRECTORIO_IMPORTADAS)
        while (nombre := self.entero(lugar + 12)) != 0:
            yield from self.funciones(self.texto(nombre), self.entero(lugar) or self.entero(lugar + 16))
            lugar += PASO_IMPORTADAS

    def al_llamar(self):
        """MinGW enters its delayed libraries in no directory: they are known by the shape of their entries."""
        lugar = self.directorio(DIRECTORIO_RETRASADAS)
        if lugar is not None:
            while (nombre := self.entero(lugar + 4)) != 0:
                yield from self.funciones(self.texto(nombre), self.entero(lugar + 16))
                lugar += PASO_RETRASADAS
            return
        for hallada in re.finditer(rb"\x01\0\0\0", self.datos):
            lugar = hallada.start()
            if lugar % 4 != 0 or lugar + PASO_RETRASADAS > len(self.datos):
                continue
            nombre, _, _, nombres = struct.unpack_from("<4I", self.datos, lugar + 4)
            if self.lugar(nombres) is not None and BIBLIOTECA.fullmatch(self.texto(nombre)):
                yield from self.funciones(self.texto(nombre), nombres)

    def de_ventanas(self):
        return self.entero(self.opcional + 68, "H") == 2

    def fecha(self):
        return self.entero(self.opcional - 16)

    def subsistema(self):
        return self.entero(self.opcional + 48, "H"), self.entero(self.opcional + 50, "H")


def buscadas(fuentes):
    """The names that are looked up at run time, and complaints about what looks them up another way."""
    nombres, faltas = set(), []
    for ruta, texto in fuentes.items():
        nombres |= set(re.findall(r'buscarFuncion<[^;"]*"(\w+)"', texto))
        if "GetProcAddress" in texto and "Funcion buscarFuncion(" not in texto:
            faltas.append(f"{ruta}: GetProcAddress instead of buscarFuncion")
    return nombres, faltas


def leer_lista(texto):
    lineas = [linea for linea in texto.splitlines() if linea and not linea.startswith("#")]
    faltas = [f"{LISTA.name}: out of order or twice: {b}" for a, b in zip(lineas, lineas[1:]) if b <= a]
    al_vuelo = {linea[2:].split(":")[0] for linea in lineas if re.match(r"\? \w+: .", linea)}
    return {linea for linea in lineas if not linea.startswith("?")}, al_vuelo, faltas


def comparar(lista, halladas, que):
    for nombre in sorted(halladas - lista):
        yield (f"{que}, not in {LISTA.name}: {nombre}. Look up since which Windows it is there; one newer than "
               "Windows 7 must be looked up at run time (buscarFuncion), with something to stand in for it")
    for nombre in sorted(lista - halladas):
        yield f"{LISTA.name}: {nombre} is not {que} any more; drop the line"


def comprobar(programas, lista, fuentes):
    """programas: bytes by name, Sorvanel.exe first."""
    permitidas, al_vuelo, faltas = leer_lista(lista)
    importadas, retrasadas = set(), set()
    for nombre, datos in programas.items():
        ejecutable = Ejecutable(datos)
        importadas |= set(ejecutable.al_empezar())
        retrasadas |= set(ejecutable.al_llamar())
        if ejecutable.subsistema() > WINDOWS_7:
            faltas.append(f"{nombre} asks for Windows {ejecutable.subsistema()}")
    for biblioteca, funciones in re.findall(r"biblioteca_retrasada\((\w+) ([\w ]+)\)", RETRASADAS.read_text()):
        faltas += [f"{RETRASADAS.name}: {biblioteca}: {f} is not delayed"
                   for f in funciones.split() if f"{biblioteca}: {f}" not in retrasadas]
    faltas += comparar(permitidas, importadas | retrasadas, "imported")
    nombres, mal_buscadas = buscadas(fuentes)
    faltas += mal_buscadas + list(comparar(al_vuelo, nombres, "looked up"))
    principal = Ejecutable(programas[PROGRAMA])
    if not principal.de_ventanas():
        faltas.append(f"{PROGRAMA} opens a console")
    if principal.fecha() != 0:
        faltas.append(f"{PROGRAMA} says when it was built: no two builds are the same")
    if len(programas[PROGRAMA]) >= MAXIMO:
        faltas.append(f"{PROGRAMA} has {len(programas[PROGRAMA])} bytes, the limit is {MAXIMO}")
    return faltas


def leer(obra):
    fuentes = {r.relative_to(RAIZ).as_posix(): r.read_text(encoding="utf-8")
               for carpeta in ("src", "tools/simulador") for r in sorted((RAIZ / carpeta).rglob("*.*"))
               if r.suffix in (".h", ".cpp")}
    return {n: (obra / n).read_bytes() for n in (PROGRAMA, SIMULADOR)}, LISTA.read_text(encoding="utf-8"), fuentes


def prueba():
    programas, lista, fuentes = leer(OBRA)
    fallos = [f"complains without cause: {falta}" for falta in comprobar(programas, lista, fuentes)]

    def cambiado(nombre, viejo, nuevo):
        assert len(viejo) == len(nuevo) and viejo in programas[nombre]
        return programas | {nombre: programas[nombre].replace(viejo, nuevo)}, lista, fuentes

    pe = struct.unpack_from("<I", programas[PROGRAMA], 0x3C)[0]
    cabecera = programas[PROGRAMA][: pe + 24 + 52]
    consola = programas[PROGRAMA][: pe + 24 + 70]
    buscador = '  buscarFuncion<F>(modulo,\n "GetSystemMetricsForDpi");'
    planes = [
        (cambiado(PROGRAMA, b"\0CreateFileW\0", b"\0CreateFile2\0"), "not in windows7.txt: kernel32: CreateFile2"),
        (cambiado(PROGRAMA, b"\0CreateFileW\0", b"\0CreateFile2\0"), "kernel32: CreateFileW is not imported"),
        (cambiado(PROGRAMA, b"KERNEL32.dll\0", b"KERNELXX.dll\0"), "not in windows7.txt: kernelxx: "),
        (cambiado(PROGRAMA, b"\0ChooseFontW\0", b"\0ChooseFontX\0"), "not in windows7.txt: comdlg32: ChooseFontX"),
        (cambiado(PROGRAMA, b"\0ChooseFontW\0", b"\0ChooseFontX\0"), "comdlg32: ChooseFontW is not delayed"),
        (cambiado(SIMULADOR, b"\0WSAPoll\0", b"\0WSANew1\0"), "not in windows7.txt: ws2_32: WSANew1"),
        (cambiado(PROGRAMA, cabecera, cabecera[:-4] + struct.pack("<HH", 10, 0)), "asks for Windows (10, 0)"),
        (cambiado(PROGRAMA, cabecera, cabecera[: pe + 8] + b"abcd" + cabecera[pe + 12 :]), "says when it was built"),
        (cambiado(PROGRAMA, consola, consola[:-2] + b"\3\0"), "opens a console"),
        ((programas | {PROGRAMA: programas[PROGRAMA].ljust(MAXIMO, b"\0")}, lista, fuentes), "the limit is"),
        ((programas, lista + "ws2_32: zzz\n", fuentes), "ws2_32: zzz is not imported"),
        ((programas, lista + "comctl32: InitCommonControlsEx\n", fuentes), "out of order or twice"),
        ((programas, lista, fuentes | {"src/x.cpp": buscador}), "looked up, not in windows7.txt: GetSystemMetricsForDpi"),
        ((programas, lista, fuentes | {"src/x.cpp": "GetProcAddress(m, n)"}), "src/x.cpp: GetProcAddress instead"),
        ((programas, re.sub(r"\? .*", "", lista), fuentes), "looked up, not in windows7.txt: GetDpiForMonitor"),
    ]
    for plan, queja in planes:
        if not any(queja in falta for falta in comprobar(*plan)):
            fallos.append(f"not found: {queja}")
    return fallos, len(planes)


def principal(argumentos):
    if argumentos == ["--prueba"]:
        faltas, cuantas = prueba()
        hecho = f"{cuantas} planted faults found"
    else:
        faltas = comprobar(*leer(Path(argumentos[0]) if argumentos else OBRA))
        hecho = "nothing is imported that Windows 7 lacks"
    print("\n".join(faltas) if faltas else hecho)
    return 1 if faltas else 0


if __name__ == "__main__":
    sys.exit(principal(sys.argv[1:]))
