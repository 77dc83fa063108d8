#!/usr/bin/env bash
# Measures the whole Sorvanel.exe, as it is built for release, under Wine on a virtual screen; the figures stand in a
# small table, and in build/medidas.txt.
#   bench/exe/medir.sh [--veces N] [arranque] [caudal] [banda] [reconexion] [herramienta] [asas] [remojo]
# Without a part: all but remojo, about five minutes. Needs what ./test.sh installs. The machine should be idle: a
# figure and the one it stands beside come from the same run, but not from the same second. It runs from a copy: other
# runs may build meanwhile. SORVANEL_EXE names another Sorvanel.exe to measure, as from before a change.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 1
for parte in comun pantalla wine; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done

construir() {
    cmake --preset windows -DSORVANEL_BENCH=ON && cmake --build --preset windows --target Sorvanel desnudo medir
}

cerrojo
construir_o_decir "$OBRA/construccion-medidas.txt" || exit 1
SALIDA="$OBRA/medidas.txt"
COPIA="$OBRA/medidas"
mkdir -p "$COPIA/bench/exe" "$COPIA/src"
cp "$OBRA"/windows/bench/exe/*.exe "$COPIA/bench/exe/" && cp "${SORVANEL_EXE:-$OBRA/windows/src/Sorvanel.exe}" "$COPIA/src/Sorvanel.exe" || exit 1
exec 9>&- # a run of hours holds nobody up
OBRA="$COPIA" # its screen and its prefix are its own too
pantalla_iniciar || exit 1
wine_iniciar "$OBRA/prefijo" || exit 1
titulo "Measuring"
nota "load of the machine before it begins: $(cut -d' ' -f1-3 /proc/loadavg), on $(nproc) processors"
# Its output goes through a file: a pipe would be kept open by what Wine leaves running.
: >"$SALIDA" # the last run's must not be shown as this one's
wine "$OBRA/bench/exe/medir.exe" "$@" </dev/null >"$SALIDA" 2>&1 &
MEDIDOR=$!
al_terminar medidor_parar
medidor_parar() { [[ -z $MEDIDOR ]] || kill "$MEDIDOR" 2>/dev/null; }
tail -n +1 -F --pid="$MEDIDOR" "$SALIDA" 2>/dev/null
wait "$MEDIDOR"
CODIGO=$?
MEDIDOR= # its number may be another's by now
((CODIGO <= 2)) || error "the measuring program itself ended with code $CODIGO"
exit "$CODIGO"
