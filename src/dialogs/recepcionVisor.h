#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/dialogoConfiguracion.h"
#include "dialogs/medicoPort.h"

namespace sorvanel {

// What comes to the selected display just now, and where to send it: two lines of the displays' tool. Beside them the
// way to what came before, the log.
class RecepcionVisor {
public:
    // `elegido` answers the number of the selected display, 0 for none.
    RecepcionVisor(TallerDialogo& taller, const UtilesDialogo& utiles, MesaConfiguracion& mesa,
                   std::function<std::int16_t()> elegido);

    // Another display is selected, or what it has was changed: what is not its own is let go at once.
    void seguir();
    Pieza comoPieza();
    void anadirTeclado(std::vector<Control*>& orden) { orden.push_back(m_botRegistro.get()); }

private:
    ConsultaPort consulta() const;
    void abrirRegistro();
    void latido();
    void mostrar();
    void mostrarEquipo();

    TallerDialogo& m_taller;
    const UtilesDialogo& m_utiles;
    MesaConfiguracion& m_mesa;
    const std::function<std::int16_t()> m_elegido;
    std::unique_ptr<Marco> m_marco;
    std::unique_ptr<Rotulo> m_titulo, m_lbRecepcion, m_tituloEquipo, m_lbEquipo;
    std::unique_ptr<Boton> m_botRegistro;
    DiagnosticoPort m_dicho;
    std::string m_equipo;
    std::int64_t m_preguntado = 0;  // for the addresses, when
    MedicoPort m_medico;
    std::unique_ptr<Temporizador> m_tim;
};

}  // namespace sorvanel
