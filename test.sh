#!/usr/bin/env bash
# All checks and all tests. Needs nothing but a bare Debian 12 and the right to install packages;
# the last line says how many passed and how many failed. Takes no arguments; settings by variable:
#   SORVANEL_PANTALLA   first display number to try for the virtual screen (80)
#   SORVANEL_FUZZ       seconds for each fuzz target (3)
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
for parte in comun preparar contar pantalla wine; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done

construir() { cmake --preset "$1" && cmake --build --preset "$1"; }

formato() {
    scripts/formatear.sh --comprobar && return
    echo "To mend: scripts/formatear.sh"
    return 1
}

# One target a few seconds, beginning with the samples beside it and with what earlier runs found.
sondear() {
    local objetivo="$1" hallazgos="$OBRA/hallazgos/$1" muestras="tests/fuzz/corpus/$1" carpetas
    mkdir -p "$hallazgos"
    carpetas=("$hallazgos")
    [[ ! -d $muestras ]] || carpetas+=("$muestras")
    "$OBRA/fuzz/tests/fuzz/fuzz_$objetivo" -max_total_time="${SORVANEL_FUZZ:-3}" -timeout=10 -rss_limit_mb=2048 \
        -artifact_prefix="$hallazgos-" "${carpetas[@]}"
}

sondeos() {
    local fuente
    for fuente in tests/fuzz/*.cpp; do
        [[ -e $fuente ]] || continue
        paso "fuzz $(basename "$fuente" .cpp)" sondear "$(basename "$fuente" .cpp)"
    done
}

pruebas_de_entrega() {
    paso "imports that Windows 7 has" scripts/comprobar-importaciones.py
    paso "the same finds what is planted" scripts/comprobar-importaciones.py --prueba
    paso "installer" packaging/probar-instalador.sh
}

pruebas_de_sistema() {
    previo "virtual screen" pantalla_iniciar || return
    previo "Wine" wine_iniciar "$OBRA/prefijo" || return
    pruebas "system tests" windows
}

cerrojo
titulo "Set-up"
preparar || {
    MAL=1 FALLOS=("set-up")
    cierre
    exit 1
}

titulo "Checks"
paso "include rules" scripts/comprobar-inclusiones.py
paso "include rules find what is planted" scripts/comprobar-inclusiones.py --prueba
paso "format" formato
paso "manual" scripts/manual.sh "$OBRA/manual.html"

titulo "Unit tests, with sanitizers"
previo "build, native" construir nativo &&
    pruebas_juntas "unit tests" nativo "$OBRA/nativo/tests/unit/pruebas_unidad"

titulo "System tests, the real program"
previo "build, Windows" construir windows && {
    pruebas_de_entrega
    pruebas_de_sistema
}

titulo "Fuzzing"
previo "build, fuzz targets" construir fuzz && sondeos

titulo "Static analysis"
paso "clang-tidy" scripts/analizar.py

cierre
