#include "config/comun.h"

#include <algorithm>
#include <cstddef>

#include "config/almacenPerfil.h"
#include "config/numeros.h"
#include "config/perfilINI.h"
#include "config/seccionVisor.h"

namespace sorvanel {
namespace {

constexpr std::size_t CIFRAS_COLOR = 6;

// The program's folder, made if need be.
std::string carpeta(const Entorno& entorno) {
    std::string ruta = entorno.archivos.unir(entorno.programa.carpetaBase(), entorno.programa.nombreEjecutable());
    entorno.archivos.crearCarpeta(ruta);
    return ruta;
}

bool defineVisores(std::string_view bytes) {
    const PerfilINI perfil(bytes);
    for (int n = 1; n <= MAXIMO_VISORES; ++n) {
        if (!perfil.leer(seccionVisor(n), "Port").value_or("").empty()) return true;
    }
    return false;
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

Color comun::valColor(const AccesorINI& accesor, std::string_view clave, const char* omision) const {
    return colorPintable(rgb2Long(valDflt(accesor, clave, omision)));
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

std::string comun::ilegible() const {
    const std::string ruta = rutaINI();
    m_entorno.perfil.refrescar(ruta);
    const std::string motivo = m_entorno.perfil.ilegible(ruta);
    return motivo.empty() ? motivo : ruta + " (" + motivo + ")";
}

std::string comun::rutaINI() const {
    return m_entorno.archivos.unir(carpeta(m_entorno), m_entorno.programa.nombreEjecutable() + ".ini");
}

std::string comun::rutaCopia() const {
    return m_entorno.archivos.unir(carpeta(m_entorno), m_entorno.programa.nombreEjecutable() + "_copia.ini");
}

std::string comun::rutaAnterior() const {
    return m_entorno.archivos.unir(carpeta(m_entorno), m_entorno.programa.nombreEjecutable() + "_copia_anterior.ini");
}

bool comun::hacerCopiaDeINI() const {
    Archivos& archivos = m_entorno.archivos;
    const std::string ini = rutaINI();
    const bool bien = m_entorno.perfil.volcar();
    Lectura actual = archivos.leer(ini);
    if (actual.ausente) {
        archivos.crearVacio(ini);  // if that fails, so does the reading
        actual = archivos.leer(ini);
    }
    return actual.contenido && apartarCopia(*actual.contenido) && archivos.reemplazar(rutaCopia(), *actual.contenido) &&
           bien;
}

// It may be all that is left of what was set up, where the settings themselves were lost.
bool comun::apartarCopia(const std::string& nueva) const {
    const Lectura copia = m_entorno.archivos.leer(rutaCopia());
    if (copia.ausente || defineVisores(nueva)) return true;
    if (!copia.contenido) return false;
    return !defineVisores(*copia.contenido) || m_entorno.archivos.reemplazar(rutaAnterior(), *copia.contenido);
}

bool comun::restaurarCopiaDeINI() const {
    const std::string ini = rutaINI();
    const Lectura copia = m_entorno.archivos.leer(rutaCopia());
    if (copia.contenido) return m_entorno.perfil.reponer(ini, *copia.contenido);
    m_entorno.perfil.descartar(ini);
    return false;
}

void comun::descartarCambios() const {
    m_entorno.perfil.descartar(rutaINI());
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
