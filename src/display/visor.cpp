#include "display/visor.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "config/texto.h"
#include "links/lineaPavona.h"

namespace sorvanel {

visor::visor(const comun& com, Fabrica& fabrica, const Reloj& reloj, EnlacePeso& compartido)
    : visor(com, fabrica, reloj, compartido, diseñoVisor(com)) {}

visor::visor(const comun& com, Fabrica& fabrica, const Reloj& reloj, EnlacePeso& compartido, diseñoVisor diseno)
    : m_com(com), m_reloj(reloj), m_compartido(compartido), m_propio(fabrica, reloj), m_diseno(std::move(diseno)) {}

visor::~visor() {
    m_propio.Cerrar();
    if (familia().compartida) m_compartido.Cerrar(*this);
    enlace().adios();
}

EnlacePeso& visor::enlace() {
    if (familia().compartida) return m_compartido;
    return m_propio;
}

void visor::mudarse(EnlacePeso& antes) {
    if (&antes == &enlace()) return;
    enlace().hola();
    antes.adios();
}

bool visor::error(std::string_view plantilla, std::int32_t numero) {
    m_ultimoerror = plantilla;
    if (const std::size_t lugar = plantilla.find('@'); lugar != std::string_view::npos)
        m_ultimoerror.replace(lugar, 1, std::to_string(numero));
    return false;
}

bool visor::sinError() {
    m_ultimoerror.clear();
    return true;
}

bool visor::cargarComo(std::int16_t n) {
    AccesorINI ini = m_com.abrir();
    return cargarComo(n, ini);
}

bool visor::cargarComo(std::int16_t n, AccesorINI& ini) {
    if (n < 1 || n > MAXIMO_VISORES || identificado()) return false;
    ini.seccion(seccionVisor(n));
    EnlacePeso& antes = enlace();
    m_registro = leerRegistroVisor(m_com, ini);
    mudarse(antes);
    m_numero = n;
    return true;
}

bool visor::definir(Parrilla& parrilla, Superficie& etiqueta, Superficie& peso) {
    m_parrilla = &parrilla;
    m_picEtiqueta = &etiqueta;
    m_picPeso = &peso;
    etiqueta.mostrar(false);
    peso.mostrar(false);
    m_pintura.emplace(etiqueta, peso);
    return true;
}

bool visor::ubicado() const {
    return definido() && m_registro.fila != 0 && m_registro.columna != 0 && m_ubicado;
}

bool visor::ubicar(std::int16_t fila, std::int16_t columna) {
    if (!definido()) return error("El visor #@ no ha sido previamente definido", m_numero);
    const Ubicacion nueva{fila > 0 ? fila : m_registro.fila, columna > 0 ? columna : m_registro.columna};
    if (nueva.fila < 1 || nueva.fila > m_parrilla->filas() || nueva.columna < 1 ||
        nueva.columna > m_parrilla->columnas()) {
        return error("Visor #@: Ubicación no compatible con la retícula", m_numero);
    }
    if (!colocar(nueva)) return error("Visor #@: La celda no permite la ubicación", m_numero);
    return sinError();
}

// Lays out and paints everything anew. False, and nothing changed, when the cell cannot hold the display.
bool visor::colocar(Ubicacion lugar) {
    const Muestra habia = std::exchange(m_muestra, Muestra::incierta);
    const auto celda = m_parrilla->getCell(lugar.fila, lugar.columna);
    if (!celda || !m_pintura->encajar(*celda, aspecto())) {
        m_muestra = habia;
        return false;
    }
    m_registro.fila = lugar.fila;
    m_registro.columna = lugar.columna;
    m_ubicado = true;
    const Muestra que = habia == Muestra::incierta ? sinPeso() : habia;
    m_pintura->pintarEtiqueta();
    pintarPeso(que);
    m_picEtiqueta->mostrar(m_pintura->hayEtiqueta());
    m_picPeso->mostrar(true);
    m_parrilla->fondoCelda(m_parrilla->colorFondo(), lugar.fila, lugar.columna);
    m_muestra = que;
    return true;
}

void visor::reubicar() {
    if (definido() && !ubicar(0, 0)) quitarDeLaPantalla();
}

void visor::quitarDeLaPantalla() {
    m_ubicado = false;
    // Frames do not reach a display without a place: the weight is stale when it comes back.
    if (m_muestra == Muestra::peso) m_muestra = Muestra::nada;
    m_picEtiqueta->mostrar(false);
    m_picPeso->mostrar(false);
}

void visor::desubicar() {
    if (definido()) {
        quitarDeLaPantalla();
        m_parrilla->fondoCelda(m_parrilla->colorFondo(), m_registro.fila, m_registro.columna);
    }
    m_pintura.reset();
    m_picEtiqueta = nullptr;
    m_picPeso = nullptr;
    m_parrilla = nullptr;
    m_registro.fila = 0;
    m_registro.columna = 0;
    m_ubicado = false;
    m_muestra = Muestra::nada;
    m_silencio.reset();
}

// Nothing counts as shown until all of it is painted. After a painting that threw, what comes next paints everything.
void visor::mostrar(Muestra que) {
    if (m_muestra == Muestra::incierta && !colocar({m_registro.fila, m_registro.columna})) return quitarDeLaPantalla();
    if (m_muestra == que && que != Muestra::peso) return;
    m_muestra = Muestra::incierta;
    pintarPeso(que);
    m_muestra = que;
}

// What it shows when its link begins or ends. What was said of a silence before is over.
void visor::mostrarSinPeso() {
    if (!m_sinEnlace) m_silencio.reset();
    mostrar(sinPeso());
    if (m_sinEnlace) explicar();
}

// Told again and again while there is no data: why that is, once it has lasted; at once where it is known.
void visor::explicar() {
    const std::int64_t ahora = m_reloj.ahora();
    if (!m_silencio) {
        const std::int64_t inicio = m_sinEnlace ? ahora : enlace().ultimaAceptada(*this);
        m_silencio.emplace(Silencio{.inicio = inicio, .desde = m_reloj.horaLocal(ahora - inicio)});
    }
    const std::int64_t dura = ahora - m_silencio->inicio;
    if (m_muestra != Muestra::sinDatos || (dura < Silencio::PLAZO && !m_sinEnlace)) return;
    if (m_silencio->dicho() && ahora - m_silencio->mirado < Silencio::ENTRE_MIRADAS) return;
    m_silencio->mirado = ahora;
    const MotivoSilencio motivo = motivoSilencio();
    const bool conDia = dura >= Silencio::UN_DIA;
    if (m_silencio->dicho() && motivo == m_silencio->motivo && conDia == m_silencio->conDia) return;
    m_silencio->motivo = motivo;
    m_silencio->gemelo = motivo == MotivoSilencio::portEnUso ? gemelo() : std::int16_t{0};
    m_silencio->conDia = conDia;
    m_silencio->textos = textosSilencio(familia(), port(), *m_silencio);
    m_muestra = Muestra::incierta;
    pintarPeso(Muestra::sinDatos);
    m_muestra = Muestra::sinDatos;
}

MotivoSilencio visor::motivoSilencio() {
    if (!m_sinEnlace) return enlace().motivo(*this);
    if (sinOrigen()) return MotivoSilencio::origenNoValido;
    return m_propio.portEnUso() ? MotivoSilencio::portEnUso : MotivoSilencio::sinArrancar;
}

std::string visor::motivoDicho() {
    return textoMotivo(familia(), port(),
                       {.motivo = motivoSilencio(), .gemelo = m_silencio ? m_silencio->gemelo : std::int16_t{0}});
}

std::int16_t visor::gemelo() const {
    AccesorINI ini = m_com.consultar();
    for (std::int16_t n = 1; n <= MAXIMO_VISORES; ++n) {
        ini.seccion(seccionVisor(n));
        if (ini.leer("Port").empty()) break;
        if (n == m_numero) continue;
        const RegistroVisor otro = leerRegistroVisor(m_com, ini);
        const bool seVe = otro.fila != 0 && otro.columna != 0;
        if (seVe && !otro.familia->compartida && otro.port == port()) return n;
    }
    return 0;
}

void visor::pintarPeso(Muestra que) {
    switch (que) {
        case Muestra::incierta:
        case Muestra::nada:
            m_pintura->limpiarPeso();
            break;
        case Muestra::peso:
            m_pintura->pintarPeso(m_trama, familia().marcas);
            break;
        case Muestra::sinDatos:
            m_pintura->pintarSinDatos(familia().marcas, m_silencio ? std::span<const std::string>(m_silencio->textos)
                                                                   : std::span<const std::string>());
            break;
    }
}

// The link first: whatever the painting does, it is started or stopped.
void visor::Run(bool marcha) {
    if (marcha && m_run) return;
    m_sinEnlace = marcha && ubicado();
    if (marcha) {
        m_run = arrancar();
        m_sinEnlace = m_sinEnlace && !m_run;
    } else if (m_run) {
        parar();
    }
    if (ubicado()) {
        mostrarSinPeso();
    } else {
        m_muestra = Muestra::nada;
        m_silencio.reset();
    }
}

DireccionIP visor::origen() const {
    return m_registro.origen.empty() ? CUALQUIERA : leerDireccionIP(recortar(m_registro.origen)).value_or(NADIE);
}

bool visor::arrancar() {
    if (!ubicado()) return error("El visor #@ está desubicado", m_numero);
    if (sinOrigen()) {
        m_ultimoerror = errorOrigen(m_registro.origen);
        return false;
    }
    bool arranca = false;
    try {
        arranca = enlace().enMarcha(*this);
    } catch (const std::exception&) {
        // It counts as one that cannot be had, and is tried again as such.
    }
    return arranca ? sinError() : error(familia().sinEnlace, m_registro.port);
}

void visor::parar() {
    enlace().Cerrar(*this);
    m_run = false;
    sinError();
}

bool visor::frWsk_refrescoPeso(std::string_view linea) {
    return recibir(linea);
}

bool visor::mmTCP_refrescoPeso(std::int16_t primero, std::int16_t segundo, std::string_view carga) {
    const bool paraTodos = primero < 1 && carga.empty();
    if (!paraTodos && (primero != port() / BASE_DIRECCION || segundo != port() % BASE_DIRECCION)) return false;
    const auto modo = static_cast<std::size_t>(std::clamp<std::int16_t>(modoBulk(), 0, MODO_BULK_MAXIMO));
    const auto trama = tramaPavona(carga, modo);
    return trama && recibir(*trama);
}

bool visor::recibir(std::string_view trama) {
    if (!m_run || !ubicado()) return false;
    if (trama.empty()) {
        mostrar(Muestra::sinDatos);
        explicar();
        return false;
    }
    const auto leida = familia().leer(trama);
    if (!leida) return false;
    if (m_muestra == Muestra::peso && trama == m_ultimaTrama) return true;
    m_ultimaTrama = trama;
    m_trama = *leida;
    if (m_silencio) ++m_vueltas;
    m_silencio.reset();
    mostrar(Muestra::peso);
    return m_muestra == Muestra::peso;
}

}  // namespace sorvanel
