#pragma once

#include <memory>
#include <vector>

#include "config/comun.h"
#include "dialogs/tallerDialogo.h"

namespace sorvanel {

// Host and port of the connection that all displays of the concentrator's family share. Each change is
// saved at once.
class ConexionPavona {
public:
    ConexionPavona(TallerDialogo& taller, const comun& com);

    // Shows what is saved.
    void rellenar();
    void mostrar(bool visible);

    // Hidden it keeps its place.
    Pieza comoPieza();
    void anadirTeclado(std::vector<Control*>& orden) const;

private:
    TallerDialogo& m_taller;
    const comun& m_com;
    std::unique_ptr<Marco> m_frPav;
    std::unique_ptr<Rotulo> m_titulo;
    std::unique_ptr<Rotulo> m_rotuloHost;
    std::unique_ptr<CajaTexto> m_txPavHost;
    std::unique_ptr<Rotulo> m_rotuloPort;
    std::unique_ptr<CajaTexto> m_txPavPort;
};

}  // namespace sorvanel
