#pragma once

#include <memory>

#include "platform/sistema.h"
#include "platform/win32/base/relojWin.h"
#include "platform/win32/base/resolucionReloj.h"
#include "platform/win32/base/ventanaMensajes.h"
#include "platform/win32/network/buscadorNombres.h"
#include "platform/win32/network/zocaloWin.h"

namespace sorvanel {

// Makes timers and sockets, and owns what they share: it must outlive them all.
class FabricaWin : public Fabrica {
public:
    FabricaWin(VentanaMensajes& ventana, const RelojWin& reloj);

    std::unique_ptr<Temporizador> crearTemporizador() override;
    std::unique_ptr<Zocalo> crearZocalo(OyenteZocalo& oyente) override;

private:
    VentanaMensajes& m_ventana;
    const RelojWin& m_reloj;
    ResolucionReloj m_resolucion;
    BuscadorNombres m_nombres;
    std::unique_ptr<BufferRecepcion> m_buffer;
};

}  // namespace sorvanel
