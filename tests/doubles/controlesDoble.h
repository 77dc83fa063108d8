#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "config/codificacion.h"
#include "doubles/anotado.h"
#include "doubles/superficieDoble.h"
#include "platform/ventana.h"

// Windows without windows. The test finds a control by its id and element and is the user: it
// types, presses, chooses and moves the focus, with what Windows would make of that. Every action of the
// user answers whether it could be done (visible, enabled, somebody listens) and afterwards asks what
// the focus has left whether it is valid.

namespace sorvanel {

class ControlComun;

// What a window and its controls share; it outlives a window that closes itself from a handler.
struct EstadoVentana {
    std::map<int, ControlComun*> controles;
    std::vector<ControlComun*> creados;  // alive, in the order of making
    std::vector<ControlComun*> orden;    // as the keyboard goes
    ControlComun* foco = nullptr;
    std::deque<ControlComun*> porValidar;
    int controlesCreados = 0;
    int clavesRepetidas = 0;  // made while another of that id was there
    // Times that the control with the focus was hidden, disabled or destroyed: the keyboard is then
    // nowhere, so a dialog moves the focus away first.
    int focosPerdidos = 0;

    // As the system does it, also when the program asks. The one that is left waits to be asked.
    void enfocar(ControlComun* nuevo);
    // Asks those that wait, one after the other.
    void asentar();
    bool vive(const ControlComun* control) const { return std::ranges::count(creados, control) != 0; }
};

// What all controls have.
class ControlComun {
public:
    ControlComun(std::shared_ptr<EstadoVentana> estado, int clave);
    virtual ~ControlComun();
    ControlComun(const ControlComun&) = delete;
    ControlComun& operator=(const ControlComun&) = delete;

    // What a test may look at.
    Rectangulo lugar;
    bool seVe = false;  // until it is shown
    bool activo = true;
    std::string textoNombre;
    std::string textoSugerencia;
    Color fondo = BLANCO;
    int clave() const { return m_clave; }
    bool conFoco() const { return m_estado->foco == this; }
    bool alcanzable() const { return seVe && activo; }
    virtual bool enfocable() const { return true; }

    // The user brings the focus here, with the mouse or by Tab.
    bool irA();
    // A click leaves the focus where it is, unless the kind takes it; when what the focus has left then takes it back,
    // the press is lost.
    bool pulsar() {
        return usar(tomaFoco(), [this] { return alPulsado(); });
    }
    bool pulsarConTeclado() {
        return usar(true, [this] { return alPulsado(); });
    }
    bool pulsar(Tecla tecla);
    // As a screen reader does it: the focus stays, so nothing is asked before.
    bool pulsarDesdeFuera() {
        return usar(false, [this] { return alPulsado(); });
    }

protected:
    friend struct EstadoVentana;

    virtual bool tomaFoco() const { return false; }
    virtual bool validar() { return true; }
    virtual bool alPulsado() { return avisar(m_accion); }
    void perderFocoSiLoTiene();
    // Calls a copy, since the handler may destroy its control.
    static bool avisar(std::function<void()> accion);
    // The user does something to it, for which it needs the focus or not.
    bool usar(bool conFoco, const std::function<bool()>& accion);
    bool usarConFoco(const std::function<bool()>& accion) { return (conFoco() || irA()) && usar(false, accion); }

    std::shared_ptr<EstadoVentana> m_estado;
    std::function<void()> m_alRecibirFoco, m_accion;
    std::function<bool(Tecla)> m_alPulsarTecla;

private:
    int m_clave;
};

// `T` is the seam's interface.
template <typename T>
class ControlDoble : public T, public ControlComun {
public:
    using ControlComun::ControlComun;

    void colocar(const Rectangulo& nuevo) override { lugar = nuevo; }
    void mostrar(bool si) override {
        seVe = si;
        if (!si) perderFocoSiLoTiene();
    }
    bool visible() const override { return seVe; }
    void habilitar(bool si) override {
        activo = si;
        if (!si) perderFocoSiLoTiene();
    }
    void enfocar() override {
        if (alcanzable()) m_estado->enfocar(this);
    }
    bool tieneFoco() const override { return conFoco(); }
    void nombre(const std::string& texto) override { textoNombre = texto; }
    void sugerencia(const std::string& texto) override { textoSugerencia = texto; }
    void alRecibirFoco(std::function<void()> accion) override { m_alRecibirFoco = std::move(accion); }
    void alActuar(std::function<void()> accion) override { m_accion = std::move(accion); }
};

class CajaTextoDoble : public ControlDoble<CajaTexto> {
public:
    using ControlDoble::ControlDoble;

    // ---- the user ----
    // Goes there and types at the caret, over what is selected.
    bool escribir(std::string_view texto);
    // Goes there, selects everything and types.
    bool reescribir(std::string_view texto);
    // Puts the caret behind so many characters.
    void cursor(std::size_t posicion) { m_desde = m_hasta = posicion; }

    std::string texto() const override { return deWindows1252(m_texto); }
    void texto(const std::string& texto) override;
    void colorFondo(Color color) override { fondo = color; }
    void longitudMaxima(int caracteres) override { m_maxima = caracteres; }
    bool alInicio() const override { return m_desde == 0; }
    bool alFinal() const override { return m_hasta == m_texto.size(); }
    void seleccionarTodo() override;
    void filtro(std::function<char32_t(char32_t)> filtro) override { m_filtro = std::move(filtro); }
    void alPulsarTecla(std::function<bool(Tecla)> accion) override { m_alPulsarTecla = std::move(accion); }
    void alValidar(std::function<bool()> accion) override { m_alValidar = std::move(accion); }

protected:
    bool validar() override { return !m_alValidar || std::function(m_alValidar)(); }

private:
    void insertar(char octeto);

    std::string m_texto;  // Windows-1252: a byte is a character
    std::size_t m_desde = 0;
    std::size_t m_hasta = 0;
    int m_maxima = 0;  // 0: any
    std::function<char32_t(char32_t)> m_filtro;
    std::function<bool()> m_alValidar;
};

class CasillaMarcaDoble : public ControlDoble<CasillaMarca> {
public:
    using ControlDoble::ControlDoble;

    bool marcada() const override { return m_marcada; }
    void marcada(bool si) override { m_marcada = si; }
    void texto(const std::string&) override {}

protected:
    bool tomaFoco() const override { return true; }
    bool alPulsado() override {
        m_marcada = !m_marcada;
        return ControlComun::alPulsado();
    }

private:
    bool m_marcada = false;
};

class ListaDoble : public ControlDoble<Lista> {
public:
    using ControlDoble::ControlDoble;
    std::vector<std::string> textos;
    bool tenue = false;
    // Also the one that is shown already.
    bool elegir(int indice);

    void elementos(std::span<const std::string_view> nuevos) override {
        textos.assign(nuevos.begin(), nuevos.end());
        m_indice = -1;
    }
    int indice() const override { return m_indice; }
    void indice(int indice) override { m_indice = vale(indice) ? indice : -1; }
    void colorFondo(Color color) override { fondo = color; }
    void atenuada(bool si) override { tenue = si; }
    void alPulsarTecla(std::function<bool(Tecla)> accion) override { m_alPulsarTecla = std::move(accion); }

private:
    bool vale(int indice) const { return indice >= 0 && indice < static_cast<int>(textos.size()); }

    int m_indice = -1;
};

class RotuloDoble : public ControlDoble<Rotulo> {
public:
    using ControlDoble::ControlDoble;
    Fuente letra;

    bool enfocable() const override { return false; }
    void texto(const std::string& texto) override { m_texto = texto; }
    std::string texto() const override { return m_texto; }
    void fuente(const Fuente& fuente) override { letra = fuente; }
    void ajuste(Ajuste) override {}
    void colorTexto(Color) override {}
    void colorFondo(Color color) override { fondo = color; }

private:
    std::string m_texto;
};

class BotonDoble : public ControlDoble<Boton> {
public:
    using ControlDoble::ControlDoble;
    EstiloBoton como = EstiloBoton::dialogo;
    Dibujo imagen = Dibujo::ninguno;
    std::string escrito;
    bool repite = false;
    AspectoBoton pinta = AspectoBoton::normal;

    void estilo(EstiloBoton estilo) override { como = estilo; }
    void texto(const std::string& texto) override { escrito = texto; }
    void dibujo(Dibujo dibujo) override { imagen = dibujo; }
    void repeticion(Repeticion cual) override { repite = cual == Repeticion::sostenida; }
    void aspecto(AspectoBoton aspecto) override { pinta = aspecto; }

protected:
    bool tomaFoco() const override { return como != EstiloBoton::imagen; }
};

class MarcoColorDoble : public ControlDoble<MarcoColor> {
public:
    using ControlDoble::ControlDoble;
    void color(Color color) override { m_color = color; }
    Color color() const override { return m_color; }

private:
    Color m_color = BLANCO;
};

class MarcoDoble : public ControlDoble<Marco> {
public:
    using ControlDoble::ControlDoble;
    bool enfocable() const override { return false; }
    void colorFondo(Color color) override { fondo = color; }
};

class AsaDoble : public ControlDoble<Asa> {
public:
    using ControlDoble::ControlDoble;
    OyenteAsa* quienOye = nullptr;
    void oyente(OyenteAsa* oyente) override { quienOye = oyente; }

    // As a hand does it: the handle follows the mouse, which stays where it took it.
    void arrastrar(float dx, float dy) {
        quienOye->alPulsarAsa({100, 100});
        quienOye->alMoverAsa({100 + dx, 100 + dy});
        quienOye->alSoltarAsa();
    }
    void dobleClic() {
        arrastrar(0, 0);
        quienOye->alDobleAsa();
    }
};

// What both kinds of window have. `T` is the seam's interface.
template <typename T>
class VentanaDe : public T {
public:
    VentanaDe() {
        Fuente fuente;
        fuente.alto = 180;
        m_regla.fuente(fuente);
    }

    EstadoVentana& estado() { return *m_estado; }
    // Null for one that was not made or is gone.
    template <typename Tipo>
    Tipo* buscar(IdControl id, int elemento = 0) {
        const auto it = m_estado->controles.find(numero(id, elemento));
        return it == m_estado->controles.end() ? nullptr : dynamic_cast<Tipo*>(it->second);
    }
    BotonDoble* boton(IdControl id, int elemento = 0) { return buscar<BotonDoble>(id, elemento); }
    SuperficieDoble* superficie(IdControl id, int elemento = 0) { return m_superficies->uno(numero(id, elemento)); }

    MedidaTexto medir(std::string_view texto) const override { return m_regla.medir(texto); }
    std::unique_ptr<Superficie> crearSuperficie(IdControl id, int n) override {
        return std::make_unique<Anotado<SuperficieDoble>>(m_superficies, numero(id, n));
    }

protected:
    std::unique_ptr<Control> crearControl(TipoControl tipo, IdControl id, int n) override {
        switch (tipo) {
            // clang-format off
            case TipoControl::cajaTexto: return nuevo<CajaTextoDoble>(id, n);
            case TipoControl::casilla: return nuevo<CasillaMarcaDoble>(id, n);
            case TipoControl::lista: return nuevo<ListaDoble>(id, n);
            case TipoControl::rotulo: return nuevo<RotuloDoble>(id, n);
            case TipoControl::boton: return nuevo<BotonDoble>(id, n);
            case TipoControl::marcoColor: return nuevo<MarcoColorDoble>(id, n);
            case TipoControl::marco: return nuevo<MarcoDoble>(id, n);
            case TipoControl::asa: return nuevo<AsaDoble>(id, n);
                // clang-format on
        }
        return nullptr;
    }

    std::shared_ptr<EstadoVentana> m_estado = std::make_shared<EstadoVentana>();

private:
    template <typename Tipo>
    std::unique_ptr<Tipo> nuevo(IdControl id, int n) {
        return std::make_unique<Tipo>(m_estado, numero(id, n));
    }

    Registro<SuperficieDoble> m_superficies = std::make_shared<Anotados<SuperficieDoble>>();
    SuperficieDoble m_regla;
};

}  // namespace sorvanel
