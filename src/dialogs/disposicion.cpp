#include "dialogs/disposicion.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace sorvanel {

namespace {

float sumar(const std::vector<float>& largos, std::size_t desde, std::size_t cuantos, float separacion) {
    if (cuantos == 0) return 0;
    const auto inicio = largos.begin() + static_cast<std::ptrdiff_t>(desde);
    const float suma = std::accumulate(inicio, inicio + static_cast<std::ptrdiff_t>(cuantos), 0.0F);
    return suma + separacion * static_cast<float>(cuantos - 1);
}

void alMenos(std::vector<float>& largos, std::size_t indice, float largo) {
    if (largos.size() <= indice) largos.resize(indice + 1, 0.0F);
    largos[indice] = std::max(largos[indice], largo);
}

// The piece's own place in its cell.
Rectangulo encajar(const Pieza& pieza, const Rectangulo& celda) {
    Rectangulo lugar = celda;
    if (!pieza.todoElAncho) lugar.ancho = pieza.minimo.ancho;
    if (!pieza.todoElAlto) {
        lugar.y += (celda.alto - pieza.minimo.alto) / 2;
        lugar.alto = pieza.minimo.alto;
    }
    return lugar;
}

}  // namespace

Pieza pieza(Control& control, Tamano minimo) {
    return {minimo, [&control](const Rectangulo& lugar) { control.colocar(lugar); }};
}

Pieza aLoAncho(Pieza pieza) {
    pieza.todoElAncho = true;
    return pieza;
}

Pieza panel(Marco& marco, Pieza contenido) {
    const Tamano minimo{contenido.minimo.ancho + 2 * RELLENO, contenido.minimo.alto + 2 * RELLENO};
    auto colocar = [&marco, contenido = std::move(contenido)](const Rectangulo& zona) {
        marco.colocar(zona);
        contenido.colocar({zona.x + RELLENO, zona.y + RELLENO, zona.ancho - 2 * RELLENO, zona.alto - 2 * RELLENO});
    };
    return {minimo, std::move(colocar), true, true};
}

void Rejilla::poner(int fila, int columna, Pieza pieza, int columnas) {
    m_celdas.push_back({fila, columna, columnas, std::move(pieza)});
}

int Rejilla::columnaEstirada(std::size_t cuantas) const {
    const int ultima = static_cast<int>(cuantas) - 1;
    return m_estirada >= 0 ? std::min(m_estirada, ultima) : ultima;
}

// What spans several columns counts only for what those do not already have.
std::vector<float> Rejilla::anchos() const {
    std::vector<float> anchos;
    for (const Celda& c : m_celdas) {
        alMenos(anchos, static_cast<std::size_t>(c.columna + c.columnas - 1), 0);
        if (c.columnas == 1) alMenos(anchos, static_cast<std::size_t>(c.columna), c.pieza.minimo.ancho);
    }
    for (const Celda& c : m_celdas) {
        if (c.columnas == 1) continue;
        const float hay =
            sumar(anchos, static_cast<std::size_t>(c.columna), static_cast<std::size_t>(c.columnas), m_entreColumnas);
        const int crece = std::clamp(columnaEstirada(anchos.size()), c.columna, c.columna + c.columnas - 1);
        anchos[static_cast<std::size_t>(crece)] += std::max(c.pieza.minimo.ancho - hay, 0.0F);
    }
    return anchos;
}

std::vector<float> Rejilla::altos() const {
    std::vector<float> altos;
    for (const Celda& c : m_celdas) alMenos(altos, static_cast<std::size_t>(c.fila), c.pieza.minimo.alto);
    return altos;
}

Tamano Rejilla::minimo() const {
    const std::vector<float> columnas = anchos();
    const std::vector<float> filas = altos();
    return {sumar(columnas, 0, columnas.size(), m_entreColumnas), sumar(filas, 0, filas.size(), m_entreFilas)};
}

void Rejilla::colocar(const Rectangulo& zona) const {
    if (m_celdas.empty()) return;
    std::vector<float> columnas = anchos();
    std::vector<float> filas = altos();
    const float total = sumar(columnas, 0, columnas.size(), m_entreColumnas);
    columnas[static_cast<std::size_t>(columnaEstirada(columnas.size()))] += std::max(zona.ancho - total, 0.0F);
    for (const Celda& c : m_celdas) {
        const auto columna = static_cast<std::size_t>(c.columna);
        const auto fila = static_cast<std::size_t>(c.fila);
        const float x = sumar(columnas, 0, columna, m_entreColumnas) + (columna > 0 ? m_entreColumnas : 0.0F);
        const float y = sumar(filas, 0, fila, m_entreFilas) + (fila > 0 ? m_entreFilas : 0.0F);
        const float ancho = sumar(columnas, columna, static_cast<std::size_t>(c.columnas), m_entreColumnas);
        c.pieza.colocar(encajar(c.pieza, {zona.x + x, zona.y + y, ancho, filas[fila]}));
    }
}

Pieza Rejilla::comoPieza() const {
    return {minimo(), [copia = *this](const Rectangulo& zona) { copia.colocar(zona); }, true, true};
}

}  // namespace sorvanel
