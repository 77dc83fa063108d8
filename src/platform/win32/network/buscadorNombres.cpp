#include "platform/win32/network/buscadorNombres.h"

#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace sorvanel {

// What the threads share with the program.
struct BuscadorNombres::Buzon {
    std::mutex cerrojo;
    HWND ventana = nullptr;  // null once nobody waits any more
    UINT numero = 0;
    std::vector<std::pair<std::string, Direcciones>> cartas;

    void entregar(const std::string& host, Direcciones direcciones) noexcept {
        const std::lock_guard guarda(cerrojo);
        if (!ventana) return;
        cartas.emplace_back(host, std::move(direcciones));
        PostMessageW(ventana, numero, 0, 0);
    }
};

BuscadorNombres::BuscadorNombres(VentanaMensajes& ventana)
    : m_ventana(ventana), m_numero(ventana.reservar(*this)), m_buzon(std::make_shared<Buzon>()) {
    m_buzon->ventana = ventana.hwnd();
    m_buzon->numero = m_numero;
}

BuscadorNombres::~BuscadorNombres() {
    {
        const std::lock_guard guarda(m_buzon->cerrojo);
        m_buzon->ventana = nullptr;
    }
    m_ventana.liberar(m_numero);
}

bool BuscadorNombres::lanzar(const std::shared_ptr<Buzon>& buzon, const std::string& host) {
    try {
        std::thread([buzon, host] {
            Direcciones direcciones;
            WSADATA datos;
            if (WSAStartup(MAKEWORD(2, 2), &datos) == 0) {
                try {
                    direcciones = buscarDirecciones(host, false);
                } catch (const std::exception&) {
                    // Out of memory counts as not found.
                }
                WSACleanup();
            }
            buzon->entregar(host, std::move(direcciones));
        }).detach();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void BuscadorNombres::pedir(const std::string& host, UINT numero, Respuesta respuesta) {
    // A wake-up may have been lost to a full queue.
    m_ventana.despertar(m_numero);
    auto hallado = m_esperas.find(host);
    if (hallado == m_esperas.end()) {
        const bool lanzado = m_esperas.size() < HILOS && lanzar(m_buzon, host);
        if (!lanzado) {
            // Too many silent names already: this one counts as not found, and may be asked again.
            const std::lock_guard guarda(m_buzon->cerrojo);
            m_buzon->cartas.emplace_back(host, Direcciones{});
        }
        hallado = m_esperas.emplace(host, std::vector<Espera>{}).first;
    }
    // Callers that gave up meanwhile would pile up.
    std::erase_if(hallado->second, [this](const Espera& una) { return !m_ventana.vigente(una.numero); });
    hallado->second.push_back({numero, std::move(respuesta)});
}

void BuscadorNombres::alTic() {
    KillTimer(m_ventana.hwnd(), m_numero);
    recoger();
}

void BuscadorNombres::recoger() {
    std::vector<std::pair<std::string, Direcciones>> cartas;
    {
        const std::lock_guard guarda(m_buzon->cerrojo);
        cartas.swap(m_buzon->cartas);
    }
    for (const auto& [host, direcciones] : cartas) contestar(host, direcciones);
}

void BuscadorNombres::contestar(const std::string& host, const Direcciones& direcciones) {
    const auto hallado = m_esperas.find(host);
    if (hallado == m_esperas.end()) return;
    const std::vector<Espera> esperas = std::move(hallado->second);
    m_esperas.erase(hallado);
    for (const Espera& una : esperas) {
        if (m_ventana.vigente(una.numero)) una.respuesta(direcciones);
    }
}

}  // namespace sorvanel
