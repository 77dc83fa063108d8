#pragma once

#include <memory>

#include "dialogs/cfgVisor.h"
#include "dialogs/conexionPavona.h"
#include "dialogs/paginaVisores.h"
#include "dialogs/panelDiseno.h"
#include "dialogs/recepcionVisor.h"
#include "dialogs/ubicador.h"

namespace sorvanel {

struct cfgVisor::Controles {
    std::unique_ptr<PaginaVisores> pagina;
    std::unique_ptr<Boton> botNvo, botElim;
    std::unique_ptr<Rotulo> lbPag;
    std::unique_ptr<Boton> imSubir, imBajar;
    std::unique_ptr<ConexionPavona> pavona;
    std::unique_ptr<PanelDiseno> panel;
    std::unique_ptr<RecepcionVisor> recepcion;
    std::unique_ptr<Ubicador> ubicador;
};

}  // namespace sorvanel
