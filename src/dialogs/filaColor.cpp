#include "dialogs/filaColor.h"

#include <utility>

namespace sorvanel {

FilaColor::FilaColor(TallerDialogo& taller, DialogosSistema& sistema, Datos datos)
    : m_taller(taller),
      m_sistema(sistema),
      m_datos(std::move(datos)),
      m_boton(taller.botonTexto(m_datos.boton, m_datos.elemento, m_datos.texto, m_datos.texto + ": elegir el color")),
      m_marco(taller.marcoColor(m_datos.marco, m_datos.elemento, m_datos.texto + ": color actual")) {
    m_boton->alPulsar([this] { elegir(); });
    m_marco->alPulsar([this] { elegir(); });
}

void FilaColor::color(Color color) {
    m_marco->color(color < 0 ? BLANCO : colorPintable(color));
}

void FilaColor::mostrar(bool visible) {
    m_boton->mostrar(visible);
    m_marco->mostrar(visible);
}

void FilaColor::elegir() {
    const auto elegido = m_sistema.elegirColor(colorPintable(m_datos.actual()));
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

}  // namespace sorvanel
