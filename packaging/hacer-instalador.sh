#!/usr/bin/env bash
# Makes the installer out of what a release holds; the same files give the same bytes.
#   packaging/hacer-instalador.sh FOLDER INSTALLER [VERSION]
# FOLDER holds Sorvanel.exe, simulador.exe, manual.html and LEEME.txt. The version is the project's, unless a test
# gives another one.
set -euo pipefail
aqui="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
# shellcheck source=/dev/null
. "$aqui/../scripts/comun.sh"
(($# == 2 || $# == 3)) || { sed -n '3,5s/^# \{0,3\}//p' "$0" >&2; exit 2; }
version="${3:-$(version_proyecto)}"
entrega="$(realpath -e "$1")"
salida="$(realpath -m "$2")"
cd "$aqui"
makensis -V2 -WX -INPUTCHARSET UTF8 -DVERSION="$version" -DROTULO="$(rotulo_version "$version")" \
    -DENTREGA="$entrega" -DSALIDA="$salida" instalador.nsi
