#include "escena.h"

#include <algorithm>
#include <stdexcept>

#include "desnudo.h"
#include "harness/configuracion.h"
#include "harness/red.h"
#include "harness/sistema.h"

namespace sorvanel::medidas {

using pruebas::Proceso;
using pruebas::Programa;

std::string ajustes(int tessel, int puerto, int pavona, int concentrador) {
    pruebas::Configuracion configuracion;
    configuracion.reticula(8, 8);
    for (int i = 0; i < tessel + pavona; ++i) {
        const bool propio = i < tessel;
        configuracion.visor(propio ? puerto + i : 101 + i - tessel, i / 8 + 1, i % 8 + 1);
        if (!propio) configuracion.clave("Protocolo", "Pavona").clave("ModoBulk", "0");
    }
    if (pavona > 0)
        configuracion.seccion("PAVONA").clave("Host", "127.0.0.1").clave("Port", std::to_string(concentrador));
    return configuracion;
}

std::string ajustesBanda(const std::string& texto) {
    return pruebas::Configuracion()
        .seccion("MENSAJE")
        .clave("EnUso", "Si")
        .clave("Texto", texto)
        .clave("Velocidad", "4");
}

std::string textoVariado(int caracteres) {
    static constexpr char LETRAS[] = "ABCDEFGHKLMNPRSTUVXYZabcdefghkmnopqrstuvxyz234567890 ";
    std::string texto;
    unsigned azar = 12345;
    while (static_cast<int>(texto.size()) < caracteres) {
        azar = azar * 1103515245U + 12345U;
        const char letra = LETRAS[(azar >> 16U) % (sizeof LETRAS - 1)];
        const bool alBorde = texto.empty() || static_cast<int>(texto.size()) == caracteres - 1;
        // Blanks at the ends would be trimmed.
        texto += letra == ' ' && (alBorde || texto.back() == ' ') ? 'W' : letra;
    }
    return texto;
}

std::string lineas(int pavona, int valor) {
    std::string peso = std::to_string(valor);
    peso.insert(0, static_cast<std::size_t>(std::max(0, 8 - static_cast<int>(peso.size()))), '0');
    std::string todas;
    for (int i = 0; i < pavona; ++i) todas += pruebas::lineaPavona(101 + i, "--", peso.c_str(), "00000000");
    return todas;
}

void exigir(bool seCumple, const std::string& que) {
    if (!seCumple) throw std::runtime_error(que);
}

double ahora() {
    LARGE_INTEGER cuenta{}, frecuencia{};
    QueryPerformanceCounter(&cuenta);
    QueryPerformanceFrequency(&frecuencia);
    return static_cast<double>(cuenta.QuadPart) / static_cast<double>(frecuencia.QuadPart);
}

void aRitmo(int turnos, double porSegundo, const std::function<void(int)>& turno) {
    const double inicio = ahora();
    for (int i = 0; i < turnos; ++i) {
        while (ahora() < inicio + i / porSegundo) Sleep(1);
        turno(i);
    }
}

void arrancarEnMarcha(Programa& programa) {
    programa.arrancar();
    exigir(programa.esperarVisible(IdControl::botPau), "the program does not come to run");
}

Desnudo::Desnudo(Modo modo, int puerto) {
    static int copias = 0;
    m_ejecutable = pruebas::carpetaTemporal() + L"\\desnudo" + std::to_wstring(GetCurrentProcessId()) + L"n" +
                   std::to_wstring(++copias) + L".exe";
    if (!CopyFileW((pruebas::carpetaPropia() + L"\\desnudo.exe").c_str(), m_ejecutable.c_str(), FALSE))
        throw std::runtime_error("cannot copy desnudo.exe");
    const wchar_t* const nombre = modo == Modo::ventana ? L"ventana" : modo == Modo::udp ? L"udp" : L"tcp";
    m_orden = nombre + (L" " + std::to_wstring(puerto));
}

Desnudo::~Desnudo() {
    terminar();
    DeleteFileW(m_ejecutable.c_str());
}

void Desnudo::arrancar() {
    SetEnvironmentVariableW(desnudo::ORDEN, m_orden.c_str());
    m_proceso = std::make_unique<Proceso>(m_ejecutable);
}

void Desnudo::esperarVentana() {
    const bool hallada = pruebas::esperar([this] {
        for (const HWND una : m_proceso->ventanas())
            if (IsWindowVisible(una)) m_ventana = una;
        return m_ventana != nullptr || !m_proceso->vivo();
    });
    if (!hallada || m_ventana == nullptr) throw std::runtime_error("the bare program shows no window");
    m_observado = std::make_unique<Observado>(m_proceso->id(), m_ejecutable);
}

long Desnudo::recibidas() const {
    return static_cast<long>(SendMessageW(m_ventana, desnudo::CUANTAS, 0, 0));
}

void Desnudo::terminar() {
    m_observado.reset();
    m_proceso.reset();
    m_ventana = nullptr;
}

}  // namespace sorvanel::medidas
