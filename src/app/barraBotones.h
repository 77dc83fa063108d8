#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "platform/formulario.h"

namespace sorvanel {

enum class Estado { iniciando = 0, configurando = 1, pausa = 2, marcha = 3 };

// The strip of buttons along the bottom of the window, with the version label. It knows which
// buttons each run state shows and where they stand; what they do is told to it.
class BarraBotones {
public:
    explicit BarraBotones(Formulario& formulario);

    // Lays the bar out for a window of that size, twips.
    void disponer(float ancho, float alto);
    void estado(Estado estado);
    void version(const std::string& texto);
    // What went wrong at the last start: the version label's tip says it. Empty: nothing.
    void incidencia(const std::string& texto);
    void alPulsar(IdControl id, std::function<void()> accion);
    void refrescar();

    // The bar's place in the window.
    Rectangulo lugar() const { return m_picBot->lugar(); }

private:
    Boton& boton(IdControl id);
    void disponerDerecha(float ancho);
    float disponerHerramientas(float limite);
    void pintarFondo();
    void pintarVersion(float izquierda, float derecha);

    Formulario& m_formulario;
    std::unique_ptr<Superficie> m_picBot;
    std::unique_ptr<Superficie> m_lbVer;
    std::array<std::unique_ptr<Boton>, 10> m_botones;
    std::string m_version;
    float m_arriba = 0;
};

}  // namespace sorvanel
