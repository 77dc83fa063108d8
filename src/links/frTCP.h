#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "config/comun.h"
#include "links/enlacePeso.h"
#include "links/lineaPavona.h"
#include "platform/sistema.h"

namespace sorvanel {

// The concentrator's section of the settings file: where it is, and how long an address that it does not speak of is
// believed. Each value is written by itself.
struct DestinoPavona {
    static constexpr std::int64_t CADUCIDAD_OMISION = 10'000;
    static constexpr std::int64_t SIN_CADUCIDAD = std::numeric_limits<std::int64_t>::max();

    std::string host;
    std::int32_t port = 0;                       // TCP; whatever number the file holds
    std::int64_t caducidad = CADUCIDAD_OMISION;  // milliseconds, whole seconds up to a day; or SIN_CADUCIDAD
};

DestinoPavona leerDestinoPavona(const comun& com);
// The same without asking the file anew.
DestinoPavona consultarDestinoPavona(const comun& com);
void guardarHostPavona(const comun& com, std::string_view host);
void guardarPortPavona(const comun& com, std::int32_t port);

// The one connection to the concentrator. It opens a session by answering two prompts ("LIN>" with
// "REP", then "XXX>" follows, perhaps with the first readings) and hands every reading line to the
// displays that have subscribed. A session that fails, stalls while it opens, or is lost is opened
// again, for as long as somebody listens. Its settings are read for each attempt to connect.
class frTCP final : public EnlacePeso, private OyenteZocalo {
public:
    static constexpr int VIGILANCIA = 1000;                  // milliseconds
    static constexpr std::int64_t ESPERA_CONEXION = 3000;    // milliseconds: then the attempt has failed
    static constexpr std::int64_t PACIENCIA = 10000;         // milliseconds without a reading
    static constexpr std::size_t INTENTOS_POR_SEGUNDO = 10;  // the next waits for the tick
    static constexpr std::size_t BUFER_MAXIMO = 64 * 1024;   // without a line's end: dropped

    enum class Estado { cerrado, conectando, esperaLinea, esperaSegundo, abierta, leyendo, fallado };

    frTCP(const comun& com, Fabrica& fabrica, const Reloj& reloj);
    ~frTCP() override;
    frTCP(const frTCP&) = delete;
    frTCP& operator=(const frTCP&) = delete;

    void hola() override;
    void adios() override;
    // The first subscriber connects: false, and nothing goes on, when host or port are of no use.
    bool enMarcha(SuscriptorPeso& visor) override;
    // The last one closes.
    void Cerrar(SuscriptorPeso& visor) override;
    MotivoSilencio motivo(const SuscriptorPeso& visor) const override;
    std::int64_t ultimaAceptada(const SuscriptorPeso& visor) const override;

    Estado estado() const { return m_estado; }
    EstadoConexion conexion() const override;

private:
    struct Suscripcion {
        SuscriptorPeso* visor;
        std::int64_t ultimaAceptada;
        std::int64_t ultimaNegada;  // a reading of its address that it did not take
        bool aceptada;              // the newest one of this session was taken: there is a weight to believe
    };

    void alConectar() override;
    void alLlegarDatos() override;
    void alFallar() override;
    void alCerrarse() override;

    std::int64_t paciencia(const Suscripcion& s, std::int64_t ahora) const;
    const Suscripcion* suya(const SuscriptorPeso& visor) const;
    void soltar();
    bool conectar();
    bool demasiadosIntentos() const;
    void reconectar();
    void fallar();
    void tic();
    void recibir();
    void normalizarFinales(std::size_t desde);
    void atender(std::string_view aviso, Estado siguiente, std::string_view respuesta);
    void atenderSegundo();
    void entregarLineas();
    bool repartirLineas();
    std::size_t leerLineas();
    bool enSesion() const { return m_estado == Estado::abierta || m_estado == Estado::leyendo; }
    bool avisar(std::size_t i, std::span<const LecturaPavona> lecturas);
    bool repartir(std::span<const LecturaPavona> lecturas);
    void vigilarSilencios();

    const comun& m_com;
    const Reloj& m_reloj;
    std::unique_ptr<Temporizador> m_tim;
    std::unique_ptr<Zocalo> m_wsk;
    Estado m_estado = Estado::cerrado;
    std::string m_bufer;
    std::vector<LecturaPavona> m_lecturas;  // of one arrival
    bool m_trasRetorno = false;             // the last character consumed was a carriage return
    int m_usuarios = 0;
    std::vector<Suscripcion> m_suscriptores;
    std::array<std::int64_t, INTENTOS_POR_SEGUNDO> m_intentos{};  // when, a ring
    std::size_t m_siguienteIntento = 0;
    std::int64_t m_inicioConexion = 0;
    std::int64_t m_caducidad = DestinoPavona::CADUCIDAD_OMISION;
    std::uint32_t m_sesiones = 0;  // that have brought readings since it is in use
    EstadoConexion::Motivo m_motivo = EstadoConexion::Motivo::sinRespuesta;
    std::int64_t m_ultimaLectura = 0;  // of whatever address; or when the session was opened
};

}  // namespace sorvanel
