#include "platform/win32/painting/pictogramas.h"

#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace sorvanel {

namespace {

using namespace formas;

// Each picture tells the distance from its edge on a field of 24 by 24 units.

float apagar(Punto p) {
    const float aro = aArcoAbierto(p, {12, 12.6F}, 8.2F, 38);
    const float barra = aSegmento(p, {12, 2.8F}, {12, 11.6F});
    return std::min(aro, barra) - 1.25F;
}

float marcha(Punto p) {
    constexpr std::array<Punto, 3> FLECHA{{{7, 4.4F}, {19.6F, 12}, {7, 19.6F}}};
    return aPoligono(p, FLECHA) - 1.2F;  // grown, which rounds its corners
}

float pausa(Punto p) {
    return std::min(aRedondeado(p, {5, 3.6F, 5, 16.8F}, 1.4F), aRedondeado(p, {14, 3.6F, 5, 16.8F}, 1.4F));
}

// A wheel of eight teeth whose flanks lean; corner by corner, from the top.
std::array<Punto, 32> engranaje() {
    constexpr float FUERA = 10.8F, DENTRO = 8;
    // Of one tooth: where its corners stand, in parts of its share of the circle.
    constexpr std::array<std::pair<float, float>, 4> PERFIL{
        {{-0.29F, DENTRO}, {-0.17F, FUERA}, {0.17F, FUERA}, {0.29F, DENTRO}}};
    std::array<Punto, 32> borde;
    for (std::size_t i = 0; i < borde.size(); ++i) {
        const auto [parte, radio] = PERFIL[i % PERFIL.size()];
        const std::size_t diente = i / PERFIL.size();
        const float angulo = (static_cast<float>(diente) + parte) * std::numbers::pi_v<float> / 4;
        borde[i] = {12 + radio * std::sin(angulo), 12 - radio * std::cos(angulo)};
    }
    return borde;
}

float ajustes(Punto p, const std::array<Punto, 32>& rueda) {
    const float agujero = a(p, {12, 12}) - 3.6F;
    return std::max(aPoligono(p, rueda) - 0.4F, -agujero);
}

float aceptar(Punto p) {
    constexpr std::array<Punto, 3> VISTO{{{4.4F, 12.8F}, {9.6F, 18}, {19.6F, 6.4F}}};
    return aLinea(p, VISTO) - 1.6F;
}

float cancelar(Punto p) {
    return std::min(aSegmento(p, {5.6F, 5.6F}, {18.4F, 18.4F}), aSegmento(p, {18.4F, 5.6F}, {5.6F, 18.4F})) - 1.6F;
}

// Two columns of three cells.
float parrilla(Punto p) {
    float celdas = 100;
    for (const float y : {4.2F, 9.8F, 15.4F}) {
        for (const float x : {4.2F, 12.8F}) {
            celdas = std::min(celdas, aRedondeado(p, {x, y, 7, 4.4F}, 0.6F));
        }
    }
    return std::max(aRedondeado(p, {2.4F, 2.4F, 19.2F, 19.2F}, 2.6F), -celdas);
}

// Two displays, one below the other: a short caption and the weight.
float visores(Punto p) {
    float cuerpos = 100, letras = 100;
    for (const float y : {2.6F, 12.8F}) {
        cuerpos = std::min(cuerpos, aRedondeado(p, {1.6F, y, 20.8F, 8.6F}, 2));
        letras = std::min(letras, aRedondeado(p, {4.2F, y + 3.3F, 3.4F, 2}, 0.6F));
        letras = std::min(letras, aRedondeado(p, {10.2F, y + 2.3F, 9.6F, 4}, 0.8F));
    }
    return std::max(cuerpos, -letras);
}

// An arrow from corner to corner.
float tamano(Punto p) {
    constexpr std::array<Punto, 3> ARRIBA{{{11.6F, 4}, {4, 4}, {4, 11.6F}}},
        ABAJO{{{12.4F, 20}, {20, 20}, {20, 12.4F}}};
    const float asta = aSegmento(p, {4.6F, 4.6F}, {19.4F, 19.4F});
    return std::min({asta, aLinea(p, ARRIBA), aLinea(p, ABAJO)}) - 1.2F;
}

// A screen with the band along its foot, and the way in which its text goes.
float mensaje(Punto p) {
    const float pantalla = aRedondeado(p, {1.8F, 2.8F, 20.4F, 18.4F}, 2.8F);
    const float hueco = aRedondeado(p, {3.8F, 4.8F, 16.4F, 7.6F}, 0.8F);
    const float texto =
        std::min(aSegmento(p, {6, 16.8F}, {12.4F, 16.8F}), aSegmento(p, {16, 16.8F}, {18, 16.8F})) - 1.1F;
    constexpr std::array<Punto, 3> PUNTA{{{9.6F, 6.5F}, {7.4F, 8.6F}, {9.6F, 10.7F}}};
    const float flecha = std::min(aSegmento(p, {7.4F, 8.6F}, {16.8F, 8.6F}), aLinea(p, PUNTA)) - 0.85F;
    return std::min(std::max({pantalla, -hueco, -texto}), flecha);
}

float mas(Punto p) {
    return std::min(aSegmento(p, {12, 5}, {12, 19}), aSegmento(p, {5, 12}, {19, 12})) - 1.7F;
}

float menos(Punto p) {
    return aSegmento(p, {5, 12}, {19, 12}) - 1.7F;
}

float cerrar(Punto p) {
    return std::min(aSegmento(p, {6.5F, 6.5F}, {17.5F, 17.5F}), aSegmento(p, {17.5F, 6.5F}, {6.5F, 17.5F})) - 1.2F;
}

// One display on a line of its own.
float tessel(Punto p) {
    const float pantalla = aRedondeado(p, {3, 3, 18, 10.4F}, 2);
    const float peso = aRedondeado(p, {6.4F, 5.8F, 11.2F, 4.8F}, 0.8F);
    const float hilo = aSegmento(p, {12, 13}, {12, 18.4F}) - 1;
    const float puerto = aRedondeado(p, {8.6F, 17.4F, 6.8F, 4.2F}, 1);
    return std::min({std::max(pantalla, -peso), hilo, puerto});
}

// Three on one concentrator.
float pavona(Punto p) {
    float figura = aRedondeado(p, {6.6F, 15.6F, 10.8F, 6}, 1.4F);
    figura = std::min(figura, aSegmento(p, {4.4F, 11.4F}, {19.6F, 11.4F}) - 0.9F);
    figura = std::min(figura, aSegmento(p, {12, 8}, {12, 16}) - 0.9F);
    for (const float x : {4.4F, 12.0F, 19.6F}) {
        figura = std::min(figura, aRedondeado(p, {x - 2.8F, 2.4F, 5.6F, 5.2F}, 1.2F));
        figura = std::min(figura, aSegmento(p, {x, 7}, {x, 11.4F}) - 0.9F);
    }
    return figura;
}

// A pencil.
float diseno(Punto p) {
    constexpr std::array<Punto, 4> MANGO{{{5.6F, 14.8F}, {14.2F, 6.2F}, {17.8F, 9.8F}, {9.2F, 18.4F}}};
    constexpr std::array<Punto, 3> MINA{{{4.4F, 16.4F}, {7.6F, 19.6F}, {3.2F, 20.8F}}};
    constexpr std::array<Punto, 4> GOMA{{{15.8F, 4.6F}, {17, 3.4F}, {20.6F, 7}, {19.4F, 8.2F}}};
    return std::min({aPoligono(p, MANGO), aPoligono(p, MINA) - 0.3F, aPoligono(p, GOMA) - 0.6F});
}

float plegar(Punto p) {
    constexpr std::array<Punto, 3> ARRIBA{{{5.6F, 11.4F}, {12, 5}, {18.4F, 11.4F}}};
    constexpr std::array<Punto, 3> ABAJO{{{5.6F, 18.4F}, {12, 12}, {18.4F, 18.4F}}};
    return std::min(aLinea(p, ARRIBA), aLinea(p, ABAJO)) - 1.3F;
}

// A display, and one more.
float nuevo(Punto p) {
    const float pantalla =
        std::max(aRedondeado(p, {1.8F, 4, 17, 13}, 2.4F), -aRedondeado(p, {4, 6.2F, 12.6F, 8.6F}, 1));
    const float cruz =
        std::min(aSegmento(p, {17.6F, 13}, {17.6F, 21.2F}), aSegmento(p, {13.5F, 17.1F}, {21.7F, 17.1F}));
    return std::min(std::max(pantalla, 2.9F - cruz), cruz - 1.2F);
}

// A bin.
float eliminar(Punto p) {
    constexpr std::array<Punto, 4> CUBO{{{5.4F, 8.2F}, {18.6F, 8.2F}, {17.4F, 21}, {6.6F, 21}}};
    const float rayas = std::min(aSegmento(p, {10, 11.4F}, {10.3F, 18}), aSegmento(p, {14, 11.4F}, {13.7F, 18})) - 0.8F;
    const float tapa = aSegmento(p, {4.4F, 5.4F}, {19.6F, 5.4F}) - 1.1F;
    const float asa = aRedondeado(p, {9, 2, 6, 3.4F}, 1.2F);
    return std::min({std::max(aPoligono(p, CUBO) - 0.6F, -rayas), tapa, asa});
}

float subir(Punto p) {
    constexpr std::array<Punto, 3> PUNTA{{{5.6F, 15}, {12, 8.6F}, {18.4F, 15}}};
    return aLinea(p, PUNTA) - 1.6F;
}

float bajar(Punto p) {
    return subir({p.x, 24 - p.y});
}

}  // namespace

void dibujarPictograma(Lienzo& lienzo, Dibujo dibujo, const RECT& caja, COLORREF tinta) {
    const float unidad = static_cast<float>(caja.right - caja.left) / 24;
    if (unidad <= 0) return;
    const auto pintar = [&](auto figura) {
        const auto x = static_cast<float>(caja.left), y = static_cast<float>(caja.top);
        lienzo.pintarForma(caja, tinta, [=](Punto p) {
            return figura(Punto{(p.x - x) / unidad, (p.y - y) / unidad}) * unidad;
        });
    };
    switch (dibujo) {
        // clang-format off
        case Dibujo::ninguno:  break;
        case Dibujo::apagar:   pintar(apagar);   break;
        case Dibujo::marcha:   pintar(marcha);   break;
        case Dibujo::pausa:    pintar(pausa);    break;
        case Dibujo::ajustes:  pintar([rueda = engranaje()](Punto p) { return ajustes(p, rueda); }); break;
        case Dibujo::aceptar:  pintar(aceptar);  break;
        case Dibujo::cancelar: pintar(cancelar); break;
        case Dibujo::parrilla: pintar(parrilla); break;
        case Dibujo::visores:  pintar(visores);  break;
        case Dibujo::tamano:   pintar(tamano);   break;
        case Dibujo::mensaje:  pintar(mensaje);  break;
        case Dibujo::mas:      pintar(mas);      break;
        case Dibujo::menos:    pintar(menos);    break;
        case Dibujo::cerrar:   pintar(cerrar);   break;
        case Dibujo::tessel:   pintar(tessel);   break;
        case Dibujo::pavona:   pintar(pavona);   break;
        case Dibujo::diseno:   pintar(diseno);   break;
        case Dibujo::plegar:   pintar(plegar);   break;
        case Dibujo::nuevo:    pintar(nuevo);    break;
        case Dibujo::eliminar: pintar(eliminar); break;
        case Dibujo::subir:    pintar(subir);    break;
        case Dibujo::bajar:    pintar(bajar);    break;
            // clang-format on
    }
}

}  // namespace sorvanel
