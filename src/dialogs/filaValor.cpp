#include "dialogs/filaValor.h"

#include <algorithm>
#include <utility>

namespace sorvanel {

namespace {

constexpr float ENTRE_BOTONES = aTwips(4);
// The widest value that is usual; a longer one widens the room at the next layout.
constexpr const char* MUESTRA_VALOR = "000";

}  // namespace

FilaValor::FilaValor(TallerDialogo& taller, Datos datos) : m_taller(taller), m_datos(std::move(datos)) {
    if (!m_datos.rotulo.empty()) m_rotulo = taller.rotulo(m_datos.rotulo);
    m_menos = taller.botonImagen(m_datos.menos, 0, Dibujo::menos, m_datos.nombre + ": menos");
    m_menos->repeticion(m_datos.repetir ? Repeticion::sostenida : Repeticion::ninguna);
    m_menos->alActuar([this] {
        if (m_valor > m_datos.inferior) pasar(-1);
    });
    m_lbValor = taller.rotulo(m_datos.valor, 0, {});
    m_lbValor->ajuste(Ajuste::centro);
    m_mas = taller.botonImagen(m_datos.mas, 0, Dibujo::mas, m_datos.nombre + ": más");
    m_mas->repeticion(m_datos.repetir ? Repeticion::sostenida : Repeticion::ninguna);
    m_mas->alActuar([this] {
        if (m_valor < m_datos.superior()) pasar(1);
    });
    valor(0);
}

void FilaValor::pasar(int paso) {
    valor(m_datos.alCambiar(m_valor + paso));
}

void FilaValor::valor(int valor) {
    m_valor = valor;
    const std::string texto = std::to_string(valor);
    m_lbValor->texto(texto);
    m_lbValor->nombre(m_datos.nombre + ": " + texto);
    const auto pinta = [](bool queda) { return queda ? AspectoBoton::normal : AspectoBoton::agotado; };
    m_menos->aspecto(pinta(valor > m_datos.inferior));
    m_mas->aspecto(pinta(valor < m_datos.superior()));
}

void FilaValor::mostrar(bool visible) {
    if (m_rotulo) m_rotulo->mostrar(visible);
    m_menos->mostrar(visible);
    m_lbValor->mostrar(visible);
    m_mas->mostrar(visible);
}

Pieza FilaValor::piezaValor() {
    Tamano numero = m_taller.texto(MUESTRA_VALOR);
    numero.ancho = std::max(numero.ancho, m_taller.texto(m_lbValor->texto()).ancho);
    Rejilla fila(ENTRE_BOTONES);
    fila.poner(0, 0, pieza(*m_menos, m_taller.botonImagen()));
    fila.poner(0, 1, pieza(*m_lbValor, numero));
    fila.poner(0, 2, pieza(*m_mas, m_taller.botonImagen()));
    Pieza toda = fila.comoPieza();
    toda.todoElAncho = toda.todoElAlto = false;
    return toda;
}

}  // namespace sorvanel
