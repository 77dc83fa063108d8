#!/usr/bin/env bash
# The operator's manual as one HTML file, with its pictures inside: what F1 opens when it lies beside Sorvanel.exe.
#   scripts/manual.sh OUTPUT.html
# Ends with 1 when a picture, a linked section, or one that F1 opens is missing. Needs what ./test.sh installs.
set -euo pipefail
[[ $# == 1 ]] || {
    sed -n '2,4s/^# \{0,3\}//p' "${BASH_SOURCE[0]}" >&2
    exit 2
}
# The system's own, for which its packages are, though another one may come first.
PYTHON=/usr/bin/python3
[[ -x $PYTHON ]] || PYTHON=python3
LC_ALL=C.UTF-8 exec "$PYTHON" "$(dirname "${BASH_SOURCE[0]}")/manual.py" "$1"
