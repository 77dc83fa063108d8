#!/usr/bin/env bash
# Puts into a folder what users get, taken from the Windows build: Sorvanel.exe, simulador.exe, the manual and LEEME.txt.
#   packaging/reunir.sh FOLDER MANUAL.html
set -euo pipefail
aqui="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
# shellcheck source=/dev/null
. "$aqui/../scripts/comun.sh"
(($# == 2)) || { sed -n '3s/^# \{0,3\}//p' "$0" >&2; exit 2; }
version="$(version_proyecto)"
rm -rf "$1"
mkdir -p "$1"
cp "$OBRA/windows/src/Sorvanel.exe" "$OBRA/windows/tools/simulador/simulador.exe" "$1"
cp "$2" "$1/manual.html"
# As Notepad of Windows 7 wants it: with the mark of UTF-8, and CRLF.
{
    printf '\xEF\xBB\xBF'
    sed "s/@VERSION@/$version/; s/@ROTULO@/$(rotulo_version "$version")/; s/\$/\r/" "$aqui/LEEME.txt"
} >"$1/LEEME.txt"
