#!/usr/bin/env bash
# The pictures of the operator's manual, taken of the real program, into docs/imagenes (or FOLDER).
#   scripts/imagenes-manual.sh [EXE] [FOLDER]    of EXE, or of the Sorvanel.exe that this tree builds
# Ends with 0; with 1 when a scene could not be played. They are taken in a network of its own, where this computer has
# the addresses of the example, so that no picture shows those of the machine: root, or a kernel that lets users have
# one. Needs what ./test.sh installs, and "ip".
set -uo pipefail
DONDE="$PWD"
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
# shellcheck source=scripts/comun.sh
. scripts/comun.sh

absoluta() { (cd "$DONDE" && realpath -m -- "$1"); }

# The indicator's address lies on the inner interface: the program does not list it among its own.
red_propia() {
    ip link set lo up && ip address add 192.168.1.40/32 dev lo &&
        ip link add red0 type veth peer name red1 && ip address add 192.168.1.20/24 dev red0 &&
        ip link set red1 up && ip link set red0 up
}

if [[ ${1:-} == --dentro ]]; then
    red_propia || exit 1
    SORVANEL_ESCALAS=100 exec scripts/escenas.sh "$2" "$3" manual
fi

EXE="" CARPETA="$RAIZ/docs/imagenes"
[[ -z ${1:-} ]] || EXE="$(absoluta "$1")"
[[ -z ${2:-} ]] || CARPETA="$(absoluta "$2")"
AISLAR=(unshare --net)
((EUID == 0)) || AISLAR=(unshare --net --map-root-user)
"${AISLAR[@]}" scripts/imagenes-manual.sh --dentro "$OBRA/manual" "$EXE" || exit 1

# A palette, without noise: flat colours and letters lose nothing by it, and a picture is a third as large.
mkdir -p "$CARPETA"
for foto in "$OBRA"/manual/100/*.png; do
    convert "$foto" +dither -colors 128 -strip -define png:exclude-chunks=date,time \
        -define png:compression-level=9 "PNG8:$CARPETA/$(basename "$foto")" || exit 1
done
nota "$(du -cb "$CARPETA"/*.png | tail -n 1 | cut -f 1) bytes in $CARPETA"
