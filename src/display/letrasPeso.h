#pragma once

#include <array>
#include <string_view>

#include "display/encajeVisor.h"
#include "platform/superficie.h"

namespace sorvanel {

// The letters of a weight: those that its cell was fitted for, and smaller ones for a text that is wider than its area.
// What is known of them is kept: a weight like the one before asks the system for nothing.
class LetrasPeso {
public:
    struct Letra {
        Fuente fuente;
        float y = 0;     // top of the line, twips
        float alto = 0;  // of the line
        // Within the line, of all characters that have been measured.
        float tintaSuperior = 0, tintaInferior = 0;

    private:
        friend class LetrasPeso;
        std::array<float, 128> anchos{};  // of single characters; 0: not measured yet
    };

    explicit LetrasPeso(Superficie& peso) : m_peso(peso) {}
    LetrasPeso(const LetrasPeso&) = delete;
    LetrasPeso& operator=(const LetrasPeso&) = delete;

    // A new fit; the surface has its font then.
    void encajar(const EncajeVisor& encaje);
    // The surface was given another font: it has those of the fit again.
    void reponer();

    struct Escritura {
        const Letra* letra = nullptr;
        float ancho = 0;  // of the text in these, twips
    };
    // The largest letters with which the text fits; the surface has their font then. None where they would be
    // lower than 8 pixels.
    Escritura para(std::string_view texto);
    // The same of another text, in the letters that para() answered last.
    float ancho(std::string_view texto) { return ancho(*m_puesta, texto); }

private:
    void soltar() { m_puesta = nullptr; }
    const Letra* poner(Letra& letra);
    float ancho(Letra& letra, std::string_view texto);
    void reducir(std::string_view texto, float entero);

    Superficie& m_peso;
    float m_derecha = 0;  // what a text may take
    float m_medio = 0;    // of the digits' ink
    Letra m_entera, m_menor;
    float m_reducidoPara = 0;  // how wide the text is that the smaller ones were made for; 0: for none
    bool m_legible = false;    // these are large enough
    Letra* m_puesta = nullptr;
};

}  // namespace sorvanel
