#include "display/registroVisor.h"

#include <algorithm>
#include <cctype>

#include "config/numeros.h"

namespace sorvanel {

namespace {

std::string minusculas(std::string texto) {
    std::transform(texto.begin(), texto.end(), texto.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return texto;
}

bool esDigito(char c) {
    return c >= '0' && c <= '9';
}

// One digit each, as the grid has no more than eight rows and columns.
void leerUbicacion(const std::string& texto, RegistroVisor& registro) {
    if (texto.size() != 3 || !esDigito(texto[0]) || texto[1] != ',' || !esDigito(texto[2])) return;
    registro.fila = static_cast<std::int16_t>(texto[0] - '0');
    registro.columna = static_cast<std::int16_t>(texto[2] - '0');
}

}  // namespace

RegistroVisor leerRegistroVisor(const comun& com, const AccesorINI& ini) {
    RegistroVisor registro;
    const bool pavona = minusculas(com.valDflt(ini, "Protocolo", "Tessel")) == "pavona";
    registro.protocolo = pavona ? PROTOCOLO_PAVONA : PROTOCOLO_TESSEL;
    registro.modoBulk = com.valDflt(ini, "ModoBulk", MODO_BULK_OMISION);
    registro.port = numeroInicial(ini.leer("Port"));
    registro.caption = ini.leer("Etiqueta");
    leerUbicacion(ini.leer("Ubicacion"), registro);
    for (const FilaRasgo& fila : RASGOS) registro.rasgos[fila.rasgo] = leerRasgo(fila, ini.leer(fila.clave));
    return registro;
}

void guardarRegistroVisor(const Entorno& entorno, int n, const RegistroVisor& registro) {
    AccesorINI ini = comun(entorno).abrir(seccionVisor(n));
    const std::string separador = entorno.programa.separadorDecimal();
    const auto escribir = [&](const FilaRasgo& fila) {
        ini.escribir(fila.clave, escribirRasgo(fila, registro.rasgos[fila.rasgo], separador));
    };

    ini.escribir("Protocolo", registro.protocolo == PROTOCOLO_PAVONA ? "Pavona" : "Tessel");
    ini.escribir("ModoBulk", std::to_string(registro.modoBulk));
    ini.escribir("Port", std::to_string(registro.port));
    ini.escribir("Etiqueta", registro.caption);
    // Also when empty, and before the place.
    escribir(filaDe(Rasgo::formatoPeso));
    if (registro.fila * registro.columna > 0) {
        ini.escribir("Ubicacion", std::to_string(registro.fila) + "," + std::to_string(registro.columna));
    } else {
        ini.borrarClave("Ubicacion");
    }
    for (const FilaRasgo& fila : RASGOS) {
        if (fila.rasgo == Rasgo::formatoPeso) continue;
        if (vacio(registro.rasgos[fila.rasgo])) {
            ini.borrarClave(fila.clave);
        } else {
            escribir(fila);
        }
    }
}

}  // namespace sorvanel
