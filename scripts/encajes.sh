#!/usr/bin/env bash
# Says how large digits and captions become in each grid, the caption beside the weight and above it: a table. Ends with
# 1 where above gains too little, or a caption cannot be read. Needs a built Windows preset and what ./test.sh installs.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
for parte in comun pantalla wine; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done
pantalla_iniciar >/dev/null && wine_iniciar "$OBRA/prefijo-encajes" >/dev/null || exit 1
wine "$OBRA/windows/tools/encajes/encajes.exe" </dev/null
