#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/columnasFila.h"
#include "dialogs/tallerDialogo.h"
#include "display/visor.h"

namespace sorvanel {

// The fields of a row, as the arrow keys go through them.
enum class CampoVisor { port, modo, etiqueta, ubicacion };

class FilaVisor;

// What a row needs of the tool that it stands in.
class TablaVisores {
public:
    virtual ~TablaVisores() = default;
    // The display of that row; it may be another object each time.
    virtual visor& visorDe(const FilaVisor& fila) = 0;
    // The last cell of the grid.
    virtual Ubicacion ultimaCelda() = 0;
    // A field was left, or to be left, with something that the display did not take.
    virtual void rechazar(std::string_view motivo) = 0;

    // Escape in a field. Yes: it stood for something else, and the field keeps what it has.
    virtual bool alEscapar() = 0;
    // No, and told why, while another field holds something that its display did not take.
    virtual bool puedeAlternar(const FilaVisor& fila) = 0;

    virtual void alEnfocar(FilaVisor& fila, CampoVisor campo) = 0;
    // The row was clicked where none of its fields is.
    virtual void alElegirFila(FilaVisor& fila) = 0;
    // Move to another field or row, once the field is valid.
    virtual void mover(FilaVisor& fila, CampoVisor campo, Tecla tecla) = 0;
    virtual void alCambiarProtocolo(FilaVisor& fila) = 0;
    virtual void alPedirDiseno(FilaVisor& fila) = 0;
};

// One display's row: its controls, what they take of the keyboard, and whether what they hold is valid.
class FilaVisor {
public:
    FilaVisor(TallerDialogo& taller, TablaVisores& tabla, std::int16_t numero);

    std::int16_t numero() const { return m_numero; }
    // Shows what the display has.
    void rellenar();
    // What the row says is another display's by now: it is filled when it is shown next.
    void caducar() { m_rellena = false; }
    void mostrar(bool visible);
    // The display has another place.
    void mostrarUbicacion() { mostrarCampo(CampoVisor::ubicacion); }
    // The frame may be wider than what stands in it.
    void colocar(const Rectangulo& marco, const ColumnasFila& columnas);
    // Whether it is the selected one.
    void elegida(bool si);

    void enfocar(CampoVisor campo);
    bool tieneFoco(CampoVisor campo) const;
    void seleccionarTodo(CampoVisor campo);

    // Writes what the user has typed there into the display, and shows it as it was understood. No, and told
    // to the table, when that does not take it. What the program put there is no entry: never written or refused.
    bool validar(CampoVisor campo);

    // What has the focus here, a field or a picture, gives it to the same one there.
    void cederFoco(const FilaVisor& otra) const;

    void anadirTeclado(std::vector<Control*>& orden) const;

private:
    void crearCajas(TallerDialogo& taller);
    void crearImagenes(TallerDialogo& taller);
    void unir(CajaTexto& caja, CampoVisor campo);
    Control& control(CampoVisor campo) const;
    CajaTexto* caja(CampoVisor campo) const;

    std::array<Control*, 6> teclado() const;

    bool alPulsarTecla(CampoVisor campo, Tecla tecla);
    // What the display has; the port as its family writes it or as the plain number.
    void mostrarCampo(CampoVisor campo, bool llano = false);
    bool& tecleado(CampoVisor campo) { return m_tecleado[static_cast<std::size_t>(campo)]; }
    void alternarProtocolo();
    void mostrarProtocolo();
    void sugerirEtiqueta();
    // Tells where what the box says is no port that anything can be received on.
    void vigilarPort();
    const Familia& familia() const { return visorPropio().familia(); }
    visor& visorPropio() const { return m_tabla.visorDe(*this); }

    bool entrar(CampoVisor campo);
    bool entrarPort();
    bool entrarEtiqueta();
    bool entrarUbicacion();
    bool rechazar(std::string_view motivo);

    TallerDialogo& m_taller;
    TablaVisores& m_tabla;
    const std::int16_t m_numero;
    bool m_rellena = false;
    bool m_visible = false;
    bool m_elegida = false;
    bool m_portImposible = false;
    std::array<bool, 4> m_tecleado{};        // by field: changed by the user, and neither taken nor replaced since
    const Familia* m_familiaPort = nullptr;  // in which the box last showed the display's port
    std::unique_ptr<Marco> m_frVis;
    std::unique_ptr<Rotulo> m_lbVis;
    std::unique_ptr<Boton> m_imPtc;
    std::unique_ptr<CajaTexto> m_txPort;
    std::unique_ptr<Rotulo> m_lbPav;
    std::unique_ptr<Lista> m_lstModo;
    std::unique_ptr<CajaTexto> m_txEtq;
    std::string m_ayudaPort;
    float m_anchoEtq = 0;
    std::unique_ptr<CajaTexto> m_txUbi;
    std::unique_ptr<Boton> m_imFoco;
};

}  // namespace sorvanel
