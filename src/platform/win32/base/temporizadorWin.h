#pragma once

#include <cstdint>
#include <memory>

#include "platform/temporizador.h"
#include "platform/win32/base/relojWin.h"
#include "platform/win32/base/ventanaMensajes.h"

namespace sorvanel {

// A timer that is started anew at every frame, thousands of times a second, for the price of
// reading the clock: the moment of the next tick is kept here, and the system's timer, once set,
// is left to come early. Only then is it set again, for what is missing.
class TemporizadorWin : public Temporizador, private ReceptorMensajes {
public:
    TemporizadorWin(VentanaMensajes& ventana, const RelojWin& reloj, ResolucionReloj& resolucion);
    ~TemporizadorWin();
    TemporizadorWin(const TemporizadorWin&) = delete;
    TemporizadorWin& operator=(const TemporizadorWin&) = delete;

    // An interval below 1 never ticks.
    void intervalo(int milisegundos) override;
    void habilitado(bool si) override;
    bool habilitado() const override { return m_habilitado; }
    void alTic(std::function<void()> accion) override;

private:
    void alTic() override;
    void arrancar();
    void armar(std::int64_t microsegundos);
    void desarmar();

    VentanaMensajes& m_ventana;
    const RelojWin& m_reloj;
    ResolucionReloj& m_resolucion;
    const UINT m_numero;
    int m_intervalo = 0;  // milliseconds
    bool m_habilitado = false;
    std::int64_t m_vence = 0;   // when to tick, microseconds
    std::int64_t m_sonara = 0;  // when the system's timer comes next, at the latest
    std::int64_t m_armado = 0;  // the period it was set to, milliseconds; 0 when it is not set
    ResolucionReloj::Uso m_fino;
    // Shared, so that an action that destroys this timer does not destroy itself.
    std::shared_ptr<const std::function<void()>> m_accion;
};

}  // namespace sorvanel
