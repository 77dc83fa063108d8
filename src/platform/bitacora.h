#pragma once

#include <string_view>

namespace sorvanel {

// The program's log: what happened and when, for whoever asks the morning after. Nothing is noted that is not on the
// screen too. No call fails, throws or waits for the disk: where the log cannot be written, lines are kept for later,
// and beyond a bound lost, which it then says.
class Bitacora {
public:
    virtual ~Bitacora() = default;
    // One event of this moment, in the operator's language, UTF-8. Line ends in it become blanks.
    virtual void anotar(std::string_view texto) = 0;
    // The last line of this run, and why it ends: without it the next run says that this one came to no good end.
    // Waits until all lines are on the disk, some hundred milliseconds at most.
    virtual void terminar(std::string_view motivo) = 0;
    // Shows it to the user, in whatever the system has for text; returns at once. False when there is none yet.
    virtual bool abrir() const = 0;
};

}  // namespace sorvanel
