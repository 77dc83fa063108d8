#pragma once

#include <string>

namespace sorvanel::medidas {

// How a part is run.
struct Modo {
    bool breve = false;   // a few turns, to try it out
    bool romper = false;  // what it checks is broken on purpose: then it must fail

    int veces(int enteras, int pocas) const { return breve || romper ? pocas : enteras; }
};

// Each does its part and prints what it saw; its last line, begun with "= ", is its result in a few words. It throws,
// or answers false, where a limit was passed.
bool aguantarCorte(const Modo& modo);
bool aguantarEstorbos(const Modo& modo);
bool aguantarBasura(const Modo& modo);
bool aguantarAvalancha(const Modo& modo);
bool aguantarReconexiones(const Modo& modo);
bool aguantarConfiguraciones(const Modo& modo);
bool aguantarMonitores(const Modo& modo);

}  // namespace sorvanel::medidas
