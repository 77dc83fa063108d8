#pragma once

#include <windows.h>
#include <winsock2.h>

#include <stdexcept>

namespace sorvanel {

// How the process behaves as a whole, set before anything else runs.
inline void endurecerProceso() {
    // A damaged heap ends the process, to be started again, rather than show a wrong weight.
    HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
    // No library is loaded from the folder the program happens to be started in.
    SetDllDirectoryW(L"");
    // A missing disk is an error that we handle, not a box of the system. Crashes stay its affair:
    // without its own handler it would not start us again.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

// Sockets work while it lives. Throws std::runtime_error when there is no Winsock 2.2.
class SesionWinsock {
public:
    SesionWinsock() {
        WSADATA datos;
        if (WSAStartup(MAKEWORD(2, 2), &datos) != 0) throw std::runtime_error("WSAStartup");
    }
    ~SesionWinsock() { WSACleanup(); }
    SesionWinsock(const SesionWinsock&) = delete;
    SesionWinsock& operator=(const SesionWinsock&) = delete;
};

}  // namespace sorvanel
