#include "dialogs/cfgContexto.h"

#include <array>
#include <string>
#include <utility>

#include "dialogs/campoAspecto.h"
#include "dialogs/filaColor.h"
#include "dialogs/filaValor.h"
#include "dialogs/vistaPrevia.h"

namespace sorvanel {

namespace {

struct NumeroParrilla {
    IdControl valor, mas, menos;
    const char* nombre;
    int inferior, superior;
    std::int16_t (Parrilla::*leer)() const;
    bool (Parrilla::*poner)(std::int16_t);
};

struct ColorParrilla {
    IdControl boton, marco;
    const char* texto;
    Color (Parrilla::*leer)() const;
    void (Parrilla::*poner)(Color);
};

using Id = IdControl;

constexpr std::array<NumeroParrilla, 4> NUMEROS{{
    {Id::lbRow, Id::imRwP, Id::imRwM, "Filas", 1, comun::MAXROWS, &Parrilla::filas, &Parrilla::filas},
    {Id::lbCol, Id::imCoP, Id::imCoM, "Columnas", 1, comun::MAXCOLS, &Parrilla::columnas, &Parrilla::columnas},
    {Id::lbGrH, Id::imGrHP, Id::imGrHM, "Grosor de las líneas horizontales", 0, comun::MAXWIDHORZ,
     &Parrilla::gruesoHorizontal, &Parrilla::gruesoHorizontal},
    {Id::lbGrV, Id::imGrVP, Id::imGrVM, "Grosor de las líneas verticales", 0, comun::MAXWIDVERT,
     &Parrilla::gruesoVertical, &Parrilla::gruesoVertical},
}};

constexpr std::array<ColorParrilla, 3> COLORES{{
    {Id::botColFdo, Id::frColorFdo, "Fondo de las celdas", &Parrilla::colorFondo, &Parrilla::colorFondo},
    {Id::botColRet, Id::frColorRet, "Líneas de la parrilla", &Parrilla::colorReticula, &Parrilla::colorReticula},
    {Id::botColorApp, Id::frColorApp, "Fondo de la aplicación", &Parrilla::colorAplicacion, &Parrilla::colorAplicacion},
}};
constexpr std::size_t COLOR_APLICACION = 2;

constexpr const char* TEXTO_TRANSPARENTE = "Aplicación transparente";
constexpr const char* TEXTO_ENCIMA = "Etiqueta encima del peso";

}  // namespace

struct cfgContexto::Controles {
    std::unique_ptr<Marco> marcoPantalla, marcoParrilla, marcoDiseño;
    std::unique_ptr<Rotulo> grupoPantalla, grupoParrilla, grupoDiseño;
    std::unique_ptr<FilaValor> monitor;
    std::array<std::unique_ptr<FilaValor>, NUMEROS.size()> numeros;
    std::array<std::unique_ptr<FilaColor>, COLORES.size()> colores;
    std::unique_ptr<CasillaMarca> ckTrpa, ckEncima;
    std::array<std::unique_ptr<CampoAspecto>, CAMPOS.size()> campos;
    std::unique_ptr<Rotulo> rotuloMuestra;
    std::unique_ptr<VistaPrevia> previa;
};

cfgContexto::cfgContexto(const UtilesDialogo& utiles, MesaConfiguracion& mesa)
    : DialogoConfiguracion(
          IdControl::cfgContexto,
          {"Diseño de parrilla y formatos", "Cada cambio se guarda al momento y se ve en la pantalla o en la muestra",
           IdControl::ttlo1},
          utiles, mesa) {}

cfgContexto::~cfgContexto() = default;

void cfgContexto::montar() {
    mesa().montarParrilla();
    m_diseño = std::make_unique<diseñoVisor>(utiles().com);
}

void cfgContexto::crearControles() {
    m_c = std::make_unique<Controles>();
    crearPantalla();
    crearParrilla();
    crearDiseno();
}

void cfgContexto::crearPantalla() {
    m_c->marcoPantalla = taller().marco("Pantalla");
    m_c->grupoPantalla = taller().rotuloGrupo("Pantalla");
    FilaValor::Datos datos{IdControl::lbMon, IdControl::imMoP, IdControl::imMoM, "Monitor", "Monitor"};
    datos.inferior = 1;
    datos.repetir = false;
    // The monitors that there are now, not those of when the tool was opened.
    datos.superior = [this] { return int{mesa().pantalla().numMonitores()}; };
    datos.alCambiar = [this](int indice) { return elegirMonitor(indice); };
    m_c->monitor = std::make_unique<FilaValor>(taller(), std::move(datos));
}

void cfgContexto::crearParrilla() {
    m_c->marcoParrilla = taller().marco("Parrilla");
    m_c->grupoParrilla = taller().rotuloGrupo("Parrilla");
    for (std::size_t i = 0; i < NUMEROS.size(); ++i) {
        const NumeroParrilla& n = NUMEROS[i];
        FilaValor::Datos datos{n.valor, n.mas, n.menos, n.nombre, n.nombre};
        datos.inferior = n.inferior;
        datos.superior = [&n] { return n.superior; };
        datos.alCambiar = [this, &n](int valor) {
            (mesa().parrilla().*n.poner)(static_cast<std::int16_t>(valor));
            alCambiarParrilla();
            return int{(mesa().parrilla().*n.leer)()};
        };
        m_c->numeros[i] = std::make_unique<FilaValor>(taller(), std::move(datos));
    }
    for (std::size_t i = 0; i < COLORES.size(); ++i) {
        const ColorParrilla& c = COLORES[i];
        if (i == COLOR_APLICACION) {
            m_c->ckTrpa = taller().casilla(IdControl::ckTrpa, 0, TEXTO_TRANSPARENTE,
                                           "Solo se ven la parrilla y la barra: alrededor queda lo que haya detrás");
            m_c->ckTrpa->alActuar([this] { alPulsarTransparente(); });
        }
        m_c->colores[i] = std::make_unique<FilaColor>(
            taller(), sistema(), utiles().com,
            FilaColor::Datos{c.boton, c.marco, c.texto, [this, &c] { return (mesa().parrilla().*c.leer)(); },
                             [this, &c](Color color) {
                                 (mesa().parrilla().*c.poner)(color);
                                 alCambiarParrilla();
                             }});
    }
}

void cfgContexto::crearDiseno() {
    m_c->marcoDiseño = taller().marco("Diseño común de los visores");
    m_c->grupoDiseño = taller().rotuloGrupo("Diseño común de los visores");
    for (std::size_t i = 0; i < CAMPOS.size(); ++i) {
        CampoAspecto::Datos datos{CAMPOS[i], false, {}, {}};
        datos.actual = [this, rasgo = CAMPOS[i].rasgo] { return m_diseño->valor(rasgo); };
        datos.alCambiar = [this, rasgo = CAMPOS[i].rasgo](const ValorRasgo& valor) {
            m_diseño->valor(rasgo, valor);
            m_c->previa->aspecto(m_diseño->aspecto());
        };
        m_c->campos[i] = std::make_unique<CampoAspecto>(taller(), sistema(), utiles().com, std::move(datos));
    }
    m_c->ckEncima = taller().casilla(IdControl::ckEncima, 0, TEXTO_ENCIMA,
                                     "La etiqueta ocupa todo el ancho de la celda, y los pesos se ven mayores");
    m_c->ckEncima->alActuar([this] {
        m_diseño->etiquetaEncima(m_c->ckEncima->marcada());
        m_c->previa->aspecto(m_diseño->aspecto());
    });
    m_c->rotuloMuestra = taller().rotulo("Muestra");
    m_c->previa = std::make_unique<VistaPrevia>(taller());
}

void cfgContexto::rellenar() {
    Parrilla& parrilla = mesa().parrilla();
    m_c->monitor->valor(mesa().pantalla().monitorActual());
    for (std::size_t i = 0; i < NUMEROS.size(); ++i) {
        m_c->numeros[i]->valor((parrilla.*NUMEROS[i].leer)());
    }
    for (std::size_t i = 0; i < COLORES.size(); ++i) {
        m_c->colores[i]->color((parrilla.*COLORES[i].leer)());
    }
    const bool transparente = parrilla.colorAplicacion() < 0;
    m_c->ckTrpa->marcada(transparente);
    mostrarTransparencia(transparente);
    for (std::size_t i = 0; i < CAMPOS.size(); ++i) m_c->campos[i]->mostrarValor(m_diseño->valor(CAMPOS[i].rasgo));
    m_c->ckEncima->marcada(m_diseño->etiquetaEncima());
    m_c->previa->aspecto(m_diseño->aspecto());
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
    for (std::size_t i = 0; i < COLORES.size(); ++i) {
        if (i == COLOR_APLICACION) {
            filas.poner(fila++, 0, aLoAncho(pieza(*m_c->ckTrpa, taller().casilla(TEXTO_TRANSPARENTE))), 2);
        }
        filas.poner(fila++, 0, m_c->colores[i]->comoPieza(), 2);
    }
    return panel(*m_c->marcoParrilla, filas.comoPieza());
}

Pieza cfgContexto::panelDiseno() {
    Rejilla filas;
    filas.estirar(0);
    filas.poner(0, 0, taller().piezaRotuloGrupo(*m_c->grupoDiseño), 2);
    int fila = 1;
    for (const auto& campo : m_c->campos) {
        if (Rotulo* const rotulo = campo->rotulo()) {
            filas.poner(fila, 0, taller().piezaRotulo(*rotulo));
            filas.poner(fila++, 1, campo->comoPieza());
        } else {
            filas.poner(fila++, 0, campo->comoPieza(), 2);
        }
    }
    filas.poner(fila++, 0, aLoAncho(pieza(*m_c->ckEncima, taller().casilla(TEXTO_ENCIMA))), 2);
    filas.poner(fila++, 0, taller().piezaRotulo(*m_c->rotuloMuestra), 2);
    filas.poner(fila, 0, m_c->previa->comoPieza(), 2);
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

// The window goes there at once, and the tool with it. One whose data cannot be had is passed over.
int cfgContexto::elegirMonitor(int indice) {
    const oScreen& pantalla = mesa().pantalla();
    const std::int16_t actual = pantalla.monitorActual();
    const auto paso = static_cast<std::int16_t>(indice < actual ? -1 : 1);
    auto elegido = static_cast<std::int16_t>(indice);
    while (elegido >= 1 && elegido <= pantalla.numMonitores() && !pantalla.existe(elegido))
        elegido = static_cast<std::int16_t>(elegido + paso);
    if (!pantalla.existe(elegido)) return actual;
    mesa().cambiarMonitor(elegido);
    seguirMonitor(mesa().pantalla().monitor());
    return mesa().pantalla().monitorActual();
}

void cfgContexto::alCambiarParrilla() {
    mesa().parrilla().pintarReticula();
    mesa().refrescarBarra();
}

void cfgContexto::alPulsarTransparente() {
    const bool transparente = m_c->ckTrpa->marcada();
    mostrarTransparencia(transparente);
    mesa().parrilla().colorAplicacion(transparente ? Parrilla::TRANSPARENTE : m_c->colores[COLOR_APLICACION]->color());
    alCambiarParrilla();
}

void cfgContexto::mostrarTransparencia(bool transparente) {
    FilaColor& color = *m_c->colores[COLOR_APLICACION];
    if (transparente) cederFoco({&color.boton(), &color.marco()}, *m_c->ckTrpa);
    color.mostrar(!transparente);
}

}  // namespace sorvanel
