# A peer: a label a display in Python with Tk. The weights that came within a beat of the screen are shown together.
#   conTk.py WIDTH HEIGHT ROWS COLUMNS PORT FONT
import socket
import sys
import tkinter

ANCHO, ALTO, FILAS, COLUMNAS, PUERTO, LETRA = map(int, sys.argv[1:])
BARRA = 32
CADENCIA = 16  # ms

ventana = tkinter.Tk()
ventana.geometry(f"{ANCHO}x{ALTO}+0+0")
ventana.overrideredirect(True)
ventana.configure(bg="black", cursor="none")
pendientes = {}


def mostrar():
    for rotulo, peso in pendientes.items():
        rotulo["text"] = peso
    pendientes.clear()


def atender(zocalo, rotulo):
    trama = zocalo.recv(512)
    if len(trama) != 13 or trama[3:4] != b"+" or not trama[4:12].isdigit():
        return
    if not pendientes:
        ventana.after(CADENCIA, mostrar)
    pendientes[rotulo] = int(trama[4:12]) // 1000


for i in range(FILAS * COLUMNAS):
    rotulo = tkinter.Label(ventana, bg="black", fg="#00ff00", font=("Liberation Sans", -LETRA, "bold"), bd=0, padx=0, pady=0)
    ancho, alto = ANCHO // COLUMNAS, (ALTO - BARRA) // FILAS
    rotulo.place(x=i % COLUMNAS * ancho, y=i // COLUMNAS * alto, width=ancho, height=alto)
    zocalo = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    zocalo.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 256 * 1024)
    zocalo.bind(("", PUERTO + i))
    zocalo.setblocking(False)
    ventana.createfilehandler(zocalo, tkinter.READABLE, lambda z, _, r=rotulo: atender(z, r))
ventana.mainloop()
