#pragma once

#include <memory>

#include "platform/sistema.h"
#include "platform/win32/base/relojWin.h"
#include "platform/win32/base/temporizadorWin.h"
#include "platform/win32/base/ventanaMensajes.h"
#include "platform/win32/network/buscadorNombres.h"
#include "platform/win32/network/zocaloWin.h"

namespace sorvanel {

// Makes timers and sockets, and owns what they share: it must outlive them all.
class FabricaWin : public Fabrica {
public:
    FabricaWin(VentanaMensajes& ventana, const RelojWin& reloj)
        : m_ventana(ventana), m_reloj(reloj), m_nombres(ventana), m_buffer(std::make_unique<BufferRecepcion>()) {}

    std::unique_ptr<Temporizador> crearTemporizador() override {
        return std::make_unique<TemporizadorWin>(m_ventana, m_reloj, m_resolucion);
    }
    std::unique_ptr<Zocalo> crearZocalo(OyenteZocalo& oyente) override {
        return std::make_unique<ZocaloWin>(m_ventana, m_nombres, *m_buffer, oyente);
    }
    std::vector<std::string> direcciones() override { return direccionesPropias(); }

private:
    VentanaMensajes& m_ventana;
    const RelojWin& m_reloj;
    ResolucionReloj m_resolucion;
    BuscadorNombres m_nombres;
    std::unique_ptr<BufferRecepcion> m_buffer;
};

}  // namespace sorvanel
