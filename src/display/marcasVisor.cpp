#include "display/marcasVisor.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sorvanel {

namespace {

constexpr int DECIMOS = 10;
constexpr float ANCHO_EN_CEROS = 0.75F;  // a mark's width, to that of "0"
constexpr float ALTO_TRIANGULO = 0.44F;  // to the digits' ink: two of them and a gap
constexpr float ALTO_PLACA = 0.66F;
constexpr float TRAZOS_PLACA = 7;  // a margin, the letter's three arms and two gaps, a margin

// A group of whole tenths of the column, centred in it, as wide as a mark should be.
Rectangulo grupoDeDecimos(const EncajeVisor& encaje) {
    const float decimo = (encaje.anchoPeso - encaje.derecha) / DECIMOS;
    const float deseados = std::floor(encaje.anchoCero * ANCHO_EN_CEROS / decimo + 0.5F);
    const float cuantos = std::clamp(deseados, 2.0F, DECIMOS - 2.0F);
    return {encaje.derecha + (DECIMOS - cuantos) / 2 * decimo, encaje.tintaSuperior, cuantos * decimo,
            encaje.tintaInferior - encaje.tintaSuperior};
}

void triangulo(Superficie& peso, float izquierda, float derecha, float base, float punta, Color tinta) {
    const std::array<Punto, 3> vertices{Punto{izquierda, base}, Punto{derecha, base},
                                        Punto{(izquierda + derecha) / 2, punta}};
    peso.poligono(vertices, tinta);
}

// The letter stands out of a plate, so that it cannot be taken for one more digit.
void placaE(Superficie& peso, const Rectangulo& grupo, Color tinta, Color fondo) {
    // Strokes of whole pixels keep the letter even.
    const float pixeles = std::floor(grupo.alto * ALTO_PLACA / TRAZOS_PLACA / TWIPS_POR_PIXEL);
    const float trazo = std::max(pixeles, 1.0F) * TWIPS_POR_PIXEL;
    const float alto = trazo * TRAZOS_PLACA;
    const Rectangulo placa{grupo.x, grupo.y + (grupo.alto - alto) / 2, grupo.ancho, alto};
    peso.caja(placa, tinta);

    const float ancho = placa.ancho * 0.56F;
    const float x = placa.x + (placa.ancho - ancho) / 2;
    const float y = placa.y + trazo;
    peso.caja({x, y, trazo * 1.25F, 5 * trazo}, fondo);
    for (const float brazo : {0.0F, 2.0F, 4.0F}) peso.caja({x, y + brazo * trazo, ancho, trazo}, fondo);
}

}  // namespace

void pintarMarcas(Superficie& peso, const EncajeVisor& encaje, const MarcasVisor& marcas, Color tinta, Color fondo) {
    peso.caja({encaje.derecha, 0, encaje.anchoPeso - encaje.derecha, encaje.alto}, fondo);
    const Rectangulo grupo = grupoDeDecimos(encaje);
    const float alto = grupo.alto * ALTO_TRIANGULO;
    if (marcas.C) triangulo(peso, grupo.x, grupo.derecha(), grupo.y + alto, grupo.y, tinta);
    if (marcas.D) triangulo(peso, grupo.x, grupo.derecha(), grupo.abajo() - alto, grupo.abajo(), tinta);
    if (marcas.E) placaE(peso, grupo, tinta, fondo);
}

}  // namespace sorvanel
