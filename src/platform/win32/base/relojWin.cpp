#include "platform/win32/base/relojWin.h"

namespace sorvanel {

RelojWin::RelojWin() {
    LARGE_INTEGER valor;
    QueryPerformanceFrequency(&valor);
    m_frecuencia = valor.QuadPart;
    QueryPerformanceCounter(&valor);
    m_inicio = valor.QuadPart;
}

HoraLocal RelojWin::horaLocal(std::int64_t hace) const {
    constexpr std::int64_t POR_MILISEGUNDO = 10'000;
    FILETIME momento;
    GetSystemTimeAsFileTime(&momento);
    ULARGE_INTEGER partes;
    partes.LowPart = momento.dwLowDateTime;
    partes.HighPart = momento.dwHighDateTime;
    partes.QuadPart -= static_cast<ULONGLONG>(hace * POR_MILISEGUNDO);
    momento = {partes.LowPart, partes.HighPart};
    SYSTEMTIME universal{}, local{};
    if (!FileTimeToSystemTime(&momento, &universal) || !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local)) {
        GetLocalTime(&local);
    }
    return {local.wDay, local.wMonth, local.wHour, local.wMinute};
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
