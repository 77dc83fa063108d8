#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/accesorINI.h"
#include "config/entorno.h"
#include "platform/arrastrable.h"
#include "platform/color.h"

namespace sorvanel {

// The one place that knows where the settings lie and how their values are read. It keeps no
// state: whoever needs one makes one.
class comun {
public:
    static constexpr std::int16_t MAXROWS = 8;
    static constexpr std::int16_t MAXCOLS = 8;
    static constexpr std::int16_t MAXWIDHORZ = 32;  // pixels
    static constexpr std::int16_t MAXWIDVERT = 32;  // pixels
    static constexpr std::int16_t MAXWIDLABL = 6;

    explicit comun(const Entorno& entorno) : m_entorno(entorno) {}

    // An accessor on the settings file, on that section.
    AccesorINI abrir(std::string_view seccion = {}) const;
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

    // The settings file and why it cannot be read just now; empty when it can, or when there is none.
    std::string ilegible() const;
    std::string rutaINI() const;
    std::string rutaCopia() const;
    // Where a copy that defines displays is kept when one that defines none takes its place.
    std::string rutaAnterior() const;
    // Puts what is pending on the disk, makes an empty settings file if there is none, and copies
    // it. False when any step of that failed; the copy may then be an earlier one.
    bool hacerCopiaDeINI() const;
    // Puts the copy back, whole, and drops what was pending. False when there is no copy to be read; false, too, when
    // the file cannot be replaced: then every reader finds what the copy holds, and the file follows when it can. The
    // copy stays.
    bool restaurarCopiaDeINI() const;
    // Drops what is pending, and no more.
    void descartarCambios() const;

    // The mouse, pressed on that window, drags it from now on; returns when the button is up.
    static void Arrastre(Arrastrable& ventana);

    // "BBGGRR", six upper-case hexadecimal digits. Only for 24-bit colours.
    static std::string Long2RGB(Color color);
    // Up to the first character that is no hexadecimal digit; 0 when there is none.
    static Color rgb2Long(std::string_view texto);

private:
    bool apartarCopia(const std::string& nueva) const;

    const Entorno& m_entorno;
};

}  // namespace sorvanel
