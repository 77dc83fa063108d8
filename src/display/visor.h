#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "display/disenoVisor.h"
#include "display/pinturaVisor.h"
#include "display/registroVisor.h"
#include "display/silencio.h"
#include "display/trama.h"
#include "grid/parrilla.h"
#include "links/enlacePeso.h"
#include "links/frWsk.h"

namespace sorvanel {

struct Ubicacion {
    std::int16_t fila = 0;  // from 1
    std::int16_t columna = 0;

    bool operator==(const Ubicacion&) const = default;
};

// One weight display: a caption and a live weight on one cell of the grid, fed by one indicator.
// A write that does not take the value as it is answers no; what is refused changes nothing. Where an operation
// answers no, ultimoerror says why.
class visor final : public SuscriptorPeso {
public:
    // All of these must outlive the display. Without the shared design it is read.
    visor(const comun& com, Fabrica& fabrica, const Reloj& reloj, EnlacePeso& compartido);
    visor(const comun& com, Fabrica& fabrica, const Reloj& reloj, EnlacePeso& compartido, diseñoVisor diseno);
    ~visor() override;
    visor(const visor&) = delete;
    visor& operator=(const visor&) = delete;

    // The grid and the surfaces of caption and weight; not owned, dropped again by desubicar.
    bool definir(Parrilla& parrilla, Superficie& etiqueta, Superficie& peso);
    // Places the display; 0 stands for the row or column that it has.
    bool ubicar(std::int16_t fila, std::int16_t columna);
    // After the screen changed: the same cell, wherever it lies now. What was shown is shown again,
    // unless the cell cannot hold the display any more: then it leaves the screen until it can.
    void reubicar();
    void desubicar();
    bool ubicado() const;

    bool cargarComo(std::int16_t n);
    // The same by an accessor that is on the settings file already; its section changes.
    bool cargarComo(std::int16_t n, AccesorINI& ini);
    bool guardarComo(std::int16_t n);
    bool identificado() const { return m_numero >= 1; }

    bool Run() const { return m_run; }
    // A placed display that cannot be started shows that there is no data until it can, or is stopped.
    void Run(bool marcha);
    // While it runs: whatever it shows is not to be trusted any more. No data, until a weight comes.
    void enmudecer() { recibir({}); }

    const std::string& caption() const { return m_registro.caption; }
    bool caption(const std::string& texto);  // refused when another saved display has it
    std::optional<Ubicacion> ubicacion() const;
    bool ubicacion(std::optional<Ubicacion> lugar);  // refused when taken or outside the grid
    // Both have a place, and get each other's: both are saved, or none. Nothing is painted, see reubicar().
    bool intercambiarUbicacion(visor& otro);
    std::int32_t port() const override { return m_registro.port; }
    bool port(std::int32_t port);  // 0 to 99999; refused when taken
    // As the settings file says: NADIE where that is no address, and then it does not start.
    DireccionIP origen() const override;
    const std::string& origenEscrito() const { return m_registro.origen; }
    std::int16_t protocolo() const { return familia().protocolo; }
    bool protocolo(std::int16_t protocolo);  // a family's, or else the first one's; ignored while running
    const Familia& familia() const { return *m_registro.familia; }
    std::int16_t modoBulk() const override { return m_registro.modoBulk; }
    bool modoBulk(std::int16_t modo);  // clamped to 0 to 5

    // The display's own value; empty: as the shared design says. Clamped to its range.
    const ValorRasgo& propio(Rasgo rasgo) const { return m_registro.rasgos[rasgo]; }
    bool propio(Rasgo rasgo, const ValorRasgo& valor);
    // The value in force: the own one, else the design's.
    const ValorRasgo& efectivo(Rasgo rasgo) const;
    AspectoVisor aspecto() const;

    std::optional<std::int16_t> anchoEtiqueta() const { return tomar<std::int16_t>(propio(Rasgo::anchoEtiqueta)); }
    bool anchoEtiqueta(std::optional<std::int16_t> ancho) { return propio(Rasgo::anchoEtiqueta, valorDe(ancho)); }
    std::optional<std::int16_t> ajusteEtiqueta() const { return tomar<std::int16_t>(propio(Rasgo::ajusteEtiqueta)); }
    bool ajusteEtiqueta(std::optional<std::int16_t> ajuste) { return propio(Rasgo::ajusteEtiqueta, valorDe(ajuste)); }
    std::optional<Color> colorFondoEtiqueta() const { return tomar<Color>(propio(Rasgo::colorFondoEtiqueta)); }
    bool colorFondoEtiqueta(std::optional<Color> color) { return propio(Rasgo::colorFondoEtiqueta, valorDe(color)); }
    std::optional<Color> colorTextoEtiqueta() const { return tomar<Color>(propio(Rasgo::colorTextoEtiqueta)); }
    bool colorTextoEtiqueta(std::optional<Color> color) { return propio(Rasgo::colorTextoEtiqueta, valorDe(color)); }
    std::optional<Color> colorFondoPeso() const { return tomar<Color>(propio(Rasgo::colorFondoPeso)); }
    bool colorFondoPeso(std::optional<Color> color) { return propio(Rasgo::colorFondoPeso, valorDe(color)); }
    std::optional<Color> colorTextoPeso() const { return tomar<Color>(propio(Rasgo::colorTextoPeso)); }
    bool colorTextoPeso(std::optional<Color> color) { return propio(Rasgo::colorTextoPeso, valorDe(color)); }
    std::optional<float> ratioAlturas() const { return tomar<float>(propio(Rasgo::ratioAlturas)); }
    bool ratioAlturas(std::optional<float> ratio) { return propio(Rasgo::ratioAlturas, valorDe(ratio)); }
    std::string formatoPeso() const { return como<std::string>(propio(Rasgo::formatoPeso)); }
    bool formatoPeso(const std::string& formato) { return propio(Rasgo::formatoPeso, formato); }

    std::int16_t anchoEtiquetaEfv() const { return como<std::int16_t>(efectivo(Rasgo::anchoEtiqueta)); }
    std::int16_t ajusteEtiquetaEfv() const { return como<std::int16_t>(efectivo(Rasgo::ajusteEtiqueta)); }
    Color colorFondoEtiquetaEfv() const { return como<Color>(efectivo(Rasgo::colorFondoEtiqueta)); }
    Color colorTextoEtiquetaEfv() const { return como<Color>(efectivo(Rasgo::colorTextoEtiqueta)); }
    Color colorFondoPesoEfv() const { return como<Color>(efectivo(Rasgo::colorFondoPeso)); }
    Color colorTextoPesoEfv() const { return como<Color>(efectivo(Rasgo::colorTextoPeso)); }
    std::string formatoPesoEfv() const { return como<std::string>(efectivo(Rasgo::formatoPeso)); }

    // Whether a weight stands there; and since when there is none though it should, null while there is, or none has
    // been waited for yet. How many such silences a weight has ended, and why it is silent now, in the operator's
    // words.
    bool conPeso() const { return m_muestra == Muestra::peso; }
    const Silencio* silencio() const { return m_silencio ? &*m_silencio : nullptr; }
    std::uint32_t vueltas() const { return m_vueltas; }
    std::string motivoDicho();

    const std::string& ultimoerror() const { return m_ultimoerror; }

    bool frWsk_refrescoPeso(std::string_view linea) override;
    bool mmTCP_refrescoPeso(std::int16_t primero, std::int16_t segundo, std::string_view carga) override;

private:
    // Uncertain: a painting has not come to its end, and anything may stand there.
    enum class Muestra { incierta, nada, peso, sinDatos };

    // What stands there while no weight has come.
    Muestra sinPeso() const { return m_sinEnlace ? Muestra::sinDatos : Muestra::nada; }
    bool definido() const { return m_parrilla != nullptr && m_pintura.has_value(); }
    EnlacePeso& enlace();
    void mudarse(EnlacePeso& antes);
    bool recibir(std::string_view trama);
    bool sinOrigen() const { return !familia().compartida && origen() == NADIE; }
    bool arrancar();
    void parar();
    bool colocar(Ubicacion lugar);
    void quitarDeLaPantalla();
    void mostrar(Muestra que);
    void mostrarSinPeso();
    void explicar();
    MotivoSilencio motivoSilencio();
    // Another display that is to be seen, and has the same port of its own; 0: none.
    std::int16_t gemelo() const;
    void pintarPeso(Muestra que);
    void trasCambioDeAspecto(bool encaja);
    void guardar() const;
    void guardarSiIdentificado() const;
    bool error(std::string_view plantilla, std::int32_t numero);
    bool sinError();

    const comun& m_com;
    const Reloj& m_reloj;
    EnlacePeso& m_compartido;
    frWsk m_propio;
    diseñoVisor m_diseno;
    RegistroVisor m_registro;
    std::int16_t m_numero = 0;
    Parrilla* m_parrilla = nullptr;
    Superficie* m_picEtiqueta = nullptr;
    Superficie* m_picPeso = nullptr;
    std::optional<PinturaVisor> m_pintura;
    bool m_ubicado = false;
    bool m_run = false;
    bool m_sinEnlace = false;  // it should hear, and could not be given its port or its link
    Muestra m_muestra = Muestra::nada;
    std::string m_ultimaTrama;  // of the weight
    Trama m_trama;
    std::optional<Silencio> m_silencio;  // while it shows that there is no data
    std::uint32_t m_vueltas = 0;         // of data, after a silence
    std::string m_ultimoerror;
};

}  // namespace sorvanel
