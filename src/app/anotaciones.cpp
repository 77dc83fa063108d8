#include "app/anotaciones.h"

#include <cmath>

namespace sorvanel {

namespace {

constexpr float TWIPS_AL_CIEN = 15;  // to a pixel

}  // namespace

std::string textoVersion(const Version& version) {
    std::string texto = std::to_string(version.mayor);
    texto += version.menor < 10 ? ".0" : ".";
    texto += std::to_string(version.menor);
    texto += static_cast<char>('A' - 1 + version.revision);
    return texto;
}

std::string textoMonitor(const oScreen& pantalla) {
    const Monitor monitor = pantalla.monitor();
    if (monitor.vacio()) return "sin monitor";
    const RectPixel& a = monitor.area;
    return "monitor " + monitor.nombre + ", " + std::to_string(a.right - a.left) + "x" +
           std::to_string(a.bottom - a.top) + " al " +
           std::to_string(std::lround(100 * TWIPS_AL_CIEN / monitor.twipsPorPixelX)) + " %, de " +
           std::to_string(pantalla.numMonitores()) + " que hay";
}

const char* textoCierre(MotivoCierre motivo, bool conBoton) {
    switch (motivo) {
        case MotivoCierre::sesion:
            return "termina la sesión de Windows";
        case MotivoCierre::instalacion:
            return "lo pide una instalación";
        case MotivoCierre::ventana:
            break;
    }
    return conBoton ? "botón de cerrar" : "ventana cerrada (Alt+F4, menú del sistema u otro programa)";
}

void AvisosAnotados::critico(const std::string& texto) {
    anotar(texto);
    m_avisos.critico(texto);
}

void AvisosAnotados::informacion(const std::string& texto) {
    anotar(texto);
    m_avisos.informacion(texto);
}

void AvisosAnotados::anotar(std::string texto) {
    for (std::size_t fin = 0; (fin = texto.find('\n', fin)) != std::string::npos;) texto.replace(fin, 1, " / ");
    m_bitacora.anotar("Aviso al operador: " + texto);
}

}  // namespace sorvanel
