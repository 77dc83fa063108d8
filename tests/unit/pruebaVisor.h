#pragma once

#include <algorithm>

#include "dialogs/cfgVisor.h"
#include "doubles/pruebaDialogo.h"

namespace sorvanel {

inline constexpr const char* PORT_MAL = "Valor de 'port' posiblemente duplicado";
inline constexpr const char* ETIQUETA_MAL = "Contenido de 'etiqueta' posiblemente duplicado";

// The tool of the displays, and what its tests ask of it.
class PruebaVisor : public PruebaDialogo<cfgVisor, IdControl::cfgVisor> {
protected:
    // So many displays, on 4 rows of 1; the first three are placed on rows 1 to 3.
    void abrirCon(int cuantos, const std::string& del1 = {}) {
        std::string ini = "[RETICULA]\r\nFilasColumnas=4x1\r\n";
        for (int n = 1; n <= cuantos; ++n) {
            const std::string s = std::to_string(n);
            ini += "[VISOR_" + s + "]\r\nPort=" + std::to_string(3000 + n) + "\r\nEtiqueta=V" + s + "\r\n";
            if (n <= 3) ini += "Ubicacion=" + s + ",1\r\n";
            if (n == 1) ini += del1;
        }
        abrir(ini);
    }
    CajaTextoDoble& caja(Id id, int n = 0) { return *v().caja(id, n); }
    std::string clave(int n, const char* c) { return e.valor("VISOR_" + std::to_string(n), c); }
    visor& uno(int n) { return *mesa.visores().uno(static_cast<std::int16_t>(n)); }
    bool puesto(int n) { return formulario.superficie(Id::picRep, n)->visible(); }
    bool conFoco(Id id, int n = 0) { return v().foco() == numero(id, n); }

    // What was posted is shown now, as one text.
    std::string avisos() {
        EXPECT_TRUE(e.avisos.textos.empty()) << "never from where the focus is moving";
        e.cola.ejecutar();
        std::string todos;
        for (const std::string& t : std::exchange(e.avisos.textos, {})) todos += t;
        for (const std::string& t : std::exchange(e.avisos.informaciones, {})) todos += t;
        return todos;
    }
    // "3 a 10": the rows that are seen.
    std::string pagina() {
        std::vector<int> vistas;
        for (int n = 1; n <= 64; ++n) {
            const ControlComun* c = v().control(Id::txPort, n);
            if (c != nullptr && c->seVe) vistas.push_back(n);
        }
        if (vistas.empty()) return "0 a 0";
        EXPECT_EQ(vistas.back() - vistas.front() + 1, static_cast<int>(vistas.size()));
        return std::to_string(vistas.front()) + " a " + std::to_string(vistas.back());
    }
    void TearDown() override {
        EXPECT_EQ(e.avisos.textos, std::vector<std::string>{});
        PruebaDialogo::TearDown();
    }
};

}  // namespace sorvanel
