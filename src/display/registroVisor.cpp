#include "display/registroVisor.h"

#include <tuple>

#include "config/numeros.h"

namespace sorvanel {

namespace {

std::optional<std::int16_t> leerAcotado(const AccesorINI& ini, const char* clave, std::int16_t maximo) {
    auto valor = leerEntero16(ini.leer(clave));
    comun::vLimitar(valor, maximo, 0);
    return valor;
}

std::optional<Color> leerColor(const AccesorINI& ini, const char* clave) {
    const auto valor = leerHexadecimal(ini.leer(clave));
    return valor ? std::optional(colorPintable(*valor)) : std::nullopt;
}

template <typename T, typename Texto>
void escribirPropio(AccesorINI& ini, const char* clave, const std::optional<T>& valor, Texto texto) {
    if (valor) {
        ini.escribir(clave, texto(*valor));
    } else {
        ini.borrarClave(clave);
    }
}

}  // namespace

RegistroVisor leerRegistroVisor(const comun& com, const AccesorINI& ini) {
    RegistroVisor registro;
    registro.familia = &familiaDe(ini.leer("Protocolo"));
    registro.modoBulk = com.valDflt(ini, "ModoBulk", MODO_BULK_OMISION);
    registro.port = numeroInicial(ini.leer("Port"));
    registro.caption = ini.leer("Etiqueta");
    registro.formatoPeso = ini.leer("formatoPeso");
    // One digit each, as the grid has no more than eight rows and columns.
    if (const auto lugar = leerDosCifras(ini.leer("Ubicacion"), ','))
        std::tie(registro.fila, registro.columna) = *lugar;
    registro.anchoEtiqueta = leerAcotado(ini, "anchoEtiqueta", comun::MAXWIDLABL);
    registro.ajusteEtiqueta = leerAcotado(ini, "ajusteEtiqueta", 2);
    registro.colorFondoEtiqueta = leerColor(ini, "fondoEtiqueta");
    registro.colorTextoEtiqueta = leerColor(ini, "textoEtiqueta");
    registro.colorFondoPeso = leerColor(ini, "fondoPeso");
    registro.colorTextoPeso = leerColor(ini, "textoPeso");
    registro.ratioAlturas = leerReal(ini.leer("ratioAlturas"));
    return registro;
}

void guardarRegistroVisor(const Entorno& entorno, int n, const RegistroVisor& registro) {
    AccesorINI ini = comun(entorno).abrir(seccionVisor(n));
    const auto decimal = [](std::int16_t valor) { return std::to_string(valor); };
    const auto color = [](Color valor) { return comun::Long2RGB(valor); };
    const std::string separador = entorno.programa.separadorDecimal();

    ini.escribir("Protocolo", registro.familia->nombre);
    ini.escribir("ModoBulk", std::to_string(registro.modoBulk));
    ini.escribir("Port", std::to_string(registro.port));
    ini.escribir("Etiqueta", registro.caption);
    ini.escribir("formatoPeso", registro.formatoPeso);
    if (registro.fila * registro.columna > 0) {
        ini.escribir("Ubicacion", std::to_string(registro.fila) + "," + std::to_string(registro.columna));
    } else {
        ini.borrarClave("Ubicacion");
    }
    escribirPropio(ini, "anchoEtiqueta", registro.anchoEtiqueta, decimal);
    escribirPropio(ini, "ajusteEtiqueta", registro.ajusteEtiqueta, decimal);
    escribirPropio(ini, "fondoEtiqueta", registro.colorFondoEtiqueta, color);
    escribirPropio(ini, "textoEtiqueta", registro.colorTextoEtiqueta, color);
    escribirPropio(ini, "fondoPeso", registro.colorFondoPeso, color);
    escribirPropio(ini, "textoPeso", registro.colorTextoPeso, color);
    escribirPropio(ini, "ratioAlturas", registro.ratioAlturas,
                   [&](float valor) { return textoDeReal(valor, separador); });
}

}  // namespace sorvanel
