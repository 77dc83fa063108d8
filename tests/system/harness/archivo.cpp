#include "harness/archivo.h"

#include <shlobj.h>
#include <windows.h>

#include <array>
#include <memory>
#include <stdexcept>

#include "harness/texto.h"

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

}  // namespace

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

bool existeArchivo(const std::wstring& ruta) {
    return GetFileAttributesW(ruta.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void crearCarpeta(const std::wstring& ruta) {
    if (!CreateDirectoryW(ruta.c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        throw std::runtime_error("cannot make " + utf8(ruta));
}

void borrarCarpeta(const std::wstring& ruta) {
    WIN32_FIND_DATAW dato{};
    const HANDLE busqueda = FindFirstFileW((ruta + L"\\*").c_str(), &dato);
    if (busqueda == INVALID_HANDLE_VALUE) return;
    do {
        DeleteFileW((ruta + L"\\" + dato.cFileName).c_str());
    } while (FindNextFileW(busqueda, &dato));
    FindClose(busqueda);
    RemoveDirectoryW(ruta.c_str());
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
    std::array<wchar_t, MAX_PATH + 1> ruta{};
    GetTempPathW(static_cast<DWORD>(ruta.size()), ruta.data());
    std::wstring completa = ruta.data();
    while (completa.ends_with(L'\\')) completa.pop_back();
    return completa;
}

}  // namespace sorvanel::pruebas
