#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>

#include "dialogs/diagnosticoPort.h"
#include "links/enlacePeso.h"
#include "links/zocaloObservado.h"

namespace sorvanel {

// Listens in a display's stead, with a link such as it has and sockets that it looks on at: what it tells is what the
// display would get, and the other side gets no other answer. Only while no display runs: it takes their ports.
class MedicoPort final : private SuscriptorPeso, private ObservadorZocalo {
public:
    static constexpr std::int64_t REPOSO = 300;        // milliseconds that a port must stay before it is taken
    static constexpr std::int64_t REPOSO_HOST = 1000;  // the same of a host, which is typed letter by letter
    static constexpr std::int64_t REINTENTO = 1000;    // a port that could not be had is tried again
    static constexpr std::int64_t ASIENTO = 2000;      // silence until then means nothing
    static constexpr std::int64_t VENTANA = 3000;      // over which readings are counted

    // All of them must outlive it.
    MedicoPort(const comun& com, Fabrica& fabrica, const Reloj& reloj);
    ~MedicoPort() override;
    MedicoPort(const MedicoPort&) = delete;
    MedicoPort& operator=(const MedicoPort&) = delete;

    // What it is about from now on. Where that has another link the one so far is let go at once.
    void observar(const ConsultaPort& consulta);
    // To be called a few times a second.
    void latido();
    Sintomas sintomas() const;

private:
    struct Cuenta {
        std::int64_t cuando;
        std::int64_t tomadas;
    };

    std::int32_t port() const override;
    std::int16_t modoBulk() const override { return m_consulta.modo; }
    DireccionIP origen() const override { return m_consulta.origen; }
    bool frWsk_refrescoPeso(std::string_view linea) override;
    bool mmTCP_refrescoPeso(std::int16_t primero, std::int16_t segundo, std::string_view carga) override;
    void alSuceder(SucesoZocalo suceso, MotivoFallo motivo) override;
    void alLeer(std::string_view datos, DireccionIP remitente) override;

    bool compartida() const { return m_consulta.familia != nullptr && m_consulta.familia->compartida; }
    bool abrible() const;
    void soltar();
    void olvidar();
    void abrir();
    void acabar(AvanceEnlace como);
    bool tomar(std::string_view trama);
    std::int64_t frescura() const;
    bool fresco(std::int64_t cuando) const { return m_reloj.ahora() - cuando < frescura(); }
    AvanceEnlace avance() const;

    const comun& m_com;
    const Reloj& m_reloj;
    FabricaObservada m_fabrica;
    ConsultaPort m_consulta;
    std::int64_t m_turno = 0;   // when the link may be opened, or tried again
    std::int64_t m_inicio = 0;  // it was opened or first greeted, or is about another display since then
    AvanceEnlace m_avance = AvanceEnlace::espera;
    AvanceEnlace m_antes = AvanceEnlace::espera;  // how far the last attempt came
    bool m_abierto = false;

    std::int64_t m_tomadas = 0;
    std::deque<Cuenta> m_cuentas;  // one a beat
    std::int64_t m_ultimaTomada;
    std::int64_t m_ultimaSinPeso;
    DireccionIP m_remitente = 0;                       // of what is being read
    std::map<DireccionIP, std::int64_t> m_remitentes;  // of what was taken: when last
    std::map<std::int32_t, std::int64_t> m_otras;      // addresses that are not the display's
    DireccionIP m_ajeno = 0;                           // whose datagrams are not the display's
    std::int64_t m_cuandoAjeno = 0;
    std::string m_muestra;
    std::int64_t m_cuandoMuestra = 0;
    std::unique_ptr<EnlacePeso> m_enlace;  // last: it goes first
};

}  // namespace sorvanel
