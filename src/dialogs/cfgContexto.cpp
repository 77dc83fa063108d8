#include "dialogs/cfgContexto.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "config/comun.h"
#include "config/numeros.h"
#include "config/texto.h"
#include "dialogs/filaColor.h"
#include "dialogs/filaValor.h"
#include "dialogs/vistaPrevia.h"

namespace sorvanel {

namespace {

template <typename Objeto, typename Valor>
struct Propiedad {
    Valor (Objeto::*leer)() const;
    void (Objeto::*poner)(Valor);
};

struct NumeroParrilla {
    IdControl valor, mas, menos;
    const char* nombre;
    int inferior, superior;
    Propiedad<Parrilla, std::int16_t> propiedad;
};

template <typename Objeto>
struct ColorDe {
    IdControl boton, marco;
    const char* texto;
    Propiedad<Objeto, Color> propiedad;
};

constexpr std::array<NumeroParrilla, 4> NUMEROS{{
    {IdControl::lbRow,
     IdControl::imRwP,
     IdControl::imRwM,
     "Filas",
     1,
     comun::MAXROWS,
     {&Parrilla::filas, &Parrilla::filas}},
    {IdControl::lbCol,
     IdControl::imCoP,
     IdControl::imCoM,
     "Columnas",
     1,
     comun::MAXCOLS,
     {&Parrilla::columnas, &Parrilla::columnas}},
    {IdControl::lbGrH,
     IdControl::imGrHP,
     IdControl::imGrHM,
     "Grosor de las líneas horizontales",
     0,
     comun::MAXWIDHORZ,
     {&Parrilla::gruesoHorizontal, &Parrilla::gruesoHorizontal}},
    {IdControl::lbGrV,
     IdControl::imGrVP,
     IdControl::imGrVM,
     "Grosor de las líneas verticales",
     0,
     comun::MAXWIDVERT,
     {&Parrilla::gruesoVertical, &Parrilla::gruesoVertical}},
}};

constexpr std::array<ColorDe<Parrilla>, 3> COLORES_PARRILLA{{
    {IdControl::botColFdo,
     IdControl::frColorFdo,
     "Fondo de las celdas",
     {&Parrilla::colorFondo, &Parrilla::colorFondo}},
    {IdControl::botColRet,
     IdControl::frColorRet,
     "Líneas de la parrilla",
     {&Parrilla::colorReticula, &Parrilla::colorReticula}},
    {IdControl::botColorApp,
     IdControl::frColorApp,
     "Fondo de la aplicación",
     {&Parrilla::colorAplicacion, &Parrilla::colorAplicacion}},
}};
constexpr std::size_t COLOR_APLICACION = 2;

constexpr std::array<ColorDe<diseñoVisor>, 4> COLORES_DISEÑO{{
    {IdControl::botColTxEt,
     IdControl::frColorTxEt,
     "Texto de la etiqueta",
     {&diseñoVisor::colorTextoEtiqueta, &diseñoVisor::colorTextoEtiqueta}},
    {IdControl::botColFdEt,
     IdControl::frColorFdEt,
     "Fondo de la etiqueta",
     {&diseñoVisor::colorFondoEtiqueta, &diseñoVisor::colorFondoEtiqueta}},
    {IdControl::botColTxPe,
     IdControl::frColorTxPe,
     "Texto del peso",
     {&diseñoVisor::colorTextoPeso, &diseñoVisor::colorTextoPeso}},
    {IdControl::botColFdPe,
     IdControl::frColorFdPe,
     "Fondo del peso",
     {&diseñoVisor::colorFondoPeso, &diseñoVisor::colorFondoPeso}},
}};

constexpr std::array<std::string_view, 3> AJUSTES{"Izquierda", "Derecha", "Centro"};
constexpr const char* TEXTO_TRANSPARENTE = "Aplicación transparente";
constexpr int CIFRAS_RATIO = 3;

}  // namespace

struct cfgContexto::Controles {
    std::unique_ptr<Marco> marcoPantalla, marcoParrilla, marcoDiseño;
    std::unique_ptr<Rotulo> grupoPantalla, grupoParrilla, grupoDiseño;
    std::unique_ptr<FilaValor> monitor;
    std::array<std::unique_ptr<FilaValor>, NUMEROS.size()> numeros;
    std::array<std::unique_ptr<FilaColor>, COLORES_PARRILLA.size()> coloresParrilla;
    std::unique_ptr<CasillaMarca> ckTrpa;
    std::unique_ptr<FilaValor> ancho;
    std::unique_ptr<Rotulo> rotuloAjuste, rotuloFormato, rotuloRatio, rotuloMuestra;
    std::unique_ptr<Lista> lstAjte;
    std::array<std::unique_ptr<FilaColor>, COLORES_DISEÑO.size()> coloresDiseño;
    std::unique_ptr<CajaTexto> txFmt, txRatio;
    std::unique_ptr<VistaPrevia> previa;
};

cfgContexto::cfgContexto(const Entorno& entorno, FabricaDialogos& fabrica, MesaConfiguracion& mesa)
    : DialogoConfiguracion(
          IdControl::cfgContexto,
          {"Diseño de parrilla y formatos", "Cada cambio se ve y se guarda al momento", IdControl::ttlo1}, fabrica,
          mesa, entorno) {}

cfgContexto::~cfgContexto() = default;

void cfgContexto::montar() {
    mesa().montarParrilla();
    m_diseño = std::make_unique<diseñoVisor>(entorno());
}

void cfgContexto::crearControles() {
    m_c = std::make_unique<Controles>();
    crearPantalla();
    crearParrilla();
    crearDiseno();
    crearFormato();
}

void cfgContexto::crearPantalla() {
    m_c->marcoPantalla = taller().marco("Pantalla");
    m_c->grupoPantalla = taller().rotuloGrupo("Pantalla");
    FilaValor::Datos datos{IdControl::lbMon, IdControl::imMoP, IdControl::imMoM, 0, "Monitor", "Monitor"};
    datos.inferior = 1;
    datos.repetir = false;
    // The monitors that there are now, not those of when the tool was opened.
    datos.superior = [this] { return int{oScreen(entorno()).numMonitores()}; };
    datos.alCambiar = [this](int indice) { return elegirMonitor(indice); };
    m_c->monitor = std::make_unique<FilaValor>(taller(), std::move(datos));
}

void cfgContexto::crearParrilla() {
    m_c->marcoParrilla = taller().marco("Parrilla");
    m_c->grupoParrilla = taller().rotuloGrupo("Parrilla");
    for (std::size_t i = 0; i < NUMEROS.size(); ++i) {
        const NumeroParrilla& n = NUMEROS[i];
        FilaValor::Datos datos{n.valor, n.mas, n.menos, 0, n.nombre, n.nombre};
        datos.inferior = n.inferior;
        datos.superior = [&n] { return n.superior; };
        datos.alCambiar = [this, &n](int valor) {
            (mesa().parrilla().*n.propiedad.poner)(static_cast<std::int16_t>(valor));
            alCambiarParrilla();
            return int{(mesa().parrilla().*n.propiedad.leer)()};
        };
        m_c->numeros[i] = std::make_unique<FilaValor>(taller(), std::move(datos));
    }
    for (std::size_t i = 0; i < COLORES_PARRILLA.size(); ++i) {
        const ColorDe<Parrilla>& c = COLORES_PARRILLA[i];
        if (i == COLOR_APLICACION) {
            m_c->ckTrpa = taller().casilla(IdControl::ckTrpa, 0, TEXTO_TRANSPARENTE,
                                           "Solo se ven la parrilla y la barra: alrededor queda lo que haya detrás");
            m_c->ckTrpa->alPulsar([this] { alPulsarTransparente(); });
        }
        m_c->coloresParrilla[i] =
            std::make_unique<FilaColor>(taller(), sistema(),
                                        FilaColor::Datos{c.boton, c.marco, 0, c.texto,
                                                         [this, &c] { return (mesa().parrilla().*c.propiedad.leer)(); },
                                                         [this, &c](Color color) {
                                                             (mesa().parrilla().*c.propiedad.poner)(color);
                                                             alCambiarParrilla();
                                                         }});
    }
}

void cfgContexto::crearDiseno() {
    m_c->marcoDiseño = taller().marco("Formato común de los visores");
    m_c->grupoDiseño = taller().rotuloGrupo("Formato común de los visores");
    FilaValor::Datos datos{IdControl::lbWidEt,     IdControl::imWidEtP,   IdControl::imWidEtM, 0,
                           "Ancho de la etiqueta", "Ancho de la etiqueta"};
    datos.superior = [] { return int{comun::MAXWIDLABL}; };
    datos.alCambiar = [this](int ancho) {
        m_diseño->anchoEtiqueta(static_cast<std::int16_t>(ancho));
        pintarPrevia();
        return int{m_diseño->anchoEtiqueta()};
    };
    m_c->ancho = std::make_unique<FilaValor>(taller(), std::move(datos));
    m_c->rotuloAjuste = taller().rotulo("Ajuste de la etiqueta");
    m_c->lstAjte = taller().lista(IdControl::lstAjte, 0, AJUSTES, "Ajuste de la etiqueta");
    m_c->lstAjte->alElegir([this] {
        m_diseño->ajusteEtiqueta(static_cast<std::int16_t>(m_c->lstAjte->indice()));
        pintarPrevia();
    });
    for (std::size_t i = 0; i < COLORES_DISEÑO.size(); ++i) {
        const ColorDe<diseñoVisor>& c = COLORES_DISEÑO[i];
        m_c->coloresDiseño[i] = std::make_unique<FilaColor>(
            taller(), sistema(),
            FilaColor::Datos{c.boton, c.marco, 0, c.texto, [this, &c] { return (*m_diseño.*c.propiedad.leer)(); },
                             [this, &c](Color color) {
                                 (*m_diseño.*c.propiedad.poner)(color);
                                 pintarPrevia();
                             }});
    }
}

void cfgContexto::crearFormato() {
    m_c->rotuloFormato = taller().rotulo("Formato del peso");
    m_c->txFmt = taller().cajaTexto(IdControl::txFmt, 0, "Formato del peso",
                                    "# cifra que puede faltar, 0 cifra que siempre se ve, . separador decimal");
    m_c->txFmt->alCambiar([this] {
        m_diseño->formatoPeso(m_c->txFmt->texto());
        pintarPrevia();
    });
    m_c->rotuloRatio = taller().rotulo("Altura de la etiqueta (% del peso)");
    m_c->txRatio = taller().cajaTexto(IdControl::txRatio, 0, "Altura de la etiqueta, tanto por ciento de la del peso",
                                      "De 11 a 99 por ciento de la altura del peso");
    m_c->txRatio->longitudMaxima(CIFRAS_RATIO);
    m_c->txRatio->filtro(filtroNumerico);
    m_c->txRatio->alCambiar([this] { alCambiarRatio(); });
    m_c->txRatio->alValidar([this] {
        mostrarRatio();
        return true;
    });
    m_c->rotuloMuestra = taller().rotulo("Muestra");
    m_c->previa = std::make_unique<VistaPrevia>(taller());
}

void cfgContexto::rellenar() {
    Parrilla& parrilla = mesa().parrilla();
    m_c->monitor->valor(oScreen(entorno()).monitorActual());
    for (std::size_t i = 0; i < NUMEROS.size(); ++i) {
        m_c->numeros[i]->valor((parrilla.*NUMEROS[i].propiedad.leer)());
    }
    for (std::size_t i = 0; i < COLORES_PARRILLA.size(); ++i) {
        m_c->coloresParrilla[i]->color((parrilla.*COLORES_PARRILLA[i].propiedad.leer)());
    }
    const bool transparente = parrilla.colorAplicacion() < 0;
    m_c->ckTrpa->marcada(transparente);
    mostrarTransparencia(transparente);
    m_c->ancho->valor(m_diseño->anchoEtiqueta());
    m_c->lstAjte->indice(m_diseño->ajusteEtiqueta());
    for (std::size_t i = 0; i < COLORES_DISEÑO.size(); ++i) {
        m_c->coloresDiseño[i]->color((*m_diseño.*COLORES_DISEÑO[i].propiedad.leer)());
    }
    m_c->txFmt->texto(m_diseño->formatoPeso());
    mostrarRatio();
    pintarPrevia();
}

Pieza cfgContexto::panelPantalla() {
    Rejilla filas;
    filas.estirar(0);
    filas.poner(0, 0, taller().piezaRotuloGrupo(*m_c->grupoPantalla), 2);
    filas.poner(1, 0, m_c->monitor->piezaRotulo());
    filas.poner(1, 1, m_c->monitor->piezaValor());
    return panel(*m_c->marcoPantalla, filas.comoPieza());
}

Pieza cfgContexto::panelParrilla() {
    Rejilla filas;
    filas.estirar(0);
    filas.poner(0, 0, taller().piezaRotuloGrupo(*m_c->grupoParrilla), 2);
    int fila = 1;
    for (const auto& numero : m_c->numeros) {
        filas.poner(fila, 0, numero->piezaRotulo());
        filas.poner(fila++, 1, numero->piezaValor());
    }
    Rejilla colores;
    colores.estirar(0);
    for (std::size_t i = 0; i < m_c->coloresParrilla.size(); ++i) {
        const int lugar = static_cast<int>(i == COLOR_APLICACION ? i + 1 : i);
        colores.poner(lugar, 0, m_c->coloresParrilla[i]->piezaBoton());
        colores.poner(lugar, 1, m_c->coloresParrilla[i]->piezaMarco());
    }
    colores.poner(static_cast<int>(COLOR_APLICACION), 0,
                  aLoAncho(pieza(*m_c->ckTrpa, taller().casilla(TEXTO_TRANSPARENTE))), 2);
    filas.poner(fila, 0, colores.comoPieza(), 2);
    return panel(*m_c->marcoParrilla, filas.comoPieza());
}

Pieza cfgContexto::panelDiseno() {
    Rejilla filas;
    filas.estirar(0);
    filas.poner(0, 0, taller().piezaRotuloGrupo(*m_c->grupoDiseño), 2);
    filas.poner(1, 0, m_c->ancho->piezaRotulo());
    filas.poner(1, 1, m_c->ancho->piezaValor());
    filas.poner(2, 0, taller().piezaRotulo(*m_c->rotuloAjuste));
    filas.poner(2, 1, aLoAncho(pieza(*m_c->lstAjte, taller().lista(AJUSTES))));
    Rejilla colores;
    colores.estirar(0);
    int fila = 0;
    for (const auto& color : m_c->coloresDiseño) {
        colores.poner(fila, 0, color->piezaBoton());
        colores.poner(fila++, 1, color->piezaMarco());
    }
    filas.poner(3, 0, colores.comoPieza(), 2);
    filas.poner(4, 0, taller().piezaRotulo(*m_c->rotuloFormato));
    filas.poner(4, 1, aLoAncho(pieza(*m_c->txFmt, taller().cajaTexto("000000.000"))));
    filas.poner(5, 0, taller().piezaRotulo(*m_c->rotuloRatio));
    filas.poner(5, 1, pieza(*m_c->txRatio, taller().cajaTexto("0000")));
    filas.poner(6, 0, taller().piezaRotulo(*m_c->rotuloMuestra), 2);
    filas.poner(7, 0, m_c->previa->comoPieza(), 2);
    return panel(*m_c->marcoDiseño, filas.comoPieza());
}

Pieza cfgContexto::disposicion() {
    Rejilla izquierda(HUECO, HUECO);
    izquierda.poner(0, 0, panelPantalla());
    izquierda.poner(1, 0, panelParrilla());
    Rejilla todo(HUECO, HUECO);
    todo.poner(0, 0, izquierda.comoPieza());
    todo.poner(0, 1, panelDiseno());
    return todo.comoPieza();
}

void cfgContexto::alMostrar() {
    m_c->monitor->menos().enfocar();
}

void cfgContexto::soltar() {
    m_c.reset();
    m_diseño.reset();
}

// The window goes there at once, and the tool with it.
int cfgContexto::elegirMonitor(int indice) {
    mesa().cambiarMonitor(static_cast<std::int16_t>(indice));
    seguirMonitor(mesa().monitorEnUso());
    return oScreen(entorno()).monitorActual();
}

void cfgContexto::alCambiarParrilla() {
    mesa().parrilla().pintarReticula();
    mesa().refrescarBarra();
}

void cfgContexto::alPulsarTransparente() {
    const bool transparente = m_c->ckTrpa->marcada();
    mostrarTransparencia(transparente);
    mesa().parrilla().colorAplicacion(transparente ? Parrilla::TRANSPARENTE
                                                   : m_c->coloresParrilla[COLOR_APLICACION]->color());
    alCambiarParrilla();
}

void cfgContexto::mostrarTransparencia(bool transparente) {
    FilaColor& color = *m_c->coloresParrilla[COLOR_APLICACION];
    if (transparente) cederFoco({&color.boton(), &color.marco()}, *m_c->ckTrpa);
    color.mostrar(!transparente);
}

void cfgContexto::alCambiarRatio() {
    m_diseño->ratioAlturas(static_cast<float>(numeroInicial(m_c->txRatio->texto())) / 100);
    pintarPrevia();
}

// What the design accepted, which may not be what was typed.
void cfgContexto::mostrarRatio() {
    // A file may hold anything; the box has three digits.
    constexpr float MAYOR = 9.99F;
    m_c->txRatio->texto(std::to_string(std::lround(std::clamp(m_diseño->ratioAlturas(), 0.0F, MAYOR) * 100)));
}

void cfgContexto::pintarPrevia() {
    const diseñoVisor& d = *m_diseño;
    m_c->previa->aspecto({d.anchoEtiqueta(), d.ajusteEtiqueta(), d.colorFondoEtiqueta(), d.colorTextoEtiqueta(),
                          d.colorFondoPeso(), d.colorTextoPeso(), d.formatoPeso(), d.ratioAlturas()});
}

}  // namespace sorvanel
