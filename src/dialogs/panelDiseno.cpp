#include "dialogs/panelDiseno.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "config/comun.h"
#include "config/texto.h"
#include "dialogs/textosVisor.h"

namespace sorvanel {

namespace {

constexpr std::array<std::string_view, 3> AJUSTES{"Izquierda", "Derecha", "Centro"};
constexpr const char* ELEGIR = "Elegir…";
constexpr int CIFRAS_RATIO = 3;
constexpr float ENTRE_FILAS = aTwips(5);

struct Casilla {
    IdControl id;
    const char* texto;
};

// In the order of the properties.
constexpr std::array<Casilla, 8> CASILLAS{{
    {IdControl::ckWid, "Ancho de etiqueta"},
    {IdControl::ckAdj, "Ajuste de etiqueta"},
    {IdControl::ckTxEt, "Texto de etiqueta"},
    {IdControl::ckFdEt, "Fondo de etiqueta"},
    {IdControl::ckTxPe, "Texto del peso"},
    {IdControl::ckFdPe, "Fondo del peso"},
    {IdControl::ckFmt, "Formato del peso"},
    {IdControl::ckRat, "Altura de etiqueta (%)"},
}};

struct ColorPropio {
    IdControl boton;
    IdControl marco;
    std::optional<Color> (visor::*leer)() const;
    void (visor::*poner)(std::optional<Color>);
    Color (visor::*efectivo)() const;
    Color (diseñoVisor::*comun)() const;
};

constexpr std::array<ColorPropio, 4> COLORES_PROPIOS{{
    {IdControl::botColTxEt, IdControl::frColorTxEt, &visor::colorTextoEtiqueta, &visor::colorTextoEtiqueta,
     &visor::colorTextoEtiquetaEfv, &diseñoVisor::colorTextoEtiqueta},
    {IdControl::botColFdEt, IdControl::frColorFdEt, &visor::colorFondoEtiqueta, &visor::colorFondoEtiqueta,
     &visor::colorFondoEtiquetaEfv, &diseñoVisor::colorFondoEtiqueta},
    {IdControl::botColTxPe, IdControl::frColorTxPe, &visor::colorTextoPeso, &visor::colorTextoPeso,
     &visor::colorTextoPesoEfv, &diseñoVisor::colorTextoPeso},
    {IdControl::botColFdPe, IdControl::frColorFdPe, &visor::colorFondoPeso, &visor::colorFondoPeso,
     &visor::colorFondoPesoEfv, &diseñoVisor::colorFondoPeso},
}};

// Each write lays the display out anew: only what changes is written.
template <typename T>
void poner(visor& v, std::optional<T> (visor::*leer)() const, void (visor::*escribir)(std::optional<T>),
           std::optional<T> nuevo) {
    if ((v.*leer)() != nuevo) (v.*escribir)(nuevo);
}

std::string textoRatioEntero(float ratio) {
    return std::to_string(std::lround(ratio * 100));
}

}  // namespace

// ---- making ----

PanelDiseno::PanelDiseno(TallerDialogo& taller, DialogosSistema& sistema, const Entorno& entorno, Datos datos)
    : m_taller(taller), m_entorno(entorno), m_datos(std::move(datos)), m_diseño(entorno) {
    m_frDise = taller.marco(IdControl::frDise, 0, "Diseño particular");
    m_titulo = taller.rotuloGrupo({});
    m_imDesf = taller.botonImagen(IdControl::imDesf, 0, Dibujo::plegar, "Cerrar el diseño particular");
    m_imDesf->alPulsar([this] { m_datos.alCerrar(); });
    crearCasillas();
    crearAncho();
    m_lstAjte = taller.lista(IdControl::lstAjte, 0, AJUSTES, CASILLAS[ajuste].texto);
    m_lstAjte->alElegir(
        [this] { cambiar([this](visor& v) { v.ajusteEtiqueta(static_cast<std::int16_t>(m_lstAjte->indice())); }); });
    for (std::size_t i = 0; i < COLORES; ++i) crearColor(sistema, i);
    crearTextos();
    m_previa = std::make_unique<VistaPrevia>(taller);
    abierto(false);
}

void PanelDiseno::crearCasillas() {
    for (std::size_t i = 0; i < CUANTAS; ++i) {
        m_casillas[i] = m_taller.casilla(CASILLAS[i].id, 0, CASILLAS[i].texto,
                                         "Marcada, este visor tiene un valor propio; si no, el común");
        m_casillas[i]->alPulsar([this] { mostrarPropios(); });
    }
}

void PanelDiseno::crearAncho() {
    FilaValor::Datos datos{IdControl::lbWidEt, IdControl::imWidEtP, IdControl::imWidEtM, 0, {}, CASILLAS[ancho].texto};
    datos.superior = [] { return int{comun::MAXWIDLABL}; };
    datos.alCambiar = [this](int valor) {
        cambiar([&](visor& v) { v.anchoEtiqueta(static_cast<std::int16_t>(valor)); });
        return valor;
    };
    m_ancho = std::make_unique<FilaValor>(m_taller, std::move(datos));
    m_anchoComun = m_taller.rotulo(std::to_string(m_diseño.anchoEtiqueta()) + " (común)");
}

void PanelDiseno::crearColor(DialogosSistema& sistema, std::size_t i) {
    const ColorPropio& c = COLORES_PROPIOS[i];
    FilaColor::Datos datos{c.boton, c.marco, 0, ELEGIR, {}, {}};
    datos.actual = [this, &c] {
        const visor* const v = m_datos.actual();
        return v != nullptr ? (v->*c.efectivo)() : (m_diseño.*c.comun)();
    };
    datos.alElegir = [this, &c](Color color) { cambiar([&](visor& v) { (v.*c.poner)(color); }); };
    m_colores[i] = std::make_unique<FilaColor>(m_taller, sistema, std::move(datos));
    const std::string nombre = CASILLAS[textoEtiqueta + i].texto;
    m_colores[i]->boton().nombre(nombre + ": elegir el color");
    m_colores[i]->boton().sugerencia(nombre + ": elegir el color");
    m_colores[i]->marco().nombre(nombre + ": color actual");
}

void PanelDiseno::crearTextos() {
    m_txFmt = m_taller.cajaTexto(IdControl::txFmt, 0, CASILLAS[formato].texto,
                                 "# cifra que puede faltar, 0 cifra que siempre se ve, . separador decimal");
    m_txFmt->alCambiar([this] { cambiar([this](visor& v) { v.formatoPeso(m_txFmt->texto()); }); });
    m_txRatio =
        m_taller.cajaTexto(IdControl::txRatio, 0, "Altura de la etiqueta, tanto por ciento de la del peso",
                           "Tanto por ciento de la altura del peso: menos de 10 vale como 10, más de 100 como 100");
    m_txRatio->longitudMaxima(CIFRAS_RATIO);
    m_txRatio->filtro(filtroNumerico);
    m_txRatio->alCambiar([this] { alCambiarRatio(); });
    // Shows what the display accepted.
    m_txRatio->alValidar([this] {
        if (const visor* const v = m_datos.actual()) mostrarRatio(textoRatioEntero(ratioDe(*v)));
        return true;
    });
}

// ---- the display's values ----

float PanelDiseno::ratioDe(const visor& v) const {
    return v.ratioAlturas().value_or(m_diseño.ratioAlturas());
}

void PanelDiseno::mostrarRatio(std::string texto) {
    m_txRatio->texto(texto);
    m_ratioMostrado = std::move(texto);
}

// While the box is empty, on the way from one number to another, the display keeps what it has.
void PanelDiseno::alCambiarRatio() {
    m_ratioMostrado.clear();
    const auto leido = leerRatio(m_txRatio->texto());
    if (leido) cambiar([&](visor& v) { v.ratioAlturas(leido); });
}

// A finer share than the box tells is not rounded by being looked at.
float PanelDiseno::ratioElegido(const visor& v) const {
    const std::string texto = m_txRatio->texto();
    return texto == m_ratioMostrado ? ratioDe(v) : leerRatio(texto).value_or(ratioDe(v));
}

void PanelDiseno::cargar(std::int16_t numero, const visor& v) {
    m_titulo->texto("Diseño particular #" + std::to_string(numero));
    casilla(ancho).marcada(v.anchoEtiqueta().has_value());
    m_ancho->valor(v.anchoEtiqueta().value_or(m_diseño.anchoEtiqueta()));
    casilla(ajuste).marcada(v.ajusteEtiqueta().has_value());
    m_lstAjte->indice(v.ajusteEtiqueta().value_or(m_diseño.ajusteEtiqueta()));
    for (std::size_t i = 0; i < COLORES; ++i) {
        const ColorPropio& c = COLORES_PROPIOS[i];
        const std::optional<Color> color = (v.*c.leer)();
        m_casillas[textoEtiqueta + i]->marcada(color.has_value());
        m_colores[i]->color(color.value_or((m_diseño.*c.comun)()));
    }
    casilla(formato).marcada(!v.formatoPeso().empty());
    m_txFmt->texto(v.formatoPeso().empty() ? m_diseño.formatoPeso() : v.formatoPeso());
    casilla(ratio).marcada(v.ratioAlturas().has_value());
    mostrarRatio(textoRatio(ratioDe(v), m_entorno.programa.separadorDecimal()));
    mostrarPropios();
    pintarPrevia();
}

void PanelDiseno::guardar(visor& v) const {
    const auto numero = [](int n) { return std::optional(static_cast<std::int16_t>(n)); };
    poner(v, &visor::anchoEtiqueta, &visor::anchoEtiqueta, propio(ancho) ? numero(m_ancho->valor()) : std::nullopt);
    poner(v, &visor::ajusteEtiqueta, &visor::ajusteEtiqueta,
          propio(ajuste) ? numero(m_lstAjte->indice()) : std::nullopt);
    for (std::size_t i = 0; i < COLORES; ++i) {
        const ColorPropio& c = COLORES_PROPIOS[i];
        poner(v, c.leer, c.poner,
              m_casillas[textoEtiqueta + i]->marcada() ? std::optional(m_colores[i]->color()) : std::nullopt);
    }
    const std::string texto = propio(formato) ? m_txFmt->texto() : std::string();
    if (texto != v.formatoPeso()) v.formatoPeso(texto);
    poner(v, &visor::ratioAlturas, &visor::ratioAlturas, propio(ratio) ? std::optional(ratioElegido(v)) : std::nullopt);
}

void PanelDiseno::cambiar(const std::function<void(visor&)>& cambio) {
    visor* const v = m_datos.actual();
    if (v == nullptr) return;
    cambio(*v);
    pintarPrevia();
}

void PanelDiseno::pintarPrevia() {
    const visor* const v = m_datos.actual();
    if (v == nullptr) return;
    m_previa->aspecto({v->anchoEtiquetaEfv(), v->ajusteEtiquetaEfv(), v->colorFondoEtiquetaEfv(),
                       v->colorTextoEtiquetaEfv(), v->colorFondoPesoEfv(), v->colorTextoPesoEfv(), v->formatoPesoEfv(),
                       ratioDe(*v)});
}

// ---- what is seen ----

void PanelDiseno::abierto(bool si) {
    m_abierto = si;
    m_frDise->mostrar(si);
    m_titulo->mostrar(si);
    m_imDesf->mostrar(si);
    for (const auto& c : m_casillas) c->mostrar(si);
    m_previa->mostrar(si);
    mostrarPropios();
}

void PanelDiseno::mostrarPropios() {
    const auto seVe = [this](Propiedad p) { return m_abierto && propio(p); };
    for (std::size_t i = 0; i < CUANTAS; ++i) {
        const auto p = static_cast<Propiedad>(i);
        if (!seVe(p)) cederFoco(propios(p), casilla(p));
    }
    m_ancho->mostrar(seVe(ancho));
    m_anchoComun->mostrar(m_abierto && !propio(ancho));
    m_lstAjte->mostrar(seVe(ajuste));
    for (std::size_t i = 0; i < COLORES; ++i)
        m_colores[i]->mostrar(m_abierto && m_casillas[textoEtiqueta + i]->marcada());
    m_txFmt->mostrar(seVe(formato));
    m_txRatio->mostrar(seVe(ratio));
}

// What stands in one place is never seen at the same time.
Pieza PanelDiseno::comoPieza() {
    Rejilla cabecera;
    cabecera.estirar(0);
    cabecera.poner(0, 0, aLoAncho(pieza(*m_titulo, m_taller.textoGrupo("Diseño particular #64"))));
    cabecera.poner(0, 1, pieza(*m_imDesf, m_taller.botonImagen()));
    Rejilla filas(SEPARACION, ENTRE_FILAS);
    filas.poner(0, 0, cabecera.comoPieza(), 2);
    for (std::size_t i = 0; i < CUANTAS; ++i) {
        filas.poner(static_cast<int>(i) + 1, 0, pieza(*m_casillas[i], m_taller.casilla(CASILLAS[i].texto)));
    }
    const auto poner = [&](Propiedad p, Pieza derecha) { filas.poner(static_cast<int>(p) + 1, 1, std::move(derecha)); };
    poner(ancho, m_ancho->piezaValor());
    poner(ancho, m_taller.piezaRotulo(*m_anchoComun));
    poner(ajuste, aLoAncho(pieza(*m_lstAjte, m_taller.lista(AJUSTES))));
    for (std::size_t i = 0; i < COLORES; ++i) {
        Rejilla par;
        par.estirar(0);
        par.poner(0, 0, m_colores[i]->piezaBoton());
        par.poner(0, 1, m_colores[i]->piezaMarco());
        poner(static_cast<Propiedad>(textoEtiqueta + i), par.comoPieza());
    }
    poner(formato, aLoAncho(pieza(*m_txFmt, m_taller.cajaTexto("000000.000"))));
    poner(ratio, pieza(*m_txRatio, m_taller.cajaTexto("00000")));
    filas.poner(CUANTAS + 1, 0, m_previa->comoPieza(), 2);
    return panel(*m_frDise, filas.comoPieza());
}

std::vector<Control*> PanelDiseno::propios(Propiedad p) const {
    switch (p) {
        case ancho:
            return {&m_ancho->menos(), &m_ancho->mas()};
        case ajuste:
            return {m_lstAjte.get()};
        case formato:
            return {m_txFmt.get()};
        case ratio:
            return {m_txRatio.get()};
        default:
            FilaColor& color = *m_colores[static_cast<std::size_t>(p - textoEtiqueta)];
            return {&color.boton(), &color.marco()};
    }
}

void PanelDiseno::anadirTeclado(std::vector<Control*>& orden) const {
    orden.push_back(m_imDesf.get());
    for (std::size_t i = 0; i < CUANTAS; ++i) {
        const auto p = static_cast<Propiedad>(i);
        orden.push_back(&casilla(p));
        for (Control* const c : propios(p)) orden.push_back(c);
    }
}

bool PanelDiseno::tieneFoco() const {
    std::vector<Control*> controles;
    anadirTeclado(controles);
    return std::any_of(controles.begin(), controles.end(), [](const Control* c) { return c->tieneFoco(); });
}

}  // namespace sorvanel
