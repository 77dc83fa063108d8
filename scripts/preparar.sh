# Installs what building and testing need, on Debian 12. Only what is missing, and nothing at all
# (no network either) when nothing is.
# shellcheck shell=bash

PAQUETES=(
    # building
    build-essential cmake ninja-build g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
    # checking
    clang libclang-rt-14-dev clang-format clang-tidy python3
    libgtest-dev libgmock-dev googletest libbenchmark-dev
    # running the Windows program on a virtual screen
    wine wine64 xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils x11-utils
    xdotool openbox imagemagick fonts-liberation
    # packaging
    nsis python3-markdown
)

paquetes_que_faltan() {
    local paquete estado
    for paquete in "${PAQUETES[@]}"; do
        estado="${INSTALADOS[$paquete]:-}"
        [[ $estado == installed ]] || printf '%s\n' "$paquete"
    done
}

preparar() {
    if ! command -v dpkg-query >/dev/null; then
        error "this set-up knows Debian 12 (apt). Elsewhere install these by hand: ${PAQUETES[*]}"
        return 1
    fi
    declare -A INSTALADOS=()
    local nombre estado
    while read -r nombre estado; do
        INSTALADOS[$nombre]=$estado
    done < <(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "${PAQUETES[@]}" 2>/dev/null)
    local faltan
    mapfile -t faltan < <(paquetes_que_faltan)
    ((${#faltan[@]} > 0)) || return 0

    local como=()
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            error "run once as root, or install: ${faltan[*]}"
            return 1
        fi
        como=(sudo)
    fi
    nota "installing: ${faltan[*]}"
    "${como[@]}" apt-get update -q </dev/null || nota "apt-get update failed; trying with what is known"
    "${como[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${faltan[@]}" </dev/null
}
