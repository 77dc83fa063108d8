#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/arrastrable.h"
#include "platform/color.h"
#include "platform/controles.h"
#include "platform/formulario.h"
#include "platform/geometria.h"
#include "platform/superficie.h"

// The borderless tool windows and what stands on them. All handlers run on the one thread; a handler
// may destroy its own control or close its window, which then goes when the handler has returned.

namespace sorvanel {

class Control {
public:
    virtual ~Control() = default;

    // Place within the window, twips.
    virtual void colocar(const Rectangulo& lugar) = 0;
    virtual void mostrar(bool visible) = 0;
    virtual bool visible() const = 0;
    virtual void habilitar(bool si) = 0;
    virtual void enfocar() = 0;
    virtual bool tieneFoco() const = 0;
    // What screen readers call it, and what its tool tip says where `sugerencia` is empty.
    virtual void nombre(const std::string& texto) = 0;
    virtual void sugerencia(const std::string& texto) = 0;
    virtual void alRecibirFoco(std::function<void()> accion) = 0;
};

// The keys that a text box or a list hands to its owner before it takes them itself.
enum class Tecla { arriba, abajo, izquierda, derecha, intro, escape };

class CajaTexto : public Control {
public:
    virtual std::string texto() const = 0;
    // Set by the program: alCambiar is not told, and the user can undo nothing of what was before. Where the text
    // is that already, the caret stays.
    virtual void texto(const std::string& texto) = 0;
    virtual void colorFondo(Color color) = 0;
    virtual void longitudMaxima(int caracteres) = 0;
    // Where the caret stands at the very start or end of the text, with what is selected.
    virtual bool alInicio() const = 0;  // nothing before the selection
    virtual bool alFinal() const = 0;   // nothing after it
    virtual void seleccionarTodo() = 0;

    // Each character typed or pasted goes through it: what it answers is taken instead, 0 for none.
    // Keys without a character (arrows, Home, the clipboard's) never do.
    virtual void filtro(std::function<char32_t(char32_t)> filtro) = 0;
    // The user changed the text.
    virtual void alCambiar(std::function<void()> accion) = 0;
    // True: the owner has dealt with the key.
    virtual void alPulsarTecla(std::function<bool(Tecla)> accion) = 0;
    // Asked once the focus has gone to another control of this window (never from within the change
    // of focus, so a box may be shown). False brings the focus back.
    virtual void alValidar(std::function<bool()> accion) = 0;
};

class CasillaMarca : public Control {
public:
    virtual bool marcada() const = 0;
    virtual void marcada(bool si) = 0;  // alPulsar is not told
    virtual void texto(const std::string& texto) = 0;
    virtual void alPulsar(std::function<void()> accion) = 0;
};

// A drop-down list of fixed entries.
class Lista : public Control {
public:
    virtual void elementos(std::span<const std::string_view> textos) = 0;
    virtual int indice() const = 0;       // from 0; -1 for none
    virtual void indice(int indice) = 0;  // alElegir is not told
    virtual void colorFondo(Color color) = 0;
    // The user chose one, be it the one that was shown.
    virtual void alElegir(std::function<void()> accion) = 0;
    virtual void alPulsarTecla(std::function<bool(Tecla)> accion) = 0;
};

enum class Ajuste { izquierda, derecha, centro };

// A text on the window's ground. A label made just before a control is also its name for screen
// readers.
class Rotulo : public Control {
public:
    virtual void texto(const std::string& texto) = 0;
    virtual std::string texto() const = 0;
    virtual void fuente(const Fuente& fuente) = 0;
    virtual void ajuste(Ajuste ajuste) = 0;
    virtual void colorTexto(Color color) = 0;
    // A filled ground instead of the window's; negative: the window's.
    virtual void colorFondo(Color color) = 0;
    // A click (a double-click is one further click). Without a handler the press drags the window.
    virtual void alPulsar(std::function<void()> accion) = 0;
};

// A small picture that is pressed: reached by Tab, pressed by the mouse, Enter or the space bar, and
// shown pressed meanwhile. A click does not take the focus away from where it is.
class BotonImagen : public Control {
public:
    virtual void dibujo(Dibujo dibujo) = 0;
    virtual void alPulsar(std::function<void()> accion) = 0;
    // Held down it presses again and again, faster than one can click; for plus and minus.
    virtual void repetir(bool si) = 0;
};

// Shows a colour, and is pressed like a button.
class MarcoColor : public Control {
public:
    virtual void color(Color color) = 0;
    virtual Color color() const = 0;
    virtual void alPulsar(std::function<void()> accion) = 0;
};

class BotonTexto : public Control {
public:
    virtual void texto(const std::string& texto) = 0;
    virtual void dibujo(Dibujo dibujo) = 0;  // left of the text
    virtual void alPulsar(std::function<void()> accion) = 0;
};

// A framed ground for a group of controls. Controls do not lie in it but above it: the owner shows,
// hides and places them with it.
class Marco : public Control {
public:
    virtual void colorFondo(Color color) = 0;
    // Told with the press. Without a handler that drags the window.
    virtual void alPulsar(std::function<void()> accion) = 0;
};

class OyenteDialogo {
public:
    virtual ~OyenteDialogo() = default;
    // The user wants it closed (Alt+F4, the close image's owner calls it too).
    virtual void alPedirCierre() = 0;
    // The user has pressed its ground, or a label or frame without a handler, and begun to drag.
    virtual void alArrastrar() = 0;
};

// A borderless window owned by the main one, modeless.
// What is created on it belongs to the caller and goes before it does; a control created later comes
// later in tab order unless `tras` says otherwise. Enter and Escape do nothing by themselves.
class FormularioDialogo : public Arrastrable {
public:
    virtual void oyente(OyenteDialogo* oyente) = 0;
    virtual void titulo(const std::string& texto) = 0;  // for the system and screen readers
    // Size of the window, twips of the monitor that it stands on.
    virtual void tamano(float ancho, float alto) = 0;
    // The middle of that monitor's work area, and its scale from now on.
    virtual void centrarEn(const Monitor& monitor) = 0;
    virtual void mostrar() = 0;
    virtual void ocultar() = 0;

    // The picture that everything stands on, as large as the window. It is no window of its own.
    virtual Superficie& fondo() = 0;
    // Room that a text needs in the font of the controls, twips.
    virtual MedidaTexto medir(std::string_view texto) const = 0;

    virtual std::unique_ptr<CajaTexto> crearCajaTexto(IdControl id, int elemento) = 0;
    virtual std::unique_ptr<CasillaMarca> crearCasilla(IdControl id, int elemento) = 0;
    virtual std::unique_ptr<Lista> crearLista(IdControl id, int elemento) = 0;
    virtual std::unique_ptr<Rotulo> crearRotulo(IdControl id, int elemento) = 0;
    virtual std::unique_ptr<BotonImagen> crearBotonImagen(IdControl id, int elemento) = 0;
    virtual std::unique_ptr<MarcoColor> crearMarcoColor(IdControl id, int elemento) = 0;
    virtual std::unique_ptr<BotonTexto> crearBotonTexto(IdControl id, int elemento) = 0;
    virtual std::unique_ptr<Marco> crearMarco(IdControl id, int elemento) = 0;
    virtual std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) = 0;
    // The keyboard goes through the controls in that order; what is not named keeps its place behind.
    virtual void ordenTeclado(std::span<Control* const> orden) = 0;
};

// The dialogs that the system has. Each disables all windows of the program while it is open.
struct FuenteElegida {
    std::string nombre;
    float puntos = 0;
    bool negrita = false;
    bool cursiva = false;
    bool subrayado = false;
};

class DialogosSistema {
public:
    virtual ~DialogosSistema() = default;
    // Nothing when the user cancels; the initial colour can be chosen like any other.
    virtual std::optional<Color> elegirColor(Color inicial) = 0;
    // False when the user cancels; then nothing is changed.
    virtual bool elegirFuente(FuenteElegida& fuente) = 0;
};

class FabricaDialogos {
public:
    virtual ~FabricaDialogos() = default;
    // Hidden, owned by the main window.
    virtual std::unique_ptr<FormularioDialogo> crearDialogo(IdControl id) = 0;
    virtual DialogosSistema& sistema() = 0;
};

}  // namespace sorvanel
