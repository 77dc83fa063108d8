#pragma once

#include <windows.h>

#include <string>

namespace sorvanel::medidas {

// What a running program has used, asked from outside. Wine answers most of these questions with 0 for another
// process; there the Linux behind it is asked, whose files drive Z: shows.
class Observado {
public:
    // `ejecutable` must be a name that no other running program has: by it Linux finds the process.
    Observado(DWORD id, const std::wstring& ejecutable);
    ~Observado();
    Observado(const Observado&) = delete;
    Observado& operator=(const Observado&) = delete;

    HANDLE manejador() const { return m_proceso; }
    // Seconds of processor so far, all threads, user and system; steps of 10 ms under Wine.
    double segundosCPU() const;
    // KiB that no other process shares (PrivateUsage; under Wine RssAnon and VmSwap).
    long long memoriaPrivada() const;
    // KiB in memory just now (the working set; under Wine VmRSS).
    long long memoriaResidente() const;

private:
    HANDLE m_proceso;
    std::string m_carpeta;  // "/proc/N"; empty outside Wine
};

bool bajoWine();

// Kernel handles of a process. Wine's own answer is 0, and its list of processes tells how many the table has room for:
// there the system's list of all handles is asked.
long manejadores(HANDLE proceso);

// Datagrams that the system threw away because nobody fetched them in time, for so many ports from `primero` on.
// Known under Wine only; -1 elsewhere.
long descartados(int primero, int cuantos);

}  // namespace sorvanel::medidas
