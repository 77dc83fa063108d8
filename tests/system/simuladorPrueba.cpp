#include <gmock/gmock.h>

#include <stdexcept>

#include "harness/archivo.h"
#include "harness/concentrador.h"
#include "harness/configuracion.h"
#include "harness/fotografia.h"
#include "harness/programa.h"
#include "harness/texto.h"

namespace sorvanel::pruebas {
namespace {

// The project's simulator, as a user runs it; ended when this is dropped.
class Simulador {
public:
    explicit Simulador(const std::string& argumentos) {
        STARTUPINFOW inicio{};
        inicio.cb = sizeof inicio;
        const std::wstring ejecutable = carpetaPropia() + L"\\" + ancho(SIMULADOR_RELATIVO);
        std::wstring orden = L"\"" + ejecutable + L"\" " + ancho(argumentos);
        if (!CreateProcessW(ejecutable.c_str(), orden.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                            nullptr, &inicio, &m_proceso))
            throw std::runtime_error("cannot start " + utf8(ejecutable));
    }
    ~Simulador() {
        TerminateProcess(m_proceso.hProcess, 99);
        CloseHandle(m_proceso.hThread);
        CloseHandle(m_proceso.hProcess);
    }
    Simulador(const Simulador&) = delete;
    Simulador& operator=(const Simulador&) = delete;

private:
    PROCESS_INFORMATION m_proceso{};
};

TEST(Simulador, ElProgramaLeeDeSuConcentrador) {
    constexpr std::int32_t VERDE = 0x00FF00;
    const std::string puerto = std::to_string(puertoTCPLibre());
    Configuracion ajustes;
    ajustes.reticula(2, 1);
    for (int i = 1; i <= 2; ++i) ajustes.visor(1202 + i, i, 1).clave("Protocolo", "Pavona").clave("ModoBulk", "0");
    ajustes.seccion("PAVONA").clave("Host", "127.0.0.1").clave("Port", puerto);
    ajustes.seccion("VISORES").clave("textoPeso", "00FF00").clave("fondoPeso", "000000");
    Programa programa(ajustes);
    const Simulador simulador("concentrador --direcciones 12/3,12/4 --peso direccion --puerto " + puerto);
    programa.arrancar();
    EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "1203"));
    EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 2, "1204"));
    EXPECT_TRUE(esperar([&] { return Fotografia(programa.control(IdControl::picRep, 1)).cuantos(VERDE) > 0; }));
    EXPECT_TRUE(programa.terminar());
}

}  // namespace
}  // namespace sorvanel::pruebas
