#include "platform/win32/system/bitacoraWin.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/win32/base/textoWin.h"
#include "platform/win32/system/archivoBitacora.h"
#include "platform/win32/system/manualWin.h"

namespace sorvanel {

namespace {

using namespace std::chrono_literals;

constexpr auto REINTENTO = 5s;
constexpr auto ESPERA_FINAL = 300ms;
constexpr std::size_t LINEA_MAXIMA = 8'000;   // bytes
constexpr std::size_t COLA_MAXIMA = 250'000;  // bytes
constexpr std::size_t POR_LINEA = 32;         // bytes, that a line takes besides its text

// A caption may hold whatever somebody has put into the file.
std::string enUnaLinea(std::string linea) {
    for (char& c : linea) {
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    }
    if (linea.size() <= LINEA_MAXIMA) return linea;
    std::size_t fin = LINEA_MAXIMA;
    while (fin > 0 && (static_cast<unsigned char>(linea[fin]) & 0xC0U) == 0x80U) --fin;
    linea.resize(fin);
    return linea + "…";
}

LineaBitacora lineaDeAhora(std::string texto) {
    LineaBitacora linea{{}, std::move(texto)};
    GetSystemTimeAsFileTime(&linea.cuando);
    return linea;
}

}  // namespace

// What the two threads share.
struct BitacoraWin::Buzon {
    explicit Buzon(std::wstring ruta) : archivo(std::move(ruta)) {}

    ArchivoBitacora archivo;  // but for its path, the writing thread's alone
    std::mutex cerrojo;
    std::condition_variable hay, vacia;
    std::deque<LineaBitacora> cola;
    std::size_t bytes = 0;     // of what waits
    std::size_t perdidas = 0;  // lines, since there was no room
    FILETIME primera{};        // of them
    bool prisa = false;        // somebody waits for what stands there
    bool fin = false;

    void meter(LineaBitacora linea) {
        const std::size_t suyos = linea.texto.size() + POR_LINEA;
        if (bytes + suyos > COLA_MAXIMA) {
            if (perdidas++ == 0) primera = linea.cuando;
            return;
        }
        cola.push_back(std::move(linea));
        bytes += suyos;
    }

    void quitar(std::size_t cuantas) {
        for (; cuantas > 0; --cuantas) {
            bytes -= cola.front().texto.size() + POR_LINEA;
            cola.pop_front();
        }
        if (perdidas == 0) return;
        meter(lineaDeAhora("Líneas perdidas de este registro, que no se podía escribir: " + std::to_string(perdidas) +
                           ", la primera de " + selloBitacora(primera)));
        perdidas = 0;
    }

    // Until there is nothing more to come.
    void escribir() {
        std::unique_lock guarda(cerrojo);
        while (true) {
            hay.wait(guarda, [this] { return fin || !cola.empty(); });
            if (cola.empty()) return;
            prisa = false;
            const std::vector<LineaBitacora> tanda(cola.begin(), cola.end());
            guarda.unlock();
            const bool bien = archivo.anadir(tanda);
            guarda.lock();
            if (bien) {
                quitar(tanda.size());
                vacia.notify_all();
            } else {
                if (fin) return;
                hay.wait_for(guarda, REINTENTO, [this] { return prisa || fin; });
            }
        }
    }
};

BitacoraWin::BitacoraWin(const std::string& ruta) : m_buzon(std::make_shared<Buzon>(aAncho(ruta))) {}

BitacoraWin::~BitacoraWin() {
    {
        const std::lock_guard guarda(m_buzon->cerrojo);
        m_buzon->fin = true;
    }
    esperar();
}

// Where no thread is to be had, the next line asks again.
void BitacoraWin::lanzar() {
    if (m_conHilo) return;
    std::thread([buzon = m_buzon] {
        while (true) {
            try {
                buzon->escribir();
                return;
            } catch (const std::exception& fallo) {
                OutputDebugStringA(fallo.what());  // out of memory
                std::this_thread::sleep_for(REINTENTO);
            }
        }
    }).detach();
    m_conHilo = true;
}

void BitacoraWin::meter(std::string_view principio, std::string_view texto) {
    try {
        LineaBitacora linea = lineaDeAhora(enUnaLinea(std::string(principio).append(texto)));
        {
            const std::lock_guard guarda(m_buzon->cerrojo);
            m_buzon->meter(std::move(linea));
        }
        m_buzon->hay.notify_one();
        lanzar();
    } catch (const std::exception& fallo) {
        OutputDebugStringA(fallo.what());
    }
}

void BitacoraWin::esperar() {
    std::unique_lock guarda(m_buzon->cerrojo);
    m_buzon->prisa = true;
    m_buzon->hay.notify_one();
    m_buzon->vacia.wait_for(guarda, ESPERA_FINAL, [this] { return m_buzon->cola.empty(); });
}

void BitacoraWin::terminar(std::string_view motivo) {
    meter(ArchivoBitacora::FIN, motivo);
    esperar();
}

bool BitacoraWin::abrir() const {
    const std::wstring& ruta = m_buzon->archivo.ruta();
    const DWORD atributos = GetFileAttributesW(ruta.c_str());
    if (atributos == INVALID_FILE_ATTRIBUTES || (atributos & FILE_ATTRIBUTE_DIRECTORY) != 0) return false;
    abrirTextoAparte(ruta);
    return true;
}

}  // namespace sorvanel
