#pragma once

#include <memory>
#include <string_view>

#include "platform/control.h"
#include "platform/controles.h"
#include "platform/superficie.h"

namespace sorvanel {

// A window of the program: the main one or a tool's. What is made on it is hidden at first, belongs to the caller and
// goes before the window does. The keyboard goes through controls in the order of their making.
class Ventana {
public:
    virtual ~Ventana() = default;

    template <typename Tipo>
    std::unique_ptr<Tipo> crear(IdControl id, int elemento = 0) {
        return std::unique_ptr<Tipo>(static_cast<Tipo*>(crearControl(Tipo::TIPO, id, elemento).release()));
    }
    virtual std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) = 0;
    virtual void mostrar() = 0;
    // Room that a text needs in the font of the controls, twips.
    virtual MedidaTexto medir(std::string_view texto) const = 0;

protected:
    virtual std::unique_ptr<Control> crearControl(TipoControl tipo, IdControl id, int elemento) = 0;
};

}  // namespace sorvanel
