#include "simulador/trama.h"

#include <algorithm>
#include <cstdio>

#include "simulador/azar.h"

namespace sorvanel::simulador {

namespace {

constexpr std::size_t SIGNO = 3;
constexpr std::size_t CIFRAS = 8;
constexpr std::string_view OTRASLETRAS = "ABFSecndxz?. 0";
constexpr std::string_view NOCIFRAS = " .,-+AO";

}  // namespace

std::string tramaTessel(const Lectura& lectura, std::string_view marcas) {
    std::string trama{marcas};
    if (trama.empty())
        trama = {lectura.estable ? 'E' : 'X', lectura.cargando ? 'C' : 'X', lectura.descargando ? 'D' : 'X'};
    std::array<char, 16> cifras{};
    const auto peso = static_cast<int>(std::clamp<std::int64_t>(lectura.milesimas, 0, MAXMILESIMAS));
    std::snprintf(cifras.data(), cifras.size(), "+%08d\r", peso);
    return trama + cifras.data();
}

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
        case ClaseTrama::Basura:
            return basura(azar);
    }
    return mala;
}

std::string basura(std::uint64_t azar) {
    std::string texto(azar % 64, '\0');
    for (std::size_t i = 0; i < texto.size(); ++i) {
        texto[i] = static_cast<char>(mezclar(azar, i) & 0xFFU);
        // No frame is without the one, no line without the other.
        if (texto[i] == '+' || texto[i] == '/') texto[i] = '\n';
    }
    if (!texto.empty()) texto += '\r';
    return texto;
}

}  // namespace sorvanel::simulador
