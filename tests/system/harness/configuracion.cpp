#include "harness/configuracion.h"

namespace sorvanel::pruebas {

Configuracion& Configuracion::reticula(int filas, int columnas) {
    return seccion("RETICULA").clave("FilasColumnas", std::to_string(filas) + "x" + std::to_string(columnas));
}

Configuracion& Configuracion::visor(int puerto, int fila, int columna) {
    return seccion("VISOR_" + std::to_string(++m_visores))
        .clave("Port", std::to_string(puerto))
        .clave("Ubicacion", std::to_string(fila) + "," + std::to_string(columna));
}

Configuracion& Configuracion::seccion(const std::string& nombre) {
    m_texto += "[" + nombre + "]\r\n";
    return *this;
}

Configuracion& Configuracion::clave(const std::string& nombre, const std::string& valor) {
    m_texto += nombre + "=" + valor + "\r\n";
    return *this;
}

}  // namespace sorvanel::pruebas
