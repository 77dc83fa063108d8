#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dialogs/mesaConfiguracion.h"
#include "doubles/compartidoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/superficieDoble.h"
#include "doubles/ventanaDoble.h"

namespace sorvanel {

// What the tools work on: real objects on the settings of one test, on surfaces that nobody sees.
class MesaDoble : public MesaConfiguracion, private MuelleMensaje {
public:
    explicit MesaDoble(EntornoDoble& e) : m_e(e) {
        m_lienzo.colocar({0, 0, 15360, 11520});
        diario.clear();
    }

    // "montarMensaje", "desmontarMesa", "refrescarBarra" and, with "lienzo: " in front, what the grid paints, in order.
    std::vector<std::string> diario;
    CompartidoDoble compartido;

    void montarParrilla() override {
        m_parrilla = std::make_unique<Parrilla>(m_e.com, m_e.pantalla());
        m_parrilla->definir(m_lienzo, m_ventana);
        m_parrilla->pintarReticula();
    }
    void montarVisores() override {
        montarParrilla();
        m_visores = std::make_unique<Visores>(m_e.com, m_e.fabrica, m_e.reloj, compartido);
        situarNuevos();
    }
    void montarMensaje() override {
        diario.emplace_back("montarMensaje");
        MuelleMensaje& muelle = *this;
        m_mensaje = std::make_unique<clsMsg>(m_e.com, m_e.programa, m_e.fabrica, m_e.reloj, muelle);
    }
    void desmontarMesa() override {
        diario.emplace_back("desmontarMesa");
        soltar();
    }
    Parrilla& parrilla() override { return *m_parrilla; }
    Visores& visores() override { return *m_visores; }
    clsMsg& mensaje() override { return *m_mensaje; }
    visor* nuevoVisor() override {
        visor* const nuevo = m_visores->nuevo(0, "");
        situarNuevos();
        return nuevo;
    }
    bool eliminarVisor(std::int16_t posicion) override {
        if (!m_visores->eliminar(posicion)) return false;
        soltar();
        montarVisores();
        return true;
    }
    const oScreen& pantalla() override { return m_pantalla.emplace(m_e.pantalla()); }
    void cambiarMonitor(std::int16_t indice) override { m_e.pantalla().monitorActual(indice); }
    void refrescarBarra() override { diario.emplace_back("refrescarBarra"); }

    // Of display n, while it is there.
    SuperficieDoble& peso(int n) { return *m_pesos.at(static_cast<std::size_t>(n - 1)); }

private:
    Superficie& picMsg() override { return m_franja; }
    void acoplar(float alto) override { m_franja.colocar({0, 11040 - alto, 15360, alto}); }
    void alMostrarFranja(bool) override {}

    void situarNuevos() {
        for (auto n = static_cast<std::int16_t>(m_pesos.size() + 1); n <= m_visores->cuantos(); ++n) {
            m_etiquetas.push_back(std::make_unique<SuperficieDoble>());
            m_pesos.push_back(std::make_unique<SuperficieDoble>());
            m_visores->uno(n)->definir(*m_parrilla, *m_etiquetas.back(), *m_pesos.back());
            m_visores->uno(n)->reubicar();
        }
    }
    void soltar() {
        if (m_visores) m_visores->desubicar();
        m_etiquetas.clear();
        m_pesos.clear();
        m_mensaje.reset();
        m_visores.reset();
        m_parrilla.reset();
    }

    EntornoDoble& m_e;
    std::optional<oScreen> m_pantalla;
    SuperficieDoble m_lienzo{"lienzo", &diario};
    VentanaDoble m_ventana;
    SuperficieDoble m_franja;
    std::vector<std::unique_ptr<SuperficieDoble>> m_etiquetas;
    std::vector<std::unique_ptr<SuperficieDoble>> m_pesos;
    std::unique_ptr<Parrilla> m_parrilla;
    std::unique_ptr<Visores> m_visores;
    std::unique_ptr<clsMsg> m_mensaje;
};

}  // namespace sorvanel
