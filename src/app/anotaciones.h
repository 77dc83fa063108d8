#pragma once

#include <string>

#include "platform/bitacora.h"
#include "platform/formulario.h"
#include "platform/programa.h"
#include "platform/sistema.h"
#include "screen/oScreen.h"

// How the log puts things.

namespace sorvanel {

// "1.02A": the minor number with two digits, the revision from 1 as a letter.
std::string textoVersion(const Version& version);
// "monitor \\.\DISPLAY1, 1920x1080 al 150 %, de 2 que hay".
std::string textoMonitor(const oScreen& pantalla);
// Why the program ends; with its own button, or else.
const char* textoCierre(MotivoCierre motivo, bool conBoton);

// Boxes whose texts are in the log too.
class AvisosAnotados final : public Avisos {
public:
    // Both must outlive it.
    AvisosAnotados(Avisos& avisos, Bitacora& bitacora) : m_avisos(avisos), m_bitacora(bitacora) {}

    void critico(const std::string& texto) override;
    void informacion(const std::string& texto) override;
    void cerrar() override { m_avisos.cerrar(); }

private:
    void anotar(std::string texto);

    Avisos& m_avisos;
    Bitacora& m_bitacora;
};

}  // namespace sorvanel
