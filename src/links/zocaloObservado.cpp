#include "links/zocaloObservado.h"

namespace sorvanel {

namespace {

class ZocaloObservado final : public Zocalo, private OyenteZocalo {
public:
    ZocaloObservado(Fabrica& fabrica, OyenteZocalo& oyente, ObservadorZocalo& observador)
        : m_oyente(oyente), m_observador(observador), m_zocalo(fabrica.crearZocalo(*this)) {}

    void cerrar() override { m_zocalo->cerrar(); }
    void protocolo(ProtocoloZocalo protocolo) override { m_zocalo->protocolo(protocolo); }
    bool enlazar(std::int32_t puerto) override {
        return contar(m_zocalo->enlazar(puerto), SucesoZocalo::enlazado, SucesoZocalo::sinPort);
    }
    bool conectar(const std::string& host, std::int32_t puerto) override {
        return contar(m_zocalo->conectar(host, puerto), SucesoZocalo::intento, SucesoZocalo::inutil);
    }
    bool enviar(std::string_view datos) override {
        return contar(m_zocalo->enviar(datos), SucesoZocalo::enviado, SucesoZocalo::fallado);
    }
    std::size_t leer(std::string& destino) override {
        DireccionIP remitente = 0;
        return leerDe(destino, remitente);
    }
    std::size_t leerDe(std::string& destino, DireccionIP& remitente) override {
        const std::size_t antes = destino.size();
        const std::size_t leidos = m_zocalo->leerDe(destino, remitente);
        if (leidos > 0) m_observador.alLeer(std::string_view(destino).substr(antes), remitente);
        return leidos;
    }
    MotivoFallo motivo() const override { return m_zocalo->motivo(); }

private:
    void alConectar() override {
        contar(SucesoZocalo::conectado);
        m_oyente.alConectar();
    }
    void alLlegarDatos() override { m_oyente.alLlegarDatos(); }
    void alFallar() override {
        contar(SucesoZocalo::fallado);
        m_oyente.alFallar();
    }
    void alCerrarse() override {
        contar(SucesoZocalo::cerrado);
        m_oyente.alCerrarse();
    }

    void contar(SucesoZocalo suceso) { m_observador.alSuceder(suceso, m_zocalo->motivo()); }
    bool contar(bool bien, SucesoZocalo siBien, SucesoZocalo siMal) {
        contar(bien ? siBien : siMal);
        return bien;
    }

    OyenteZocalo& m_oyente;
    ObservadorZocalo& m_observador;
    std::unique_ptr<Zocalo> m_zocalo;
};

}  // namespace

std::unique_ptr<Zocalo> FabricaObservada::crearZocalo(OyenteZocalo& oyente) {
    return std::make_unique<ZocaloObservado>(m_fabrica, oyente, m_observador);
}

}  // namespace sorvanel
