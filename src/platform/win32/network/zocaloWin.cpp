#include "platform/win32/network/zocaloWin.h"

// After winsock2.h, whose types they use.
#include <mstcpip.h>
#include <mswsock.h>

#include <algorithm>
#include <utility>

// Not in every version of the headers.
#ifndef SIO_UDP_NETRESET
#define SIO_UDP_NETRESET _WSAIOW(IOC_VENDOR, 15)
#endif

namespace sorvanel {

namespace {

constexpr int RECEPCION_UDP = 256 * 1024;  // bytes: a second of all indicators, should the program be held up

// A dead peer is found after 2.5 s of silence and the ten probes that Windows always sends.
constexpr ULONG VIVO_TRAS = 2500;  // milliseconds
constexpr ULONG VIVO_CADA = 600;

// Whoever connects gives up after some three seconds: by then each of several addresses should
// have had a try.
constexpr UINT PLAZO_TOTAL = 2400;  // milliseconds
constexpr UINT PLAZO_MINIMO = 250;
// This machine answers at once or not at all. The system asks itself for two seconds before it says so: too long for a
// program that is back in the meantime.
constexpr UINT PLAZO_INTERNO = 400;

bool esPuerto(std::int32_t puerto, std::int32_t primero) {
    return puerto >= primero && puerto <= 65535;
}

// A name or address that can be asked for at all.
bool esHost(const std::string& host) {
    constexpr std::size_t LARGO_MAXIMO = 255;
    return !host.empty() && host.size() <= LARGO_MAXIMO &&
           std::none_of(host.begin(), host.end(), [](char c) { return static_cast<unsigned char>(c) <= ' '; });
}

void ponerOpcion(SOCKET socket, int nivel, int opcion, int valor) {
    setsockopt(socket, nivel, opcion, reinterpret_cast<const char*>(&valor), sizeof valor);
}

}  // namespace

ZocaloWin::ZocaloWin(VentanaMensajes& ventana, BuscadorNombres& nombres, BufferRecepcion& buffer, OyenteZocalo& oyente)
    : m_ventana(ventana), m_nombres(nombres), m_buffer(buffer), m_oyente(oyente) {}

ZocaloWin::~ZocaloWin() {
    cerrar();
}

void ZocaloWin::cerrar() {
    m_socket.cerrar();
    if (m_numero != 0) {
        if (m_plazo != 0) KillTimer(m_ventana.hwnd(), m_numero);
        m_ventana.liberar(std::exchange(m_numero, 0));
    }
    m_plazo = 0;
    m_direcciones.clear();
    m_cola.clear();
    m_estado = Estado::cerrado;
    m_avisando = false;
}

bool ZocaloWin::abrir(int familia, long sucesos) {
    m_datagramas = m_protocolo == ProtocoloZocalo::UDP;
    m_socket.cambiar(
        ::socket(familia, m_datagramas ? SOCK_DGRAM : SOCK_STREAM, m_datagramas ? IPPROTO_UDP : IPPROTO_TCP));
    // Asked for all events at once: a second request would undo the first.
    return m_socket && WSAAsyncSelect(m_socket.get(), m_ventana.hwnd(), m_numero, sucesos) == 0;
}

bool ZocaloWin::enlazar(std::int32_t puerto) {
    cerrar();
    m_motivo = MotivoFallo::sinRespuesta;
    if (!esPuerto(puerto, 0)) return false;
    m_numero = m_ventana.reservar(*this);
    if (m_numero == 0 || !abrir(AF_INET, FD_READ)) {
        cerrar();
        return false;
    }
    ponerOpcion(m_socket.get(), SOL_SOCKET, SO_EXCLUSIVEADDRUSE, 1);
    if (m_datagramas) prepararUDP();
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(INADDR_ANY);
    local.sin_port = htons(static_cast<std::uint16_t>(puerto));
    if (bind(m_socket.get(), reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0) {
        if (WSAGetLastError() == WSAEADDRINUSE) m_motivo = MotivoFallo::ocupado;
        cerrar();
        return false;
    }
    m_estado = Estado::enlazado;
    return true;
}

void ZocaloWin::prepararUDP() {
    ponerOpcion(m_socket.get(), SOL_SOCKET, SO_RCVBUF, RECEPCION_UDP);
    // What somebody else's answer to us said does not concern what we receive.
    BOOL no = FALSE;
    DWORD devueltos = 0;
    WSAIoctl(m_socket.get(), SIO_UDP_CONNRESET, &no, sizeof no, nullptr, 0, &devueltos, nullptr, nullptr);
    WSAIoctl(m_socket.get(), SIO_UDP_NETRESET, &no, sizeof no, nullptr, 0, &devueltos, nullptr, nullptr);
}

void ZocaloWin::prepararTCP() {
    ponerOpcion(m_socket.get(), IPPROTO_TCP, TCP_NODELAY, 1);
    tcp_keepalive vivo{1, VIVO_TRAS, VIVO_CADA};
    DWORD devueltos = 0;
    WSAIoctl(m_socket.get(), SIO_KEEPALIVE_VALS, &vivo, sizeof vivo, nullptr, 0, &devueltos, nullptr, nullptr);
}

bool ZocaloWin::conectar(const std::string& host, std::int32_t puerto) {
    cerrar();
    if (m_protocolo != ProtocoloZocalo::TCP || !esHost(host) || !esPuerto(puerto, 1)) return false;
    m_numero = m_ventana.reservar(*this);
    if (m_numero == 0) return false;
    m_motivo = MotivoFallo::sinRespuesta;
    const auto enRed = static_cast<std::uint16_t>(puerto);
    Direcciones direcciones = buscarDirecciones(host, true);
    if (!direcciones.empty()) {
        probar(std::move(direcciones), enRed);
        return true;
    }
    m_estado = Estado::buscando;
    m_nombres.pedir(host, m_numero, [this, enRed](const Direcciones& halladas) {
        if (halladas.empty()) m_motivo = MotivoFallo::noEncontrado;
        probar(halladas, enRed);
    });
    return true;
}

void ZocaloWin::probar(Direcciones direcciones, std::uint16_t puerto) {
    for (Direccion& una : direcciones) una.puerto(puerto);
    const auto cuantas = static_cast<UINT>(direcciones.size());
    const UINT plazo = cuantas > 1 ? std::max(PLAZO_TOTAL / cuantas, PLAZO_MINIMO) : 0;
    std::reverse(direcciones.begin(), direcciones.end());
    m_direcciones = std::move(direcciones);
    m_plazoPorDireccion = plazo;
    probarSiguiente();
}

void ZocaloWin::probarSiguiente() {
    Direcciones faltan = std::exchange(m_direcciones, {});
    const UINT plazo = m_plazoPorDireccion;
    while (true) {
        // A number of its own for each attempt, so that nothing late of the last one counts for this.
        cerrar();
        m_numero = m_ventana.reservar(*this);
        if (faltan.empty()) break;
        const Direccion direccion = faltan.back();
        faltan.pop_back();
        if (!intentar(direccion)) continue;
        m_estado = Estado::conectando;
        m_plazo = faltan.empty() ? 0 : plazo;
        if (direccion.interna()) m_plazo = PLAZO_INTERNO;
        if (m_plazo != 0) SetTimer(m_ventana.hwnd(), m_numero, m_plazo, nullptr);
        m_direcciones = std::move(faltan);
        return;
    }
    // Told later: this may run within conectar().
    m_estado = Estado::fallado;
    m_ventana.despertar(m_numero);
}

bool ZocaloWin::intentar(const Direccion& direccion) {
    if (!abrir(direccion.familia(), FD_CONNECT | FD_READ | FD_WRITE | FD_CLOSE)) return false;
    prepararTCP();
    return connect(m_socket.get(), reinterpret_cast<const sockaddr*>(&direccion.datos), direccion.tamano) == 0 ||
           WSAGetLastError() == WSAEWOULDBLOCK;
}

void ZocaloWin::fallar() {
    cerrar();
    m_oyente.alFallar();
}

void ZocaloWin::alTic() {
    KillTimer(m_ventana.hwnd(), m_numero);
    if (m_estado == Estado::fallado) {
        fallar();
    } else if (m_estado == Estado::conectando) {
        if (m_plazo == PLAZO_INTERNO) m_motivo = MotivoFallo::rechazado;
        seguirOFallar();
    }
}

void ZocaloWin::alMensaje(WPARAM w, LPARAM l) {
    if (m_estado == Estado::fallado) {
        fallar();
        return;
    }
    if (w == 0 || static_cast<SOCKET>(w) != m_socket.get()) return;
    switch (WSAGETSELECTEVENT(l)) {
        case FD_CONNECT:
            alTerminarConexion(WSAGETSELECTERROR(l));
            break;
        case FD_READ:
            if (asegurarConectado()) alPoderLeer();
            break;
        case FD_WRITE:
            if (m_estado == Estado::conectado) vaciarCola();
            break;
        case FD_CLOSE:
            alCierreRemoto();
            break;
        default:
            break;
    }
}

void ZocaloWin::alTerminarConexion(int codigo) {
    if (m_estado != Estado::conectando) return;
    if (codigo == 0) {
        asegurarConectado();
    } else {
        if (codigo == WSAECONNREFUSED || codigo == WSAECONNRESET) m_motivo = MotivoFallo::rechazado;
        seguirOFallar();
    }
}

void ZocaloWin::seguirOFallar() {
    if (m_direcciones.empty()) {
        fallar();
    } else {
        probarSiguiente();
    }
}

// Data may be told of before the connection is. False when the listener closed it, or there is
// nothing open.
bool ZocaloWin::asegurarConectado() {
    if (m_estado == Estado::enlazado || m_estado == Estado::conectado) return true;
    if (m_estado != Estado::conectando) return false;
    if (m_plazo != 0) KillTimer(m_ventana.hwnd(), m_numero);
    m_plazo = 0;
    m_direcciones.clear();
    m_estado = Estado::conectado;
    const VentanaMensajes& ventana = m_ventana;
    const UINT numero = m_numero;
    m_oyente.alConectar();
    return ventana.vigente(numero);
}

void ZocaloWin::alPoderLeer() {
    m_avisando = true;
    m_leido = false;
    m_acabado = false;
    const VentanaMensajes& ventana = m_ventana;
    const UINT numero = m_numero;
    m_oyente.alLlegarDatos();
    if (!ventana.vigente(numero)) return;  // closed, bound anew or destroyed meanwhile
    if (!m_leido) m_acabado = recv(m_socket.get(), m_buffer.data(), static_cast<int>(m_buffer.size()), 0) <= 0;
    m_avisando = false;
}

void ZocaloWin::alCierreRemoto() {
    if (m_estado == Estado::conectando) {
        // Refused after all.
        alTerminarConexion(WSAECONNRESET);
        return;
    }
    if (m_estado != Estado::conectado) return;
    // What came before the end still counts. It is bounded by the receive buffer.
    const VentanaMensajes& ventana = m_ventana;
    const UINT numero = m_numero;
    for (u_long quedan = 0; ioctlsocket(m_socket.get(), FIONREAD, &quedan) == 0 && quedan > 0;) {
        alPoderLeer();
        if (!ventana.vigente(numero)) return;
        if (m_acabado) break;
    }
    cerrar();
    m_oyente.alCerrarse();
}

std::size_t ZocaloWin::leerDe(std::string& destino, DireccionIP& remitente) {
    sockaddr_in quien{};
    const std::size_t cuantos = recibir(destino, &quien);
    remitente = cuantos > 0 && quien.sin_family == AF_INET ? ntohl(quien.sin_addr.s_addr) : 0;
    return cuantos;
}

std::size_t ZocaloWin::recibir(std::string& destino, sockaddr_in* remitente) {
    if (!m_socket || (m_avisando && m_leido)) return 0;
    m_leido = true;
    const auto cabe = static_cast<int>(m_buffer.size());
    int tamano = sizeof *remitente;
    const int leidos =
        remitente ? recvfrom(m_socket.get(), m_buffer.data(), cabe, 0, reinterpret_cast<sockaddr*>(remitente), &tamano)
                  : recv(m_socket.get(), m_buffer.data(), cabe, 0);
    // A datagram larger than the buffer counts with what fitted; other errors of a datagram socket
    // concern one datagram, and those of a connection are told as its end.
    const bool cortado = leidos == SOCKET_ERROR && m_datagramas && WSAGetLastError() == WSAEMSGSIZE;
    if (leidos <= 0 && !cortado) {
        m_acabado = true;
        return 0;
    }
    const std::size_t cuantos = cortado ? m_buffer.size() : static_cast<std::size_t>(leidos);
    destino.append(m_buffer.data(), cuantos);
    return cuantos;
}

bool ZocaloWin::enviar(std::string_view datos) {
    if (m_estado != Estado::conectado || m_cola.size() + datos.size() > COLA_ENVIO) return false;
    const bool esperaba = !m_cola.empty();
    m_cola.append(datos);
    // If something waits already, "can be written" is still to come.
    if (!esperaba) vaciarCola();
    return true;
}

void ZocaloWin::vaciarCola() {
    std::size_t enviados = 0;
    while (enviados < m_cola.size()) {
        const int n = send(m_socket.get(), m_cola.data() + enviados, static_cast<int>(m_cola.size() - enviados), 0);
        if (n == SOCKET_ERROR) {
            // Later, or never: then the end of the connection is told too.
            if (WSAGetLastError() != WSAEWOULDBLOCK) m_cola.clear();
            break;
        }
        enviados += static_cast<std::size_t>(n);
    }
    m_cola.erase(0, std::min(enviados, m_cola.size()));
}

}  // namespace sorvanel
