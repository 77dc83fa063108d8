#include "platform/win32/network/fabricaWin.h"

#include "platform/win32/base/temporizadorWin.h"

namespace sorvanel {

FabricaWin::FabricaWin(VentanaMensajes& ventana, const RelojWin& reloj)
    : m_ventana(ventana), m_reloj(reloj), m_nombres(ventana), m_buffer(std::make_unique<BufferRecepcion>()) {}

std::unique_ptr<Temporizador> FabricaWin::crearTemporizador() {
    return std::make_unique<TemporizadorWin>(m_ventana, m_reloj, m_resolucion);
}

std::unique_ptr<Zocalo> FabricaWin::crearZocalo(OyenteZocalo& oyente) {
    return std::make_unique<ZocaloWin>(m_ventana, m_nombres, *m_buffer, oyente);
}

}  // namespace sorvanel
