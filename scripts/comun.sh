# Sourced by the other scripts: where things are, messages, waiting by condition, and clean ends.
# shellcheck shell=bash

RAIZ="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
OBRA="$RAIZ/build"
# Plain "C" makes every file name with an accent fail under Wine.
export LC_ALL=C.UTF-8

titulo() { printf '\n== %s\n' "$*"; }
nota() { printf '   %s\n' "$*"; }
error() { printf 'error: %s\n' "$*" >&2; }

# The one place that holds the version; and as the program shows it: 1.0.1 is "1.00A".
version_proyecto() { sed -n 's/^project(Sorvanel VERSION \([0-9.]*\) .*/\1/p' "$RAIZ/CMakeLists.txt"; }
rotulo_version() {
    local mayor menor revision
    IFS=. read -r mayor menor revision <<<"$1"
    printf '%d.%02d%b\n' "$mayor" "$menor" "$( ((revision == 0)) || printf '\\x%x' $((64 + revision)))"
}

# esperar_hasta SECONDS COMMAND...: true as soon as the command is, false when the time is over.
esperar_hasta() {
    local fin=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS < fin)) || return 1
        sleep 0.05
    done
}

# Actions for the script's end, run last to first, whatever ends it.
ACCIONES_FINALES=()
al_terminar() { ACCIONES_FINALES+=("$1"); }
ejecutar_finales() {
    local codigo=$? i
    trap '' INT TERM HUP
    for ((i = ${#ACCIONES_FINALES[@]} - 1; i >= 0; i--)); do
        ${ACCIONES_FINALES[i]} || true
    done
    exit "$codigo"
}
trap ejecutar_finales EXIT
# Said aloud: a run that ends without its last line should tell who ended it.
trap 'error "stopped by SIGINT"; exit 130' INT
trap 'error "stopped by SIGTERM"; exit 143' TERM
trap 'error "stopped by SIGHUP"; exit 129' HUP

# One run a tree at a time: two would share the build folder and the Wine prefix. What is started
# in the background must close descriptor 9, or it would keep the lock.
cerrojo() {
    mkdir -p "$OBRA"
    exec 9>"$OBRA/.cerrojo"
    flock -n 9 || {
        nota "another run is using $OBRA: waiting for it"
        flock 9
    }
}

# Builds by the caller's own construir(); where that fails, says so with the end of what it wrote into LOG.
construir_o_decir() { # LOG, arguments of construir()
    titulo "Building"
    construir "${@:2}" </dev/null >"$1" 2>&1 9>&- && return
    tail -n 60 "$1" >&2
    error "it does not build; see ${1#"$RAIZ"/}"
    return 1
}
