#!/usr/bin/env python3
"""Makes the page of the proof under stress from what each part left; see bench/aguante.sh."""

import os
import pathlib
import platform
import re
import subprocess
import sys
import textwrap

TEXTOS = {
    "corte": "**Power cut.** In each configuration captions are typed in the displays' dialog, numbered on and on; each "
    "must be seen in the file, one by one. Then the program is killed by SIGKILL, 0 to 120 ms after the last caption, "
    "after accepting or after cancelling; in every tenth configuration while the copy for cancelling is made. The file must then be, byte for byte, one "
    "of the states that were entered, none older than what was seen in it before; so must the copy; and the program must "
    "start with these captions. What a disk loses with its own power is not played: the program writes beside, flushes "
    "and renames.",
    "estorbos": "**A full disk, a read-only folder, a read-only file.** The settings' folder is a disk of 64 KiB that "
    "another file fills, then a read-only mount, then the file has no right to be written. Without a copy the program must "
    "not go into configuration; of a caption that cannot be saved it must tell once, and try again; the old file must stay "
    "as it is; weights must come; and the caption must be in the file once it can be written again.",
    "basura": "**Rubbish.** In place of the settings file, before the start and while weights come: nothing, bytes by "
    "chance up to 5 MiB, NULs, UTF-16, mixed encodings, half a line, a line of a megabyte, 100 000 sections, absurd "
    "numbers, a folder, and the good file with bytes changed, cut off or doubled by chance. The program must not crash, "
    "must show weights on, must not change what stands there, and must run once the good file is back.",
    "avalancha": "**Floods.** Three senders without a pause, to 16 displays of both families: frames, rubbish of up to "
    "1 400 bytes, the concentrator's lines with bad ones between. Meanwhile one indicator speaks and falls silent: its "
    "weight must come, and be gone within 5 s; the window must answer within 2 s. Afterwards each display must say the "
    "last value.",
    "reconexiones": "**The concentrator comes and goes.** It hangs up, and every 25th time its program is killed. Each "
    "time the program must call again, and four displays must say the new session's reading. It is sent once, and said "
    "for a second: a busy machine may miss that. Where it was not seen, it is sent again, and counted below.",
    "configuraciones": "**Into configuration and out.** Accepted and cancelled in turns, three times of four with a tool open; "
    "every tenth time it runs in between. The file must stay as it is, and eight displays must say a weight.",
    "monitores": "**Monitors.** The second monitor, on which the program runs, is switched off and on; every tenth time "
    "the primary one changes its size meanwhile. The window must cover its monitor each time (the primary one while "
    "the other is off), and four displays on it must say a new weight. Wine does not always tell the "
    "windows of a change: the message that Windows sends for it is sent by the test.",
    "remojo": "**A long run.** Readings in lots of a hundred to 64 displays of both families under a scrolling message, with "
    "silences and hang-ups: the last value of each lot on each display without being sent again, no weight in a silence.",
}


def parte(nombre):
    """The row of the table, and the section."""
    titulo = f"## {nombre}\n\n" + textwrap.fill(TEXTOS[nombre], 118)
    archivo = pathlib.Path(os.environ["RESULTADOS"]) / f"{nombre}.txt"
    if not archivo.exists():
        return f"| {nombre} | not run | | | |", f"{titulo}\n\nNot run.\n"
    cuando, tardo, codigo, carga, exe, *salida = archivo.read_text(encoding="utf-8", errors="replace").splitlines()
    dicho = next((una.strip()[2:] for una in reversed(salida) if una.strip().startswith("= ")), "FAILED: ended early")
    if codigo != "0" and "FAILED" not in dicho:
        dicho = "FAILED: " + dicho
    texto = "\n".join(una.rstrip() for una in salida).strip("\n")
    fila = f"| {nombre} | {dicho} | {cuando} | {tardo} | `{exe}` |"
    return fila, f"{titulo}\n\nLoad of the machine before it: {carga}.\n\n```text\n{texto}\n```\n"


def main():
    version = re.search(r"project\(Sorvanel VERSION ([\d.]+)", pathlib.Path("CMakeLists.txt").read_text("utf-8"))[1]
    wine = subprocess.run(["wine", "--version"], capture_output=True, text=True, check=True).stdout.strip()
    partes = [parte(nombre) for nombre in sys.argv[1:]]
    print(
        f"""# Under stress

Made by `bench/aguante.sh`, which runs all of it again; `bench/aguante.sh PART` runs one part, `--breve` a few turns of
each. Below stands the last run of each part, with the program that it was made with.
With `--romper` each part breaks on purpose what it checks, and must see it: a check that cannot fail shows nothing.

On: version {version}, {wine}, {platform.system()} {".".join(platform.release().split(".")[:2])}, {os.cpu_count()} processors, a virtual screen of
two monitors. Under Wine the file system, the network and the screen are Linux's: on Windows none of this was run.
Where a part says that nothing grew, private and resident memory have grown by 1 MiB at the most, GDI objects, USER
objects and handles by 4 each, from an early turn to the last one.

| Part | Result | Ended | Took | Sorvanel.exe, SHA-256 |
|---|---|---|---|---|"""
    )
    print("\n".join(fila for fila, _ in partes))
    for _, seccion in partes:
        print("\n" + seccion, end="")


main()
