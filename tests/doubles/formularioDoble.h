#pragma once

#include <span>
#include <vector>

#include "doubles/controlesDoble.h"
#include "platform/formulario.h"

namespace sorvanel {

class FormularioDoble : public VentanaDe<Formulario> {
public:
    Monitor cubierto;
    int veces = 0;  // cubrir
    Puntero ultimoPuntero = Puntero::normal;
    OyenteFormulario* quienOye = nullptr;
    std::vector<RectPixel> forma;

    AsaDoble* asa(IdControl id) { return buscar<AsaDoble>(id); }
    // False when the button cannot be seen or does nothing.
    bool pulsar(IdControl id) { return boton(id) != nullptr && boton(id)->pulsar(); }

    void oyente(OyenteFormulario* oyente) override { quienOye = oyente; }
    void cubrir(const Monitor& monitor) override {
        cubierto = monitor;
        ++veces;
    }
    void recortar(std::span<const RectPixel> zonas) override { forma.assign(zonas.begin(), zonas.end()); }
    std::optional<ColoresSistema> contraste;

    std::optional<ColoresSistema> colores() const override { return contraste; }
    void puntero(Puntero puntero) override { ultimoPuntero = puntero; }
    void refrescar() override {}
    void mostrar() override {
        if (quienOye != nullptr) quienOye->alActivar();
    }
    void cerrar() override {
        if (quienOye != nullptr) quienOye->alDescargar(MotivoCierre::ventana);
    }
};

}  // namespace sorvanel
