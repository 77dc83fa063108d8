# A peer: Chromium as a kiosk, and the bridge that it needs: datagrams in, one WebSocket message a beat of the screen
# out, with what changed.
#   kiosco.py WIDTH HEIGHT ROWS COLUMNS PORT FONT PROFILE-FOLDER
import base64
import hashlib
import pathlib
import selectors
import socket
import subprocess
import sys
import time

ANCHO, ALTO, FILAS, COLUMNAS, PUERTO, LETRA = map(int, sys.argv[1:7])
PERFIL = sys.argv[7]
CADENCIA = 0.016  # seconds
OPCIONES = """--kiosk --no-sandbox --disable-gpu --no-first-run --disable-extensions --disable-sync --mute-audio
    --disable-background-networking --disable-component-update --disable-breakpad --disable-default-apps
    --hide-crash-restore-bubble --password-store=basic --force-device-scale-factor=1 --window-position=0,0""".split()

selector = selectors.DefaultSelector()
pendientes = {}
pagina = pathlib.Path(__file__).with_name("kiosco.html").read_text(encoding="utf-8")


def atender(cliente):
    """Answers the page itself; true when the page asks for its WebSocket."""
    peticion = cliente.recv(8192).decode("latin-1")
    if "Sec-WebSocket-Key: " not in peticion:
        cuerpo = pagina.encode() if peticion.startswith("GET / ") or peticion.startswith("GET /?") else b""
        cliente.sendall(b"HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=utf-8\r\nConnection: close\r\n"
                        b"Content-Length: %d\r\n\r\n" % len(cuerpo) + cuerpo)
        cliente.close()
        return False
    clave = peticion.split("Sec-WebSocket-Key: ")[1].split("\r\n")[0] + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11"
    acepta = base64.b64encode(hashlib.sha1(clave.encode()).digest()).decode()
    cliente.sendall(("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                     f"Sec-WebSocket-Accept: {acepta}\r\n\r\n").encode())
    return True


def tomar(zocalo, visor):
    trama = zocalo.recv(512)
    if len(trama) == 13 and trama[3:4] == b"+" and trama[4:12].isdigit():
        pendientes[visor] = int(trama[4:12]) // 1000


def enviar(cliente):
    texto = ",".join(f"{visor}:{peso}" for visor, peso in pendientes.items()).encode()
    pendientes.clear()
    largo = bytes([0x81, len(texto)]) if len(texto) < 126 else b"\x81\x7e" + len(texto).to_bytes(2, "big")
    cliente.sendall(largo + texto)


for i in range(FILAS * COLUMNAS):
    zocalo = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    zocalo.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 256 * 1024)
    zocalo.bind(("", PUERTO + i))
    selector.register(zocalo, selectors.EVENT_READ, i)
escucha = socket.create_server(("127.0.0.1", 0))
selector.register(escucha, selectors.EVENT_READ)
direccion = f"http://127.0.0.1:{escucha.getsockname()[1]}/?{FILAS},{COLUMNAS},{LETRA}"
subprocess.Popen(["/usr/bin/chromium", *OPCIONES, f"--window-size={ANCHO},{ALTO}", f"--user-data-dir={PERFIL}", direccion])

pagina_abierta, siguiente = None, 0.0
while True:
    espera = max(0.0, siguiente - time.monotonic()) if pendientes and pagina_abierta else None
    for clave, _ in selector.select(espera):
        if clave.data is not None:
            tomar(clave.fileobj, clave.data)
        elif clave.fileobj is escucha:
            # The browser opens connections in advance, and says nothing on them.
            selector.register(escucha.accept()[0], selectors.EVENT_READ)
        else:
            selector.unregister(clave.fileobj)
            if atender(clave.fileobj):
                clave.fileobj.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
                pagina_abierta = clave.fileobj
    if pagina_abierta and pendientes and time.monotonic() >= siguiente:
        enviar(pagina_abierta)
        siguiente = time.monotonic() + CADENCIA
