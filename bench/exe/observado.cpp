#include "observado.h"

#include <array>
#include <sstream>
#include <stdexcept>

#include "harness/sistema.h"

namespace sorvanel::medidas {
namespace {

// Files of /proc say that they are empty: read until nothing comes.
std::string leerDeLinux(const std::string& ruta) {
    std::wstring nombre = L"Z:" + pruebas::ancho(ruta);
    for (wchar_t& letra : nombre)
        if (letra == L'/') letra = L'\\';
    const HANDLE archivo =
        CreateFileW(nombre.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    std::string bytes;
    if (archivo == INVALID_HANDLE_VALUE) return bytes;
    std::array<char, 16384> trozo{};
    DWORD leidos = 0;
    while (ReadFile(archivo, trozo.data(), static_cast<DWORD>(trozo.size()), &leidos, nullptr) && leidos > 0)
        bytes.append(trozo.data(), leidos);
    CloseHandle(archivo);
    return bytes;
}

std::string carpetaEnLinux(const std::wstring& ejecutable) {
    const std::string nombre = pruebas::utf8(ejecutable.substr(ejecutable.find_last_of(L'\\') + 1));
    WIN32_FIND_DATAW dato{};
    const HANDLE busqueda = FindFirstFileW(L"Z:\\proc\\*", &dato);
    if (busqueda == INVALID_HANDLE_VALUE) throw std::runtime_error("drive Z: does not show /proc");
    std::string hallada;
    do {
        const std::string carpeta = "/proc/" + pruebas::utf8(dato.cFileName);
        if (dato.cFileName[0] < L'0' || dato.cFileName[0] > L'9') continue;
        if (leerDeLinux(carpeta + "/cmdline").find(nombre) != std::string::npos) hallada = carpeta;
    } while (hallada.empty() && FindNextFileW(busqueda, &dato));
    FindClose(busqueda);
    if (hallada.empty()) throw std::runtime_error("Linux knows no process of the name " + nombre);
    return hallada;
}

// The number in the line "Name:   1234 kB".
long long kilobytes(const std::string& estado, const std::string& nombre) {
    const std::size_t lugar = estado.find("\n" + nombre + ":");
    if (lugar == std::string::npos) throw std::runtime_error("no " + nombre + " in /proc");
    return std::stoll(estado.substr(lugar + nombre.size() + 2));
}

}  // namespace

Observado::Observado(DWORD id, const std::wstring& ejecutable)
    : m_proceso(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id)) {
    if (m_proceso == nullptr) throw std::runtime_error("cannot look at the program");
    m_carpeta = carpetaEnLinux(ejecutable);
}

Observado::~Observado() {
    CloseHandle(m_proceso);
}

double Observado::segundosCPU() const {
    // After the name, which may hold blanks: state, ten more, then the two times in hundredths.
    const std::string linea = leerDeLinux(m_carpeta + "/stat");
    const std::size_t trasNombre = linea.rfind(')');
    if (trasNombre == std::string::npos) throw std::runtime_error("the program is gone");
    std::istringstream campos(linea.substr(trasNombre + 1));
    std::string salto;
    for (int i = 0; i < 11; ++i) campos >> salto;
    double usuario = 0, nucleo = 0;
    campos >> usuario >> nucleo;
    return (usuario + nucleo) / 100;
}

long long Observado::memoriaPrivada() const {
    const std::string estado = leerDeLinux(m_carpeta + "/status");
    return kilobytes(estado, "RssAnon") + kilobytes(estado, "VmSwap");
}

long long Observado::memoriaResidente() const {
    return kilobytes(leerDeLinux(m_carpeta + "/status"), "VmRSS");
}

long descartados(int primero, int cuantos) {
    std::istringstream lineas(leerDeLinux("/proc/net/udp"));
    std::string linea;
    if (!std::getline(lineas, linea)) throw std::runtime_error("no /proc/net/udp");
    long perdidos = 0;
    int vistos = 0;
    while (std::getline(lineas, linea)) {
        std::istringstream campos(linea);
        std::string numero, local, campo;
        campos >> numero >> local;
        const std::size_t dosPuntos = local.find(':');
        if (dosPuntos == std::string::npos) continue;
        const int puerto = std::stoi(local.substr(dosPuntos + 1), nullptr, 16);
        if (puerto < primero || puerto >= primero + cuantos) continue;
        while (campos >> campo) {
        }
        perdidos += std::stol(campo);
        ++vistos;
    }
    if (vistos < cuantos) throw std::runtime_error("not all ports are open: the losses are not known");
    return perdidos;
}

}  // namespace sorvanel::medidas
