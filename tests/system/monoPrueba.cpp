// A monkey at the tools: random, seeded, bounded presses and keys. Whatever it did, the program lives,
// answers, and shows what its file says. SORVANEL_MONO_SEGUNDOS and SORVANEL_MONO_SEMILLA change how
// long and how.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
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
        const std::size_t acto = elegir(9);
        anotar(acto < 4 ? "press " : acto < 6 ? "type in " : acto < 8 ? "key to " : "drag ", control);
        if (acto < 4) {
            pulsar(control);
        } else if (acto == 8) {
            arrastrar(control);
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
            pulsar(m_programa.control(IdControl::botPau));
        } else if (m_programa.seVe(IdControl::botOk)) {
            // A field that is refused gets its old text.
            if (const HWND campo = foco(m_programa.ventana())) teclear(campo, VK_ESCAPE);
            // What is told from here on is of the displays that are placed then.
            m_dicho.clear();
            m_aceptado = true;
            pulsar(m_programa.control(IdControl::botOk));
            esperar([&] { return !m_programa.seVe(IdControl::botOk) || m_programa.caja().ventana() != nullptr; }, 2000);
        } else if (!m_aceptado && m_programa.seVe(IdControl::botCfg)) {
            pulsar(m_programa.control(IdControl::botCfg));
        }
        return m_aceptado && m_programa.seVe(IdControl::botRun) && m_programa.caja().ventana() == nullptr;
    }

    // Whether the last box names that display; one that is there is closed.
    bool avisado(int n) {
        if (m_programa.caja().ventana() != nullptr) cerrarCaja();
        return m_dicho.find("Visor #" + std::to_string(n) + ":") != std::string::npos;
    }

    // A box may still be coming, and holds the program up while it is there.
    bool terminado() {
        if (m_programa.caja().ventana() != nullptr) cerrarCaja();
        PostMessageW(m_programa.ventana(), WM_CLOSE, 0, 0);
        return m_programa.proceso().esperarFin(200) == 0U;
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

    // What is no handle takes it for a double click.
    void arrastrar(HWND control) {
        const auto lejos = [&] { return static_cast<int>(elegir(800)) - 400; };
        const bool asa =
            GetDlgCtrlID(control) == numero(IdControl::imDrgXY) || GetDlgCtrlID(control) == numero(IdControl::imDrgWH);
        const int x = asa ? lejos() : 2, y = asa ? lejos() : 2;
        PostMessageW(control, asa ? WM_LBUTTONDOWN : WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(2, 2));
        PostMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y));
        PostMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
    }

    // Message boxes are answered, the system's own windows cancelled.
    void cerrarCaja() {
        const HWND caja = m_programa.caja().ventana();
        m_dicho = m_programa.caja().texto();
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
    std::string m_dicho;
    bool m_aceptado = false;
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

std::string deWindows(const std::string& bytes) {
    std::wstring letras(bytes.size(), L'\0');
    const int largo = MultiByteToWideChar(1252, 0, bytes.data(), static_cast<int>(bytes.size()), letras.data(),
                                          static_cast<int>(letras.size()));
    letras.resize(static_cast<std::size_t>(std::max(largo, 0)));
    return utf8(letras);
}

// "0,5;0,25" or whatever a file says there instead.
std::pair<double, double> pareja(std::string texto, char entre, double omision) {
    std::replace(texto.begin(), texto.end(), entre == ';' ? ',' : ';', '.');
    double uno = omision, dos = omision;
    if (const auto corte = texto.find(entre); corte != std::string::npos) {
        uno = std::atof(texto.c_str());
        dos = std::atof(texto.c_str() + corte + 1);
    }
    return {uno, dos};
}

// Where the file says that the cells are.
class Parrilla {
public:
    Parrilla(std::map<std::string, std::string>& seccion, const RECT& ventana) {
        constexpr int RESERVA = 32;
        const int ancho = ventana.right - ventana.left, alto = ventana.bottom - ventana.top;
        const auto [x, y] = pareja(seccion["Posicion"], ';', 0);
        const auto [w, h] = pareja(seccion["Dimensiones"], ';', 1);
        m_x = ventana.left + x * ancho;
        m_y = ventana.top + y * alto;
        m_w = w * ancho;
        m_h = h * (alto - RESERVA);
        std::sscanf(seccion["FilasColumnas"].c_str(), "%dx%d", &m_filas, &m_columnas);
        std::sscanf(seccion["gruesoVertical"].c_str(), "%d", &m_vertical);
        std::sscanf(seccion["gruesoHorizontal"].c_str(), "%d", &m_horizontal);
    }

    // Empty for what is not on the grid.
    RECT celda(const std::string& ubicacion) const {
        const auto [fila, columna] = pareja(ubicacion, ',', 0);
        if (fila < 1 || fila > m_filas || columna < 1 || columna > m_columnas) return {};
        const double ancho = (m_w - m_vertical * (m_columnas + 1)) / m_columnas;
        const double alto = (m_h - m_horizontal * (m_filas + 1)) / m_filas;
        const double x = m_x + m_vertical + (columna - 1) * (ancho + m_vertical);
        const double y = m_y + m_horizontal + (fila - 1) * (alto + m_horizontal);
        const auto pixel = [](double v) { return static_cast<LONG>(std::lround(v)); };
        return {pixel(x), pixel(y), pixel(x + ancho), pixel(y + alto)};
    }

private:
    double m_x = 0, m_y = 0, m_w = 0, m_h = 0;
    int m_filas = 4, m_columnas = 1, m_vertical = 4, m_horizontal = 4;
};

// For who reads of a failure: what the program shows, and where its focus is.
std::string estado(const Programa& programa) {
    std::string texto = programa.proceso().vivo() ? "alive, focus on " : "ended, focus on ";
    const HWND enfocado = foco(programa.ventana());
    texto += std::to_string(GetDlgCtrlID(enfocado)) + " \"" + pruebas::texto(enfocado) + "\"; seen:";
    EnumChildWindows(
        programa.ventana(),
        [](HWND uno, LPARAM dato) -> BOOL {
            if (IsWindowVisible(uno))
                *reinterpret_cast<std::string*>(dato) +=
                    " " + std::to_string(GetDlgCtrlID(uno)) + (IsWindowEnabled(uno) ? "" : "(off)");
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&texto));
    return texto;
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

    ASSERT_TRUE(esperar([&] { return mono.pausado(); })) << "seed " << semilla << ", " << estado(programa);

    auto secciones = leer(programa.leerINI());
    const Parrilla parrilla(secciones["RETICULA"], lugar(programa.ventana()));
    int vistos = 0;
    for (int n = 1; n <= 64; ++n) {
        const auto seccion = secciones.find("VISOR_" + std::to_string(n));
        if (seccion == secciones.end() || seccion->second["Port"].empty()) break;
        const RECT celda = parrilla.celda(seccion->second["Ubicacion"]);
        const auto seVe = [&] { return programa.seVe(IdControl::picRep, n); };
        EXPECT_TRUE(esperar([&] { return seVe() || mono.avisado(n); }))
            << n << " " << seccion->second["Ubicacion"] << " is not seen, and nobody was told";
        EXPECT_FALSE(seVe() && IsRectEmpty(&celda)) << n << " " << seccion->second["Ubicacion"];
        if (!seVe()) continue;
        ++vistos;
        const RECT suya = lugar(programa.control(IdControl::picRep, n));
        EXPECT_NEAR(suya.right, celda.right, 2) << n;
        EXPECT_NEAR(suya.top, celda.top, 2) << n;
        EXPECT_NEAR(suya.bottom, celda.bottom, 2) << n;
        if (!programa.seVe(IdControl::picCap, n)) continue;
        EXPECT_EQ(programa.texto(IdControl::picCap, n), deWindows(seccion->second["Etiqueta"])) << n;
    }
    std::printf("%d steps, %d displays on the screen\n", pasos, vistos);
    EXPECT_TRUE(esperar([&] { return mono.terminado(); })) << "it ends by itself";
}

}  // namespace
}  // namespace sorvanel::pruebas
