#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/filaColor.h"
#include "dialogs/filaValor.h"
#include "dialogs/tallerDialogo.h"
#include "dialogs/vistaPrevia.h"
#include "display/disenoVisor.h"
#include "display/visor.h"

namespace sorvanel {

// The values that one display has instead of the shared design's: a box to tick for each, its control
// while it is ticked, and a sample. What is changed in a control is the display's at once; what is ticked
// or unticked becomes its own when the panel is stored.
class PanelDiseno {
public:
    struct Datos {
        // The display whose panel it is; asked anew each time, null while the panel is closed.
        std::function<visor*()> actual;
        std::function<void()> alCerrar;
    };

    PanelDiseno(TallerDialogo& taller, DialogosSistema& sistema, const Entorno& entorno, Datos datos);

    // Shows what the display has.
    void cargar(std::int16_t numero, const visor& v);
    // Ticked values become the display's own, the others are cleared.
    void guardar(visor& v) const;
    void abierto(bool si);

    Pieza comoPieza();
    void anadirTeclado(std::vector<Control*>& orden) const;
    // Whether the keyboard is somewhere on it.
    bool tieneFoco() const;

private:
    enum Propiedad { ancho, ajuste, textoEtiqueta, fondoEtiqueta, textoPeso, fondoPeso, formato, ratio, CUANTAS };
    static constexpr std::size_t COLORES = 4;

    void crearCasillas();
    void crearAncho();
    void crearColor(DialogosSistema& sistema, std::size_t i);
    void crearTextos();
    CasillaMarca& casilla(Propiedad p) const { return *m_casillas[p]; }
    bool propio(Propiedad p) const { return casilla(p).marcada(); }
    // What the keyboard reaches of a property while it is the display's own.
    std::vector<Control*> propios(Propiedad p) const;
    void mostrarPropios();
    void mostrarRatio(std::string texto);
    void alCambiarRatio();
    // Its own, or the shared one.
    float ratioDe(const visor& v) const;
    float ratioElegido(const visor& v) const;
    void cambiar(const std::function<void(visor&)>& cambio);
    void pintarPrevia();

    TallerDialogo& m_taller;
    const Entorno& m_entorno;
    const Datos m_datos;
    // What a display has where it sets nothing of its own.
    const diseñoVisor m_diseño;
    bool m_abierto = false;
    std::unique_ptr<Marco> m_frDise;
    std::unique_ptr<Rotulo> m_titulo;
    std::unique_ptr<BotonImagen> m_imDesf;
    std::array<std::unique_ptr<CasillaMarca>, CUANTAS> m_casillas;
    std::unique_ptr<FilaValor> m_ancho;
    std::unique_ptr<Rotulo> m_anchoComun;
    std::unique_ptr<Lista> m_lstAjte;
    std::array<std::unique_ptr<FilaColor>, COLORES> m_colores;
    std::unique_ptr<CajaTexto> m_txFmt;
    std::unique_ptr<CajaTexto> m_txRatio;
    std::string m_ratioMostrado;  // as long as the user leaves it, it stands for the exact ratio
    std::unique_ptr<VistaPrevia> m_previa;
};

}  // namespace sorvanel
