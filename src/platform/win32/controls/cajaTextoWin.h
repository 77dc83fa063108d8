#pragma once

#include <string_view>

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// The system's text box within a flat frame, which is its non-client area: so the text stands in the
// middle of whatever height, and the control is one window.
class CajaTextoWin final : public ControlDe<CajaTexto> {
public:
    CajaTextoWin(Anfitrion& anfitrion, IdControl id, int elemento);

    void alCambiarEscala() override;
    bool seValida() const override { return static_cast<bool>(m_alValidar); }
    bool validar() override;

    std::string texto() const override;
    void texto(const std::string& nuevo) override;
    void colorFondo(Color color) override;
    void longitudMaxima(int caracteres) override;
    bool alInicio() const override;
    bool alFinal() const override;
    void seleccionarTodo() override;
    void filtro(std::function<char32_t(char32_t)> filtro) override { m_filtro = std::move(filtro); }
    void alPulsarTecla(std::function<bool(Tecla)> accion) override { m_alPulsarTecla = std::move(accion); }
    void alValidar(std::function<bool()> accion) override { m_alValidar = std::move(accion); }

private:
    struct Seleccionado {
        DWORD desde = 0;
        DWORD hasta = 0;
    };

    LRESULT atender(UINT mensaje, WPARAM w, LPARAM l) override;
    LRESULT atenderTexto(UINT mensaje, WPARAM w, LPARAM l);
    LRESULT alCambiarFoco(UINT mensaje, WPARAM w, LPARAM l);
    LRESULT atenderMarco(UINT mensaje, WPARAM w, LPARAM l);
    void alNotificar(UINT aviso) override;
    // True: the key is not the box's.
    bool alTeclear(WPARAM virtual_);
    LRESULT alCaracter(WPARAM w, LPARAM l);
    LRESULT insertar(char32_t caracter, LPARAM l);
    void pegar();
    // The user's text, wherever from: filtered, and no longer than there is room for.
    void reemplazar(std::wstring_view texto, bool deshacer);
    std::wstring leido() const;
    std::wstring filtrado(std::wstring_view texto) const;
    std::size_t quedan() const;
    Seleccionado seleccionado() const;
    // The text is wider than the room for it.
    bool desborda() const;
    // With the caret before all of it, and so many characters selected.
    void mostrarInicio(std::size_t seleccionadas);
    void ponerLetra();
    void encoger(RECT& zona) const;
    void pintarMarco();

    Color m_fondo = BLANCO;
    std::wstring m_sabido;     // what the owner set, or was told
    bool m_propio = false;     // the program sets the text
    wchar_t m_mitad = 0;       // the first half of a character that comes in two
    std::size_t m_maximo = 0;  // UTF-16 units; 0 for as many as the system takes
    std::function<char32_t(char32_t)> m_filtro;
    std::function<bool(Tecla)> m_alPulsarTecla;
    std::function<bool()> m_alValidar;
};

}  // namespace sorvanel
