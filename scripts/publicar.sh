#!/usr/bin/env bash
# Makes a release of what is committed, in build/publicacion/: the program, the zip, the installer, the manual and their
# checksums. The same commit gives the same bytes, wherever and whenever.
#   scripts/publicar.sh [--sin-pruebas] [--dos-veces]
#     --sin-pruebas   leaves ./test.sh out
#     --dos-veces     makes it once more, in a fresh clone in another folder, and compares
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
for parte in comun preparar; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done

PUBLICACION="$OBRA/publicacion"
PRUEBAS=1
DOS_VECES=0
for palabra in "$@"; do
    case "$palabra" in
        --sin-pruebas) PRUEBAS=0 ;;
        --dos-veces) DOS_VECES=1 ;;
        *) sed -n '4,6s/^# \{0,3\}//p' scripts/publicar.sh >&2; exit 2 ;;
    esac
done

# All that can be said before hours of tests.
comprobar_arbol() {
    local version="$1" rotulo="$2"
    if [[ -n $(git status --porcelain) ]]; then
        git status --short >&2
        error "a release is made of what is committed: commit this first, or put it aside"
        return 1
    fi
    if ! grep -q "^## $rotulo\$" CHANGELOG.md; then
        error "CHANGELOG.md has no heading \"$rotulo\" for version $version"
        return 1
    fi
    if [[ ! -x scripts/manual.sh ]]; then
        error "there is no manual to hand out: scripts/manual.sh, which makes it, is missing"
        return 1
    fi
}

construir() { cmake --preset windows && cmake --build --preset windows --target Sorvanel simulador; }

publicar() { # VERSION
    local entrega="$OBRA/entrega" nombre="Sorvanel-$1"
    rm -rf "$PUBLICACION" && mkdir -p "$PUBLICACION" &&
        scripts/comprobar-importaciones.py &&
        scripts/manual.sh "$OBRA/manual.html" &&
        packaging/reunir.sh "$entrega" "$OBRA/manual.html" &&
        python3 packaging/hacer-zip.py "$entrega" "$PUBLICACION/$nombre.zip" &&
        packaging/hacer-instalador.sh "$entrega" "$PUBLICACION/$nombre-instalador.exe" &&
        cp "$entrega/Sorvanel.exe" "$entrega/manual.html" "$PUBLICACION" || return 1
    (cd "$PUBLICACION" && sha256sum -- * >../SHA256SUMS.txt && mv ../SHA256SUMS.txt . && touch -d "@$SOURCE_DATE_EPOCH" -- *)
}

otra_vez() {
    local otra
    otra="$(mktemp -d "${TMPDIR:-/tmp}/sorvanel-otra-vez.XXXXXX")" || return 1
    al_terminar "rm -rf $otra"
    git clone -q "$RAIZ" "$otra/clon" && git -C "$otra/clon" checkout -q "$(git rev-parse HEAD)" &&
        (cd "$otra/clon" && scripts/publicar.sh --sin-pruebas) 9>&- || return 1
    diff "$PUBLICACION/SHA256SUMS.txt" "$otra/clon/build/publicacion/SHA256SUMS.txt"
}

VERSION="$(version_proyecto)"
ROTULO="$(rotulo_version "$VERSION")"
SOURCE_DATE_EPOCH="$(git log -1 --format=%ct)" || exit 1
export SOURCE_DATE_EPOCH
comprobar_arbol "$VERSION" "$ROTULO" || exit 1
if ((PRUEBAS)); then ./test.sh || exit 1; else nota "NOT TESTED: --sin-pruebas"; fi

cerrojo
preparar || exit 1
titulo "Building Sorvanel $ROTULO ($VERSION)"
{ construir && publicar "$VERSION"; } </dev/null >"$OBRA/publicacion.txt" 2>&1 9>&- || {
    tail -n 60 "$OBRA/publicacion.txt" >&2
    error "no release; all that was said is in build/publicacion.txt"
    rm -rf "$PUBLICACION"
    exit 1
}
cat "$PUBLICACION/SHA256SUMS.txt"
if ((DOS_VECES)); then
    titulo "The same again, in another folder"
    otra_vez || {
        error "made twice, it is not the same"
        exit 1
    }
    nota "the same bytes"
fi
((PRUEBAS)) || nota "NOT TESTED: --sin-pruebas"
nota "it is in build/publicacion/"
