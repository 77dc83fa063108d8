#include "harness/sistema.h"

#include <shlobj.h>

#include <array>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <utility>

namespace sorvanel::pruebas {
namespace {

struct CerrarManejador {
    void operator()(HANDLE manejador) const { CloseHandle(manejador); }
};
using Archivo = std::unique_ptr<void, CerrarManejador>;

Archivo abrir(const std::wstring& ruta, DWORD acceso, DWORD modo) {
    const HANDLE manejador = CreateFileW(ruta.c_str(), acceso, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                         nullptr, modo, FILE_ATTRIBUTE_NORMAL, nullptr);
    return Archivo(manejador == INVALID_HANDLE_VALUE ? nullptr : manejador);
}

GUITHREADINFO hilo(HWND ventana) {
    GUITHREADINFO hilo{};
    hilo.cbSize = sizeof hilo;
    GetGUIThreadInfo(GetWindowThreadProcessId(ventana, nullptr), &hilo);
    return hilo;
}

}  // namespace

std::wstring ancho(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    std::wstring resultado(utf8.size(), L'\0');
    resultado.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, resultado.data(), bytes)));
    return resultado;
}

std::string utf8(std::wstring_view ancho) {
    std::string resultado(3 * ancho.size(), '\0');
    resultado.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, ancho.data(), static_cast<int>(ancho.size()), resultado.data(),
                            static_cast<int>(resultado.size()), nullptr, nullptr)));
    return resultado;
}

std::string leerArchivo(const std::wstring& ruta) {
    const Archivo archivo = abrir(ruta, GENERIC_READ, OPEN_EXISTING);
    if (!archivo) return {};
    // To its end, not by its size: some files of the system have none.
    std::string bytes;
    std::array<char, 65536> trozo{};
    for (DWORD leidos = 0;
         ReadFile(archivo.get(), trozo.data(), static_cast<DWORD>(trozo.size()), &leidos, nullptr) && leidos > 0;)
        bytes.append(trozo.data(), leidos);
    return bytes;
}

void escribirArchivo(const std::wstring& ruta, std::string_view bytes) {
    const Archivo archivo = abrir(ruta, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD escritos = 0;
    if (!archivo || !WriteFile(archivo.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &escritos, nullptr) ||
        escritos != bytes.size())
        throw std::runtime_error("cannot write " + utf8(ruta));
}

std::wstring carpetaComun() {
    std::array<wchar_t, MAX_PATH> ruta{};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr, 0, ruta.data())))
        throw std::runtime_error("no common folder for application data");
    return ruta.data();
}

std::wstring carpetaPropia() {
    std::array<wchar_t, MAX_PATH> ruta{};
    GetModuleFileNameW(nullptr, ruta.data(), static_cast<DWORD>(ruta.size()));
    const std::wstring completa = ruta.data();
    return completa.substr(0, completa.find_last_of(L'\\'));
}

std::wstring carpetaTemporal() {
    return std::filesystem::temp_directory_path().parent_path().wstring();  // it ends with a separator
}

std::vector<MonitorVisto> monitores() {
    std::vector<MonitorVisto> vistos;
    EnumDisplayMonitors(
        nullptr, nullptr,
        [](HMONITOR monitor, HDC, LPRECT, LPARAM dato) -> BOOL {
            MONITORINFO info{};
            info.cbSize = sizeof info;
            GetMonitorInfoW(monitor, &info);
            reinterpret_cast<std::vector<MonitorVisto>*>(dato)->push_back(
                {info.rcMonitor, (info.dwFlags & MONITORINFOF_PRIMARY) != 0});
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&vistos));
    return vistos;
}

HWND hijo(HWND ventana, int id) {
    std::pair<int, HWND> busqueda{id, nullptr};
    if (ventana == nullptr) return nullptr;  // it would mean the desktop
    EnumChildWindows(
        ventana,
        [](HWND actual, LPARAM dato) -> BOOL {
            auto& [buscado, hallada] = *reinterpret_cast<std::pair<int, HWND>*>(dato);
            if (GetDlgCtrlID(actual) != buscado) return TRUE;
            hallada = actual;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&busqueda));
    return busqueda.second;
}

std::string texto(HWND ventana) {
    if (ventana == nullptr) return {};
    std::array<wchar_t, 1024> letras{};
    DWORD_PTR cuantas = 0;
    if (!SendMessageTimeoutW(ventana, WM_GETTEXT, letras.size(), reinterpret_cast<LPARAM>(letras.data()),
                             SMTO_ABORTIFHUNG, 2000, &cuantas))
        return {};
    return utf8(std::wstring_view(letras.data(), cuantas));
}

std::wstring clase(HWND ventana) {
    std::array<wchar_t, 64> nombre{};
    GetClassNameW(ventana, nombre.data(), static_cast<int>(nombre.size()));
    return nombre.data();
}

RECT lugar(HWND ventana) {
    RECT marco{};
    GetWindowRect(ventana, &marco);
    return marco;
}

bool seVe(HWND ventana) {
    return ventana != nullptr && IsWindowVisible(ventana);
}

void pulsar(HWND ventana) {
    RECT zona{};
    GetClientRect(ventana, &zona);
    const LPARAM centro = MAKELPARAM(zona.right / 2, zona.bottom / 2);
    PostMessageW(ventana, WM_LBUTTONDOWN, MK_LBUTTON, centro);
    PostMessageW(ventana, WM_LBUTTONUP, 0, centro);
}

void arrastrar(HWND ventana, int x, int y) {
    PostMessageW(ventana, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(ventana, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5 + x, 5 + y));
    PostMessageW(ventana, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
}

HWND foco(HWND ventana) {
    return hilo(ventana).hwndFocus;
}

bool enMenu(HWND ventana) {
    return (hilo(ventana).flags & GUI_INMENUMODE) != 0;
}

void teclear(HWND ventana, int teclaVirtual) {
    const HWND enfocada = foco(ventana);
    const HWND destino = enfocada != nullptr ? enfocada : ventana;
    const auto codigo = static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(teclaVirtual), MAPVK_VK_TO_VSC)) << 16;
    constexpr LPARAM soltada = 0xC0000001L;
    PostMessageW(destino, WM_KEYDOWN, static_cast<WPARAM>(teclaVirtual), codigo | 1);
    PostMessageW(destino, WM_KEYUP, static_cast<WPARAM>(teclaVirtual), codigo | soltada);
}

}  // namespace sorvanel::pruebas
