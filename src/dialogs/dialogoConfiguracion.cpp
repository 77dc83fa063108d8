#include "dialogs/dialogoConfiguracion.h"

#include <utility>

namespace sorvanel {

DialogoConfiguracion::DialogoConfiguracion(IdControl id, Titulos titulos, const UtilesDialogo& utiles,
                                           MesaConfiguracion& mesa)
    : m_id(id), m_titulos(std::move(titulos)), m_utiles(utiles), m_mesa(mesa) {}

DialogoConfiguracion::~DialogoConfiguracion() = default;

void DialogoConfiguracion::Mostrar() {
    if (cargado()) {
        rellenar();
    } else {
        cargar();
    }
    situar();
    m_formulario->mostrar();
    alMostrar();
    avisarCambio();
}

// The window takes the monitor's scale before anything is measured.
void DialogoConfiguracion::cargar() {
    montar();
    m_monitor = m_mesa.pantalla().monitor();
    m_formulario = m_utiles.fabrica.crearDialogo(m_id);
    m_formulario->oyente(this);
    m_formulario->titulo(m_titulos.principal);
    m_taller = std::make_unique<TallerDialogo>(*m_formulario);
    crearTitulos();
    crearControles();
    m_imUnload = m_taller->botonImagen(IdControl::imUnload, 0, Dibujo::cerrar, "Cerrar");
    m_imUnload->alActuar([this] { alPedirCierre(); });
    rellenar();
}

void DialogoConfiguracion::crearTitulos() {
    m_ttlo = m_taller->rotulo(m_titulos.idPrincipal, 0, m_titulos.principal);
    m_ttlo->fuente(fuenteTitulo());
    m_ttlo->colorTexto(COLOR_TITULO);
    if (m_titulos.segundo.empty()) return;
    m_ttlo2 = m_taller->rotulo(IdControl::ttlo2, 0, m_titulos.segundo);
    m_ttlo2->fuente(fuenteSubtitulo());
    m_ttlo2->colorTexto(COLOR_SUBTITULO);
}

// Once for the scale that the content is measured with, once for the size that it came to.
void DialogoConfiguracion::situar() {
    m_formulario->centrarEn(m_monitor);
    dimensionar(componer(disposicionMayor()));
    m_formulario->centrarEn(m_monitor);
    redisponer();
}

void DialogoConfiguracion::seguirMonitor(const Monitor& monitor) {
    if (!cargado() || monitor == m_monitor) return;
    m_monitor = monitor;
    situar();
}

Pieza DialogoConfiguracion::cabecera() {
    Rejilla rejilla(HUECO, aTwips(2));
    rejilla.estirar(0);
    const Tamano titulo = m_taller->textoCon(fuenteTitulo(), m_titulos.principal);
    rejilla.poner(0, 0, aLoAncho(pieza(*m_ttlo, titulo)));
    rejilla.poner(0, 1, pieza(*m_imUnload, m_taller->botonImagen()));
    if (m_ttlo2) {
        const Tamano segundo = m_taller->textoCon(fuenteSubtitulo(), m_titulos.segundo);
        rejilla.poner(1, 0, aLoAncho(pieza(*m_ttlo2, segundo)), 2);
    }
    return rejilla.comoPieza();
}

void DialogoConfiguracion::redisponer() {
    disponer(disposicion());
}

Rejilla DialogoConfiguracion::componer(Pieza contenido) {
    Rejilla todo(HUECO, HUECO);
    todo.poner(0, 0, cabecera());
    todo.poner(1, 0, std::move(contenido));
    return todo;
}

void DialogoConfiguracion::dimensionar(const Rejilla& todo) {
    const Tamano minimo = todo.minimo();
    m_formulario->tamano(minimo.ancho + 2 * MARGEN, minimo.alto + 2 * MARGEN);
}

void DialogoConfiguracion::disponer(Pieza contenido) {
    const Rejilla todo = componer(std::move(contenido));
    dimensionar(todo);
    m_gradiente.PintarGradiente(m_formulario->fondo());
    m_gradiente.PintarContorno(m_formulario->fondo());
    const Tamano minimo = todo.minimo();
    todo.colocar({MARGEN, MARGEN, minimo.ancho, minimo.alto});
}

void DialogoConfiguracion::alPedirCierre() {
    Descargar(false);
}

void DialogoConfiguracion::alArrastrar() {
    comun::Arrastre(*m_formulario);
}

bool DialogoConfiguracion::Descargar(bool descartar) {
    if (!cargado()) return true;
    if (!descartar && !validar()) return false;
    // What the validation showed or moved may have closed it already.
    if (cargado()) descargar();
    return true;
}

void DialogoConfiguracion::descargar() {
    alCerrar();
    m_formulario->oyente(nullptr);
    m_formulario->ocultar();
    soltar();
    m_imUnload.reset();
    m_ttlo2.reset();
    m_ttlo.reset();
    m_taller.reset();
    m_formulario.reset();
    m_mesa.desmontarMesa();
    avisarCambio();
}

}  // namespace sorvanel
