#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace sorvanel {

// The marks to the right of the digits: E a plate with the letter, C an upward triangle, D a downward
// one.
struct MarcasVisor {
    bool E = false;
    bool C = false;
    bool D = false;

    bool operator==(const MarcasVisor&) const = default;
};

// What a weight frame says.
struct Trama {
    bool E = false;
    bool C = false;
    bool D = false;
    std::int32_t milesimas = 0;  // thousandths of the display's unit, 0..99999999

    bool operator==(const Trama&) const = default;
};

// A frame is exactly twelve characters, "[EX][CNX][DZX]+" and eight digits; nothing for any other text.
std::optional<Trama> leerTrama(std::string_view texto);

}  // namespace sorvanel
