#pragma once

#include <string>
#include <vector>

#include "harness/programa.h"

namespace sorvanel::medidas {

// A settings file whose displays are numbered: its captions, and every byte that is none.
struct Estado {
    std::vector<int> numeros;
    std::string resto;

    bool operator==(const Estado&) const = default;
};

// -1 for a caption that is no number.
Estado leerEstado(const std::string& bytes);

// Goes from pause into configuration and opens the displays' tool.
void abrirVisores(pruebas::Programa& programa, const pruebas::VentanaHerramienta& visores);
// Gives a display that caption, as from the keyboard.
void numerar(const pruebas::VentanaHerramienta& visores, int visor, int numero);

// One weight to a display's own port, until it says it. Throws when it does not come to.
void exigirPeso(const pruebas::Programa& programa, int visor, int puerto, int valor);

}  // namespace sorvanel::medidas
