#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/bitacora.h"

namespace sorvanel {

// The one thread only stamps a line and leaves it in a letter box; a thread of its own puts it on the disk, however
// long the system takes for that. That thread is let go, not waited for: it holds nothing of the program but the letter
// box.
class BitacoraWin final : public Bitacora {
public:
    // The path of its file, UTF-8.
    explicit BitacoraWin(const std::string& ruta);
    // Waits as terminar() does.
    ~BitacoraWin() override;
    BitacoraWin(const BitacoraWin&) = delete;
    BitacoraWin& operator=(const BitacoraWin&) = delete;

    void anotar(std::string_view texto) override { meter({}, texto); }
    void terminar(std::string_view motivo) override;
    bool abrir() const override;

private:
    struct Buzon;
    void meter(std::string_view principio, std::string_view texto);
    void lanzar();
    void esperar();

    const std::shared_ptr<Buzon> m_buzon;
    bool m_conHilo = false;
};

}  // namespace sorvanel
