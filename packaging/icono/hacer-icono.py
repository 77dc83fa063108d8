#!/usr/bin/env python3
"""Makes sorvanel.ico, marcha.cur and instalador.bmp from the drawings beside it.

Needs rsvg-convert (Debian: librsvg2-bin). The results are kept in the tree, so that building the
program needs neither; run this after a drawing was changed.
"""

import pathlib
import struct
import subprocess
import zlib

AQUI = pathlib.Path(__file__).resolve().parent
# Few pixels want a drawing of their own.
ICONO = [(16, "sorvanel-pequeno"), (20, "sorvanel-pequeno"), (24, "sorvanel-pequeno")] + [
    (lado, "sorvanel") for lado in (32, 40, 48, 64, 128, 256)
]
PUNTERO = [(lado, "marcha") for lado in (32, 48, 64)]
PUNTA = 2 / 32  # of the pointer's side, both ways
LATERAL = (164, 314, 128)  # the picture beside the installer's last page: its sides, and the drawing's
FONDO = (0xDF, 0xEA, 0xF3)
COMO_PNG = 64  # from this side on the picture is stored compressed


def dibujar(nombre, lado):
    """The drawing as a PNG of that side."""
    orden = ["rsvg-convert", "-w", str(lado), "-h", str(lado), str(AQUI / f"{nombre}.svg")]
    return subprocess.run(orden, check=True, capture_output=True).stdout


def filas_rgba(png):
    """The rows of a PNG with 8 bits of red, green, blue and opacity a pixel, as rsvg writes it."""
    datos, ancho, alto, comprimido, donde = png, 0, 0, b"", 8
    while donde < len(datos):
        largo, clase = struct.unpack(">I4s", datos[donde : donde + 8])
        cuerpo = datos[donde + 8 : donde + 8 + largo]
        if clase == b"IHDR":
            ancho, alto, bits, color, _, _, entrelazado = struct.unpack(">IIBBBBB", cuerpo)
            if (bits, color, entrelazado) != (8, 6, 0):
                raise ValueError("PNG of another kind")
        elif clase == b"IDAT":
            comprimido += cuerpo
        donde += largo + 12
    crudo, filas, anterior = zlib.decompress(comprimido), [], bytearray(ancho * 4)
    for y in range(alto):
        inicio = y * (ancho * 4 + 1)
        filtro, fila = crudo[inicio], bytearray(crudo[inicio + 1 : inicio + 1 + ancho * 4])
        for i in range(len(fila)):
            a = fila[i - 4] if i >= 4 else 0
            b, c = anterior[i], anterior[i - 4] if i >= 4 else 0
            if filtro == 4:
                p = a + b - c
                suma = min((abs(p - a), 0, a), (abs(p - b), 1, b), (abs(p - c), 2, c))[2]
            else:
                suma = (0, a, b, (a + b) // 2)[filtro]
            fila[i] = (fila[i] + suma) & 255
        filas.append(fila)
        anterior = fila
    return filas


def mapa(png):
    """The picture as the icon format's own bitmap: rows from below, then a mask of one bit a pixel."""
    filas = filas_rgba(png)
    lado = len(filas)
    cuerpo, mascara, paso = bytearray(), bytearray(), (lado + 31) // 32 * 4
    for fila in reversed(filas):
        bits = bytearray(paso)
        for x in range(lado):
            r, g, b, a = fila[4 * x : 4 * x + 4]
            cuerpo += bytes((b, g, r, a))
            if a < 128:
                bits[x // 8] |= 0x80 >> x % 8
        mascara += bits
    cabecera = struct.pack("<IiiHHIIiiII", 40, lado, 2 * lado, 1, 32, 0, len(cuerpo) + len(mascara), 0, 0, 0, 0)
    return cabecera + cuerpo + mascara


def escribir(archivo, clase, imagenes, campos):
    """Directory, then the pictures. `campos` gives an entry's two words for a side."""
    indice = struct.pack("<HHH", 0, clase, len(imagenes))
    donde = len(indice) + 16 * len(imagenes)
    cuerpo = b""
    for lado, datos in imagenes:
        indice += struct.pack("<BBBBHHII", lado % 256, lado % 256, 0, 0, *campos(lado), len(datos), donde)
        donde += len(datos)
        cuerpo += datos
    (AQUI / archivo).write_bytes(indice + cuerpo)


def lateral(png):
    """A bitmap of 256 colours: the drawing in the upper half of a plain ground."""
    ancho, alto, lado = LATERAL
    filas = [[FONDO] * ancho for _ in range(alto)]
    for y, fila in enumerate(filas_rgba(png)):
        for x in range(lado):
            a = fila[4 * x + 3]
            # Few enough shades for the table.
            tono = tuple((fila[4 * x + i] * a + FONDO[i] * (255 - a)) // 255 & 0xF0 for i in range(3))
            filas[y + (alto // 2 - lado) // 2][x + (ancho - lado) // 2] = tono if a else FONDO
    colores = sorted({color for fila in filas for color in fila})
    numero = {color: i for i, color in enumerate(colores)}
    tabla = b"".join(bytes((b, g, r, 0)) for r, g, b in colores).ljust(4 * 256, b"\0")
    cuerpo = b"".join(bytes(numero[color] for color in fila) for fila in reversed(filas))
    cabecera = struct.pack("<IiiHHIIiiII", 40, ancho, alto, 1, 8, 0, len(cuerpo), 0, 0, 256, 0)
    donde = 14 + len(cabecera) + len(tabla)
    return struct.pack("<2sIHHI", b"BM", donde + len(cuerpo), 0, 0, donde) + cabecera + tabla + cuerpo


def main():
    iconos = []
    for lado, nombre in ICONO:
        png = dibujar(nombre, lado)
        iconos.append((lado, png if lado >= COMO_PNG else mapa(png)))
    escribir("sorvanel.ico", 1, iconos, lambda lado: (1, 32))
    punteros = [(lado, mapa(dibujar(nombre, lado))) for lado, nombre in PUNTERO]
    (AQUI / "instalador.bmp").write_bytes(lateral(dibujar("sorvanel", LATERAL[2])))
    escribir("marcha.cur", 2, punteros, lambda lado: (round(lado * PUNTA), round(lado * PUNTA)))


if __name__ == "__main__":
    main()
