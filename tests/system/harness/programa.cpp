#include "harness/programa.h"

#include <filesystem>
#include <random>
#include <stdexcept>
#include <utility>

namespace sorvanel::pruebas {
namespace {

constexpr int ID_TEXTO = 0xFFFF;  // what the system gives the text of its message boxes

std::wstring nombreNuevo() {
    static int siguiente = 0;
    // The same process id stands in other Wine prefixes of this machine, too.
    static const std::wstring propio = std::to_wstring(std::random_device()());
    return L"SorvanelPrueba" + propio + L"n" + std::to_wstring(++siguiente);
}

}  // namespace

Proceso::Proceso(const std::wstring& ejecutable, const std::wstring& argumentos) {
    STARTUPINFOW inicio{};
    inicio.cb = sizeof inicio;
    PROCESS_INFORMATION informacion{};
    std::wstring orden = L"\"" + ejecutable + L"\" " + argumentos;
    // No handle of ours goes on: a program that outlives the test would keep its output open.
    const auto arranca = [&] {
        return CreateProcessW(ejecutable.c_str(), orden.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                              nullptr, &inicio, &informacion) != FALSE;
    };
    // Once in hundreds of starts Wine says "internal error"; the next attempt works.
    if (!arranca() && !(GetLastError() == ERROR_INTERNAL_ERROR && arranca()))
        throw std::runtime_error("cannot start " + utf8(ejecutable) + ": error " + std::to_string(GetLastError()));
    CloseHandle(informacion.hThread);
    m_proceso = informacion.hProcess;
    m_id = informacion.dwProcessId;
}

Proceso::~Proceso() {
    matar();
    CloseHandle(m_proceso);
}

std::optional<DWORD> Proceso::esperarFin(int milisegundos) const {
    if (WaitForSingleObject(m_proceso, static_cast<DWORD>(milisegundos)) != WAIT_OBJECT_0) return std::nullopt;
    DWORD codigo = 0;
    GetExitCodeProcess(m_proceso, &codigo);
    return codigo;
}

void Proceso::matar() {
    if (!vivo()) return;
    TerminateProcess(m_proceso, 99);
    WaitForSingleObject(m_proceso, 5000);
}

std::vector<HWND> Proceso::ventanas() const {
    std::pair<DWORD, std::vector<HWND>> busqueda{m_id, {}};
    EnumWindows(
        [](HWND ventana, LPARAM dato) -> BOOL {
            auto& [id, halladas] = *reinterpret_cast<std::pair<DWORD, std::vector<HWND>>*>(dato);
            DWORD suyo = 0;
            GetWindowThreadProcessId(ventana, &suyo);
            if (suyo == id) halladas.push_back(ventana);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&busqueda));
    return std::move(busqueda.second);
}

HWND CajaMensaje::ventana() const {
    for (const HWND ventana : m_proceso.ventanas())
        if (clase(ventana) == L"#32770" && IsWindowVisible(ventana)) return ventana;
    return nullptr;
}

std::string CajaMensaje::texto() const {
    const HWND caja = ventana();
    return caja == nullptr ? std::string() : pruebas::texto(GetDlgItem(caja, ID_TEXTO));
}

std::string CajaMensaje::esperarTexto() const {
    std::string leido;
    esperar([&] { return !(leido = texto()).empty(); });
    return leido;
}

std::string CajaMensaje::contestar() const {
    std::string dicho = esperarTexto();
    return cerrar() ? dicho : std::string();
}

bool CajaMensaje::cerrar() const {
    const HWND caja = ventana();
    if (caja == nullptr) return false;
    PostMessageW(caja, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(caja, IDOK)));
    return esperar([caja] { return !IsWindow(caja); });
}

Programa::Programa()
    : m_nombre(nombreNuevo()),
      m_carpeta(carpetaTemporal() + L"\\" + m_nombre),
      m_ajustes(carpetaComun() + L"\\" + m_nombre),
      m_ejecutable(m_carpeta + L"\\" + m_nombre + L".exe") {
    std::filesystem::create_directory(m_carpeta);
    const std::wstring original = carpetaPropia() + L"\\" + ancho(SORVANEL_RELATIVO);
    if (!CopyFileW(original.c_str(), m_ejecutable.c_str(), FALSE))
        throw std::runtime_error("cannot copy " + utf8(original));
}

Programa::Programa(const std::string& bytesINI) : Programa() {
    escribirINI(bytesINI);
}

Programa::~Programa() {
    m_proceso.reset();
    for (const std::wstring& una : {m_ajustes, m_carpeta}) {
        std::error_code nada;
        std::filesystem::remove_all(una, nada);
    }
}

void Programa::escribirINI(const std::string& bytes) {
    std::filesystem::create_directory(m_ajustes);
    escribirArchivo(rutaINI(), bytes);
}

void Programa::arrancar() {
    m_proceso = std::make_unique<Proceso>(m_ejecutable);
    // The first window of all may wait ten seconds for the desktop itself.
    esperar([this] { return (m_ventana = buscarVentana()) != nullptr || !m_proceso->vivo(); }, 3 * PLAZO);
    if (m_ventana == nullptr)
        throw std::runtime_error(m_proceso->vivo() ? "no window came" : "the program ended without a window");
}

bool Programa::marchar() {
    arrancar();
    return esperarVisible(IdControl::botPau);
}

bool Programa::pausar() {
    pulsar(IdControl::botPau);
    return esperarVisible(IdControl::botRun);
}

bool Programa::terminar() {
    PostMessageW(m_ventana, WM_CLOSE, 0, 0);
    return m_proceso->esperarFin(PLAZO) == 0U;
}

// The main window is the one that holds the button bar.
HWND Programa::buscarVentana() const {
    for (const HWND ventana : m_proceso->ventanas())
        if (IsWindowVisible(ventana) && hijo(ventana, numero(IdControl::picBot)) != nullptr) return ventana;
    return nullptr;
}

std::string pesoDicho(std::string texto) {
    const std::size_t titulo = texto.find(": ");
    if (titulo != std::string::npos) texto.erase(0, titulo + 2);
    if (texto.starts_with("sin datos")) return "-----";
    constexpr std::pair<std::string_view, const char*> MARCAS[] = {
        {", equilibrio", " E"}, {", en carga", " C"}, {", en descarga", " D"}};
    for (const auto& [palabra, marca] : MARCAS) {
        const std::size_t donde = texto.find(palabra);
        if (donde != std::string::npos) texto.replace(donde, palabra.size(), marca);
    }
    return texto;
}

void Programa::pulsar(IdControl id) {
    if (!esperarVisible(id)) throw std::runtime_error("button not visible: " + std::to_string(numero(id)));
    const HWND boton = control(id);
    const RECT sitio = lugar(boton), anterior = lugar(m_pulsado);
    if (boton != m_pulsado && EqualRect(&sitio, &anterior))
        esperar([this] { return GetTickCount64() - m_cuando > GetDoubleClickTime(); });
    pruebas::pulsar(boton);
    m_pulsado = boton;
    m_cuando = GetTickCount64();
}

HWND VentanaHerramienta::ventana() const {
    const std::wstring buscada = L"SorvanelDialogo" + std::to_wstring(static_cast<int>(m_id));
    for (const HWND una : m_programa.proceso().ventanas())
        if (clase(una) == buscada && IsWindowVisible(una)) return una;
    return nullptr;
}

bool VentanaHerramienta::esperarControl(IdControl id, int elemento) const {
    return esperar(
        [&] { return seVe(control(id, elemento)) || lugarPintado(ventana(), numero(id, elemento)).has_value(); });
}

std::string VentanaHerramienta::texto(IdControl id, int elemento) const {
    const HWND suyo = control(id, elemento);
    return suyo != nullptr ? pruebas::texto(suyo) : textoPintado(ventana(), numero(id, elemento));
}

void VentanaHerramienta::pulsar(IdControl id, int elemento) const {
    if (!esperarControl(id, elemento)) return;
    if (const HWND suyo = control(id, elemento)) return pruebas::pulsar(suyo);
    const auto sitio = lugarPintado(ventana(), numero(id, elemento));
    if (!sitio) return;
    POINT medio{(sitio->left + sitio->right) / 2, (sitio->top + sitio->bottom) / 2};
    MapWindowPoints(nullptr, ventana(), &medio, 1);
    PostMessageW(ventana(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(medio.x, medio.y));
    PostMessageW(ventana(), WM_LBUTTONUP, 0, MAKELPARAM(medio.x, medio.y));
}

bool VentanaHerramienta::enfocar(HWND control) const {
    const auto conFoco = [&] { return foco(control) == control; };
    if (conFoco()) return true;
    pruebas::pulsar(control);
    return esperar(conFoco);
}

void VentanaHerramienta::escribir(IdControl id, int elemento, std::string_view nuevo) const {
    esperarControl(id, elemento);
    const HWND caja = control(id, elemento);
    if (!enfocar(caja)) return;
    SendMessageW(caja, EM_SETSEL, 0, -1);
    if (nuevo.empty()) PostMessageW(caja, WM_KEYDOWN, VK_DELETE, 1);
    for (const wchar_t letra : ancho(nuevo)) PostMessageW(caja, WM_CHAR, letra, 1);
}

void VentanaHerramienta::tecla(IdControl id, int elemento, int teclaVirtual) const {
    esperarControl(id, elemento);
    const HWND caja = control(id, elemento);
    if (enfocar(caja)) teclear(caja, teclaVirtual);
}

}  // namespace sorvanel::pruebas
