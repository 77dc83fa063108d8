#include "platform/win32/system/archivosWin.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <system_error>
#include <utility>

#include "platform/win32/base/manejadoresNucleo.h"
#include "platform/win32/base/textoWin.h"

namespace sorvanel {

namespace {

constexpr LONGLONG TAMANO_MAXIMO = 16 * 1024 * 1024;
constexpr int INTENTOS = 5;

bool estaOcupado(DWORD codigo) {
    return codigo == ERROR_SHARING_VIOLATION || codigo == ERROR_LOCK_VIOLATION || codigo == ERROR_ACCESS_DENIED ||
           codigo == ERROR_USER_MAPPED_FILE;
}

// Tries again while somebody else holds the file: after 2, 4, 8 and 16 ms, then no more.
template <typename Accion>
bool conPaciencia(Accion accion) {
    for (int i = 1;; ++i) {
        if (accion()) return true;
        if (i == INTENTOS || !estaOcupado(GetLastError())) return false;
        Sleep(1U << i);
    }
}

bool noExiste(DWORD codigo) {
    return codigo == ERROR_FILE_NOT_FOUND || codigo == ERROR_PATH_NOT_FOUND;
}

std::string motivoDe(DWORD codigo) {
    switch (codigo) {
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return "otro programa lo tiene abierto";
        case ERROR_ACCESS_DENIED:
            return "no se permite el acceso";
        case ERROR_FILE_TOO_LARGE:
            return "es demasiado grande";
        default:
            return "error " + std::to_string(codigo) + " del sistema";
    }
}

bool leerTodo(HANDLE archivo, std::string& destino) {
    LARGE_INTEGER tamano;
    if (!GetFileSizeEx(archivo, &tamano)) return false;
    if (tamano.QuadPart > TAMANO_MAXIMO) {
        SetLastError(ERROR_FILE_TOO_LARGE);
        return false;
    }
    destino.resize(static_cast<std::size_t>(tamano.QuadPart));
    std::size_t leido = 0;
    while (leido < destino.size()) {
        DWORD parte = 0;
        if (!ReadFile(archivo, destino.data() + leido, static_cast<DWORD>(destino.size() - leido), &parte, nullptr))
            return false;
        if (parte == 0) break;
        leido += parte;
    }
    destino.resize(leido);
    return true;
}

bool escribirTodo(HANDLE archivo, std::string_view contenido) {
    while (!contenido.empty()) {
        const auto pedido = static_cast<DWORD>(std::min<std::size_t>(contenido.size(), 1U << 20));
        DWORD escrito = 0;
        if (!WriteFile(archivo, contenido.data(), pedido, &escrito, nullptr) || escrito == 0) return false;
        contenido.remove_prefix(escrito);
    }
    return true;
}

// On the disk when it answers yes; without the flush a power cut could leave the new name with
// nothing behind it.
bool escribirArchivo(const std::wstring& ruta, std::string_view contenido) {
    const ObjetoNucleo archivo = archivoAbierto(
        CreateFileW(ruta.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return archivo && escribirTodo(archivo.get(), contenido) && FlushFileBuffers(archivo.get());
}

}  // namespace

Lectura ArchivosWin::leer(const std::string& ruta) {
    const std::wstring ancha = aAncho(ruta);
    constexpr DWORD COMPARTIDO = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    std::string contenido;
    DWORD codigo = ERROR_SUCCESS;
    const bool bien = conPaciencia([&] {
        const ObjetoNucleo archivo = archivoAbierto(CreateFileW(ancha.c_str(), GENERIC_READ, COMPARTIDO, nullptr,
                                                                OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
        const bool leido = archivo && leerTodo(archivo.get(), contenido);
        codigo = GetLastError();
        return leido;
    });
    if (bien) return {std::move(contenido)};
    return {std::nullopt, noExiste(codigo), motivoDe(codigo)};
}

bool ArchivosWin::crearVacio(const std::string& ruta) {
    return static_cast<bool>(archivoAbierto(
        CreateFileW(aAncho(ruta).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr)));
}

bool ArchivosWin::reemplazar(const std::string& ruta, std::string_view contenido) {
    const std::wstring destino = aAncho(ruta);
    const std::wstring temporal = destino + L"~";
    const DWORD atributos = GetFileAttributesW(destino.c_str());
    // Somebody wanted it to stay as it is; waiting would not change that.
    if (atributos != INVALID_FILE_ATTRIBUTES && (atributos & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)))
        return false;
    const bool bien = escribirArchivo(temporal, contenido) && conPaciencia([&] {
                          return MoveFileExW(temporal.c_str(), destino.c_str(),
                                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
                      });
    if (!bien) DeleteFileW(temporal.c_str());
    return bien;
}

void ArchivosWin::reemplazarAparte(const std::string& ruta, std::string contenido) {
    const auto hacer = [this, ruta, nuevo = std::move(contenido)] {
        const bool bien = reemplazar(ruta, nuevo);
        return Reemplazo{bien, sello(ruta)};
    };
    try {
        m_aparte = std::async(std::launch::async, hacer);
    } catch (const std::system_error&) {
        // No thread is to be had: then the program waits for once.
        std::promise<Reemplazo> hecho;
        hecho.set_value(hacer());
        m_aparte = hecho.get_future();
    }
}

std::optional<Reemplazo> ArchivosWin::terminado() {
    if (!m_aparte.valid() || m_aparte.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return std::nullopt;
    return esperar();
}

std::optional<Reemplazo> ArchivosWin::esperar() {
    if (!m_aparte.valid()) return std::nullopt;
    try {
        return m_aparte.get();
    } catch (const std::exception&) {
        return Reemplazo{};  // out of memory: not written
    }
}

SelloArchivo ArchivosWin::sello(const std::string& ruta) {
    WIN32_FILE_ATTRIBUTE_DATA datos;
    if (!GetFileAttributesExW(aAncho(ruta).c_str(), GetFileExInfoStandard, &datos)) {
        return {noExiste(GetLastError()) ? Presencia::ausente : Presencia::incierta};
    }
    const auto junto = [](DWORD alto, DWORD bajo) { return std::uint64_t{alto} << 32 | bajo; };
    return {Presencia::presente, junto(datos.nFileSizeHigh, datos.nFileSizeLow),
            junto(datos.ftLastWriteTime.dwHighDateTime, datos.ftLastWriteTime.dwLowDateTime)};
}

bool ArchivosWin::crearCarpeta(const std::string& ruta) {
    const std::wstring ancha = aAncho(ruta);
    if (CreateDirectoryW(ancha.c_str(), nullptr)) return true;
    const DWORD atributos = GetFileAttributesW(ancha.c_str());
    return atributos != INVALID_FILE_ATTRIBUTES && (atributos & FILE_ATTRIBUTE_DIRECTORY);
}

std::string ArchivosWin::unir(const std::string& carpeta, const std::string& nombre) const {
    constexpr const char* BARRAS = "\\/";
    const std::size_t fin = carpeta.find_last_not_of(BARRAS);
    const std::size_t inicio = nombre.find_first_not_of(BARRAS);
    std::string resto = inicio == std::string::npos ? "" : nombre.substr(inicio);
    if (carpeta.empty()) return resto;
    return carpeta.substr(0, fin == std::string::npos ? 0 : fin + 1) + '\\' + resto;
}

}  // namespace sorvanel
