#!/usr/bin/env bash
# Pictures of fixed scenes of the real program, to see what a change did to the screen.
#   scripts/escenas.sh FOLDER [EXE] [ACT...]     plays them, of EXE or of the Sorvanel.exe that this tree builds, at
#                                                100, 150 and 200 %, into FOLDER/100/<scene>.png and so on
#   scripts/escenas.sh --comparar BEFORE AFTER   names each scene that differs, with the number of differing pixels;
#                                                shows them in <scene>.diferencia.png beside the later picture
# Ends with 0; with 1 when a scene could not be played, or differs. An empty EXE is the one of this tree;
# SORVANEL_ESCALAS names fewer scales ("150"). Needs what ./test.sh installs.
set -uo pipefail
DONDE="$PWD"
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
for parte in comun pantalla wine; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done

uso() {
    sed -n '3,6s/^# \{0,3\}//p' "$RAIZ/scripts/escenas.sh" >&2
    exit 2
}
absoluta() { (cd "$DONDE" && realpath -m -- "$1"); }

# ---- comparing ----

fotos_de() { (cd "$1" 2>/dev/null && find . -name '*.png' ! -name '*.diferencia.png' -printf '%P\n'); }

comparar_una() { # BEFORE AFTER: says how many pixels differ; true when none does
    local pixeles codigo=0
    pixeles="$(compare -precision 9 -metric AE "$1" "$2" "${2%.png}.diferencia.png" 2>&1)" || codigo=$?
    ((codigo != 0)) || rm -f "${2%.png}.diferencia.png"
    ((codigo < 2)) && [[ $pixeles =~ ^[0-9.e+]+$ ]] || pixeles="cannot be compared:"
    printf '%s' "$pixeles"
    return "$codigo"
}

comparar() { # BEFORE AFTER
    local foto pixeles iguales=0 distintas=0
    find "$2" -name '*.diferencia.png' -delete
    while read -r foto; do
        if [[ ! -e $1/$foto || ! -e $2/$foto ]]; then
            printf '%10s  %s\n' "only one" "$foto"
        elif cmp -s "$1/$foto" "$2/$foto" || pixeles="$(comparar_una "$1/$foto" "$2/$foto")"; then
            iguales=$((iguales + 1))
            continue
        else
            printf '%10s  %s\n' "$pixeles" "$foto"
        fi
        distintas=$((distintas + 1))
    done < <({ fotos_de "$1"; fotos_de "$2"; } | sort -u)
    printf '%d the same, %d different\n' "$iguales" "$distintas"
    ((distintas == 0 && iguales > 0))
}

# ---- playing ----

# As much room for the scene whatever the scale: the tools are larger than the usual screen at 200 %.
agrandar_pantalla() { # PERCENT
    local ancho=$((1280 * $1 / 100)) alto=$((800 * $1 / 100)) modo="escena-$1"
    # The times mean nothing to a screen that is none.
    xrandr --newmode "$modo" 200 "$ancho" $((ancho + 8)) $((ancho + 40)) $((ancho + 80)) \
        "$alto" $((alto + 8)) $((alto + 16)) $((alto + 32)) &&
        xrandr --addmode DUMMY0 "$modo" &&
        xrandr --output DUMMY0 --mode "$modo" --right-of DUMMY1 --primary && xrandr >/dev/null
}

# Takes effect with the next start of the prefix. A caret that does not blink is in every picture alike.
escala_de_wine() { # DPI
    local clave='HKCU\Control Panel\Desktop'
    wine reg add "$clave" /v LogPixels /t REG_DWORD /d "$1" /f </dev/null >/dev/null 2>&1 9>&- &&
        wine reg add "$clave" /v CursorBlinkRate /t REG_SZ /d -1 /f </dev/null >/dev/null 2>&1 9>&- &&
        servidor_wine -k -w && wine_iniciar "$WINEPREFIX"
}

jugar() { # FOLDER PERCENT ACT...
    local carpeta="$1" tanto="$2" codigo=0
    shift 2
    rm -rf "$OBRA/escenas/fotos"
    (($# > 0)) || rm -f "$carpeta/$tanto"/*.png # nothing old passes for new
    mkdir -p "$OBRA/escenas/fotos" "$carpeta/$tanto"
    agrandar_pantalla "$tanto" && escala_de_wine $((96 * tanto / 100)) || return 1
    # Its output goes through a file: a pipe would be kept open by what Wine leaves running.
    (cd "$OBRA/escenas" && exec wine escenas.exe fotos "$@") \
        </dev/null >"$OBRA/escenas/salida.txt" 2>&1 9>&- || codigo=1
    sed "s/^/   $tanto %: /" "$OBRA/escenas/salida.txt"
    # Without the date, so that equal pictures are equal files.
    [[ -z $(ls "$OBRA/escenas/fotos") ]] || mogrify -format png -path "$carpeta/$tanto" -strip \
        -define png:exclude-chunks=date,time "$OBRA"/escenas/fotos/*.ppm || codigo=1
    return "$codigo"
}

construir() { # the program too, unless one is given
    cmake --preset windows && cmake --build --preset windows --target "$@"
}

(($# >= 1)) || uso
if [[ $1 == --comparar ]]; then
    (($# == 3)) || uso
    comparar "$(absoluta "$2")" "$(absoluta "$3")"
    exit
fi
[[ $1 != -* ]] || uso
CARPETA="$(absoluta "$1")"
OBJETIVOS=(escenas)
if [[ -n ${2:-} ]]; then EXE="$(absoluta "$2")"; else EXE="$OBRA/windows/src/Sorvanel.exe" OBJETIVOS+=(Sorvanel); fi
shift $(($# < 2 ? $# : 2))

cerrojo
mkdir -p "$OBRA/escenas"
construir_o_decir "$OBRA/construccion-escenas.txt" "${OBJETIVOS[@]}" || exit 1
cp "$OBRA/windows/tools/escenas/escenas.exe" "$OBRA/escenas/" && cp "$EXE" "$OBRA/escenas/Sorvanel.exe" || exit 1
pantalla_iniciar && wine_iniciar "$OBRA/prefijo-escenas" || exit 1
CODIGO=0
for tanto in ${SORVANEL_ESCALAS:-100 150 200}; do jugar "$CARPETA" "$tanto" "$@" || CODIGO=1; done
nota "$(fotos_de "$CARPETA" | wc -l) pictures in $CARPETA, $SECONDS s"
exit "$CODIGO"
