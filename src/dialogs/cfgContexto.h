#pragma once

#include <memory>

#include "dialogs/dialogoConfiguracion.h"
#include "display/disenoVisor.h"

namespace sorvanel {

// The tool for what all displays share: the monitor, the grid and the design that a display has where it
// sets none of its own. Every change is applied, saved and painted at once.
class cfgContexto : public DialogoConfiguracion {
public:
    cfgContexto(const UtilesDialogo& utiles, MesaConfiguracion& mesa);
    ~cfgContexto() override;

private:
    struct Controles;

    void montar() override;
    void crearControles() override;
    void rellenar() override;
    Pieza disposicion() override;
    void alMostrar() override;
    void soltar() override;

    void crearPantalla();
    void crearParrilla();
    void crearDiseno();
    Pieza panelPantalla();
    Pieza panelParrilla();
    Pieza panelDiseno();

    int elegirMonitor(int indice);
    void alCambiarParrilla();
    void alPulsarTransparente();
    void mostrarTransparencia(bool transparente);

    std::unique_ptr<diseñoVisor> m_diseño;
    std::unique_ptr<Controles> m_c;
};

}  // namespace sorvanel
