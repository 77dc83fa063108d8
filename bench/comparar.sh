#!/usr/bin/env bash
# Makes docs/velocidad.md: what a reading costs here, in a bare program, with Python and Tk, and in a browser.
#   bench/comparar.sh [--breve] [--veces N]
# Installs what the peers need (apt). Some 30 minutes; the machine should be idle. --breve only tries it out: one short
# round, and the page goes to build/comparar/. Ends with 1 where a limit is passed. SORVANEL_EXE names another
# Sorvanel.exe to measure.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
for parte in comun preparar pantalla wine; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done
VECES=5 SEGUNDOS=3.2 PAGINA="$RAIZ/docs/velocidad.md"
while (($# > 0)); do
    case "$1" in
        --breve) VECES=1 SEGUNDOS=2 PAGINA="$OBRA/comparar/velocidad.md" ;;
        --veces) VECES="$2" && shift ;;
        *) error "unknown: $1" && exit 2 ;;
    esac
    shift
done
TRABAJO="$OBRA/comparar"

construir() {
    cmake --preset windows -DSORVANEL_BENCH=ON && cmake --build --preset windows --target Sorvanel desnudo &&
        g++ -std=c++20 -O2 -Wall -Wextra -Wpedantic -Wconversion bench/comparar/observador.cpp -o "$TRABAJO/observador" -lX11 -lXext -pthread
}

abrir_pantalla() { # WIDTHxHEIGHT
    Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset 3>"$TRABAJO/numero" </dev/null >"$TRABAJO/xvfb.salida" 2>&1 &
    PANTALLA_PIDS=($!)
    esperar_hasta 20 grep -q . "$TRABAJO/numero" || return 1
    DISPLAY=":$(cat "$TRABAJO/numero")"
    export DISPLAY
    openbox </dev/null >"$TRABAJO/openbox.salida" 2>&1 &
    PANTALLA_PIDS+=($!)
    esperar_hasta 20 gestor_listo
}

en_pantalla() { # WIDTHxHEIGHT
    titulo "Measuring at $1"
    abrir_pantalla "$1" || {
        error "the virtual screen did not start; see build/comparar/xvfb.salida"
        return 1
    }
    wine_iniciar "$TRABAJO/prefijo-$1" || return 1
    # Whoever has the first window starts the desktop, which takes seconds, and goes with the last one.
    SORVANEL_DESNUDO='oculta 0' setsid wine "$TRABAJO/desnudo.exe" </dev/null >/dev/null 2>&1 &
    al_terminar medidor_parar # before Wine and the screen
    # Its own streams: a pipe would be kept open by what Wine leaves running.
    /usr/bin/python3 bench/comparar/medir.py "$1" "$TRABAJO/$1.json" "$VECES" "$SEGUNDOS" "$TRABAJO" "${PANTALLA_PIDS[0]}" &
    MEDIDOR=$! # in the background: so a signal is not left waiting for it
    wait "$MEDIDOR" || return 1
    MEDIDOR=
    wine_parar
    pantalla_parar
}

PAQUETES+=(python3-tk chromium xvfb libx11-dev libxext-dev)
mkdir -p "$TRABAJO"
cerrojo
preparar || exit 1
construir_o_decir "$TRABAJO/construccion.txt" || exit 1
cp "$OBRA/windows/bench/exe/desnudo.exe" "$TRABAJO/" && cp "${SORVANEL_EXE:-$OBRA/windows/src/Sorvanel.exe}" "$TRABAJO/Comparado.exe" || exit 1
exec 9>&-
MEDIDOR=
# shellcheck disable=SC2317 # called at the end
medidor_parar() { [[ -z $MEDIDOR ]] || { kill "$MEDIDOR" && wait "$MEDIDOR"; } 2>/dev/null; }
al_terminar pantalla_parar
nota "load of the machine before it begins: $(cut -d' ' -f1-3 /proc/loadavg), on $(nproc) processors"
en_pantalla 1280x800 && en_pantalla 3840x2160 || exit 1
titulo "Limits"
/usr/bin/python3 bench/comparar/pagina.py "$TRABAJO/Comparado.exe" "$PAGINA" "$TRABAJO/1280x800.json" "$TRABAJO/3840x2160.json"
CODIGO=$?
nota "the page: ${PAGINA#"$RAIZ"/}"
exit "$CODIGO"
