#pragma once

#include <string>
#include <string_view>

namespace sorvanel {

// What "####0", "0000.0", "#0.00" and "0.000" print of eight digits of thousandths, worked out on paper
// rules: the digits are characters, rounding carries from one to the next. Shares nothing with the
// program's arithmetic.
inline std::string oraculoPeso(std::string_view cifras, std::size_t enteros, std::size_t decimales) {
    std::string texto(1, '0');
    texto += cifras.substr(0, 5 + decimales);
    if (decimales < 3 && cifras[5 + decimales] >= '5') {
        std::size_t i = texto.size() - 1;
        for (; texto[i] == '9'; --i) texto[i] = '0';
        ++texto[i];
    }
    std::string entero = texto.substr(0, 6);
    while (entero.size() > enteros && entero.front() == '0') entero.erase(0, 1);
    if (decimales > 0) entero.append(1, '.').append(texto, 6);
    return entero;
}

}  // namespace sorvanel
