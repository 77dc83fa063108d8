#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/win32/base/manejadoresNucleo.h"
#include "platform/win32/base/ventanaMensajes.h"
#include "platform/win32/network/buscadorNombres.h"
#include "platform/win32/network/direccionesWin.h"
#include "platform/zocalo.h"

namespace sorvanel {

// What all sockets read into before they hand it on: as large as a datagram can be.
using BufferRecepcion = std::array<char, 65536>;

// A socket that reports by window messages. Every binding and every attempt to connect takes a
// message number of its own (see VentanaMensajes), so events that were under way when it was closed
// reach nobody.
//
// Exactly one recv() answers each "can be read": the call itself makes the system tell again while
// more is there. Reading in a loop would have it told once too often each time, and the queue
// would never run empty, without which Windows makes neither timer nor paint messages. What the
// listener does not read when it is told is dropped, or nothing would ever be told again.
//
// UDP is IPv4 alone, as the indicators are: a socket for both families would fail where IPv6 is
// switched off. TCP goes to whatever the name says.
class ZocaloWin : public Zocalo, private ReceptorMensajes {
public:
    // All of them must outlive the socket.
    ZocaloWin(VentanaMensajes& ventana, BuscadorNombres& nombres, BufferRecepcion& buffer, OyenteZocalo& oyente);
    ~ZocaloWin();
    ZocaloWin(const ZocaloWin&) = delete;
    ZocaloWin& operator=(const ZocaloWin&) = delete;

    void cerrar() override;
    void protocolo(ProtocoloZocalo protocolo) override { m_protocolo = protocolo; }
    bool enlazar(std::int32_t puerto) override;
    // TCP only.
    bool conectar(const std::string& host, std::int32_t puerto) override;
    // False also when more than COLA_ENVIO would wait: none of it is sent then.
    bool enviar(std::string_view datos) override;
    std::size_t leer(std::string& destino) override { return recibir(destino, nullptr); }
    std::size_t leerDe(std::string& destino, DireccionIP& remitente) override;
    MotivoFallo motivo() const override { return m_motivo; }

private:
    static constexpr std::size_t COLA_ENVIO = 65536;
    enum class Estado { cerrado, enlazado, buscando, conectando, conectado, fallado };

    void alMensaje(WPARAM w, LPARAM l) override;
    void alTic() override;

    std::size_t recibir(std::string& destino, sockaddr_in* remitente);
    void alPoderLeer();
    void alTerminarConexion(int codigo);
    void alCierreRemoto();
    bool asegurarConectado();

    void probar(Direcciones direcciones, std::uint16_t puerto);
    void probarSiguiente();
    void seguirOFallar();
    bool intentar(const Direccion& direccion);
    void prepararUDP();
    void prepararTCP();
    bool abrir(int familia, long sucesos);
    void fallar();
    void vaciarCola();
    bool vigente(UINT numero) const { return m_ventana.vigente(numero); }

    VentanaMensajes& m_ventana;
    BuscadorNombres& m_nombres;
    BufferRecepcion& m_buffer;
    OyenteZocalo& m_oyente;
    ProtocoloZocalo m_protocolo = ProtocoloZocalo::TCP;  // wanted
    bool m_datagramas = false;                           // what the open one is
    Estado m_estado = Estado::cerrado;
    SocketWin m_socket;
    UINT m_numero = 0;
    MotivoFallo m_motivo = MotivoFallo::sinRespuesta;

    Direcciones m_direcciones;     // not tried yet, the next one last
    UINT m_plazo = 0;              // of this attempt, milliseconds; 0: none
    UINT m_plazoPorDireccion = 0;  // while others wait
    std::string m_cola;            // not sent yet

    // While "can be read" is handled: whether it was read, and what recv() said last.
    bool m_avisando = false;
    bool m_leido = false;
    bool m_acabado = false;
};

}  // namespace sorvanel
