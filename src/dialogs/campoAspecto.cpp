#include "dialogs/campoAspecto.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "config/numeros.h"
#include "config/texto.h"

namespace sorvanel {

namespace {

using Id = IdControl;

constexpr const char* ELEGIR = "Elegir…";
constexpr std::array<std::string_view, 3> AJUSTES{"Izquierda", "Derecha", "Centro"};
constexpr std::span<const std::string_view> NINGUNA;
constexpr std::string_view LETRAS = "# cifra que puede faltar, 0 cifra que siempre se ve, . separador decimal";
constexpr TextosCaja FORMATO{"Formato del peso", LETRAS, LETRAS, "000000.000", "000000.000"};
constexpr TextosCaja RATIO{"Altura de la etiqueta, tanto por ciento de la del peso",
                           "Tanto por ciento de la altura del peso: menos de 10 vale como 10, más de 100 como 100",
                           "De 11 a 99 por ciento de la altura del peso", "00000", "0000"};

constexpr double CIEN = 100;

// Percent, with no more decimals than the ratio is written with: the product of the binary number would show more.
std::string textoRatio(float ratio, std::string_view separador) {
    const double escrito = leerNumero(textoDeReal(ratio, ".")).value_or(0);
    return textoDeReal(static_cast<float>(escrito * CIEN), separador);
}

// Nothing for what is no number, as for an empty box.
std::optional<float> leerRatio(std::string_view texto) {
    const auto porCiento = leerNumero(texto);
    return porCiento ? std::optional(static_cast<float>(*porCiento / CIEN)) : std::nullopt;
}

// Whole percent, as a box of three digits can hold it.
std::string textoEntero(float ratio) {
    constexpr float MAYOR = 9.99F;
    return std::to_string(std::lround(std::clamp(ratio, 0.0F, MAYOR) * 100));
}

}  // namespace

constexpr std::array<FilaCampo, RASGOS.size()> CAMPOS{{
    {Rasgo::anchoEtiqueta, Id::ckWid, "Ancho de etiqueta", "Ancho de la etiqueta", Id::lbWidEt, Id::imWidEtP,
     Id::imWidEtM},
    {Rasgo::ajusteEtiqueta, Id::ckAdj, "Alineación de etiqueta", "Alineación de la etiqueta", Id::lstAjte, Id::lstAjte,
     Id::lstAjte, AJUSTES},
    {Rasgo::colorTextoEtiqueta, Id::ckTxEt, "Texto de etiqueta", "Texto de la etiqueta", Id::botColTxEt,
     Id::frColorTxEt},
    {Rasgo::colorFondoEtiqueta, Id::ckFdEt, "Fondo de etiqueta", "Fondo de la etiqueta", Id::botColFdEt,
     Id::frColorFdEt},
    {Rasgo::colorTextoPeso, Id::ckTxPe, "Texto del peso", "Texto del peso", Id::botColTxPe, Id::frColorTxPe},
    {Rasgo::colorFondoPeso, Id::ckFdPe, "Fondo del peso", "Fondo del peso", Id::botColFdPe, Id::frColorFdPe},
    {Rasgo::formatoPeso, Id::ckFmt, "Formato del peso", "Formato del peso", Id::txFmt, Id::txFmt, Id::txFmt, NINGUNA,
     &FORMATO},
    {Rasgo::ratioAlturas, Id::ckRat, "Altura de etiqueta (%)", "Altura de la etiqueta (% del peso)", Id::txRatio,
     Id::txRatio, Id::txRatio, NINGUNA, &RATIO},
}};

CampoAspecto::CampoAspecto(TallerDialogo& taller, DialogosSistema& sistema, const comun& com, Datos datos)
    : m_taller(taller), m_com(com), m_datos(std::move(datos)) {
    if (!m_datos.propio && clase() != ClaseRasgo::color) m_rotulo = taller.rotulo(texto());
    switch (clase()) {
        case ClaseRasgo::numero:
            crearNumero();
            break;
        case ClaseRasgo::opcion:
            m_lista = taller.lista(m_datos.fila.control, 0, m_datos.fila.opciones, texto());
            m_lista->alActuar([this] { m_datos.alCambiar(m_lista->indice()); });
            break;
        case ClaseRasgo::color:
            crearColor(sistema);
            break;
        case ClaseRasgo::texto:
        case ClaseRasgo::razon:
            crearCaja(*m_datos.fila.caja);
            break;
    }
}

void CampoAspecto::crearNumero() {
    FilaValor::Datos datos{m_datos.fila.control, m_datos.fila.segundo, m_datos.fila.tercero, {}, texto()};
    datos.superior = [this] { return int{filaDe(m_datos.fila.rasgo).maximo}; };
    datos.alCambiar = [this](int valor) {
        m_datos.alCambiar(valor);
        return valor;
    };
    m_numero = std::make_unique<FilaValor>(m_taller, std::move(datos));
}

void CampoAspecto::crearColor(DialogosSistema& sistema) {
    FilaColor::Datos datos{m_datos.fila.control, m_datos.fila.segundo, texto(), {}, m_datos.alCambiar};
    datos.actual = [this] { return como<Color>(m_datos.actual()); };
    if (m_datos.propio) datos.nombre = std::exchange(datos.texto, ELEGIR);
    m_color = std::make_unique<FilaColor>(m_taller, sistema, m_com, std::move(datos));
}

void CampoAspecto::crearCaja(const TextosCaja& textos) {
    constexpr int CIFRAS_RATIO = 3;
    m_caja = m_taller.cajaTexto(m_datos.fila.control, 0, std::string(textos.nombre),
                                std::string(m_datos.propio ? textos.sugerenciaPropio : textos.sugerenciaComun));
    m_caja->alActuar([this] { alEscribir(); });
    if (clase() == ClaseRasgo::texto) return;
    m_caja->longitudMaxima(CIFRAS_RATIO);
    m_caja->filtro(filtroNumerico);
    m_caja->alValidar([this] {
        redondear();
        return true;
    });
}

void CampoAspecto::escribir(std::string texto) {
    m_caja->texto(texto);
    m_escrito = std::move(texto);
}

// While the box for a number is empty, on the way from one to another, what there is stays.
void CampoAspecto::alEscribir() {
    m_escrito.clear();
    const ValorRasgo leido = leer({});
    if (clase() == ClaseRasgo::texto || !vacio(leido)) m_datos.alCambiar(leido);
}

// Shows what was accepted, which may not be what was typed.
void CampoAspecto::redondear() {
    if (const auto ratio = tomar<float>(m_datos.actual())) escribir(textoEntero(*ratio));
}

void CampoAspecto::mostrarValor(const ValorRasgo& valor) {
    if (m_numero) m_numero->valor(como<int>(valor));
    if (m_lista) m_lista->indice(como<int>(valor));
    if (m_color) m_color->color(como<Color>(valor));
    if (!m_caja) return;
    const auto ratio = tomar<float>(valor);
    if (!ratio) return escribir(como<std::string>(valor));
    escribir(m_datos.propio ? textoRatio(*ratio, m_com.separadorDecimal()) : textoEntero(*ratio));
}

ValorRasgo CampoAspecto::leer(const ValorRasgo& enVigor) const {
    if (m_numero) return m_numero->valor();
    if (m_lista) return m_lista->indice();
    if (m_color) return m_color->color();
    const std::string texto = m_caja->texto();
    if (clase() == ClaseRasgo::texto) return acotar(filaDe(m_datos.fila.rasgo), texto);
    const auto ratio = leerRatio(texto);
    return ratio && texto != m_escrito ? ValorRasgo(*ratio) : enVigor;
}

void CampoAspecto::mostrar(bool visible) {
    if (m_numero) m_numero->mostrar(visible);
    if (m_lista) m_lista->mostrar(visible);
    if (m_color) m_color->mostrar(visible);
    if (m_caja) m_caja->mostrar(visible);
}

std::vector<Control*> CampoAspecto::teclado() const {
    if (m_numero) return {&m_numero->menos(), &m_numero->mas()};
    if (m_color) return {&m_color->boton(), &m_color->marco()};
    if (m_lista) return {m_lista.get()};
    return {m_caja.get()};
}

Pieza CampoAspecto::comoPieza() {
    if (m_numero) return m_numero->piezaValor();
    if (m_color) return m_color->comoPieza();
    if (m_lista) return aLoAncho(pieza(*m_lista, m_taller.lista(m_datos.fila.opciones)));
    const TextosCaja& textos = *m_datos.fila.caja;
    Pieza caja = pieza(*m_caja, m_taller.cajaTexto(m_datos.propio ? textos.muestraPropio : textos.muestraComun));
    caja.todoElAncho = clase() == ClaseRasgo::texto;
    return caja;
}

}  // namespace sorvanel
