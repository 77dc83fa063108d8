#include "config/comun.h"

#include <algorithm>
#include <cstddef>

#include "config/almacenPerfil.h"
#include "config/numeros.h"

namespace sorvanel {
namespace {

constexpr std::size_t CIFRAS_COLOR = 6;

// The program's folder, made if need be.
std::string carpeta(const Entorno& entorno) {
    std::string ruta = entorno.archivos.unir(entorno.programa.carpetaBase(), entorno.programa.nombreEjecutable());
    entorno.archivos.crearCarpeta(ruta);
    return ruta;
}

}  // namespace

AccesorINI comun::abrir(std::string_view seccion) const {
    AccesorINI accesor(m_entorno.perfil);
    prepararINI(accesor, seccion);
    return accesor;
}

void comun::prepararINI(AccesorINI& accesor, std::string_view seccion) const {
    std::string ruta = rutaINI();
    m_entorno.perfil.refrescar(ruta);
    accesor.archivo(std::move(ruta));
    if (!seccion.empty()) {
        accesor.seccion(std::string(seccion));
    }
}

std::int16_t comun::valDflt(const AccesorINI& accesor, std::string_view clave, std::int16_t omision) const {
    return leerEntero16(accesor.leer(clave)).value_or(omision);
}

std::int32_t comun::valDflt(const AccesorINI& accesor, std::string_view clave, std::int32_t omision) const {
    return leerEntero32(accesor.leer(clave)).value_or(omision);
}

std::string comun::valDflt(const AccesorINI& accesor, std::string_view clave, const char* omision) const {
    std::string texto = accesor.leer(clave);
    return texto.empty() ? omision : texto;
}

void comun::limitar(std::int16_t& valor, std::int16_t superior, std::int16_t inferior) {
    if (valor < inferior) {
        valor = inferior;
    } else if (valor > superior) {
        valor = superior;
    }
}

void comun::vLimitar(std::optional<std::int16_t>& valor, std::int16_t superior, std::int16_t inferior) {
    if (valor) {
        limitar(*valor, superior, inferior);
    }
}

bool comun::ilegible() const {
    const std::string ruta = rutaINI();
    m_entorno.perfil.refrescar(ruta);
    return m_entorno.perfil.ilegible(ruta);
}

std::string comun::rutaINI() const {
    return m_entorno.archivos.unir(carpeta(m_entorno), m_entorno.programa.nombreEjecutable() + ".ini");
}

std::string comun::rutaCopia() const {
    return m_entorno.archivos.unir(carpeta(m_entorno), m_entorno.programa.nombreEjecutable() + "_copia.ini");
}

bool comun::hacerCopiaDeINI() const {
    Archivos& archivos = m_entorno.archivos;
    const std::string ini = rutaINI();
    const std::string copia = rutaCopia();
    const bool bien = m_entorno.perfil.volcar();
    if (!archivos.sello(ini)) {
        archivos.reemplazar(ini, {});  // if that fails, so does the reading below
    }
    const std::optional<std::string> contenido = archivos.leer(ini);
    if (!contenido || !archivos.reemplazar(copia, *contenido)) {
        // A copy of an earlier session must not be what a cancel of this one puts back.
        archivos.borrar(copia);
        return false;
    }
    return bien;
}

bool comun::restaurarCopiaDeINI() const {
    const std::string ini = rutaINI();
    m_entorno.perfil.asentar();
    const std::optional<std::string> contenido = m_entorno.archivos.leer(rutaCopia());
    if (!contenido) {
        return false;
    }
    // Also where nothing can be written: what never reached the file need not be taken back from it.
    if (m_entorno.archivos.leer(ini) != contenido && !m_entorno.archivos.reemplazar(ini, *contenido)) {
        m_entorno.perfil.poner(ini, *contenido);
        return false;
    }
    m_entorno.perfil.olvidar(ini);
    return true;
}

// While some window has the mouse to itself the system begins no move.
void comun::Arrastre(Arrastrable& ventana) {
    ventana.soltarRaton();
    ventana.agarrarTitulo();
}

std::string comun::Long2RGB(Color color) {
    constexpr std::string_view CIFRAS = "0123456789ABCDEF";
    auto resto = static_cast<std::uint32_t>(color);
    std::string texto(CIFRAS_COLOR, '0');
    for (auto c = texto.rbegin(); c != texto.rend(); ++c, resto >>= 4U) {
        *c = CIFRAS[resto & 0xFU];
    }
    return texto;
}

Color comun::rgb2Long(std::string_view texto) {
    const std::size_t fin = texto.find_first_not_of("0123456789abcdefABCDEF");
    std::string_view cifras = texto.substr(0, fin);
    // Only digits that count, so that zeros in front do not make it too large.
    cifras.remove_prefix(std::min(cifras.find_first_not_of('0'), cifras.size()));
    return leerHexadecimal(cifras).value_or(0);
}

}  // namespace sorvanel
