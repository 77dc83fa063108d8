#!/usr/bin/env bash
# Brings every source file into the one format; with --comprobar, only says which are not in it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
orden=(clang-format -i)
[[ ${1:-} != --comprobar ]] || orden=(clang-format --dry-run -Werror)
for carpeta in src tests tools bench; do
    [[ ! -d $carpeta ]] || find "$carpeta" \( -name '*.cpp' -o -name '*.h' \) -print0
done | xargs -0 "${orden[@]}"
