#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "config/almacenPerfil.h"

namespace sorvanel {

// The profile accessor: one file, one current section. Section and key names match in any case.
// It keeps nothing itself: what one accessor writes, every other reads at once.
class AccesorINI {
public:
    explicit AccesorINI(AlmacenPerfil& almacen) : m_almacen(almacen) {}

    void archivo(std::string ruta) { m_ruta = std::move(ruta); }
    void seccion(std::string nombre) { m_seccion = std::move(nombre); }
    const std::string& seccion() const { return m_seccion; }

    // Empty when the file, the section or the key is missing.
    std::string leer(std::string_view clave) const { return m_almacen.leer(m_ruta, m_seccion, clave); }
    void escribir(std::string_view clave, std::string_view valor) {
        m_almacen.escribir(m_ruta, m_seccion, clave, valor);
    }
    void borrarClave(std::string_view clave) { m_almacen.borrarClave(m_ruta, m_seccion, clave); }
    // Deletes that section, current or not, with all that it holds.
    void borrarSeccion(std::string_view nombre) { m_almacen.borrarSeccion(m_ruta, nombre); }

private:
    AlmacenPerfil& m_almacen;
    std::string m_ruta;
    std::string m_seccion;
};

}  // namespace sorvanel
