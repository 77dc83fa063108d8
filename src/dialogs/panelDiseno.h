#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "dialogs/campoAspecto.h"
#include "dialogs/tallerDialogo.h"
#include "dialogs/vistaPrevia.h"
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

    PanelDiseno(TallerDialogo& taller, DialogosSistema& sistema, const comun& com, Datos datos);

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
    // A value of the look, in the order of their table.
    struct Fila {
        std::unique_ptr<CasillaMarca> casilla;
        std::unique_ptr<CampoAspecto> campo;
    };

    std::unique_ptr<CampoAspecto> crearCampo(DialogosSistema& sistema, const FilaCampo& fila);
    void crearBotones();
    // What the panel says now, ticked or not, is kept to be given to other displays.
    void copiar();
    void pegar();
    ValoresRasgos leer(const visor& v) const;
    void dar(visor& v, const ValoresRasgos& valores) const;
    // Its control is seen while the value is the display's own.
    void mostrarPropios();

    TallerDialogo& m_taller;
    const comun& m_com;
    const Datos m_datos;
    bool m_abierto = false;
    std::unique_ptr<Marco> m_frDise;
    std::unique_ptr<Rotulo> m_titulo;
    std::unique_ptr<Boton> m_imDesf;
    std::array<Fila, RASGOS.size()> m_filas;
    std::unique_ptr<Rotulo> m_anchoComun;  // in the place of a width that is not the display's own
    std::unique_ptr<VistaPrevia> m_previa;
    std::unique_ptr<Boton> m_botCopiar, m_botPegar;
    std::int16_t m_numero = 0;  // the display that is shown
    std::optional<ValoresRasgos> m_copiado;
};

}  // namespace sorvanel
