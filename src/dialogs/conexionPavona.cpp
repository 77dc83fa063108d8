#include "dialogs/conexionPavona.h"

#include "config/numeros.h"
#include "config/texto.h"
#include "links/frTCP.h"

namespace sorvanel {

namespace {

constexpr int CIFRAS_PORT = 5;

}  // namespace

ConexionPavona::ConexionPavona(TallerDialogo& taller, const comun& com) : m_taller(taller), m_com(com) {
    m_frPav = taller.marco(IdControl::frPav, 0, "Conexión Pavona");
    m_titulo = taller.rotuloGrupo("Conexión Pavona");
    m_rotuloHost = taller.rotulo("Equipo");
    m_txPavHost = taller.cajaTexto(IdControl::txPavHost, 0, "Equipo de la conexión Pavona",
                                   "Nombre o dirección IP del concentrador");
    // A name that was pasted may bring blanks along; with them it is no host's.
    m_txPavHost->alActuar([this] { guardarHostPavona(m_com, recortar(m_txPavHost->texto())); });
    m_rotuloPort = taller.rotulo("Port");
    m_txPavPort = taller.cajaTexto(IdControl::txPavPort, 0, "Port de la conexión Pavona", "Port TCP del concentrador");
    m_txPavPort->longitudMaxima(CIFRAS_PORT);
    m_txPavPort->filtro(filtroNumerico);
    m_txPavPort->alActuar([this] { guardarPortPavona(m_com, numeroInicial(m_txPavPort->texto())); });
}

void ConexionPavona::rellenar() {
    const DestinoPavona destino = leerDestinoPavona(m_com);
    m_txPavHost->texto(destino.host);
    m_txPavPort->texto(std::to_string(destino.port));
}

void ConexionPavona::mostrar(bool visible) {
    for (Control* c : std::initializer_list<Control*>{m_frPav.get(), m_titulo.get(), m_rotuloHost.get(),
                                                      m_txPavHost.get(), m_rotuloPort.get(), m_txPavPort.get()}) {
        c->mostrar(visible);
    }
}

Pieza ConexionPavona::comoPieza() {
    Rejilla fila;
    fila.estirar(2);
    fila.poner(0, 0, m_taller.piezaRotuloGrupo(*m_titulo));
    fila.poner(0, 1, m_taller.piezaRotulo(*m_rotuloHost));
    fila.poner(0, 2, aLoAncho(pieza(*m_txPavHost, m_taller.cajaTexto("concentrador.red"))));
    fila.poner(0, 3, m_taller.piezaRotulo(*m_rotuloPort));
    fila.poner(0, 4, pieza(*m_txPavPort, m_taller.cajaTexto("00000")));
    return panel(*m_frPav, fila.comoPieza());
}

void ConexionPavona::anadirTeclado(std::vector<Control*>& orden) const {
    orden.insert(orden.end(), {m_txPavHost.get(), m_txPavPort.get()});
}

}  // namespace sorvanel
