#pragma once

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// How what is pressed is pressed: by the mouse, which must be released on it, by Enter or the space bar. The system's
// own button would take the focus with each click, and paint as it likes; apart from the mouse and the look it is one.
class PulsadorWin : public ControlWin {
protected:
    PulsadorWin(Anfitrion& anfitrion, const wchar_t* clase, IdControl id, int elemento);

    // A click brings the focus with it.
    virtual bool tomaFoco() const { return false; }
    void repite(Repeticion cual) {
        m_repite = cual == Repeticion::sostenida;
        m_unaSola = cual == Repeticion::nuncaDoble;
    }
    virtual apariencia::Estado estado() const;

    LRESULT atender(UINT mensaje, WPARAM w, LPARAM l) override;
    void alNotificar(UINT aviso) override;
    void ponerNombre(const std::wstring& texto) override { nombrarConTexto(texto); }
    virtual bool alTeclear(UINT mensaje, WPARAM tecla, LPARAM detalle);

private:
    LRESULT alRaton(UINT mensaje, LPARAM l);
    void alApretar(LPARAM l);
    void alMover(LPARAM l);
    void soltar();
    void alTic();
    bool dentro(LPARAM l) const;

    bool m_repite = false;
    bool m_unaSola = false;
    bool m_apretado = false;  // by the mouse, which is then ours
    bool m_dentro = false;
    bool m_tecla = false;  // the space bar is down
};

// The one button, of the bar and of the tools.
class BotonWin final : public ControlDe<Boton, PulsadorWin> {
public:
    BotonWin(Anfitrion& anfitrion, IdControl id, int elemento);

    void estilo(EstiloBoton estilo) override { m_estilo = estilo; }
    void texto(const std::string& texto) override;
    void dibujo(Dibujo dibujo) override;
    void repeticion(Repeticion cual) override { repite(cual); }
    void aspecto(AspectoBoton aspecto) override;

private:
    apariencia::Estado estado() const override;
    bool tomaFoco() const override { return m_estilo != EstiloBoton::imagen; }
    bool alTeclear(UINT mensaje, WPARAM tecla, LPARAM detalle) override;
    void ponerNombre(const std::wstring& texto) override;
    void pintar(Lienzo& lienzo, const RECT& zona) override;
    int ladoDibujo(const RECT& zona) const;

    EstiloBoton m_estilo = EstiloBoton::dialogo;
    std::wstring m_texto;
    bool m_conNombre = false;  // one that is not the text
    Dibujo m_dibujo = Dibujo::ninguno;
    AspectoBoton m_aspecto = AspectoBoton::normal;
};

class MarcoColorWin final : public ControlDe<MarcoColor, PulsadorWin> {
public:
    MarcoColorWin(Anfitrion& anfitrion, IdControl id, int elemento);

    void color(Color color) override;
    Color color() const override { return m_color; }

private:
    void pintar(Lienzo& lienzo, const RECT& zona) override;

    Color m_color = BLANCO;
};

}  // namespace sorvanel
