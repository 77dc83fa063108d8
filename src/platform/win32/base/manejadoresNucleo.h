#pragma once

#include <windows.h>
#include <winsock2.h>

#include "platform/win32/base/manejadores.h"

namespace sorvanel {

struct RasgosNucleo {
    using Tipo = HANDLE;
    static void liberar(HANDLE objeto) { CloseHandle(objeto); }
};
struct RasgosBiblioteca {
    using Tipo = HMODULE;
    static void liberar(HMODULE biblioteca) { FreeLibrary(biblioteca); }
};

// From CreateMutex, and from CreateFile by way of archivoAbierto().
using ObjetoNucleo = Manejador<RasgosNucleo>;
// From LoadLibrary, never from GetModuleHandle.
using Biblioteca = Manejador<RasgosBiblioteca>;

// A function of a library that may lack it; null then.
template <typename Funcion>
Funcion buscarFuncion(HMODULE modulo, const char* nombre) {
    return modulo ? reinterpret_cast<Funcion>(reinterpret_cast<void*>(GetProcAddress(modulo, nombre))) : nullptr;
}

// CreateFile says "none" in a way of its own.
inline ObjetoNucleo archivoAbierto(HANDLE archivo) {
    return ObjetoNucleo(archivo == INVALID_HANDLE_VALUE ? nullptr : archivo);
}

// From socket().
class SocketWin {
public:
    SocketWin() = default;
    explicit SocketWin(SOCKET socket) : m_socket(socket) {}
    SocketWin(const SocketWin&) = delete;
    SocketWin& operator=(const SocketWin&) = delete;
    ~SocketWin() { cerrar(); }

    SOCKET get() const { return m_socket; }
    explicit operator bool() const { return m_socket != INVALID_SOCKET; }
    void cambiar(SOCKET nuevo) {
        const SOCKET viejo = std::exchange(m_socket, nuevo);
        if (viejo != INVALID_SOCKET) closesocket(viejo);
    }
    void cerrar() { cambiar(INVALID_SOCKET); }

private:
    SOCKET m_socket = INVALID_SOCKET;
};

}  // namespace sorvanel
