#include "platform/win32/system/archivoBitacora.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace sorvanel {

namespace {

constexpr std::string_view MARCA = "\xEF\xBB\xBF";
constexpr std::string_view FINAL = "\r\n";
constexpr LONGLONG COLA = 16 * 1024;  // bytes; no line is as long
constexpr DWORD COMPARTIDO = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::string_view MOLDE_SELLO = "0000-00-00 00:00:00 +00:00 ";

std::wstring conApellido(std::wstring ruta, const wchar_t* apellido) {
    return ruta.insert(ruta.rfind(L'.'), apellido);
}

LONGLONG comoNumero(const FILETIME& momento) {
    return static_cast<LONGLONG>(momento.dwHighDateTime) << 32 | momento.dwLowDateTime;
}

bool esSello(std::string_view texto) {
    const auto casa = [](char molde, char c) {
        if (molde == '+') return c == '+' || c == '-';
        return molde == '0' ? c >= '0' && c <= '9' : c == molde;
    };
    return texto.size() >= MOLDE_SELLO.size() &&
           std::equal(MOLDE_SELLO.begin(), MOLDE_SELLO.end(), texto.begin(), casa);
}

LONGLONG tamanoDe(HANDLE archivo) {
    LARGE_INTEGER tamano{};
    return GetFileSizeEx(archivo, &tamano) ? tamano.QuadPart : -1;
}

bool situar(HANDLE archivo, LONGLONG donde) {
    LARGE_INTEGER lugar{};
    lugar.QuadPart = donde;
    return SetFilePointerEx(archivo, lugar, nullptr, FILE_BEGIN) != FALSE;
}

// Where there is no file, nothing.
std::string leerCola(HANDLE archivo) {
    const LONGLONG tamano = archivo ? tamanoDe(archivo) : 0;
    if (tamano <= 0 || !situar(archivo, std::max<LONGLONG>(tamano - COLA, 0))) return {};
    std::string cola(static_cast<std::size_t>(std::min(tamano, COLA)), '\0');
    DWORD leido = 0;
    if (!ReadFile(archivo, cola.data(), static_cast<DWORD>(cola.size()), &leido, nullptr)) return {};
    cola.resize(leido);
    return cola;
}

// After a power cut the end of the file may be anything.
std::string_view ultimaLinea(std::string_view cola) {
    constexpr std::string_view FINALES("\r\n\0", 3);
    while (!cola.empty()) {
        const std::size_t fin = cola.find_last_of(FINALES);
        std::string_view linea = cola.substr(fin == std::string_view::npos ? 0 : fin + 1);
        if (linea.starts_with(MARCA)) linea.remove_prefix(MARCA.size());
        if (esSello(linea)) return linea;
        cola = cola.substr(0, fin == std::string_view::npos ? 0 : fin);
    }
    return {};
}

bool vaciar(const std::wstring& ruta) {
    return static_cast<bool>(
        archivoAbierto(CreateFileW(ruta.c_str(), GENERIC_WRITE, COMPARTIDO, nullptr, TRUNCATE_EXISTING, 0, nullptr)));
}

// All of it or nothing.
bool escribirAlFinal(HANDLE archivo, LONGLONG final, std::string_view bytes) {
    DWORD escrito = 0;
    if (!situar(archivo, final)) return false;
    if (WriteFile(archivo, bytes.data(), static_cast<DWORD>(bytes.size()), &escrito, nullptr) &&
        escrito == bytes.size() && FlushFileBuffers(archivo))
        return true;
    if (situar(archivo, final)) SetEndOfFile(archivo);
    return false;
}

}  // namespace

std::string selloBitacora(const FILETIME& cuando) {
    constexpr LONGLONG POR_MINUTO = 600'000'000;
    SYSTEMTIME universal{}, local{};
    FILETIME suyo{}, nuestro{};
    FileTimeToSystemTime(&cuando, &universal);
    if (!SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local)) local = universal;
    // Both cut to what that type holds.
    SystemTimeToFileTime(&universal, &suyo);
    SystemTimeToFileTime(&local, &nuestro);
    const int minutos = static_cast<int>((comoNumero(nuestro) - comoNumero(suyo)) / POR_MINUTO);
    std::array<char, 96> texto{};
    std::snprintf(texto.data(), texto.size(), "%04d-%02d-%02d %02d:%02d:%02d %c%02d:%02d ", local.wYear, local.wMonth,
                  local.wDay, local.wHour, local.wMinute, local.wSecond, minutos < 0 ? '-' : '+',
                  std::abs(minutos) / 60, std::abs(minutos) % 60);
    return texto.data();
}

ArchivoBitacora::ArchivoBitacora(std::wstring ruta)
    : m_ruta(std::move(ruta)), m_rutaAnterior(conApellido(m_ruta, L"_anterior")) {}

ObjetoNucleo ArchivoBitacora::abrir() const {
    // The settings make their folder when they are first asked for; the log may come before.
    CreateDirectoryW(m_ruta.substr(0, m_ruta.find_last_of(L"\\/")).c_str(), nullptr);
    return archivoAbierto(CreateFileW(m_ruta.c_str(), GENERIC_READ | GENERIC_WRITE, COMPARTIDO, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
}

// What comes before the first line of this run.
std::string ArchivoBitacora::deAntes(HANDLE archivo, const FILETIME& ahora) const {
    const std::string cola = leerCola(archivo);
    // Cut off in the middle, it would swallow our first line.
    std::string texto = cola.empty() || cola.ends_with('\n') ? "" : std::string(FINAL);
    std::string otra;
    std::string_view ultima = ultimaLinea(cola);
    if (ultima.empty()) {
        const ObjetoNucleo anterior = archivoAbierto(
            CreateFileW(m_rutaAnterior.c_str(), GENERIC_READ, COMPARTIDO, nullptr, OPEN_EXISTING, 0, nullptr));
        otra = leerCola(anterior.get());
        ultima = ultimaLinea(otra);
    }
    if (ultima.empty() || ultima.substr(MOLDE_SELLO.size()).starts_with(FIN)) return texto;
    texto += selloBitacora(ahora) + "La ejecución anterior no terminó de forma ordenada: su última línea es de ";
    return texto.append(ultima.substr(0, MOLDE_SELLO.size() - 1)).append(FINAL);
}

// Who reads it may keep it from being renamed, but not from being copied.
bool ArchivoBitacora::girar(LONGLONG tamano) const {
    // No work of ours: one of them would be too large for good.
    if (tamano > MAXIMO) return vaciar(m_ruta);
    constexpr DWORD COMO = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (MoveFileExW(m_ruta.c_str(), m_rutaAnterior.c_str(), COMO)) return true;
    return CopyFileW(m_ruta.c_str(), m_rutaAnterior.c_str(), FALSE) && vaciar(m_ruta);
}

bool ArchivoBitacora::anadir(const std::vector<LineaBitacora>& lineas) {
    if (lineas.empty()) return true;
    ObjetoNucleo archivo = abrir();
    if (!archivo) return false;
    std::string bytes = m_seguida ? "" : deAntes(archivo.get(), lineas.front().cuando);
    for (const LineaBitacora& una : lineas) bytes.append(selloBitacora(una.cuando)).append(una.texto).append(FINAL);
    LONGLONG tamano = tamanoDe(archivo.get());
    if (tamano + static_cast<LONGLONG>(MARCA.size() + bytes.size()) > MAXIMO) {
        archivo.cambiar(nullptr);
        if (!girar(tamano)) return false;
        archivo = abrir();
        tamano = archivo ? tamanoDe(archivo.get()) : -1;
    }
    if (tamano < 0) return false;
    if (tamano == 0) bytes.insert(0, MARCA);
    if (!escribirAlFinal(archivo.get(), tamano, bytes)) return false;
    m_seguida = true;
    return true;
}

}  // namespace sorvanel
