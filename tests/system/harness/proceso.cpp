#include "harness/proceso.h"

#include <stdexcept>
#include <utility>

#include "harness/texto.h"

namespace sorvanel::pruebas {

Proceso::Proceso(const std::wstring& ejecutable) {
    STARTUPINFOW inicio{};
    inicio.cb = sizeof inicio;
    PROCESS_INFORMATION informacion{};
    std::wstring orden = L"\"" + ejecutable + L"\"";
    // No handle of ours goes on: a program that outlives the test would keep its output open.
    const auto arranca = [&] {
        return CreateProcessW(ejecutable.c_str(), orden.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &inicio,
                              &informacion) != FALSE;
    };
    // Once in hundreds of starts Wine says "internal error"; the next attempt works.
    if (!arranca() && !(GetLastError() == ERROR_INTERNAL_ERROR && arranca()))
        throw std::runtime_error("cannot start " + utf8(ejecutable) + ": error " + std::to_string(GetLastError()));
    CloseHandle(informacion.hThread);
    m_proceso = informacion.hProcess;
    m_id = informacion.dwProcessId;
}

Proceso::~Proceso() {
    matar();
    CloseHandle(m_proceso);
}

bool Proceso::vivo() const {
    return WaitForSingleObject(m_proceso, 0) == WAIT_TIMEOUT;
}

std::optional<DWORD> Proceso::esperarFin(int milisegundos) const {
    if (WaitForSingleObject(m_proceso, static_cast<DWORD>(milisegundos)) != WAIT_OBJECT_0) return std::nullopt;
    DWORD codigo = 0;
    GetExitCodeProcess(m_proceso, &codigo);
    return codigo;
}

void Proceso::matar() {
    if (!vivo()) return;
    TerminateProcess(m_proceso, 99);
    WaitForSingleObject(m_proceso, 5000);
}

std::vector<HWND> Proceso::ventanas() const {
    std::pair<DWORD, std::vector<HWND>> busqueda{m_id, {}};
    EnumWindows(
        [](HWND ventana, LPARAM dato) -> BOOL {
            auto& [id, halladas] = *reinterpret_cast<std::pair<DWORD, std::vector<HWND>>*>(dato);
            DWORD suyo = 0;
            GetWindowThreadProcessId(ventana, &suyo);
            if (suyo == id) halladas.push_back(ventana);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&busqueda));
    return std::move(busqueda.second);
}

}  // namespace sorvanel::pruebas
