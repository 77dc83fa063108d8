#include "simulador/defectos.h"

#include "simulador/azar.h"

namespace sorvanel::simulador {

namespace {

constexpr std::size_t SIGNO = 3;
constexpr std::size_t CIFRAS = 8;
constexpr std::string_view OTRASLETRAS = "ABFSecndxz?. 0";
constexpr std::string_view NOCIFRAS = " .,-+AO";

}  // namespace

std::string tramaMala(ClaseTrama clase, std::string_view trama, std::uint64_t azar) {
    std::string mala{trama};
    const std::uint64_t otro = mezclar(azar);
    switch (clase) {
        case ClaseTrama::Letras:
            mala[azar % SIGNO] = OTRASLETRAS[otro % OTRASLETRAS.size()];
            break;
        case ClaseTrama::Signo:
            mala[SIGNO] = '-';
            break;
        case ClaseTrama::Corta:
            mala.erase(trama.size() - 2 - azar % CIFRAS, 1 + azar % CIFRAS);
            break;
        case ClaseTrama::Larga:
            mala.insert(trama.size() - 1, 1 + azar % CIFRAS, static_cast<char>('0' + otro % 10));
            break;
        case ClaseTrama::Cifras:
            mala[SIGNO + 1 + azar % CIFRAS] = NOCIFRAS[otro % NOCIFRAS.size()];
            break;
    }
    return mala;
}

std::string basura(std::uint64_t azar) {
    std::string texto(azar % 64, '\0');
    for (std::size_t i = 0; i < texto.size(); ++i) {
        const std::uint64_t suyo = mezclar(azar, i);
        texto[i] = static_cast<char>(suyo & 0xFFU);
        // No line of either family is without one of these.
        if (texto[i] == '+' || texto[i] == '/') texto[i] = '\n';
    }
    if (!texto.empty()) texto += '\r';
    return texto;
}

}  // namespace sorvanel::simulador
