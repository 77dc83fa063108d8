#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "platform/formulario.h"

namespace sorvanel {

enum class Estado { iniciando = 0, configurando = 1, pausa = 2, marcha = 3 };

// What the bar says in words, for those who stand too far off to tell one picture from another.
enum class Aviso { ninguno, leyendo, configurando, cancelado, enPausa };

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
    // In the room that the buttons leave: as large as it fits, in part where it does not, none where there is none.
    void avisar(Aviso aviso);
    // Whether what that button opens is open.
    void hundido(IdControl id, bool si);
    void refrescar();
    // In the colours of now.
    void repintar();

    // The bar's place in the window.
    Rectangulo lugar() const { return m_picBot->lugar(); }

private:
    Boton& boton(IdControl id);
    void disponerDerecha(float ancho);
    float disponerHerramientas(float limite);
    struct Colores {
        Color fondo, filo, texto, menor;
    };
    Colores colores() const;
    void pintarFondo();
    void pintarVersion();
    void situarAviso();
    void pintarAviso(const std::string& titular, const std::string& breve, const std::string& detalle, float libre);
    std::string recortar(std::string texto, float ancho) const;

    Formulario& m_formulario;
    std::unique_ptr<Superficie> m_picBot;
    std::unique_ptr<Superficie> m_lbVer;
    std::unique_ptr<Superficie> m_lbEstado;
    std::array<std::unique_ptr<Boton>, 10> m_botones;
    std::string m_version;
    Aviso m_aviso = Aviso::ninguno;
    float m_arriba = 0;
    float m_finHerramientas = 0;
    float m_inicioVersion = 0;
    float m_finVersion = 0;
};

}  // namespace sorvanel
