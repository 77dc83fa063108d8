#include "platform/win32/controls/anfitrion.h"
#include "platform/win32/controls/asaWin.h"
#include "platform/win32/controls/botonWin.h"
#include "platform/win32/controls/cajaTextoWin.h"
#include "platform/win32/controls/casillaWin.h"
#include "platform/win32/controls/elementoWin.h"
#include "platform/win32/controls/listaWin.h"

namespace sorvanel {

// Apart from the window itself, which knows none of the kinds.
std::unique_ptr<Control> Anfitrion::hacerControl(TipoControl tipo, IdControl id, int elemento) {
    switch (tipo) {
        case TipoControl::cajaTexto:
            return std::make_unique<CajaTextoWin>(*this, id, elemento);
        case TipoControl::casilla:
            return std::make_unique<CasillaWin>(*this, id, elemento);
        case TipoControl::lista:
            return std::make_unique<ListaWin>(*this, id, elemento);
        case TipoControl::rotulo:
            return std::make_unique<RotuloWin>(*this, id, elemento);
        case TipoControl::boton:
            return std::make_unique<BotonWin>(*this, id, elemento);
        case TipoControl::marcoColor:
            return std::make_unique<MarcoColorWin>(*this, id, elemento);
        case TipoControl::marco:
            return std::make_unique<MarcoWin>(*this, id, elemento);
        case TipoControl::asa:
            return std::make_unique<AsaWin>(*this, id, elemento);
    }
    return nullptr;
}

}  // namespace sorvanel
