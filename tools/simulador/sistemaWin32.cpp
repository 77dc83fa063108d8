// clang-format off
#include <winsock2.h>
#include <ws2tcpip.h>
#include <windows.h>
#include <mmsystem.h>
#include <shellapi.h>
// clang-format on

#include <array>
#include <cstring>
#include <map>

#include "simulador/sistema.h"
#include "simulador/sistemaZocalo.h"

#ifndef CREATE_WAITABLE_TIMER_HIGH_RESOLUTION
#define CREATE_WAITABLE_TIMER_HIGH_RESOLUTION 0x00000002
#endif

namespace sorvanel::simulador {

namespace {

class Asa {
public:
    explicit Asa(HANDLE asa) : m_asa(asa) {}
    ~Asa() {
        if (m_asa != nullptr) CloseHandle(m_asa);
    }
    Asa(const Asa&) = delete;
    Asa& operator=(const Asa&) = delete;
    HANDLE asa() const { return m_asa; }

private:
    HANDLE m_asa;
};

// The console's handler runs in a thread of the system's and is handed nothing of ours, so these have
// to be found without it; they live as long as the process.
HANDLE g_finPedido = nullptr;
HANDLE g_terminado = nullptr;
UINT g_paginaAnterior = 0;

BOOL WINAPI alPedirFin(DWORD motivo) {
    SetEvent(g_finPedido);
    // With the window's close, the session's end or the shutdown, returning would end the process at once.
    if (motivo != CTRL_C_EVENT && motivo != CTRL_BREAK_EVENT) WaitForSingleObject(g_terminado, 4000);
    return TRUE;
}

HANDLE crearTemporizador() {
    // The fine timer needs Windows 10; before it, timeBeginPeriod gives the plain one its millisecond.
    HANDLE fino = CreateWaitableTimerExW(nullptr, nullptr, CREATE_WAITABLE_TIMER_HIGH_RESOLUTION, TIMER_ALL_ACCESS);
    return fino != nullptr ? fino : CreateWaitableTimerExW(nullptr, nullptr, 0, TIMER_ALL_ACCESS);
}

class RelojWin32 : public Reloj {
public:
    RelojWin32() : m_temporizador(crearTemporizador()) {
        QueryPerformanceFrequency(&m_frecuencia);
        timeBeginPeriod(1);
        if (m_temporizador.asa() == nullptr) throw ErrorSistema("no se puede crear un temporizador");
    }
    ~RelojWin32() override { timeEndPeriod(1); }

    Instante ahora() override {
        LARGE_INTEGER cuenta{};
        QueryPerformanceCounter(&cuenta);
        // Whole seconds first: the product with a thousand million would overflow within days.
        const LONGLONG segundos = cuenta.QuadPart / m_frecuencia.QuadPart;
        const LONGLONG resto = cuenta.QuadPart % m_frecuencia.QuadPart;
        return std::chrono::seconds{segundos} + Instante{resto * 1'000'000'000 / m_frecuencia.QuadPart};
    }

    void esperarHasta(Instante instante) override {
        const std::array asas = {g_finPedido, m_temporizador.asa()};
        while (!finPedido()) {
            const Instante falta = instante - ahora();
            if (falta <= Instante{0}) return;
            LARGE_INTEGER plazo{};
            plazo.QuadPart = -(falta.count() / 100 + 1);  // relative, in 100 ns
            SetWaitableTimer(m_temporizador.asa(), &plazo, 0, nullptr, nullptr, FALSE);
            WaitForMultipleObjects(static_cast<DWORD>(asas.size()), asas.data(), FALSE, INFINITE);
        }
    }

    bool finPedido() override { return WaitForSingleObject(g_finPedido, 0) == WAIT_OBJECT_0; }

private:
    Asa m_temporizador;
    LARGE_INTEGER m_frecuencia{};
};

sockaddr_in direccion(const std::string& host) {
    addrinfo filtro{};
    filtro.ai_family = AF_INET;
    filtro.ai_socktype = SOCK_DGRAM;
    addrinfo* respuesta = nullptr;
    if (const int error = getaddrinfo(host.c_str(), nullptr, &filtro, &respuesta); error != 0)
        throw ErrorSistema("no se encuentra el equipo «" + host + "» (error " + std::to_string(error) + ")");
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> dueno(respuesta, freeaddrinfo);
    sockaddr_in hallada{};
    std::memcpy(&hallada, respuesta->ai_addr, sizeof hallada);
    return hallada;
}

class EmisorWin32 : public Emisor {
public:
    explicit EmisorWin32(const std::vector<Destino>& destinos) {
        std::map<std::string, sockaddr_in> conocidas;
        for (const auto& destino : destinos) {
            auto conocida = conocidas.find(destino.host);
            if (conocida == conocidas.end()) conocida = conocidas.emplace(destino.host, direccion(destino.host)).first;
            m_direcciones.push_back(conocida->second);
            m_direcciones.back().sin_port = htons(destino.puerto);
        }
        m_zocalo = socket(AF_INET, SOCK_DGRAM, 0);
        if (m_zocalo == INVALID_SOCKET)
            throw ErrorSistema("no se puede abrir la red: error " + std::to_string(WSAGetLastError()));
    }
    ~EmisorWin32() override { closesocket(m_zocalo); }
    EmisorWin32(const EmisorWin32&) = delete;
    EmisorWin32& operator=(const EmisorWin32&) = delete;

    bool enviar(std::size_t indicador, std::string_view datos) override {
        const sockaddr_in& destino = m_direcciones[indicador];
        const int largo = static_cast<int>(datos.size());
        return sendto(m_zocalo, datos.data(), largo, 0, reinterpret_cast<const sockaddr*>(&destino), sizeof destino) ==
               largo;
    }

private:
    ArranqueRed m_arranque;  // first made, last undone
    std::vector<sockaddr_in> m_direcciones;
    SOCKET m_zocalo = INVALID_SOCKET;
};

std::string utf8(const wchar_t* texto) {
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, texto, -1, nullptr, 0, nullptr, nullptr);
    if (bytes <= 0) return {};
    std::string salida(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, texto, -1, salida.data(), bytes, nullptr, nullptr);
    salida.pop_back();
    return salida;
}

}  // namespace

Consola::Consola() {
    g_finPedido = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    g_terminado = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    g_paginaAnterior = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleCtrlHandler(alPedirFin, TRUE);
}

Consola::~Consola() {
    if (g_paginaAnterior != 0) SetConsoleOutputCP(g_paginaAnterior);
    SetEvent(g_terminado);
}

std::vector<std::string> argumentos(int, char**) {
    // The narrow arguments are in the system's code page.
    int cuantos = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> valores(CommandLineToArgvW(GetCommandLineW(), &cuantos),
                                                                LocalFree);
    std::vector<std::string> textos;
    for (int i = 1; i < cuantos; ++i) textos.push_back(utf8(valores.get()[i]));
    return textos;
}

std::unique_ptr<Reloj> crearReloj() {
    return std::make_unique<RelojWin32>();
}

std::unique_ptr<Emisor> crearEmisorUDP(const std::vector<Destino>& destinos) {
    return std::make_unique<EmisorWin32>(destinos);
}

ArranqueRed::ArranqueRed() {
    WSADATA datos{};
    if (WSAStartup(MAKEWORD(2, 2), &datos) != 0) throw ErrorSistema("no se puede abrir la red");
}

ArranqueRed::~ArranqueRed() {
    WSACleanup();
}

int ultimoError() {
    return WSAGetLastError();
}

ErrorZocalo clase(int error) {
    switch (error) {
        case WSAEWOULDBLOCK:
            return ErrorZocalo::Espera;
        case WSAEADDRINUSE:
        case WSAEACCES:  // another has it for itself alone
            return ErrorZocalo::EnUso;
        case WSAEAFNOSUPPORT:
        case WSAEADDRNOTAVAIL:
            return ErrorZocalo::SinFamilia;
        default:
            return ErrorZocalo::Otro;
    }
}

std::string textoError(int error) {
    return "error " + std::to_string(error);
}

void cerrarZocalo(Zocalo zocalo) {
    closesocket(zocalo);
}

bool sinEsperas(Zocalo zocalo) {
    u_long si = 1;
    SetHandleInformation(reinterpret_cast<HANDLE>(zocalo), HANDLE_FLAG_INHERIT, 0);
    return ioctlsocket(zocalo, static_cast<long>(FIONBIO), &si) == 0;
}

void reservarPuerto(Zocalo zocalo) {
    const int si = 1;
    setsockopt(zocalo, SOL_SOCKET, SO_EXCLUSIVEADDRUSE, reinterpret_cast<const char*>(&si), sizeof si);
}

void sondear(std::vector<Sondeo>& sondeos, int milisegundos) {
    for (auto& sondeo : sondeos) sondeo.revents = 0;
    // With nothing to look at it is an error, not a rest.
    if (sondeos.empty() || WSAPoll(sondeos.data(), static_cast<ULONG>(sondeos.size()), milisegundos) == SOCKET_ERROR) {
        WaitForSingleObject(g_finPedido, static_cast<DWORD>(milisegundos));
        for (auto& sondeo : sondeos) sondeo.revents = 0;
    }
}

}  // namespace sorvanel::simulador
