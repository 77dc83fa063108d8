#pragma once

#include <memory>
#include <optional>

#include "dialogs/dialogoConfiguracion.h"

namespace sorvanel {

// The tool for the auxiliary message. The band itself, running while the tool is open, is what shows each
// change.
class cfgMensaje : public DialogoConfiguracion {
public:
    cfgMensaje(const UtilesDialogo& utiles, MesaConfiguracion& mesa);
    ~cfgMensaje() override;

private:
    struct Controles;

    void montar() override;
    void crearControles() override;
    void rellenar() override;
    Pieza disposicion() override;
    Pieza disposicionMayor() override;
    void alMostrar() override;
    void alCerrar() override;
    void soltar() override;

    void crearTexto();
    void crearFuente();
    void crearVelocidad();
    void crearTapa();
    Pieza todo(bool conMarcos, bool conTapa);
    Pieza panelTexto();
    Pieza panelFuente();
    Pieza panelVelocidad();
    Pieza filaTapa();

    void alPulsarUsar();
    void mostrarMarcos(bool visibles);
    // How many rows of the grid, from the last one up, lie under the band.
    int filasTapadas();
    // The lower end that the grid would have just above the band, where that leaves room for its cells.
    std::optional<float> altoLibre();
    void mostrarTapa();
    void ajustarParrilla();
    void reubicar();
    void elegirFuente();
    void mostrarFuente();

    std::unique_ptr<Controles> m_c;
};

}  // namespace sorvanel
