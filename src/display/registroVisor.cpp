#include "display/registroVisor.h"

#include <tuple>

#include "config/numeros.h"

namespace sorvanel {

RegistroVisor leerRegistroVisor(const comun& com, const AccesorINI& ini) {
    RegistroVisor registro;
    registro.familia = &familiaDe(ini.leer("Protocolo"));
    registro.modoBulk = com.valDflt(ini, "ModoBulk", MODO_BULK_OMISION);
    registro.port = numeroInicial(ini.leer("Port"));
    registro.caption = ini.leer("Etiqueta");
    registro.origen = ini.leer(CLAVE_ORIGEN);
    // One digit each, as the grid has no more than eight rows and columns.
    if (const auto lugar = leerDosCifras(ini.leer("Ubicacion"), ','))
        std::tie(registro.fila, registro.columna) = *lugar;
    for (const FilaRasgo& fila : RASGOS) registro.rasgos[fila.rasgo] = leerRasgo(fila, ini.leer(fila.clave));
    return registro;
}

void guardarRegistroVisor(const comun& com, int n, const RegistroVisor& registro) {
    AccesorINI ini = com.abrir(seccionVisor(n));
    const std::string separador = com.separadorDecimal();
    const auto escribir = [&](const FilaRasgo& fila) {
        ini.escribir(fila.clave, escribirRasgo(fila, registro.rasgos[fila.rasgo], separador));
    };

    ini.escribir("Protocolo", registro.familia->nombre);
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
