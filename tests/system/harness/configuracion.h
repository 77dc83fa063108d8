#pragma once

#include <string>

namespace sorvanel::pruebas {

// Text of a settings file: sections as the operator's files have them, CRLF ends.
class Configuracion {
public:
    Configuracion& seccion(const std::string& nombre) { return linea("[" + nombre + "]"); }
    // A key of the section written last.
    Configuracion& clave(const std::string& nombre, const std::string& valor) { return linea(nombre + "=" + valor); }
    Configuracion& reticula(int filas, int columnas) {
        return seccion("RETICULA").clave("FilasColumnas", std::to_string(filas) + "x" + std::to_string(columnas));
    }
    // The next display: one of its own port, on that cell.
    Configuracion& visor(int puerto, int fila, int columna) {
        return seccion("VISOR_" + std::to_string(++m_visores))
            .clave("Port", std::to_string(puerto))
            .clave("Ubicacion", std::to_string(fila) + "," + std::to_string(columna));
    }
    operator const std::string&() const { return m_texto; }

private:
    Configuracion& linea(const std::string& nueva) {
        m_texto += nueva + "\r\n";
        return *this;
    }

    std::string m_texto;
    int m_visores = 0;
};

}  // namespace sorvanel::pruebas
