#!/usr/bin/env bash
# A long run of the real Sorvanel.exe under Wine, shortened: ten million readings of both families, as fast as it
# shows them. Fails when it then holds more memory, graphic objects, window objects or handles than after the first
# minute; when one of the 64 displays does not come to say the last value of a lot of a hundred without its being sent
# again, or the system threw a datagram away (both are counted as lost); or when a display says a weight in a silence.
# The values before a lot's last one are not looked at.
#   bench/remojo.sh [--lecturas N] [--minutos N]
# With --minutos it runs that long instead. What is counted under Wine, which answers 0 where Windows tells:
#   private, resident   RssAnon + VmSwap, and VmRSS, of the process, as Linux tells them (KiB)
#   GDI                 live entries of the process's own table of graphic objects, which its PEB points to
#   USER                live window objects of the whole session (Wine has one table for all): windows, menus,
#                       cursors, icons, hooks; nothing else runs in it but what Wine itself needs
#   handles             those of the process in the system's list of all handles
# Before it begins, these three counts are tried on objects of its own, and must follow exactly.
# The lines stand in build/remojo.txt too. Afterwards other runs may build meanwhile: it runs from a copy.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
for parte in comun pantalla wine; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done

construir() {
    cmake --preset windows -DSORVANEL_BENCH=ON && cmake --build --preset windows --target Sorvanel remojo
}

cerrojo
titulo "Building"
construir </dev/null >"$OBRA/construccion-remojo.txt" 2>&1 9>&- || {
    tail -n 60 "$OBRA/construccion-remojo.txt" >&2
    error "it does not build; see build/construccion-remojo.txt"
    exit 1
}
exec 9>&- # a run of hours holds nobody up
COPIA="$OBRA/remojo"
mkdir -p "$COPIA/bench/exe" "$COPIA/src"
cp "$OBRA/windows/bench/exe/remojo.exe" "$COPIA/bench/exe/" && cp "$OBRA/windows/src/Sorvanel.exe" "$COPIA/src/" || exit 1
OBRA="$COPIA" # its screen and its prefix are its own too
pantalla_iniciar || exit 1
wine_iniciar "$OBRA/prefijo" || exit 1
titulo "Soaking"
SALIDA="$RAIZ/build/remojo.txt"
# Its output goes through a file: a pipe would be kept open by what Wine leaves running.
: >"$SALIDA" # the last run's must not be shown as this one's
wine "$OBRA/bench/exe/remojo.exe" "$@" </dev/null >"$SALIDA" 2>&1 &
REMOJO=$!
al_terminar remojo_parar
remojo_parar() { [[ -z $REMOJO ]] || kill "$REMOJO" 2>/dev/null; }
tail -n +1 -F --pid="$REMOJO" "$SALIDA" 2>/dev/null
wait "$REMOJO"
CODIGO=$?
REMOJO= # its number may be another's by now
((CODIGO <= 2)) || error "the measuring program itself ended with code $CODIGO"
exit "$CODIGO"
