# A Wine prefix of our own under build/, made once, with a server that stays for the whole run.
# shellcheck shell=bash

servidor_wine() {
    local candidato
    for candidato in /usr/lib/wine/wineserver64 /usr/lib/wine/wineserver wineserver; do
        command -v "$candidato" >/dev/null && break
    done
    "$candidato" "$@" </dev/null >/dev/null 2>&1 9>&-
}

# wine_iniciar FOLDER: needs DISPLAY.
wine_iniciar() {
    export WINEPREFIX="$1" WINEARCH=win64 WINEDEBUG=-all
    # No Mono, no browser; and a crash must end the program, not open a debugger's window.
    export WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe=d"
    local marca="$WINEPREFIX/.listo" version
    version="$(wine --version 9>&- </dev/null)"
    # A server left by a run that was killed belongs to a screen that is gone.
    [[ ! -d $WINEPREFIX ]] || servidor_wine -k -w || true
    al_terminar wine_parar
    if [[ "$(cat "$marca" 2>/dev/null)" != "$version" ]]; then
        rm -rf "$WINEPREFIX"
        mkdir -p "$WINEPREFIX"
        servidor_wine -p
        nota "making the Wine prefix (once)"
        wineboot -i </dev/null >"$OBRA/wineboot.salida" 2>&1 9>&- || {
            error "wineboot failed; see $OBRA/wineboot.salida"
            return 1
        }
        printf '%s\n' "$version" >"$marca"
    else
        servidor_wine -p
    fi
    # The services that the first program starts keep its streams for ever: give them none.
    wine cmd /c ver </dev/null >/dev/null 2>&1 9>&-
}

wine_parar() {
    [[ -n ${WINEPREFIX:-} && -d $WINEPREFIX ]] && servidor_wine -k -w
    return 0
}
