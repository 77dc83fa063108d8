#include "platform/win32/system/reinicioWin.h"

#include <windows.h>

#include <utility>

#include "platform/win32/base/textoWin.h"

namespace sorvanel {

void ReinicioWin::pedir(std::string argumentos, int segundos) {
    const auto registrar = [argumentos = std::move(argumentos)] {
        // The arguments alone: the system knows the program.
        RegisterApplicationRestart(aAncho(argumentos).c_str(), 0);
    };
    m_espera->habilitado(false);
    if (segundos <= 0) return registrar();
    m_espera->intervalo(segundos * 1'000);
    m_espera->alTic([this, registrar] {
        m_espera->habilitado(false);
        registrar();
    });
    m_espera->habilitado(true);
}

std::int64_t segundosUTC() {
    constexpr std::int64_t POR_SEGUNDO = 10'000'000, DE_1601_A_1970 = 11'644'473'600;
    FILETIME ahora{};
    GetSystemTimeAsFileTime(&ahora);
    const ULARGE_INTEGER cuenta{{ahora.dwLowDateTime, ahora.dwHighDateTime}};
    return static_cast<std::int64_t>(cuenta.QuadPart) / POR_SEGUNDO - DE_1601_A_1970;
}

}  // namespace sorvanel
