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

#include "harness/programa.h"
#include "harness/red.h"

namespace sorvanel::pruebas {
namespace {

int numeroDelEntorno(const char* nombre, int omision) {
    const char* texto = std::getenv(nombre);
    return texto != nullptr ? std::atoi(texto) : omision;
}

bool responde(HWND ventana) {
    DWORD_PTR nada = 0;
    return SendMessageTimeoutW(ventana, WM_NULL, 0, 0, SMTO_NORMAL, 5000, &nada) != 0;
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
        const std::size_t acto = elegir(10);
        anotar(acto < 4 ? "press " : acto < 6 ? "type in " : acto < 8 ? "key to " : "drag or twice ", control);
        if (acto < 4) {
            pulsar(control);
        } else if (acto == 9) {
            PostMessageW(control, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(2, 2));
            PostMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
        } else if (acto == 8) {
            arrastrar(control, static_cast<int>(elegir(800)) - 400, static_cast<int>(elegir(800)) - 400);
        } else if (acto < 6) {
            escribir(control);
        } else {
            teclear(control, tecla());
        }
    }

    // To the paused state by way of one accept, keeping what was done; a step a call, true once there.
    bool pausado() {
        if (m_programa.caja().ventana() != nullptr) {
            cerrarCaja();
        } else if (m_programa.seVe(IdControl::botPau)) {
            pulsarUna(IdControl::botPau);
        } else if (m_programa.seVe(IdControl::botOk)) {
            // A field that is refused gets its old text.
            if (const HWND campo = foco(m_programa.ventana())) teclear(campo, VK_ESCAPE);
            m_aceptado = true;
            pulsarUna(IdControl::botOk);
        } else if (!m_aceptado && m_programa.seVe(IdControl::botCfg)) {
            pulsarUna(IdControl::botCfg);
        }
        return m_aceptado && m_programa.seVe(IdControl::botRun) && m_programa.caja().ventana() == nullptr;
    }

    // A box may still be coming, and holds the program up while it is there.
    bool terminado() {
        if (m_programa.caja().ventana() != nullptr) cerrarCaja();
        PostMessageW(m_programa.ventana(), WM_CLOSE, 0, 0);
        return m_programa.proceso().esperarFin(200) == 0U;
    }

    // The last things that it did, and what it could press now.
    std::string huella() {
        std::string texto;
        for (const std::string& acto : m_actos) texto += "\n  " + acto;
        texto += "\n  now:";
        for (const HWND control : alcanzables()) texto += ' ' + std::to_string(GetDlgCtrlID(control));
        return texto + (m_aceptado ? " accepted " : " ") + m_programa.caja().texto();
    }

private:
    std::size_t elegir(std::size_t cuantos) {
        return std::uniform_int_distribution<std::size_t>(0, cuantos - 1)(m_azar);
    }

    // Not again and again: what comes quickly after the press of another button in that place is taken for its second.
    void pulsarUna(IdControl id) {
        pulsar(m_programa.control(id));
        esperar([&] { return !m_programa.seVe(id) || m_programa.caja().ventana() != nullptr; }, 2000);
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

    // All that can be pressed, but for the button that ends the program and the one that opens another, which would
    // stay and take the keys of the tests to come.
    std::vector<HWND> alcanzables() {
        std::vector<HWND> controles;
        for (const HWND ventana : m_programa.proceso().ventanas()) {
            if (!IsWindowVisible(ventana) || !IsWindowEnabled(ventana)) continue;
            EnumChildWindows(
                ventana,
                [](HWND uno, LPARAM dato) -> BOOL {
                    const int id = GetDlgCtrlID(uno);
                    const bool sirve = IsWindowVisible(uno) && IsWindowEnabled(uno) &&
                                       id != numero(IdControl::botOff) && id != numero(IdControl::botRegistro) &&
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
    bool m_aceptado = false;
};

// What each display shows and where: its surface, its caption and the caption's words.
std::map<int, std::string> vistos(const Programa& programa) {
    const auto sitio = [](HWND ventana) {
        const RECT r = lugar(ventana);
        return std::to_string(r.left) + "," + std::to_string(r.top) + " " + std::to_string(r.right) + "," +
               std::to_string(r.bottom) + " ";
    };
    std::map<int, std::string> todos;
    for (int n = 1; n <= 64; ++n) {
        if (!programa.seVe(IdControl::picRep, n)) continue;
        todos[n] = sitio(programa.control(IdControl::picRep, n));
        if (programa.seVe(IdControl::picCap, n))
            todos[n] += sitio(programa.control(IdControl::picCap, n)) + programa.texto(IdControl::picCap, n);
    }
    return todos;
}

TEST(Mono, LoQueHagaElMonoElArchivoYLaPantallaDicenLoMismo) {
    const int segundos = numeroDelEntorno("SORVANEL_MONO_SEGUNDOS", 10);
    const int semilla = numeroDelEntorno("SORVANEL_MONO_SEMILLA", 1);
    const int puerto = puertosLibres(3);
    Programa programa(
        Configuracion().reticula(3, 2).visor(puerto, 1, 1).visor(puerto + 1, 2, 1).visor(puerto + 2, 3, 2));
    ASSERT_TRUE(programa.marchar());
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

    ASSERT_TRUE(esperar([&] { return mono.pausado(); })) << "seed " << semilla << mono.huella();

    // Who reads the file anew must come to the same.
    const std::map<int, std::string> antes = vistos(programa);
    const std::string archivo = programa.leerINI();
    ASSERT_TRUE(esperar([&] { return mono.terminado(); })) << "it ends by itself";
    programa.arrancar();
    const auto listo = [&] { return mono.pausado() || programa.seVe(IdControl::botOk); };
    ASSERT_TRUE(esperar(listo)) << "seed " << semilla << mono.huella();
    EXPECT_TRUE(esperar([&] { return vistos(programa) == antes; })) << "seed " << semilla << mono.huella() << "\n"
                                                                    << archivo << testing::PrintToString(antes) << "\n"
                                                                    << testing::PrintToString(vistos(programa));
    EXPECT_EQ(programa.leerINI(), archivo);
    RecordProperty("visores", static_cast<int>(antes.size()));
    EXPECT_TRUE(esperar([&] { return mono.terminado(); })) << "it ends by itself";
}

}  // namespace
}  // namespace sorvanel::pruebas
