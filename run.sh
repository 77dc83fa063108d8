#!/usr/bin/env bash
# Builds the program and starts it on a sample configuration, with a simulator that feeds it.
# With a usable DISPLAY it runs there until its window is closed. Without one it runs on a virtual
# screen until weights show, leaves a picture in build/captura.png, and ends.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
for parte in comun preparar pantalla wine muestra; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done

construir() {
    cmake --preset windows && cmake --build --preset windows --target Sorvanel simulador
}

mostrar() { # runs on the user's screen
    nota "running on display $DISPLAY; close its window to end"
    wait "$PROGRAMA"
}

retratar() { # runs on a virtual one
    if ! esperar_hasta 60 muestra_con_pesos; then
        error "no weights came within a minute"
        return 1
    fi
    import -window root -crop "$(monitor_primario)" +repage "$OBRA/captura.png" || return 1
    nota "weights show; the picture is build/captura.png"
}

cerrojo
preparar || exit 1
construir_o_decir "$OBRA/construccion.txt" || exit 1

titulo "Running"
hacer=mostrar
if ! { [[ -n ${DISPLAY:-} ]] && xdpyinfo >/dev/null 2>&1; }; then
    hacer=retratar
    pantalla_iniciar || exit 1
fi
# A prefix of its own holds settings of its own: nobody's are touched.
wine_iniciar "$OBRA/prefijo-muestra" || exit 1
muestra_iniciar || exit 1
"$hacer"
