#pragma once

#include <vector>

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// The system's drop-down list; closed it has our look.
class ListaWin final : public ControlDe<Lista> {
public:
    ListaWin(Anfitrion& anfitrion, IdControl id, int elemento);

    void elementos(std::span<const std::string_view> textos) override;
    int indice() const override;
    void indice(int indice) override;
    void atenuada(bool si) override;
    void colorFondo(Color color) override;
    void alPulsarTecla(std::function<bool(Tecla)> accion) override { m_alPulsarTecla = std::move(accion); }

private:
    LRESULT atender(UINT mensaje, WPARAM w, LPARAM l) override;
    LRESULT alRaton(UINT mensaje, WPARAM w, LPARAM l);
    void alNotificar(UINT aviso) override;
    void alElegido();
    bool alTeclear(WPARAM virtual_);
    void alDibujar(const DRAWITEMSTRUCT& pedido);
    void pintar(Lienzo& lienzo, const RECT& zona) override;
    void situarVentana() override;
    void ajustarCampo(int alto);
    bool desplegada() const;
    std::wstring textoDe(int indice) const;

    bool m_atenuada = false;
    Color m_fondo = BLANCO;
    int m_alto = 0;           // of the closed list, device pixels
    int m_altoElemento = 0;   // the same
    int m_alrededor = 6;      // what the system adds to the height of the field, device pixels
    int m_sabido = -1;        // the index that the owner knows
    bool m_completa = false;  // the user has made a choice, which is to be told
    std::function<bool(Tecla)> m_alPulsarTecla;
};

}  // namespace sorvanel
