#include "dialogs/dialogoConfiguracion.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sorvanel {

namespace {

// The smallest letters that can still be read, whatever the monitor's own scale: 60 %.
constexpr float TWIPS_POR_PIXEL_MAXIMOS = TWIPS_POR_PIXEL / 0.6F;
// Letters do not grow as evenly as the scale does: what is so near is left as it is.
constexpr float TOLERANCIA = 0.97F;
// A little more than it must: the letters of the smaller scale may be wider than those measured.
constexpr float DE_MAS = 0.98F;
constexpr int INTENTOS = 12;

}  // namespace

DialogoConfiguracion::DialogoConfiguracion(IdControl id, Titulos titulos, UtilesDialogo utiles, MesaConfiguracion& mesa)
    : m_id(id), m_titulos(std::move(titulos)), m_utiles(std::move(utiles)), m_mesa(mesa) {}

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

// All of it, or nothing: half a tool could be neither used nor closed.
void DialogoConfiguracion::cargar() {
    try {
        construir();
    } catch (...) {
        desmontar();
        throw;
    }
}

// The window takes the monitor's scale before anything is measured.
void DialogoConfiguracion::construir() {
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

// For the size that it has when it shows all: it need not move for that then. Where that is too large, for what it
// shows.
void DialogoConfiguracion::situar() {
    ponerReduccion(1);
    const Rejilla mayor = componer(disposicionMayor());
    const Tamano todo = tamano(mayor);
    m_formulario->tamano(todo.ancho, todo.alto);
    m_formulario->centrarEn(zona());
    const bool cabe = !ajustarReduccion(mayor.minimo());
    redisponer();
    if (!cabe) m_formulario->centrarEn(zona());
}

// ---- scale ----

// Where it may stand: not on the task bar, nor on the buttons with which the configuration is left.
RectPixel DialogoConfiguracion::zona() const {
    RectPixel zona = m_monitor.trabajo;
    const float alto = std::floor(m_mesa.altoSobreBarra() / m_monitor.twipsPorPixelY);
    zona.bottom = std::min(zona.bottom, m_monitor.area.top + static_cast<std::int32_t>(alto));
    return zona;
}

// The room there, twips of the scale that the tool has now.
Tamano DialogoConfiguracion::holgura() const {
    constexpr float SIN_LIMITE = 1e9F;  // without a monitor
    const RectPixel z = zona();
    if (z.right <= z.left || z.bottom <= z.top) return {SIN_LIMITE, SIN_LIMITE};
    return {static_cast<float>(z.right - z.left) * m_monitor.twipsPorPixelX / m_reduccion,
            static_cast<float>(z.bottom - z.top) * m_monitor.twipsPorPixelY / m_reduccion};
}

bool DialogoConfiguracion::esEstrecho(float ancho) const {
    const RectPixel z = zona();
    const float hay = static_cast<float>(z.right - z.left) * m_monitor.twipsPorPixelX;
    return z.bottom - z.top > z.right - z.left && ancho + 2 * MARGEN > hay;
}

void DialogoConfiguracion::ponerReduccion(float reduccion) {
    m_reduccion = reduccion;
    m_formulario->escala(m_monitor.twipsPorPixelX / reduccion, m_monitor.twipsPorPixelY / reduccion);
}

// The largest scale at which that fits, the monitor's at most. True when it is another one: what was measured does not
// hold any more.
bool DialogoConfiguracion::ajustarReduccion(Tamano minimo) {
    const Tamano hay = holgura();
    const float cabe =
        m_reduccion * std::min(hay.ancho / (minimo.ancho + 2 * MARGEN), hay.alto / (minimo.alto + 2 * MARGEN));
    const float menor = std::min(m_monitor.twipsPorPixelY / TWIPS_POR_PIXEL_MAXIMOS, 1.0F);
    const float nueva = std::clamp(cabe, menor, 1.0F);
    if (nueva >= m_reduccion && nueva * TOLERANCIA <= m_reduccion && (nueva < 1 || m_reduccion == 1)) return false;
    ponerReduccion(nueva < m_reduccion ? std::max(nueva * DE_MAS, menor) : nueva);
    return true;
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
    const float antes = m_reduccion;
    Rejilla todo = componer(disposicion());
    for (int i = 0; i < INTENTOS; ++i) {
        const float previa = m_reduccion;
        if (!ajustarReduccion(todo.minimo())) break;
        // Letters grow by whole pixels: what has been made small enough may seem to have room for more, and has not.
        const bool bastaba = i > 0 && m_reduccion > previa;
        if (bastaba) ponerReduccion(previa);
        todo = componer(disposicion());
        if (bastaba) break;
    }
    disponer(todo);
    if (m_reduccion != antes) m_formulario->centrarEn(zona());
}

Rejilla DialogoConfiguracion::componer(Pieza contenido) {
    Rejilla todo(HUECO, HUECO);
    todo.poner(0, 0, cabecera());
    todo.poner(1, 0, std::move(contenido));
    return todo;
}

// Of the window: never larger than the room there is.
Tamano DialogoConfiguracion::tamano(const Rejilla& todo) const {
    const Tamano minimo = todo.minimo(), hay = holgura();
    return {std::min(minimo.ancho + 2 * MARGEN, hay.ancho), std::min(minimo.alto + 2 * MARGEN, hay.alto)};
}

void DialogoConfiguracion::disponer(const Rejilla& todo) {
    const Tamano minimo = todo.minimo(), ventana = tamano(todo);
    m_formulario->tamano(ventana.ancho, ventana.alto);
    m_gradiente.PintarGradiente(m_formulario->fondo());
    m_gradiente.PintarContorno(m_formulario->fondo());
    todo.colocar({MARGEN, MARGEN, minimo.ancho, minimo.alto});
    // What closes it is seen also where the rest is cut.
    const Pieza titulos = cabecera();
    const float ancho = ventana.ancho - 2 * MARGEN;
    if (ancho < minimo.ancho) titulos.colocar({MARGEN, MARGEN, ancho, titulos.minimo.alto});
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
    desmontar();
    avisarCambio();
}

void DialogoConfiguracion::desmontar() {
    soltar();
    m_imUnload.reset();
    m_ttlo2.reset();
    m_ttlo.reset();
    m_taller.reset();
    m_formulario.reset();
    m_mesa.desmontarMesa();
}

}  // namespace sorvanel
