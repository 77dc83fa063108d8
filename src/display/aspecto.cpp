#include "display/aspecto.h"

#include <algorithm>

#include "config/numeros.h"

namespace sorvanel {

namespace {

ValorRasgo leerSinAcotar(ClaseRasgo clase, const std::string& texto) {
    switch (clase) {
        case ClaseRasgo::color:
            return valorDe(leerHexadecimal(texto));
        case ClaseRasgo::texto:
            return texto;
        case ClaseRasgo::razon:
            return valorDe(leerReal(texto));
        default:
            return valorDe(leerEntero16(texto));
    }
}

}  // namespace

ValorRasgo acotar(const FilaRasgo& fila, ValorRasgo valor) {
    if (auto* const n = std::get_if<std::int32_t>(&valor)) {
        *n = fila.clase == ClaseRasgo::color ? colorPintable(*n) : std::clamp(*n, 0, fila.maximo);
    }
    if (const auto* const t = std::get_if<std::string>(&valor); t != nullptr && t->empty()) valor = {};
    return valor;
}

ValorRasgo leerRasgo(const FilaRasgo& fila, const std::string& texto) {
    return acotar(fila, leerSinAcotar(fila.clase, texto));
}

std::string escribirRasgo(const FilaRasgo& fila, const ValorRasgo& valor, const std::string& separadorDecimal) {
    switch (fila.clase) {
        case ClaseRasgo::color:
            return comun::Long2RGB(como<Color>(valor));
        case ClaseRasgo::texto:
            return como<std::string>(valor);
        case ClaseRasgo::razon:
            return textoDeReal(como<float>(valor), separadorDecimal);
        default:
            return std::to_string(como<std::int32_t>(valor));
    }
}

// Written so that what is not a number becomes the lower bound.
float AspectoVisor::ratioAcotado() const {
    constexpr float MINIMO = 0.1F;
    return ratioAlturas >= MINIMO ? std::min(ratioAlturas, 1.0F) : MINIMO;
}

float AspectoVisor::inicioEtiqueta(float libre, float margen) const {
    if (ajusteEtiqueta == 0) return margen;
    return ajusteEtiqueta == 1 ? libre - margen : libre / 2;
}

AspectoVisor aspectoDe(const ValoresRasgos& valores) {
    AspectoVisor aspecto;
    aspecto.anchoEtiqueta = como<int>(valores[Rasgo::anchoEtiqueta]);
    aspecto.ajusteEtiqueta = como<int>(valores[Rasgo::ajusteEtiqueta]);
    aspecto.fondoEtiqueta = como<Color>(valores[Rasgo::colorFondoEtiqueta]);
    aspecto.textoEtiqueta = como<Color>(valores[Rasgo::colorTextoEtiqueta]);
    aspecto.fondoPeso = como<Color>(valores[Rasgo::colorFondoPeso]);
    aspecto.textoPeso = como<Color>(valores[Rasgo::colorTextoPeso]);
    aspecto.formato = como<std::string>(valores[Rasgo::formatoPeso]);
    aspecto.ratioAlturas = como<float>(valores[Rasgo::ratioAlturas]);
    return aspecto;
}

}  // namespace sorvanel
