#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>

#include "config/comun.h"
#include "platform/color.h"

// The look of a display, as a table: what the file, the shared design, a display, the painting and the tools know of
// its values stands here once.

namespace sorvanel {

// In the order of the file.
enum class Rasgo : std::uint8_t {
    anchoEtiqueta,
    ajusteEtiqueta,
    colorFondoEtiqueta,
    colorTextoEtiqueta,
    colorFondoPeso,
    colorTextoPeso,
    formatoPeso,
    ratioAlturas
};

enum class ClaseRasgo : std::uint8_t { numero, opcion, color, texto, razon };

struct FilaRasgo {
    Rasgo rasgo;
    const char* clave;
    ClaseRasgo clase;
    const char* omision;      // of the shared design, as the file writes it
    bool encaja = false;      // a change asks for fitting anew, not only for painting
    std::int32_t maximo = 0;  // of a number or an option; the least is 0
};

constexpr std::array<FilaRasgo, 8> RASGOS{{
    {Rasgo::anchoEtiqueta, "anchoEtiqueta", ClaseRasgo::numero, "2", true, comun::MAXWIDLABL},
    {Rasgo::ajusteEtiqueta, "ajusteEtiqueta", ClaseRasgo::opcion, "2", false, 2},  // left, right, centre
    {Rasgo::colorFondoEtiqueta, "fondoEtiqueta", ClaseRasgo::color, "FF0000"},
    {Rasgo::colorTextoEtiqueta, "textoEtiqueta", ClaseRasgo::color, "FFFFFF"},
    {Rasgo::colorFondoPeso, "fondoPeso", ClaseRasgo::color, "FFFFFF"},
    {Rasgo::colorTextoPeso, "textoPeso", ClaseRasgo::color, "000000"},
    {Rasgo::formatoPeso, "formatoPeso", ClaseRasgo::texto, "####0", true},
    {Rasgo::ratioAlturas, "ratioAlturas", ClaseRasgo::razon, "0.95", true},
}};

constexpr const FilaRasgo& filaDe(Rasgo rasgo) {
    return RASGOS[static_cast<std::size_t>(rasgo)];
}
static_assert([] {
    for (std::size_t i = 0; i < RASGOS.size(); ++i)
        if (static_cast<std::size_t>(RASGOS[i].rasgo) != i) return false;
    return true;
}());

// Numbers, options and colours are whole numbers. Empty: as the shared design says. An empty text is empty too.
using ValorRasgo = std::variant<std::monostate, std::int32_t, float, std::string>;

constexpr bool vacio(const ValorRasgo& valor) {
    return std::holds_alternative<std::monostate>(valor);
}

struct ValoresRasgos {
    std::array<ValorRasgo, RASGOS.size()> todos;

    ValorRasgo& operator[](Rasgo rasgo) { return todos[static_cast<std::size_t>(rasgo)]; }
    const ValorRasgo& operator[](Rasgo rasgo) const { return todos[static_cast<std::size_t>(rasgo)]; }
};

// Between a value and the type that its name has.
template <typename T>
std::optional<T> tomar(const ValorRasgo& valor) {
    const auto* hay = std::get_if<std::conditional_t<std::is_integral_v<T>, std::int32_t, T>>(&valor);
    return hay != nullptr ? std::optional(static_cast<T>(*hay)) : std::nullopt;
}
template <typename T>
T como(const ValorRasgo& valor) {
    return tomar<T>(valor).value_or(T{});
}
template <typename T>
ValorRasgo valorDe(const std::optional<T>& valor) {
    return valor ? ValorRasgo(*valor) : ValorRasgo();
}

// Within its range: numbers are clamped, colours have 24 bits. A ratio is bounded where it is used.
ValorRasgo acotar(const FilaRasgo& fila, ValorRasgo valor);
// From the text that the file has; empty where that is none.
ValorRasgo leerRasgo(const FilaRasgo& fila, const std::string& texto);
std::string escribirRasgo(const FilaRasgo& fila, const ValorRasgo& valor, const std::string& separadorDecimal);

// How a display looks: the effective values.
struct AspectoVisor {
    std::string etiqueta;
    int anchoEtiqueta = 0;   // 0..6
    int ajusteEtiqueta = 2;  // 0 left, 1 right, 2 centre
    Color fondoEtiqueta = NEGRO;
    Color textoEtiqueta = BLANCO;
    Color fondoPeso = BLANCO;
    Color textoPeso = NEGRO;
    std::string formato;          // empty: the usual one
    float ratioAlturas = 0.95F;   // caption's font height to the weight's; anything
    bool etiquetaEncima = false;  // of the weight, instead of beside it

    // 0.1..1, also of what is not a number.
    float ratioAcotado() const;
    // Left edge of a line of the caption that leaves so much room, twips.
    float inicioEtiqueta(float libre, float margen) const;
};

// Without the caption's text.
AspectoVisor aspectoDe(const ValoresRasgos& valores);

}  // namespace sorvanel
