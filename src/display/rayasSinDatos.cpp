#include "display/rayasSinDatos.h"

#include <algorithm>

#include "platform/contraste.h"

namespace sorvanel {

namespace {

constexpr int RAYAS = 5;
constexpr float CONTORNO = 1.0F / 12;      // of the width of "0"
constexpr float BASE_RAYAS = 0.75F;        // of the height, where they end
constexpr float ALTO_MOTIVO = 0.55F;       // of the room below them, at most
constexpr float ALTO_LEGIBLE = aTwips(9);  // a longer text is given up for a shorter one below that
constexpr float ALTO_MINIMO = aTwips(7);   // below that there is none

// Kept free before the line.
float margen(const EncajeVisor& encaje) {
    return encaje.anchoCero / 6;
}

// The largest letters in which the text fits below the dashes; it is measured in them, and the surface has them.
float ajustar(Superficie& peso, const EncajeVisor& encaje, const std::string& texto) {
    const float hueco = encaje.derecha - margen(encaje);
    float alto = std::max(aPixelEntero(encaje.alto * (1 - BASE_RAYAS) * ALTO_MOTIVO), ALTO_MINIMO);
    peso.fuente(letraVisor(alto));
    for (float ancho = peso.medir(texto).ancho; ancho > hueco && alto >= ALTO_MINIMO;) {
        alto = std::min(alto - TWIPS_POR_PIXEL, aPixelEntero(alto * hueco / ancho));
        peso.fuente(letraVisor(alto));
        ancho = peso.medir(texto).ancho;
    }
    return alto;
}

}  // namespace

TintasAviso tintasAviso(const AspectoVisor& aspecto) {
    return {ROJO, aspecto.textoPeso, contraste(ROJO, aspecto.fondoPeso) < CONTRASTE_MINIMO};
}

void pintarRayas(Superficie& peso, const EncajeVisor& encaje, const TintasAviso& tintas) {
    const float paso = encaje.anchoCero;
    const float borde = std::max(TWIPS_POR_PIXEL, aPixelEntero(paso * CONTORNO));
    Rectangulo raya{encaje.derecha - 3 * paso / 4, encaje.alto / 4, paso / 2, encaje.alto / 2};
    for (int i = 0; i < RAYAS; ++i, raya.x -= paso) {
        if (tintas.conContorno) peso.caja(raya, tintas.texto);
        const float b = tintas.conContorno ? borde : 0;
        peso.caja({raya.x + b, raya.y + b, raya.ancho - 2 * b, raya.alto - 2 * b}, tintas.aviso);
    }
}

void pintarMotivo(Superficie& peso, const EncajeVisor& encaje, Color tinta, std::span<const std::string> textos) {
    for (const std::string& texto : textos) {
        const float alto = ajustar(peso, encaje, texto);
        const bool ultimo = &texto == &textos.back();
        if (alto < (ultimo ? ALTO_MINIMO : ALTO_LEGIBLE)) continue;
        const MedidaTexto medida = peso.medir(texto);
        const float centro = encaje.derecha - 2.5F * encaje.anchoCero;  // of the dashes
        const float x = std::max(margen(encaje), std::min(centro - medida.ancho / 2, encaje.derecha - medida.ancho));
        const float medio = encaje.alto * (1 + BASE_RAYAS) / 2;
        const float y = alPixelCercano(medio - (medida.tintaSuperior + medida.tintaInferior) / 2);
        return peso.imprimir(alPixelCercano(x), y, texto, tinta);
    }
}

}  // namespace sorvanel
