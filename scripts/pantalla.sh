# A virtual screen of two monitors: the primary one (1280x800) at the right, a second (1024x768) at
# the left, so that Windows sees negative coordinates. With a window manager: without one, closing a
# window blocks for seconds and keys go to whatever lies under the pointer.
# shellcheck shell=bash

PANTALLA_PIDS=()

escribir_config_xorg() {
    cat >"$1" <<'FIN'
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoAddGPU" "false"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "virtual"
    Driver "dummy"
    VideoRam 256000
EndSection
Section "Monitor"
    Identifier "virtual"
    HorizSync 5.0-1000.0
    VertRefresh 5.0-200.0
EndSection
Section "Screen"
    Identifier "virtual"
    Device "virtual"
    Monitor "virtual"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes "1280x800" "1024x768"
        Virtual 4096 2048
    EndSubSection
EndSection
FIN
}

gestor_listo() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }

# Two monitors as Windows numbers them: the primary first, though it stands at the right.
colocar_monitores() {
    xrandr --addmode DUMMY1 1024x768 &&
        xrandr --output DUMMY1 --mode 1024x768 --pos 0x0 --output DUMMY0 --mode 1280x800 --pos 1024x0 --primary &&
        xrandr --output DUMMY0 --right-of DUMMY1 &&
        # Wine takes the server's last answer without asking again: without this it sees one monitor.
        xrandr >/dev/null
}

arrancar_xorg() { # NUMBER FOLDER
    # The server itself, not its wrapper, which wants a console.
    local xorg=/usr/lib/xorg/Xorg
    [[ -x $xorg ]] || xorg=Xorg
    "$xorg" ":$1" -config "$2/xorg.conf" -logfile "$2/xorg.log" -noreset -nolisten tcp \
        </dev/null >"$2/xorg.salida" 2>&1 9>&- &
    PANTALLA_PIDS+=($!)
    export DISPLAY=":$1"
    local pid=$! fin=$((SECONDS + 20))
    until xdpyinfo >/dev/null 2>&1; do
        kill -0 "$pid" 2>/dev/null || return 1 # the number was taken after all
        ((SECONDS < fin)) || return 1
        sleep 0.05
    done
    # Whoever answers must be the server started here.
    kill -0 "$pid" 2>/dev/null
}

# pantalla_iniciar: sets DISPLAY. SORVANEL_PANTALLA gives the first number to try.
pantalla_iniciar() {
    local numero carpeta="$OBRA/pantalla"
    mkdir -p "$carpeta"
    escribir_config_xorg "$carpeta/xorg.conf"
    al_terminar pantalla_parar
    local primero="${SORVANEL_PANTALLA:-80}"
    for ((numero = primero; numero < primero + 40; numero++)); do
        [[ -e /tmp/.X$numero-lock || -e /tmp/.X11-unix/X$numero ]] && continue
        arrancar_xorg "$numero" "$carpeta" && break
        pantalla_parar
    done
    if ((${#PANTALLA_PIDS[@]} == 0)); then
        error "the virtual screen did not start; see $carpeta/xorg.salida"
        return 1
    fi
    colocar_monitores || return 1
    openbox </dev/null >"$carpeta/openbox.salida" 2>&1 9>&- &
    PANTALLA_PIDS+=($!)
    esperar_hasta 20 gestor_listo || {
        error "the window manager did not start; see $carpeta/openbox.salida"
        return 1
    }
}

pantalla_parar() {
    local i
    for ((i = ${#PANTALLA_PIDS[@]} - 1; i >= 0; i--)); do
        kill "${PANTALLA_PIDS[i]}" 2>/dev/null
        wait "${PANTALLA_PIDS[i]}" 2>/dev/null
    done
    PANTALLA_PIDS=()
}
