#include "config/accesorINI.h"

#include "config/almacenPerfil.h"

namespace sorvanel {

std::string AccesorINI::leer(std::string_view clave) const {
    return m_almacen.leer(m_ruta, m_seccion, clave);
}

void AccesorINI::escribir(std::string_view clave, std::string_view valor) {
    m_almacen.escribir(m_ruta, m_seccion, clave, valor);
}

void AccesorINI::borrarClave(std::string_view clave) {
    m_almacen.borrarClave(m_ruta, m_seccion, clave);
}

void AccesorINI::borrarSeccion(std::string_view nombre) {
    m_almacen.borrarSeccion(m_ruta, nombre);
}

}  // namespace sorvanel
