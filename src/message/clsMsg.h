#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "message/ajustesMensaje.h"
#include "platform/programa.h"
#include "platform/sistema.h"
#include "platform/superficie.h"

namespace sorvanel {

// The window's bottom edge, where the message strip lies. The window implements it.
class MuelleMensaje {
public:
    virtual ~MuelleMensaje() = default;

    // The strip. It belongs to the window and outlives the message.
    virtual Superficie& picMsg() = 0;
    // Gives the strip that height (twips) and docks it along the bottom, above the buttons.
    virtual void acoplar(float alto) = 0;
    // The strip came or went: what is kept visible of a transparent window changes with it.
    virtual void alMostrarFranja(bool visible) = 0;
};

// One line of text along the window's bottom edge, still or scrolling from right to left. Every
// change is saved and seen at once. The strip is visible exactly while the message is in use.
class clsMsg {
public:
    static constexpr int INTERVALO = 10;  // milliseconds

    // Loads the message and docks the strip; all of these must outlive it.
    clsMsg(const comun& com, const Programa& programa, Fabrica& fabrica, const Reloj& reloj, MuelleMensaje& muelle);
    ~clsMsg();
    clsMsg(const clsMsg&) = delete;
    clsMsg& operator=(const clsMsg&) = delete;

    bool enUso() const { return m_ajustes.enUso; }
    void enUso(bool si);
    const std::string& texto() const { return m_ajustes.texto; }
    void texto(const std::string& texto);
    Color colorFondo() const { return m_ajustes.colorFondo; }
    void colorFondo(Color color);
    Color colorTexto() const { return m_ajustes.colorTexto; }
    void colorTexto(Color color);
    const FuenteMensaje& getFont() const { return m_ajustes.fuente; }
    // No, and nothing changed, when that font cannot be had in that size.
    bool letFont(const FuenteMensaje& fuente);
    std::int32_t velocidad() const { return m_ajustes.velocidad; }
    void velocidad(std::int32_t pixeles);  // every 10 ms; 0 or less: still

    void marcha();
    void paro();
    bool enMarcha() const { return m_enMarcha; }
    // After the window changed its size or scale: docked and shown anew.
    void redisponer();

private:
    struct Tramo {
        std::string_view texto;  // within m_ajustes.texto
        double x;                // from the text's beginning, twips
        float ancho;
    };

    void tim_tic();
    bool aplicarFuente(const FuenteMensaje& fuente);
    void medirTexto();
    void mostrarFranja();
    void mostrarDeNuevo();
    void retocar();
    void limpiarFranja();
    void reiniciar();
    void pintarQuieto();
    float avanceDebido();
    void imprimirEntrantes(float desde);
    void guardar() const;
    bool desplaza() const { return m_ajustes.velocidad > 0; }

    const comun& m_com;
    const Programa& m_programa;
    const Reloj& m_reloj;
    MuelleMensaje& m_muelle;
    Superficie& m_franja;
    std::unique_ptr<Temporizador> m_tim;
    AjustesMensaje m_ajustes;
    bool m_enMarcha = false;
    std::vector<Tramo> m_tramos;
    // A long text is millions of twips wide: too many for a float to add up a fraction of a pixel to.
    double m_anchoTexto = 0;
    std::size_t m_siguiente = 0;  // the first piece that is not wholly printed yet
    double m_posicion = 0;        // of the text's beginning in the strip
    float m_recorrido = 0;        // since m_inicio, twips
    std::int64_t m_inicio = 0;
};

}  // namespace sorvanel
