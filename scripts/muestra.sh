# A sample to look at: five weighing points in their own colours and formats, and their indicators.
# shellcheck shell=bash

PROGRAMA=
SIMULADOR=

# So many UDP ports, one after another, that nobody on this machine holds; prints the first.
puertos_libres() {
    python3 - "$1" <<'FIN'
import socket
import sys

cuantos = int(sys.argv[1])


def libre(puerto):
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as tanteo:
        try:
            tanteo.bind(("", puerto))
        except OSError:
            return False
    return True


print(next(p for p in range(9001, 60000, cuantos) if all(libre(p + i) for i in range(cuantos))))
FIN
}

# Colours are written blue first.
escribir_muestra() { # FIRST-PORT
    cat <<FIN
[RETICULA]
FilasColumnas=3x2
gruesoVertical=4
gruesoHorizontal=4
colorReticula=404040
colorFondo=606060
colorAplicacion=FFFFFF
[VISORES]
anchoEtiqueta=3
ajusteEtiqueta=2
fondoEtiqueta=7A3B12
textoEtiqueta=FFFFFF
fondoPeso=FFFFFF
textoPeso=000000
formatoPeso=####0
[VISOR_1]
Port=$1
Etiqueta=Tolva 1
Ubicacion=1,1
[VISOR_2]
Port=$(($1 + 1))
Etiqueta=Báscula puente
Ubicacion=1,2
fondoEtiqueta=1E6B1E
formatoPeso=####0" kg"
[VISOR_3]
Port=$(($1 + 2))
Etiqueta=Palés
Ubicacion=2,1
formatoPeso=##0.0
fondoPeso=000000
textoPeso=00FF80
fondoEtiqueta=202020
[VISOR_4]
Port=$(($1 + 3))
Etiqueta=Ensacado
Ubicacion=2,2
formatoPeso=#0.000
fondoEtiqueta=0050C8
[VISOR_5]
Port=$(($1 + 4))
Etiqueta=Camión en cañón
Ubicacion=3,1
fondoPeso=400000
textoPeso=00E6FF
anchoEtiqueta=6
[VISOR_6]
Port=$(($1 + 5))
Etiqueta=Sin señal
Ubicacion=3,2
fondoEtiqueta=505050
FIN
}

muestra_iniciar() {
    local puerto carpeta="$WINEPREFIX/drive_c/ProgramData/Sorvanel"
    puerto="$(puertos_libres 6)" || return 1
    mkdir -p "$carpeta"
    escribir_muestra "$puerto" | iconv -f UTF-8 -t CP1252 | sed 's/$/\r/' >"$carpeta/Sorvanel.ini"
    al_terminar muestra_parar
    # The sixth stays silent: so that is seen too.
    wine "$OBRA/windows/tools/simulador/simulador.exe" --puertos "$puerto-$((puerto + 4))" \
        --capacidad 6000,9000,1500,50,60000 --division 5,5,0.5,0.005,20 --semilla 7 \
        </dev/null >"$OBRA/simulador.salida" 2>&1 9>&- &
    SIMULADOR=$!
    wine "$OBRA/windows/src/Sorvanel.exe" </dev/null >"$OBRA/sorvanel.salida" 2>&1 9>&- &
    PROGRAMA=$!
}

# Both belong to Wine, which ends with its prefix; here it is only seen that nothing stays.
muestra_parar() {
    kill "$SIMULADOR" "$PROGRAMA" 2>/dev/null
    servidor_wine -k -w
    wait "$SIMULADOR" "$PROGRAMA" 2>/dev/null
    return 0
}

monitor_primario() { xrandr | sed -n 's/.* connected primary \([0-9x+]*\).*/\1/p'; }

# True when the screen shows what only weights and silence together show: the dashes' pure red in
# the last cell, and the green digits of the third.
muestra_con_pesos() {
    kill -0 "$PROGRAMA" "$SIMULADOR" || return 1
    import -window root -crop "$(monitor_primario)" +repage -depth 8 -format %c histogram:info:- >"$OBRA/colores.txt" &&
        hay_color FF0000 500 && hay_color 80FF00 500
}

hay_color() { # RRGGBB AT-LEAST
    awk -v color="#$1" -v minimo="$2" '
        index($0, color) { sub(/:.*/, "", $1); if ($1 + 0 >= minimo) hallado = 1 }
        END { exit !hallado }' "$OBRA/colores.txt"
}
