#include "escena.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "harness/pantalla.h"
#include "harness/sistema.h"

namespace sorvanel::escenas {

using namespace pruebas;

namespace {

constexpr std::int32_t COLOR_TELON = 0x605040;
constexpr DWORD ENTRE_MIRADAS = 80;  // ms
constexpr int IGUALES = 3;           // looks in a row
constexpr int VUELTA = 120;          // more than any tool has to tab through

// The pointer goes where nothing lies that it could change.
RECT monitorPrimario() {
    const std::vector<MonitorVisto> todos = monitores();
    const auto primario = std::find_if(todos.begin(), todos.end(), [](const MonitorVisto& m) { return m.primario; });
    exigir(primario != todos.end(), "no monitor");
    for (const MonitorVisto& otro : todos)
        if (!otro.primario)
            SetCursorPos((otro.area.left + otro.area.right) / 2, (otro.area.top + otro.area.bottom) / 2);
    return primario->area;
}

// The simplest of formats: red, green, blue, row by row from the top.
std::string comoPPM(const Fotografia& foto, const RECT& parte) {
    const int ancho = parte.right - parte.left, alto = parte.bottom - parte.top;
    std::string bytes = "P6 " + std::to_string(ancho) + " " + std::to_string(alto) + " 255\n";
    bytes.reserve(bytes.size() + static_cast<std::size_t>(ancho) * static_cast<std::size_t>(alto) * 3);
    for (int y = parte.top; y < parte.bottom; ++y)
        for (int x = parte.left; x < parte.right; ++x)
            for (const int componente : {0, 8, 16}) bytes += static_cast<char>(foto.en(x, y) >> componente & 0xFF);
    return bytes;
}

}  // namespace

void exigir(bool condicion, const std::string& motivo) {
    if (!condicion) throw std::runtime_error(motivo);
}

Escena::Escena(std::wstring carpeta)
    : m_carpeta(std::move(carpeta)), m_zona(monitorPrimario()), m_telon(m_zona, COLOR_TELON) {}

void Escena::vaciar() {
    m_latido = nullptr;
    m_enfocado = nullptr;
    m_herramienta.reset();
    m_programa.reset();
    // The system may take a moment to give back what an ended program held.
    exigir(esperar([] { return EmisorUDP().ocupar(PUERTO); }), "somebody else holds the port of the first display");
}

void Escena::arrancar(const std::string& ini) {
    if (m_programa) vaciar();
    m_programa.emplace("\xEF\xBB\xBF" + ini);
    m_programa->arrancar();
    exigir(esperar([this] { return m_programa->seVe(IdControl::botPau) || m_programa->seVe(IdControl::botOk); }),
           "it neither runs nor configures");
}

void Escena::pesar(std::vector<std::string> tramas) {
    const std::size_t cuantas = tramas.size();
    m_latido = [this, tramas = std::move(tramas)] {
        for (std::size_t i = 0; i < tramas.size(); ++i) m_indicador.enviar(PUERTO + static_cast<int>(i), tramas[i]);
    };
    const auto pesan = [&] {
        m_latido();
        for (std::size_t n = 1; n <= cuantas; ++n)
            if (m_programa->peso(static_cast<int>(n)).find_first_of("0123456789") == std::string::npos) return false;
        return true;
    };
    exigir(esperar(pesan), "not every display shows a weight");
}

void Escena::esperarPeso(int visor, std::string_view trozo) {
    const auto dice = [&] {
        if (m_latido) m_latido();
        return m_programa->peso(visor).find(trozo) != std::string::npos;
    };
    exigir(esperar(dice), "display " + std::to_string(visor) + " does not show what it should");
}

void Escena::pausar() {
    m_latido = nullptr;
    m_enfocado = nullptr;
    m_programa->pulsar(IdControl::botPau);
    exigir(m_programa->esperarVisible(IdControl::botRun), "it does not pause");
}

void Escena::configurar(const std::string& ini) {
    arrancar(ini);
    if (m_programa->seVe(IdControl::botOk)) return;
    pausar();
    m_programa->pulsar(IdControl::botCfg);
    exigir(m_programa->esperarVisible(IdControl::botOk), "it does not configure");
}

void Escena::abrir(IdControl boton, IdControl herramienta, IdControl ultimo, int elemento) {
    m_enfocado = nullptr;
    m_programa->pulsar(boton);
    m_herramienta.emplace(*m_programa, herramienta);
    exigir(m_herramienta->esperarAbierta() && m_herramienta->esperarControl(ultimo, elemento), "the tool is not open");
}

void Escena::pulsar(IdControl id, int elemento, IdControl otro, int otroElemento, bool seVe) {
    m_enfocado = nullptr;
    m_herramienta->pulsar(id, elemento);
    exigir(esperar([&] { return pruebas::seVe(m_herramienta->control(otro, otroElemento)) == seVe; }),
           "pressing " + std::to_string(numero(id, elemento)) + " does not do what it should");
}

void Escena::enfocar(IdControl id, int elemento) {
    m_enfocado = m_herramienta ? m_herramienta->control(id, elemento) : m_programa->control(id, elemento);
    for (int i = 0; i < VUELTA; ++i) {
        const HWND antes = foco(m_enfocado);
        if (antes == m_enfocado) return;
        teclear(m_enfocado, VK_TAB);
        esperar([&] { return foco(m_enfocado) != antes; });
    }
    exigir(false, "the focus does not come to " + std::to_string(numero(id, elemento)));
}

// What is still to be painted is painted first, so that a busy machine is not taken for a still one.
Fotografia Escena::mirar() {
    if (m_latido) m_latido();
    Sleep(ENTRE_MIRADAS);
    for (const HWND ventana : m_programa->proceso().ventanas())
        if (IsWindowVisible(ventana)) RedrawWindow(ventana, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return Fotografia(m_zona);
}

// The displays' tool has not heard long enough yet to say what comes.
bool Escena::escucha() const {
    const std::string dicho = m_herramienta ? m_herramienta->texto(IdControl::lbRecepcion) : std::string();
    return dicho.ends_with("…") || (!dicho.empty() && m_herramienta->texto(IdControl::lbEquipo).empty());
}

void Escena::foto(const std::string& nombre, std::optional<RECT> parte) {
    // A box that nobody awaits would be in each picture.
    exigir(m_programa->caja().ventana() == nullptr, nombre + ": " + m_programa->caja().texto());
    Fotografia ultima = mirar();
    int iguales = 1;
    const auto quieta = [&] {
        Fotografia nueva = mirar();
        iguales = nueva == ultima ? iguales + 1 : 1;
        // A key may have been on its way still when the program itself moved the focus.
        if (m_enfocado != nullptr && foco(m_enfocado) != m_enfocado) {
            enfocar(static_cast<IdControl>(GetDlgCtrlID(m_enfocado)));
            iguales = 0;
        }
        if (escucha()) iguales = 0;
        ultima = std::move(nueva);
        return iguales >= IGUALES;
    };
    exigir(esperar(quieta, 2 * PLAZO), nombre + ": it does not stand still");
    RECT recorte = m_zona;
    if (parte) IntersectRect(&recorte, &m_zona, &*parte);
    OffsetRect(&recorte, -m_zona.left, -m_zona.top);
    escribirArchivo(m_carpeta + L"\\" + ancho(nombre) + L".ppm", comoPPM(ultima, recorte));
}

Configuracion parrillaLlena(int filas, int columnas, int visores) {
    Configuracion ini;
    ini.reticula(filas, columnas);
    for (int i = 0; i < std::min(filas * columnas, visores); ++i)
        ini.visor(PUERTO + i, i / columnas + 1, i % columnas + 1).clave("Etiqueta", "Tolva " + std::to_string(i + 1));
    return ini;
}

}  // namespace sorvanel::escenas
