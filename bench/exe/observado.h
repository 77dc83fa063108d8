#pragma once

#include <windows.h>

#include <string>

namespace sorvanel::medidas {

// What a running program has used, asked from outside. Wine answers these questions with 0 for another process: the
// Linux behind it is asked, whose files drive Z: shows.
class Observado {
public:
    // `ejecutable` must be a name that no other running program has: by it Linux finds the process.
    Observado(DWORD id, const std::wstring& ejecutable);
    ~Observado();
    Observado(const Observado&) = delete;
    Observado& operator=(const Observado&) = delete;

    HANDLE manejador() const { return m_proceso; }
    // Its folder in Linux, "/proc/N".
    const std::string& carpeta() const { return m_carpeta; }
    // Seconds of processor so far, all threads, user and system; steps of 10 ms.
    double segundosCPU() const;
    // KiB that no other process shares (RssAnon and VmSwap), and in memory just now (VmRSS).
    long long memoriaPrivada() const;
    long long memoriaResidente() const;

private:
    HANDLE m_proceso;
    std::string m_carpeta;
};

// Datagrams that the system threw away because nobody fetched them in time, for so many ports from `primero` on.
long descartados(int primero, int cuantos);

}  // namespace sorvanel::medidas
