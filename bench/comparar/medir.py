#!/usr/bin/env python3
# Measures every peer on one X screen, by turns, and writes the figures as JSON; ../comparar.sh runs it.
#   medir.py WIDTHxHEIGHT OUT.json ROUNDS SECONDS FOLDER XSERVER-PID
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time

AQUI = pathlib.Path(__file__).resolve().parent
ANCHO, ALTO = map(int, sys.argv[1].split("x"))
SALIDA, VUELTAS, SEGUNDOS = sys.argv[2], int(sys.argv[3]), float(sys.argv[4])
CARPETA, SERVIDOR_X = pathlib.Path(sys.argv[5]), int(sys.argv[6])
BARRA, PUERTO = 32, 21000
RITMOS = (10, 50)  # readings a second of each display
INUNDACION = 100
REPOSO = 0.5  # seconds before a start: what the program before left is cleared away meanwhile
ROBO_MAXIMO = 0.02  # of one processor's time, in a measurement of latency or of the start
PREFIJO = os.environ["WINEPREFIX"]
EJECUTABLE = CARPETA / "Comparado.exe"


class Escena:
    def __init__(self, nombre, filas, columnas, enlace, pares):
        self.nombre, self.filas, self.columnas, self.enlace, self.pares = nombre, filas, columnas, enlace, pares
        # As large as the measured program's: room for "0000.0" and a mark in the cell's width, nearly its height.
        self.letra = int(min(ANCHO / columnas / 3.82, (ALTO - BARRA) / filas * 0.88 / 0.716))


TODOS = ("sorvanel", "desnudo", "tk", "kiosco")
ESCENAS = ([Escena("grande", 1, 1, "udp", TODOS)] if ALTO > 1000 else
           [Escena("ventana", 1, 1, "udp", ("ventana",)), Escena("uno", 1, 1, "udp", TODOS),
            Escena("ocho", 2, 4, "udp", TODOS), Escena("todos", 8, 8, "udp", TODOS),
            Escena("compartido", 8, 8, "tcp", TODOS[:2])])


def ajustes(escena):
    lineas = ["[RETICULA]", f"FilasColumnas={escena.filas}x{escena.columnas}",
              "[VISORES]", "textoPeso=00FF00", "fondoPeso=000000", "anchoEtiqueta=0"]
    for i in range(escena.filas * escena.columnas):
        lineas += [f"[VISOR_{i + 1}]", f"Ubicacion={i // escena.columnas + 1},{i % escena.columnas + 1}"]
        lineas += ([f"Port={PUERTO + i}"] if escena.enlace == "udp" else
                   [f"Port={101 + i}", "Protocolo=Pavona", "ModoBulk=0"])
    if escena.enlace == "tcp":
        lineas += ["[PAVONA]", "Host=127.0.0.1", f"Port={PUERTO}"]
    ini = pathlib.Path(PREFIJO, "drive_c/ProgramData/Comparado/Comparado.ini")
    ini.parent.mkdir(parents=True, exist_ok=True)
    ini.write_text("\r\n".join(lineas) + "\r\n", encoding="cp1252", newline="")


def orden(escena, par):
    medidas = f"{ANCHO} {ALTO} {escena.filas} {escena.columnas} {PUERTO} {escena.letra}"
    if par == "sorvanel":
        ajustes(escena)
        return f"wine '{EJECUTABLE}'"
    if par in ("desnudo", "ventana"):
        modo = "ventana 0" if par == "ventana" else (
            f"{escena.enlace} {PUERTO} {escena.filas} {escena.columnas} {ALTO - BARRA} {escena.letra}")
        return f"env SORVANEL_DESNUDO='{modo}' wine '{CARPETA}/desnudo.exe'"
    if par == "tk":
        return f"/usr/bin/python3 '{AQUI}/conTk.py' {medidas}"
    return f"/usr/bin/python3 '{AQUI}/kiosco.py' {medidas} '{CARPETA}/perfil'"


def procesos(sesion):
    """The session's processes, and Wine's own of this prefix beside them."""
    propios, wine = [], []
    for carpeta in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            estado = (carpeta / "stat").read_text().rsplit(")", 1)[1].split()
            if int(estado[3]) == sesion and estado[0] != "Z":
                propios.append(int(carpeta.name))
            elif (os.readlink(carpeta / "exe").rsplit("/", 1)[1].startswith("wine")
                  and f"WINEPREFIX={PREFIJO}".encode() in (carpeta / "environ").read_bytes().split(b"\0")):
                wine.append(int(carpeta.name))
        except OSError:
            pass  # gone meanwhile
    return propios, wine


def cpu(ids):
    """Seconds of processor, user and system, of all threads, also ended ones; the clock of each process."""
    return sum(time.clock_gettime((~uno << 3) | 2) for uno in ids)


def robado():
    """Seconds that this machine's processors wanted to run and its host did not let them."""
    return int(pathlib.Path("/proc/stat").read_text().split()[8]) / os.sysconf("SC_CLK_TCK")


def pss(ids):
    """Megabytes; each shared page counts for its share."""
    total = 0
    for uno in ids:
        lineas = pathlib.Path(f"/proc/{uno}/smaps_rollup").read_text().splitlines()
        total += next(int(linea.split()[1]) for linea in lineas if linea.startswith("Pss:"))
    return total / 1024


def terminar(sesion):
    for senal in (signal.SIGTERM, signal.SIGKILL):
        for uno in procesos(sesion)[0]:
            try:
                os.kill(uno, senal)
            except ProcessLookupError:
                pass
        fin = time.monotonic() + 3
        while procesos(sesion)[0] and time.monotonic() < fin:
            time.sleep(0.05)


def mejor_intento(intentar, preparar=lambda: None):
    """The try from which the machine's host took least, where it took anything to speak of; beside it, how many there were."""
    intentos = []
    while len(intentos) < 3 and (not intentos or intentos[-1]["robo"] > ROBO_MAXIMO):
        preparar()
        antes, inicio = robado(), time.monotonic()
        datos = intentar()
        intentos.append(datos | {"robo": (robado() - antes) / (time.monotonic() - inicio)})
    mejor = min(intentos, key=lambda uno: uno["robo"])
    return mejor | {"intentos": len(intentos), "robada": mejor["robo"] > ROBO_MAXIMO}


class Visita:
    """One peer, from its start to its end."""

    def __init__(self, escena, par):
        self.escena, self.par, self.sesion = escena, par, None
        self.observador = subprocess.Popen(
            [CARPETA / "observador", *map(str, (ANCHO, ALTO, escena.filas, escena.columnas, PUERTO)), escena.enlace],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def pedir(self, *palabras):
        self.observador.stdin.write(" ".join(map(str, palabras)) + "\n")
        self.observador.stdin.flush()
        respuesta = self.observador.stdout.readline().strip()
        if not respuesta or respuesta.startswith("error"):
            raise RuntimeError(f"{self.escena.nombre}, {self.par}: {respuesta or 'the observer ended'}")
        return respuesta

    def gastar(self, ritmo):
        propios, wine = procesos(self.sesion)
        wine = wine if self.par in ("sorvanel", "desnudo") else []
        grupos = {"propio": propios, "wine": wine, "x": [SERVIDOR_X]}
        antes = {nombre: cpu(ids) for nombre, ids in grupos.items()}
        lecturas = int(self.pedir("envia", ritmo, SEGUNDOS))
        return {nombre: (cpu(ids) - antes[nombre]) / lecturas * 10000 for nombre, ids in grupos.items()}

    def despejar(self):
        if self.sesion:
            terminar(self.sesion)
        time.sleep(REPOSO)

    def arrancar(self):
        primera, todas, sesion = self.pedir("arranca", orden(self.escena, self.par)).split()
        self.sesion = int(sesion)
        return {"primera": float(primera), "todas": float(todas)}

    def tardar(self, ritmo):
        hueco, perdidas, *tardanzas = self.pedir("mide", ritmo, SEGUNDOS * (1.2 if ritmo == 10 else 0.6)).split()
        return {"hueco": float(hueco), "sin_ver": int(perdidas), "ms": list(map(float, tardanzas))}

    def hacer(self):
        datos = {"arranque": mejor_intento(self.arrancar, self.despejar)}
        if self.par == "ventana":
            return datos
        self.pedir("envia", 10, 1)
        if self.escena.nombre != "uno":
            datos["cpu"] = {ritmo: self.gastar(ritmo) for ritmo in RITMOS}
        propios, wine = procesos(self.sesion)
        datos["pss"] = {"propio": pss(propios), "wine": pss(wine), "procesos": len(propios)}
        if self.pedir("aprende") != "bien":
            raise RuntimeError(f"{self.escena.nombre}, {self.par}: readings cannot be told apart on the screen")
        datos["tardanza"] = {ritmo: mejor_intento(lambda: self.tardar(ritmo)) for ritmo in RITMOS}
        if self.escena.nombre in ("todos", "compartido"):
            datos["inunda"] = list(map(int, self.pedir("inunda", INUNDACION, SEGUNDOS * 0.6).split()))
        return datos

    def acabar(self):
        self.observador.stdin.close()
        self.observador.kill()
        self.observador.wait()
        if self.sesion:
            terminar(self.sesion)


def visitar(escena, par):
    for intento in (1, 2):
        visita = Visita(escena, par)
        try:
            return visita.hacer()
        except RuntimeError as fallo:
            print(f"   {fallo}{': once more' if intento == 1 else ''}", flush=True)
        finally:
            visita.acabar()
    sys.exit(1)


def main():
    visitas = [(vuelta, escena, escena.pares[(i + max(vuelta, 0)) % len(escena.pares)])
               for vuelta in range(-1, VUELTAS) for escena in ESCENAS for i in range(len(escena.pares))
               if vuelta >= 0 or escena.nombre in ("ventana", "todos", "grande")]
    medidas, inicio = [], time.monotonic()
    for numero, (vuelta, escena, par) in enumerate(visitas):
        datos = visitar(escena, par)
        # The first round finds nothing in the system's caches: it does not count.
        if vuelta >= 0:
            medidas.append({"vuelta": vuelta, "escena": escena.nombre, "par": par, "letra": escena.letra, **datos})
        queda = (time.monotonic() - inicio) / (numero + 1) * (len(visitas) - numero - 1) / 60
        print(f"   {ANCHO}x{ALTO} {numero + 1}/{len(visitas)} {escena.nombre} {par}: {queda:.1f} minutes left"
              " on this screen", flush=True)
    pathlib.Path(SALIDA).write_text(json.dumps(medidas), encoding="utf-8")


if __name__ == "__main__":
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))  # so that what was started is ended
    shutil.rmtree(CARPETA / "perfil", ignore_errors=True)
    main()
