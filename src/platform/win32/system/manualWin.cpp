#include "platform/win32/system/manualWin.h"

#include <windows.h>
// After windows.h, whose types they use.
#include <objbase.h>
#include <shellapi.h>
#include <shlwapi.h>

#include <array>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/win32/base/direccionArchivo.h"
#include "platform/win32/base/textoWin.h"

namespace sorvanel {

namespace {

// From Windows 8 on a protocol is told from a file type by this; before, it is asked for like one.
constexpr ASSOCF ES_PROTOCOLO = 0x1000;

// The program that opens web addresses, which need not be the one that opens HTML files: that may be an editor, which
// would make nothing of an address. Empty where it is none that can be started by its name.
std::wstring navegador() {
    for (const ASSOCF modo : {ES_PROTOCOLO, ASSOCF{ASSOCF_NONE}}) {
        std::array<wchar_t, 1024> ruta{};
        auto largo = static_cast<DWORD>(ruta.size());
        if (FAILED(AssocQueryStringW(modo, ASSOCSTR_EXECUTABLE, L"http", L"open", ruta.data(), &largo))) continue;
        if (PathFileExistsW(ruta.data())) return ruta.data();
    }
    return {};
}

// Quiet: what cannot be opened is not told to the user.
bool ejecutar(const std::wstring& archivo, const std::wstring& argumentos, bool callado) {
    SHELLEXECUTEINFOW orden{};
    orden.cbSize = sizeof orden;
    // The thread ends soon after: whatever the system does for it must be done by then.
    orden.fMask = SEE_MASK_NOASYNC;
    if (callado) orden.fMask |= SEE_MASK_FLAG_NO_UI;
    orden.lpFile = archivo.c_str();
    orden.lpParameters = argumentos.empty() ? nullptr : argumentos.c_str();
    orden.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&orden) != FALSE;
}

// Given a file or a file's address, the shell opens the file: the section is lost on the way. A browser that is handed
// the address as its argument gets all of it. Where that is not to be had, the beginning of the manual is better
// than none.
void abrir(const std::wstring& ruta, const std::wstring& apartado) {
    const std::wstring programa = navegador(), lugar = aAncho(direccionArchivo(aUtf8(ruta))) + L"#" + apartado;
    if (!programa.empty() && ejecutar(programa, L"\"" + lugar + L"\"", true)) return;
    ejecutar(ruta, {}, false);
}

// Where nothing is set for such files, the editor that every Windows has; by its whole path, or one that lies in the
// folder that the program was started in would do as well.
void abrirTexto(const std::wstring& ruta) {
    if (ejecutar(ruta, {}, true)) return;
    std::array<wchar_t, MAX_PATH> carpeta{};
    GetSystemDirectoryW(carpeta.data(), static_cast<UINT>(carpeta.size()));
    ejecutar(std::wstring(carpeta.data()) + L"\\notepad.exe", L"\"" + ruta + L"\"", false);
}

template <typename Accion>
void hacerAparte(Accion accion) {
    try {
        std::thread([accion = std::move(accion)] {
            const bool conCOM = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
            try {
                accion();
            } catch (const std::exception& fallo) {
                OutputDebugStringA(fallo.what());  // out of memory: it can be asked for again
            }
            if (conCOM) CoUninitialize();
        }).detach();
    } catch (const std::system_error& fallo) {
        OutputDebugStringA(fallo.what());
    }
}

}  // namespace

void abrirManualAparte(std::wstring ruta, std::wstring apartado) {
    hacerAparte([ruta = std::move(ruta), apartado = std::move(apartado)] { abrir(ruta, apartado); });
}

void abrirTextoAparte(std::wstring ruta) {
    hacerAparte([ruta = std::move(ruta)] { abrirTexto(ruta); });
}

}  // namespace sorvanel
