#pragma once

#include <string>
#include <string_view>

namespace sorvanel {

class AlmacenPerfil;

// The profile accessor: one file, one current section. Section and key names match in any case.
// It keeps nothing itself: what one accessor writes, every other reads at once.
class AccesorINI {
public:
    explicit AccesorINI(AlmacenPerfil& almacen) : m_almacen(almacen) {}

    void archivo(std::string ruta) { m_ruta = std::move(ruta); }
    void seccion(std::string nombre) { m_seccion = std::move(nombre); }
    const std::string& seccion() const { return m_seccion; }

    // Empty when the file, the section or the key is missing.
    std::string leer(std::string_view clave) const;
    void escribir(std::string_view clave, std::string_view valor);
    void borrarClave(std::string_view clave);
    // Deletes that section, current or not, with all that it holds.
    void borrarSeccion(std::string_view nombre);

private:
    AlmacenPerfil& m_almacen;
    std::string m_ruta;
    std::string m_seccion;
};

}  // namespace sorvanel
