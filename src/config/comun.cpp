#include "config/comun.h"

#include <algorithm>
#include <cstddef>

#include "config/numeros.h"
#include "config/perfilINI.h"

namespace sorvanel {
namespace {

constexpr std::size_t CIFRAS_COLOR = 6;

bool defineVisores(std::string_view bytes) {
    const PerfilINI perfil(bytes);
    for (int n = 1; n <= MAXIMO_VISORES; ++n) {
        if (!perfil.leer(seccionVisor(n), "Port").value_or("").empty()) return true;
    }
    return false;
}

}  // namespace

comun::comun(const Programa& programa, Archivos& archivos, AlmacenPerfil& perfil)
    : m_programa(programa),
      m_archivos(archivos),
      m_perfil(perfil),
      m_carpeta(archivos.unir(programa.carpetaBase(), programa.nombreEjecutable())),
      m_rutaINI(archivos.unir(m_carpeta, programa.nombreEjecutable() + ".ini")),
      m_rutaCopia(archivos.unir(m_carpeta, programa.nombreEjecutable() + "_copia.ini")),
      m_rutaAnterior(archivos.unir(m_carpeta, programa.nombreEjecutable() + "_copia_anterior.ini")),
      m_rutaRegistro(archivos.unir(m_carpeta, programa.nombreEjecutable() + ".log")) {}

void comun::refrescar() const {
    m_archivos.crearCarpeta(m_carpeta);
    m_perfil.refrescar(m_rutaINI);
}

AccesorINI comun::abrir(std::string_view seccion) const {
    refrescar();
    return consultar(seccion);
}

AccesorINI comun::consultar(std::string_view seccion) const {
    AccesorINI accesor(m_perfil);
    accesor.archivo(m_rutaINI);
    accesor.seccion(std::string(seccion));
    return accesor;
}

void comun::prepararINI(AccesorINI& accesor, std::string_view seccion) const {
    refrescar();
    accesor.archivo(m_rutaINI);
    if (!seccion.empty()) accesor.seccion(std::string(seccion));
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
    valor = valor < inferior ? inferior : std::min(valor, superior);
}

void comun::vLimitar(std::optional<std::int16_t>& valor, std::int16_t superior, std::int16_t inferior) {
    if (valor) limitar(*valor, superior, inferior);
}

std::string comun::ilegible() const {
    refrescar();
    const std::string motivo = m_perfil.ilegible(m_rutaINI);
    return motivo.empty() ? motivo : m_rutaINI + " (" + motivo + ")";
}

bool comun::hacerCopiaDeINI() const {
    m_archivos.crearCarpeta(m_carpeta);
    const bool bien = m_perfil.volcar();
    Lectura actual = m_archivos.leer(m_rutaINI);
    if (actual.ausente) {
        m_archivos.crearVacio(m_rutaINI);  // if that fails, so does the reading
        actual = m_archivos.leer(m_rutaINI);
    }
    // What is too large to be settings is none that could be worked on.
    return actual.contenido && actual.contenido->size() <= AlmacenPerfil::TAMANO_MAXIMO &&
           apartarCopia(*actual.contenido) && m_archivos.reemplazar(m_rutaCopia, *actual.contenido) && bien;
}

// It may be all that is left of what was set up, where the settings themselves were lost.
bool comun::apartarCopia(const std::string& nueva) const {
    const Lectura copia = m_archivos.leer(m_rutaCopia);
    if (copia.ausente || defineVisores(nueva)) return true;
    if (!copia.contenido) return false;
    return !defineVisores(*copia.contenido) || m_archivos.reemplazar(m_rutaAnterior, *copia.contenido);
}

bool comun::restaurarCopiaDeINI() const {
    const Lectura copia = m_archivos.leer(m_rutaCopia);
    if (copia.contenido) return m_perfil.reponer(m_rutaINI, *copia.contenido);
    m_perfil.descartar(m_rutaINI);
    return false;
}

void comun::descartarCambios() const {
    m_perfil.descartar(m_rutaINI);
}

void comun::volcar() const {
    m_perfil.volcar();
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
    for (auto c = texto.rbegin(); c != texto.rend(); ++c, resto >>= 4U) *c = CIFRAS[resto & 0xFU];
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
