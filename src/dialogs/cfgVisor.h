#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "dialogs/dialogoConfiguracion.h"
#include "dialogs/filaVisor.h"

namespace sorvanel {

class ConexionPavona;
class PaginaVisores;
class PanelDiseno;

// The tool that defines the displays: makes and deletes them, gives each its link, caption and place,
// and where wanted a look of its own. What is accepted is the display's at once, saved and seen; the tool
// keeps no copy.
class cfgVisor : public DialogoConfiguracion, private TablaVisores {
public:
    cfgVisor(const UtilesDialogo& utiles, MesaConfiguracion& mesa);
    ~cfgVisor() override;

    bool alUsarRaton(GestoRaton gesto, Punto donde) override;

private:
    struct Controles;
    struct Foco {
        std::int16_t fila;
        CampoVisor campo;
        bool operator==(const Foco&) const = default;
    };
    // What there is room for.
    struct Vista {
        bool panel = true;
        bool conexion = true;
        bool marca = true;
        bool paginas = true;
        bool operator==(const Vista&) const = default;
    };

    void montar() override;
    void crearControles() override;
    void rellenar() override;
    Pieza disposicion() override { return disposicion(vista()); }
    Pieza disposicionMayor() override { return disposicion(Vista{}); }
    void alMostrar() override;
    bool validar() override;
    void soltar() override;

    visor& visorDe(const FilaVisor& fila) override;
    Ubicacion ultimaCelda() override;
    void rechazar(std::string_view motivo) override;
    bool puedeAlternar(const FilaVisor& fila) override;
    bool alEscapar() override;
    void alEnfocar(FilaVisor& fila, CampoVisor campo) override;
    void alElegirFila(FilaVisor& fila) override;
    void mover(FilaVisor& fila, CampoVisor campo, Tecla tecla) override;
    void alCambiarProtocolo(FilaVisor& fila) override;
    void alPedirDiseno(FilaVisor& fila) override;

    Vista vista();
    Pieza disposicion(const Vista& vista);
    PaginaVisores& pagina();
    // The display of that number; null when there is none.
    visor* uno(std::int16_t n) { return mesa().visores().uno(n); }
    bool hayFamilia(bool (*cual)(const Familia&));

    void irA(std::int16_t n, CampoVisor campo);
    // The row's field of the kind that has the focus now.
    void irA(std::int16_t n);
    void seleccionar(std::int16_t n);
    // Says which one it is now; 0: none.
    void elegido(std::int16_t n);
    // The row's field that has the focus now.
    std::optional<Foco> campoConFoco();
    void paginar(std::int16_t paso);
    void actualizar();
    void ordenarTeclado();

    bool nuevo();
    // The display that a free cell is for; 0: none.
    std::int16_t paraLibre();
    void eliminar();
    void avisar(std::string_view texto);
    void reubicados(const std::vector<std::int16_t>& cuales);

    void abrirPanel(std::int16_t n);
    void cerrarPanel();

    std::int16_t m_actual = 0;              // the selected display; 0: none
    std::int16_t m_reciente = 0;            // the new one, as long as it stays selected; 0: none
    std::int16_t m_conDiseno = 0;           // the one whose panel is open; 0: closed
    bool m_debajo = false;                  // the panel stands below the rows, not beside them
    std::optional<Foco> m_foco;             // the row's field that had the focus last
    std::shared_ptr<const char> m_abierta;  // gone when the window is
    std::optional<Vista> m_vista;           // how it is laid out; nothing before the first time
    std::unique_ptr<Controles> m_c;
};

}  // namespace sorvanel
