#pragma once

#include <vector>

#include "links/enlacePeso.h"

namespace sorvanel {

// The shared link as a display sees it.
class CompartidoDoble : public EnlacePeso {
public:
    int usuarios = 0;
    bool arranca = true;
    MotivoSilencio porque = MotivoSilencio::callado;
    std::vector<const SuscriptorPeso*> enMarchas;
    void hola() override { ++usuarios; }
    void adios() override { --usuarios; }
    bool enMarcha(SuscriptorPeso& v) override {
        if (arranca) enMarchas.push_back(&v);
        return arranca;
    }
    std::int64_t ultima = 1'000'000;  // when the clock begins
    std::int64_t ultimaAceptada(const SuscriptorPeso&) const override { return ultima; }
    MotivoSilencio motivo(const SuscriptorPeso&) const override { return porque; }
    EstadoConexion comoEsta;
    EstadoConexion conexion() const override { return comoEsta; }
    void Cerrar(SuscriptorPeso& v) override { std::erase(enMarchas, &v); }
};

}  // namespace sorvanel
