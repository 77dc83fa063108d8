#include "dialogs/filaVisor.h"

#include <algorithm>
#include <utility>

#include "config/numeros.h"
#include "config/texto.h"

namespace sorvanel {

namespace {

constexpr const char* PORT_RECHAZADO = "Valor de 'port' posiblemente duplicado";
constexpr const char* ETIQUETA_RECHAZADA = "Contenido de 'etiqueta' posiblemente duplicado";
constexpr const char* UBICACION_RECHAZADA = "La ubicación entrada no es correcta o está duplicada";

constexpr std::int32_t PORT_UDP_MAXIMO = 65535;
constexpr const char* PORT_IMPOSIBLE = "Un port UDP no pasa de 65535: por este no se puede recibir nada";

constexpr const char* SUGERENCIA_ETIQUETA = "Texto que acompaña al peso";

constexpr Color COLOR_FILA = COLOR_PANEL;
constexpr Color COLOR_FILA_ELEGIDA = rgb(0xD6, 0xE7, 0xF8);
constexpr Color COLOR_IMPOSIBLE = rgb(0xFF, 0xC9, 0x4D);
constexpr Color COLOR_MARCA = rgb(0x5A, 0x65, 0x70);

constexpr char SEPARADOR_UBICACION = ',';

// "row,column"; empty without a place.
std::string textoUbicacion(std::optional<Ubicacion> ubicacion) {
    if (!ubicacion) return {};
    return std::to_string(ubicacion->fila) + SEPARADOR_UBICACION + std::to_string(ubicacion->columna);
}

// Nothing unless there are exactly two numbers that fit their type.
std::optional<Ubicacion> leerUbicacion(std::string_view texto) {
    const std::size_t corte = texto.find(SEPARADOR_UBICACION);
    if (corte == std::string_view::npos) return std::nullopt;
    const auto fila = leerEntero16(texto.substr(0, corte));
    const std::string_view segunda = texto.substr(corte + 1);
    // A second comma would be taken as the decimal one.
    const auto columna =
        segunda.find(SEPARADOR_UBICACION) == std::string_view::npos ? leerEntero16(segunda) : std::nullopt;
    return fila && columna ? std::optional(Ubicacion{*fila, *columna}) : std::nullopt;
}

// "filas 1 a 4", "columna 1".
std::string rango(const std::string& que, std::int16_t hasta) {
    return hasta == 1 ? que + " 1" : que + "s 1 a " + std::to_string(hasta);
}

char32_t filtroUbicacion(char32_t caracter) {
    constexpr std::u32string_view SEPARADORES = U",.;:_-+=/";
    return SEPARADORES.find(caracter) != std::u32string_view::npos ? SEPARADOR_UBICACION : filtroNumerico(caracter);
}

// A caption's blanks are hard ones: it is one word, whatever it is shown or stored in.
char32_t filtroEtiqueta(char32_t caracter) {
    return caracter == U' ' ? U'\u00A0' : caracter;
}

}  // namespace

// ---- making ----

FilaVisor::FilaVisor(TallerDialogo& taller, TablaVisores& tabla, std::int16_t numero)
    : m_taller(taller), m_tabla(tabla), m_numero(numero) {
    taller.ocultos(true);
    m_frVis = taller.marco(IdControl::frVis, numero, "Visor " + std::to_string(numero));
    m_frVis->alActuar([this] { m_tabla.alElegirFila(*this); });
    m_lbVis = taller.rotulo(IdControl::lbVis, numero, "#" + std::to_string(numero));
    m_lbVis->alActuar([this] { m_tabla.alElegirFila(*this); });
    crearCajas(taller);
    crearImagenes(taller);
    taller.ocultos(false);
    elegida(false);
}

void FilaVisor::crearCajas(TallerDialogo& taller) {
    const std::string visor = "Visor " + std::to_string(m_numero) + ": ";
    m_ayudaPort = "Port del visor";
    std::string ayudaModo = "Qué lectura muestra un visor de la familia";
    for (const Familia* f : familias()) {
        m_ayudaPort += f->ayudaPort;
        if (f->conModo) ayudaModo += std::string(" ") + f->nombre;
    }
    m_txPort = taller.cajaTexto(IdControl::txPort, m_numero, visor + "port", m_ayudaPort);
    m_txPort->filtro([this](char32_t c) { return familia().filtroPort(c); });
    m_lbPav = taller.rotulo(IdControl::lbPav, m_numero, {});
    m_lbPav->colorTexto(COLOR_MARCA);
    m_lstModo = taller.lista(IdControl::lstModo, m_numero, MODOS_BULK, visor + "modo bulk", ayudaModo);
    m_txEtq = taller.cajaTexto(IdControl::txEtq, m_numero, visor + "etiqueta", SUGERENCIA_ETIQUETA);
    m_txEtq->filtro(filtroEtiqueta);
    const Ubicacion ultima = m_tabla.ultimaCelda();
    m_txUbi = taller.cajaTexto(IdControl::txUbi, m_numero, visor + "ubicación",
                               "Fila y columna de la parrilla (" + rango("fila", ultima.fila) + ", " +
                                   rango("columna", ultima.columna) + "), como en 1,1; vacía, el visor no se ve");
    m_txUbi->filtro(filtroUbicacion);
    unir(*m_txPort, CampoVisor::port);
    unir(*m_txEtq, CampoVisor::etiqueta);
    unir(*m_txUbi, CampoVisor::ubicacion);
    m_lstModo->alRecibirFoco([this] { m_tabla.alEnfocar(*this, CampoVisor::modo); });
    m_lstModo->alPulsarTecla([this](Tecla tecla) { return alPulsarTecla(CampoVisor::modo, tecla); });
    m_lstModo->alActuar([this] { visorPropio().modoBulk(static_cast<std::int16_t>(m_lstModo->indice())); });
}

void FilaVisor::unir(CajaTexto& caja, CampoVisor campo) {
    caja.alRecibirFoco([this, campo] { m_tabla.alEnfocar(*this, campo); });
    caja.alPulsarTecla([this, campo](Tecla tecla) { return alPulsarTecla(campo, tecla); });
    caja.alActuar([this, &caja, campo] {
        // What the toggle emptied, and is empty again, says no more than before.
        const bool comoEstaba = campo == CampoVisor::port && caja.texto().empty() && &familia() != m_familiaPort;
        tecleado(campo) = !comoEstaba;
        if (campo == CampoVisor::etiqueta) sugerirEtiqueta();
        if (campo == CampoVisor::port) vigilarPort();
    });
    caja.alValidar([this, campo] { return validar(campo); });
}

void FilaVisor::crearImagenes(TallerDialogo& taller) {
    const std::string visor = "Visor " + std::to_string(m_numero) + ": ";
    m_imPtc = taller.botonImagen(IdControl::imPtc, m_numero, Dibujo::ninguno, {});
    m_imPtc->alActuar([this] { alternarProtocolo(); });
    m_imFoco = taller.botonImagen(IdControl::imFoco, m_numero, Dibujo::diseno, visor + "diseño particular");
    m_imFoco->alActuar([this] { m_tabla.alPedirDiseno(*this); });
}

// ---- showing ----

void FilaVisor::rellenar() {
    m_rellena = true;
    for (const CampoVisor campo : {CampoVisor::port, CampoVisor::modo, CampoVisor::etiqueta, CampoVisor::ubicacion}) {
        mostrarCampo(campo);
    }
    mostrarProtocolo();
}

void FilaVisor::mostrarCampo(CampoVisor campo, bool llano) {
    const visor& v = visorPropio();
    switch (campo) {
        case CampoVisor::port:
            m_txPort->texto(llano ? textoPort(v.port()) : familia().textoPort(v.port()));
            m_familiaPort = &familia();
            vigilarPort();
            break;
        case CampoVisor::modo:
            m_lstModo->indice(std::clamp<int>(v.modoBulk(), 0, MODO_BULK_MAXIMO));
            break;
        case CampoVisor::etiqueta:
            m_txEtq->texto(v.caption());
            sugerirEtiqueta();
            break;
        case CampoVisor::ubicacion:
            m_txUbi->texto(textoUbicacion(v.ubicacion()));
            break;
    }
    tecleado(campo) = false;
}

void FilaVisor::mostrarProtocolo() {
    const std::string nombre = "Visor " + std::to_string(m_numero) + ": familia " + familia().nombre;
    m_imPtc->dibujo(familia().dibujo);
    m_imPtc->nombre(nombre);
    m_imPtc->sugerencia(nombre + ", " + familia().enlace + ". Pulse para pasar a " +
                        familiaSiguiente(familia()).nombre);
    m_lstModo->atenuada(!familia().conModo);
    m_lbPav->texto(familia().formaPort);
    m_lbPav->mostrar(m_visible && familia().conForma());
}

// The whole caption where the box cannot show it.
void FilaVisor::sugerirEtiqueta() {
    const std::string texto = m_txEtq->texto();
    const bool cabe = m_anchoEtq <= 0 || m_taller.cajaTexto(texto).ancho <= m_anchoEtq;
    m_txEtq->sugerencia(cabe ? SUGERENCIA_ETIQUETA : texto);
}

void FilaVisor::vigilarPort() {
    const auto port = familia().leerPort(m_txPort->texto());
    const bool imposible = !familia().compartida && port && *port > PORT_UDP_MAXIMO;
    if (std::exchange(m_portImposible, imposible) == imposible) return;
    m_txPort->sugerencia(imposible ? PORT_IMPOSIBLE : m_ayudaPort);
    // Not by a colour alone: some eyes, and some schemes of the system, do not tell them apart.
    m_lbVis->texto((imposible ? "! " : "#") + std::to_string(m_numero));
    m_lbVis->sugerencia(imposible ? PORT_IMPOSIBLE : "");
    elegida(m_elegida);
}

void FilaVisor::mostrar(bool visible) {
    if (visible && !m_rellena) rellenar();
    if (visible == m_visible) return;
    m_visible = visible;
    m_frVis->mostrar(visible);
    for (Control* c : std::initializer_list<Control*>{m_lbVis.get(), m_imPtc.get(), m_txPort.get(), m_lstModo.get(),
                                                      m_txEtq.get(), m_txUbi.get(), m_imFoco.get()}) {
        c->mostrar(visible);
    }
    m_lbPav->mostrar(visible && familia().conForma());
}

void FilaVisor::colocar(const Rectangulo& marco, const ColumnasFila& columnas) {
    const auto poner = [&](Control& c, ColumnasFila::Columna columna) {
        c.colocar(columnas.lugar(columna, marco, columnas.altoControl()));
    };
    const auto ponerImagen = [&](Control& c, ColumnasFila::Columna columna) {
        const Rectangulo celda = columnas.lugar(columna, marco, columnas.altoControl());
        c.colocar({celda.x + (celda.ancho - celda.alto) / 2, celda.y, celda.alto, celda.alto});
    };
    m_frVis->colocar(marco);
    poner(*m_lbVis, ColumnasFila::orden);
    ponerImagen(*m_imPtc, ColumnasFila::protocolo);
    poner(*m_txPort, ColumnasFila::port);
    poner(*m_lbPav, ColumnasFila::marca);
    poner(*m_lstModo, ColumnasFila::modo);
    poner(*m_txEtq, ColumnasFila::etiqueta);
    poner(*m_txUbi, ColumnasFila::ubicacion);
    ponerImagen(*m_imFoco, ColumnasFila::diseno);
    const float ancho = columnas.lugar(ColumnasFila::etiqueta, marco, columnas.altoControl()).ancho;
    if (std::exchange(m_anchoEtq, ancho) != ancho) sugerirEtiqueta();
}

void FilaVisor::elegida(bool si) {
    m_elegida = si;
    const Color color = si ? COLOR_FILA_ELEGIDA : COLOR_FILA;
    m_frVis->colorFondo(color);
    m_txPort->colorFondo(m_portImposible ? COLOR_IMPOSIBLE : color);
    m_lstModo->colorFondo(color);
    m_txEtq->colorFondo(color);
    m_txUbi->colorFondo(color);
}

// ---- keyboard ----

Control& FilaVisor::control(CampoVisor campo) const {
    if (campo == CampoVisor::modo) return *m_lstModo;
    return *caja(campo);
}

CajaTexto* FilaVisor::caja(CampoVisor campo) const {
    switch (campo) {
        case CampoVisor::port:
            return m_txPort.get();
        case CampoVisor::etiqueta:
            return m_txEtq.get();
        case CampoVisor::ubicacion:
            return m_txUbi.get();
        default:
            return nullptr;
    }
}

void FilaVisor::enfocar(CampoVisor campo) {
    control(campo).enfocar();
}

bool FilaVisor::tieneFoco(CampoVisor campo) const {
    return control(campo).tieneFoco();
}

void FilaVisor::seleccionarTodo(CampoVisor campo) {
    if (CajaTexto* c = caja(campo)) c->seleccionarTodo();
}

std::array<Control*, 6> FilaVisor::teclado() const {
    return {m_imPtc.get(), m_txPort.get(), m_lstModo.get(), m_txEtq.get(), m_txUbi.get(), m_imFoco.get()};
}

void FilaVisor::anadirTeclado(std::vector<Control*>& orden) const {
    for (Control* const c : teclado()) orden.push_back(c);
}

void FilaVisor::cederFoco(const FilaVisor& otra) const {
    const auto suyos = teclado(), ajenos = otra.teclado();
    for (std::size_t i = 0; i < suyos.size(); ++i) {
        if (suyos[i]->tieneFoco()) return ajenos[i]->enfocar();
    }
}

bool FilaVisor::alPulsarTecla(CampoVisor campo, Tecla tecla) {
    const CajaTexto* const c = caja(campo);
    // Within a text they move the caret.
    if (tecla == Tecla::derecha && c != nullptr && !c->alFinal()) return false;
    if (tecla == Tecla::izquierda && c != nullptr && !c->alInicio()) return false;
    if (tecla == Tecla::escape) {
        if (m_tabla.alEscapar()) return true;
        // Every family takes the port as the plain number too.
        mostrarCampo(campo, true);
    } else if (validar(campo) && tecla != Tecla::intro) {
        m_tabla.mover(*this, campo, tecla);
    }
    return true;
}

// The number means something else in the other family: it is entered anew. Back again before anything was
// typed, it was a slip.
void FilaVisor::alternarProtocolo() {
    if (!m_tabla.puedeAlternar(*this)) return;
    visor& v = visorPropio();
    v.protocolo(familiaSiguiente(v.familia()).protocolo);
    if (&v.familia() == m_familiaPort && !tecleado(CampoVisor::port)) {
        mostrarCampo(CampoVisor::port);
    } else {
        m_txPort->texto({});
        tecleado(CampoVisor::port) = false;
        vigilarPort();
    }
    mostrarProtocolo();
    m_tabla.alCambiarProtocolo(*this);
}

// ---- validation ----

bool FilaVisor::rechazar(std::string_view motivo) {
    m_tabla.rechazar(motivo);
    return false;
}

bool FilaVisor::validar(CampoVisor campo) {
    const CajaTexto* const c = caja(campo);
    if (c == nullptr) return true;
    const bool entrada = tecleado(campo);
    if (entrada && !entrar(campo)) return false;
    // A port that the other family waits for stays away.
    if (entrada || !c->texto().empty()) mostrarCampo(campo);
    return true;
}

bool FilaVisor::entrar(CampoVisor campo) {
    switch (campo) {
        case CampoVisor::port:
            return entrarPort();
        case CampoVisor::etiqueta:
            return entrarEtiqueta();
        case CampoVisor::ubicacion:
            return entrarUbicacion();
        default:
            return true;
    }
}

bool FilaVisor::entrarPort() {
    visor& v = visorPropio();
    const auto port = familia().leerPort(m_txPort->texto());
    return (port && (*port == v.port() || v.port(*port))) || rechazar(PORT_RECHAZADO);
}

bool FilaVisor::entrarEtiqueta() {
    visor& v = visorPropio();
    const std::string texto = m_txEtq->texto();
    return texto == v.caption() || v.caption(texto) || rechazar(ETIQUETA_RECHAZADA);
}

bool FilaVisor::entrarUbicacion() {
    visor& v = visorPropio();
    const std::string texto = m_txUbi->texto();
    const auto lugar = leerUbicacion(texto);
    const Ubicacion ultima = m_tabla.ultimaCelda();
    const bool cabe = texto.empty() || (lugar && lugar->fila <= ultima.fila && lugar->columna <= ultima.columna);
    return (cabe && (lugar == v.ubicacion() || v.ubicacion(lugar))) || rechazar(UBICACION_RECHAZADA);
}

}  // namespace sorvanel
