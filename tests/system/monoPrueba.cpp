// A monkey at the tools: random, seeded, bounded presses and keys. Whatever it did, the program lives,
// answers, and shows what its file says. SORVANEL_MONO_SEGUNDOS and SORVANEL_MONO_SEMILLA change how
// long and how.

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <deque>
#include <map>
#include <random>
#include <vector>

#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/esperar.h"
#include "harness/programa.h"
#include "harness/texto.h"
#include "harness/ventana.h"

namespace sorvanel::pruebas {
namespace {

int numeroDelEntorno(const char* nombre, int omision) {
    const char* texto = std::getenv(nombre);
    return texto != nullptr ? std::atoi(texto) : omision;
}

class Mono {
public:
    Mono(Programa& programa, unsigned semilla) : m_programa(programa), m_azar(semilla) {}

    void paso() {
        if (m_programa.caja().ventana() != nullptr) {
            cerrarCaja();
            return;
        }
        const std::vector<HWND> controles = alcanzables();
        if (controles.empty()) return;
        const HWND control = controles[elegir(controles.size())];
        const std::size_t acto = elegir(8);
        anotar(acto < 4 ? "press " : acto < 6 ? "type in " : "key to ", control);
        if (acto < 4) {
            pulsar(control);
        } else if (acto < 6) {
            escribir(control);
        } else {
            teclear(control, tecla());
        }
    }

    // The last things that it did.
    std::string huella() const {
        std::string texto;
        for (const std::string& acto : m_actos) texto += "\n  " + acto;
        return texto;
    }

private:
    std::size_t elegir(std::size_t cuantos) {
        return std::uniform_int_distribution<std::size_t>(0, cuantos - 1)(m_azar);
    }

    void anotar(const char* acto, HWND control) {
        m_actos.push_back(acto + std::to_string(GetDlgCtrlID(control)));
        if (m_actos.size() > 8) m_actos.pop_front();
    }

    int tecla() {
        constexpr std::array<int, 10> TECLAS{VK_TAB,    VK_UP,     VK_DOWN,   VK_LEFT, VK_RIGHT,
                                             VK_RETURN, VK_ESCAPE, VK_DELETE, VK_HOME, VK_SPACE};
        return TECLAS[elegir(TECLAS.size())];
    }

    void escribir(HWND control) {
        constexpr std::wstring_view LETRAS = L"0123456789,;./-+ aÑ€#\"=[]%";
        for (std::size_t i = elegir(5); i < 5; ++i) PostMessageW(control, WM_CHAR, LETRAS[elegir(LETRAS.size())], 1);
    }

    // Message boxes are answered, the system's own windows cancelled.
    void cerrarCaja() {
        const HWND caja = m_programa.caja().ventana();
        const int boton = GetDlgItem(caja, IDCANCEL) != nullptr ? IDCANCEL : IDOK;
        PostMessageW(caja, WM_COMMAND, static_cast<WPARAM>(boton), reinterpret_cast<LPARAM>(GetDlgItem(caja, boton)));
        esperar([&] { return !IsWindow(caja); }, 2000);
    }

    // All that can be pressed, but for the button that ends the program.
    std::vector<HWND> alcanzables() {
        std::vector<HWND> controles;
        for (const HWND ventana : m_programa.proceso().ventanas()) {
            if (!IsWindowVisible(ventana) || !IsWindowEnabled(ventana)) continue;
            EnumChildWindows(
                ventana,
                [](HWND uno, LPARAM dato) -> BOOL {
                    const int id = GetDlgCtrlID(uno);
                    const bool sirve = IsWindowVisible(uno) && IsWindowEnabled(uno) &&
                                       id != numero(IdControl::botOff) &&
                                       (id < numero(IdControl::picRep) || id >= numero(IdControl::frVis));
                    if (sirve) reinterpret_cast<std::vector<HWND>*>(dato)->push_back(uno);
                    return TRUE;
                },
                reinterpret_cast<LPARAM>(&controles));
        }
        return controles;
    }

    Programa& m_programa;
    std::mt19937 m_azar;
    std::deque<std::string> m_actos;
};

// Section, key, value, as they stand in the file.
std::map<std::string, std::map<std::string, std::string>> leer(const std::string& ini) {
    std::map<std::string, std::map<std::string, std::string>> secciones;
    std::string seccion;
    for (std::size_t inicio = 0; inicio < ini.size();) {
        const std::size_t fin = std::min(ini.find('\r', inicio), ini.size());
        const std::string linea = ini.substr(inicio, fin - inicio);
        inicio = fin + 2;
        if (linea.starts_with("[")) {
            seccion = linea.substr(1, linea.find(']') - 1);
        } else if (const auto igual = linea.find('='); igual != std::string::npos) {
            secciones[seccion][linea.substr(0, igual)] = linea.substr(igual + 1);
        }
    }
    return secciones;
}

bool responde(HWND ventana) {
    DWORD_PTR nada = 0;
    return SendMessageTimeoutW(ventana, WM_NULL, 0, 0, SMTO_NORMAL, 5000, &nada) != 0;
}

TEST(Mono, LoQueHagaElMonoElArchivoYLaPantallaDicenLoMismo) {
    const int segundos = numeroDelEntorno("SORVANEL_MONO_SEGUNDOS", 10);
    const int semilla = numeroDelEntorno("SORVANEL_MONO_SEMILLA", 1);
    const int puerto = puertosLibres(3);
    Programa programa(
        Configuracion().reticula(3, 2).visor(puerto, 1, 1).visor(puerto + 1, 2, 1).visor(puerto + 2, 3, 2));
    programa.arrancar();
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    Mono mono(programa, static_cast<unsigned>(semilla));
    int pasos = 0;
    for (const ULONGLONG fin = GetTickCount64() + static_cast<ULONGLONG>(segundos) * 1000; GetTickCount64() < fin;
         ++pasos) {
        mono.paso();
        if (responde(programa.ventana())) continue;
        // It may have walked to the button that ends the program: then that ends well, and it goes on.
        ASSERT_EQ(programa.proceso().esperarFin(PLAZO), 0U)
            << "seed " << semilla << ", step " << pasos << mono.huella();
        programa.arrancar();
    }
    RecordProperty("pasos", pasos);

    // To the paused state, by whatever way is open.
    ASSERT_TRUE(esperar([&] {
        if (programa.caja().ventana() != nullptr) {
            mono.paso();
        } else if (programa.seVe(IdControl::botPau)) {
            pulsar(programa.control(IdControl::botPau));
        } else if (programa.seVe(IdControl::botCan)) {
            pulsar(programa.control(IdControl::botCan));
            responde(programa.ventana());
            pulsar(programa.control(IdControl::botOk));
        }
        responde(programa.ventana());
        return programa.seVe(IdControl::botRun) && programa.caja().ventana() == nullptr;
    }));
    ASSERT_TRUE(responde(programa.ventana()));

    auto secciones = leer(programa.leerINI());
    int vistos = 0;
    for (int n = 1; n <= 64; ++n) {
        const auto seccion = secciones.find("VISOR_" + std::to_string(n));
        if (seccion == secciones.end()) break;
        const std::string caption = programa.texto(IdControl::picCap, n);
        if (!programa.seVe(IdControl::picRep, n)) continue;
        ++vistos;
        EXPECT_NE(seccion->second["Ubicacion"], "") << n;
        if (programa.seVe(IdControl::picCap, n)) {
            std::wstring escrita;
            const std::string& bytes = seccion->second["Etiqueta"];
            escrita.resize(bytes.size());
            const int largo = MultiByteToWideChar(1252, 0, bytes.data(), static_cast<int>(bytes.size()), escrita.data(),
                                                  static_cast<int>(escrita.size()));
            escrita.resize(static_cast<std::size_t>(std::max(largo, 0)));
            EXPECT_EQ(caption, utf8(escrita)) << n;
        }
    }
    std::printf("%d steps, %d displays on the screen\n", pasos, vistos);
    EXPECT_TRUE(programa.terminar()) << "it ends by itself";
}

}  // namespace
}  // namespace sorvanel::pruebas
