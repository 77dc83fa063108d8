#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "doubles/anotado.h"
#include "doubles/superficieDoble.h"
#include "platform/formulario.h"

namespace sorvanel {

class BotonDoble : public Boton {
public:
    bool visible = false;
    std::string textoRotulo;
    Rectangulo lugar;
    std::function<void()> accion;

    void colocar(const Rectangulo& nuevo) override { lugar = nuevo; }
    void mostrar(bool si) override { visible = si; }
    void habilitar(bool) override {}
    void dibujo(Dibujo) override {}
    void rotulo(const std::string& texto) override { textoRotulo = texto; }
    void nombre(const std::string&) override {}
    void colorDetras(Color) override {}
    float anchoRotulo(const std::string& texto) const override { return 100.0F * static_cast<float>(texto.size()); }
    void refrescar() override {}
    void alPulsar(std::function<void()> nueva) override { accion = std::move(nueva); }
};

class AsaDoble : public Asa {
public:
    bool visible = false;
    Rectangulo lugar;
    OyenteAsa* quienOye = nullptr;

    void colocar(const Rectangulo& nuevo) override { lugar = nuevo; }
    void mostrar(bool si) override { visible = si; }
    void nombre(const std::string&) override {}
    void oyente(OyenteAsa* oyente) override { quienOye = oyente; }

    // As a hand does it: the handle follows the mouse, which stays where it took it.
    void arrastrar(float dx, float dy) {
        quienOye->alPulsarAsa({100, 100});
        quienOye->alMoverAsa({100 + dx, 100 + dy});
        quienOye->alSoltarAsa();
    }
};

// A form without a window: it keeps its controls where a test can find them.
class FormularioDoble : public Formulario {
public:
    Monitor cubierto;
    int veces = 0;  // cubrir
    Puntero ultimoPuntero = Puntero::normal;
    OyenteFormulario* quienOye = nullptr;
    std::vector<RectPixel> forma;

    void oyente(OyenteFormulario* oyente) override { quienOye = oyente; }
    void cubrir(const Monitor& monitor) override {
        cubierto = monitor;
        ++veces;
    }
    std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) override {
        return anotar(m_superficies, numero(id, elemento));
    }
    std::unique_ptr<Boton> crearBoton(IdControl id) override { return anotar(m_botones, numero(id)); }
    std::unique_ptr<Asa> crearAsa(IdControl id) override { return anotar(m_asas, numero(id)); }
    void recortar(std::span<const RectPixel> zonas) override { forma.assign(zonas.begin(), zonas.end()); }
    void puntero(Puntero puntero) override { ultimoPuntero = puntero; }
    void refrescar() override {}
    void mostrar() override {
        if (quienOye != nullptr) quienOye->alActivar();
    }
    void cerrar() override {
        if (quienOye != nullptr) quienOye->alDescargar();
    }

    // Null for one that was not made or is gone.
    SuperficieDoble* superficie(IdControl id, int elemento = 0) { return m_superficies->uno(numero(id, elemento)); }
    BotonDoble* boton(IdControl id) { return m_botones->uno(numero(id)); }
    AsaDoble* asa(IdControl id) { return m_asas->uno(numero(id)); }
    // False when the button cannot be seen or does nothing.
    bool pulsar(IdControl id) {
        BotonDoble* b = boton(id);
        if (b == nullptr || !b->visible || !b->accion) return false;
        b->accion();
        return true;
    }

private:
    template <typename T>
    static std::unique_ptr<T> anotar(const Registro<T>& registro, int clave) {
        return std::make_unique<Anotado<T>>(registro, clave);
    }

    Registro<SuperficieDoble> m_superficies = std::make_shared<Anotados<SuperficieDoble>>();
    Registro<BotonDoble> m_botones = std::make_shared<Anotados<BotonDoble>>();
    Registro<AsaDoble> m_asas = std::make_shared<Anotados<AsaDoble>>();
};

}  // namespace sorvanel
