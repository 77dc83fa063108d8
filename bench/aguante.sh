#!/usr/bin/env bash
# Puts the whole Sorvanel.exe under stress, as it is built for release, under Wine on a virtual screen, and writes what
# came of it into docs/aguante.md.
#   bench/aguante.sh [--breve | --romper] [corte] [estorbos] [basura] [avalancha] [reconexiones] [configuraciones] [monitores] [remojo]
# Without a part: all, some three hours. Each part has a screen and a prefix of its own; runs of other parts may go on
# beside it. --breve: a few turns of each, ten minutes, no page. --romper: each part (but remojo) breaks itself what it
# checks, and must see it. Needs what ./test.sh installs, and root for the disks. SORVANEL_EXE names another Sorvanel.exe.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
for parte in comun pantalla wine; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done

TODAS=(corte estorbos basura avalancha reconexiones configuraciones monitores remojo)
MODO=()
PEDIDAS=()
for palabra in "$@"; do
    case "$palabra" in
        --breve | --romper) MODO=("$palabra") ;;
        *) PEDIDAS+=("$palabra") ;;
    esac
done
((${#PEDIDAS[@]} > 0)) || PEDIDAS=("${TODAS[@]}")
[[ ${MODO[*]} != --romper ]] || PEDIDAS=("${PEDIDAS[@]/remojo/}")

construir() {
    cmake --preset windows -DSORVANEL_BENCH=ON && cmake --build --preset windows --target Sorvanel aguante
}

cerrojo
construir_o_decir "$OBRA/construccion-aguante.txt" || exit 1
RESULTADOS="$OBRA/aguante"
COPIA="$RESULTADOS/$$" # a copy: other runs may build meanwhile
mkdir -p "$COPIA/bench/aguante" "$COPIA/src"
cp "$OBRA"/windows/bench/aguante/*.exe "$COPIA/bench/aguante/" &&
    cp "${SORVANEL_EXE:-$OBRA/windows/src/Sorvanel.exe}" "$COPIA/src/Sorvanel.exe" || exit 1
exec 9>&- # a run of hours holds nobody up
al_terminar copia_borrar
copia_borrar() {
    # What a part that was killed has left mounted.
    awk -v lugar="$COPIA/" 'index($2, lugar) == 1 { print $2 }' /proc/mounts | xargs -r -n 1 umount -l
    rm -rf "$COPIA"
}
OBRA="$COPIA"
pantalla_iniciar && wine_iniciar "$OBRA/prefijo" || exit 1

PROBADOR=
al_terminar probador_parar
probador_parar() { [[ -z $PROBADOR ]] || kill "$PROBADOR" 2>/dev/null; }

# Its output goes through a file: a pipe would be kept open by what Wine leaves running.
probar() { # PART: 0 where it held (with --romper: where it saw what was broken)
    local salida="$COPIA/$1.txt" inicio=$SECONDS codigo carga
    carga="$(cut -d' ' -f1-3 /proc/loadavg)"
    titulo "$1 ${MODO[*]}"
    : >"$salida"
    wine "$COPIA/bench/aguante/aguante.exe" "${MODO[@]}" "$1" </dev/null >"$salida" 2>&1 &
    PROBADOR=$!
    wait "$PROBADOR"
    codigo=$?
    PROBADOR=
    cat "$salida"
    if [[ ${MODO[*]} == --romper ]]; then
        ((codigo == 1)) && return
        error "what was broken is not seen by $1 (code $codigo)"
        return 1
    fi
    if ((${#MODO[@]} == 0)); then
        {
            printf '%s\n' "$(date -u '+%F %H:%M') UTC" "$((SECONDS - inicio)) s" "$codigo" "$carga" \
                "$(sha256sum <"$COPIA/src/Sorvanel.exe" | cut -c1-12)"
            cat "$salida"
        } >"$RESULTADOS/$1.txt"
    fi
    return "$codigo"
}

# Read whole before it begins: in the hours that it takes somebody may change this file.
{
    MAL=()
    for parte in "${PEDIDAS[@]}"; do
        [[ -z $parte ]] || probar "$parte" || MAL+=("$parte")
    done
    ((${#MODO[@]} > 0)) || RESULTADOS="$RESULTADOS" python3 bench/aguante/pagina.py "${TODAS[@]}" >docs/aguante.md || exit 1
    ((${#MAL[@]} == 0)) || {
        error "failed: ${MAL[*]}"
        exit 1
    }
    exit 0
}
