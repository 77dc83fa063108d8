#!/usr/bin/env bash
# Measures the whole Sorvanel.exe, as it is built for release, under Wine on a virtual screen; the figures stand in a
# small table, and in build/medidas.txt.
#   bench/exe/medir.sh [--veces N] [arranque] [caudal] [banda] [reconexion] [herramienta] [asas]
# Without a part: all of them, about five minutes. Needs what ./test.sh installs. The machine should be idle: a
# figure and the one it stands beside come from the same run, but not from the same second.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 1
for parte in comun pantalla wine; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done

construir() {
    cmake --preset windows -DSORVANEL_BENCH=ON &&
        cmake --build --preset windows --target Sorvanel desnudo medir
}

cerrojo
titulo "Building"
construir </dev/null >"$OBRA/construccion-medidas.txt" 2>&1 9>&- || {
    tail -n 60 "$OBRA/construccion-medidas.txt" >&2
    error "it does not build; see build/construccion-medidas.txt"
    exit 1
}
pantalla_iniciar || exit 1
wine_iniciar "$OBRA/prefijo-medidas" || exit 1
titulo "Measuring"
nota "load of the machine before it begins: $(cut -d' ' -f1-3 /proc/loadavg), on $(nproc) processors"
# Its output goes through a file: a pipe would be kept open by what Wine leaves running.
: >"$OBRA/medidas.txt" # the last run's must not be shown as this one's
wine "$OBRA/windows/bench/exe/medir.exe" "$@" </dev/null >"$OBRA/medidas.txt" 2>&1 9>&- &
MEDIDOR=$!
al_terminar medidor_parar
medidor_parar() { [[ -z $MEDIDOR ]] || kill "$MEDIDOR" 2>/dev/null; }
tail -n +1 -F --pid="$MEDIDOR" "$OBRA/medidas.txt" 2>/dev/null 9>&-
wait "$MEDIDOR"
CODIGO=$?
MEDIDOR= # its number may be another's by now
((CODIGO <= 2)) || error "the measuring program itself ended with code $CODIGO"
exit "$CODIGO"
