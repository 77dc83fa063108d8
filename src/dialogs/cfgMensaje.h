#pragma once

#include <memory>

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
    Pieza todo(bool conMarcos);
    Pieza panelTexto();
    Pieza panelFuente();
    Pieza panelVelocidad();

    void alPulsarUsar();
    void mostrarMarcos(bool visibles);
    void elegirFuente();
    void mostrarFuente();

    std::unique_ptr<Controles> m_c;
};

}  // namespace sorvanel
