#include "dialogs/cfgVisor.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/cfgVisorControles.h"

namespace sorvanel {

namespace {

constexpr const char* TEXTO_NUEVO = "Nuevo visor";
constexpr const char* TEXTO_ELIMINAR = "Eliminar visor";
constexpr const char* MUESTRA_ELIMINAR = "Eliminar visor #64";
constexpr const char* MUESTRA_PAGINA = "Visores 57 a 64 de 64";

}  // namespace

cfgVisor::cfgVisor(const UtilesDialogo& utiles, MesaConfiguracion& mesa)
    : DialogoConfiguracion(
          IdControl::cfgVisor,
          {"Definir visores", "Cada cambio se ve y se guarda al momento. Una celda libre sitúa el visor o añade otro"},
          utiles, mesa) {}

cfgVisor::~cfgVisor() = default;

PaginaVisores& cfgVisor::pagina() {
    return *m_c->pagina;
}

// ---- opening and closing ----

void cfgVisor::montar() {
    m_actual = 0;
    m_reciente = 0;
    m_conDiseno = 0;
    m_foco.reset();
    m_vista.reset();
    mesa().montarVisores();
}

void cfgVisor::crearControles() {
    m_c = std::make_unique<Controles>();
    m_abierta = std::make_shared<const char>();
    TablaVisores& tabla = *this;
    m_c->pagina = std::make_unique<PaginaVisores>(taller(), tabla);
    m_c->botNvo = taller().botonTexto(IdControl::botNvo, 0, TEXTO_NUEVO, "Añadir un visor al final");
    m_c->botNvo->dibujo(Dibujo::nuevo);
    m_c->botNvo->alActuar([this] { nuevo(); });
    m_c->botElim = taller().botonTexto(IdControl::botElim, 0, TEXTO_ELIMINAR, "Eliminar el visor elegido");
    m_c->botElim->dibujo(Dibujo::eliminar);
    m_c->botElim->repeticion(Repeticion::nuncaDoble);
    m_c->botElim->alActuar([this] { eliminar(); });
    m_c->lbPag = taller().rotulo(IdControl::lbPag, 0, {});
    m_c->lbPag->ajuste(Ajuste::derecha);
    m_c->imSubir = taller().botonImagen(IdControl::imSubir, 0, Dibujo::subir, "Visores anteriores");
    m_c->imSubir->alActuar([this] { paginar(-PaginaVisores::FILAS); });
    m_c->imBajar = taller().botonImagen(IdControl::imBajar, 0, Dibujo::bajar, "Visores siguientes");
    m_c->imBajar->alActuar([this] { paginar(PaginaVisores::FILAS); });
    m_c->pavona = std::make_unique<ConexionPavona>(taller(), utiles().com);
    m_c->panel = std::make_unique<PanelDiseno>(
        taller(), sistema(), utiles().com,
        PanelDiseno::Datos{[this] { return m_conDiseno != 0 ? uno(m_conDiseno) : nullptr; },
                           [this] { cerrarPanel(); }});
    m_c->recepcion = std::make_unique<RecepcionVisor>(taller(), utiles(), mesa(), [this] { return m_actual; });
    m_c->ubicador = std::make_unique<Ubicador>(
        mesa(), Ubicador::Datos{[this] { return validar(); }, [this] { return m_actual; },
                                [this] { return paraLibre(); }, [this](std::int16_t n) { irA(n); },
                                [this](const std::vector<std::int16_t>& cuales) { reubicados(cuales); }});
    elegido(0);
}

void cfgVisor::rellenar() {
    m_c->pavona->rellenar();
    pagina().cuantos(mesa().visores().cuantos());
    pagina().soloPrimera();
    pagina().rehacer();
    actualizar();
}

// Nothing is selected until the operator does so: a display is deleted without being asked for twice.
void cfgVisor::alMostrar() {
    m_c->botNvo->enfocar();
    // The window is there already: however many displays there are, it comes as fast as with one.
    utiles().cola.despues([this, abierta = std::weak_ptr(m_abierta)] {
        if (abierta.expired()) return;
        pagina().completar();
        actualizar();
    });
}

cfgVisor::Vista cfgVisor::vista() {
    return {m_conDiseno != 0, hayFamilia([](const Familia& f) { return f.compartida; }),
            hayFamilia([](const Familia& f) { return f.conForma(); }),
            pagina().cuantos() > PaginaVisores::FILAS || pagina().primera() > 1};
}

// What is seen only at times has room only then. The cells may lie elsewhere by now: what was begun there is over.
Pieza cfgVisor::disposicion(const Vista& vista) {
    m_c->ubicador->cancelar();
    m_vista = vista;
    Rejilla barra;
    barra.estirar(2);
    barra.poner(0, 0, pieza(*m_c->botNvo, taller().botonTexto(TEXTO_NUEVO, true)));
    barra.poner(0, 1, pieza(*m_c->botElim, taller().botonTexto(MUESTRA_ELIMINAR, true)));
    barra.poner(0, 2, aLoAncho(pieza(*m_c->lbPag, taller().texto(MUESTRA_PAGINA))));
    if (vista.paginas) {
        barra.poner(0, 3, pieza(*m_c->imSubir, taller().botonImagen()));
        barra.poner(0, 4, pieza(*m_c->imBajar, taller().botonImagen()));
    }
    Rejilla izquierda(HUECO, HUECO);
    izquierda.poner(0, 0, pagina().comoPieza(vista.marca));
    izquierda.poner(1, 0, barra.comoPieza());
    izquierda.poner(2, 0, m_c->recepcion->comoPieza());
    if (vista.conexion) izquierda.poner(3, 0, m_c->pavona->comoPieza());
    Rejilla todo(HUECO, HUECO);
    todo.poner(0, 0, izquierda.comoPieza());
    if (vista.panel) {
        Pieza panel = m_c->panel->comoPieza();
        m_debajo = esEstrecho(izquierda.minimo().ancho + HUECO + panel.minimo.ancho);
        if (m_debajo) pagina().ensanchada(0);
        todo.poner(m_debajo ? 1 : 0, m_debajo ? 0 : 1, std::move(panel));
    }
    return todo.comoPieza();
}

bool cfgVisor::alUsarRaton(GestoRaton gesto, Punto donde) {
    if (!m_c) return false;
    const bool sigue = m_c->ubicador->usar(gesto, donde);
    // The press has made the main window the active one; there is nothing to be typed in there.
    if (gesto == GestoRaton::pulsar && !sigue) {
        if (m_actual != 0) {
            irA(m_actual);
        } else {
            m_c->botNvo->enfocar();
        }
    }
    return sigue;
}

// A cell may be too small for a display: it is gone from the screen then, and the operator must know.
void cfgVisor::reubicados(const std::vector<std::int16_t>& cuales) {
    std::string errores;
    for (const std::int16_t n : cuales) {
        pagina().reubicada(n);
        if (!uno(n)->ubicado()) errores += (errores.empty() ? "" : "\n") + uno(n)->ultimoerror();
    }
    if (!errores.empty()) rechazar(errores);
}

bool cfgVisor::alEscapar() {
    return m_c->ubicador->cancelar();
}

// What was left has been asked already; where the keyboard still is, has not. While the mouse is at work on
// the grid, whatever else is asked for only ends that.
bool cfgVisor::validar() {
    if (m_c->ubicador->cancelar()) return false;
    if (m_actual == 0 || !m_foco || m_foco->fila > pagina().cuantos()) return true;
    const Foco foco = *m_foco;
    if (pagina().fila(foco.fila).validar(foco.campo)) return true;
    irA(foco.fila, foco.campo);
    return false;
}

// The panel is not stored: what was ticked or unticked since it was is dropped.
void cfgVisor::soltar() {
    m_abierta.reset();
    m_c.reset();
}

// ---- what the rows ask for ----

visor& cfgVisor::visorDe(const FilaVisor& fila) {
    return *uno(fila.numero());
}

Ubicacion cfgVisor::ultimaCelda() {
    return {mesa().parrilla().filas(), mesa().parrilla().columnas()};
}

// Later, for the focus may be on its way just now.
void cfgVisor::rechazar(std::string_view motivo) {
    utiles().cola.despues([&avisos = utiles().avisos, texto = std::string(motivo)] { avisos.critico(texto); });
}

void cfgVisor::avisar(std::string_view texto) {
    utiles().cola.despues([&avisos = utiles().avisos, texto = std::string(texto)] { avisos.informacion(texto); });
}

// The row's own port is emptied: what it says now does not matter.
bool cfgVisor::puedeAlternar(const FilaVisor& fila) {
    return m_foco == Foco{fila.numero(), CampoVisor::port} || validar();
}

void cfgVisor::alElegirFila(FilaVisor& fila) {
    irA(fila.numero());
}

void cfgVisor::alEnfocar(FilaVisor& fila, CampoVisor campo) {
    m_foco = Foco{fila.numero(), campo};
    seleccionar(fila.numero());
}

void cfgVisor::mover(FilaVisor& fila, CampoVisor campo, Tecla tecla) {
    const int n = fila.numero() + (tecla == Tecla::abajo ? 1 : tecla == Tecla::arriba ? -1 : 0);
    const int c = static_cast<int>(campo) + (tecla == Tecla::derecha ? 1 : tecla == Tecla::izquierda ? -1 : 0);
    if (n < 1 || n > pagina().cuantos() || c < 0 || c > static_cast<int>(CampoVisor::ubicacion)) return;
    irA(static_cast<std::int16_t>(n), static_cast<CampoVisor>(c));
    pagina().fila(static_cast<std::int16_t>(n)).seleccionarTodo(static_cast<CampoVisor>(c));
}

void cfgVisor::alCambiarProtocolo(FilaVisor& fila) {
    irA(fila.numero(), CampoVisor::port);
    actualizar();
}

// ---- selection and page ----

bool cfgVisor::hayFamilia(bool (*cual)(const Familia&)) {
    for (std::int16_t n = 1; n <= pagina().cuantos(); ++n) {
        if (cual(uno(n)->familia())) return true;
    }
    return false;
}

std::optional<cfgVisor::Foco> cfgVisor::campoConFoco() {
    if (!m_foco || m_foco->fila > pagina().cuantos() || !pagina().fila(m_foco->fila).tieneFoco(m_foco->campo)) {
        return std::nullopt;
    }
    return m_foco;
}

// The page follows. What has the focus is hidden only when something else has it.
void cfgVisor::irA(std::int16_t n, CampoVisor campo) {
    const std::int16_t ultimaPosible = static_cast<std::int16_t>(n - PaginaVisores::FILAS + 1);
    pagina().primera(std::clamp(pagina().primera(), ultimaPosible, n));
    const bool otra = !pagina().alDia();
    if (otra) pagina().desplegar();
    FilaVisor& fila = pagina().fila(n);
    fila.enfocar(campo);
    alEnfocar(fila, campo);
    if (otra) actualizar();
}

void cfgVisor::irA(std::int16_t n) {
    const auto foco = campoConFoco();
    irA(n, foco && foco->campo != CampoVisor::modo ? foco->campo : CampoVisor::port);
}

void cfgVisor::elegido(std::int16_t n) {
    m_actual = n;
    if (n != m_reciente) m_reciente = 0;
    const std::string texto = n != 0 ? TEXTO_ELIMINAR + (" #" + std::to_string(n)) : TEXTO_ELIMINAR;
    m_c->botElim->texto(texto);
    m_c->botElim->nombre(texto);
    m_c->botElim->habilitar(n != 0);
    pagina().elegida(n);
    m_c->recepcion->seguir();
}

void cfgVisor::seleccionar(std::int16_t n) {
    elegido(n);
    // Also within one row: what stands ticked in the panel is the display's from then on.
    if (m_conDiseno != 0) abrirPanel(n);
}

// The selected display stays on the page, so that nothing unseen is edited or deleted.
void cfgVisor::paginar(std::int16_t paso) {
    const std::int16_t cuantos = pagina().cuantos();
    const std::int16_t primera = pagina().primera();
    const bool hayMas = paso > 0 ? pagina().ultima() < cuantos : primera > 1;
    if (!hayMas) return;
    if (!validar()) return;
    const int tope = std::max(cuantos - PaginaVisores::FILAS + 1, 1);
    pagina().primera(static_cast<std::int16_t>(std::clamp(primera + paso, 1, std::max(tope, int{primera}))));
    pagina().desplegar();
    const std::int16_t destino = std::clamp(m_actual, pagina().primera(), pagina().ultima());
    if (m_actual != 0 && destino != m_actual) {
        // What is typed on from there is not another display's.
        if (m_c->panel->tieneFoco()) {
            irA(destino, CampoVisor::port);
        } else {
            seleccionar(destino);
        }
    }
    actualizar();
}

void cfgVisor::actualizar() {
    pagina().recoger();
    m_c->recepcion->seguir();
    m_c->lbPag->texto(pagina().texto());
    const Vista ahora = vista();
    std::vector<Control*> salen;
    if (!ahora.paginas) salen = {m_c->imSubir.get(), m_c->imBajar.get()};
    if (!ahora.conexion) m_c->pavona->anadirTeclado(salen);
    cederFoco(salen, *m_c->botNvo);
    m_c->imSubir->mostrar(ahora.paginas);
    m_c->imBajar->mostrar(ahora.paginas);
    m_c->pavona->mostrar(ahora.conexion);
    ordenarTeclado();
    if (m_vista && *m_vista != ahora) redisponer();
}

void cfgVisor::ordenarTeclado() {
    std::vector<Control*> orden;
    pagina().anadirTeclado(orden);
    orden.insert(orden.end(), {m_c->botNvo.get(), m_c->botElim.get(), m_c->imSubir.get(), m_c->imBajar.get()});
    m_c->recepcion->anadirTeclado(orden);
    m_c->pavona->anadirTeclado(orden);
    m_c->panel->anadirTeclado(orden);
    formulario().ordenTeclado(orden);
}

}  // namespace sorvanel
