#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/win32/base/ventanaMensajes.h"
#include "platform/win32/network/direccionesWin.h"

namespace sorvanel {

// Looks host names up on threads of its own, since the system's call may block for many seconds,
// and answers on the one thread. A name that is being looked up already is not asked for again:
// its answer serves everybody who waits, so a caller that gives up and tries anew every three
// seconds still gets the answer of a server that needs five.
//
// The threads are let go, never waited for: the program must end at once though a name server is
// silent. They hold nothing of the program but the letter box, which outlives this object for
// them, and a Winsock reference of their own.
class BuscadorNombres : private ReceptorMensajes {
public:
    // Empty when the name has no address.
    using Respuesta = std::function<void(const Direcciones&)>;

    explicit BuscadorNombres(VentanaMensajes& ventana);
    ~BuscadorNombres();
    BuscadorNombres(const BuscadorNombres&) = delete;
    BuscadorNombres& operator=(const BuscadorNombres&) = delete;

    // Answers later, never from within, and not at all once that number was given back.
    void pedir(const std::string& host, UINT numero, Respuesta respuesta);

private:
    struct Buzon;
    struct Espera {
        UINT numero;
        Respuesta respuesta;
    };
    static constexpr std::size_t HILOS = 4;

    void alMensaje(WPARAM, LPARAM) override { recoger(); }
    void alTic() override;
    void recoger();
    void contestar(const std::string& host, const Direcciones& direcciones);
    static bool lanzar(const std::shared_ptr<Buzon>& buzon, const std::string& host);

    VentanaMensajes& m_ventana;
    const UINT m_numero;
    std::shared_ptr<Buzon> m_buzon;
    std::map<std::string, std::vector<Espera>> m_esperas;  // by host, one thread each
};

}  // namespace sorvanel
