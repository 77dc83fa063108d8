#!/usr/bin/env bash
# Installs, upgrades and uninstalls under Wine, silently, and looks at what is there afterwards. Needs the Windows build;
# brings its own screen and prefix. Ends with 0 if all is as it should be.
# Rights and the firewall are stubs in Wine: stand-ins note how they are called, and what Windows makes of that is not
# tested here. Nor are the pages: who changes them looks at them.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
for parte in comun pantalla wine; do
    # shellcheck source=/dev/null
    . "scripts/$parte.sh"
done

TALLER="$OBRA/instalador"
CLAVE='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Sorvanel'
INICIO='HKLM\Software\Microsoft\Windows\CurrentVersion\Run'
FALLOS=0

# comprobar WHAT COMMAND...: one thing that is so or not.
comprobar() {
    local que="$1"
    shift
    if "$@" >"$TALLER/salida.txt" 2>&1 9>&-; then
        printf 'ok    %s\n' "$que"
    else
        printf 'FAIL  %s\n' "$que"
        sed 's/^/      | /' "$TALLER/salida.txt"
        FALLOS=$((FALLOS + 1))
    fi
}

ventana() { wine "$@" </dev/null >/dev/null 2>&1 9>&-; }
abrir() { exec wine "$@" </dev/null >"$TALLER/dicho.txt" 2>&1 9>&-; } # with "&": $! is its own number
instalar() { # EXIT-CODE INSTALLER SWITCH...
    local esperado="$1" codigo=0
    shift
    : >"$ORDENES"
    ventana "$@" || codigo=$?
    leer_registro
    echo "exit code $codigo"
    ((codigo == esperado))
}
# Through a file, since a pipe would be kept open by what Wine leaves running.
leer_registro() {
    local clave
    for clave in "$CLAVE" "$INICIO"; do
        wine reg query "$clave" </dev/null 2>/dev/null 9>&-
    done >"$TALLER/crudo.txt"
    sed 's/\r$//' "$TALLER/crudo.txt" >"$TALLER/registro.txt"
}
valor() { # NAME: what the registry held when it was read; false without it
    sed -n "s/^ *$1  *REG_[A-Z]*  *//p" "$TALLER/registro.txt" | grep .
}
vale() {
    local visto
    visto="$(valor "$1")"
    echo "it is: $visto"
    [[ $visto == "$2" ]]
}
no() { ! "$@"; }
iguales() { cmp "$1" "$2"; }
solo() { [ "$(ls "$1")" == "$2" ]; }
hay() { [[ -e $1 ]]; }
ordeno() { grep -qiE -- "$1" "$ORDENES" || { cat "$ORDENES"; false; }; }
acaba() { # PID SECONDS: by itself, and well
    esperar_hasta "$2" no kill -0 "$1" && wait "$1"
}
se_ven() { [ "$(xdotool search --onlyvisible --name '^Sorvanel$' | wc -l)" -ge "$1" ]; }

# Stands in for icacls and netsh: notes its command line; fails while there is a C:\falla.txt.
hacer_apuntador() {
    x86_64-w64-mingw32-gcc-posix -O -s -municode -x c -o "$1" - <<'C'
#include <stdio.h>
#include <windows.h>
int wmain(int cuantos, wchar_t** palabras) {
    FILE* ordenes = _wfopen(L"C:\\ordenes.txt", L"a");
    for (int i = 0; i < cuantos; ++i) fwprintf(ordenes, L"%ls ", palabras[i]);
    fwprintf(ordenes, L"\n");
    fclose(ordenes);
    return GetFileAttributesW(L"C:\\falla.txt") != INVALID_FILE_ATTRIBUTES;
}
C
}

preparar_taller() {
    rm -rf "$TALLER" && mkdir -p "$TALLER"
    echo "<h1>Manual</h1>" >"$TALLER/manual.html" # what is in it does not matter here
    packaging/reunir.sh "$TALLER/entrega" "$TALLER/manual.html" &&
        packaging/hacer-instalador.sh "$TALLER/entrega" "$TALLER/vieja.exe" &&
        cp -r "$TALLER/entrega" "$TALLER/despues" && printf 'x' >>"$TALLER/despues/Sorvanel.exe" &&
        packaging/hacer-instalador.sh "$TALLER/despues" "$TALLER/nueva.exe" 9.8.7 &&
        pantalla_iniciar && wine_iniciar "$OBRA/prefijo-instalador" || exit 1
    export WINEDLLOVERRIDES="$WINEDLLOVERRIDES;icacls.exe,netsh.exe=n"
    DISCO="$WINEPREFIX/drive_c"
    PROGRAMA="$DISCO/Program Files/Sorvanel"
    AJUSTES="$DISCO/ProgramData/Sorvanel"
    MENU="$DISCO/ProgramData/Microsoft/Windows/Start Menu/Programs/Sorvanel"
    ORDENES="$DISCO/ordenes.txt"
    local una
    for una in icacls netsh; do hacer_apuntador "$DISCO/windows/system32/$una.exe" || exit 1; done
    # An earlier run may have been cut off.
    rm -rf "$PROGRAMA" "$AJUSTES" "$MENU" "$DISCO"/{falla.txt,Otra,Tercera}
    ventana reg delete 'HKLM\Software\Sorvanel' /f
    ventana reg delete "$CLAVE" /f
}

primera_instalacion() {
    comprobar "installs" instalar 0 "$TALLER/vieja.exe" /S
    local uno
    for uno in Sorvanel.exe simulador.exe manual.html LEEME.txt; do
        comprobar "  $uno" iguales "$TALLER/entrega/$uno" "$PROGRAMA/$uno"
    done
    comprobar "  nothing half made" no grep -q nuevo <(ls "$PROGRAMA")
    comprobar "  menu: the program" hay "$MENU/Sorvanel.lnk"
    comprobar "  starts at logon" vale Sorvanel '"C:\Program Files\Sorvanel\Sorvanel.exe"'
    comprobar "  name" vale DisplayName Sorvanel
    comprobar "  publisher" vale Publisher Sorvanel
    comprobar "  version" vale DisplayVersion "$(version_proyecto)"
    comprobar "  icon" vale DisplayIcon 'C:\Program Files\Sorvanel\Sorvanel.exe'
    comprobar "  quiet uninstall" vale QuietUninstallString '"C:\Program Files\Sorvanel\Desinstalar.exe" /S'
    comprobar "  size, in KB" [ "$(($(valor EstimatedSize)))" -gt "$(($(stat -c %s "$PROGRAMA/Sorvanel.exe") / 1024))" ]
    comprobar "  settings' folder" hay "$AJUSTES"
    comprobar "  users may write there" ordeno 'icacls.exe C:.ProgramData.Sorvanel /grant \*S-1-5-32-545:\(OI\)\(CI\)M '
    comprobar "  firewall: the program's UDP from near" ordeno 'netsh.exe advfirewall firewall add rule name=Sorvanel dir=in action=allow program=C:.Program Files.Sorvanel.Sorvanel.exe protocol=udp remoteip=localsubnet profile=any enable=yes'
}

con_el_programa_abierto() {
    printf '[RETICULA]\r\nFilasColumnas=1x1\r\n[VISOR_1]\r\nPort=39001\r\nUbicacion=1,1\r\n; mío\r\n' >"$TALLER/mio.ini"
    cp "$TALLER/mio.ini" "$AJUSTES/Sorvanel.ini"
    cp "$PROGRAMA/Sorvanel.exe" "$PROGRAMA/Sorvanel2.exe"
    abrir 'C:\Program Files\Sorvanel\Sorvanel.exe' & local uno=$!
    comprobar "runs" esperar_hasta 30 se_ven 1
    abrir 'C:\Program Files\Sorvanel\Sorvanel2.exe' & local otro=$! # before the other: it would be closed first
    comprobar "so does a copy under another name" esperar_hasta 30 se_ven 2
    comprobar "upgrades in place" instalar 0 "$TALLER/nueva.exe" /S /ARRANCAR=0 /INICIO=0 /SIMULADOR=0 /CORTAFUEGOS=0
    comprobar "  the running copy has closed, and well" acaba "$uno" 10
    comprobar "  the other copy runs on" kill -0 "$otro"
    comprobar "  the new program" iguales "$TALLER/despues/Sorvanel.exe" "$PROGRAMA/Sorvanel.exe"
    comprobar "  the settings are untouched" iguales "$TALLER/mio.ini" "$AJUSTES/Sorvanel.ini"
    comprobar "  version" vale DisplayVersion 9.8.7
    comprobar "  not at logon, as asked" no valor Sorvanel
    comprobar "  no simulator, as asked" no hay "$PROGRAMA/simulador.exe"
    comprobar "  the firewall's rule goes, as asked" ordeno 'delete rule name=all dir=in program=C:.Program Files.Sorvanel.Sorvanel.exe'
    comprobar "upgrades, nothing asked" instalar 0 "$TALLER/vieja.exe" /S
    comprobar "  the choices stay: not at logon" no valor Sorvanel
    comprobar "  the choices stay: no rule" no ordeno 'add rule'
    kill "$otro" && wait "$otro" 2>/dev/null
}

cuando_no_puede() {
    # Nobody closes it: it has no window.
    cp "$TALLER/entrega/simulador.exe" "$PROGRAMA/Sorvanel.exe"
    abrir 'C:\Program Files\Sorvanel\Sorvanel.exe' --puertos 39002 & local uno=$!
    comprobar "a program that does not close" esperar_hasta 10 [ -s "$TALLER/dicho.txt" ]
    comprobar "  code 4" instalar 4 "$TALLER/nueva.exe" /S /ESPERA=1
    comprobar "  it was not killed" kill -0 "$uno"
    comprobar "  nothing has changed" iguales "$TALLER/entrega/simulador.exe" "$PROGRAMA/Sorvanel.exe"
    comprobar "  version as before" vale DisplayVersion "$(version_proyecto)"
    kill "$uno" && wait "$uno" 2>/dev/null
    : >"$DISCO/falla.txt"
    comprobar "rights and rule refused: code 6" instalar 6 "$TALLER/nueva.exe" /S /CORTAFUEGOS=1
    comprobar "  installed all the same" iguales "$TALLER/despues/Sorvanel.exe" "$PROGRAMA/Sorvanel.exe"
    rm "$DISCO/falla.txt"
}

desinstalado() { leer_registro && no hay "$PROGRAMA/Desinstalar.exe" && no valor DisplayName; }
desinstalaciones() {
    echo notas >"$AJUSTES/notas.txt" && : >"$AJUSTES/Sorvanel_copia.ini" && : >"$AJUSTES/Sorvanel.log"
    comprobar "uninstalls" instalar 0 'C:\Program Files\Sorvanel\Desinstalar.exe' /S
    comprobar "  is gone" esperar_hasta 20 desinstalado
    comprobar "  of its folder the user's copy alone stays" solo "$PROGRAMA" Sorvanel2.exe
    comprobar "  menu" no hay "$MENU"
    comprobar "  firewall" ordeno 'delete rule name=all dir=in program=C:.Program Files.Sorvanel.Sorvanel.exe'
    comprobar "  the settings stay" iguales "$TALLER/mio.ini" "$AJUSTES/Sorvanel.ini"
    rm -r "$PROGRAMA"
    comprobar "installs elsewhere" instalar 0 "$TALLER/vieja.exe" /S '/D=C:\Otra'
    comprobar "  there" iguales "$TALLER/entrega/Sorvanel.exe" "$DISCO/Otra/Sorvanel.exe"
    comprobar "  forgets what was chosen before" vale Sorvanel '"C:\Otra\Sorvanel.exe"'
    comprobar "moves" instalar 0 "$TALLER/nueva.exe" /S '/D=C:\Tercera'
    comprobar "  there" iguales "$TALLER/despues/Sorvanel.exe" "$DISCO/Tercera/Sorvanel.exe"
    comprobar "  and not here any more" no hay "$DISCO/Otra"
    comprobar "  the settings stay" iguales "$TALLER/mio.ini" "$AJUSTES/Sorvanel.ini"
    comprobar "uninstalls with the settings" instalar 0 'C:\Tercera\Desinstalar.exe' /S /BORRAR=1
    comprobar "  is gone" esperar_hasta 20 no hay "$DISCO/Tercera"
    comprobar "  of the settings' folder what is not ours stays" esperar_hasta 20 solo "$AJUSTES" notas.txt
    leer_registro
    comprobar "  not at logon" no valor Sorvanel
}

preparar_taller
primera_instalacion
con_el_programa_abierto
cuando_no_puede
desinstalaciones
nota "$FALLOS failed, $SECONDS s"
((FALLOS == 0))
