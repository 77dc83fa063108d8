#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sorvanel {

// A weight format, read once and applied to each reading. "#" is an optional digit, "0" a digit that is
// always printed, "." or "," the decimal point; text in double quotes, the character after "\" and
// every other character stand for themselves. Digits beyond the placeholders are never lost. The empty
// format is "####0". Any text is a format: none fails.
class FormatoPeso {
public:
    explicit FormatoPeso(std::string_view formato);

    // Replaces `destino` by the weight, given in thousandths: rounded half away from zero to the format's
    // decimals, in whole numbers only. The result shows points and no comma. Allocates nothing once
    // `destino` has had its room.
    void escribir(std::int64_t milesimas, std::string& destino) const;
    // 9999: as wide as weights usually get.
    std::string muestra() const;

private:
    enum class Clase : unsigned char { literal, entero, punto, decimal };
    struct Pieza {
        Clase clase;
        bool fija;            // this place is printed even without a digit of its own
        std::size_t indice;   // literal: start in m_literales; placeholder: its place from the left
        std::size_t cuantos;  // literal: length
    };

    void leer(std::string_view formato);
    void literal(std::string_view texto);
    void cifra(char c);
    void fijarLugares();
    void escribirEntero(const Pieza& pieza, std::string_view cifras, std::string& destino) const;

    std::vector<Pieza> m_piezas;
    std::string m_literales;
    std::size_t m_enteros = 0;
    std::size_t m_decimales = 0;
    bool m_punto = false;
};

}  // namespace sorvanel
