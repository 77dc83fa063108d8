#include "platform/win32/base/relojWin.h"

namespace sorvanel {

RelojWin::RelojWin() {
    LARGE_INTEGER valor;
    QueryPerformanceFrequency(&valor);
    m_frecuencia = valor.QuadPart;
    QueryPerformanceCounter(&valor);
    m_inicio = valor.QuadPart;
}

HoraLocal RelojWin::horaLocal() const {
    SYSTEMTIME ahora;
    GetLocalTime(&ahora);
    return {ahora.wDay, ahora.wMonth, ahora.wHour, ahora.wMinute};
}

std::int64_t RelojWin::microsegundos() const {
    constexpr std::int64_t MILLON = 1'000'000;
    LARGE_INTEGER valor;
    QueryPerformanceCounter(&valor);
    const std::int64_t pasado = valor.QuadPart - m_inicio;
    // In two parts: the plain product overflows after days of running.
    return pasado / m_frecuencia * MILLON + pasado % m_frecuencia * MILLON / m_frecuencia;
}

}  // namespace sorvanel
