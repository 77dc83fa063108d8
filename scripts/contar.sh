# Steps of a test run, each counted, none hidden: a step passes or fails, and the run goes on.
# shellcheck shell=bash

BIEN=0
MAL=0
FALLOS=()
REGISTROS="$OBRA/registros"

anotar() { # NAME CODE SECONDS
    if (($2 == 0)); then
        BIEN=$((BIEN + 1))
        printf 'ok    %-42s %4d s\n' "$1" "$3"
    else
        MAL=$((MAL + 1))
        FALLOS+=("$1")
        printf 'FAIL  %-42s %4d s\n' "$1" "$3"
    fi
}

# paso NAME COMMAND...: one thing that passes or fails; what it says is shown when it fails.
paso() { ejecutar_paso anotar "$@"; }

# previo NAME COMMAND...: what tests stand on. It is counted only when it fails: making a program is
# no test of it.
previo() { ejecutar_paso anotar_previo "$@"; }

anotar_previo() {
    anotar "$@"
    (($2 != 0)) || BIEN=$((BIEN - 1))
}

ejecutar_paso() { # HOW-TO-COUNT NAME COMMAND...
    local cuenta="$1" nombre="$2" registro inicio=$SECONDS codigo=0
    shift
    shift
    mkdir -p "$REGISTROS"
    registro="$REGISTROS/${nombre//[^[:alnum:]]/_}.txt"
    "$@" </dev/null >"$registro" 2>&1 9>&- || codigo=$?
    "$cuenta" "$nombre" "$codigo" $((SECONDS - inicio))
    if ((codigo != 0)); then
        tail -n 150 "$registro" | sed 's/^/      | /'
        nota "all of it: ${registro#"$RAIZ"/}"
    fi
    return "$codigo"
}

# pruebas NAME PRESET [CTEST OPTIONS]: all tests of a preset, counted one by one.
pruebas() {
    local nombre="$1" preset="$2" inicio=$SECONDS codigo=0 informe registro
    shift 2
    mkdir -p "$REGISTROS"
    informe="$REGISTROS/$preset.xml" registro="$REGISTROS/$preset.txt"
    rm -f "$informe"
    ctest --preset "$preset" --no-tests=error --output-junit "$informe" "$@" </dev/null >"$registro" 2>&1 9>&- || codigo=$?
    local pasadas=0 falladas=0 omitidas=0
    read -r pasadas falladas omitidas < <(python3 "$RAIZ/scripts/leer-informe.py" "$informe") || true
    # CTest may fail as a whole, with no test to blame.
    ((codigo == 0 || falladas > 0)) || falladas=1
    ((pasadas + falladas > 0)) || falladas=1
    BIEN=$((BIEN + pasadas))
    MAL=$((MAL + falladas))
    printf '%-5s %-42s %4d s   (%d passed, %d failed)\n' "$( ((falladas)) && echo FAIL || echo ok)" "$nombre" \
        $((SECONDS - inicio)) "$pasadas" "$falladas"
    ((omitidas == 0)) || nota "$omitidas skipped: they count as neither"
    if ((falladas > 0)); then
        FALLOS+=("$nombre")
        sed 's/^/      | /' "$registro" | grep -vE '\|\s+(Start +[0-9]+:|[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed )' | tail -n 250
        nota "all of it: ${registro#"$RAIZ"/}"
    fi
    ((falladas == 0))
}

# pruebas_juntas NAME PRESET PROGRAM: all tests of one program in one process, which takes a tenth of
# the time. If anything fails, one process each: so a crash hides no other result.
pruebas_juntas() {
    local inicio=$SECONDS informe="$REGISTROS/$2-juntas.xml" pasadas falladas omitidas
    mkdir -p "$REGISTROS"
    rm -f "$informe"
    if "$3" --gtest_brief=1 --gtest_output="xml:$informe" </dev/null >"${informe%.xml}.txt" 2>&1 9>&-; then
        read -r pasadas falladas omitidas < <(python3 "$RAIZ/scripts/leer-informe.py" "$informe")
        if ((pasadas > 0 && falladas == 0)); then
            BIEN=$((BIEN + pasadas))
            printf 'ok    %-42s %4d s   (%d passed, 0 failed)\n' "$1" $((SECONDS - inicio)) "$pasadas"
            ((omitidas == 0)) || nota "$omitidas skipped: they count as neither"
            return 0
        fi
    fi
    pruebas "$1" "$2" -j "$(nproc)"
}

# The last line of a run, and its exit code.
cierre() {
    local fallo
    echo
    for fallo in "${FALLOS[@]}"; do printf 'failed: %s\n' "$fallo"; done
    printf '%d passed, %d failed\n' "$BIEN" "$MAL"
    ((MAL == 0 && BIEN > 0))
}
