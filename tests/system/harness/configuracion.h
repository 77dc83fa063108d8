#pragma once

#include <string>

namespace sorvanel::pruebas {

// Text of a settings file: sections as the operator's files have them, CRLF ends.
class Configuracion {
public:
    Configuracion& reticula(int filas, int columnas);
    // The next display: one of its own port, on that cell.
    Configuracion& visor(int puerto, int fila, int columna);
    Configuracion& seccion(const std::string& nombre);
    // A key of the section written last.
    Configuracion& clave(const std::string& nombre, const std::string& valor);
    operator const std::string&() const { return m_texto; }

private:
    std::string m_texto;
    int m_visores = 0;
};

}  // namespace sorvanel::pruebas
