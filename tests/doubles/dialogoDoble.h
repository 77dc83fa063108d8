#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "doubles/anotado.h"
#include "doubles/superficieDoble.h"
#include "platform/dialogo.h"

// Tool windows without windows. The test finds a control by its id and element and is the user: it
// types, presses, chooses and moves the focus, with what Windows would make of that. Every action of the
// user answers whether it could be done (visible, enabled, somebody listens) and afterwards asks what
// the focus has left whether it is valid.

namespace sorvanel {

class FormularioDialogoDoble;
class ControlComun;

// What a window and its controls share; it outlives a window that closes itself from a handler.
struct EstadoDialogo {
    std::map<int, ControlComun*> controles;
    std::vector<ControlComun*> creados;  // alive, in the order of making
    std::vector<Control*> orden;
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
    bool vive(const ControlComun* control) const;
};

// What all controls have. `T` below is the seam's interface.
class ControlComun {
public:
    ControlComun(std::shared_ptr<EstadoDialogo> estado, int clave) : m_estado(std::move(estado)), m_clave(clave) {
        if (!m_estado->controles.insert_or_assign(clave, this).second) ++m_estado->clavesRepetidas;
        m_estado->creados.push_back(this);
        ++m_estado->controlesCreados;
    }
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
    virtual Control* comoControl() = 0;

    // The user brings the focus here, with the mouse or by Tab.
    bool irA();

protected:
    friend struct EstadoDialogo;
    friend class FormularioDialogoDoble;

    bool alcanzable() const { return seVe && activo; }
    virtual bool enfocable() const { return true; }
    virtual bool validar() { return true; }
    void perderFocoSiLoTiene();
    void fijarVisible(bool visible);
    void fijarActivo(bool si);
    // Calls a copy, since the handler may destroy its control.
    static bool avisar(std::function<void()> accion);
    // The user does something to it, for which it needs the focus or not.
    bool usar(bool conFoco, const std::function<bool()>& accion);
    bool usarConFoco(const std::function<bool()>& accion) { return (conFoco() || irA()) && usar(false, accion); }

    std::shared_ptr<EstadoDialogo> m_estado;
    std::function<void()> m_alRecibirFoco;

private:
    int m_clave;
};

template <typename T>
class ControlDoble : public T, public ControlComun {
public:
    using ControlComun::ControlComun;

    void colocar(const Rectangulo& nuevo) override { lugar = nuevo; }
    void mostrar(bool si) override { fijarVisible(si); }
    bool visible() const override { return seVe; }
    void habilitar(bool si) override { fijarActivo(si); }
    void enfocar() override {
        if (alcanzable()) m_estado->enfocar(this);
    }
    bool tieneFoco() const override { return conFoco(); }
    void nombre(const std::string& texto) override { textoNombre = texto; }
    void sugerencia(const std::string& texto) override { textoSugerencia = texto; }
    void alRecibirFoco(std::function<void()> accion) override { m_alRecibirFoco = std::move(accion); }
    Control* comoControl() override { return this; }
};

class CajaTextoDoble : public ControlDoble<CajaTexto> {
public:
    using ControlDoble::ControlDoble;

    // ---- the user ----
    // Goes there and types at the caret, over what is selected.
    bool escribir(std::string_view texto);
    // Goes there, selects everything and types.
    bool reescribir(std::string_view texto);
    bool pulsar(Tecla tecla);
    // Puts the caret behind so many characters.
    void cursor(std::size_t posicion) { m_desde = m_hasta = posicion; }

    std::string texto() const override;
    void texto(const std::string& texto) override;
    void colorFondo(Color color) override { fondo = color; }
    void longitudMaxima(int caracteres) override { m_maxima = caracteres; }
    bool alInicio() const override { return m_desde == 0; }
    bool alFinal() const override { return m_hasta == m_texto.size(); }
    void seleccionarTodo() override;
    void filtro(std::function<char32_t(char32_t)> filtro) override { m_filtro = std::move(filtro); }
    void alCambiar(std::function<void()> accion) override { m_alCambiar = std::move(accion); }
    void alPulsarTecla(std::function<bool(Tecla)> accion) override { m_alPulsarTecla = std::move(accion); }
    void alValidar(std::function<bool()> accion) override { m_alValidar = std::move(accion); }

protected:
    bool validar() override;

private:
    void insertar(char octeto);

    std::string m_texto;  // Windows-1252: a byte is a character
    std::size_t m_desde = 0;
    std::size_t m_hasta = 0;
    int m_maxima = 0;  // 0: any
    std::function<char32_t(char32_t)> m_filtro;
    std::function<void()> m_alCambiar;
    std::function<bool(Tecla)> m_alPulsarTecla;
    std::function<bool()> m_alValidar;
};

// What is pressed. A click leaves the focus where it is, unless the kind takes it; when what the focus
// has left then takes it back, the press is lost.
template <typename T, bool TOMA_FOCO = false>
class PulsableDoble : public ControlDoble<T> {
public:
    using ControlDoble<T>::ControlDoble;
    bool pulsar() {
        return this->usar(TOMA_FOCO, [this] { return alPulsado(); });
    }
    bool pulsarConTeclado() {
        return this->usar(true, [this] { return alPulsado(); });
    }
    // As a screen reader does it: the focus stays, so nothing is asked before.
    bool pulsarDesdeFuera() {
        return this->usar(false, [this] { return alPulsado(); });
    }
    void alPulsar(std::function<void()> accion) override { m_alPulsar = std::move(accion); }

protected:
    virtual bool alPulsado() { return ControlComun::avisar(m_alPulsar); }

private:
    std::function<void()> m_alPulsar;
};

class CasillaMarcaDoble : public PulsableDoble<CasillaMarca, true> {
public:
    using PulsableDoble::PulsableDoble;

    bool marcada() const override { return m_marcada; }
    void marcada(bool si) override { m_marcada = si; }
    void texto(const std::string&) override {}

protected:
    bool alPulsado() override {
        m_marcada = !m_marcada;
        return PulsableDoble::alPulsado();
    }

private:
    bool m_marcada = false;
};

class ListaDoble : public ControlDoble<Lista> {
public:
    using ControlDoble::ControlDoble;
    std::vector<std::string> textos;
    // Also the one that is shown already.
    bool elegir(int indice);
    bool pulsar(Tecla tecla);

    void elementos(std::span<const std::string_view> nuevos) override {
        textos.assign(nuevos.begin(), nuevos.end());
        m_indice = -1;
    }
    int indice() const override { return m_indice; }
    void indice(int indice) override { m_indice = vale(indice) ? indice : -1; }
    void colorFondo(Color color) override { fondo = color; }
    void alElegir(std::function<void()> accion) override { m_alElegir = std::move(accion); }
    void alPulsarTecla(std::function<bool(Tecla)> accion) override { m_alPulsarTecla = std::move(accion); }

private:
    bool vale(int indice) const { return indice >= 0 && indice < static_cast<int>(textos.size()); }

    int m_indice = -1;
    std::function<void()> m_alElegir;
    std::function<bool(Tecla)> m_alPulsarTecla;
};

class RotuloDoble : public PulsableDoble<Rotulo> {
public:
    using PulsableDoble::PulsableDoble;
    Fuente letra;

    void texto(const std::string& texto) override { m_texto = texto; }
    std::string texto() const override { return m_texto; }
    void fuente(const Fuente& fuente) override { letra = fuente; }
    void ajuste(Ajuste) override {}
    void colorTexto(Color) override {}
    void colorFondo(Color color) override { fondo = color; }

protected:
    bool enfocable() const override { return false; }

private:
    std::string m_texto;
};

class BotonImagenDoble : public PulsableDoble<BotonImagen> {
public:
    using PulsableDoble::PulsableDoble;
    Dibujo imagen = Dibujo::ninguno;
    bool repite = false;

    void dibujo(Dibujo dibujo) override { imagen = dibujo; }
    void repetir(bool si) override { repite = si; }
};

class MarcoColorDoble : public PulsableDoble<MarcoColor> {
public:
    using PulsableDoble::PulsableDoble;

    void color(Color color) override { m_color = color; }
    Color color() const override { return m_color; }

private:
    Color m_color = BLANCO;
};

class BotonTextoDoble : public PulsableDoble<BotonTexto, true> {
public:
    using PulsableDoble::PulsableDoble;
    void texto(const std::string&) override {}
    void dibujo(Dibujo) override {}
};

class MarcoDoble : public PulsableDoble<Marco> {
public:
    using PulsableDoble::PulsableDoble;
    void colorFondo(Color color) override { fondo = color; }

protected:
    bool enfocable() const override { return false; }
};

class FormularioDialogoDoble : public FormularioDialogo {
public:
    // ---- what a test may look at ----
    Rectangulo medidas;
    Monitor centrado;
    int vecesCentrado = 0;
    bool visible = false;
    OyenteDialogo* quienOye = nullptr;
    std::string arrastre;  // what was asked of it for that
    EstadoDialogo& estado() { return *m_estado; }

    // Null for one that was not made or is gone.
    CajaTextoDoble* caja(IdControl id, int elemento = 0) { return buscar<CajaTextoDoble>(id, elemento); }
    CasillaMarcaDoble* casilla(IdControl id) { return buscar<CasillaMarcaDoble>(id, 0); }
    ListaDoble* lista(IdControl id, int elemento = 0) { return buscar<ListaDoble>(id, elemento); }
    RotuloDoble* rotulo(IdControl id, int elemento = 0) { return buscar<RotuloDoble>(id, elemento); }
    BotonImagenDoble* imagen(IdControl id, int elemento = 0) { return buscar<BotonImagenDoble>(id, elemento); }
    MarcoColorDoble* color(IdControl id) { return buscar<MarcoColorDoble>(id, 0); }
    BotonTextoDoble* boton(IdControl id) { return buscar<BotonTextoDoble>(id, 0); }
    MarcoDoble* marco(IdControl id, int elemento = 0) { return buscar<MarcoDoble>(id, elemento); }
    ControlComun* control(IdControl id, int elemento = 0) { return buscar<ControlComun>(id, elemento); }
    SuperficieDoble* superficie(IdControl id, int elemento = 0) { return m_superficies->uno(numero(id, elemento)); }
    // The id (with its element) of what has the focus, 0 for none.
    int foco() const { return m_estado->foco != nullptr ? m_estado->foco->clave() : 0; }
    // Those that the keyboard reaches, in its order.
    std::vector<ControlComun*> recorrido() const;

    // ---- the user ----
    void pedirCierre();
    void arrastrar();

    // ---- the seam ----
    FormularioDialogoDoble();
    void oyente(OyenteDialogo* oyente) override { quienOye = oyente; }
    void titulo(const std::string&) override {}
    void soltarRaton() override { arrastre += "soltar "; }
    void agarrarTitulo() override { arrastre += "agarrar "; }
    void tamano(float ancho, float alto) override { medidas = {0, 0, ancho, alto}; }
    void centrarEn(const Monitor& monitor) override {
        centrado = monitor;
        ++vecesCentrado;
    }
    void mostrar() override { visible = true; }
    void ocultar() override { visible = false; }
    Superficie& fondo() override { return m_fondo; }
    MedidaTexto medir(std::string_view texto) const override { return m_regla.medir(texto); }
    std::unique_ptr<CajaTexto> crearCajaTexto(IdControl id, int n) override { return crear<CajaTextoDoble>(id, n); }
    std::unique_ptr<CasillaMarca> crearCasilla(IdControl id, int n) override { return crear<CasillaMarcaDoble>(id, n); }
    std::unique_ptr<Lista> crearLista(IdControl id, int n) override { return crear<ListaDoble>(id, n); }
    std::unique_ptr<Rotulo> crearRotulo(IdControl id, int n) override { return crear<RotuloDoble>(id, n); }
    std::unique_ptr<BotonImagen> crearBotonImagen(IdControl id, int n) override {
        return crear<BotonImagenDoble>(id, n);
    }
    std::unique_ptr<MarcoColor> crearMarcoColor(IdControl id, int n) override { return crear<MarcoColorDoble>(id, n); }
    std::unique_ptr<BotonTexto> crearBotonTexto(IdControl id, int n) override { return crear<BotonTextoDoble>(id, n); }
    std::unique_ptr<Marco> crearMarco(IdControl id, int n) override { return crear<MarcoDoble>(id, n); }
    std::unique_ptr<Superficie> crearSuperficie(IdControl id, int n) override {
        return std::make_unique<Anotado<SuperficieDoble>>(m_superficies, numero(id, n));
    }
    void ordenTeclado(std::span<Control* const> orden) override { m_estado->orden.assign(orden.begin(), orden.end()); }

private:
    template <typename T>
    std::unique_ptr<T> crear(IdControl id, int elemento) {
        return std::make_unique<T>(m_estado, numero(id, elemento));
    }
    template <typename T>
    T* buscar(IdControl id, int elemento) {
        const auto it = m_estado->controles.find(numero(id, elemento));
        return it == m_estado->controles.end() ? nullptr : dynamic_cast<T*>(it->second);
    }

    std::shared_ptr<EstadoDialogo> m_estado = std::make_shared<EstadoDialogo>();
    Registro<SuperficieDoble> m_superficies = std::make_shared<Anotados<SuperficieDoble>>();
    SuperficieDoble m_fondo;
    SuperficieDoble m_regla;
};

// Chooses what the test says; nothing said is a cancelled choice.
class DialogosSistemaDoble : public DialogosSistema {
public:
    std::deque<Color> colores;
    std::deque<FuenteElegida> fuentes;
    std::vector<Color> coloresIniciales;
    std::vector<FuenteElegida> fuentesIniciales;

    std::optional<Color> elegirColor(Color inicial) override;
    bool elegirFuente(FuenteElegida& fuente) override;
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
