#include "dialogs/paginaVisores.h"

#include <algorithm>

namespace sorvanel {

namespace {

constexpr float ENTRE_FILAS = aTwips(2);
constexpr float GRUESO_ELEGIDA = aTwips(4);
constexpr Color COLOR_ELEGIDA = rgb(0x0B, 0x5C, 0xC4);

std::size_t indice(std::int16_t n) {
    return static_cast<std::size_t>(n - 1);
}

}  // namespace

PaginaVisores::PaginaVisores(TallerDialogo& taller, TablaVisores& tabla) : m_taller(taller), m_tabla(tabla) {
    m_frTodo = taller.marco(IdControl::frTodo, 0, "Visores");
    for (const std::string_view titulo : ColumnasFila::TITULOS) m_titulos.push_back(taller.rotulo(std::string(titulo)));
    m_lbElegida = taller.rotulo(IdControl::lbElegida, 0, {});
    m_lbElegida->colorFondo(COLOR_ELEGIDA);
    marcarElegida();
}

// From the last row to the first.
PaginaVisores::~PaginaVisores() {
    while (!m_filas.empty()) m_filas.pop_back();
}

std::int16_t PaginaVisores::ultima() const {
    return std::min(static_cast<std::int16_t>(m_primera + FILAS - 1), m_cuantos);
}

std::int16_t PaginaVisores::ultimaHecha() const {
    return m_soloPrimera ? std::min(m_primera, ultima()) : ultima();
}

void PaginaVisores::completar() {
    m_soloPrimera = false;
    desplegar();
}

FilaVisor* PaginaVisores::hecha(std::int16_t n) const {
    return n >= 1 && indice(n) < m_filas.size() ? m_filas[indice(n)].get() : nullptr;
}

FilaVisor& PaginaVisores::fila(std::int16_t n) {
    if (m_filas.size() <= indice(n)) m_filas.resize(indice(n) + 1);
    auto& lugar = m_filas[indice(n)];
    if (!lugar) {
        lugar = std::make_unique<FilaVisor>(m_taller, m_tabla, n);
        lugar->elegida(n == m_elegida);
    }
    return *lugar;
}

void PaginaVisores::desplegar() {
    for (std::int16_t n = m_primera; n <= ultimaHecha(); ++n) {
        colocarFila(fila(n));
        fila(n).mostrar(true);
    }
    marcarElegida();
}

void PaginaVisores::recoger() {
    for (std::size_t i = 0; i < m_filas.size(); ++i) {
        FilaVisor* const sale = m_filas[i].get();
        if (sale == nullptr || muestra(sale->numero())) continue;
        if (m_cuantos > 0) sale->cederFoco(fila(std::min(std::max(sale->numero(), m_primera), ultima())));
        sale->mostrar(false);
    }
    while (m_filas.size() > static_cast<std::size_t>(m_cuantos)) m_filas.pop_back();
    m_vista = {m_primera, m_cuantos};
}

void PaginaVisores::rehacer() {
    for (const auto& f : m_filas) {
        if (f) f->caducar();
    }
    desplegar();
}

void PaginaVisores::reubicada(std::int16_t n) {
    if (FilaVisor* const suya = hecha(n)) suya->mostrarUbicacion();
}

void PaginaVisores::elegida(std::int16_t n) {
    if (n == m_elegida) return;
    if (FilaVisor* const antes = hecha(m_elegida)) antes->elegida(false);
    m_elegida = n;
    if (FilaVisor* const ahora = hecha(n)) ahora->elegida(true);
    marcarElegida();
}

void PaginaVisores::marcarElegida() {
    const bool seVe = m_elegida != 0 && muestra(m_elegida) && !m_zona.vacio();
    m_lbElegida->mostrar(seVe);
    if (!seVe) return;
    const Rectangulo fila = lugarDe(m_elegida);
    m_lbElegida->colocar({fila.x, fila.y, GRUESO_ELEGIDA, fila.alto});
}

void PaginaVisores::ensanchada(std::int16_t n) {
    if (n == m_ensanchada) return;
    FilaVisor* const antes = hecha(m_ensanchada);
    m_ensanchada = n;
    for (FilaVisor* const f : {antes, hecha(n)}) {
        if (f != nullptr && muestra(f->numero())) colocarFila(*f);
    }
}

std::string PaginaVisores::texto() const {
    const std::string total = std::to_string(m_cuantos);
    if (m_cuantos == 0) return "Sin visores";
    if (m_cuantos <= FILAS && m_primera == 1) return m_cuantos == 1 ? "1 visor" : total + " visores";
    return "Visores " + std::to_string(m_primera) + " a " + std::to_string(ultima()) + " de " + total;
}

// ---- layout ----

Pieza PaginaVisores::comoPieza(bool conMarca) {
    m_columnas = ColumnasFila(m_taller, conMarca);
    m_altoTitulos = m_taller.texto(ColumnasFila::TITULOS[0]).alto + 2 * ENTRE_FILAS;
    const float alto = m_altoTitulos + static_cast<float>(FILAS) * (m_columnas.alto() + ENTRE_FILAS);
    return {{m_columnas.ancho() + 2 * RELLENO, alto + 2 * RELLENO},
            [this](const Rectangulo& zona) { colocar(zona); },
            true,
            true};
}

void PaginaVisores::colocar(const Rectangulo& zona) {
    m_zona = zona;
    m_frTodo->colocar(zona);
    colocarTitulos();
    desplegar();
}

void PaginaVisores::colocarTitulos() {
    const Rectangulo linea{m_zona.x + RELLENO, m_zona.y + RELLENO, m_columnas.ancho(), m_altoTitulos};
    for (std::size_t i = 0; i < m_titulos.size(); ++i) {
        m_titulos[i]->colocar(m_columnas.lugar(static_cast<ColumnasFila::Columna>(i), linea, m_altoTitulos));
    }
}

// The row whose panel is open reaches over to it.
Rectangulo PaginaVisores::lugarDe(std::int16_t n) const {
    const float x = m_zona.x + RELLENO;
    const float y =
        m_zona.y + RELLENO + m_altoTitulos + static_cast<float>(n - m_primera) * (m_columnas.alto() + ENTRE_FILAS);
    const float derecha = m_zona.derecha() + (n == m_ensanchada ? HUECO : -RELLENO);
    return {x, y, derecha - x, m_columnas.alto()};
}

void PaginaVisores::colocarFila(FilaVisor& fila) {
    if (!m_zona.vacio()) fila.colocar(lugarDe(fila.numero()), m_columnas);
}

void PaginaVisores::anadirTeclado(std::vector<Control*>& orden) {
    for (std::int16_t n = m_primera; n <= ultimaHecha(); ++n) fila(n).anadirTeclado(orden);
}

}  // namespace sorvanel
