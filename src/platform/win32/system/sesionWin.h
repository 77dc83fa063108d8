#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/sistema.h"
#include "platform/win32/base/manejadoresNucleo.h"

// What the program has of the user's session: the mouse cursor, the machine's rest, and its own place in it.

namespace sorvanel {

class AvisosWin;

class CursorWin : public Cursor {
public:
    explicit CursorWin(const AvisosWin& avisos) : m_avisos(avisos) {}

    PuntoPixel posicion() const override;
    // Moves nothing while a message box is open: the user must reach it.
    void posicion(PuntoPixel punto) override;

private:
    const AvisosWin& m_avisos;
};

// Keeps the machine and its screen on. That alone does not stop the screen saver: the main window
// must refuse it too, and is told when.
class ReposoWin : public Reposo {
public:
    ~ReposoWin();

    void impedir(bool si) override;
    bool impedido() const { return m_impedido; }
    void alCambiar(std::function<void(bool impedido)> accion) { m_accion = std::move(accion); }

private:
    bool m_impedido = false;
    std::function<void(bool)> m_accion;
};

// One running program for each executable name in a user's session: a renamed copy has settings of
// its own and may run beside.
class Instancia {
public:
    explicit Instancia(const std::string& nombreEjecutable);

    // False when another one runs already. It is the first as long as this object lives.
    bool primera() const { return m_primera; }

private:
    ObjetoNucleo m_exclusion;
    bool m_primera = false;
};

}  // namespace sorvanel
