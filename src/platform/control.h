#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "platform/color.h"
#include "platform/geometria.h"
#include "platform/superficie.h"

// What stands on a window. All handlers run on the one thread; a handler may destroy its own control or close its
// window, which then goes when the handler has returned.

namespace sorvanel {

enum class TipoControl { cajaTexto, casilla, lista, rotulo, boton, marcoColor, marco, asa };

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
    // The user has pressed it, typed into it, or chosen in it, be it what was chosen already. What the program does to
    // it is never told.
    virtual void alActuar(std::function<void()> accion) = 0;
};

// The keys that a text box or a list hands to its owner before it takes them itself.
enum class Tecla { arriba, abajo, izquierda, derecha, intro, escape };

class CajaTexto : public Control {
public:
    static constexpr TipoControl TIPO = TipoControl::cajaTexto;

    virtual std::string texto() const = 0;
    // Set by the program: the user can undo nothing of what was before. Where the text is that already, the caret
    // stays.
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
    // True: the owner has dealt with the key.
    virtual void alPulsarTecla(std::function<bool(Tecla)> accion) = 0;
    // Asked once the focus has gone to another control of this window (never from within the change
    // of focus, so a box may be shown). False brings the focus back.
    virtual void alValidar(std::function<bool()> accion) = 0;
};

class CasillaMarca : public Control {
public:
    static constexpr TipoControl TIPO = TipoControl::casilla;

    virtual bool marcada() const = 0;
    virtual void marcada(bool si) = 0;
    virtual void texto(const std::string& texto) = 0;
};

// A drop-down list of fixed entries.
class Lista : public Control {
public:
    static constexpr TipoControl TIPO = TipoControl::lista;

    virtual void elementos(std::span<const std::string_view> textos) = 0;
    virtual int indice() const = 0;  // from 0; -1 for none
    virtual void indice(int indice) = 0;
    virtual void colorFondo(Color color) = 0;
    // While it is neither open nor in the keyboard's way it looks as if disabled: what it says has no effect just now.
    virtual void atenuada(bool si) = 0;
    virtual void alPulsarTecla(std::function<bool(Tecla)> accion) = 0;
};

enum class Ajuste { izquierda, derecha, centro };

// A text on the window's ground, painted by it: the keyboard never reaches it. A press on one without a handler drags
// the window; a double-click is one further click.
class Rotulo : public Control {
public:
    static constexpr TipoControl TIPO = TipoControl::rotulo;

    virtual void texto(const std::string& texto) = 0;
    virtual std::string texto() const = 0;
    virtual void fuente(const Fuente& fuente) = 0;
    virtual void ajuste(Ajuste ajuste) = 0;
    virtual void colorTexto(Color color) = 0;
    // A filled ground instead of the window's; negative: the window's.
    virtual void colorFondo(Color color) = 0;
};

// A framed ground for a group of controls, painted by the window too. Controls do not lie in it but above it: the owner
// shows, hides and places them with it. Told with the press.
class Marco : public Control {
public:
    static constexpr TipoControl TIPO = TipoControl::marco;

    virtual void colorFondo(Color color) = 0;
};

enum class Dibujo {
    ninguno,
    apagar,
    marcha,
    pausa,
    ajustes,
    aceptar,
    cancelar,
    parrilla,
    visores,
    tamano,
    mensaje,
    mas,
    menos,
    cerrar,
    tessel,  // one indicator, one port
    pavona,  // many on one connection
    diseno,  // a display's own look
    plegar,
    nuevo,
    eliminar,
    subir,
    bajar,
};

// The small one, a picture without text, leaves the focus where it is when the mouse presses it; in the bar the arrow
// keys go from one to the next.
enum class EstiloBoton { dialogo, imagen, barra };
// How it looks whatever the mouse does: pressed, as long as what it opens is open; or spent, where pressing it would
// change nothing. The keyboard reaches it all the same: a key that is held down must not go on in another one.
enum class AspectoBoton { normal, hundido, agotado };

// Held down it presses again and again, faster than one can click, for plus and minus; or of a double click only the
// first half counts, for what cannot be taken back.
enum class Repeticion { ninguna, sostenida, nuncaDoble };

// A rounded button with a drawn picture, a text, or both: reached by Tab, pressed by the mouse, Enter or the space bar.
class Boton : public Control {
public:
    static constexpr TipoControl TIPO = TipoControl::boton;

    virtual void estilo(EstiloBoton estilo) = 0;
    virtual void texto(const std::string& texto) = 0;
    virtual void dibujo(Dibujo dibujo) = 0;  // left of the text
    virtual void repeticion(Repeticion cual) = 0;
    virtual void aspecto(AspectoBoton aspecto) = 0;
};

// Shows a colour, and is pressed like a button.
class MarcoColor : public Control {
public:
    static constexpr TipoControl TIPO = TipoControl::marcoColor;

    virtual void color(Color color) = 0;
    virtual Color color() const = 0;
};

class OyenteAsa {
public:
    virtual ~OyenteAsa() = default;
    // Where within the handle the mouse is, twips. Between a press and its release the mouse may be
    // anywhere; a release is told also when the system takes the mouse away.
    virtual void alPulsarAsa(Punto raton) = 0;
    virtual void alMoverAsa(Punto raton) = 0;
    virtual void alSoltarAsa() = 0;
    // An arrow key: so many twips to the right and down. Its going up is told as a release.
    virtual void alEmpujarAsa(Punto paso) = 0;
    // The second press of a double click; the first one has been told and released.
    virtual void alDobleAsa() = 0;
};

// A handle that is dragged, by the mouse or, when it has the focus, by the arrow keys.
class Asa : public Control {
public:
    static constexpr TipoControl TIPO = TipoControl::asa;

    virtual void oyente(OyenteAsa* oyente) = 0;
};

}  // namespace sorvanel
