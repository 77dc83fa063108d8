#include "dialogs/cfgMensaje.h"

#include <algorithm>
#include <string>
#include <vector>

#include "config/numeros.h"
#include "dialogs/filaColor.h"
#include "dialogs/filaValor.h"

namespace sorvanel {

namespace {

constexpr int VELOCIDAD_MAXIMA = 20;
constexpr const char* TEXTO_USAR = "Usar el mensaje auxiliar";
constexpr const char* TEXTO_FUENTE = "Fuente";
constexpr const char* TEXTO_AJUSTAR = "Ajustar la parrilla";
// What the band covers by less is a rounding, not a cell.
constexpr float TOLERANCIA = TWIPS_POR_PIXEL;
// How much of the message is seen while it is typed.
constexpr const char* MUESTRA_TEXTO = "0000000000000000000000000000000000000000";

FuenteElegida aElegida(const FuenteMensaje& f) {
    return {f.nombre, f.puntos, f.negrita, f.cursiva, f.subrayado};
}

FuenteMensaje aMensaje(const FuenteElegida& f) {
    return {f.nombre, f.puntos, f.negrita, f.cursiva, f.subrayado};
}

// As in "Arial, 64 puntos, negrita".
std::string describir(const FuenteMensaje& fuente, const std::string& separador) {
    std::string texto = fuente.nombre + ", " + textoDeReal(fuente.puntos, separador) + " puntos";
    if (fuente.negrita) texto += ", negrita";
    if (fuente.cursiva) texto += ", cursiva";
    if (fuente.subrayado) texto += ", subrayado";
    return texto;
}

}  // namespace

struct cfgMensaje::Controles {
    std::unique_ptr<Marco> frTxt, frFnt, frVel;
    std::unique_ptr<CasillaMarca> ckUsar;
    std::unique_ptr<Rotulo> lbUsar;
    std::unique_ptr<Rotulo> rotuloTexto;
    std::unique_ptr<CajaTexto> txTexto;
    std::unique_ptr<Boton> botFont;
    std::unique_ptr<Rotulo> rotuloFuente;
    std::unique_ptr<FilaColor> colorTexto, colorFondo;
    std::unique_ptr<FilaValor> velocidad;
    std::unique_ptr<Rotulo> lbTapa;
    std::unique_ptr<Boton> botAjustar;
};

cfgMensaje::cfgMensaje(const UtilesDialogo& utiles, MesaConfiguracion& mesa)
    : DialogoConfiguracion(IdControl::cfgMensaje, {"Mensaje auxiliar", {}}, utiles, mesa) {}

cfgMensaje::~cfgMensaje() = default;

void cfgMensaje::montar() {
    mesa().montarMensaje();
}

void cfgMensaje::crearControles() {
    m_c = std::make_unique<Controles>();
    // The frames first: what stands on them is made above them.
    m_c->frTxt = taller().marco(IdControl::frTxt, 0, "Texto del mensaje");
    m_c->frFnt = taller().marco(IdControl::frFnt, 0, "Fuente y colores del mensaje");
    m_c->frVel = taller().marco(IdControl::frVel, 0, "Velocidad del mensaje");
    m_c->ckUsar = taller().casilla(IdControl::ckUsar, 0, {});
    m_c->ckUsar->nombre(TEXTO_USAR);
    m_c->ckUsar->sugerencia("Un texto que se ve a lo ancho de la pantalla, encima de la barra");
    m_c->ckUsar->alActuar([this] { alPulsarUsar(); });
    m_c->lbUsar = taller().rotulo(IdControl::lbUsar, 0, TEXTO_USAR);
    m_c->lbUsar->alActuar([this] {
        m_c->ckUsar->marcada(!m_c->ckUsar->marcada());
        alPulsarUsar();
    });
    crearTexto();
    crearFuente();
    crearVelocidad();
    crearTapa();
}

void cfgMensaje::crearTexto() {
    m_c->rotuloTexto = taller().rotulo("Texto");
    m_c->txTexto = taller().cajaTexto(IdControl::txTexto, 0, "Texto del mensaje");
    m_c->txTexto->alActuar([this] { mesa().mensaje().texto(m_c->txTexto->texto()); });
}

void cfgMensaje::crearFuente() {
    m_c->botFont = taller().botonTexto(IdControl::botFont, 0, TEXTO_FUENTE, "Elegir la fuente del mensaje");
    m_c->botFont->alActuar([this] { elegirFuente(); });
    m_c->rotuloFuente = taller().rotulo("");
    m_c->colorTexto =
        std::make_unique<FilaColor>(taller(), sistema(), utiles().com,
                                    FilaColor::Datos{IdControl::botColorTxt, IdControl::frColorTxt, "Color del texto",
                                                     [this] { return mesa().mensaje().colorTexto(); },
                                                     [this](Color color) { mesa().mensaje().colorTexto(color); }});
    m_c->colorFondo =
        std::make_unique<FilaColor>(taller(), sistema(), utiles().com,
                                    FilaColor::Datos{IdControl::botColorBak, IdControl::frColorBak, "Color del fondo",
                                                     [this] { return mesa().mensaje().colorFondo(); },
                                                     [this](Color color) { mesa().mensaje().colorFondo(color); }});
}

void cfgMensaje::crearVelocidad() {
    FilaValor::Datos datos{IdControl::lbVel, IdControl::imVelP, IdControl::imVelM, "Velocidad (0: parado)",
                           "Velocidad"};
    datos.superior = [] { return VELOCIDAD_MAXIMA; };
    datos.alCambiar = [this](int pixeles) {
        mesa().mensaje().velocidad(pixeles);
        return int{mesa().mensaje().velocidad()};
    };
    m_c->velocidad = std::make_unique<FilaValor>(taller(), std::move(datos));
}

void cfgMensaje::crearTapa() {
    taller().ocultos(true);
    m_c->lbTapa = taller().rotulo(IdControl::lbTapa, 0, {});
    m_c->botAjustar =
        taller().botonTexto(IdControl::botAjustar, 0, TEXTO_AJUSTAR, "Dejar la parrilla justo encima del mensaje");
    taller().ocultos(false);
    m_c->botAjustar->alActuar([this] { ajustarParrilla(); });
}

void cfgMensaje::rellenar() {
    clsMsg& mensaje = mesa().mensaje();
    m_c->ckUsar->marcada(mensaje.enUso());
    m_c->txTexto->texto(mensaje.texto());
    m_c->colorTexto->color(mensaje.colorTexto());
    m_c->colorFondo->color(mensaje.colorFondo());
    m_c->velocidad->valor(mensaje.velocidad());
    mostrarFuente();
    mostrarMarcos(mensaje.enUso());
    mensaje.marcha();
}

Pieza cfgMensaje::panelTexto() {
    Rejilla fila;
    fila.poner(0, 0, taller().piezaRotulo(*m_c->rotuloTexto));
    fila.poner(0, 1, aLoAncho(pieza(*m_c->txTexto, taller().cajaTexto(MUESTRA_TEXTO))));
    return panel(*m_c->frTxt, fila.comoPieza());
}

Pieza cfgMensaje::panelFuente() {
    Rejilla filas;
    filas.poner(0, 0, aLoAncho(pieza(*m_c->botFont, taller().botonTexto(TEXTO_FUENTE))));
    filas.poner(0, 1, aLoAncho(taller().piezaRotulo(*m_c->rotuloFuente)));
    filas.poner(1, 0, m_c->colorTexto->piezaBoton());
    filas.poner(1, 1, m_c->colorTexto->piezaMarco());
    filas.poner(2, 0, m_c->colorFondo->piezaBoton());
    filas.poner(2, 1, m_c->colorFondo->piezaMarco());
    return panel(*m_c->frFnt, filas.comoPieza());
}

Pieza cfgMensaje::panelVelocidad() {
    Rejilla fila;
    fila.estirar(0);
    fila.poner(0, 0, m_c->velocidad->piezaRotulo());
    fila.poner(0, 1, m_c->velocidad->piezaValor());
    return panel(*m_c->frVel, fila.comoPieza());
}

Pieza cfgMensaje::filaTapa() {
    Rejilla fila;
    fila.estirar(0);
    fila.poner(0, 0, taller().piezaRotulo(*m_c->lbTapa));
    fila.poner(0, 1, pieza(*m_c->botAjustar, taller().botonTexto(TEXTO_AJUSTAR)));
    return fila.comoPieza();
}

Pieza cfgMensaje::todo(bool conMarcos, bool conTapa) {
    Rejilla usar(0);
    usar.poner(0, 0, pieza(*m_c->ckUsar, taller().casilla({})));
    usar.poner(0, 1, taller().piezaRotulo(*m_c->lbUsar));
    Rejilla marcos(HUECO, HUECO);
    marcos.poner(0, 0, panelTexto());
    marcos.poner(1, 0, panelFuente());
    marcos.poner(2, 0, panelVelocidad());
    Rejilla todo(HUECO, HUECO);
    todo.poner(0, 0, usar.comoPieza());
    if (conMarcos) todo.poner(1, 0, marcos.comoPieza());
    if (conTapa) todo.poner(2, 0, filaTapa());
    Pieza entera = todo.comoPieza();
    entera.minimo.ancho = std::max(entera.minimo.ancho, marcos.minimo().ancho);
    return entera;
}

// Not in use there is nothing to set: the window is then no higher than its check box.
Pieza cfgMensaje::disposicion() {
    mostrarTapa();
    return todo(m_c->ckUsar->marcada(), m_c->lbTapa->visible());
}

Pieza cfgMensaje::disposicionMayor() {
    return todo(true, true);
}

void cfgMensaje::alMostrar() {
    m_c->ckUsar->enfocar();
}

void cfgMensaje::alCerrar() {
    mesa().mensaje().paro();
}

void cfgMensaje::soltar() {
    m_c.reset();
}

void cfgMensaje::alPulsarUsar() {
    const bool usar = m_c->ckUsar->marcada();
    // A click on the label leaves the focus in what may now be hidden.
    if (!usar) m_c->ckUsar->enfocar();
    mesa().mensaje().enUso(usar);
    mostrarMarcos(usar);
    redisponer();
    if (usar) mesa().mensaje().marcha();
}

void cfgMensaje::mostrarMarcos(bool visibles) {
    for (Control* c :
         std::initializer_list<Control*>{m_c->frTxt.get(), m_c->frFnt.get(), m_c->frVel.get(), m_c->rotuloTexto.get(),
                                         m_c->txTexto.get(), m_c->botFont.get(), m_c->rotuloFuente.get()}) {
        c->mostrar(visibles);
    }
    m_c->colorTexto->mostrar(visibles);
    m_c->colorFondo->mostrar(visibles);
    m_c->velocidad->mostrar(visibles);
}

int cfgMensaje::filasTapadas() {
    const Parrilla& parrilla = mesa().parrilla();
    int tapadas = 0;
    for (std::int16_t fila = parrilla.filas(); fila >= 1; --fila) {
        const auto celda = parrilla.getCell(fila, 1);
        if (!celda || celda->abajo() <= mesa().limiteInferior() + TOLERANCIA) break;
        ++tapadas;
    }
    return mesa().mensaje().enUso() ? tapadas : 0;
}

std::optional<float> cfgMensaje::altoLibre() {
    const Parrilla& parrilla = mesa().parrilla();
    const float alto = mesa().limiteInferior() - parrilla.Top();
    const float lineas = aTwips(parrilla.gruesoHorizontal()) * static_cast<float>(parrilla.filas() + 1);
    return alto > lineas ? std::optional(alto) : std::nullopt;
}

void cfgMensaje::mostrarTapa() {
    const int tapadas = filasTapadas();
    const std::string cuantas = tapadas == 1 ? "la última fila" : "las " + std::to_string(tapadas) + " últimas filas";
    if (tapadas == 0 && m_c->botAjustar->tieneFoco()) m_c->ckUsar->enfocar();
    m_c->lbTapa->texto("El mensaje tapa " + (tapadas == mesa().parrilla().filas() ? "toda la parrilla" : cuantas));
    m_c->lbTapa->mostrar(tapadas > 0);
    m_c->botAjustar->mostrar(tapadas > 0 && altoLibre());
}

void cfgMensaje::ajustarParrilla() {
    const auto alto = altoLibre();
    if (!alto || !mesa().parrilla().Height(*alto)) return;
    reubicar();
    mesa().refrescarBarra();
    redisponer();
}

// Those that their cells cannot hold any more are gone from the screen: the operator must know.
void cfgMensaje::reubicar() {
    Visores& visores = mesa().visores();
    std::vector<visor*> puestos;
    for (std::int16_t n = 1; n <= visores.cuantos(); ++n) {
        if (visores.uno(n)->ubicado()) puestos.push_back(visores.uno(n));
    }
    visores.reubicar();
    std::string errores;
    for (const visor* const v : puestos) {
        if (!v->ubicado()) errores += (errores.empty() ? "" : "\n") + v->ultimoerror();
    }
    if (!errores.empty()) utiles().cola.despues([&avisos = utiles().avisos, errores] { avisos.critico(errores); });
}

void cfgMensaje::elegirFuente() {
    FuenteElegida elegida = aElegida(mesa().mensaje().getFont());
    if (!sistema().elegirFuente(elegida)) return;
    if (!mesa().mensaje().letFont(aMensaje(elegida))) {
        utiles().avisos.critico("El mensaje no se puede escribir con la fuente \"" + elegida.nombre +
                                "\" en ese tamaño. Se conserva la anterior.");
        return;
    }
    mostrarFuente();
    redisponer();
}

void cfgMensaje::mostrarFuente() {
    m_c->rotuloFuente->texto(describir(mesa().mensaje().getFont(), utiles().com.separadorDecimal()));
}

}  // namespace sorvanel
