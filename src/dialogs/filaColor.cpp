#include "dialogs/filaColor.h"

#include <utility>
#include <vector>

#include "display/disenoVisor.h"
#include "grid/parrilla.h"
#include "message/ajustesMensaje.h"

namespace sorvanel {

namespace {

// All that are in use, of the grid, the window and the message too.
std::vector<Color> aMano(const comun& com) {
    const AjustesMensaje mensaje = leerMensaje(com);
    AjustesParrilla parrilla{};
    leerColoresParrilla(com, parrilla);
    std::vector<Color> otros{parrilla.colorFondo, parrilla.colorReticula, mensaje.colorFondo, mensaje.colorTexto};
    if (parrilla.colorAplicacion != Parrilla::TRANSPARENTE) otros.push_back(parrilla.colorAplicacion);
    return coloresEnUso(com, DialogosSistema::COLORES_A_MANO, otros);
}

}  // namespace

FilaColor::FilaColor(TallerDialogo& taller, DialogosSistema& sistema, const comun& com, Datos datos)
    : m_taller(taller), m_sistema(sistema), m_com(com), m_datos(std::move(datos)) {
    const std::string& nombre = m_datos.nombre.empty() ? m_datos.texto : m_datos.nombre;
    const std::string elegirlo = nombre + ": elegir el color";
    m_boton = taller.botonTexto(m_datos.boton, 0, m_datos.texto, elegirlo);
    if (!m_datos.nombre.empty()) m_boton->nombre(elegirlo);
    m_marco = taller.marcoColor(m_datos.marco, 0, nombre + ": color actual");
    m_boton->alActuar([this] { elegir(); });
    m_marco->alActuar([this] { elegir(); });
}

void FilaColor::color(Color color) {
    m_marco->color(color < 0 ? BLANCO : colorPintable(color));
}

void FilaColor::mostrar(bool visible) {
    m_boton->mostrar(visible);
    m_marco->mostrar(visible);
}

void FilaColor::elegir() {
    const auto elegido = m_sistema.elegirColor(colorPintable(m_datos.actual()), aMano(m_com));
    if (!elegido) return;
    color(*elegido);
    m_datos.alElegir(*elegido);
}

Pieza FilaColor::piezaBoton() {
    return aLoAncho(pieza(*m_boton, m_taller.botonTexto(m_datos.texto)));
}

Pieza FilaColor::piezaMarco() {
    return pieza(*m_marco, m_taller.marcoColor());
}

Pieza FilaColor::comoPieza() {
    Rejilla par;
    par.estirar(0);
    par.poner(0, 0, piezaBoton());
    par.poner(0, 1, piezaMarco());
    return par.comoPieza();
}

}  // namespace sorvanel
