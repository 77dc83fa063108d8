#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "display/visor.h"

namespace sorvanel {

// "Visor #3 (Tolva)": so that it can be found on the screen, by its number and by its caption.
std::string nombreVisor(int posicion, const std::string& caption);

// All displays of the program. A display's position, from 1, is the number of its section: the list
// is dense, and stays so when one is deleted.
class Visores {
public:
    // Loads the displays up to the first number without a port.
    Visores(const comun& com, Fabrica& fabrica, const Reloj& reloj, EnlacePeso& compartido);
    ~Visores();
    Visores(const Visores&) = delete;
    Visores& operator=(const Visores&) = delete;

    // A new display at the end, saved; nothing when the port (unless 0) or the caption (unless
    // empty) is another display's, or when there are 64 already. It belongs to the collection. Where it closes a
    // gap in the file, the displays behind that follow it: its own number is one more than cuantos() was.
    visor* nuevo(std::int32_t port, const std::string& caption);
    bool eliminar(std::int16_t posicion);
    // The two exchange their cells, in the file at once and on the screen. No where one of them has none.
    bool intercambiar(std::int16_t una, std::int16_t otra);
    visor* uno(std::int16_t posicion);
    std::int16_t cuantos() const { return static_cast<std::int16_t>(m_visores.size()); }

    // Places all at their stored cells. Each one's error is appended as a line.
    void ubicar(std::string& errores);
    void reubicar();
    void desubicar();
    void Run(bool marcha);
    // Starts all that are placed; the errors likewise. True when all started. May be asked again and again: those
    // that run are left alone, and one that fails again changes nothing on the screen.
    bool letsRun(std::string& errores);
    // Those that run show no data until a weight comes.
    void enmudecer();

private:
    // From the file, those behind the last one here.
    void cargarSiguientes();
    template <typename Accion>
    void paraCada(Accion accion);

    const comun& m_com;
    Fabrica& m_fabrica;
    const Reloj& m_reloj;
    EnlacePeso& m_compartido;
    std::vector<std::unique_ptr<visor>> m_visores;
};

}  // namespace sorvanel
