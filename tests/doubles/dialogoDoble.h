#pragma once

#include <algorithm>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "doubles/controlesDoble.h"
#include "platform/dialogo.h"

namespace sorvanel {

class FormularioDialogoDoble : public VentanaDe<FormularioDialogo> {
public:
    // ---- what a test may look at ----
    Rectangulo medidas;
    RectPixel centrado;
    float twipsPorPixel = 0;
    int vecesCentrado = 0;
    bool visible = false;
    OyenteDialogo* quienOye = nullptr;
    std::string arrastre;  // what was asked of it for that

    CajaTextoDoble* caja(IdControl id, int elemento = 0) { return buscar<CajaTextoDoble>(id, elemento); }
    CasillaMarcaDoble* casilla(IdControl id) { return buscar<CasillaMarcaDoble>(id); }
    ListaDoble* lista(IdControl id, int elemento = 0) { return buscar<ListaDoble>(id, elemento); }
    RotuloDoble* rotulo(IdControl id, int elemento = 0) { return buscar<RotuloDoble>(id, elemento); }
    MarcoColorDoble* color(IdControl id) { return buscar<MarcoColorDoble>(id); }
    MarcoDoble* marco(IdControl id, int elemento = 0) { return buscar<MarcoDoble>(id, elemento); }
    ControlComun* control(IdControl id, int elemento = 0) { return buscar<ControlComun>(id, elemento); }
    // The id (with its element) of what has the focus, 0 for none.
    int foco() const { return m_estado->foco != nullptr ? m_estado->foco->clave() : 0; }
    // Those that the keyboard reaches, in its order.
    std::vector<ControlComun*> recorrido() const {
        std::vector<ControlComun*> orden = m_estado->orden;
        for (ControlComun* c : m_estado->creados) {
            if (std::find(orden.begin(), orden.end(), c) == orden.end()) orden.push_back(c);
        }
        std::erase_if(orden, [](const ControlComun* c) { return !c->alcanzable() || !c->enfocable(); });
        return orden;
    }

    // ---- the user ----
    void pedirCierre() {
        const auto estado = m_estado;
        if (quienOye != nullptr) quienOye->alPedirCierre();
        estado->asentar();
    }
    void arrastrar() {
        if (quienOye != nullptr) quienOye->alArrastrar();
    }

    // ---- the seam ----
    void oyente(OyenteDialogo* oyente) override { quienOye = oyente; }
    void titulo(const std::string&) override {}
    void soltarRaton() override { arrastre += "soltar "; }
    void agarrarTitulo() override { arrastre += "agarrar "; }
    void tamano(float ancho, float alto) override { medidas = {0, 0, ancho, alto}; }
    void escala(float x, float) override { twipsPorPixel = x; }
    void centrarEn(const RectPixel& zona) override {
        centrado = zona;
        ++vecesCentrado;
    }
    void mostrar() override { visible = true; }
    void ocultar() override { visible = false; }
    Superficie& fondo() override { return m_fondo; }
    void ordenTeclado(std::span<Control* const> orden) override {
        m_estado->orden.clear();
        for (Control* c : orden) m_estado->orden.push_back(dynamic_cast<ControlComun*>(c));
    }

private:
    SuperficieDoble m_fondo;
};

// Chooses what the test says; nothing said is a cancelled choice.
class DialogosSistemaDoble : public DialogosSistema {
public:
    std::deque<Color> colores;
    std::deque<FuenteElegida> fuentes;
    Color colorInicial = NEGRO;
    std::vector<Color> aMano;
    FuenteElegida fuenteInicial;

    std::optional<Color> elegirColor(Color inicial, std::span<const Color> nuevos) override {
        aMano.assign(nuevos.begin(), nuevos.end());
        colorInicial = inicial;
        return sacar(colores);
    }
    bool elegirFuente(FuenteElegida& fuente) override {
        fuenteInicial = fuente;
        const auto elegida = sacar(fuentes);
        if (elegida) fuente = *elegida;
        return elegida.has_value();
    }

private:
    template <typename T>
    static std::optional<T> sacar(std::deque<T>& cola) {
        if (cola.empty()) return std::nullopt;
        const T primero = cola.front();
        cola.pop_front();
        return primero;
    }
};

class FabricaDialogosDoble : public FabricaDialogos {
public:
    DialogosSistemaDoble eleccion;

    // Null while that window is not there.
    FormularioDialogoDoble* dialogo(IdControl id) const { return m_dialogos->uno(numero(id)); }

    std::unique_ptr<FormularioDialogo> crearDialogo(IdControl id) override {
        return std::make_unique<Anotado<FormularioDialogoDoble>>(m_dialogos, numero(id));
    }
    DialogosSistema& sistema() override { return eleccion; }

private:
    Registro<FormularioDialogoDoble> m_dialogos = std::make_shared<Anotados<FormularioDialogoDoble>>();
};

}  // namespace sorvanel
