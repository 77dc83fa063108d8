#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/win32/base/textoWin.h"
#include "platform/win32/controls/anfitrion.h"

namespace sorvanel {

// What stands on a window without being one: the window paints it, finds it under the mouse and tells screen readers of
// it. No keyboard reaches it.
class ElementoWin {
public:
    ElementoWin(const ElementoWin&) = delete;
    ElementoWin& operator=(const ElementoWin&) = delete;
    virtual ~ElementoWin();

    int id() const { return m_id; }
    virtual bool esMarco() const = 0;
    bool estaVisible() const { return m_visible; }
    // Within the window, device pixels.
    RECT sitio() const { return aRECT(m_anfitrion.escala().aPixeles(m_lugar)); }
    // What screen readers call it, and what they read on it where that is something else.
    const std::wstring& nombreAccesible() const { return m_nombre.empty() ? texto() : m_nombre; }
    const std::wstring& valorAccesible() const { return m_nombre.empty() ? m_nombre : texto(); }
    bool pulsable() const { return m_visible && m_accion; }
    // The user has pressed it; it may be gone afterwards, and its window too.
    void actuar() const;
    virtual void alCambiarEscala();
    // What of it lies in that part of the window, onto a picture of that part.
    virtual void pintar(Lienzo& lienzo, const RECT& parte) const = 0;

protected:
    ElementoWin(Anfitrion& anfitrion, IdControl id, int elemento);

    void ponerLugar(const Rectangulo& lugar);
    void ponerVisible(bool visible);
    void ponerNombre(const std::wstring& nombre);
    void ponerSugerencia(const std::wstring& texto);
    void ponerAccion(std::function<void()> accion) { m_accion = std::move(accion); }
    // It looks another way than it did.
    virtual void tocado() const { m_anfitrion.tocar(sitio()); }
    void avisarNombre() const;
    void ponerTexto(std::wstring texto);
    const std::wstring& texto() const { return m_texto; }
    Anfitrion& anfitrion() const { return m_anfitrion; }
    const apariencia::Paleta& paleta() const { return m_anfitrion.paleta(); }
    int px(float pixelesDeDiseno) const { return apariencia::px(m_anfitrion.escala(), pixelesDeDiseno); }

private:
    void situarSugerencia() const;

    Anfitrion& m_anfitrion;
    const int m_id;
    Rectangulo m_lugar;
    bool m_visible = false;
    std::wstring m_texto;
    std::wstring m_nombre;
    std::wstring m_sugerencia;
    std::function<void()> m_accion;
};

// Joins what a kind promises with what all of them do.
template <typename Interfaz>
class ElementoDe : public Interfaz, public ElementoWin {
public:
    ElementoDe(Anfitrion& anfitrion, IdControl id, int elemento) : ElementoWin(anfitrion, id, elemento) {}

    void colocar(const Rectangulo& lugar) override { ponerLugar(lugar); }
    void mostrar(bool visible) override { ponerVisible(visible); }
    bool visible() const override { return estaVisible(); }
    void nombre(const std::string& texto) override { ponerNombre(aAncho(texto)); }
    void sugerencia(const std::string& texto) override { ponerSugerencia(aAncho(texto)); }
    void alActuar(std::function<void()> accion) override { ponerAccion(std::move(accion)); }
    // No keyboard reaches it.
    void habilitar(bool) override {}
    void enfocar() override {}
    bool tieneFoco() const override { return false; }
    void alRecibirFoco(std::function<void()>) override {}
};

class RotuloWin final : public ElementoDe<Rotulo> {
public:
    using ElementoDe::ElementoDe;

    bool esMarco() const override { return false; }
    void alCambiarEscala() override;
    void pintar(Lienzo& lienzo, const RECT& parte) const override;

    void texto(const std::string& texto) override { ponerTexto(aAncho(texto)); }
    std::string texto() const override { return aUtf8(ElementoWin::texto()); }
    void fuente(const Fuente& fuente) override;
    void ajuste(Ajuste ajuste) override { cambiar(m_ajuste, ajuste); }
    void colorTexto(Color color) override { cambiar(m_colorTexto, color); }
    void colorFondo(Color color) override { cambiar(m_fondo, color); }

private:
    template <typename T>
    void cambiar(T& valor, T nuevo) {
        if (valor == nuevo) return;
        valor = nuevo;
        tocado();
    }
    void elegirFuente();

    Fuente m_fuente;                     // without a height: the one that the controls share
    std::shared_ptr<FuenteWin> m_hecha;  // null for that one
    Ajuste m_ajuste = Ajuste::izquierda;
    Color m_colorTexto = apariencia::Paleta().letra;
    Color m_fondo = -1;
};

class MarcoWin final : public ElementoDe<Marco> {
public:
    using ElementoDe::ElementoDe;

    bool esMarco() const override { return true; }
    void pintar(Lienzo& lienzo, const RECT& parte) const override;
    void colorFondo(Color color) override;

private:
    // What stands on it shows it too.
    void tocado() const override { anfitrion().tocarDetras(sitio()); }

    Color m_fondo = -1;
};

}  // namespace sorvanel
