#pragma once

#include <memory>
#include <vector>

#include "doubles/relojDoble.h"
#include "doubles/zocaloDoble.h"
#include "platform/sistema.h"

namespace sorvanel {

// Makes the played timers and sockets, and finds those that are alive.
class FabricaDoble : public Fabrica {
public:
    explicit FabricaDoble(RelojDoble& reloj) : m_reloj(reloj) {}

    std::unique_ptr<Temporizador> crearTemporizador() override { return std::make_unique<TemporizadorDoble>(m_reloj); }
    std::unique_ptr<Zocalo> crearZocalo(OyenteZocalo& oyente) override {
        return std::make_unique<ZocaloDoble>(oyente, m_red);
    }

    std::vector<std::string> direcciones() override { return {"192.168.1.20", "10.0.0.7"}; }

    // Ports that cannot be bound are set here.
    RedDoble& red() { return *m_red; }

    const std::vector<ZocaloDoble*>& zocalos() const { return m_red->zocalos; }
    // The youngest alive; null when there is none.
    ZocaloDoble* ultimoZocalo() const { return zocalos().empty() ? nullptr : zocalos().back(); }
    TemporizadorDoble* ultimoTemporizador() const {
        const auto& vivos = m_reloj.temporizadores;
        return vivos.empty() ? nullptr : vivos.back();
    }
    // The one bound to that port; null when there is none.
    ZocaloDoble* enPuerto(std::int32_t puerto) const {
        for (ZocaloDoble* z : zocalos()) {
            if (puerto != 0 && z->puerto() == puerto) return z;
        }
        return nullptr;
    }

private:
    RelojDoble& m_reloj;
    std::shared_ptr<RedDoble> m_red = std::make_shared<RedDoble>();
};

}  // namespace sorvanel
