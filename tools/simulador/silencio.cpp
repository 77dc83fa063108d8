#include "simulador/silencio.h"

#include <algorithm>

#include "simulador/azar.h"

namespace sorvanel::simulador {

namespace {

bool enPausa(const Pausas& pausas, std::size_t indicador, Instante instante, std::uint64_t semilla) {
    const Instante cada = pausas.cada;
    const Instante dura = pausas.dura;
    const std::uint64_t suyo = mezclar(semilla ^ 0x5157U, indicador);
    if (!pausas.azar) {
        // The first turn is shortened by an amount of its own, so that not all fall silent at once.
        const Instante desfase{static_cast<Instante::rep>(suyo % static_cast<std::uint64_t>((cada - dura).count()))};
        return (instante + desfase) % cada >= cada - dura;
    }
    const Instante dentro = instante % cada;
    const auto turno = static_cast<std::uint64_t>(instante / cada);
    const Instante comienzo{
        static_cast<Instante::rep>(mezclar(suyo, turno) % static_cast<std::uint64_t>((cada - dura).count()))};
    return dentro >= comienzo && dentro < comienzo + dura;
}

}  // namespace

bool estaCallado(const Silencios& silencios, std::size_t indicador, Instante instante, std::uint64_t semilla) {
    const auto loCalla = [&](const Callada& callada) {
        return callada.indicador == indicador && instante >= callada.desde &&
               (!callada.hasta || instante < *callada.hasta);
    };
    if (std::any_of(silencios.calladas.begin(), silencios.calladas.end(), loCalla)) return true;
    return silencios.pausas && enPausa(*silencios.pausas, indicador, instante, semilla);
}

}  // namespace sorvanel::simulador
