#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/accesorINI.h"
#include "platform/archivos.h"
#include "platform/arrastrable.h"
#include "platform/color.h"
#include "platform/programa.h"

namespace sorvanel {

constexpr std::int16_t MAXIMO_VISORES = 64;

// The section of the settings file that holds display n.
inline std::string seccionVisor(int n) {
    return "VISOR_" + std::to_string(n);
}

// The one place that knows where the settings lie and how their values are read.
class comun {
public:
    static constexpr std::int16_t MAXROWS = 8;
    static constexpr std::int16_t MAXCOLS = 8;
    static constexpr std::int16_t MAXWIDHORZ = 32;  // pixels
    static constexpr std::int16_t MAXWIDVERT = 32;  // pixels
    static constexpr std::int16_t MAXWIDLABL = 6;

    // All three must outlive it.
    comun(const Programa& programa, Archivos& archivos, AlmacenPerfil& perfil);

    // Makes the program's folder if need be, and takes in what another program wrote to the file since.
    void refrescar() const;
    // An accessor on the settings file, on that section, after refrescar().
    AccesorINI abrir(std::string_view seccion = {}) const;
    // The same without it: for whoever reads one part of many, and has been told that the file was asked.
    AccesorINI consultar(std::string_view seccion = {}) const;
    // Points the accessor at the settings file; an empty section leaves its section as it is.
    void prepararINI(AccesorINI& accesor, std::string_view seccion) const;

    // The key's value, or the default when it is missing, not a number, or too large for its type.
    std::int16_t valDflt(const AccesorINI& accesor, std::string_view clave, std::int16_t omision) const;
    std::int32_t valDflt(const AccesorINI& accesor, std::string_view clave, std::int32_t omision) const;
    // Text comes as it is stored.
    std::string valDflt(const AccesorINI& accesor, std::string_view clave, const char* omision) const;
    // A colour that can be painted, whatever the text is; the default is such a text too.
    Color valColor(const AccesorINI& accesor, std::string_view clave, const char* omision) const;

    // Upper bound before lower bound.
    static void limitar(std::int16_t& valor, std::int16_t superior, std::int16_t inferior);
    // The same for a value that may be absent; an absent one stays so.
    static void vLimitar(std::optional<std::int16_t>& valor, std::int16_t superior, std::int16_t inferior);

    // The user's, with which numbers are written.
    std::string separadorDecimal() const { return m_programa.separadorDecimal(); }

    // The settings file and why it cannot be read just now; empty when it can, or when there is none.
    std::string ilegible() const;
    const std::string& rutaINI() const { return m_rutaINI; }
    // The log, beside it.
    const std::string& rutaRegistro() const { return m_rutaRegistro; }
    const std::string& rutaCopia() const { return m_rutaCopia; }
    // Where a copy that defines displays is kept when one that defines none takes its place.
    const std::string& rutaAnterior() const { return m_rutaAnterior; }
    // Puts what is pending on the disk, makes an empty settings file if there is none, and copies
    // it. False when any step of that failed; the copy may then be an earlier one.
    bool hacerCopiaDeINI() const;
    // Puts the copy back, whole, and drops what was pending. False when there is no copy to be read; false, too, when
    // the file cannot be replaced: then every reader finds what the copy holds, and the file follows when it can. The
    // copy stays.
    bool restaurarCopiaDeINI() const;
    // Drops what is pending, and no more.
    void descartarCambios() const;
    // Waits until all that is pending is on the disk.
    void volcar() const;

    // The mouse, pressed on that window, drags it from now on; returns when the button is up.
    static void Arrastre(Arrastrable& ventana);

    // "BBGGRR", six upper-case hexadecimal digits. Only for 24-bit colours.
    static std::string Long2RGB(Color color);
    // Up to the first character that is no hexadecimal digit; 0 when there is none.
    static Color rgb2Long(std::string_view texto);

private:
    bool apartarCopia(const std::string& nueva) const;

    const Programa& m_programa;
    Archivos& m_archivos;
    AlmacenPerfil& m_perfil;
    const std::string m_carpeta;
    const std::string m_rutaINI;
    const std::string m_rutaCopia;
    const std::string m_rutaAnterior;
    const std::string m_rutaRegistro;
};

}  // namespace sorvanel
