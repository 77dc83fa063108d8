#pragma once

namespace sorvanel {

// COM for the one thread, as accessibility and the task bar use it: from the first who needs it until the program's
// end, since a screen reader may hold what it was handed for that long. Nobody pays for it at the start.
class SesionOLE {
public:
    SesionOLE() = default;
    ~SesionOLE();
    SesionOLE(const SesionOLE&) = delete;
    SesionOLE& operator=(const SesionOLE&) = delete;

    // Where it fails, the system refuses what needs it.
    void abrir();

private:
    bool m_abierta = false;
};

}  // namespace sorvanel
