#pragma once

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "doubles/superficieDoble.h"
#include "platform/formulario.h"

namespace sorvanel {

class BotonDoble : public Boton {
public:
    bool visible = false;
    bool activo = true;
    std::string textoRotulo;
    Rectangulo lugar;
    std::function<void()> accion;

    void colocar(const Rectangulo& nuevo) override { lugar = nuevo; }
    void mostrar(bool si) override { visible = si; }
    void habilitar(bool si) override { activo = si; }
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

    // As a hand does it: the handle follows the mouse, which stays where it took
    // it.
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
    bool visible = false;
    OyenteFormulario* quienOye = nullptr;
    std::vector<RectPixel> forma;

    void oyente(OyenteFormulario* oyente) override { quienOye = oyente; }
    void cubrir(const Monitor& monitor) override {
        cubierto = monitor;
        ++veces;
    }
    std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) override {
        return registrar<SuperficieDoble>(m_superficies, numero(id, elemento));
    }
    std::unique_ptr<Boton> crearBoton(IdControl id) override { return registrar<BotonDoble>(m_botones, numero(id)); }
    std::unique_ptr<Asa> crearAsa(IdControl id) override { return registrar<AsaDoble>(m_asas, numero(id)); }
    void recortar(std::span<const RectPixel> zonas) override { forma.assign(zonas.begin(), zonas.end()); }
    void puntero(Puntero puntero) override { ultimoPuntero = puntero; }
    void refrescar() override {}
    void mostrar() override {
        visible = true;
        if (quienOye != nullptr) quienOye->alActivar();
    }
    void cerrar() override {
        if (quienOye != nullptr) quienOye->alDescargar();
    }

    // Null for one that was not made or is gone.
    SuperficieDoble* superficie(IdControl id, int elemento = 0) { return buscar(m_superficies, numero(id, elemento)); }
    BotonDoble* boton(IdControl id) { return buscar(m_botones, numero(id)); }
    AsaDoble* asa(IdControl id) { return buscar(m_asas, numero(id)); }
    // False when the button cannot be seen or does nothing.
    bool pulsar(IdControl id) {
        BotonDoble* b = boton(id);
        if (b == nullptr || !b->visible || !b->accion) return false;
        b->accion();
        return true;
    }

private:
    template <typename T>
    using Registro = std::map<int, T*>;

    // The object that is handed out takes itself off the list when it goes.
    template <typename T>
    class Anotado : public T {
    public:
        Anotado(Registro<T>& registro, int clave) : m_registro(registro), m_clave(clave) { m_registro[clave] = this; }
        ~Anotado() override { m_registro.erase(m_clave); }

    private:
        Registro<T>& m_registro;
        int m_clave;
    };

    template <typename T>
    std::unique_ptr<Anotado<T>> registrar(Registro<T>& registro, int clave) {
        return std::make_unique<Anotado<T>>(registro, clave);
    }
    template <typename T>
    static T* buscar(Registro<T>& registro, int clave) {
        return registro.contains(clave) ? registro.at(clave) : nullptr;
    }

    Registro<SuperficieDoble> m_superficies;
    Registro<BotonDoble> m_botones;
    Registro<AsaDoble> m_asas;
};

}  // namespace sorvanel
